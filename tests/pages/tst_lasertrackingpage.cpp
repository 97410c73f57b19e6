#include "LaserTrackingPage.h"
#include "LogFolder.h"
#include "ScriptedHost.h"
#include "SingleShots.h"
#include "StackedWidgetFit.h"
#include "TestCase.h"

#include <QApplication>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace {

const QString Sibling = QStringLiteral("qelLaserSeamTracking");
// The log puts a blank between its items.
const QString Embedded = QStringLiteral("I: qelLaserSeamTracking  embedded into LaserTrackingPage");
const QString Failed = QStringLiteral("E: qelLaserSeamTracking  embed failed;");

constexpr int MostRetries = 25;
constexpr int Unknown = 1; // the scripted host's code for a plugin that it does not have

QString pending(int retry, int code = Unknown)
{
    return QStringLiteral("W: qelLaserSeamTracking  embed pending, ret= %1  retry= %2")
        .arg(code)
        .arg(retry);
}

QStringList pendingLines(int count)
{
    QStringList lines;
    for (int retry = 1; retry <= count; ++retry)
        lines << pending(retry);
    return lines;
}

/// The log of the plugin's tag as "<level>: <text>".
QStringList logged()
{
    QStringList lines;
    const QStringList all = LogFolder::lines();
    const QStringList texts = LogFolder::texts();
    for (int i = 0; i < all.size(); ++i)
        lines << all.at(i).mid(1, 1) + QStringLiteral(": ") + texts.at(i);
    return lines;
}

/// Nothing of what made it a window is left. Qt itself may set the hints that are the default.
bool isPlainChild(const QWidget* widget)
{
    const auto special = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    return !widget->isWindow() && widget->windowType() == Qt::Widget &&
           !(widget->windowFlags() & special);
}

/// Answers with a code and a widget that need not agree.
struct OddHost : ScriptedHost
{
    int pluginWidget(const QString&, QWidget*& widget) override
    {
        widget = answer;
        return code;
    }

    QWidget* answer = nullptr;
    int code = 0;
};

} // namespace

class TestLaserTrackingPage : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void form();
    void showAsksOnce();

    // Until it comes.
    void asksEvery200Milliseconds();
    void clockDrivesTheChain();
    void widgetThatComesLate_data();
    void widgetThatComesLate();
    void widgetThatNeverComes();
    void givenUpPageAsksOncePerCall();
    void givenUpPageTakesTheWidget();
    void counterStartsAgainAfterTheWidget();
    void chainsShareTheCounter_data();
    void chainsShareTheCounter();
    void chainsEndWithTheWidget();
    void goesWhileAShotIsPending();
    void codeIsOnlyLogged_data();
    void codeIsOnlyLogged();

    // When it is there.
    void widgetFillsThePage();
    void widgetLeavesItsLayout();
    void widgetLeavesItsStack();
    void widgetOfNobody();
    void windowBecomesAChild_data();
    void windowBecomesAChild();
    void widgetInThePageStays();
    void knownWidgetIsNotAskedFor();
    void widgetIsTakenBack();
    void eachCallRepeatsTheRest();
    void nearestStackIsFitted();
    void deletedWidgetIsAskedForAgain();
    void widgetGoesWithThePage();
};

void TestLaserTrackingPage::form()
{
    const ScriptedHost host;
    const LaserTrackingPage page;
    QCOMPARE(page.objectName(), QStringLiteral("LaserTrackingPage"));
    QCOMPARE(page.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(page.size(), QSize(400, 300));
    QCOMPARE(page.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(page.layout(), child<QVBoxLayout>(&page, "verticalLayout"));
    QCOMPARE(page.layout()->contentsMargins(), QMargins());
    QCOMPARE(page.layout()->count(), 0);
    QVERIFY(page.findChildren<QWidget*>().isEmpty());
    QVERIFY(host.calls.isEmpty());
    QVERIFY(SingleShots::pending(&page).isEmpty());
}

void TestLaserTrackingPage::showAsksOnce()
{
    const LogFolder folder;
    const ScriptedHost host;
    LaserTrackingPage page;
    for (int shows = 1; shows <= 2; ++shows) {
        page.show();
        QVERIFY(page.isVisible());
        QCOMPARE(host.count(QStringLiteral("GetPluginNoUniqueWidget")), shows);
        page.hide();
    }
    QCOMPARE(host.calls.size(), 2);
    QCOMPARE(host.calls.first().arguments, QJsonArray{Sibling});
    QCOMPARE(logged(), pendingLines(2));
}

void TestLaserTrackingPage::asksEvery200Milliseconds()
{
    const LogFolder folder;
    const ScriptedHost host;
    LaserTrackingPage page;
    page.embedTrackingWidget();
    for (int attempt = 1; attempt <= MostRetries; ++attempt) {
        QCOMPARE(host.calls.size(), attempt);
        const auto shots = SingleShots::pending(&page);
        QCOMPARE(shots.size(), 1);
        QCOMPARE(shots.first().timer.interval, 200);
        SingleShots::expire(&page);
    }
    QVERIFY(SingleShots::pending(&page).isEmpty());
}

void TestLaserTrackingPage::clockDrivesTheChain()
{
    const LogFolder folder;
    const ScriptedHost host;
    LaserTrackingPage page;
    page.embedTrackingWidget();
    QTRY_COMPARE(host.calls.size(), 2);
    QCOMPARE(logged(), pendingLines(2));
}

void TestLaserTrackingPage::widgetThatComesLate_data()
{
    QTest::addColumn<int>("attempt");
    // The last shot is started by the last attempt that counts.
    for (const int attempt : {1, 2, 10, MostRetries, MostRetries + 1})
        QTest::addRow("attempt %d", attempt) << attempt;
}

void TestLaserTrackingPage::widgetThatComesLate()
{
    QFETCH(int, attempt);
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    QWidget widget;
    for (int each = 1; each <= attempt; ++each) {
        if (each == attempt)
            host.siblings.insert(Sibling, &widget);
        if (each == 1)
            page.embedTrackingWidget();
        else
            QCOMPARE(SingleShots::expire(&page), 1);
    }
    QCOMPARE(widget.parentWidget(), &page);
    QCOMPARE(host.calls.size(), attempt);
    QCOMPARE(logged(), pendingLines(attempt - 1) << Embedded);
    QCOMPARE(SingleShots::expireAll(&page), 0);
    QVERIFY(host.messages.isEmpty());
}

void TestLaserTrackingPage::widgetThatNeverComes()
{
    const LogFolder folder;
    const ScriptedHost host;
    LaserTrackingPage page;
    page.embedTrackingWidget();
    QCOMPARE(SingleShots::expireAll(&page), MostRetries);
    QCOMPARE(logged(), pendingLines(MostRetries) << Failed);
    QCOMPARE(host.calls.size(), MostRetries + 1);
    QVERIFY(host.messages.isEmpty());
    QVERIFY(page.findChildren<QWidget*>().isEmpty());
}

void TestLaserTrackingPage::givenUpPageAsksOncePerCall()
{
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    page.embedTrackingWidget();
    SingleShots::expireAll(&page);
    host.forgetCalls();
    page.embedTrackingWidget();
    page.show();
    QCOMPARE(host.calls.size(), 2);
    QCOMPARE(SingleShots::expireAll(&page), 0);
    QCOMPARE(logged(), pendingLines(MostRetries) << Failed << Failed << Failed);
}

void TestLaserTrackingPage::givenUpPageTakesTheWidget()
{
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    page.embedTrackingWidget();
    SingleShots::expireAll(&page);
    auto* widget = new QWidget;
    host.siblings.insert(Sibling, widget);
    page.embedTrackingWidget();
    QCOMPARE(widget->parentWidget(), &page);
    QCOMPARE(logged(), pendingLines(MostRetries) << Failed << Embedded);
}

void TestLaserTrackingPage::counterStartsAgainAfterTheWidget()
{
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    for (int attempt = 1; attempt <= 9; ++attempt)
        page.embedTrackingWidget();
    auto* widget = new QWidget;
    host.siblings.insert(Sibling, widget);
    page.embedTrackingWidget();
    host.siblings.clear();
    delete widget;
    page.embedTrackingWidget();
    QCOMPARE(logged(), pendingLines(9) << Embedded << pending(1));
}

void TestLaserTrackingPage::chainsShareTheCounter_data()
{
    QTest::addColumn<int>("chains");
    for (const int chains : {2, 3, 7, MostRetries, MostRetries + 5})
        QTest::addRow("%d", chains) << chains;
}

// Each shot beyond the last attempt that counts ends its own chain with a line.
void TestLaserTrackingPage::chainsShareTheCounter()
{
    QFETCH(int, chains);
    const LogFolder folder;
    const ScriptedHost host;
    LaserTrackingPage page;
    for (int chain = 0; chain < chains; ++chain)
        page.embedTrackingWidget();
    QCOMPARE(SingleShots::pending(&page).size(), std::min(chains, MostRetries));
    QCOMPARE(SingleShots::expireAll(&page), MostRetries);
    QStringList expected = pendingLines(MostRetries);
    for (int chain = 0; chain < chains; ++chain)
        expected << Failed;
    QCOMPARE(logged(), expected);
}

// The shots of the other chains find the widget known.
void TestLaserTrackingPage::chainsEndWithTheWidget()
{
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    for (int chain = 0; chain < 3; ++chain)
        page.embedTrackingWidget();
    host.siblings.insert(Sibling, new QWidget);
    QCOMPARE(SingleShots::expireAll(&page), 3);
    QCOMPARE(host.calls.size(), 4);
    QCOMPARE(logged(), pendingLines(3) << Embedded << Embedded << Embedded);
}

void TestLaserTrackingPage::goesWhileAShotIsPending()
{
    const LogFolder folder;
    const ScriptedHost host;
    auto page = std::make_unique<LaserTrackingPage>();
    page->embedTrackingWidget();
    page->embedTrackingWidget();
    QCOMPARE(SingleShots::pending(page.get()).size(), 2);
    page.reset();
    // Nothing that would call into the library is left.
    QVERIFY(SingleShots::pending().isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(host.calls.size(), 2);
    QCOMPARE(logged(), pendingLines(2));
}

void TestLaserTrackingPage::codeIsOnlyLogged_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("there");
    for (const int code : {0, -1, 7, 65536}) {
        QTest::addRow("%d without a widget", code) << code << false;
        QTest::addRow("%d with a widget", code) << code << true;
    }
}

void TestLaserTrackingPage::codeIsOnlyLogged()
{
    QFETCH(int, code);
    QFETCH(bool, there);
    const LogFolder folder;
    OddHost host;
    LaserTrackingPage page;
    host.code = code;
    host.answer = there ? new QWidget : nullptr;
    page.embedTrackingWidget();
    QCOMPARE(logged(), QStringList{there ? Embedded : pending(1, code)});
    QVERIFY(host.messages.isEmpty());
}

void TestLaserTrackingPage::widgetFillsThePage()
{
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    auto* widget = new QWidget;
    widget->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Minimum);
    host.siblings.insert(Sibling, widget);
    page.resize(640, 480);
    page.show();
    QCOMPARE(widget->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(page.layout()->indexOf(widget), 0);
    QVERIFY(widget->isVisible());
    QTRY_COMPARE(widget->geometry(), page.rect());
}

void TestLaserTrackingPage::widgetLeavesItsLayout()
{
    const LogFolder folder;
    ScriptedHost host;
    QWidget elsewhere;
    auto* column = new QVBoxLayout(&elsewhere);
    auto* widget = new QWidget;
    column->addWidget(new QWidget);
    column->addWidget(widget);
    host.siblings.insert(Sibling, widget);
    LaserTrackingPage page;
    page.embedTrackingWidget();
    QCOMPARE(column->count(), 1);
    QCOMPARE(widget->parentWidget(), &page);
    QCOMPARE(page.layout()->count(), 1);
}

// As at a host that keeps the pages of its plugins in a stack.
void TestLaserTrackingPage::widgetLeavesItsStack()
{
    const LogFolder folder;
    ScriptedHost host;
    QStackedWidget pages;
    auto* widget = new QWidget;
    pages.addWidget(widget);
    pages.addWidget(new QWidget);
    pages.setCurrentIndex(1);
    pages.show();
    host.siblings.insert(Sibling, widget);
    LaserTrackingPage page;
    page.show();
    QCOMPARE(pages.count(), 1);
    QVERIFY(widget->isVisible());
}

void TestLaserTrackingPage::widgetOfNobody()
{
    const LogFolder folder;
    ScriptedHost host;
    QWidget elsewhere; // without a layout
    for (QWidget* parent : {static_cast<QWidget*>(nullptr), &elsewhere}) {
        auto* widget = new QWidget(parent);
        host.siblings.insert(Sibling, widget);
        LaserTrackingPage page;
        page.embedTrackingWidget();
        QCOMPARE(page.layout()->indexOf(widget), 0);
    }
}

void TestLaserTrackingPage::windowBecomesAChild_data()
{
    QTest::addColumn<int>("flags");
    QTest::newRow("widget") << int(Qt::Widget);
    QTest::newRow("window") << int(Qt::Window);
    QTest::newRow("frameless tool") << int(Qt::Tool | Qt::FramelessWindowHint);
    QTest::newRow("dialog on top") << int(Qt::Dialog | Qt::WindowStaysOnTopHint);
}

void TestLaserTrackingPage::windowBecomesAChild()
{
    QFETCH(int, flags);
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    auto* widget = new QWidget(nullptr, Qt::WindowFlags(flags));
    widget->show();
    host.siblings.insert(Sibling, widget);
    page.show();
    QVERIFY(widget->isVisible());
    QVERIFY(isPlainChild(widget));
    widget->setWindowFlags(Qt::WindowFlags(flags));
    page.embedTrackingWidget();
    QVERIFY(widget->isVisible());
    QVERIFY(isPlainChild(widget));
}

void TestLaserTrackingPage::widgetInThePageStays()
{
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    auto* widget = new QWidget(&page);
    host.siblings.insert(Sibling, widget);
    page.embedTrackingWidget();
    QCOMPARE(page.layout()->count(), 0);
    QVERIFY(!widget->isHidden());
    QCOMPARE(logged(), QStringList{Embedded});
}

void TestLaserTrackingPage::knownWidgetIsNotAskedFor()
{
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    auto* widget = new QWidget;
    host.siblings.insert(Sibling, widget);
    page.embedTrackingWidget();
    QLayoutItem* const before = page.layout()->itemAt(0);
    page.embedTrackingWidget();
    QCOMPARE(host.calls.size(), 1);
    QCOMPARE(page.layout()->itemAt(0), before);
    QCOMPARE(page.layout()->count(), 1);
}

void TestLaserTrackingPage::widgetIsTakenBack()
{
    const LogFolder folder;
    ScriptedHost host;
    QWidget elsewhere;
    auto* column = new QVBoxLayout(&elsewhere);
    LaserTrackingPage page;
    auto* widget = new QWidget;
    host.siblings.insert(Sibling, widget);
    page.embedTrackingWidget();
    column->addWidget(widget);
    QCOMPARE(widget->parentWidget(), &elsewhere);
    QCOMPARE(page.layout()->count(), 0);
    page.show();
    QCOMPARE(column->count(), 0);
    QCOMPARE(page.layout()->indexOf(widget), 0);
    QVERIFY(widget->isVisible());
    QCOMPARE(host.calls.size(), 1);
}

void TestLaserTrackingPage::eachCallRepeatsTheRest()
{
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    auto* widget = new QWidget;
    host.siblings.insert(Sibling, widget);
    page.show();
    widget->hide();
    widget->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    page.embedTrackingWidget();
    QVERIFY(widget->isVisible());
    QCOMPARE(widget->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(logged(), (QStringList{Embedded, Embedded}));
}

// The fit lifts the limits of the height.
void TestLaserTrackingPage::nearestStackIsFitted()
{
    const LogFolder folder;
    ScriptedHost host;
    StackedWidgetFit outer(nullptr);
    auto* inner = new StackedWidgetFit(nullptr);
    auto* between = new QWidget;
    auto* page = new LaserTrackingPage(between);
    inner->addWidget(between);
    outer.addWidget(inner);
    const auto limit = [&] {
        inner->setMinimumHeight(77);
        outer.setMinimumHeight(77);
    };
    limit();
    page->embedTrackingWidget();
    QCOMPARE(inner->minimumHeight(), 77);
    host.siblings.insert(Sibling, new QWidget);
    for (int call = 0; call < 2; ++call) {
        limit();
        page->embedTrackingWidget();
        QCOMPARE(inner->minimumHeight(), 0);
        QCOMPARE(outer.minimumHeight(), 77);
    }
}

void TestLaserTrackingPage::deletedWidgetIsAskedForAgain()
{
    const LogFolder folder;
    ScriptedHost host;
    LaserTrackingPage page;
    host.siblings.insert(Sibling, new QWidget);
    page.embedTrackingWidget();
    delete host.siblings.take(Sibling);
    page.show();
    QCOMPARE(host.calls.size(), 2);
    auto* another = new QWidget;
    host.siblings.insert(Sibling, another);
    QCOMPARE(SingleShots::expireAll(&page), 1);
    QCOMPARE(page.layout()->indexOf(another), 0);
    QCOMPARE(logged(), (QStringList{Embedded, pending(1), Embedded}));
}

void TestLaserTrackingPage::widgetGoesWithThePage()
{
    const LogFolder folder;
    ScriptedHost host;
    const QPointer<QWidget> widget(new QWidget);
    host.siblings.insert(Sibling, widget);
    auto page = std::make_unique<LaserTrackingPage>();
    page->embedTrackingWidget();
    page.reset();
    QVERIFY(!widget);
}

LASERWELD_TEST_MAIN(TestLaserTrackingPage)
#include "tst_lasertrackingpage.moc"
