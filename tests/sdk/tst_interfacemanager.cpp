#include "ScriptedHost.h"
#include "TestCase.h"

#include <QSignalSpy>
#include <QVariant>

#include <functional>

using qelplugin::InterfaceManager;
using qelplugin::qelPluginInterface;

namespace {

using Call = std::function<QVariant(InterfaceManager&)>;

QString text(const char* characters)
{
    return QString::fromLatin1(characters);
}

/// A host whose every answer differs from the neutral one.
void fill(ScriptedHost& host)
{
    host.nodes.insert(text("qeltheme.fontzoom"), 1.5);
    host.service.insert(text("weld_io_config"), text("a record"));
    host.replies.insert(text("set_weld_red_light"), QJsonArray{text("first reply")});
    host.replies.insert(text("set_weld_enable"), QJsonArray{text("second reply")});
    host.powered = true;
    host.level = 4;
    host.registerValue = QJsonArray{1, 2};
    host.portNames.insert(text("DI"), {text("DI1")});
    host.toolNames = QStringList{text("tool0")};
    host.workObjectNames = QStringList{text("wobj0")};
    host.speedNames = QStringList{text("v100")};
    host.zoneNames = QStringList{text("fine")};
    host.tool = text("tool1");
    host.workObject = text("wobj1");
    host.points = QStringList{text("p1")};
}

} // namespace

Q_DECLARE_METATYPE(Call)

/// Every call reaches the backend with its arguments and brings back its answer; with no backend it
/// is answered as by a host that has nothing.
class TestInterfaceManager : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void calls_data();
    void calls();
    void nothingBehindIt_data();
    void nothingBehindIt();
    void sender();
    void registerGroups();
    void isOneForTheProcess();
    void connectionComesUp();
};

void TestInterfaceManager::calls_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QJsonArray>("arguments");
    QTest::addColumn<QVariant>("answer");
    QTest::addColumn<QVariant>("neutral");

    const auto row = [](const char* name, const Call& call, const QJsonArray& arguments,
                        const QVariant& answer, const QVariant& neutral) {
        QTest::newRow(name) << call << arguments << answer << neutral;
    };
    const QVariant undefined = QVariant::fromValue(QJsonValue(QJsonValue::Undefined));
    const auto list = [](const char* name) { return QVariant(QStringList{text(name)}); };
    const QVariant none{QStringList()};

    row(
        "getNodeData",
        [](InterfaceManager& host) {
            return QVariant::fromValue(host.getNodeData(text("qeltheme.fontzoom")));
        },
        {text("qeltheme.fontzoom")}, QVariant::fromValue(QJsonValue(1.5)), undefined);
    row(
        "getQelServiceData",
        [](InterfaceManager& host) {
            return QVariant::fromValue(host.getQelServiceData(text("weld_io_config")));
        },
        {text("weld_io_config")}, QVariant::fromValue(QJsonValue(text("a record"))), undefined);
    row(
        "commandCustomData",
        [](InterfaceManager& host) {
            return QVariant(host.commandCustomData(nullptr, text("plugin"),
                                                   {{text("set_weld_red_light"), true}}));
        },
        {text("plugin"), QJsonObject{{text("set_weld_red_light"), true}}},
        QJsonArray{text("first reply")}, QJsonArray());
    row(
        "commandCustomData",
        [](InterfaceManager& host) {
            return QVariant(host.commandCustomData(nullptr, text("plugin"), text("set_weld_enable"),
                                                   text("TRUE")));
        },
        {text("plugin"), text("set_weld_enable"), text("TRUE")}, QJsonArray{text("second reply")},
        QJsonArray());
    row(
        "getRobotEleStatus", [](InterfaceManager& host) { return host.getRobotEleStatus(); }, {},
        true, false);
    row(
        "getUserOperateLevel", [](InterfaceManager& host) { return host.getUserOperateLevel(); },
        {}, 4, 0);
    row(
        "getRegisterValue",
        [](InterfaceManager& host) { return QVariant::fromValue(host.getRegisterValue()); }, {},
        QVariant::fromValue(QJsonValue(QJsonArray{1, 2})), undefined);
    row(
        "getIOByType", [](InterfaceManager& host) { return host.getIOByType(text("DI")); },
        {text("DI")}, list("DI1"), none);
    row(
        "getToolList", [](InterfaceManager& host) { return host.getToolList(); }, {}, list("tool0"),
        none);
    row(
        "getWobjList", [](InterfaceManager& host) { return host.getWobjList(); }, {}, list("wobj0"),
        none);
    row(
        "getSpeedList", [](InterfaceManager& host) { return host.getSpeedList(); }, {},
        list("v100"), none);
    row(
        "getZoneList", [](InterfaceManager& host) { return host.getZoneList(); }, {}, list("fine"),
        none);
    row(
        "getCurTool", [](InterfaceManager& host) { return host.getCurTool(); }, {}, text("tool1"),
        QString());
    row(
        "getCurWobj", [](InterfaceManager& host) { return host.getCurWobj(); }, {}, text("wobj1"),
        QString());
    row(
        "getPointNameList", [](InterfaceManager& host) { return host.getPointNameList(); }, {},
        list("p1"), none);
    row(
        "addCurrentPoint",
        [](InterfaceManager& host) {
            return host.addCurrentPoint(text("p2"), true, text("tool1"), text("wobj1"));
        },
        {text("p2"), true, text("tool1"), text("wobj1")}, true, false);
}

void TestInterfaceManager::calls()
{
    QFETCH(Call, call);
    QFETCH(QJsonArray, arguments);
    QFETCH(QVariant, answer);
    ScriptedHost host;
    fill(host);
    QCOMPARE(call(qelPluginInterface()), answer);
    QCOMPARE(host.callNames(), QStringList{text(QTest::currentDataTag())});
    QCOMPARE(host.lastArguments(text(QTest::currentDataTag())), arguments);
}

void TestInterfaceManager::nothingBehindIt_data()
{
    calls_data();
}

void TestInterfaceManager::nothingBehindIt()
{
    QFETCH(Call, call);
    QFETCH(QVariant, neutral);
    QCOMPARE(call(qelPluginInterface()), neutral);
}

void TestInterfaceManager::sender()
{
    const ScriptedHost host;
    QObject page;
    qelPluginInterface().commandCustomData(&page, text("plugin"), QJsonObject());
    qelPluginInterface().commandCustomData(&page, text("plugin"), text("command"), text("value"));
    QCOMPARE(host.commands.size(), 2);
    QCOMPARE(host.commands.at(0).sender, &page);
    QVERIFY(!host.commands.at(0).isText);
    QCOMPARE(host.commands.at(1).sender, &page);
    QVERIFY(host.commands.at(1).isText);
}

void TestInterfaceManager::registerGroups()
{
    QVERIFY(qelPluginInterface().getRegisterHash().isEmpty());
    const ScriptedHost host;
    qelPluginInterface().getRegisterHash();
    QCOMPARE(host.callNames(), QStringList{text("getRegisterHash")});
}

void TestInterfaceManager::isOneForTheProcess()
{
    QCOMPARE(&qelPluginInterface(), &qelPluginInterface());
}

void TestInterfaceManager::connectionComesUp()
{
    const QSignalSpy spy(&qelPluginInterface(), &InterfaceManager::sigNetworkConnect);
    ScriptedHost::emitNetworkConnect();
    QCOMPARE(spy.count(), 1);
}

LASERWELD_CORE_TEST_MAIN(TestInterfaceManager)
#include "tst_interfacemanager.moc"
