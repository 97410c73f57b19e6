#include "ProgramLine.h"
#include "TestCase.h"

#include <QApplication>

using namespace pendant;

class TestProgramLine : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void parts_data();
    void parts();
    void newCode_data();
    void newCode();
};

void TestProgramLine::parts_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("indent");
    QTest::addColumn<int>("comment");
    QTest::addColumn<QString>("code");
    const auto row = [](const char* name, const char* line, int indent, int comment,
                        const char* code) {
        QTest::newRow(name) << QString::fromUtf8(line) << indent << comment
                            << QString::fromUtf8(code);
    };
    row("nothing", "", 0, 0, "");
    row("blanks", "  \t", 3, 3, "");
    row("code", "a();", 0, 4, "a();");
    row("comment", "  // a", 2, 2, "");
    row("both", "\ta(); \t// b // c", 1, 7, "\ta();");
    row("no blank between", "a();//b", 0, 4, "a();");
    row("quoted", "a(\"http://b\");", 0, 14, "a(\"http://b\");");
    row("quoted and not", "a(\"//\"); // \"b\"", 0, 9, "a(\"//\");");
    row("quotation without an end", "a(\"b); // c", 0, 11, "a(\"b); // c");
    row("one slash", "a / b /", 0, 7, "a / b /");
}

void TestProgramLine::parts()
{
    QFETCH(QString, line);
    QTEST(indentOf(line), "indent");
    QTEST(commentStart(line), "comment");
    QTEST(withoutTrailingComment(line), "code");
}

void TestProgramLine::newCode_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QByteArray>("result");
    const auto row = [](const char* name, const char* line, const char* code, const char* result) {
        QTest::newRow(name) << QByteArray(line) << QString::fromUtf8(code) << QByteArray(result);
    };
    row("plain", "a();", "b();", "b();");
    row("into nothing", "", "b();", "b();");
    row("indent", " \ta();", "b();", " \tb();");
    row("comment", "a();  // c", "b();", "b();  // c");
    row("indent and comment", "\ta();\t//c", "b(1);", "\tb(1);\t//c");
    row("comment of its own", "  a(); // c", "b(); // d", "  b(); // d");
    row("quoted in the old", "a(\"//x\");", "b();", "b();");
    row("quoted in the new", "a(); // c", "b(\"//x\");", "b(\"//x\"); // c");
    row("a comment is no trailing one", "  // a", "b();", "  b();");
    row("blanks at the end go", "a();  ", "b();", "b();");
    row("bytes that are no text", "a(\xff); \xa0 // \xc3\x28\xff", "b(\xc3\xa4);",
        "b(\xc3\xa4); // \xc3\x28\xff");
    row("comment behind a letter of two bytes", "a\xc3\xa0 // c", "b", "b // c");
}

void TestProgramLine::newCode()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, code);
    QTEST(withCode(line, code), "result");
}

LASERWELD_TEST_MAIN(TestProgramLine)
#include "tst_programline.moc"
