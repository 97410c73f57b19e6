#include "IoCell.h"
#include "ResultCode.h"
#include "TestCase.h"

using namespace pendant;

Q_DECLARE_METATYPE(bool Faults::*)

class IoPointsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void places_data();
    void places();
    void reasons_data();
    void reasons();
    void firstPortGone();
    void registerOfThatName();
    void unreadableLists();
    void faultyRegisters_data();
    void faultyRegisters();
    void mapping();
};

void IoPointsTest::places_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("port");
    QTest::addColumn<int>("bias");
    QTest::addColumn<int>("code");
    const auto row = [](const char* key, int type, const char* port, int bias, ResultCode code) {
        QTest::addRow("%s %d %s %d", key, type, port, bias)
            << QString(QLatin1String(key)) << type << QString(QLatin1String(port)) << bias
            << static_cast<int>(code);
    };
    constexpr auto done = ResultCode::Done;
    constexpr auto none = ResultCode::NoSuchPort;
    constexpr auto range = ResultCode::OutOfRange;
    constexpr auto unfit = ResultCode::WrongRegister;
    // Ports of the right kind and direction.
    row("power", 0, "AO16", 0, done);
    row("power", 1, "GO16", 0, done);
    row("power_feedback", 0, "AI1", 0, done);
    row("power_feedback", 1, "GI1", 0, done);
    row("wire_feed", 0, "DO1", 0, done);
    row("laser_alarm", 0, "DI1", 0, done);
    row("swing_job", 0, "GO1", 0, done);
    row("power", 0, "AI1", 0, none);
    row("power", 0, "GO1", 0, none);
    row("power", 0, "AO17", 0, none);
    row("power", 0, "ao1", 0, none);
    row("power", 0, " AO1", 0, none);
    row("wire_feed", 0, "DI1", 0, none);
    row("wire_feed", 0, "bits", 0, none);
    row("laser_alarm", 0, "DO1", 0, none);
    // No port.
    row("power", 0, "", 0, done);
    row("power", 2, "", 0, done);
    row("power", 2, "", 1, range);
    // Types that the signal does not have.
    row("power", 3, "AO1", 0, range);
    row("power", -1, "", 0, range);
    row("wire_feed", 1, "DO1", 0, range);
    row("swing_job", 1, "GO1", 0, range);
    row("laser_alarm", 1, "", 0, range);
    // A bias is for registers.
    row("power", 0, "AO1", 1, range);
    row("power", 0, "AO1", -1, range);
    row("wire_feed", 2, "bits", 0, done);
    row("wire_feed", 2, "bits", 3, done);
    row("wire_feed", 2, "bits", 4, range);
    row("wire_feed", 2, "bits", -1, range);
    row("power", 2, "speed", 0, done); // without a length it has one element
    row("power", 2, "speed", 1, range);
    row("power_feedback", 2, "count", 0, done); // nor has it less
    row("power_feedback", 2, "count", 1, range);
    // Registers by direction and content.
    row("wire_feed", 2, "none", 0, none);
    row("wire_feed", 2, "DO1", 0, none);
    row("wire_feed", 2, "flags", 0, unfit);
    row("wire_feed", 2, "words", 0, unfit);
    row("wire_feed", 2, "text", 0, unfit);
    row("wire_feed", 2, "both", 0, done);
    row("wire_feed", 2, "odd", 0, unfit);
    row("laser_alarm", 2, "flags", 1, done);
    row("laser_alarm", 2, "both", 0, done);
    row("laser_alarm", 2, "bits", 0, unfit);
    row("laser_alarm", 2, "count", 0, unfit);
    row("power", 2, "words", 7, done);
    row("power", 2, "bits", 0, unfit);
    row("power", 2, "temp", 0, unfit);
    row("swing_job", 2, "words", 0, done);
    row("swing_job", 2, "speed", 0, unfit);
    row("power_feedback", 2, "temp", 2, done);
    row("power_feedback", 2, "text", 0, unfit);
}

void IoPointsTest::places()
{
    QFETCH(QString, key);
    QFETCH(int, type);
    QFETCH(QString, port);
    QFETCH(int, bias);
    QFETCH(int, code);
    const IoCell cell;
    const Result result = cell.points().check(*findWeldSignal(key), {type, port, bias, true});
    QCOMPARE(result.code, code);
    QCOMPARE(result.reason.contains(key), code != 0);
}

void IoPointsTest::reasons_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("port");
    QTest::addColumn<int>("bias");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* key, int type, const char* port, int bias, const char* reason) {
        QTest::newRow(reason) << QString(QLatin1String(key)) << type << QString(QLatin1String(port))
                              << bias << QString(QLatin1String(reason));
    };
    row("wire_feed", 1, "", 0, "\"wire_feed_type\": 1 is out of range; accepted: 0 (DO), 2 (REG)");
    row("power_feedback", -1, "", 0,
        "\"power_feedback_type\": -1 is out of range; accepted: 0 (AI), 1 (GI), 2 (REG)");
    row("power", 0, "AO1", 2, "\"power_bias\": 2 is out of range; accepted: 0 to 0");
    row("power", 2, "words", 8, "\"power_bias\": 8 is out of range; accepted: 0 to 7");
    row("power", 1, "XX%1", 0,
        "\"power_port\": \"XX%1\" is no port of the kind GO; accepted: a port of the controller");
    row("power", 2, "XX", 0,
        "\"power_port\": \"XX\" is no register; accepted: a writable register of numbers");
    row("wire_feed", 2, "flags", 0,
        "\"wire_feed_port\": \"flags\" cannot be written; accepted: a writable register of bits");
    row("laser_alarm", 2, "bits", 0,
        "\"laser_alarm_port\": \"bits\" cannot be read; accepted: a readable register of bits");
    row("swing_job", 2, "speed", 0,
        "\"swing_job_port\": \"speed\" is a register of another type; accepted: a writable "
        "register of whole numbers");
}

void IoPointsTest::reasons()
{
    QFETCH(QString, key);
    QFETCH(int, type);
    QFETCH(QString, port);
    QFETCH(int, bias);
    QFETCH(QString, reason);
    const IoCell cell;
    QCOMPARE(cell.points().check(*findWeldSignal(key), {type, port, bias, true}).reason, reason);
}

void IoPointsTest::firstPortGone()
{
    const IoCell cell;
    Faults faults;
    faults.firstPortGone = true;
    const IoPoints points = cell.points(faults);
    QCOMPARE(points.ports(QStringLiteral("DO")).size(), 15);
    QCOMPARE(points.ports(QStringLiteral("DO")).constFirst(), QStringLiteral("DO2"));
    QVERIFY(points.ports(QStringLiteral("XX")).isEmpty());
    const WeldSignal& signal = *findWeldSignal(QStringLiteral("laser_enable"));
    QCOMPARE(points.check(signal, {0, QStringLiteral("DO1"), 0, true}).code,
             static_cast<int>(ResultCode::NoSuchPort));
    QVERIFY(points.check(signal, {0, QStringLiteral("DO2"), 0, true}).isDone());
}

void IoPointsTest::registerOfThatName()
{
    const IoCell cell;
    const auto found = cell.points().findRegister(QStringLiteral("temp"));
    QVERIFY(found);
    QVERIFY(found->content == RegisterContent::Real);
    QVERIFY(found->canRead && !found->canWrite);
    QCOMPARE(found->length, 3);
    QVERIFY(!cell.points().findRegister(QStringLiteral("TEMP")));
    QVERIFY(!cell.points().findRegister(QString()));
}

void IoPointsTest::unreadableLists()
{
    const QTemporaryDir folder;
    QString error;
    const auto cell = Cell::open(
        folder.filePath(QStringLiteral("cell")),
        {{keys::ports, QJsonArray{1}}, {keys::registers, QJsonArray{1, {}}}}, {}, &error);
    QVERIFY2(cell, qPrintable(error));
    const IoPoints points(*cell, {});
    QVERIFY(points.ports(QStringLiteral("DO")).isEmpty());
    QVERIFY(!points.findRegister(QStringLiteral("R1")));
}

void IoPointsTest::faultyRegisters_data()
{
    QTest::addColumn<bool Faults::*>("fault");
    QTest::addColumn<QJsonValue>("shown");
    const QJsonValue name = QStringLiteral("a");
    const QJsonValue type = QStringLiteral("bool");
    const QJsonValue access = QStringLiteral("r");
    const QString len = QStringLiteral("len");
    QTest::newRow("none") << static_cast<bool Faults::*>(nullptr)
                          << QJsonValue(QJsonArray{registerEntry("a", "bool", "r", 2)});
    QTest::newRow("no array") << &Faults::registersNoArray
                              << QJsonValue(
                                     QJsonObject{{keys::registers,
                                                  QJsonArray{registerEntry("a", "bool", "r", 2)}}});
    QTest::newRow("other keys") << &Faults::registerOtherKeys
                                << QJsonValue(
                                       QJsonArray{QJsonObject{{QStringLiteral("reg_name"), name},
                                                              {QStringLiteral("data_type"), type},
                                                              {QStringLiteral("access"), access},
                                                              {len, 2}}});
    QTest::newRow("undescribed") << &Faults::registersUndescribed
                                 << QJsonValue(QJsonArray{
                                        QJsonObject{{QStringLiteral("name"), name}, {len, 2}}});
    QTest::newRow("numbers") << &Faults::registerNumberNames
                             << QJsonValue(QJsonArray{QJsonObject{{QStringLiteral("name"), 1},
                                                                  {QStringLiteral("type"), type},
                                                                  {QStringLiteral("rw"), access},
                                                                  {len, 2}}});
}

void IoPointsTest::faultyRegisters()
{
    QFETCH(bool Faults::*, fault);
    QFETCH(QJsonValue, shown);
    Faults faults;
    if (fault)
        faults.*fault = true;
    QCOMPARE(shownRegisters(QJsonArray{registerEntry("a", "bool", "r", 2)}, faults), shown);
}

void IoPointsTest::mapping()
{
    QCOMPARE(weldSignals().size(), std::size_t(24));
    QVERIFY(!findWeldSignal(QStringLiteral("laser")));
    const WeldSignal& laser = *findWeldSignal(QStringLiteral("laser_enable"));
    const WeldSignal& power = *findWeldSignal(QStringLiteral("power"));
    QVERIFY(mappingOf(laser, {}).isOn);
    QVERIFY(!mappingOf(power, {}).isOn);
    const Mapping odd = mappingOf(power, {{QStringLiteral("power_type"), QStringLiteral("2")},
                                          {QStringLiteral("power_port"), 7},
                                          {QStringLiteral("power_bias"), 1.5},
                                          {QStringLiteral("power_enabled"), 1}});
    QCOMPARE(odd.type, 0);
    QCOMPARE(odd.port, QString());
    QCOMPARE(odd.bias, 0);
    QVERIFY(!odd.isOn);
}

LASERWELD_CORE_TEST_MAIN(IoPointsTest)
#include "tst_iopoints.moc"
