#include "IoCell.h"
#include "TestCase.h"
#include "WeldIo.h"

using namespace pendant;

namespace {

/// The signals of a cell whose mapping and device a test changes.
struct Bench
{
    IoCell cell;
    WeldIo io;
    QJsonObject mapping = fullMapping();
    QJsonObject setting{{QStringLiteral("manual_feed_speed"), 12},
                        {QStringLiteral("manual_retract_speed"), 7}};
    WeldState device;
    Faults faults;

    QVector<SignalState> states() const
    {
        const IoPoints points = cell.points(faults);
        return io.states({mapping, setting, device, points});
    }
    SignalState state(const char* key) const
    {
        const QVector<SignalState> all = states();
        for (const SignalState& each : all) {
            if (QLatin1String(each.signal->key) == QLatin1String(key))
                return each;
        }
        qFatal("no signal %s", key);
    }
    QString set(const char* key, double value)
    {
        const IoPoints points = cell.points(faults);
        return io.setInput(QLatin1String(key), value, {mapping, setting, device, points});
    }
    void switchOff(const char* key)
    {
        mapping.insert(QLatin1String(findWeldSignal(QLatin1String(key))->switchKey), false);
    }
    /// The signals that are not 0, with their values.
    QStringList driven() const
    {
        QStringList all;
        const QVector<SignalState> list = states();
        for (const SignalState& each : list) {
            if (each.value != 0)
                all << QStringLiteral("%1=%2").arg(QLatin1String(each.signal->key)).arg(each.value);
        }
        return all;
    }
};

} // namespace

Q_DECLARE_METATYPE(bool WeldState::*)

class WeldIoTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void placesOfAll();
    void outputs_data();
    void outputs();
    void gas();
    void wireWithoutHandInput_data();
    void wireWithoutHandInput();
    void switchedOffDrivesNothing();
    void offRowShowsItsPlace();
    void sharedPlace();
    void registerElements();
    void portGone();
    void unusableMapping();
    void inputs_data();
    void inputs();
    void inputStaysAtItsPlace();
    void noInput_data();
    void noInput();
    void notANumber();
};

void WeldIoTest::placesOfAll()
{
    Bench bench;
    remap(bench.mapping, "wire_feed", 2, "bits", 3);
    const QVector<SignalState> states = bench.states();
    QCOMPARE(states.size(), 24);
    for (int row = 0; row < states.size(); ++row) {
        QVERIFY(states.at(row).isMapped());
        QCOMPARE(states.at(row).signal->isOutput, row < 15);
        QCOMPARE(states.at(row).value, 0.0);
    }
    QCOMPARE(bench.state("wire_feed").place, QStringLiteral("REG"));
    QCOMPARE(bench.state("wire_feed").mapping.bias, 3);
    QVERIFY(bench.state("power").content == RegisterContent::Real);
    QVERIFY(bench.state("swing_job").content == RegisterContent::Whole);
    QVERIFY(bench.state("laser_alarm").content == RegisterContent::Bit);
}

void WeldIoTest::outputs_data()
{
    QTest::addColumn<bool WeldState::*>("status");
    QTest::addColumn<QStringList>("driven");
    QTest::newRow("enabled") << &WeldState::enabled
                             << QStringList{QStringLiteral("laser_enable=1")};
    QTest::newRow("red light") << &WeldState::redLight
                               << QStringList{QStringLiteral("red_light=1")};
    QTest::newRow("feeding") << &WeldState::feeding
                             << QStringList{QStringLiteral("manual_wire_feed=1")};
    QTest::newRow("retracting") << &WeldState::retracting
                                << QStringList{QStringLiteral("manual_retract=1")};
    QTest::newRow("virtual") << &WeldState::virtualWelding << QStringList();
}

void WeldIoTest::outputs()
{
    QFETCH(bool WeldState::*, status);
    QFETCH(QStringList, driven);
    Bench bench;
    bench.device.*status = true;
    QCOMPARE(bench.driven(), driven);
}

void WeldIoTest::gas()
{
    Bench bench;
    bench.device.gasUntil = QDeadlineTimer(60000);
    QCOMPARE(bench.driven(), QStringList{QStringLiteral("gas_protect=1")});
    bench.device.gasUntil = QDeadlineTimer();
    QCOMPARE(bench.driven(), QStringList());
}

void WeldIoTest::wireWithoutHandInput_data()
{
    QTest::addColumn<bool WeldState::*>("status");
    QTest::addColumn<QByteArray>("hand");
    QTest::addColumn<QStringList>("driven");
    QTest::newRow("feeding") << &WeldState::feeding << QByteArray("manual_wire_feed")
                             << QStringList{QStringLiteral("wire_speed=12"),
                                            QStringLiteral("wire_feed=1")};
    QTest::newRow("retracting") << &WeldState::retracting << QByteArray("manual_retract")
                                << QStringList{QStringLiteral("wire_speed=7"),
                                               QStringLiteral("wire_feed=1"),
                                               QStringLiteral("retract_direction=1")};
}

void WeldIoTest::wireWithoutHandInput()
{
    QFETCH(bool WeldState::*, status);
    QFETCH(QByteArray, hand);
    QFETCH(QStringList, driven);
    Bench bench;
    bench.switchOff(hand.constData());
    bench.device.*status = true;
    QCOMPARE(bench.driven(), driven);
}

void WeldIoTest::switchedOffDrivesNothing()
{
    Bench bench;
    bench.switchOff("red_light");
    bench.device.redLight = true;
    QCOMPARE(bench.driven(), QStringList());
}

// A wrong mapping: the light lights the place of another signal.
void WeldIoTest::offRowShowsItsPlace()
{
    Bench bench;
    remap(bench.mapping, "red_light", 0, "DO9");
    remap(bench.mapping, "wire_feed", 0, "DO9");
    bench.switchOff("wire_feed");
    bench.device.redLight = true;
    QCOMPARE(bench.state("wire_feed").value, 1.0);
}

void WeldIoTest::sharedPlace()
{
    Bench bench;
    remap(bench.mapping, "red_light", 0, "DO9");
    remap(bench.mapping, "wire_feed", 0, "DO9");
    bench.device.redLight = true;
    QCOMPARE(bench.driven(),
             QStringList({QStringLiteral("red_light=1"), QStringLiteral("wire_feed=1")}));
}

void WeldIoTest::registerElements()
{
    Bench bench;
    remap(bench.mapping, "red_light", 2, "bits", 0);
    remap(bench.mapping, "wire_feed", 2, "bits", 1);
    bench.device.redLight = true;
    QCOMPARE(bench.driven(), QStringList{QStringLiteral("red_light=1")});
}

void WeldIoTest::portGone()
{
    Bench bench;
    remap(bench.mapping, "laser_enable", 0, "DO1");
    bench.device.enabled = true;
    QCOMPARE(bench.driven(), QStringList{QStringLiteral("laser_enable=1")});
    bench.faults.firstPortGone = true;
    QCOMPARE(bench.driven(), QStringList());
    QVERIFY(bench.state("laser_enable").trouble.contains(QLatin1String("DO1")));
}

void WeldIoTest::unusableMapping()
{
    Bench bench;
    bench.device.redLight = true;
    remap(bench.mapping, "red_light", 7, "DO9");
    QVERIFY(!bench.state("red_light").isMapped());
    remap(bench.mapping, "red_light", 2, "flags");
    QVERIFY(!bench.state("red_light").isMapped());
    remap(bench.mapping, "red_light", 0, "");
    QVERIFY(!bench.state("red_light").isMapped());
    QVERIFY(bench.state("red_light").trouble.isEmpty());
    bench.mapping = {};
    QCOMPARE(bench.driven(), QStringList());
}

void WeldIoTest::inputs_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("port");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("trouble");
    const auto row = [](int type, const char* port, double value, const char* trouble) {
        QTest::addRow("%s %g", port, value)
            << type << QByteArray(port) << value << QString(QLatin1String(trouble));
    };
    row(0, "AI3", 2.5, "");
    row(0, "AI3", -999999, "");
    row(0, "AI3", 1e6, "1e+06 is beyond 999999");
    row(1, "GI3", 7, "");
    row(1, "GI3", 7.5, "7.5 is no whole number");
    row(2, "count", 3, "");
    row(2, "count", 3.5, "3.5 is no whole number");
    row(2, "temp", 3.5, "");
}

void WeldIoTest::inputs()
{
    QFETCH(int, type);
    QFETCH(QByteArray, port);
    QFETCH(double, value);
    QFETCH(QString, trouble);
    Bench bench;
    remap(bench.mapping, "power_feedback", type, port.constData());
    QCOMPARE(bench.set("power_feedback", value), trouble);
    QCOMPARE(bench.state("power_feedback").value, trouble.isEmpty() ? value : 0.0);
}

// The value is the port's, whoever is mapped to it.
void WeldIoTest::inputStaysAtItsPlace()
{
    Bench bench;
    remap(bench.mapping, "laser_alarm", 0, "DI1");
    remap(bench.mapping, "light_feedback", 0, "DI2");
    QCOMPARE(bench.set("laser_alarm", 1), QString());
    QCOMPARE(bench.state("light_feedback").value, 0.0);
    remap(bench.mapping, "light_feedback", 0, "DI1");
    QCOMPARE(bench.state("light_feedback").value, 1.0);
    bench.switchOff("light_feedback");
    QCOMPARE(bench.state("light_feedback").value, 1.0);
}

void WeldIoTest::noInput_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("trouble");
    const auto row = [](const char* key, double value, const char* trouble) {
        QTest::addRow("%s %g", key, value)
            << QByteArray(key) << value << QString(QLatin1String(trouble));
    };
    row("red_light", 1, "there is no such input");
    row("nothing", 1, "there is no such input");
    row("laser_alarm", 2, "2 is neither 0 nor 1");
    row("laser_alarm", 0.5, "0.5 is neither 0 nor 1");
    row("external_alarm", 1, "it has no port");
    row("light_feedback", 1,
        "\"light_feedback_port\": \"DI99\" is no port of the kind DI; accepted: a port of the "
        "controller");
}

void WeldIoTest::noInput()
{
    QFETCH(QByteArray, key);
    QFETCH(double, value);
    QFETCH(QString, trouble);
    Bench bench;
    remap(bench.mapping, "external_alarm", 0, "");
    remap(bench.mapping, "light_feedback", 0, "DI99");
    QCOMPARE(bench.set(key.constData(), value), trouble);
    QCOMPARE(bench.driven(), QStringList());
}

void WeldIoTest::notANumber()
{
    Bench bench;
    for (double value : {qQNaN(), qInf(), -qInf()}) {
        QVERIFY(!bench.set("power_feedback", value).isEmpty());
        QVERIFY(!bench.set("laser_alarm", value).isEmpty());
    }
}

LASERWELD_CORE_TEST_MAIN(WeldIoTest)
#include "tst_weldio.moc"
