#include "IoCell.h"
#include "RecordSchema.h"
#include "TestCase.h"
#include "WeldIoCheck.h"

#include <QJsonDocument>

using namespace pendant;

namespace {

int codeOf(ResultCode code)
{
    return static_cast<int>(code);
}

QVector<QJsonValue> jsonValues()
{
    return {
        QJsonValue(),      QJsonValue(true),
        QJsonValue(0),     QJsonValue(1.5),
        QJsonValue(1e300), QJsonValue(QStringLiteral("DO1 ")),
        QJsonArray{1, 2},  QJsonObject{{QStringLiteral("a"), 1}},
    };
}

/// What comes of a value that does not have the key's type.
ResultCode expectedOf(const QString& key, const QJsonValue& value)
{
    if (key.endsWith(QLatin1String("_port")))
        return value.isString() ? ResultCode::NoSuchPort : ResultCode::WrongType;
    if (!key.endsWith(QLatin1String("_type")) && !key.endsWith(QLatin1String("_bias")))
        return value.isBool() ? ResultCode::Done : ResultCode::WrongType;
    if (!value.isDouble() || value.toDouble() == 1.5)
        return ResultCode::WrongType;
    return value.toDouble() == 0 ? ResultCode::Done : ResultCode::OutOfRange;
}

} // namespace

class WeldIoCheckTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyKeyWithEveryType_data();
    void everyKeyWithEveryType();
    void unknownKey();
    void noObject();
    void emptyPorts_data();
    void emptyPorts();
    void switchedOffIsCheckedToo();
    void doubleUseIsThePagesBusiness();
    void firstSignalInTroubleIsTold();
    void ready_data();
    void ready();
};

void WeldIoCheckTest::everyKeyWithEveryType_data()
{
    QTest::addColumn<QString>("key");
    const QStringList keys = fullMapping().keys();
    QCOMPARE(keys.size(), 94);
    for (const QString& key : keys)
        QTest::newRow(qPrintable(key)) << key;
}

void WeldIoCheckTest::everyKeyWithEveryType()
{
    QFETCH(QString, key);
    const IoCell cell;
    const IoPoints points = cell.points();
    QJsonObject record = fullMapping();
    QCOMPARE(checkWeldIo(record, points).reason, QString());
    const QVector<QJsonValue> values = jsonValues();
    for (const QJsonValue& value : values) {
        record.insert(key, value);
        const Result result = checkWeldIo(record, points);
        QVERIFY2(result.code == codeOf(expectedOf(key, value)), qPrintable(result.reason));
        QVERIFY(result.isDone() || result.reason.startsWith(QLatin1Char('"') + key));
    }
    record.remove(key);
    QCOMPARE(checkWeldIo(record, points).code, codeOf(ResultCode::MissingKey));
}

void WeldIoCheckTest::unknownKey()
{
    const IoCell cell;
    QJsonObject record = fullMapping();
    record.insert(QStringLiteral("laser_enable_enabled"), true);
    QCOMPARE(checkWeldIo(record, cell.points()).code, codeOf(ResultCode::UnknownKey));
}

void WeldIoCheckTest::noObject()
{
    const IoCell cell;
    const QVector<QJsonValue> values = jsonValues();
    for (const QJsonValue& value : values) {
        if (!value.isObject())
            QCOMPARE(checkWeldIo(value, cell.points()).code, codeOf(ResultCode::WrongType));
    }
    QCOMPARE(checkWeldIo(QJsonValue::Undefined, cell.points()).code, codeOf(ResultCode::WrongType));
    QCOMPARE(checkWeldIo(QJsonObject(), cell.points()).code, codeOf(ResultCode::MissingKey));
}

void WeldIoCheckTest::emptyPorts_data()
{
    QTest::addColumn<QString>("key");
    for (const WeldSignal& signal : weldSignals())
        QTest::newRow(signal.key) << QString(QLatin1String(signal.key));
}

void WeldIoCheckTest::emptyPorts()
{
    QFETCH(QString, key);
    const IoCell cell;
    const WeldSignal& signal = *findWeldSignal(key);
    QJsonObject record = fullMapping();
    record.insert(signal.portKey(), QString());
    if (!signal.switchKey) {
        QVERIFY(checkWeldIo(record, cell.points()).isDone());
        return;
    }
    const Result result = checkWeldIo(record, cell.points());
    QCOMPARE(result.code, codeOf(ResultCode::NoPort));
    QCOMPARE(result.reason, QStringLiteral("\"%1_port\" is empty, but \"%1\" is switched on; "
                                           "accepted: a port or a register")
                                .arg(key));
    record.insert(QLatin1String(signal.switchKey), false);
    QVERIFY(checkWeldIo(record, cell.points()).isDone());
}

void WeldIoCheckTest::switchedOffIsCheckedToo()
{
    const IoCell cell;
    QJsonObject record = fullMapping();
    record.insert(QStringLiteral("wire_feed_enabled"), false);
    remap(record, "wire_feed", 2, "flags");
    QCOMPARE(checkWeldIo(record, cell.points()).code, codeOf(ResultCode::WrongRegister));
}

void WeldIoCheckTest::doubleUseIsThePagesBusiness()
{
    const IoCell cell;
    QJsonObject record = fullMapping();
    remap(record, "wire_feed", 0, "DO9");
    remap(record, "red_light", 0, "DO9");
    QVERIFY(checkWeldIo(record, cell.points()).isDone());
}

void WeldIoCheckTest::firstSignalInTroubleIsTold()
{
    const IoCell cell;
    QJsonObject record = fullMapping();
    remap(record, "external_alarm", 0, "DI99");
    remap(record, "red_light", 2, "bits", 4);
    const Result result = checkWeldIo(record, cell.points());
    QCOMPARE(result.code, codeOf(ResultCode::OutOfRange));
    QVERIFY(result.reason.contains(QLatin1String("red_light_bias")));
}

void WeldIoCheckTest::ready_data()
{
    QTest::addColumn<QJsonValue>("record");
    QTest::addColumn<bool>("firstPortGone");
    QTest::addColumn<int>("code");
    const auto with = [](const char* key, int type, const char* port) {
        QJsonObject record = fullMapping();
        remap(record, "laser_enable", 0, "DO1");
        remap(record, key, type, port);
        return QJsonValue(record);
    };
    const QJsonValue whole = with("gas_protect", 0, "DO2");
    QTest::newRow("whole") << whole << false << codeOf(ResultCode::Done);
    QTest::newRow("registers") << with("gas_protect", 2, "bits") << false
                               << codeOf(ResultCode::Done);
    QTest::newRow("others empty") << with("power", 0, "") << false << codeOf(ResultCode::Done);
    QTest::newRow("no gas") << with("gas_protect", 0, "") << false << codeOf(ResultCode::NoPort);
    QTest::newRow("no laser") << with("laser_enable", 2, "") << false << codeOf(ResultCode::NoPort);
    QTest::newRow("laser gone") << whole << true << codeOf(ResultCode::NoSuchPort);
    QTest::newRow("never there") << with("gas_protect", 0, "DO99") << false
                                 << codeOf(ResultCode::NoSuchPort);
    QTest::newRow("read only") << with("laser_enable", 2, "flags") << false
                               << codeOf(ResultCode::WrongRegister);
    const QVector<QJsonValue> values = jsonValues();
    for (const QJsonValue& value : values)
        QTest::newRow(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).constData())
            << value << false << codeOf(ResultCode::NoPort);
}

void WeldIoCheckTest::ready()
{
    QFETCH(QJsonValue, record);
    QFETCH(bool, firstPortGone);
    QFETCH(int, code);
    const IoCell cell;
    Faults faults;
    faults.firstPortGone = firstPortGone;
    const Result result = checkReadyToWeld(record, cell.points(faults));
    QCOMPARE(result.code, code);
    QCOMPARE(result.reason.isEmpty(), code == 0);
}

LASERWELD_CORE_TEST_MAIN(WeldIoCheckTest)
#include "tst_weldiocheck.moc"
