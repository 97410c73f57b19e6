#include "CallText.h"
#include "LogFolder.h"
#include "TestCase.h"

using namespace qellaser::util;

namespace {

const QString ShortTag = QStringLiteral("qellaserweld");
const QString F = QStringLiteral("qellaser::util::extractFunctionAndParameters");

// The line number, which changes with the source, as "#".
QString withoutLine(QString text)
{
    static const QRegularExpression number(QStringLiteral("(extractFunctionAndParameters) \\d+"));
    return text.replace(number, QStringLiteral("\\1 #"));
}

QStringList texts(const QList<QByteArray>& writes)
{
    QStringList all;
    for (const QByteArray& each : writes)
        all << withoutLine(QString::fromUtf8(each));
    return all;
}

} // namespace

class CallTextTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void splits_data();
    void splits();
    void refuses_data();
    void refuses();
    void emptiesBothFirst();
    void inputMayBeTheName();
    void logsRefusal();
    void logsEmptyList_data();
    void logsEmptyList();
    void logsArguments();
    void printsList_data();
    void printsList();
    void stripsEnclosing_data();
    void stripsEnclosing();
};

void CallTextTest::splits_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("list");
    const auto row = [](const char* title, const char* input, const char* name,
                        const QStringList& list) {
        QTest::newRow(title) << QString::fromUtf8(input) << QString::fromUtf8(name) << list;
    };
    const QStringList ab{QStringLiteral("a"), QStringLiteral("b")};
    row("call", "F(a, b);", "F", ab);
    row("leading blank", "  F(a,b);", "F", ab);
    row("blanks before the parenthesis", "F \t (a,b);", "F", ab);
    row("no semicolon", "F(a,b)", "F", ab);
    row("trailing blanks", "F(a,b);  \t", "F", ab);
    row("line break behind", "F(a,b);\n\n", "F", ab);
    row("line break before", "\n F\n(a,b);", "F", ab);
    row("other blanks", "\v\fF\r(a,b)\r\n", "F", ab);
    row("comment that ends like a call", "F(a,b); // c(d)", "F",
        {QStringLiteral("a"), QStringLiteral("b); // c(d")});
    row("no argument", "F();", "F", {});
    row("blanks inside", "F(   );", "F", {});
    row("commas only", "F(,, ,);", "F", {});
    row("empty argument", "F(a,,b);", "F", ab);
    row("trailing comma", "F(a,b,);", "F", ab);
    row("nested", "F(Offs(p1,0,0,1), b);", "F",
        {QStringLiteral("Offs(p1,0,0,1)"), QStringLiteral("b")});
    row("closed too early", "F(a),b);", "F", {QStringLiteral("a)"), QStringLiteral("b")});
    row("still at depth 0", "F()),a,(b,c));", "F",
        {QStringLiteral("))"), QStringLiteral("a"), QStringLiteral("(b,c)")});
    row("never closed", "F(a,(b,c,d);", "F", {QStringLiteral("a"), QStringLiteral("(b,c,d")});
    row("comma in quotation marks", "F(\"a,b\");", "F",
        {QStringLiteral("\"a"), QStringLiteral("b\"")});
    row("parenthesis in quotation marks", "F(\"(\",a,b);", "F", {QStringLiteral("\"(\",a,b")});
    row("quotation marks stay", "F(\"a\", b);", "F",
        {QStringLiteral("\"a\""), QStringLiteral("b")});
    row("wide blanks are trimmed", "F(\u00a0a\u2003,\u2028b\u0085)", "F", ab);
    row("line separators inside", "F(a\u2028\r\u0085\v\fb)", "F",
        {QStringLiteral("a\u2028\r\u0085\v\fb")});
    row("beyond the base plane", "F(\xf0\x9f\x94\xa7)", "F",
        {QString::fromUtf8("\xf0\x9f\x94\xa7")});
    row("digits and underscore", "_9(a,b)", "_9", ab);
}

void CallTextTest::splits()
{
    QFETCH(QString, input);
    const LogFolder folder;
    const ConsoleCapture console;
    QString name;
    QStringList list;
    QVERIFY(extractFunctionAndParameters(input, name, list));
    QTEST(name, "name");
    QTEST(list, "list");
}

void CallTextTest::refuses_data()
{
    QTest::addColumn<QString>("input");
    const auto row = [](const char* title, const QString& input) { QTest::newRow(title) << input; };
    row("null", QString());
    row("empty", QLatin1String(""));
    row("blank", QStringLiteral("  "));
    row("no parentheses", QStringLiteral("p1"));
    row("no name", QStringLiteral("(a)"));
    row("two words", QStringLiteral("a b(c)"));
    row("comment behind", QStringLiteral("F(a); // comment"));
    row("not closed", QStringLiteral("F(a"));
    row("not opened", QStringLiteral("F)"));
    row("opened behind the end", QStringLiteral(")F("));
    row("two semicolons", QStringLiteral("F(a);;"));
    row("blank before the semicolon", QStringLiteral("F(a) ;"));
    row("two lines", QStringLiteral("F(a,\nb);"));
    row("break at the inner end", QStringLiteral("F(a\n);"));
    row("wide blank before", QStringLiteral("\u00a0F(a);"));
    row("wide blank behind", QStringLiteral("F(a);\u2003"));
    row("name beyond ASCII", QStringLiteral("F\u00e4(a);"));
    row("half a pair inside", QStringLiteral("F(a") + QChar(0xd83d) + QStringLiteral(")"));
    row("wrong half inside", QStringLiteral("F(") + QChar(0xdd27) + QStringLiteral("a)"));
    row("semicolon only", QStringLiteral(";"));
    row("open only", QStringLiteral("F("));
    row("open and semicolon", QStringLiteral("F(;"));
}

void CallTextTest::refuses()
{
    QFETCH(QString, input);
    const LogFolder folder;
    const ConsoleCapture console;
    QString name;
    QStringList list;
    QVERIFY(!extractFunctionAndParameters(input, name, list));
    QCOMPARE(name, QString());
    QCOMPARE(list, QStringList());
}

void CallTextTest::emptiesBothFirst()
{
    const LogFolder folder;
    const ConsoleCapture console;
    QString name = QStringLiteral("old");
    QStringList list{name};
    QVERIFY(!extractFunctionAndParameters(QStringLiteral("p1"), name, list));
    QVERIFY(name.isEmpty());
    QVERIFY(list.isEmpty());
}

// It is emptied like any other name.
void CallTextTest::inputMayBeTheName()
{
    const LogFolder folder;
    const ConsoleCapture console;
    QString text = QStringLiteral("F(a)");
    QStringList list;
    QVERIFY(!extractFunctionAndParameters(text, text, list));
}

void CallTextTest::logsRefusal()
{
    const LogFolder folder;
    const ConsoleCapture console;
    QString name;
    QStringList list;
    extractFunctionAndParameters(QStringLiteral("no call"), name, list);
    const QStringList lines = LogFolder::lines(ShortTag);
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines.first().startsWith(QLatin1String("[E|")));
    QCOMPARE(withoutLine(LogFolder::texts(ShortTag).value(0)),
             F + QLatin1String(" # Parsing failed: Input string does not match function call "
                               "format. input: no call"));
}

void CallTextTest::logsEmptyList_data()
{
    QTest::addColumn<QString>("input");
    QTest::newRow("nothing inside") << QStringLiteral("LaserOff();");
    QTest::newRow("blanks inside") << QStringLiteral("LaserOff( \t );");
}

void CallTextTest::logsEmptyList()
{
    QFETCH(QString, input);
    const LogFolder folder;
    ConsoleCapture console;
    QString name;
    QStringList list;
    extractFunctionAndParameters(input, name, list);
    const QStringList all = texts(console.take());
    QCOMPARE(all.size(), 2);
    QVERIFY(all[0].contains(QLatin1String("[E|")));
    QVERIFY(all[0].contains(QLatin1String("LASER:: ") + F +
                            QLatin1String(" # Extracted Parameter List: (Empty)\x1b")));
    QVERIFY(all[1].contains(QLatin1String("[D|")));
    QVERIFY(all[1].contains(QLatin1String("LASER:: ") + F +
                            QLatin1String(" # functionName: LaserOff ,parameterList: ()\x1b")));
    QCOMPARE(LogFolder::lines(ShortTag).size(), 1);
}

void CallTextTest::logsArguments()
{
    const LogFolder folder;
    ConsoleCapture console;
    QString name;
    QStringList list;
    extractFunctionAndParameters(QStringLiteral("Offs(p1, 1);"), name, list);
    const QStringList all = texts(console.take());
    QCOMPARE(all.size(), 1);
    QVERIFY(all[0].contains(QLatin1String("[D|")));
    QVERIFY(all[0].contains(
        QLatin1String("LASER:: ") + F +
        QLatin1String(" # functionName: Offs ,parameterList: (\"p1\", \"1\")\x1b")));
    QCOMPARE(LogFolder::lines(ShortTag), QStringList());
}

void CallTextTest::printsList_data()
{
    QTest::addColumn<QStringList>("list");
    QTest::newRow("empty") << QStringList();
    QTest::newRow("one") << QStringList{QStringLiteral("a b~")};
    QTest::newRow("several") << QStringList{QStringLiteral("a"), QString(), QStringLiteral("b")};
    QTest::newRow("quotation marks") << QStringList{QStringLiteral("\"a\"")};
    QTest::newRow("backslash") << QStringList{QStringLiteral("a\\b")};
    QTest::newRow("control") << QStringList{QStringLiteral("a\n\tb\x7f")};
    QTest::newRow("wide") << QStringList{QString::fromUtf8("\u00e4\u4e2d"), QStringLiteral("x")};
    QTest::newRow("half a pair") << QStringList{QString(QChar(0xd83d))};
}

void CallTextTest::printsList()
{
    QFETCH(QStringList, list);
    QString expected;
    QDebug(&expected).nospace() << list;
    QCOMPARE(printedList(list), expected);
}

void CallTextTest::stripsEnclosing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("expected");
    const QString mark(QLatin1Char('"'));
    const QString none;
    QTest::newRow("both") << QStringLiteral("\"a\"") << mark << mark << QStringLiteral("a");
    QTest::newRow("one mark") << mark << mark << mark << mark;
    QTest::newRow("two marks") << QStringLiteral("\"\"") << mark << mark << QString();
    QTest::newRow("only before") << QStringLiteral("\"a") << mark << mark << QStringLiteral("\"a");
    QTest::newRow("only behind") << QStringLiteral("a\"") << mark << mark << QStringLiteral("a\"");
    QTest::newRow("case") << QStringLiteral("Xay") << QStringLiteral("x") << QStringLiteral("y")
                          << QStringLiteral("Xay");
    QTest::newRow("long ones") << QStringLiteral("<<a>>") << QStringLiteral("<<")
                               << QStringLiteral(">>") << QStringLiteral("a");
    QTest::newRow("overlapping") << QStringLiteral("aba") << QStringLiteral("ab")
                                 << QStringLiteral("ba") << QStringLiteral("aba");
    QTest::newRow("nothing to strip") << QStringLiteral("a") << none << none << QStringLiteral("a");
    QTest::newRow("empty") << none << mark << mark << none;
}

void CallTextTest::stripsEnclosing()
{
    QFETCH(QString, text);
    QFETCH(QString, prefix);
    QFETCH(QString, suffix);
    QTEST(stripEnclosing(text, prefix, suffix), "expected");
}

LASERWELD_CORE_TEST_MAIN(CallTextTest)
#include "tst_calltext.moc"
