#include "PluginOnHost.h"
#include "TestCase.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

const QString Name = QStringLiteral("qelLaserWelding");
const QString VirtualKey = QStringLiteral("laser_weld_data.virtual_welding_status");

// The calls that the plugin itself makes; its pages ask the host on their own account.
QStringList frameCalls(const ScriptedHost& host)
{
    const QStringList asked{QStringLiteral("getNodeData"),
                            QStringLiteral("getQelServiceData"),
                            QStringLiteral("getUserOperateLevel"),
                            QStringLiteral("getRobotEleStatus"),
                            QStringLiteral("getIOByType"),
                            QStringLiteral("getRegisterValue"),
                            QStringLiteral("GetPluginNoUniqueWidget")};
    QStringList names;
    for (const ScriptedHost::Call& call : host.calls) {
        if (!asked.contains(call.name))
            names << call.name;
    }
    return names;
}

// The log lines of the plugin itself, likewise.
QStringList frameLines()
{
    return LogFolder::texts().filter(QRegularExpression(QStringLiteral("^(qel|Qel)")));
}

// Notes what the plugin hands over between its log lines.
class SteppedHost : public ScriptedHost
{
public:
    int createCenterWidget(const QString& plugin, QWidget* widget) override
    {
        step("CreateCenterWidget");
        return ScriptedHost::createCenterWidget(plugin, widget);
    }

    int createPhyButtonList(const QString& plugin, const QString& group,
                            const QList<qelplugin::PhysicalButton>& first,
                            const QList<qelplugin::PhysicalButton>& second,
                            const QStringList& extra) override
    {
        step("CreatePhyButtonList");
        return ScriptedHost::createPhyButtonList(plugin, group, first, second, extra);
    }

    int changePhyButtonStatus(const QString& plugin, const QString& group, bool active) override
    {
        step("ChangePhyButtonStatus");
        return ScriptedHost::changePhyButtonStatus(plugin, group, active);
    }

    int createStatusBar(const QString& plugin, QWidget* widget, int position) override
    {
        step("CreateStatusBar");
        isPictureEmpty = child<QLabel>(widget, "label")->pixmap(Qt::ReturnByValue).isNull();
        return ScriptedHost::createStatusBar(plugin, widget, position);
    }

    QStringList steps; ///< with the count of log lines so far
    bool isPictureEmpty = false;

private:
    void step(const char* name)
    {
        steps << QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(frameLines().size());
    }
};

int asksForMode(const ScriptedHost& host)
{
    return static_cast<int>(
        std::count_if(host.calls.begin(), host.calls.end(), [](const ScriptedHost::Call& call) {
            return call.name == QLatin1String("getQelServiceData") &&
                   call.arguments == QJsonArray{VirtualKey};
        }));
}

} // namespace

class QelLaserWeldingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isRegistered();
    void apiVersion();
    void classInformation();
    void construction();
    void initialisation();
    void orderOfInitialisation();
    void startsReal();
    void afterInit();
    void render();
    void reconnection_data();
    void reconnection();
    void secondRender();
    void destroyedPluginIsNotCalled();
    void idleAndDetach();
};

void QelLaserWeldingTest::isRegistered()
{
    QVERIFY(qelplugin::registeredPlugins().contains(Name));
    const ScriptedHost host;
    QObject parent;
    const qelplugin::PluginBase* plugin = qelplugin::createPlugin(Name, &parent);
    QVERIFY(qobject_cast<const qelplugin::qelLaserWelding*>(plugin));
    QCOMPARE(plugin->parent(), &parent);
}

void QelLaserWeldingTest::apiVersion()
{
    QCOMPARE(qelplugin::api(), 1);
}

void QelLaserWeldingTest::classInformation()
{
    const QMetaObject& meta = qelplugin::qelLaserWelding::staticMetaObject;
    QCOMPARE(QLatin1String(meta.className()), QLatin1String("qelplugin::qelLaserWelding"));
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void QelLaserWeldingTest::construction()
{
    PluginOnHost on;
    QCOMPARE(on.host.callNames(), (QStringList{QStringLiteral("setDefaultGlobalSheet"),
                                               QStringLiteral("setPluginLabel")}));
    QCOMPARE(on.host.calls.at(0).arguments, QJsonArray{false});
    QCOMPARE(on.host.label, QStringLiteral("Laser Welding"));
    QCOMPARE(LogFolder::texts(), QStringList());
}

void QelLaserWeldingTest::initialisation()
{
    PluginOnHost on;
    on.host.forgetCalls();
    on.asHostSees().init();

    QCOMPARE(
        frameCalls(on.host),
        (QStringList{QStringLiteral("CreateCenterWidget"), QStringLiteral("CreatePhyButtonList"),
                     QStringLiteral("ChangePhyButtonStatus"), QStringLiteral("CreateStatusBar")}));
    QCOMPARE(on.host.lastArguments(QStringLiteral("CreateCenterWidget")), QJsonArray{Name});
    QCOMPARE(on.host.lastArguments(QStringLiteral("CreateStatusBar")), (QJsonArray{Name, 1}));
    QCOMPARE(frameLines(), (QStringList{QStringLiteral("qelLaserWelding::iniUi()"),
                                        QStringLiteral("qelLaserWelding::init()"),
                                        QStringLiteral("qelLaserWelding::initPhysicalButton()"),
                                        QStringLiteral("qelLaserWelding::initPhysicalButton()")}));
    const QStringList lines =
        LogFolder::lines().filter(QRegularExpression(QStringLiteral("\\] qel")));
    for (const QString& line : lines)
        QVERIFY(line.startsWith(QLatin1String("[I|")));
    QVERIFY(on.host.centerWidget->inherits("LaserWeldPage"));
    QVERIFY(!on.host.centerWidget->parent());
    QVERIFY(on.host.statusBarWidget->inherits("ShowStatusBar"));
    QVERIFY(!on.host.statusBarWidget->parent());
}

void QelLaserWeldingTest::orderOfInitialisation()
{
    SteppedHost host;
    const LogFolder folder;
    const ConsoleCapture console;
    qelplugin::qelLaserWelding plugin;
    static_cast<qelplugin::PluginBase&>(plugin).init();

    QCOMPARE(host.steps, (QStringList{QStringLiteral("CreateCenterWidget 1"),
                                      QStringLiteral("CreatePhyButtonList 3"),
                                      QStringLiteral("ChangePhyButtonStatus 3"),
                                      QStringLiteral("CreateStatusBar 4")}));
    QVERIFY(host.isPictureEmpty); // the picture comes after the hand-over
    delete host.centerWidget;
    delete host.statusBarWidget;
}

// Also on a controller that is in virtual welding: it is not asked.
void QelLaserWeldingTest::startsReal()
{
    PluginOnHost on;
    on.host.service[VirtualKey] = true;
    on.asHostSees().init();
    QCOMPARE(asksForMode(on.host), 0);
    QCOMPARE(on.picture(), PluginOnHost::pictureOf(false));
    on.asHostSees().afterInit();
    on.asHostSees().render();
    QCOMPARE(asksForMode(on.host), 0);
    QCOMPARE(on.picture(), PluginOnHost::pictureOf(false));
}

void QelLaserWeldingTest::afterInit()
{
    PluginOnHost on;
    on.asHostSees().init();
    const int lines = frameLines().size();
    on.host.forgetCalls();
    on.asHostSees().afterInit();
    QCOMPARE(frameLines().mid(lines), QStringList{QStringLiteral("QelPluginDemo::initData()")});
    QCOMPARE(frameCalls(on.host), QStringList());
}

void QelLaserWeldingTest::render()
{
    PluginOnHost on;
    on.asHostSees().init();
    on.asHostSees().afterInit();
    on.host.forgetCalls();
    on.asHostSees().render();
    QCOMPARE(frameCalls(on.host), QStringList());
}

void QelLaserWeldingTest::reconnection_data()
{
    QTest::addColumn<QJsonValue>("status");
    QTest::addColumn<bool>("isVirtual");

    QTest::newRow("virtual") << QJsonValue(true) << true;
    QTest::newRow("real") << QJsonValue(false) << false;
    QTest::newRow("absent") << QJsonValue(QJsonValue::Undefined) << false;
    QTest::newRow("null") << QJsonValue() << false;
    QTest::newRow("number") << QJsonValue(1) << false;
    QTest::newRow("text") << QJsonValue(QStringLiteral("true")) << false;
}

void QelLaserWeldingTest::reconnection()
{
    QFETCH(QJsonValue, status);
    QFETCH(bool, isVirtual);
    PluginOnHost on;
    on.asHostSees().init();
    on.asHostSees().afterInit();
    on.asHostSees().render();
    on.host.service[VirtualKey] = !isVirtual;
    ScriptedHost::emitNetworkConnect();
    QCOMPARE(on.picture(), PluginOnHost::pictureOf(!isVirtual));

    on.host.service[VirtualKey] = status;
    on.host.forgetCalls();
    ScriptedHost::emitNetworkConnect();
    QCOMPARE(on.picture(), PluginOnHost::pictureOf(isVirtual));
    QCOMPARE(on.host.callNames(), QStringList{QStringLiteral("getQelServiceData")});
}

void QelLaserWeldingTest::secondRender()
{
    PluginOnHost on;
    on.asHostSees().init();
    on.asHostSees().render();
    on.asHostSees().render();
    on.host.service[VirtualKey] = true;
    on.host.forgetCalls();
    ScriptedHost::emitNetworkConnect();
    QCOMPARE(asksForMode(on.host), 2);
    QCOMPARE(on.picture(), PluginOnHost::pictureOf(true));
}

void QelLaserWeldingTest::destroyedPluginIsNotCalled()
{
    ScriptedHost host;
    const LogFolder folder;
    const ConsoleCapture console;
    {
        qelplugin::qelLaserWelding plugin;
        qelplugin::PluginBase& base = plugin;
        base.init();
        base.render();
    }
    // The widgets are the host's: they outlive the plugin.
    QVERIFY(host.centerWidget);
    QVERIFY(host.statusBarWidget);
    delete host.centerWidget;
    delete host.statusBarWidget;
    host.forgetCalls();
    ScriptedHost::emitNetworkConnect();
    QCOMPARE(host.callNames(), QStringList());
}

void QelLaserWeldingTest::idleAndDetach()
{
    PluginOnHost on;
    on.asHostSees().init();
    const int lines = LogFolder::lines().size();
    on.host.forgetCalls();
    on.asHostSees().idle();
    on.asHostSees().detach();
    QCOMPARE(on.host.callNames(), QStringList());
    QCOMPARE(LogFolder::lines().size(), lines);
}

LASERWELD_TEST_MAIN(QelLaserWeldingTest)
#include "tst_qellaserwelding.moc"
