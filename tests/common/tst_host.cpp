#include "Host.h"
#include "ScriptedHost.h"
#include "TestCase.h"

class HostTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void mayOperate_data();
    void mayOperate();
    void tells();
    void flags_data();
    void flags();
};

void HostTest::mayOperate_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("may");

    for (const int level : {-1, 0, 1, 2, 3, 4, 100})
        QTest::addRow("%d", level) << level << (level >= 3);
}

void HostTest::mayOperate()
{
    QFETCH(int, level);
    QFETCH(bool, may);
    ScriptedHost host;
    host.level = level;
    QCOMPARE(Host::mayOperate(), may);
    QCOMPARE(host.callNames(), QStringList{QStringLiteral("getUserOperateLevel")});
}

void HostTest::tells()
{
    const ScriptedHost host;
    Host::tellSuccess(QStringLiteral("done"));
    Host::tellWarning(QStringLiteral("no"));
    Host::tellError(QStringLiteral("broken"));
    QCOMPARE(host.messageTexts(), (QStringList{QStringLiteral("0: done"), QStringLiteral("1: no"),
                                               QStringLiteral("2: broken")}));
    QCOMPARE(host.calls.first().arguments,
             (QJsonArray{QStringLiteral("qelLaserWelding"), 0, QStringLiteral("done")}));
}

void HostTest::flags_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<bool>("isOn");

    QTest::newRow("absent") << QJsonValue(QJsonValue::Undefined) << false;
    QTest::newRow("null") << QJsonValue() << false;
    QTest::newRow("true") << QJsonValue(true) << true;
    QTest::newRow("false") << QJsonValue(false) << false;
    QTest::newRow("number") << QJsonValue(1) << false;
    QTest::newRow("text") << QJsonValue(QStringLiteral("true")) << false;
    QTest::newRow("object") << QJsonValue(QJsonObject{{QStringLiteral("a"), true}}) << false;
    QTest::newRow("array") << QJsonValue(QJsonArray{true}) << false;
}

void HostTest::flags()
{
    QFETCH(QJsonValue, value);
    QFETCH(bool, isOn);
    const QString virtualKey = QStringLiteral("laser_weld_data.virtual_welding_status");
    const QString lightKey = QStringLiteral("laser_weld_data.weld_redlight_status");
    ScriptedHost host;
    host.service[virtualKey] = value;
    host.service[lightKey] = value;

    QCOMPARE(Host::isVirtualWelding(), isOn);
    QCOMPARE(Host::isRedLightOn(), isOn);
    QCOMPARE(host.calls.at(0).arguments, QJsonArray{virtualKey});
    QCOMPARE(host.calls.at(1).arguments, QJsonArray{lightKey});
}

LASERWELD_CORE_TEST_MAIN(HostTest)
#include "tst_host.moc"
