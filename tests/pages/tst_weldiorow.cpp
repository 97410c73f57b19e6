#include "BoxModels.h"
#include "WeldioRow.h"
#include "WeldioTest.h"

#include <QSignalSpy>
#include <QStringListModel>

#include <limits>

using namespace WeldioTest;

namespace {

QStringList twoKinds()
{
    return {"DO"_s, "REG"_s};
}

QStringList threeKinds()
{
    return {"AO"_s, "GO"_s, "REG"_s};
}

/// A row with boxes of its own.
struct RowOnWidgets
{
    explicit RowOnWidgets(const QStringList& typeItems)
    {
        type.addItems(typeItems);
        bias.setModel(new NumberListModel(&bias));
        row.typeBox = &type;
        row.portBox = &port;
        row.biasBox = &bias;
        row.enableSwitch = &onSwitch;
        row.nameLabel = &label;
        row.digital = typeItems.size() == 2;
        row.hasSwitch = true;
        bias.hide();
    }
    /// Selects the register kind and a port.
    void select(const QString& portName)
    {
        type.setCurrentIndex(type.count() - 1);
        port.clear();
        port.addItem(portName);
    }

    QWidget page;
    QComboBox type{&page}, port{&page}, bias{&page};
    EnableButton onSwitch{&page};
    QLabel label{&page};
    WeldioRow row;
};

QJsonArray oneRegister(const char* name, const QJsonValue& length)
{
    return {QJsonObject{{"name"_s, text(name)}, {"len"_s, length}}};
}

} // namespace

class TestWeldioRow : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void recordType_data();
    void recordType();
    void typeIsSelected_data();
    void typeIsSelected();
    void needsAndUses_data();
    void needsAndUses();
    void portsAreAskedForTheKind();
    void emptyRowIsPassedOver();

    void biasIsOffered_data();
    void biasIsOffered();
    void biasKeepsItsNumber_data();
    void biasKeepsItsNumber();
    void biasIsRecorded_data();
    void biasIsRecorded();
    void biasOfBlankPortIsHidden();
    void biasNameIsTrimmed();
    void biasEmitsNothing();
    void reselectKeepsTheItem();

    void freed_data();
    void freed();
    void freedWithoutSwitch_data();
    void freedWithoutSwitch();

    void lengths_data();
    void lengths();
    void lengthsAreForgotten_data();
    void lengthsAreForgotten();
    void lastOfOneNameCounts();
    void namelessHaveNoLength();
    void hugeLengthIsConfined();
};

void TestWeldioRow::cleanup()
{
    RegisterLengths::read(QJsonArray());
    TestCase::cleanup();
}

void TestWeldioRow::recordType_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("isRegister");
    QTest::newRow("AO") << threeKinds() << 0 << 0 << false;
    QTest::newRow("GO") << threeKinds() << 1 << 1 << false;
    QTest::newRow("REG of three") << threeKinds() << 2 << 2 << true;
    QTest::newRow("none of three") << threeKinds() << -1 << -1 << false;
    QTest::newRow("DO") << twoKinds() << 0 << 0 << false;
    QTest::newRow("REG of two") << twoKinds() << 1 << 2 << true;
    QTest::newRow("none of two") << twoKinds() << -1 << 0 << false;
}

void TestWeldioRow::recordType()
{
    QFETCH(QStringList, items);
    QFETCH(int, index);
    RowOnWidgets t(items);
    t.type.setCurrentIndex(index);
    QTEST(t.row.recordType(), "type");
    QTEST(t.row.isRegister(), "isRegister");
}

void TestWeldioRow::typeIsSelected_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");
    QTest::newRow("three, 0") << threeKinds() << 0 << 0;
    QTest::newRow("three, 1") << threeKinds() << 1 << 1;
    QTest::newRow("three, 2") << threeKinds() << 2 << 2;
    QTest::newRow("three, 3") << threeKinds() << 3 << -1;
    QTest::newRow("three, -5") << threeKinds() << -5 << -1;
    QTest::newRow("two, 0") << twoKinds() << 0 << 0;
    QTest::newRow("two, 1") << twoKinds() << 1 << 0;
    QTest::newRow("two, 2") << twoKinds() << 2 << 1;
    QTest::newRow("two, 3") << twoKinds() << 3 << 0;
    QTest::newRow("two, -1") << twoKinds() << -1 << 0;
}

void TestWeldioRow::typeIsSelected()
{
    QFETCH(QStringList, items);
    QFETCH(int, type);
    RowOnWidgets t(items);
    t.type.setCurrentIndex(1);
    t.row.selectRecordType(type);
    QTEST(t.type.currentIndex(), "index");
}

void TestWeldioRow::needsAndUses_data()
{
    QTest::addColumn<bool>("hasSwitch");
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<bool>("required");
    QTest::addColumn<bool>("counted");
    QTest::addColumn<bool>("needs");
    QTest::addColumn<bool>("uses");
    for (int bits = 0; bits < 16; ++bits) {
        const bool hasSwitch = bits & 1, isOn = bits & 2, required = bits & 4, counted = bits & 8;
        const bool isSwitchedOn = hasSwitch && isOn;
        QTest::addRow("%d", bits) << hasSwitch << isOn << required << counted
                                  << (required || isSwitchedOn) << (counted || isSwitchedOn);
    }
}

void TestWeldioRow::needsAndUses()
{
    QFETCH(bool, hasSwitch);
    QFETCH(bool, isOn);
    QFETCH(bool, required);
    QFETCH(bool, counted);
    RowOnWidgets t(twoKinds());
    t.row.hasSwitch = hasSwitch;
    t.row.portRequired = required;
    t.row.portCounted = counted;
    t.onSwitch.setChecked(isOn);
    QTEST(t.row.needsPort(), "needs");
    QTEST(t.row.usesPort(), "uses");
    t.row.portBox = nullptr;
    QVERIFY(!t.row.needsPort());
    QVERIFY(!t.row.usesPort());
}

void TestWeldioRow::portsAreAskedForTheKind()
{
    RowOnWidgets t(threeKinds());
    QVERIFY(t.row.offeredPorts().isEmpty());
    t.row.portSource = [](int index) { return QStringList{QString::number(index)}; };
    for (const int index : {0, 1, 2, -1}) {
        t.type.setCurrentIndex(index);
        QCOMPARE(t.row.offeredPorts(), QStringList{QString::number(index)});
    }
}

void TestWeldioRow::emptyRowIsPassedOver()
{
    WeldioRow row;
    row.portRequired = true;
    row.hasSwitch = true;
    row.selectRecordType(2);
    row.updateBias(1);
    row.reselectBias();
    row.applyEditable(true);
    row.setBoxesEnabled(false);
    QCOMPARE(row.recordType(), 0);
    QCOMPARE(row.recordBias(), 0);
    QCOMPARE(row.portText(), QString());
    QVERIFY(row.offeredPorts().isEmpty());
    QVERIFY(!row.isRegister() && !row.needsPort() && !row.usesPort() && !row.isSwitchedOn());
}

void TestWeldioRow::biasIsOffered_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("preferred");
    QTest::addColumn<QString>("shown");
    QTest::newRow("first") << 4 << 1 << "1";
    QTest::newRow("inside") << 4 << 3 << "3";
    QTest::newRow("last") << 4 << 4 << "4";
    QTest::newRow("beyond") << 2 << 4 << "2";
    QTest::newRow("largest") << 2 << std::numeric_limits<int>::max() << "2";
    QTest::newRow("one place") << 1 << 1 << "1";
    QTest::newRow("more digits") << 120 << 101 << "101";
}

// Also a register of one place shows its box.
void TestWeldioRow::biasIsOffered()
{
    QFETCH(int, length);
    QFETCH(int, preferred);
    RegisterLengths::read(oneRegister("R", length));
    for (const QStringList& items : {twoKinds(), threeKinds()}) {
        RowOnWidgets t(items);
        t.select("R"_s);
        t.row.updateBias(preferred);
        QStringList numbers;
        for (int number = 1; number <= length; ++number)
            numbers << QString::number(number);
        QCOMPARE(itemTexts(&t.bias), numbers);
        QTEST(t.bias.currentText(), "shown");
        QVERIFY(!t.bias.isHidden());
    }
}

void TestWeldioRow::biasKeepsItsNumber_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("preferred");
    QTest::addColumn<QString>("shown");
    QTest::newRow("kept") << 3 << 0 << "3";
    QTest::newRow("kept, below 0") << 3 << -2 << "3";
    QTest::newRow("kept, smallest") << 3 << std::numeric_limits<int>::min() << "3";
    QTest::newRow("replaced") << 3 << 2 << "2";
}

void TestWeldioRow::biasKeepsItsNumber()
{
    QFETCH(int, before);
    QFETCH(int, preferred);
    RegisterLengths::read(oneRegister("R", 4));
    RowOnWidgets t(twoKinds());
    t.select("R"_s);
    t.row.updateBias(before);
    t.row.updateBias(preferred);
    QTEST(t.bias.currentText(), "shown");
}

void TestWeldioRow::biasIsRecorded_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("bias");
    QTest::newRow("AO") << threeKinds() << 0 << 0;
    QTest::newRow("GO") << threeKinds() << 1 << 0;
    QTest::newRow("REG of three") << threeKinds() << 2 << 2;
    QTest::newRow("none of three") << threeKinds() << -1 << 0;
    QTest::newRow("DO") << twoKinds() << 0 << 0;
    QTest::newRow("REG of two") << twoKinds() << 1 << 2;
}

// What the box shows does not count without a register.
void TestWeldioRow::biasIsRecorded()
{
    QFETCH(QStringList, items);
    QFETCH(int, index);
    RegisterLengths::read(oneRegister("R", 4));
    RowOnWidgets t(items);
    t.select("R"_s);
    t.row.updateBias(3);
    t.type.setCurrentIndex(index);
    QTEST(t.row.recordBias(), "bias");
    t.bias.setCurrentIndex(-1);
    QCOMPARE(t.row.recordBias(), 0);
}

void TestWeldioRow::biasOfBlankPortIsHidden()
{
    RegisterLengths::read(oneRegister("R", 4));
    RowOnWidgets t(threeKinds());
    t.select("R"_s);
    t.row.updateBias(3);
    QVERIFY(!t.bias.isHidden());
    for (const char* port : {"", "  "}) {
        t.select(text(port));
        t.row.updateBias(3);
        QVERIFY(t.bias.isHidden());
        QCOMPARE(itemTexts(&t.bias), QStringList{"1"_s});
        QCOMPARE(t.bias.currentText(), "1"_s);
    }
}

// Only the port's text is trimmed, not the register's name.
void TestWeldioRow::biasNameIsTrimmed()
{
    RegisterLengths::read(oneRegister("R", 4));
    RowOnWidgets t(threeKinds());
    t.select(" R "_s);
    t.row.updateBias(1);
    QCOMPARE(t.bias.count(), 4);
    RegisterLengths::read(oneRegister(" R ", 4));
    t.row.updateBias(1);
    QCOMPARE(t.bias.count(), 1);
}

void TestWeldioRow::biasEmitsNothing()
{
    RegisterLengths::read(oneRegister("R", 4));
    RowOnWidgets t(twoKinds());
    const QSignalSpy changed(&t.bias, QOverload<int>::of(&QComboBox::currentIndexChanged));
    const QSignalSpy shown(&t.bias, &QComboBox::currentTextChanged);
    t.select("R"_s);
    t.row.updateBias(3);
    t.row.reselectBias();
    t.select(QString());
    t.row.updateBias(2);
    QVERIFY(changed.isEmpty());
    QVERIFY(shown.isEmpty());
    t.bias.setCurrentIndex(-1);
    QCOMPARE(changed.count(), 1); // no blocker is left
}

void TestWeldioRow::reselectKeepsTheItem()
{
    QComboBox box;
    box.addItems(twoKinds());
    box.setCurrentIndex(1);
    const QSignalSpy changed(&box, QOverload<int>::of(&QComboBox::currentIndexChanged));
    WeldioRow::reselect(&box);
    QCOMPARE(box.currentIndex(), 1);
    box.setCurrentIndex(-1);
    WeldioRow::reselect(&box);
    QCOMPARE(box.currentIndex(), -1);
    QCOMPARE(changed.count(), 1);
    WeldioRow::reselect(nullptr);
}

void TestWeldioRow::freed_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<bool>("boxes");
    QTest::addColumn<bool>("label");
    QTest::newRow("editable, on") << true << true << true << true;
    QTest::newRow("editable, off") << true << false << false << false;
    QTest::newRow("locked, on") << false << true << false << true;
    QTest::newRow("locked, off") << false << false << false << true;
}

void TestWeldioRow::freed()
{
    QFETCH(bool, editable);
    QFETCH(bool, isOn);
    RowOnWidgets t(twoKinds());
    t.onSwitch.setChecked(isOn);
    t.row.applyEditable(editable);
    for (const QComboBox* box : {&t.type, &t.port, &t.bias})
        QTEST(box->isEnabled(), "boxes");
    QTEST(t.label.isEnabled(), "label");
    QCOMPARE(t.onSwitch.isEnabled(), editable);
}

void TestWeldioRow::freedWithoutSwitch_data()
{
    QTest::addColumn<bool>("editable");
    QTest::newRow("editable") << true;
    QTest::newRow("locked") << false;
}

void TestWeldioRow::freedWithoutSwitch()
{
    QFETCH(bool, editable);
    RowOnWidgets t(twoKinds());
    t.row.hasSwitch = false;
    t.row.enableSwitch = nullptr;
    t.row.setBoxesEnabled(!editable);
    t.label.setEnabled(false);
    t.row.applyEditable(editable);
    for (const QComboBox* box : {&t.type, &t.port, &t.bias})
        QCOMPARE(box->isEnabled(), editable);
    QVERIFY(t.label.isEnabled());
}

void TestWeldioRow::lengths_data()
{
    QTest::addColumn<QJsonValue>("length");
    QTest::addColumn<int>("places");
    QTest::newRow("null") << QJsonValue() << 1;
    QTest::newRow("true") << QJsonValue(true) << 1;
    QTest::newRow("number") << QJsonValue(7) << 7;
    QTest::newRow("one") << QJsonValue(1) << 1;
    QTest::newRow("zero") << QJsonValue(0) << 1;
    QTest::newRow("negative") << QJsonValue(-3) << 1;
    QTest::newRow("fraction") << QJsonValue(2.5) << 1;
    QTest::newRow("huge") << QJsonValue(1e18) << 1;
    QTest::newRow("text") << QJsonValue("4"_s) << 1;
    QTest::newRow("array") << QJsonValue(QJsonArray{4}) << 1;
    QTest::newRow("object") << QJsonValue(QJsonObject{{"len"_s, 4}}) << 1;
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined) << 1;
}

void TestWeldioRow::lengths()
{
    QFETCH(QJsonValue, length);
    RegisterLengths::read(oneRegister("R", length));
    QTEST(RegisterLengths::of("R"_s), "places");
    QCOMPARE(RegisterLengths::of("r"_s), 1);
}

void TestWeldioRow::lengthsAreForgotten_data()
{
    QTest::addColumn<QJsonValue>("registers");
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("bool") << QJsonValue(true);
    QTest::newRow("number") << QJsonValue(4);
    QTest::newRow("text") << QJsonValue("R"_s);
    QTest::newRow("object") << QJsonValue(QJsonObject{{"name"_s, "R"_s}, {"len"_s, 4}});
    QTest::newRow("empty array") << QJsonValue(QJsonArray());
    QTest::newRow("others") << QJsonValue(oneRegister("Q", 4));
    QTest::newRow("no records") << QJsonValue(
        QJsonArray{QJsonValue(), true, 4, "R"_s, QJsonArray{"R"_s, 4}, QJsonObject()});
}

void TestWeldioRow::lengthsAreForgotten()
{
    QFETCH(QJsonValue, registers);
    RegisterLengths::read(oneRegister("R", 4));
    QCOMPARE(RegisterLengths::of("R"_s), 4);
    RegisterLengths::read(registers);
    QCOMPARE(RegisterLengths::of("R"_s), 1);
    RegisterLengths::read(oneRegister("R", 5));
    QCOMPARE(RegisterLengths::of("R"_s), 5);
}

void TestWeldioRow::lastOfOneNameCounts()
{
    const auto lengthOf = [](const QVector<QJsonValue>& lengths) {
        QJsonArray registers;
        for (const QJsonValue& length : lengths)
            registers.append(QJsonObject{{"name"_s, "R"_s}, {"len"_s, length}});
        RegisterLengths::read(registers);
        return RegisterLengths::of("R"_s);
    };
    QCOMPARE(lengthOf({4, 2}), 2);
    QCOMPARE(lengthOf({2, 4}), 4);
    QCOMPARE(lengthOf({4, 1}), 1);
    QCOMPARE(lengthOf({4, "9"_s}), 1);
    QCOMPARE(lengthOf({1, 4}), 4);
}

// A length goes by "name" alone, whatever else the lists take for a name.
void TestWeldioRow::namelessHaveNoLength()
{
    RegisterLengths::read(QJsonArray{QJsonObject{{"reg_name"_s, "R"_s}, {"len"_s, 4}},
                                     QJsonObject{{"name"_s, QString()}, {"len"_s, 4}},
                                     QJsonObject{{"name"_s, 7}, {"len"_s, 4}},
                                     QJsonObject{{"len"_s, 4}}});
    QCOMPARE(RegisterLengths::of("R"_s), 1);
    QCOMPARE(RegisterLengths::of("7"_s), 1);
    QCOMPARE(RegisterLengths::of(QString()), 1);
}

void TestWeldioRow::hugeLengthIsConfined()
{
    RegisterLengths::read(oneRegister("R", std::numeric_limits<int>::max()));
    RowOnWidgets t(twoKinds());
    t.select("R"_s);
    t.row.updateBias(std::numeric_limits<int>::max());
    QCOMPARE(t.bias.count(), 1000000);
    QCOMPARE(t.bias.currentText(), "1000000"_s);
    t.row.updateBias(0);
    QCOMPARE(t.row.recordBias(), 999999);
}

LASERWELD_TEST_MAIN(TestWeldioRow)
#include "tst_weldiorow.moc"
