#include "HardwareKey.h"
#include "LampButton.h"
#include "MainWindow.h"
#include "ProgramEditor.h"
#include "ProgramPage.h"
#include "TestCase.h"
#include "TestCell.h"
#include "Theme.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableWidget>

using namespace pendant;

namespace {

const QString PluginA = QStringLiteral("a");
const QString PluginB = QStringLiteral("b");

/// A window with the page and the key of one plugin; notes what the key calls.
struct Bench
{
    TestCell cell;
    QVector<bool> calls;
    MainWindow window{*cell};
    QLabel* page = new QLabel(QStringLiteral("Page"));

    Bench()
    {
        window.addPage(PluginA, page);
        window.setKeys(PluginA, PluginA,
                       {{QStringLiteral("Left"), {}, {}, [this](bool on) { calls << on; }}},
                       {{QStringLiteral("Right"), {}, {}, [this](bool on) { calls << on; }}});
        window.resize(1024, 768);
        window.show();
    }
    HardwareKey* key() { return child<HardwareKey>(&window, "key_Left"); }
    LampButton* lamp(const char* name) { return child<LampButton>(&window, name); }
    void click(const char* name)
    {
        QTest::mouseClick(child<QAbstractButton>(&window, name), Qt::LeftButton);
    }
};

QVector<bool> pressedAndReleased()
{
    return {true, false};
}

} // namespace

class TestMainWindow : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void lampsFollowTheController();
    void buttonsAsk();
    void loginByLevel_data();
    void loginByLevel();
    void loginPanelOpensAndShuts();
    void keysStandInTheirColumns();
    void keyGoesWhenTheWindowIsLeft();
    void keyGoesWhenTheWindowCloses();
    void keyGoesWithAnotherPage();
    void keyGoesWithThePlugins();
    void keyGroupCanBeSwitched();
    void tabsComeWithTheSecondPage();
    void titleFollowsThePage();
    void reopenHidesAndShows();
    void messagesReachStripAndHistory();
    void aClickOnTheStripOpensTheMessages();
    void panels_data();
    void panels();
    void onePanelAtATime();
    void allFaultsAreInView();
    void refusedLibraryOpensTheList();
    void loadedLibrariesDoNot();
    void controllerLogIsShown();
    void indicatorsStandByPosition();
    void programsStandBesideThePages();
    void closingAsksForTheProgram();
    void noTextIsCut_data();
    void noTextIsCut();
    void keysAreNarrowInANarrowWindow();
    void pagesAreScrolledNotSqueezed();
    void cleanup();
};

void TestMainWindow::lampsFollowTheController()
{
    Bench bench;
    QCOMPARE(bench.lamp("button_connection")->value(), QStringLiteral("Connected"));
    QCOMPARE(bench.lamp("button_power")->value(), QStringLiteral("Power off"));
    bench.cell->setConnected(false);
    QCOMPARE(bench.lamp("button_connection")->value(), QStringLiteral("No connection"));
    QCOMPARE(bench.lamp("button_connection")->lamp(), Theme::colour(Theme::Bad));
    bench.cell->setPowered(true);
    QCOMPARE(bench.lamp("button_power")->value(), QStringLiteral("Powered"));
    bench.cell->setConnected(true);
    QCOMPARE(bench.lamp("button_connection")->lamp(), Theme::colour(Theme::Good));
}

void TestMainWindow::buttonsAsk()
{
    Bench bench;
    const QSignalSpy connection(&bench.window, &MainWindow::connectionClicked);
    const QSignalSpy power(&bench.window, &MainWindow::powerClicked);
    bench.click("button_connection");
    bench.click("button_power");
    QCOMPARE(connection.size(), 1);
    QCOMPARE(power.size(), 1);
}

void TestMainWindow::loginByLevel_data()
{
    QTest::addColumn<int>("level");
    for (int level = 0; level <= 4; ++level)
        QTest::newRow(QByteArray::number(level).constData()) << level;
}

void TestMainWindow::loginByLevel()
{
    QFETCH(int, level);
    Bench bench;
    const QSignalSpy chosen(&bench.window, &MainWindow::levelChosen);
    bench.click("button_user");
    bench.click(QByteArray("button_level" + QByteArray::number(level)).constData());
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.first().first().toInt(), level);
    bench.window.showUser(level);
    QVERIFY(bench.lamp("button_user")->value().startsWith(QStringLiteral("Level %1: ").arg(level)));
}

void TestMainWindow::loginPanelOpensAndShuts()
{
    Bench bench;
    auto* panel = child<QWidget>(&bench.window, "loginPanel");
    QVERIFY(!panel->isVisible());
    bench.click("button_user");
    QVERIFY(panel->isVisible());
    QVERIFY(bench.window.rect().contains(panel->geometry()));
    bench.click("button_user");
    QVERIFY(!panel->isVisible());
    bench.click("button_user");
    bench.click("button_level3");
    QVERIFY(!panel->isVisible());
}

void TestMainWindow::keysStandInTheirColumns()
{
    Bench bench;
    const auto left = [&](const char* name) {
        return child<QWidget>(&bench.window, name)->mapTo(&bench.window, QPoint()).x();
    };
    QVERIFY(left("key_Left") < left("pages"));
    QVERIFY(left("key_Right") > left("pages"));
    QVERIFY(bench.key()->height() >= 80);
}

void TestMainWindow::keyGoesWhenTheWindowIsLeft()
{
    Bench bench;
    bench.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&bench.window));
    QTest::mousePress(bench.key(), Qt::LeftButton);
    QWidget other;
    other.show();
    other.activateWindow();
    QTRY_COMPARE(bench.calls, pressedAndReleased());
}

void TestMainWindow::keyGoesWhenTheWindowCloses()
{
    Bench bench;
    QTest::mousePress(bench.key(), Qt::LeftButton);
    bench.window.close();
    QCOMPARE(bench.calls, pressedAndReleased());
}

void TestMainWindow::keyGoesWithAnotherPage()
{
    Bench bench;
    bench.window.addPage(PluginB, new QLabel(QStringLiteral("Other")));
    QTest::mousePress(bench.key(), Qt::LeftButton);
    child<QTabBar>(&bench.window, "tabBar")->setCurrentIndex(1);
    QCOMPARE(bench.calls, pressedAndReleased());
    QVERIFY(!bench.key()->isVisible());
}

void TestMainWindow::keyGoesWithThePlugins()
{
    Bench bench;
    QTest::mousePress(bench.key(), Qt::LeftButton);
    bench.window.dropPlugins();
    QCOMPARE(bench.calls, pressedAndReleased());
    QVERIFY(bench.window.findChildren<HardwareKey*>().isEmpty());
    QCOMPARE(child<QStackedWidget>(&bench.window, "pages")->count(), 0);
}

void TestMainWindow::keyGroupCanBeSwitched()
{
    Bench bench;
    bench.window.setKeysActive(PluginA, PluginA, false);
    QTest::mouseClick(bench.key(), Qt::LeftButton);
    QVERIFY(bench.calls.isEmpty());
    bench.window.setKeysActive(PluginA, PluginA, true);
    QTest::mouseClick(bench.key(), Qt::LeftButton);
    QCOMPARE(bench.calls, pressedAndReleased());
}

void TestMainWindow::tabsComeWithTheSecondPage()
{
    Bench bench;
    auto* tabs = child<QTabBar>(&bench.window, "tabBar");
    QVERIFY(!tabs->isVisible());
    bench.window.addPage(PluginB, new QLabel(QStringLiteral("Other")));
    QVERIFY(tabs->isVisible());
    QVERIFY(bench.page->isVisible());
    tabs->setCurrentIndex(1);
    QVERIFY(!bench.page->isVisible());
}

void TestMainWindow::titleFollowsThePage()
{
    Bench bench;
    auto* title = child<QLabel>(&bench.window, "label_application");
    QCOMPARE(title->text(), PluginA);
    bench.window.setPageTitle(PluginA, QStringLiteral("Laser Welding"));
    QCOMPARE(title->text(), QStringLiteral("Laser Welding"));
}

void TestMainWindow::reopenHidesAndShows()
{
    Bench bench;
    struct Counter : QObject
    {
        QVector<QEvent::Type> seen;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Hide || event->type() == QEvent::Show)
                seen << event->type();
            return false;
        }
    } counter;
    bench.page->installEventFilter(&counter);
    bench.window.reopenPage();
    QCOMPARE(counter.seen, QVector<QEvent::Type>({QEvent::Hide, QEvent::Show}));
}

void TestMainWindow::messagesReachStripAndHistory()
{
    Bench bench;
    bench.window.showMessage(PluginA, 1, QStringLiteral("Careful"));
    QCOMPARE(child<QLabel>(&bench.window, "label_message")->text(), QStringLiteral("Careful"));
    QCOMPARE(bench.window.messages().rowCount(), 1);
    QCOMPARE(bench.window.messages().at(0).level, 1);
    bench.click("button_messages");
    bench.click("button_clearMessages");
    QCOMPARE(bench.window.messages().rowCount(), 0);
    QVERIFY(child<QLabel>(&bench.window, "label_message")->text().isEmpty());
}

// Where a long one wraps, in the look of the panel too.
void TestMainWindow::aClickOnTheStripOpensTheMessages()
{
    Bench bench;
    bench.window.resize(800, 600);
    const QString text = QStringLiteral("Signal Duty: the register is invalid. ").repeated(10);
    bench.window.showMessage(PluginA, 2, text);
    for (int time = 0; time < 2; ++time) {
        QTest::mouseClick(child<QLabel>(&bench.window, "label_message"), Qt::LeftButton);
        QVERIFY(child<QWidget>(&bench.window, "panel_messages")->isVisible());
        QVERIFY(child<QAbstractButton>(&bench.window, "button_messages")->isChecked());
    }
    const auto* table = child<QTableView>(&bench.window, "table_messages");
    const QRect room(0, 0, table->columnWidth(2), 10000);
    const QRect needed = table->fontMetrics().boundingRect(room, Qt::TextWordWrap, text);
    QTRY_VERIFY(table->rowHeight(0) >= needed.height());
}

void TestMainWindow::panels_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"messages", "faults", "io", "log", "plugins"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestMainWindow::panels()
{
    QFETCH(QString, name);
    Bench bench;
    const QByteArray button = "button_" + name.toLatin1();
    auto* panel = child<QWidget>(&bench.window, ("panel_" + name.toLatin1()).constData());
    QVERIFY(!panel->isVisible());
    bench.click(button.constData());
    QVERIFY(panel->isVisible());
    QVERIFY(bench.page->isVisible());
    bench.click(button.constData());
    QVERIFY(!panel->isVisible());
    bench.click(button.constData());
    bench.click("button_closeDrawer");
    QVERIFY(!panel->isVisible());
    QVERIFY(!child<QAbstractButton>(&bench.window, button.constData())->isChecked());
}

void TestMainWindow::onePanelAtATime()
{
    Bench bench;
    bench.click("button_messages");
    bench.click("button_faults");
    QVERIFY(!child<QWidget>(&bench.window, "panel_messages")->isVisible());
    QVERIFY(child<QWidget>(&bench.window, "panel_faults")->isVisible());
    QVERIFY(!child<QAbstractButton>(&bench.window, "button_messages")->isChecked());
    QVERIFY(child<QAbstractButton>(&bench.window, "button_faults")->isChecked());
}

void TestMainWindow::allFaultsAreInView()
{
    Bench bench;
    bench.window.resize(800, 600);
    bench.click("button_faults");
    const auto fields = child<QWidget>(&bench.window, "panel_faults")->findChildren<QWidget*>();
    for (const QWidget* each : fields) {
        if (each->objectName().startsWith(QLatin1String("fault_")))
            QTRY_COMPARE(each->visibleRegion().boundingRect(), each->rect());
    }
}

void TestMainWindow::refusedLibraryOpensTheList()
{
    Bench bench;
    bench.window.setReports(
        {{PluginA, QStringLiteral("liba.so"), true, {}},
         {{}, QStringLiteral("libb.so"), false, QStringLiteral("not a library")}});
    auto* table = child<QTableWidget>(&bench.window, "table_plugins");
    QVERIFY(table->isVisible());
    QCOMPARE(table->rowCount(), 2);
    QCOMPARE(table->item(0, 0)->text(), QStringLiteral("Loaded"));
    QCOMPARE(table->item(0, 1)->text(), PluginA);
    QCOMPARE(table->item(1, 0)->text(), QStringLiteral("Not loaded"));
    QCOMPARE(table->item(1, 2)->text(), QStringLiteral("libb.so"));
    QCOMPARE(table->item(1, 3)->text(), QStringLiteral("not a library"));
}

void TestMainWindow::loadedLibrariesDoNot()
{
    Bench bench;
    bench.window.setReports({{PluginA, QStringLiteral("liba.so"), true, {}}});
    QVERIFY(!child<QTableWidget>(&bench.window, "table_plugins")->isVisible());
}

void TestMainWindow::controllerLogIsShown()
{
    Bench bench;
    Q_EMIT bench.cell->logged(QStringLiteral("refused: out of range"));
    const QString text = child<QPlainTextEdit>(&bench.window, "panel_log")->toPlainText();
    QVERIFY(text.endsWith(QStringLiteral("refused: out of range")));
}

void TestMainWindow::indicatorsStandByPosition()
{
    Bench bench;
    auto* second = new QLabel(QStringLiteral("2"));
    auto* first = new QLabel(QStringLiteral("1"));
    bench.window.addIndicator(second, 2);
    bench.window.addIndicator(first, 1);
    QTRY_VERIFY(first->x() < second->x());
    QVERIFY(first->isVisible());
}

void TestMainWindow::programsStandBesideThePages()
{
    Bench bench;
    auto* page = child<ProgramPage>(&bench.window, "programPage");
    QVERIFY(!page->isVisible());
    bench.click("button_program");
    QVERIFY(page->isVisible());
    QVERIFY(!bench.page->isVisible());
    QVERIFY(bench.key()->isVisible());
    QCOMPARE(child<QLabel>(&bench.window, "label_application")->text(),
             QStringLiteral("Robot programs"));
    bench.click("button_program");
    QVERIFY(bench.page->isVisible());
    QCOMPARE(child<QLabel>(&bench.window, "label_application")->text(), PluginA);
}

void TestMainWindow::closingAsksForTheProgram()
{
    Bench bench;
    auto* page = child<ProgramPage>(&bench.window, "programPage");
    bench.cell->saveProgram(QStringLiteral("p"), "a\nb\n");
    QVERIFY(page->open(QStringLiteral("p")));
    page->findChild<ProgramEditor*>()->program().remove(0, 1);
    QVERIFY(!bench.window.close());
    QVERIFY(page->isVisible());
    bench.click("answer_save");
    QVERIFY(!bench.window.isVisible());
    QByteArray text;
    QVERIFY(bench.cell->readProgram(QStringLiteral("p"), &text));
    QCOMPARE(text, QByteArray("b\n"));
}

void TestMainWindow::noTextIsCut_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("usual") << QSize(1024, 768);
    QTest::newRow("small") << QSize(800, 600);
    QTest::newRow("800x600 at 144 dpi") << QSize(533, 400);
    QTest::newRow("800x600 at 192 dpi") << QSize(400, 300);
}

// Every button and caption of the shell gets the room that it asks for.
void TestMainWindow::noTextIsCut()
{
    QFETCH(QSize, size);
    Theme::fit(size);
    Bench bench;
    bench.window.setPageTitle(PluginA, QStringLiteral("Laser Welding"));
    bench.window.showUser(4);
    bench.window.resize(size);
    bench.click("button_user");
    for (const char* panel : {"button_messages", "button_faults", "button_io", "button_plugins"}) {
        bench.click(panel);
        QCoreApplication::processEvents();
        const auto buttons = bench.window.findChildren<QAbstractButton*>();
        for (const QAbstractButton* button : buttons) {
            if (!button->isVisible())
                continue;
            QVERIFY2(button->width() >= button->sizeHint().width(),
                     qPrintable(button->objectName() + button->text()));
            QVERIFY2(button->height() >= button->fontMetrics().height(),
                     qPrintable(button->objectName() + button->text()));
        }
    }
    QCOMPARE(bench.window.size(), size);
}

void TestMainWindow::keysAreNarrowInANarrowWindow()
{
    Bench bench;
    const auto* column = child<QWidget>(&bench.window, "keyColumn_left");
    const int wide = column->width();
    bench.window.resize(800, 600);
    QTRY_VERIFY(column->width() < wide);
    QVERIFY(bench.key()->height() >= 64);
    QVERIFY(bench.key()->width() >= 64);
    bench.window.resize(1024, 768);
    QTRY_COMPARE(column->width(), wide);
}

void TestMainWindow::pagesAreScrolledNotSqueezed()
{
    Theme::fit({400, 300});
    Bench bench;
    auto* bar = child<QScrollArea>(&bench.window, "scroll_pages")->horizontalScrollBar();
    QTRY_COMPARE(bench.page->width(), bench.window.width() - 2 * Theme::px(104));
    QTRY_VERIFY(!bar->isVisible());
    bench.window.resize(400, 300);
    QTRY_VERIFY(bar->isVisible());
    QCOMPARE(bench.page->size(), QSize(520, 370));
}

void TestMainWindow::cleanup()
{
    Theme::fit({1024, 768});
}

LASERWELD_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
