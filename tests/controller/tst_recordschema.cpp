#include "RecordSchema.h"
#include "TestCase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace pendant;

namespace {

struct Number
{
    const char* key;
    double least;
    double most;
    bool takesFraction;
};

const Number numbers[] = {
    {"laser_comm_type", 0, 1, false},
    {"laser_power", 0, 9999, true},
    {"feedback_delay", 0, 2000, true},
    {"pre_gas_time", 0, 2000, false},
    {"delay_off_time", 0, 2000, false},
    {"detection_delay", 0, 2000, false},
    {"manual_gas_time", 1000, 10000, false},
    {"retraction_distance", 0, 50, true},
    {"retraction_speed", 0, 100, true},
    {"detection_time", 100, 1000, false},
    {"wire_feeder_comm_type", 0, 2, false},
    {"max_feed_speed", 0, 1000, true},
    {"manual_feed_speed", 0, 500, true},
    {"manual_retract_speed", 0, 500, true},
    {"wire_feedback_detection", 0, 2000, false},
    {"laser_check_out_time", 0, 500, false},
};

const char* const switches[] = {"laser_main_enable", "feeder_enable"};

QJsonObject goodRecord()
{
    QJsonObject record;
    for (const Number& number : numbers)
        record.insert(QLatin1String(number.key), number.least);
    for (const char* key : switches)
        record.insert(QLatin1String(key), false);
    return record;
}

int codeOf(ResultCode code)
{
    return static_cast<int>(code);
}

/// A row for one value at one key.
void valueRow(const char* key, const QJsonValue& value, ResultCode code)
{
    const QByteArray name =
        QByteArray(key) + ' ' + QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    QTest::newRow(name.constData()) << QString(QLatin1String(key)) << value << codeOf(code);
}

void numberRows(const Number& number)
{
    for (double value : {number.least, number.most})
        valueRow(number.key, value, ResultCode::Done);
    for (double value : {number.least - 1, number.most + 1, 1e300, -1e300})
        valueRow(number.key, value, ResultCode::OutOfRange);
    valueRow(number.key, number.most - 0.5,
             number.takesFraction ? ResultCode::Done : ResultCode::WrongType);
    for (const QJsonValue& value : {QJsonValue(true), QJsonValue(QStringLiteral("1")), QJsonValue(),
                                    QJsonValue(QJsonArray{1}), QJsonValue(QJsonObject())})
        valueRow(number.key, value, ResultCode::WrongType);
}

void switchRows(const char* key)
{
    for (bool value : {true, false})
        valueRow(key, value, ResultCode::Done);
    for (const QJsonValue& value :
         {QJsonValue(0), QJsonValue(1), QJsonValue(QStringLiteral("true")), QJsonValue(),
          QJsonValue(QJsonArray()), QJsonValue(QJsonObject())})
        valueRow(key, value, ResultCode::WrongType);
}

} // namespace

class RecordSchemaTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void values_data();
    void values();
    void missingKeys_data();
    void missingKeys();
    void unknownKey();
    void noObject_data();
    void noObject();
    void reasons_data();
    void reasons();
    void notANumber();
};

void RecordSchemaTest::values_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<int>("code");
    for (const Number& number : numbers)
        numberRows(number);
    for (const char* key : switches)
        switchRows(key);
}

void RecordSchemaTest::values()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    QFETCH(int, code);
    QJsonObject record = goodRecord();
    record.insert(key, value);
    const Result result = weldSettingSchema().check(record);
    QCOMPARE(result.code, code);
    QCOMPARE(result.reason.contains(key), code != 0);
}

void RecordSchemaTest::missingKeys_data()
{
    QTest::addColumn<QString>("key");
    const QStringList keys = goodRecord().keys();
    QCOMPARE(keys.size(), 18);
    for (const QString& key : keys)
        QTest::newRow(qPrintable(key)) << key;
}

void RecordSchemaTest::missingKeys()
{
    QFETCH(QString, key);
    QJsonObject record = goodRecord();
    record.remove(key);
    const Result result = weldSettingSchema().check(record);
    QCOMPARE(result.code, codeOf(ResultCode::MissingKey));
    QVERIFY(result.reason.contains(QLatin1Char('"') + key + QLatin1Char('"')));
}

void RecordSchemaTest::unknownKey()
{
    QJsonObject record = goodRecord();
    record.insert(QStringLiteral("laser_colour"), 1);
    const Result result = weldSettingSchema().check(record);
    QCOMPARE(result.code, codeOf(ResultCode::UnknownKey));
    QVERIFY(result.reason.contains(QStringLiteral("\"laser_colour\": 1")));
}

void RecordSchemaTest::noObject_data()
{
    QTest::addColumn<QJsonValue>("record");
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("bool") << QJsonValue(true);
    QTest::newRow("number") << QJsonValue(1);
    QTest::newRow("text") << QJsonValue(QStringLiteral("{}"));
    QTest::newRow("array") << QJsonValue(QJsonArray{goodRecord()});
}

void RecordSchemaTest::noObject()
{
    QFETCH(QJsonValue, record);
    QCOMPARE(weldSettingSchema().check(record).code, codeOf(ResultCode::WrongType));
}

void RecordSchemaTest::reasons_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<QString>("reason");
    QTest::newRow("range") << QStringLiteral("laser_power") << QJsonValue(10000)
                           << QStringLiteral("\"laser_power\": 10000 is out of range; accepted: "
                                             "number from 0 to 9999 W");
    QTest::newRow("type") << QStringLiteral("pre_gas_time") << QJsonValue(300.5)
                          << QStringLiteral("\"pre_gas_time\": 300.5 has the wrong type; accepted: "
                                            "whole number from 0 to 2000 ms");
    QTest::newRow("no unit") << QStringLiteral("laser_comm_type") << QJsonValue(2)
                             << QStringLiteral("\"laser_comm_type\": 2 is out of range; accepted: "
                                               "whole number from 0 to 1");
    QTest::newRow("switch") << QStringLiteral("feeder_enable") << QJsonValue(QStringLiteral("%2"))
                            << QStringLiteral("\"feeder_enable\": \"%2\" has the wrong type; "
                                              "accepted: true or false");
    QTest::newRow("long") << QStringLiteral("feeder_enable")
                          << QJsonValue(QString(1000, QLatin1Char('x')))
                          << QStringLiteral("\"feeder_enable\": \"%1... has the wrong type; "
                                            "accepted: true or false")
                                 .arg(QString(59, QLatin1Char('x')));
}

void RecordSchemaTest::reasons()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    QFETCH(QString, reason);
    QJsonObject record = goodRecord();
    record.insert(key, value);
    QCOMPARE(weldSettingSchema().check(record).reason, reason);
}

void RecordSchemaTest::notANumber()
{
    QJsonObject record = goodRecord();
    for (double value : {qQNaN(), qInf(), -qInf()}) {
        record.insert(QStringLiteral("laser_power"), value);
        QVERIFY(!weldSettingSchema().check(record).isDone());
    }
}

LASERWELD_CORE_TEST_MAIN(RecordSchemaTest)
#include "tst_recordschema.moc"
