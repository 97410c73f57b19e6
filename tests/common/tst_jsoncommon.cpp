#include "JsonCommon.h"
#include "ScriptedHost.h"
#include "TestCase.h"

#include <QJsonDocument>

namespace {

const QString NoArray = QStringLiteral("[qellaserweld][JsonCommon] getRegisterValue is not an "
                                       "array, cannot filter registers by type.");
const QString NoMetadata =
    QStringLiteral("[qellaserweld][JsonCommon] register metadata missing name/type/rw "
                   "(type/reg_type/value_type/data_type + rw/access/perm/permission/mode), cannot "
                   "filter by type and read/write.");

QJsonArray parsed(const QString& records)
{
    const QByteArray text = '[' + records.toUtf8() + ']';
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        qFatal("%s: %s", qPrintable(error.errorString()), text.constData());
    return document.array();
}

QStringList words(const QString& text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

using List = QStringList (*)();

// A register of each type and access, named after both.
QJsonArray registersOfAllKinds()
{
    const QStringList types =
        words(QStringLiteral("bool bit int8 uint8 byte int16 uint16 word short int32 uint32 dword "
                             "int int64 uint64 long float double string"));
    QJsonArray records;
    for (const QString& type : types) {
        for (const QString& access : {QStringLiteral("r"), QStringLiteral("w")}) {
            records.append(QJsonObject{{QStringLiteral("name"), type + access},
                                       {QStringLiteral("type"), type},
                                       {QStringLiteral("rw"), access}});
        }
    }
    return records;
}

} // namespace

Q_DECLARE_METATYPE(List)

class JsonCommonTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void portLists_data();
    void portLists();
    void registerLists_data();
    void registerLists();
    void numericListsAskTwice();
    void numericListsNameOnce();
    void facts_data();
    void facts();
    void faultyRecords_data();
    void faultyRecords();
    void noArray_data();
    void noArray();
    void noTypes();
    void blankTypes();
    void typesAreNormalised();
    void accesses_data();
    void accesses();
    void naturalOrder();
};

void JsonCommonTest::portLists_data()
{
    QTest::addColumn<List>("list");
    QTest::addColumn<QString>("kind");

    QTest::newRow("AI") << List(JsonCommon::aiList) << QStringLiteral("AI");
    QTest::newRow("AO") << List(JsonCommon::aoList) << QStringLiteral("AO");
    QTest::newRow("DI") << List(JsonCommon::diList) << QStringLiteral("DI");
    QTest::newRow("DO") << List(JsonCommon::doList) << QStringLiteral("DO");
    QTest::newRow("GI") << List(JsonCommon::giList) << QStringLiteral("GI");
    QTest::newRow("GO") << List(JsonCommon::goList) << QStringLiteral("GO");
}

void JsonCommonTest::portLists()
{
    QFETCH(List, list);
    QFETCH(QString, kind);
    ScriptedHost host;
    QCOMPARE(list(), QStringList());
    host.portNames[kind] = words(QStringLiteral("P10 P2 P1 P2"));

    QCOMPARE(list(), words(QStringLiteral("P1 P2 P2 P10")));
    QCOMPARE(host.lastArguments(QStringLiteral("getIOByType")), QJsonArray{kind});
}

void JsonCommonTest::registerLists_data()
{
    QTest::addColumn<List>("list");
    QTest::addColumn<QString>("types");
    QTest::addColumn<QString>("access");

    const QString bits = QStringLiteral("bit bool");
    const QString integers = QStringLiteral("byte dword int8 int16 int32 int64 int long short "
                                            "uint8 uint16 uint32 uint64 word");
    const QString numbers =
        QStringLiteral("byte double dword float int8 int16 int32 int64 int long short "
                       "uint8 uint16 uint32 uint64 word");
    const QString r = QStringLiteral("r");
    const QString w = QStringLiteral("w");
    QTest::newRow("readable bits") << List(JsonCommon::readableBitRegisters) << bits << r;
    QTest::newRow("writable bits") << List(JsonCommon::writableBitRegisters) << bits << w;
    QTest::newRow("readable integers") << List(JsonCommon::readableIntRegisters) << integers << r;
    QTest::newRow("writable integers") << List(JsonCommon::writableIntRegisters) << integers << w;
    QTest::newRow("readable numbers") << List(JsonCommon::readableNumericRegisters) << numbers << r;
    QTest::newRow("writable numbers") << List(JsonCommon::writableNumericRegisters) << numbers << w;
}

void JsonCommonTest::registerLists()
{
    QFETCH(List, list);
    QFETCH(QString, types);
    QFETCH(QString, access);
    ScriptedHost host;
    host.registerValue = registersOfAllKinds();

    QStringList expected;
    const QStringList each = words(types);
    for (const QString& type : each)
        expected << type + access;
    std::sort(expected.begin(), expected.end(), JsonCommon::naturalLess);
    QCOMPARE(list(), expected);
}

void JsonCommonTest::numericListsAskTwice()
{
    ScriptedHost host;
    host.registerValue = registersOfAllKinds();
    JsonCommon::readableBitRegisters();
    QCOMPARE(host.callNames(), QStringList{QStringLiteral("getRegisterValue")});
    JsonCommon::readableNumericRegisters();
    QCOMPARE(host.count(QStringLiteral("getRegisterValue")), 3);
    JsonCommon::writableNumericRegisters();
    QCOMPARE(host.count(QStringLiteral("getRegisterValue")), 5);
}

void JsonCommonTest::numericListsNameOnce()
{
    ScriptedHost host;
    host.registerValue = parsed(QStringLiteral(R"({"name":"R10","type":"float","rw":"r"},
                                                  {"name":"R2","type":"int","rw":"r"},
                                                  {"name":"R2","type":"float","rw":"r"})"));
    QCOMPARE(JsonCommon::readableNumericRegisters(), words(QStringLiteral("R2 R10")));
}

void JsonCommonTest::facts_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("bits");     // "r", "w" or neither
    QTest::addColumn<QString>("integers"); // likewise
    QTest::addColumn<QString>("name");

    const auto row = [](const char* record, const char* bits, const char* integers,
                        const char* name = "") {
        QTest::newRow(record) << QString::fromUtf8(record) << QString::fromUtf8(bits)
                              << QString::fromUtf8(integers) << QString::fromUtf8(name);
    };
    row(R"({"name":"R1","type":"Bool","rw":" RW "})", "w", "", "R1");
    row(R"({"reg_name":"R2","data_type":"DWORD","access":"ro"})", "", "r", "R2");
    row(R"({"name":" R 4\t","type":"\n bit ","rw":"r"})", "r", "", "R 4");
    for (const char* key : {"type", "reg_type", "value_type", "data_type"})
        row(qPrintable(
                QStringLiteral(R"({"%1":"bit","rw":"w","name":"T"})").arg(QLatin1String(key))),
            "w", "", "T");
    for (const char* key : {"rw", "access", "perm", "permission", "mode"})
        row(qPrintable(
                QStringLiteral(R"({"type":"bit","%1":"w","name":"A"})").arg(QLatin1String(key))),
            "w", "", "A");
    for (const char* key : {"name", "reg_name", "key", "id"})
        row(qPrintable(
                QStringLiteral(R"({"type":"bit","rw":"w","%1":"N"})").arg(QLatin1String(key))),
            "w", "", "N");
    // The first that is not blank counts.
    row(R"({"type":"bit","reg_type":"int","rw":"r","access":"w","name":"N","reg_name":"M"})", "r",
        "", "N");
    row(R"({"type":" ","reg_type":"int","rw":"","access":"w","name":"\t","reg_name":"M"})", "", "w",
        "M");
    row(R"({"reg_type":"bit","value_type":"int","perm":"r","mode":"w","key":"K","id":"I"})", "r",
        "", "K");
    row(R"({"value_type":"bit","data_type":"int","access":"r","perm":"w","reg_name":"M","key":"K"})",
        "r", "", "M");
    row(R"({"type":"bit","permission":"r","mode":"w","name":"N"})", "r", "", "N");
    row(R"({"type":"bit","perm":"r","permission":"w","name":"N"})", "r", "", "N");
    // What is no text reads as blank.
    row(R"({"type":1,"reg_type":"int","rw":true,"access":"w","name":null,"reg_name":"M"})", "", "w",
        "M");
    row(R"({"type":["bit"],"data_type":"bit","rw":{},"mode":"r","name":5,"id":"I"})", "r", "", "I");
    // Types and accesses that fit nothing.
    row(R"({"name":"R","type":"string","rw":"r"})", "", "");
    row(R"({"name":"R","type":"bits","rw":"r"})", "", "");
    row(R"({"name":"R","type":"bit","rw":"x"})", "", "");
}

void JsonCommonTest::facts()
{
    QFETCH(QString, record);
    QFETCH(QString, bits);
    QFETCH(QString, integers);
    QFETCH(QString, name);
    ScriptedHost host;
    host.registerValue = parsed(record);

    const auto listed = [&](bool isIn) { return isIn ? QStringList{name} : QStringList(); };
    QCOMPARE(JsonCommon::readableBitRegisters(), listed(bits == QLatin1String("r")));
    QCOMPARE(JsonCommon::writableBitRegisters(), listed(bits == QLatin1String("w")));
    QCOMPARE(JsonCommon::readableIntRegisters(), listed(integers == QLatin1String("r")));
    QCOMPARE(JsonCommon::writableIntRegisters(), listed(integers == QLatin1String("w")));
}

void JsonCommonTest::faultyRecords_data()
{
    QTest::addColumn<QString>("records");
    QTest::addColumn<bool>("isComplete");
    QTest::addColumn<QString>("names");

    const auto row = [](const char* title, const char* records, bool isComplete,
                        const char* names) {
        QTest::newRow(title) << QString::fromUtf8(records) << isComplete
                             << QString::fromUtf8(names);
    };
    row("none", "", false, "");
    row("no access", R"({"name":"R3","type":"bit"})", false, "");
    row("no access beside a complete one",
        R"({"name":"R3","type":"bit"},{"name":"F","type":"float","rw":"w"})", true, "");
    row("no access behind a complete one",
        R"({"name":"F","type":"float","rw":"w"},{"name":"R3","type":"bit"})", true, "");
    row("no name", R"({"type":"bit","rw":"r"})", false, "");
    row("no type", R"({"name":"R","rw":"r"})", false, "");
    row("number under id", R"({"type":"bit","rw":"r","id":7})", false, "");
    row("complete of another type", R"({"name":"F","type":"float","rw":"r"})", true, "");
    row("complete of another access", R"({"name":"B","type":"bit","rw":"w"})", true, "");
    row("complete with an unknown access", R"({"name":"B","type":"bit","rw":"?"})", true, "");
    row("complete behind others",
        R"({"name":"F","type":"float"},{"type":"bit","rw":"r"},{"name":"B","type":"bit","rw":"r"})",
        true, "B");
    row("no objects", R"(1,"R1",null,true,[{"name":"A","type":"bit","rw":"r"}],{},1.5)", false, "");
    row("no objects beside one", R"(1,"R1",null,{"name":"B","type":"bit","rw":"r"},[],true)", true,
        "B");
    row("twice",
        R"({"name":"R2","type":"bit","rw":"r"},{"name":"R1","type":"bit","rw":"r"},
           {"name":"R2","type":"bool","rw":"ro"})",
        true, "R1 R2");
    row("natural order",
        R"({"name":"R10","type":"bit","rw":"r"},{"name":"R9","type":"bit","rw":"r"},
           {"name":"R1","type":"bit","rw":"r"})",
        true, "R1 R9 R10");
}

void JsonCommonTest::faultyRecords()
{
    QFETCH(QString, records);
    QFETCH(bool, isComplete);
    QFETCH(QString, names);
    ScriptedHost host;
    host.registerValue = parsed(records);

    if (!isComplete)
        expectWarning(NoMetadata);
    QCOMPARE(JsonCommon::readableBitRegisters(), words(names));
}

void JsonCommonTest::noArray_data()
{
    QTest::addColumn<QJsonValue>("value");

    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("bool") << QJsonValue(true);
    QTest::newRow("number") << QJsonValue(3.5);
    QTest::newRow("text") << QJsonValue(QStringLiteral("[]"));
    QTest::newRow("object") << QJsonValue(QJsonObject{{QStringLiteral("name"), 1}});
}

void JsonCommonTest::noArray()
{
    QFETCH(QJsonValue, value);
    ScriptedHost host;
    host.registerValue = value;

    expectWarning(NoArray);
    QCOMPARE(JsonCommon::writableBitRegisters(), QStringList());
    expectWarning(NoArray);
    expectWarning(NoArray);
    QCOMPARE(JsonCommon::writableNumericRegisters(), QStringList());
}

void JsonCommonTest::noTypes()
{
    ScriptedHost host;
    host.registerValue = QJsonValue();
    QCOMPARE(JsonCommon::filterRegisters({}, QStringLiteral("r")), QStringList());
    QCOMPARE(host.callNames(), QStringList());
}

// A blank type is one like others: it stands for registers without a type.
void JsonCommonTest::blankTypes()
{
    ScriptedHost host;
    host.registerValue = parsed(QStringLiteral(R"({"name":"A","rw":"r"},{"name":"B","type":"bit",
                                                   "rw":"r"},{"rw":"r"},1)"));
    QCOMPARE(JsonCommon::filterRegisters({QStringLiteral(" ")}, QStringLiteral("r")),
             QStringList{QStringLiteral("A")});
}

void JsonCommonTest::typesAreNormalised()
{
    ScriptedHost host;
    host.registerValue = parsed(QStringLiteral(R"({"name":"A","type":"bit","rw":"Wo"},
        {"name":"B","type":" WORD","rw":"w"},{"name":"C","type":"\u212ait","rw":"w"},
        {"name":"D","type":"\u017fhort","rw":"w"})"));
    const QStringList types{QStringLiteral(" Bit\t"), QStringLiteral("wOrd"), QStringLiteral("kit"),
                            QStringLiteral("short")};
    // Lower case only: the Kelvin sign is a "k", the long "s" is no "s".
    QCOMPARE(JsonCommon::filterRegisters(types, QStringLiteral(" WRITE ")),
             words(QStringLiteral("A B C")));
    QCOMPARE(JsonCommon::filterRegisters(types, QString()), words(QStringLiteral("A B C")));
}

void JsonCommonTest::accesses_data()
{
    QTest::addColumn<QString>("filters");
    QTest::addColumn<QString>("fitting");

    QTest::newRow("read") << QStringLiteral("r|read|rd|ro| R |READ")
                          << QStringLiteral("rd|read|ro|r|readonly| RO |ReadOnly");
    QTest::newRow("write") << QStringLiteral("w|write|wr|wo|\tWr ")
                           << QStringLiteral("wr|write|w|wo|wt|rdwr|rw| RW |RdWr");
    QTest::newRow("any") << QStringLiteral("| |rw|rdwr|readonly|x|\u00e9")
                         << QStringLiteral("rd|read|ro|r|readonly| RO |ReadOnly|wr|write|w|wo|wt|"
                                           "rdwr|rw| RW |RdWr||x|read only|writeonly|rr");
}

void JsonCommonTest::accesses()
{
    QFETCH(QString, filters);
    QFETCH(QString, fitting);
    const QString all = QStringLiteral("rd|read|ro|r|readonly| RO |ReadOnly|wr|write|w|wo|wt|rdwr|"
                                       "rw| RW |RdWr||x|read only|writeonly|rr");

    const QStringList fits = fitting.split(QLatin1Char('|'));
    const QStringList eachFilter = filters.split(QLatin1Char('|'));
    const QStringList eachAccess = all.split(QLatin1Char('|'));
    for (const QString& filter : eachFilter) {
        for (const QString& access : eachAccess)
            QVERIFY2(JsonCommon::matchesAccess(access, filter) == fits.contains(access),
                     qPrintable(access + QStringLiteral(" for ") + filter));
    }
}

void JsonCommonTest::naturalOrder()
{
    QVERIFY(JsonCommon::naturalLess(QStringLiteral("DI2"), QStringLiteral("DI10")));
    QVERIFY(!JsonCommon::naturalLess(QStringLiteral("DI10"), QStringLiteral("DI2")));
    QVERIFY(JsonCommon::naturalLess(QStringLiteral("1"), QStringLiteral("A")));
}

LASERWELD_CORE_TEST_MAIN(JsonCommonTest)
#include "tst_jsoncommon.moc"
