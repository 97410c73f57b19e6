#include "WeldioTest.h"

#include <QJsonDocument>
#include <QSignalSpy>

#include <cmath>
#include <limits>

using namespace WeldioTest;

namespace {

enum class Field { Type, Port, Bias, Switch };

/// One key of the record.
struct Key
{
    QString name;
    const Signal* signal;
    Field field;
};

QVector<Key> keys()
{
    QVector<Key> all;
    for (const Signal& signal : Signals) {
        const QString key = text(signal.key);
        all << Key{key + "_type"_s, &signal, Field::Type}
            << Key{key + "_port"_s, &signal, Field::Port}
            << Key{key + "_bias"_s, &signal, Field::Bias};
        if (signal.enabledKey)
            all << Key{text(signal.enabledKey), &signal, Field::Switch};
    }
    return all;
}

QVector<QJsonValue> valuesOfAllTypes()
{
    return {QJsonValue(QJsonValue::Undefined), // the key is missing
            QJsonValue(),
            true,
            false,
            0,
            1,
            2,
            3,
            -1,
            std::numeric_limits<int>::max(),
            std::numeric_limits<int>::min(),
            1.5,
            2.5,
            -0.5,
            1e18,
            -1e300,
            QString(),
            "2"_s,
            "true"_s,
            "gone"_s,
            QJsonArray(),
            QJsonArray{2},
            QJsonObject(),
            QJsonObject{{"return"_s, 2}}};
}

/// What an integral number within an int reads as, and 0 for anything else.
int integer(const QJsonValue& value)
{
    const double number = value.toDouble();
    const bool fits =
        number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
    return fits && number == std::trunc(number) ? int(number) : 0;
}

QJsonObject withType(QJsonObject record, const Key& key, const QJsonValue& value)
{
    const QString stem = text(key.signal->key);
    const int type = integer(value);
    if (type == 2)
        return record;
    const bool isAnalogue = !key.signal->digital;
    const bool isKind = type == 0 || (isAnalogue && type == 1);
    record.insert(key.name, isKind ? type : isAnalogue ? -1 : 0);
    record.insert(stem + "_bias"_s, 0);
    // Without a kind the registers are on offer, of which one is shown.
    if (isKind || !isAnalogue)
        record.insert(stem + "_port"_s, QString());
    return record;
}

// A port that is not on offer leaves the one that is shown.
QJsonObject withPort(QJsonObject record, const Key& key, const QJsonValue& value)
{
    if (value.isString() && !value.toString().isEmpty())
        return record;
    record.insert(key.name, QString());
    record.insert(text(key.signal->key) + "_bias"_s, 0);
    return record;
}

/// Places are 1 to 4. A number below 0 leaves the one that is shown, the third.
int placeOf(const QJsonValue& value)
{
    const int bias = integer(value);
    return bias < 0 ? 2 : std::min(bias, 3);
}

/// What the page is to make of a value at one key, with all else from registerRecordOfAll().
QJsonObject outcome(const Key& key, const QJsonValue& value)
{
    QJsonObject record = registerRecordOfAll();
    switch (key.field) {
    case Field::Type:
        return withType(record, key, value);
    case Field::Port:
        return withPort(record, key, value);
    case Field::Bias:
        record.insert(key.name, placeOf(value));
        return record;
    case Field::Switch:
        record.insert(key.name, value.isBool() && value.toBool());
        return record;
    }
    return record;
}

QString jsonText(const QJsonValue& value)
{
    const QJsonDocument document(QJsonArray{value});
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

QString differences(const QJsonObject& actual, const QJsonObject& expected)
{
    QStringList lines;
    QStringList all = actual.keys() + expected.keys();
    all.removeDuplicates();
    for (const QString& key : std::as_const(all)) {
        if (actual.value(key) != expected.value(key))
            lines << QStringLiteral("%1 is %2").arg(key, jsonText(actual.value(key)));
    }
    return lines.join(QLatin1Char(' '));
}

} // namespace

class TestWeldioRecord : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void recordHasItsKeys();
    void formOfNothing();
    void saveCommandHoldsTheRecord();
    void loadedRecordIsSavedAgain_data();
    void loadedRecordIsSavedAgain();
    void everyKeyTakesEveryType_data();
    void everyKeyTakesEveryType();
    void nothingButAnObjectIsLoaded_data();
    void nothingButAnObjectIsLoaded();
    void emptyRecordClearsAll();

    void typeIsLoaded_data();
    void typeIsLoaded();
    void portIsLoaded_data();
    void portIsLoaded();
    void biasIsLoaded_data();
    void biasIsLoaded();
    void switchIsLoaded_data();
    void switchIsLoaded();
    void unknownRegisterHasOnePlace();
    void loadEmitsNothing();
    void loadAsksEachSourceOnce();
    void loadKeepsTheEnabledStates();
};

void TestWeldioRecord::cleanup()
{
    RegisterLengths::read(QJsonArray());
    TestCase::cleanup();
}

void TestWeldioRecord::recordHasItsKeys()
{
    const PageOnCell t;
    QStringList expected;
    const auto all = keys();
    for (const Key& key : all)
        expected << key.name;
    QCOMPARE(expected.size(), 94);
    expected.sort();
    QCOMPARE(t.form().keys(), expected);
}

void TestWeldioRecord::formOfNothing()
{
    const PageOnCell t;
    QCOMPARE(t.form(), with(plainRecord(), {{"laser_enable_port"_s, QString()},
                                            {"gas_protect_port"_s, QString()}}));
}

void TestWeldioRecord::saveCommandHoldsTheRecord()
{
    const PageOnCell t;
    t.page->loadConfig(plainRecord());
    const QJsonObject expected{{"set_weld_io_config"_s, plainRecord()}};
    QCOMPARE(t.page->toSaveCommand(), expected);
}

void TestWeldioRecord::loadedRecordIsSavedAgain_data()
{
    QTest::addColumn<QJsonObject>("record");
    QTest::newRow("plain") << plainRecord();
    QTest::newRow("registers") << registerRecordOfAll();
    QJsonObject seconds = plainRecord();
    for (const char* key : {"power", "frequency", "duty_cycle", "wire_speed"})
        seconds.insert(text(key) + "_type"_s, 1);
    QTest::newRow("second kinds") << with(seconds, {{"power_port"_s, "GO10"_s},
                                                    {"power_feedback_type"_s, 1},
                                                    {"power_feedback_port"_s, "GI2"_s},
                                                    {"adhesion_detection_enabled"_s, true}});
}

void TestWeldioRecord::loadedRecordIsSavedAgain()
{
    QFETCH(QJsonObject, record);
    const PageOnCell t;
    RegisterLengths::read(cellRegisters());
    t.page->loadConfig(record);
    QCOMPARE(differences(t.form(), record), QString());
    QCOMPARE(t.form(), record);
}

void TestWeldioRecord::everyKeyTakesEveryType_data()
{
    QTest::addColumn<int>("index");
    const QVector<Key> all = keys();
    for (int index = 0; index < all.size(); ++index)
        QTest::newRow(qPrintable(all.at(index).name)) << index;
}

void TestWeldioRecord::everyKeyTakesEveryType()
{
    QFETCH(int, index);
    const Key key = keys().at(index);
    const PageOnCell t;
    RegisterLengths::read(cellRegisters());
    const QVector<QJsonValue> values = valuesOfAllTypes();
    for (const QJsonValue& value : values) {
        t.page->loadConfig(registerRecordOfAll());
        QCOMPARE(t.form(), registerRecordOfAll());
        QJsonObject record = registerRecordOfAll();
        record.insert(key.name, value); // undefined removes the key
        t.page->loadConfig(record);
        const QString wrong = differences(t.form(), outcome(key, value));
        QVERIFY2(wrong.isEmpty(), qPrintable(jsonText(value) + ": "_s + wrong));
        QCOMPARE(t.form().size(), 94);
    }
}

void TestWeldioRecord::nothingButAnObjectIsLoaded_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("bool") << QJsonValue(true);
    QTest::newRow("number") << QJsonValue(1);
    QTest::newRow("text") << QJsonValue("{}"_s);
    QTest::newRow("array") << QJsonValue(QJsonArray{plainRecord()});
}

void TestWeldioRecord::nothingButAnObjectIsLoaded()
{
    QFETCH(QJsonValue, value);
    PageOnCell t;
    RegisterLengths::read(cellRegisters());
    t.page->loadConfig(registerRecordOfAll());
    t.host.forgetCalls();
    t.page->loadConfig(value);
    QCOMPARE(t.form(), registerRecordOfAll());
    QCOMPARE(t.asked(), QStringList());
}

void TestWeldioRecord::emptyRecordClearsAll()
{
    const PageOnCell t;
    RegisterLengths::read(cellRegisters());
    t.page->loadConfig(registerRecordOfAll());
    t.page->loadConfig(QJsonObject());
    QCOMPARE(t.form(), with(plainRecord(), {{"laser_enable_port"_s, QString()},
                                            {"gas_protect_port"_s, QString()}}));
}

void TestWeldioRecord::typeIsLoaded_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("saved");
    QTest::newRow("three kinds, 0") << "power" << 0 << "AO" << 0;
    QTest::newRow("three kinds, 1") << "power" << 1 << "GO" << 1;
    QTest::newRow("three kinds, 2") << "power" << 2 << "REG" << 2;
    QTest::newRow("three kinds, 3") << "power" << 3 << "" << -1;
    QTest::newRow("two kinds, 0") << "red_light" << 0 << "DO" << 0;
    QTest::newRow("two kinds, 1") << "red_light" << 1 << "DO" << 0;
    QTest::newRow("two kinds, 2") << "red_light" << 2 << "REG" << 2;
    QTest::newRow("two kinds, 3") << "red_light" << 3 << "DO" << 0;
    QTest::newRow("group, 1") << "swing_job" << 1 << "GO" << 0;
    QTest::newRow("group, 2") << "swing_job" << 2 << "REG" << 2;
    QTest::newRow("input, 1") << "power_feedback" << 1 << "GI" << 1;
    QTest::newRow("digital input, 1") << "laser_alarm" << 1 << "DI" << 0;
    QTest::newRow("digital input, 2") << "laser_alarm" << 2 << "REG" << 2;
}

void TestWeldioRecord::typeIsLoaded()
{
    QFETCH(QString, key);
    QFETCH(int, type);
    QFETCH(int, saved);
    const PageOnCell t;
    t.page->loadConfig(QJsonObject{{key + "_type"_s, type}});
    QTEST(t.type(key)->currentText(), "item");
    QCOMPARE(t.form().value(key + "_type"_s), QJsonValue(saved));
}

void TestWeldioRecord::portIsLoaded_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("loaded");
    QTest::addColumn<QString>("after");
    QTest::newRow("known") << ""
                           << "DO10"
                           << "DO10";
    QTest::newRow("another") << "DO1"
                             << "DO10"
                             << "DO10";
    QTest::newRow("none") << "DO1"
                          << ""
                          << "";
    QTest::newRow("vanished") << ""
                              << "DO7"
                              << "";
    QTest::newRow("vanished, another shown") << "DO1"
                                             << "DO7"
                                             << "DO1";
    QTest::newRow("other case") << ""
                                << "do1"
                                << "";
    QTest::newRow("with a blank") << ""
                                  << " DO1"
                                  << "";
}

void TestWeldioRecord::portIsLoaded()
{
    QFETCH(QString, before);
    QFETCH(QString, loaded);
    const PageOnCell t;
    t.page->loadConfig(QJsonObject{{"red_light_port"_s, before}});
    t.page->loadConfig(QJsonObject{{"red_light_port"_s, loaded}});
    QTEST(t.port("red_light"_s)->currentText(), "after");
    QCOMPARE(itemTexts(t.port("red_light"_s)), offered("DO"));
}

void TestWeldioRecord::biasIsLoaded_data()
{
    QTest::addColumn<QString>("port");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("bias");
    QTest::addColumn<int>("places");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("saved");
    QTest::newRow("inside") << "WN1" << 2 << 2 << 4 << "3" << 2;
    QTest::newRow("first") << "WN1" << 2 << 0 << 4 << "1" << 0;
    QTest::newRow("3 on 2 places") << "WI2" << 2 << 3 << 2 << "2" << 1;
    QTest::newRow("below") << "WN1" << 2 << -1 << 4 << "1" << 0;
    QTest::newRow("no port") << "" << 2 << 2 << 1 << "1" << 0;
    QTest::newRow("no register") << "AO1" << 0 << 3 << 1 << "1" << 0;
}

void TestWeldioRecord::biasIsLoaded()
{
    QFETCH(QString, port);
    QFETCH(int, type);
    QFETCH(int, bias);
    QFETCH(int, saved);
    const PageOnCell t;
    RegisterLengths::read(cellRegisters());
    t.page->loadConfig(
        QJsonObject{{"power_type"_s, type}, {"power_port"_s, port}, {"power_bias"_s, bias}});
    const QComboBox* box = t.bias("power"_s);
    QTEST(box->count(), "places");
    QTEST(box->currentText(), "shown");
    QCOMPARE(!box->isHidden(), type == 2 && !port.isEmpty());
    QCOMPARE(t.form().value("power_bias"_s), QJsonValue(saved));
}

void TestWeldioRecord::switchIsLoaded_data()
{
    QTest::addColumn<QString>("key");
    for (const Signal& signal : Signals) {
        if (signal.enabledKey)
            QTest::newRow(signal.enabledKey) << text(signal.key);
    }
}

void TestWeldioRecord::switchIsLoaded()
{
    QFETCH(QString, key);
    const PageOnCell t;
    const QString enabledKey = text(QTest::currentDataTag());
    for (const bool isOn : {true, false}) {
        const QSignalSpy pressed(t.onSwitch(key), &EnableButton::enabled);
        t.page->loadConfig(QJsonObject{{enabledKey, isOn}});
        QCOMPARE(t.onSwitch(key)->isChecked(), isOn);
        QCOMPARE(t.form().value(enabledKey), QJsonValue(isOn));
        QVERIFY(pressed.isEmpty());
    }
}

void TestWeldioRecord::unknownRegisterHasOnePlace()
{
    const PageOnCell t;
    t.page->loadConfig(registerRecordOfAll());
    for (const Signal& signal : Signals) {
        const QComboBox* box = t.bias(text(signal.key));
        QCOMPARE(itemTexts(box), QStringList{"1"_s});
        QVERIFY(!box->isHidden());
    }
}

void TestWeldioRecord::loadEmitsNothing()
{
    const PageOnCell t;
    RegisterLengths::read(cellRegisters());
    t.page->loadConfig(plainRecord());
    int count = 0;
    const auto boxes = t.page->findChildren<QComboBox*>();
    for (const QComboBox* box : boxes) {
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), box,
                [&count] { ++count; }); // clazy:exclude=lambda-in-connect
        connect(box, &QComboBox::currentTextChanged, box,
                [&count] { ++count; }); // clazy:exclude=lambda-in-connect
    }
    t.page->loadConfig(registerRecordOfAll());
    QCOMPARE(count, 0);
    t.type("power"_s)->setCurrentIndex(0); // and no longer
    QVERIFY(count > 0);
}

void TestWeldioRecord::loadAsksEachSourceOnce()
{
    PageOnCell t;
    t.page->loadConfig(registerRecordOfAll());
    QStringList expected;
    for (const Signal& signal : Signals) {
        const Kind kind = kinds(signal.typeCode).constLast();
        for (int time = 0; time < kind.times; ++time)
            expected << text(kind.call);
    }
    QCOMPARE(t.asked(), expected);
}

// The row's own state is not for the load to set.
void TestWeldioRecord::loadKeepsTheEnabledStates()
{
    const PageOnCell t;
    t.page->loadConfig(plainRecord());
    t.press("power"_s);
    t.press("power"_s);
    QVERIFY(!t.port("power"_s)->isEnabled());
    t.page->loadConfig(registerRecordOfAll());
    QVERIFY(!t.port("power"_s)->isEnabled());
    QVERIFY(t.onSwitch("power"_s)->isChecked());
}

LASERWELD_TEST_MAIN(TestWeldioRecord)
#include "tst_weldiorecord.moc"
