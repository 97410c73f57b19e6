#include "InstructionCatalogue.h"
#include "TestCase.h"

#include <QApplication>

#include <memory>

using namespace pendant;

namespace {

/// Four instructions in two groups, of which the second was never declared.
qelplugin::RlRegistry registry()
{
    qelplugin::RlRegistry made;
    qelplugin::RlInstruction& off = made.instruction(QStringLiteral("LaserOff"));
    off.group = QStringLiteral("weld");
    off.pattern = QStringLiteral("^\\s*LaserOff\\s*(?://.*)?$");
    off.insertEditor = [] { return new qelplugin::RLContentBase(nullptr); };
    qelplugin::RlInstruction& wire = made.instruction(QStringLiteral("LsWireFwd"));
    wire.group = QStringLiteral("weld");
    wire.pattern = QStringLiteral("^\\s*LsWireFwd\\((\\d+)\\);");
    wire.defaultText = QStringLiteral("LsWireFwd(50);");
    wire.skeleton = QStringLiteral("LsWireFwd($Speed#spn#1,100#true$);");
    qelplugin::RlInstruction& broken = made.instruction(QStringLiteral("Broken"));
    broken.group = QStringLiteral("other");
    broken.pattern = QStringLiteral("(");
    broken.skeleton = QStringLiteral("Broken($x);");
    made.instruction(QStringLiteral("Plain")).skeleton = QStringLiteral("Plain;");
    made.group(QStringLiteral("weld")).title = QStringLiteral("Weld");
    return made;
}

} // namespace

class TestInstructionCatalogue : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void groups();
    void finds_data();
    void finds();
    void editors();
    void clears();
};

void TestInstructionCatalogue::groups()
{
    InstructionCatalogue catalogue;
    catalogue.load(registry());
    QCOMPARE(catalogue.groups().size(), 3);
    QCOMPARE(catalogue.groups().at(0).title, QStringLiteral("Weld"));
    QCOMPARE(catalogue.groups().at(0).members, QVector<int>({0, 1}));
    QCOMPARE(catalogue.groups().at(1).title, QStringLiteral("other"));
}

void TestInstructionCatalogue::finds_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("index");
    const auto row = [](const char* line, int index) {
        QTest::newRow(line) << QString::fromLatin1(line) << index;
    };
    row("LaserOff", 0);
    row("  LaserOff // end", 0);
    row("LaserOff();", 0);
    row("\tLaserOff ( );", 0);
    row("LsWireFwd(50);", 1);
    row("LsWireFwd(-50);", 1);
    row("Broken(1);", 2);
    row("laseroff();", -1);
    row("LaserOffx();", -1);
    row("// LaserOff();", -1);
    row("x = LaserOff();", -1);
    row("MoveL(p1);", -1);
    row("(", -1);
    row("", -1);
}

void TestInstructionCatalogue::finds()
{
    QFETCH(QString, line);
    QFETCH(int, index);
    InstructionCatalogue catalogue;
    catalogue.load(registry());
    QCOMPARE(catalogue.find(line), index);
}

void TestInstructionCatalogue::editors()
{
    using Editor = std::unique_ptr<qelplugin::RLContentBase>;
    InstructionCatalogue catalogue;
    catalogue.load(registry());
    QString error;
    QVERIFY(Editor(catalogue.makeInsertEditor(0, &error)));
    QVERIFY(!Editor(catalogue.makePropertyEditor(0, &error)));
    const Editor form(catalogue.makePropertyEditor(1, &error));
    QCOMPARE(form->BuildText(), QStringLiteral("LsWireFwd(50);"));
    QVERIFY(error.isEmpty());
    QVERIFY(!Editor(catalogue.makeInsertEditor(2, &error)));
    QCOMPARE(error, QStringLiteral("at character 8: the field has no end"));
    QVERIFY(!Editor(catalogue.makeInsertEditor(3, &error)));
    QVERIFY(error.isEmpty());
}

// With the copies go the factories, which lie in a plugin.
void TestInstructionCatalogue::clears()
{
    const auto held = std::make_shared<int>();
    InstructionCatalogue catalogue;
    {
        qelplugin::RlRegistry made;
        made.instruction(QStringLiteral("A")).insertEditor = [held] {
            return new qelplugin::RLContentBase(nullptr);
        };
        catalogue.load(made);
    }
    QCOMPARE(held.use_count(), 2L);
    catalogue.clear();
    QCOMPARE(held.use_count(), 1L);
    QCOMPARE(catalogue.find(QStringLiteral("A();")), -1);
}

LASERWELD_TEST_MAIN(TestInstructionCatalogue)
#include "tst_instructioncatalogue.moc"
