#include "ProgramDocument.h"
#include "TestCase.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QSignalSpy>

#include <functional>

using namespace pendant;

namespace {

using Change = std::function<void(ProgramDocument&)>;

const QString New = QStringLiteral("new");

} // namespace

Q_DECLARE_METATYPE(Change)

class TestProgramDocument : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsEveryByte_data();
    void keepsEveryByte();
    void changes_data();
    void changes();
    void edges();
    void moveTellsTheRows();
    void untouchedLinesStay();
    void manySteps();
    void modified();
    void finds_data();
    void finds();
    void longProgram();
};

void TestProgramDocument::keepsEveryByte_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("lines");
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("one end") << QByteArray("\n") << 1;
    QTest::newRow("with end") << QByteArray("a\nb\n") << 2;
    QTest::newRow("without end") << QByteArray("a\nb") << 2;
    QTest::newRow("blank lines") << QByteArray("\n\na\n\n") << 4;
    QTest::newRow("returns") << QByteArray("a\r\nb\r\n") << 2;
    QTest::newRow("mixed") << QByteArray("a\r\nb\n\r") << 3;
    QTest::newRow("no text") << QByteArray("a\xff\xfe\nb\0c\n", 8) << 2;
}

void TestProgramDocument::keepsEveryByte()
{
    QFETCH(QByteArray, text);
    QFETCH(int, lines);
    ProgramDocument document;
    document.load(text);
    QCOMPARE(document.rowCount(), lines);
    QCOMPARE(document.text(), text);
    QVERIFY(!document.isModified());
}

void TestProgramDocument::changes_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const char* before, const Change& change,
                        const char* after) {
        QTest::newRow(name) << QByteArray(before) << change << QByteArray(after);
    };
    row(
        "insert", "a\nb\n", [](auto& it) { it.insert(1, {New}); }, "a\nnew\nb\n");
    row(
        "insert at the end", "a\n", [](auto& it) { it.insert(9, {New}); }, "a\nnew\n");
    row(
        "insert into nothing", "",
        [](auto& it) {
            it.insert(0, {New, New});
        },
        "new\nnew\n");
    row(
        "insert with returns", "a\r\n", [](auto& it) { it.insert(0, {New}); }, "new\r\na\r\n");
    row(
        "replace", "a\nb\nc\n", [](auto& it) { it.replace(1, 1, {New}); }, "a\nnew\nc\n");
    row(
        "replace by more", "a\nb\n",
        [](auto& it) {
            it.replace(0, 1, {New, New});
        },
        "new\nnew\nb\n");
    row(
        "replace by fewer", "a\nb\nc\n", [](auto& it) { it.replace(0, 2, {New}); }, "new\nc\n");
    row(
        "replace the code", "a\n  b; // c\n", [](auto& it) { it.replaceCode(1, {New}); },
        "a\n  new // c\n");
    row(
        "replace the code by more", "  b; // c\n",
        [](auto& it) {
            it.replaceCode(0, {New, New});
        },
        "  new // c\n  new\n");
    row(
        "a line keeps its own end", "a\n b; // c\r\nd\n",
        [](auto& it) { it.replaceCode(1, {New}); }, "a\n new // c\r\nd\n");
    row(
        "delete", "a\nb\nc\n", [](auto& it) { it.remove(0, 2); }, "c\n");
    row(
        "delete past the end", "a\nb\n", [](auto& it) { it.remove(1, 9); }, "a\n");
    row(
        "up", "a\nb\nc\n", [](auto& it) { it.moveUp(1, 2); }, "b\nc\na\n");
    row(
        "down", "a\nb\nc\n", [](auto& it) { it.moveDown(0, 2); }, "c\na\nb\n");
    row(
        "paste", "a\nb\n", [](auto& it) { it.paste(0, it.copy(0, 2)); }, "a\nb\na\nb\n");
    row(
        "comment", " a\nb\xff\n", [](auto& it) { it.toggleComment(0, 2); }, "//  a\n// b\xff\n");
    row(
        "no comment", "//  a\n //b\n", [](auto& it) { it.toggleComment(0, 2); }, " a\n b\n");
    row(
        "one is no comment", "// a\nb\n", [](auto& it) { it.toggleComment(0, 2); },
        "// // a\n// b\n");
}

// Each is one step, there and back.
void TestProgramDocument::changes()
{
    QFETCH(QByteArray, before);
    QFETCH(Change, change);
    QFETCH(QByteArray, after);
    ProgramDocument document;
    const QAbstractItemModelTester tester(&document);
    document.load(before);
    change(document);
    QCOMPARE(document.text(), after);
    QCOMPARE(document.history().count(), 1);
    document.history().undo();
    QCOMPARE(document.text(), before);
    document.history().redo();
    QCOMPARE(document.text(), after);
}

void TestProgramDocument::edges()
{
    ProgramDocument document;
    document.load("a\nb\n");
    QVERIFY(!document.moveUp(0, 1));
    QVERIFY(!document.moveDown(1, 1));
    QVERIFY(!document.moveUp(-1, 1));
    QVERIFY(!document.moveDown(0, 0));
    document.remove(0, 0);
    document.paste(0, {});
    document.insert(0, {});
    document.replaceCode(-1, {New});
    document.replaceCode(2, {New});
    QCOMPARE(document.history().count(), 0);
    QCOMPARE(document.line(-1), QString());
    QCOMPARE(document.line(2), QString());
}

void TestProgramDocument::moveTellsTheRows()
{
    ProgramDocument document;
    document.load("a\nb\nc\nd\n");
    const QSignalSpy changed(&document, &ProgramDocument::changed);
    document.moveUp(2, 2);
    QCOMPARE(changed.last(), QVariantList({1, 2}));
    document.moveDown(1, 2);
    QCOMPARE(changed.last(), QVariantList({2, 2}));
}

void TestProgramDocument::untouchedLinesStay()
{
    const QByteArray odd = "\t odd \xc3\x28 line  \r";
    ProgramDocument document;
    document.load("a\n" + odd + "\nb\n");
    document.insert(0, {New});
    document.remove(3, 1);
    document.moveUp(2, 1);
    QCOMPARE(document.text(), "new\n" + odd + "\na\n");
    document.paste(0, document.copy(1, 1));
    QCOMPARE(document.text(), odd + "\nnew\n" + odd + "\na\n");
}

void TestProgramDocument::manySteps()
{
    constexpr int Steps = 1000;
    ProgramDocument document;
    for (int i = 0; i < Steps; ++i)
        document.insert(i / 2, {QString::number(i)});
    const QByteArray end = document.text();
    for (int i = 0; i < Steps; ++i)
        document.history().undo();
    QCOMPARE(document.text(), QByteArray());
    for (int i = 0; i < Steps; ++i)
        document.history().redo();
    QCOMPARE(document.text(), end);
}

void TestProgramDocument::modified()
{
    ProgramDocument document;
    document.load("a\n");
    document.insert(0, {New});
    QVERIFY(document.isModified());
    document.history().undo();
    QVERIFY(!document.isModified());
    document.history().redo();
    document.history().setClean();
    QVERIFY(!document.isModified());
    document.remove(0, 1);
    document.load("b\n");
    QVERIFY(!document.isModified());
    QVERIFY(!document.history().canUndo());
}

void TestProgramDocument::finds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("row");
    QTest::newRow("first") << QStringLiteral("laser") << 0 << 0;
    QTest::newRow("next") << QStringLiteral("LASER") << 1 << 2;
    QTest::newRow("around the end") << QStringLiteral("laseron") << 1 << 0;
    QTest::newRow("from the end") << QStringLiteral("move") << 3 << 1;
    QTest::newRow("not there") << QStringLiteral("x") << 0 << -1;
    QTest::newRow("nothing") << QString() << 0 << -1;
}

void TestProgramDocument::finds()
{
    QFETCH(QString, text);
    QFETCH(int, from);
    QFETCH(int, row);
    ProgramDocument document;
    document.load("LaserOn\nMove\nLaserOff\n");
    QCOMPARE(document.find(text, from), row);
}

void TestProgramDocument::longProgram()
{
    constexpr int Lines = 100000;
    QByteArray text;
    for (int i = 0; i < Lines; ++i)
        text += "LaserOn(\"LsData" + QByteArray::number(i) + "\");\n";
    ProgramDocument document;
    document.load(text);
    QCOMPARE(document.rowCount(), Lines);
    QCOMPARE(document.find(QStringLiteral("lsdata99999\""), 0), Lines - 1);
    document.remove(0, Lines);
    document.history().undo();
    QVERIFY(document.text() == text);
}

LASERWELD_TEST_MAIN(TestProgramDocument)
#include "tst_programdocument.moc"
