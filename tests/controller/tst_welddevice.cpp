#include "TestCase.h"
#include "WeldDevice.h"

using namespace pendant;

namespace {

WeldState stateWith(bool WeldState::*status)
{
    WeldState state;
    state.*status = true;
    return state;
}

WeldState gasFor(int milliseconds)
{
    WeldState state;
    state.gasUntil = QDeadlineTimer(milliseconds, Qt::PreciseTimer);
    return state;
}

bool isGasOpen(const WeldDevice& device)
{
    return device.data().value(QLatin1String("weld_gas_status")).toBool();
}

} // namespace

Q_DECLARE_METATYPE(bool WeldState::*)

class WeldDeviceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void allOffAtFirst();
    void status_data();
    void status();
    void storedSurvives();
    void storedOfAnyType();
    void sameStateIsNoChange();
    void gasClosesByItself();
    void gasClosedByHand();
    void gasOpenedAgain();
    void stopWire();
};

void WeldDeviceTest::allOffAtFirst()
{
    const WeldDevice device({});
    const QJsonObject data = device.data();
    QCOMPARE(data.size(), 6);
    for (const QJsonValue& each : data)
        QCOMPARE(each, QJsonValue(false));
}

void WeldDeviceTest::status_data()
{
    QTest::addColumn<bool WeldState::*>("status");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("isStored");
    const auto row = [](const char* key, bool WeldState::*status, bool isStored) {
        QTest::newRow(key) << status << QString(QLatin1String(key)) << isStored;
    };
    row("virtual_welding_status", &WeldState::virtualWelding, true);
    row("weld_redlight_status", &WeldState::redLight, true);
    row("weld_enable_status", &WeldState::enabled, false);
    row("weld_feed_wire_status", &WeldState::feeding, false);
    row("weld_retract_wire_status", &WeldState::retracting, false);
}

void WeldDeviceTest::status()
{
    QFETCH(bool WeldState::*, status);
    QFETCH(QString, key);
    QFETCH(bool, isStored);
    WeldDevice device({});
    QSignalSpy changed(&device, &WeldDevice::dataChanged);
    device.setState(stateWith(status));
    const QJsonObject data = device.data();
    for (auto each = data.begin(); each != data.end(); ++each)
        QCOMPARE(each.value(), QJsonValue(each.key() == key));
    QCOMPARE(changed.count(), 1);
    const QJsonObject stored = WeldDevice::storedData(device.state());
    QCOMPARE(stored.size(), 2);
    QCOMPARE(stored.value(key).toBool(), isStored);
}

void WeldDeviceTest::storedSurvives()
{
    WeldState state;
    state.virtualWelding = state.redLight = state.feeding = state.enabled = true;
    const WeldDevice restarted(WeldDevice::storedData(state));
    QVERIFY(restarted.state().virtualWelding);
    QVERIFY(restarted.state().redLight);
    QVERIFY(!restarted.state().feeding);
    QVERIFY(!restarted.state().enabled);
}

void WeldDeviceTest::storedOfAnyType()
{
    const WeldDevice device({{QStringLiteral("virtual_welding_status"), QStringLiteral("true")},
                             {QStringLiteral("weld_redlight_status"), 1},
                             {QStringLiteral("weld_feed_wire_status"), true}});
    QCOMPARE(device.data(), WeldDevice({}).data());
}

void WeldDeviceTest::sameStateIsNoChange()
{
    WeldDevice device({});
    device.setState(stateWith(&WeldState::redLight));
    QSignalSpy changed(&device, &WeldDevice::dataChanged);
    device.setState(stateWith(&WeldState::redLight));
    QCOMPARE(changed.count(), 0);
}

void WeldDeviceTest::gasClosesByItself()
{
    WeldDevice device({});
    QSignalSpy changed(&device, &WeldDevice::dataChanged);
    device.setState(gasFor(50));
    QVERIFY(isGasOpen(device));
    QCOMPARE(changed.count(), 1);
    QTRY_COMPARE(changed.count(), 2);
    QVERIFY(!isGasOpen(device));
}

void WeldDeviceTest::gasClosedByHand()
{
    WeldDevice device({});
    device.setState(gasFor(60000));
    QSignalSpy changed(&device, &WeldDevice::dataChanged);
    device.setState({});
    QVERIFY(!isGasOpen(device));
    QCOMPARE(changed.count(), 1);
}

void WeldDeviceTest::gasOpenedAgain()
{
    WeldDevice device({});
    device.setState(gasFor(60000));
    QSignalSpy changed(&device, &WeldDevice::dataChanged);
    const WeldState again = gasFor(30);
    device.setState(again);
    QCOMPARE(changed.count(), 0);
    QTRY_COMPARE(changed.count(), 1);
    QVERIFY(again.gasUntil.hasExpired());
}

void WeldDeviceTest::stopWire()
{
    WeldDevice device({});
    WeldState state = gasFor(60000);
    state.feeding = state.retracting = state.redLight = true;
    device.setState(state);
    device.stopWire();
    QVERIFY(!device.state().feeding);
    QVERIFY(!device.state().retracting);
    QVERIFY(device.state().redLight);
    QVERIFY(isGasOpen(device));
}

LASERWELD_CORE_TEST_MAIN(WeldDeviceTest)
#include "tst_welddevice.moc"
