#include "ShellBackend.h"
#include "TestCase.h"
#include "TestCell.h"

#include <QSignalSpy>

using namespace pendant;
using namespace qelplugin;

Q_DECLARE_METATYPE(QList<PhysicalButton>)

namespace {

const QString Plugin = QStringLiteral("qelLaserWelding");

} // namespace

class TestShellBackend : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isInPlaceWhileItLives();
    void pageIsHandedOut();
    void secondPageIsRefused();
    void noWidgetIsRefused();
    void pageOfASibling();
    void indicatorIsHandedOut();
    void keysAreHandedOut();
    void messages_data();
    void messages();
    void commandsReachTheController();
    void statesOfTheController();
    void portsAndRegisters();
    void listsOfTheRobot();
    void points();
    void refusedPointIsTold_data();
    void refusedPointIsTold();
    void nodes();
    void labels();
    void reconnectionIsTold();
};

void TestShellBackend::isInPlaceWhileItLives()
{
    TestCell cell;
    HostBackend before;
    setHostBackend(&before);
    {
        ShellBackend backend(*cell);
        QCOMPARE(&hostBackend(), static_cast<HostBackend*>(&backend));
    }
    QCOMPARE(&hostBackend(), &before);
    setHostBackend(nullptr);
}

void TestShellBackend::pageIsHandedOut()
{
    TestCell cell;
    ShellBackend backend(*cell);
    QWidget page;
    QWidget* got = nullptr;
    connect(&backend, &ShellBackend::pageCreated, this,
            [&](const QString& plugin, QWidget* widget) {
                QCOMPARE(plugin, Plugin);
                got = widget;
            });
    QCOMPARE(CreateCenterWidget(Plugin, &page), 0);
    QCOMPARE(got, &page);
}

void TestShellBackend::secondPageIsRefused()
{
    TestCell cell;
    ShellBackend backend(*cell);
    auto first = std::make_unique<QWidget>();
    QWidget second;
    CreateCenterWidget(Plugin, first.get());
    QVERIFY(CreateCenterWidget(Plugin, &second) != 0);
    first.reset();
    QCOMPARE(CreateCenterWidget(Plugin, &second), 0);
}

void TestShellBackend::noWidgetIsRefused()
{
    TestCell cell;
    ShellBackend backend(*cell);
    QVERIFY(CreateCenterWidget(Plugin, nullptr) != 0);
    QVERIFY(CreateStatusBar(Plugin, nullptr, 1) != 0);
}

void TestShellBackend::pageOfASibling()
{
    TestCell cell;
    ShellBackend backend(*cell);
    QWidget* found = nullptr;
    QVERIFY(GetPluginNoUniqueWidget(Plugin, found) != 0);
    QCOMPARE(found, nullptr);
    QWidget page;
    CreateCenterWidget(Plugin, &page);
    QCOMPARE(GetPluginNoUniqueWidget(Plugin, found), 0);
    QCOMPARE(found, &page);
}

void TestShellBackend::indicatorIsHandedOut()
{
    TestCell cell;
    ShellBackend backend(*cell);
    QSignalSpy spy(&backend, &ShellBackend::indicatorCreated);
    QWidget indicator;
    QCOMPARE(CreateStatusBar(Plugin, &indicator, 4), 0);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().at(1).value<QWidget*>(), &indicator);
    QCOMPARE(spy.first().at(2).toInt(), 4);
}

void TestShellBackend::keysAreHandedOut()
{
    TestCell cell;
    ShellBackend backend(*cell);
    QStringList got;
    connect(&backend, &ShellBackend::keysCreated, this,
            [&](const QString& plugin, const QString& group, const QList<PhysicalButton>& first,
                const QList<PhysicalButton>& second) {
                got << plugin << group << first.first().label << QString::number(second.size());
            });
    const QSignalSpy switched(&backend, &ShellBackend::keysSwitched);
    const PhysicalButton key{QStringLiteral("Gas"), {}, {}, nullptr};
    QCOMPARE(CreatePhyButtonList(Plugin, QStringLiteral("g"), {key}, {}, {QString()}), 0);
    QCOMPARE(got, QStringList(
                      {Plugin, QStringLiteral("g"), QStringLiteral("Gas"), QStringLiteral("0")}));
    QCOMPARE(ChangePhyButtonStatus(Plugin, QStringLiteral("g"), true), 0);
    QCOMPARE(switched.first(), QVariantList({Plugin, QStringLiteral("g"), true}));
}

void TestShellBackend::messages_data()
{
    QTest::addColumn<int>("level");
    for (int level = 0; level < 3; ++level)
        QTest::newRow(QByteArray::number(level).constData()) << level;
}

void TestShellBackend::messages()
{
    QFETCH(int, level);
    TestCell cell;
    ShellBackend backend(*cell);
    const QSignalSpy spy(&backend, &ShellBackend::messageThrown);
    QCOMPARE(ThrowLog(Plugin, static_cast<enThrowLogLevel>(level), QStringLiteral("text")), 0);
    QCOMPARE(spy.first(), QVariantList({Plugin, level, QStringLiteral("text")}));
}

void TestShellBackend::commandsReachTheController()
{
    TestCell cell;
    ShellBackend backend(*cell);
    InterfaceManager& host = qelPluginInterface();
    const QString status = QStringLiteral("laser_weld_data.virtual_welding_status");
    QVERIFY(!host.getQelServiceData(status).toBool());
    const QJsonObject data{{QStringLiteral("set_virtual_welding"), true}};
    QVERIFY(!host.commandCustomData(this, Plugin, data).isEmpty());
    QVERIFY(host.getQelServiceData(status).toBool());
    QVERIFY(!host.commandCustomData(this, Plugin, QStringLiteral("set_weld_enable"),
                                    QStringLiteral("FALSE"))
                 .isEmpty());
}

void TestShellBackend::statesOfTheController()
{
    TestCell cell;
    ShellBackend backend(*cell);
    InterfaceManager& host = qelPluginInterface();
    QVERIFY(!host.getRobotEleStatus());
    cell->setPowered(true);
    QVERIFY(host.getRobotEleStatus());
    QCOMPARE(host.getUserOperateLevel(), 0);
    backend.setUserLevel(4);
    QCOMPARE(host.getUserOperateLevel(), 4);
}

void TestShellBackend::portsAndRegisters()
{
    TestCell cell;
    ShellBackend backend(*cell);
    InterfaceManager& host = qelPluginInterface();
    QCOMPARE(host.getIOByType(QStringLiteral("DI")), cell->ports(QStringLiteral("DI")));
    QCOMPARE(host.getRegisterValue(), cell->registers());
    QCOMPARE(host.getRegisterHash(), cell->registerGroups());
}

void TestShellBackend::listsOfTheRobot()
{
    TestCell cell;
    ShellBackend backend(*cell);
    InterfaceManager& host = qelPluginInterface();
    QCOMPARE(host.getToolList(), cell->tools());
    QCOMPARE(host.getWobjList(), cell->workObjects());
    QCOMPARE(host.getSpeedList(), cell->speeds());
    QCOMPARE(host.getZoneList(), cell->zones());
    QVERIFY(!host.getZoneList().isEmpty());
    cell->setCurrentTool(QStringLiteral("gripper"));
    cell->setCurrentWorkObject(QStringLiteral("tray"));
    QCOMPARE(host.getCurTool(), QStringLiteral("gripper"));
    QCOMPARE(host.getCurWobj(), QStringLiteral("tray"));
}

void TestShellBackend::points()
{
    TestCell cell;
    ShellBackend backend(*cell);
    InterfaceManager& host = qelPluginInterface();
    const QStringList before = cell->pointNames();
    const QString name = QStringLiteral("p10");
    const QString tool = host.getCurTool();
    const QString workObject = host.getCurWobj();
    QCOMPARE(host.getPointNameList(), before);
    QVERIFY(host.addCurrentPoint(name, false, tool, workObject));
    QVERIFY(!host.addCurrentPoint(name, true, tool, workObject));
    QVERIFY(!host.addCurrentPoint(name + name, false, workObject, tool));
    QCOMPARE(host.getPointNameList(), before + QStringList(name));
}

void TestShellBackend::refusedPointIsTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("up");
    QTest::addColumn<QString>("text");
    QTest::newRow("no name") << QStringLiteral("1a") << true
                             << QStringLiteral("The point \"1a\" was not stored. The name \"1a\" "
                                               "cannot stand in a program. Use letters, digits "
                                               "and underscores, and no digit first.");
    QTest::newRow("no connection") << QStringLiteral("a1") << false
                                   << QStringLiteral("The point \"a1\" was not stored. The "
                                                     "connection to the controller is down. Bring "
                                                     "it up, then try again.");
}

void TestShellBackend::refusedPointIsTold()
{
    QFETCH(QString, name);
    QFETCH(bool, up);
    TestCell cell;
    ShellBackend backend(*cell);
    const QSignalSpy told(&backend, &ShellBackend::messageThrown);
    const QString tool = cell->currentTool();
    const QString workObject = cell->currentWorkObject();
    cell->setConnected(up);
    QVERIFY(!qelPluginInterface().addCurrentPoint(name, false, tool, workObject));
    QCOMPARE(told.size(), 1);
    QCOMPARE(told.first().at(0).toString(), QStringLiteral("pendant"));
    QCOMPARE(told.first().at(1).toInt(), 1);
    QTEST(told.first().at(2).toString(), "text");
    cell->setConnected(true);
    QVERIFY(qelPluginInterface().addCurrentPoint(QStringLiteral("a2"), false, tool, workObject));
    QCOMPARE(told.size(), 1);
}

void TestShellBackend::nodes()
{
    TestCell cell;
    ShellBackend backend(*cell);
    const QString zoom = QStringLiteral("qeltheme.fontzoom");
    QCOMPARE(qelPluginInterface().getNodeData(zoom), QJsonValue(1.0));
    backend.setZoom(1.25);
    QCOMPARE(qelPluginInterface().getNodeData(zoom), QJsonValue(1.25));
    QVERIFY(qelPluginInterface().getNodeData(QStringLiteral("other")).isUndefined());
}

void TestShellBackend::labels()
{
    TestCell cell;
    ShellBackend backend(*cell);
    QCOMPARE(backend.labelOf(Plugin), Plugin);
    {
        PluginBase plugin(nullptr);
        plugin.setPluginLabel(QStringLiteral("First"));
        plugin.setPluginLabel(QStringLiteral("Laser Welding"));
        plugin.setObjectName(Plugin);
        QCOMPARE(backend.labelOf(Plugin), QStringLiteral("Laser Welding"));
    }
    QCOMPARE(backend.labelOf(Plugin), Plugin);
}

void TestShellBackend::reconnectionIsTold()
{
    TestCell cell;
    ShellBackend backend(*cell);
    const QSignalSpy spy(&qelPluginInterface(), &InterfaceManager::sigNetworkConnect);
    cell->setConnected(false);
    QCOMPARE(spy.size(), 0);
    cell->setConnected(true);
    QCOMPARE(spy.size(), 1);
}

LASERWELD_TEST_MAIN(TestShellBackend)
#include "tst_shellbackend.moc"
