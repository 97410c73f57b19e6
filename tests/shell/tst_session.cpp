#include "HardwareKey.h"
#include "LampButton.h"
#include "MainWindow.h"
#include "OpenSession.h"
#include "Options.h"
#include "ProgramEditor.h"
#include "ProgramPage.h"
#include "SingleShots.h"
#include "TestCase.h"
#include "hostbackend.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTabBar>
#include <QTemporaryDir>

using namespace pendant;

class TestSession : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void thePluginIsUp();
    void optionsReachTheController();
    void keyIsReleasedByTheUserWhoHoldsIt();
    void anotherUserFindsTheProgramAsItWas();
    void endReleasesTheKeyAndUnloads();
    void secondSessionInOneProcess();
    void connectionIsToldAfterTheStart();
    void buttonsTurnConnectionAndPower();
    void zoomReachesThePlugins();
    void withoutPluginsTheListSaysWhy();
    void pluginThatIsNotMadeAnewIsTold();
    void trackingComesWhenItIsTold_data();
    void trackingComesWhenItIsTold();
    void trackingThatIsNotThere();
    void trackingPageShowsTheSeam();
    void pageIsTakenByAnotherPlugin();
    void trackingComesWhileAProgramIsOpen();
    void cellThatCannotBeOpened();

private:
    void addTracking();
    QStringList texts(Session& session) const;
    HardwareKey* key(Session& session) const;

    std::unique_ptr<QTemporaryDir> folder;
    Options options;
};

void TestSession::init()
{
    TestCase::init();
    folder = std::make_unique<QTemporaryDir>();
    options = Options();
    options.cellFile = folder->filePath(QStringLiteral("cell.sqlite"));
    options.pluginFolder = QStringLiteral(SHELL_LIBRARIES "/good");
}

// Beside the other plugin, in a folder of the test's own.
void TestSession::addTracking()
{
    const QString plugins = folder->filePath(QStringLiteral("plugins"));
    QVERIFY(QDir().mkdir(plugins));
    QVERIFY(QFile::link(QStringLiteral(SHELL_LIBRARIES "/good/libgood.so"),
                        plugins + QStringLiteral("/libgood.so")));
    QVERIFY(QFile::link(QStringLiteral(TRACKING_LIBRARY),
                        plugins + QStringLiteral("/libqelLaserSeamTracking.so")));
    options.pluginFolder = plugins;
}

// Without the three lines of the start.
QStringList TestSession::texts(Session& session) const
{
    QStringList all;
    const MessageModel& messages = session.window().messages();
    for (int row = messages.rowCount() - 4; row >= 0; --row)
        all << messages.at(row).text;
    return all;
}

HardwareKey* TestSession::key(Session& session) const
{
    return child<HardwareKey>(&session.window(), "key_Left");
}

void TestSession::thePluginIsUp()
{
    const auto session = openSession(options);
    QCOMPARE(session->plugins().pluginNames(), QStringList{QStringLiteral("good")});
    QVERIFY(child<QWidget>(&session->window(), "page_good")->isVisible());
    QVERIFY(key(*session)->isVisible());
    QCOMPARE(session->window().messages().rowCount(), 3);
    QCOMPARE(session->window().messages().at(0).text, QStringLiteral("render at level 0"));
}

void TestSession::optionsReachTheController()
{
    options.powered = true;
    options.disconnected = true;
    options.faults.emptyReply = true;
    options.userLevel = 2;
    options.windowSize = QSize(900, 700);
    const auto session = openSession(options);
    QVERIFY(session->controller().isPowered());
    QVERIFY(!session->controller().isConnected());
    QVERIFY(session->controller().faults().emptyReply);
    QCOMPARE(qelplugin::qelPluginInterface().getUserOperateLevel(), 2);
    QCOMPARE(session->window().size(), QSize(900, 700));
}

void TestSession::keyIsReleasedByTheUserWhoHoldsIt()
{
    options.userLevel = 3;
    const auto session = openSession(options);
    QTest::mousePress(key(*session), Qt::LeftButton);
    session->logIn(1);
    QTest::mouseRelease(key(*session), Qt::LeftButton);
    QCOMPARE(texts(*session), QStringList({QStringLiteral("Left pressed at level 3"),
                                           QStringLiteral("Left released at level 3")}));
    QCOMPARE(qelplugin::qelPluginInterface().getUserOperateLevel(), 1);
}

// What is not saved outlives a logout.
void TestSession::anotherUserFindsTheProgramAsItWas()
{
    const auto session = openSession(options);
    auto* page = child<ProgramPage>(&session->window(), "programPage");
    QVERIFY(page->open(QStringLiteral("example_seam")));
    ProgramDocument& program = page->findChild<ProgramEditor*>()->program();
    program.remove(0, 1);
    const QByteArray before = program.text();
    session->logIn(3);
    session->logIn(0);
    QVERIFY(page->hasUnsaved());
    QCOMPARE(program.text(), before);
    QVERIFY(program.history().canUndo());
}

void TestSession::endReleasesTheKeyAndUnloads()
{
    auto session = openSession(options);
    QStringList heard;
    connect(&session->window(), &QObject::destroyed, this,
            [&] { heard << QStringLiteral("gone"); });
    key(*session)->hold();
    session.reset();
    QCOMPARE(heard.size(), 1);
    QVERIFY(qelplugin::registeredPlugins().isEmpty());
    QFile maps(QStringLiteral("/proc/self/maps"));
    QVERIFY(maps.open(QIODevice::ReadOnly));
    QVERIFY(!maps.readAll().contains("libgood.so"));
}

void TestSession::secondSessionInOneProcess()
{
    openSession(options).reset();
    const auto session = openSession(options);
    QCOMPARE(session->plugins().pluginNames().size(), 1);
    QTest::mouseClick(key(*session), Qt::LeftButton);
    QCOMPARE(texts(*session).size(), 2);
}

void TestSession::connectionIsToldAfterTheStart()
{
    int told = 0;
    connect(&qelplugin::qelPluginInterface(), &qelplugin::InterfaceManager::sigNetworkConnect, this,
            [&] { ++told; });
    const auto session = openSession(options);
    QCOMPARE(told, 1);
    session->controller().setConnected(false);
    QCOMPARE(told, 1);
    session->controller().setConnected(true);
    QCOMPARE(told, 2);
    disconnect(&qelplugin::qelPluginInterface(), nullptr, this, nullptr);
}

void TestSession::buttonsTurnConnectionAndPower()
{
    const auto session = openSession(options);
    const auto click = [&](const char* name) {
        QTest::mouseClick(child<LampButton>(&session->window(), name), Qt::LeftButton);
    };
    click("button_connection");
    QVERIFY(!session->controller().isConnected());
    click("button_connection");
    QVERIFY(session->controller().isConnected());
    click("button_power");
    QVERIFY(qelplugin::qelPluginInterface().getRobotEleStatus());
}

void TestSession::zoomReachesThePlugins()
{
    options.zoom = 1.5;
    const auto session = openSession(options);
    QCOMPARE(
        qelplugin::qelPluginInterface().getNodeData(QStringLiteral("qeltheme.fontzoom")).toDouble(),
        1.5);
}

void TestSession::withoutPluginsTheListSaysWhy()
{
    options.pluginFolder = folder->path();
    const auto session = openSession(options);
    QVERIFY(child<QWidget>(&session->window(), "panel_plugins")->isVisible());
}

void TestSession::pluginThatIsNotMadeAnewIsTold()
{
    options.pluginFolder = QStringLiteral(SHELL_LIBRARIES "/once");
    const auto session = openSession(options);
    QVERIFY(!child<QWidget>(&session->window(), "panel_plugins")->isVisible());
    session->setLanguage(Language::Chinese);
    QVERIFY(child<QWidget>(&session->window(), "panel_plugins")->isVisible());
    session->setLanguage(Language::English);
}

void TestSession::cellThatCannotBeOpened()
{
    QVERIFY(QDir(folder->path()).mkpath(QStringLiteral("cell.sqlite")));
    QString error;
    QVERIFY(!Session::open(options, &error));
    QVERIFY2(error.contains(options.cellFile), qPrintable(error));
}

namespace {

QWidget* trackingPage()
{
    QWidget* page = nullptr;
    const int code =
        qelplugin::GetPluginNoUniqueWidget(QStringLiteral("qelLaserSeamTracking"), page);
    return (code == 0) == (page != nullptr) ? page : nullptr;
}

QStringList tabTexts(Session& session)
{
    QStringList texts;
    const auto* tabs = child<QTabBar>(&session.window(), "tabBar");
    for (int index = 0; index < tabs->count(); ++index)
        texts << tabs->tabText(index);
    return texts;
}

const QString GoodTab = QStringLiteral("Label of good");
const QString TrackingTab = QStringLiteral("Seam Tracking");

} // namespace

void TestSession::trackingComesWhenItIsTold_data()
{
    QTest::addColumn<int>("delay");
    QTest::newRow("now") << 0;
    QTest::newRow("after 3 seconds") << 3;
    QTest::newRow("never") << -1;
}

void TestSession::trackingComesWhenItIsTold()
{
    QFETCH(int, delay);
    addTracking();
    options.trackingDelay = delay;
    const auto session = openSession(options);
    QCOMPARE(trackingPage() != nullptr, delay == 0);
    QCOMPARE(tabTexts(*session).contains(TrackingTab), delay == 0);
    bool isPending = false;
    const auto shots = SingleShots::pending(session.get());
    for (const auto& shot : shots)
        isPending = isPending || shot.timer.interval == 3000;
    QCOMPARE(isPending, delay > 0);
    SingleShots::expire(session.get());
    QCOMPARE(trackingPage() != nullptr, delay >= 0);
    QCOMPARE(tabTexts(*session).contains(TrackingTab), delay >= 0);
    QCOMPARE(session->plugins().reports().size(), delay >= 0 ? 2 : 1);
    // The other one has been started once.
    QCOMPARE(session->window().messages().rowCount(), 3);
}

void TestSession::trackingThatIsNotThere()
{
    options.trackingDelay = 3;
    const auto session = openSession(options);
    SingleShots::expire(session.get());
    QCOMPARE(session->plugins().reports().size(), 1);
}

void TestSession::trackingPageShowsTheSeam()
{
    addTracking();
    const auto session = openSession(options);
    QWidget* page = trackingPage();
    auto* camera = child<QWidget>(page, "camera");
    auto* state = child<QLabel>(page, "label_state");
    camera->resize(480, 300);
    const QImage before = camera->grab().toImage();
    QCOMPARE(state->text(), QStringLiteral("Ready. The sensor is off."));
    child<QAbstractButton>(page, "button_sensor")->click();
    QCOMPARE(state->text(), QStringLiteral("Seam: 0.42 mm across, -0.18 mm up"));
    QVERIFY(camera->grab().toImage() != before);
    child<QAbstractButton>(page, "button_sensor")->click();
    QCOMPARE(camera->grab().toImage(), before);
}

void TestSession::pageIsTakenByAnotherPlugin()
{
    addTracking();
    const auto session = openSession(options);
    QCOMPARE(tabTexts(*session), (QStringList{GoodTab, TrackingTab}));
    const auto* tabs = child<QTabBar>(&session->window(), "tabBar");
    QVERIFY(tabs->isVisible());
    auto* taker = child<QWidget>(&session->window(), "page_good");
    QWidget* page = trackingPage();
    page->setParent(taker);
    page->show();
    QCOMPARE(tabTexts(*session), QStringList{GoodTab});
    QVERIFY(!tabs->isVisible());
    QVERIFY(taker->isVisible() && page->isVisible());
    QCOMPARE(trackingPage(), page);
}

// What the bar is titled is the program still.
void TestSession::trackingComesWhileAProgramIsOpen()
{
    addTracking();
    options.trackingDelay = 3;
    const auto session = openSession(options);
    auto* bar = child<QWidget>(&session->window(), "topBar");
    auto* title = child<QLabel>(bar, "label_application");
    child<QAbstractButton>(bar, "button_program")->click();
    const QString before = title->text();
    SingleShots::expire(session.get());
    QVERIFY(trackingPage());
    QCOMPARE(title->text(), before);
}

LASERWELD_TEST_MAIN(TestSession)
#include "tst_session.moc"
