#include "TestCase.h"
#include "WeldDataSamples.h"
#include "WeldParameterCheck.h"

using namespace pendant;

namespace {

constexpr double ByTime = 2;

struct Number
{
    const char* key;
    double least;
    double most;
    const char* unit;
};

constexpr Number numbers[] = {
    {"laser_power_start", 0, 9999, " W"},
    {"frequency_start", 1, 9999, " Hz"},
    {"duty_cycle_start", 1, 100, " %"},
    {"ramp_mode_start", ByTime, ByTime, ""},
    {"ramp_value_start", 0, 1000, " ms"},
    {"delay_time_start", 0, 2000, " ms"},
    {"welding_speed", 1, 200, " mm/s"},
    {"laser_power_weld", 0, 9999, " W"},
    {"frequency_weld", 1, 9999, " Hz"},
    {"duty_cycle_weld", 1, 100, " %"},
    {"laser_power_end", 0, 9999, " W"},
    {"frequency_end", 1, 9999, " Hz"},
    {"duty_cycle_end", 1, 100, " %"},
    {"ramp_mode_end", ByTime, ByTime, ""},
    {"ramp_value_end", 0, 1000, " ms"},
    {"delay_time_end", 0, 2000, " ms"},
    {"laser_off_mode", 0, 1, ""},
    {"feeding_speed_start", 0, 500, " mm/s"},
    {"wire_mode_start", 0, 1, ""},
    {"wire_feed_time_start", 0, 1000, " ms"},
    {"feeding_speed_run", 0, 500, " mm/s"},
    {"wire_speed_end", 0, 500, " mm/s"},
    {"wire_mode_end", 0, 1, ""},
    {"wire_feed_time_end", 0, 1000, " ms"},
    {"wire_retract_end", 0, 200, " mm/s"},
    {"wire_retract_time_end", 0, 1000, " ms"},
    {"fill_delay_time_end", 0, 1000, " ms"},
    {"fill_wire_speed_end", 0, 200, " mm/s"},
    {"fill_wire_time_end", 0, 1000, " ms"},
    {"work_mode", 0, 1, ""},
    {"swing_job", 0, 99, ""},
    {"process_job", 0, 99, ""},
};

constexpr const char* switches[] = {
    "wire_feed_enable_start", "wire_feed_enable_end", "wire_stick_enable_end",
    "wire_retraction_end",    "wire_fill_com_end",
};

constexpr const char* texts[] = {"LsDataID", "Tips"};

const QString schedule7 = QStringLiteral("LsData7");
const QString matching2 = QStringLiteral("PowerData2");

int codeOf(ResultCode code)
{
    return static_cast<int>(code);
}

Result checkWith(const char* key, const QJsonValue& value)
{
    QJsonObject record = sampleSchedule(schedule7);
    record.insert(QLatin1String(key), value);
    return checkSchedule(listed(schedule7, record));
}

/// A matching record with one number of the table changed.
QJsonObject matchingWith(int row, int column, const QJsonValue& value)
{
    QJsonObject record = sampleMatching(matching2);
    QJsonArray rows = record.value(QLatin1String("power_data")).toArray();
    QJsonArray numbersOfRow = rows.at(row).toArray();
    numbersOfRow[column] = value;
    rows[row] = numbersOfRow;
    record.insert(QStringLiteral("power_data"), rows);
    return record;
}

Result checkMatching(const QJsonObject& record)
{
    return pendant::checkMatching(listed(matching2, record));
}

} // namespace

class WeldParameterCheckTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void numberOfKeys();
    void scheduleNumbers_data();
    void scheduleNumbers();
    void scheduleSwitches();
    void scheduleTexts();
    void scheduleMissingKeys();
    void scheduleUnknownKey();
    void keys_data();
    void keys();
    void noRecord_data();
    void noRecord();
    void idMustBeTheKey();
    void matchingFields_data();
    void matchingFields();
    void matchingCells_data();
    void matchingCells();
    void matchingLengths_data();
    void matchingLengths();
    void risesStrictly_data();
    void risesStrictly();
    void firstColumnInTroubleIsTold();
};

void WeldParameterCheckTest::numberOfKeys()
{
    QCOMPARE(sampleSchedule(schedule7).size(), 39);
    QCOMPARE(std::size(numbers) + std::size(switches) + std::size(texts), std::size_t{39});
}

void WeldParameterCheckTest::scheduleNumbers_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Number& number : numbers)
        QTest::newRow(number.key) << index++;
}

void WeldParameterCheckTest::scheduleNumbers()
{
    QFETCH(int, index);
    const Number& number = numbers[index];
    for (double value : {number.least, number.most})
        QVERIFY2(checkWith(number.key, value).isDone(), number.key);
    for (double value : {number.least - 1, number.most + 1, 1e300, -1e300})
        QCOMPARE(checkWith(number.key, value).code, codeOf(ResultCode::OutOfRange));
    for (const QJsonValue& value :
         {QJsonValue(number.least + 0.5), QJsonValue(true), QJsonValue(),
          QJsonValue(QStringLiteral("1")), QJsonValue(QJsonArray{1}), QJsonValue(QJsonObject())})
        QCOMPARE(checkWith(number.key, value).code, codeOf(ResultCode::WrongType));
    const QString accepted =
        number.least == number.most
            ? QStringLiteral("the number %1").arg(number.least)
            : QStringLiteral("whole number from %1 to %2").arg(number.least).arg(number.most);
    QCOMPARE(checkWith(number.key, -7).reason,
             QStringLiteral("\"LsData7\", \"%1\": -7 is out of range; accepted: %2%3")
                 .arg(QLatin1String(number.key), accepted, QLatin1String(number.unit)));
}

void WeldParameterCheckTest::scheduleSwitches()
{
    for (const char* key : switches) {
        QVERIFY2(checkWith(key, true).isDone() && checkWith(key, false).isDone(), key);
        const QVector<QJsonValue> values = everyJsonType();
        for (const QJsonValue& value : values)
            QCOMPARE(checkWith(key, value).isDone(), value.isBool());
        QCOMPARE(checkWith(key, 1).code, codeOf(ResultCode::WrongType));
    }
}

void WeldParameterCheckTest::scheduleTexts()
{
    const QVector<QJsonValue> values = everyJsonType();
    for (const char* key : texts) {
        for (const QJsonValue& value : values) {
            if (!value.isString())
                QCOMPARE(checkWith(key, value).code, codeOf(ResultCode::WrongType));
        }
    }
    for (const char* text : {"", "a\nb", "100 %1"})
        QVERIFY(checkWith("Tips", QLatin1String(text)).isDone());
    QVERIFY(checkWith("Tips", QString(70000, QChar(0x20ac))).isDone());
}

void WeldParameterCheckTest::scheduleMissingKeys()
{
    const QStringList all = sampleSchedule(schedule7).keys();
    for (const QString& key : all) {
        QJsonObject record = sampleSchedule(schedule7);
        record.remove(key);
        const Result result = checkSchedule(listed(schedule7, record));
        QCOMPARE(result.code, codeOf(ResultCode::MissingKey));
        QVERIFY(result.reason.startsWith(
            QStringLiteral("\"LsData7\", \"%1\" is missing; accepted: ").arg(key)));
    }
}

void WeldParameterCheckTest::scheduleUnknownKey()
{
    QCOMPARE(checkWith("laser_colour", 1).code, codeOf(ResultCode::UnknownKey));
}

void WeldParameterCheckTest::keys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("isSchedule");
    QTest::addColumn<bool>("isGood");
    const auto row = [](const char* key, bool isSchedule, bool isGood) {
        QTest::addRow("%s %s", isSchedule ? "schedule" : "matching", key)
            << QString(QLatin1String(key)) << isSchedule << isGood;
    };
    for (const char* key : {"LsData1", "LsData30"})
        row(key, true, true);
    for (const char* key : {"LsData0", "LsData31", "LsData01", "LsData+1", "LsData-1", "LsData1 ",
                            "LsData", "lsdata1", "PowerData1", "", "1", "LsData1.0"})
        row(key, true, false);
    for (const char* key : {"PowerData1", "PowerData10"})
        row(key, false, true);
    for (const char* key : {"PowerData0", "PowerData11", "PowerData01", "PowerData", "LsData1", ""})
        row(key, false, false);
}

void WeldParameterCheckTest::keys()
{
    QFETCH(QString, key);
    QFETCH(bool, isSchedule);
    QFETCH(bool, isGood);
    const Result result = isSchedule ? checkSchedule(listed(key, sampleSchedule(key)))
                                     : pendant::checkMatching(listed(key, sampleMatching(key)));
    QCOMPARE(result.code, isGood ? 0 : codeOf(ResultCode::UnknownKey));
    QCOMPARE(result.reason,
             isGood
                 ? QString()
                 : QStringLiteral("\"%1\" is no record; accepted: one of %2")
                       .arg(key, isSchedule ? QStringLiteral("\"LsData1\" to \"LsData30\"")
                                            : QStringLiteral("\"PowerData1\" to \"PowerData10\"")));
}

void WeldParameterCheckTest::noRecord_data()
{
    QTest::addColumn<QJsonValue>("payload");
    QTest::addColumn<int>("code");
    const auto row = [](const char* name, const QJsonValue& payload, ResultCode code) {
        QTest::newRow(name) << payload << codeOf(code);
    };
    row("undefined", QJsonValue(QJsonValue::Undefined), ResultCode::WrongType);
    row("null", {}, ResultCode::WrongType);
    row("bool", true, ResultCode::WrongType);
    row("number", 1, ResultCode::WrongType);
    row("text", schedule7, ResultCode::WrongType);
    row("array", QJsonArray{sampleSchedule(schedule7)}, ResultCode::WrongType);
    row("none", QJsonObject(), ResultCode::WrongCount);
    row("two",
        QJsonObject{{schedule7, sampleSchedule(schedule7)}, {matching2, sampleMatching(matching2)}},
        ResultCode::WrongCount);
}

void WeldParameterCheckTest::noRecord()
{
    QFETCH(QJsonValue, payload);
    QFETCH(int, code);
    for (const Result& result : {checkSchedule(payload), pendant::checkMatching(payload)}) {
        QCOMPARE(result.code, code);
        QVERIFY(!result.reason.isEmpty());
    }
    if (payload.isObject() || payload.isUndefined())
        return;
    QCOMPARE(checkSchedule(listed(schedule7, payload)).code, codeOf(ResultCode::WrongType));
    QCOMPARE(pendant::checkMatching(listed(matching2, payload)).code,
             codeOf(ResultCode::WrongType));
}

void WeldParameterCheckTest::idMustBeTheKey()
{
    const QString other = QStringLiteral("LsData8");
    const Result result = checkSchedule(listed(schedule7, sampleSchedule(other)));
    QCOMPARE(result.code, codeOf(ResultCode::OutOfRange));
    QCOMPARE(result.reason, QStringLiteral("\"LsData7\", \"LsDataID\": \"LsData8\" is not the "
                                           "record's own key; accepted: \"LsData7\""));
    QCOMPARE(checkMatching(sampleMatching(QStringLiteral("PowerData3"))).code,
             codeOf(ResultCode::OutOfRange));
}

void WeldParameterCheckTest::matchingFields_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("type"); // of JSON
    QTest::newRow("id") << QStringLiteral("PowerDataID") << int(QJsonValue::String);
    QTest::newRow("power") << QStringLiteral("power_enable") << int(QJsonValue::Bool);
    QTest::newRow("frequency") << QStringLiteral("frequency_enable") << int(QJsonValue::Bool);
    QTest::newRow("duty") << QStringLiteral("dutycycle_enable") << int(QJsonValue::Bool);
    QTest::newRow("table") << QStringLiteral("power_data") << int(QJsonValue::Array);
}

void WeldParameterCheckTest::matchingFields()
{
    QFETCH(QString, key);
    QFETCH(int, type);
    QJsonObject record = sampleMatching(matching2);
    QVERIFY(checkMatching(record).isDone());
    const QVector<QJsonValue> values = everyJsonType();
    for (const QJsonValue& value : values) {
        record.insert(key, value);
        if (value.type() != type)
            QCOMPARE(checkMatching(record).code, codeOf(ResultCode::WrongType));
    }
    record.remove(key);
    QCOMPARE(checkMatching(record).code, codeOf(ResultCode::MissingKey));
    record = sampleMatching(matching2);
    record.insert(QStringLiteral("speed_enable"), true);
    QCOMPARE(checkMatching(record).code, codeOf(ResultCode::UnknownKey));
}

void WeldParameterCheckTest::matchingCells_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<double>("least");
    QTest::addColumn<double>("most");
    QTest::addColumn<QString>("unit");
    QTest::newRow("speed") << 0 << 0.0 << 1000.0 << QStringLiteral("mm/s");
    QTest::newRow("power") << 1 << 0.0 << 10000.0 << QStringLiteral("W");
    QTest::newRow("frequency") << 2 << 10.0 << 10000.0 << QStringLiteral("Hz");
    QTest::newRow("duty") << 3 << 0.0 << 100.0 << QStringLiteral("%");
}

void WeldParameterCheckTest::matchingCells()
{
    QFETCH(int, column);
    QFETCH(double, least);
    QFETCH(double, most);
    QFETCH(QString, unit);
    QVERIFY(checkMatching(matchingWith(0, column, least)).isDone());
    QVERIFY(checkMatching(matchingWith(3, column, most)).isDone());
    for (int row = 0; row < 4; ++row) {
        QCOMPARE(checkMatching(matchingWith(row, column, least - 1)).code,
                 codeOf(ResultCode::OutOfRange));
        const Result result = checkMatching(matchingWith(row, column, most + 1));
        QCOMPARE(result.code, codeOf(ResultCode::OutOfRange));
        QCOMPARE(result.reason,
                 QStringLiteral("\"PowerData2\", \"power_data[%1][%2]\": %3 is out of range; "
                                "accepted: whole number from %4 to %5 %6")
                     .arg(row)
                     .arg(column)
                     .arg(most + 1)
                     .arg(least)
                     .arg(most)
                     .arg(unit));
        const QVector<QJsonValue> values = everyJsonType();
        for (const QJsonValue& value : values) {
            const bool isWhole = value == QJsonValue(-1) || value == QJsonValue(1e300);
            QCOMPARE(checkMatching(matchingWith(row, column, value)).code,
                     codeOf(isWhole ? ResultCode::OutOfRange : ResultCode::WrongType));
        }
    }
}

void WeldParameterCheckTest::matchingLengths_data()
{
    QTest::addColumn<QJsonArray>("rows");
    QTest::addColumn<int>("code");
    const QJsonArray whole = sampleMatching(matching2).value(QLatin1String("power_data")).toArray();
    const auto row = [](const char* name, const QJsonArray& rows, ResultCode code) {
        QTest::newRow(name) << rows << codeOf(code);
    };
    row("none", {}, ResultCode::WrongCount);
    row("three", QJsonArray{whole[0], whole[1], whole[2]}, ResultCode::WrongCount);
    row("five", QJsonArray{whole[0], whole[1], whole[2], whole[3], QJsonArray{50, 500, 500, 50}},
        ResultCode::WrongCount);
    row("short row", QJsonArray{whole[0], whole[1], whole[2], QJsonArray{40, 400, 400}},
        ResultCode::WrongCount);
    row("long row", QJsonArray{whole[0], whole[1], whole[2], QJsonArray{40, 400, 400, 40, 4}},
        ResultCode::WrongCount);
    row("no row", QJsonArray{whole[0], whole[1], whole[2], 40}, ResultCode::WrongType);
}

void WeldParameterCheckTest::matchingLengths()
{
    QFETCH(QJsonArray, rows);
    QFETCH(int, code);
    QJsonObject record = sampleMatching(matching2);
    record.insert(QStringLiteral("power_data"), rows);
    QCOMPARE(checkMatching(record).code, code);
}

void WeldParameterCheckTest::risesStrictly_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("switchKey"); // empty: the column always takes part
    QTest::newRow("speed") << 0 << QString();
    QTest::newRow("power") << 1 << QStringLiteral("power_enable");
    QTest::newRow("frequency") << 2 << QStringLiteral("frequency_enable");
    QTest::newRow("duty") << 3 << QStringLiteral("dutycycle_enable");
}

void WeldParameterCheckTest::risesStrictly()
{
    QFETCH(int, column);
    QFETCH(QString, switchKey);
    const QJsonArray rows = sampleMatching(matching2).value(QLatin1String("power_data")).toArray();
    for (int row = 1; row < 4; ++row) {
        const double before = rows.at(row - 1).toArray().at(column).toDouble();
        QVERIFY(checkMatching(matchingWith(row, column, before + 1)).isDone());
        for (double number : {before, before - (column == 2 ? 0 : 1)}) {
            QJsonObject record = matchingWith(row, column, number);
            const Result result = checkMatching(record);
            QCOMPARE(result.code, codeOf(ResultCode::NotRising));
            QVERIFY2(result.reason.startsWith(
                         QStringLiteral("\"PowerData2\", \"power_data[%1][%2]\": %3 does not rise; "
                                        "accepted: more than %4 ")
                             .arg(row)
                             .arg(column)
                             .arg(number)
                             .arg(before)),
                     qPrintable(result.reason));
            if (!switchKey.isEmpty()) {
                record.insert(switchKey, false);
                QVERIFY(checkMatching(record).isDone());
            }
        }
    }
}

void WeldParameterCheckTest::firstColumnInTroubleIsTold()
{
    QJsonObject record = sampleMatching(matching2);
    record.insert(QStringLiteral("power_data"),
                  QJsonArray{QJsonArray{10, 400, 400, 40}, QJsonArray{20, 300, 300, 30},
                             QJsonArray{30, 200, 200, 20}, QJsonArray{20, 100, 100, 10}});
    QVERIFY(checkMatching(record).reason.contains(QLatin1String("power_data[3][0]")));
    for (const char* key : {"power_enable", "frequency_enable", "dutycycle_enable"})
        record.insert(QLatin1String(key), false);
    QCOMPARE(checkMatching(record).code, codeOf(ResultCode::NotRising));
}

LASERWELD_CORE_TEST_MAIN(WeldParameterCheckTest)
#include "tst_weldparametercheck.moc"
