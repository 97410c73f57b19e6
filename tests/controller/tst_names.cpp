#include "Names.h"
#include "TestCase.h"

using namespace pendant;

class NamesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void check_data();
    void check();
};

void NamesTest::check_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("point");   // part of the reason; empty: the name will do
    QTest::addColumn<QString>("program"); // likewise
    const auto row = [](const char* title, const QString& name, const char* point,
                        const char* program) {
        QTest::newRow(title) << name << QString(QLatin1String(point))
                             << QString(QLatin1String(program));
    };
    const auto text = [](const char* name) { return QString::fromUtf8(name); };
    const char* const control = "control character. Leave it out";
    const char* const word = "letters, digits and underscores";
    row("plain", text("p1"), "", "");
    row("underscore", text("_p_1"), "", "");
    row("chinese", text("\u6fc0\u5149"), "", "");
    row("longest", QString(64, QLatin1Char('x')), "", "");
    row("empty", {}, "is empty. Give a name", "is empty. Give a name");
    row("too long", QString(65, QLatin1Char('x')), "has 65 characters", "at most 64");
    row("line feed", text("p\n1"), control, control);
    row("null character", QString(QChar(0)), control, control);
    row("delete", text("p\x7f"), control, control);
    row("right to left", text("p\u202e1"), control, control);
    row("half a surrogate", QString(QChar(0xd800)), control, control);
    row("line separator", text("p\u20281"), control, control);
    row("digit first", text("1p"), word, "");
    row("blank", text("p 1"), word, "");
    row("comma", text("p,1"), word, "");
    row("call", text("Offs(p1,0,0,1)"), word, "");
    row("blank first", text(" p"), word, "begins or ends with a blank");
    row("blank last", text("p\u00a0"), word, "begins or ends with a blank");
    row("slash", text("a/b"), word, "holds a slash");
    row("backslash", text("a\\b"), word, "holds a slash");
    row("placeholder", text("%1 %2"), word, "");
}

void NamesTest::check()
{
    QFETCH(QString, name);
    QFETCH(QString, point);
    QFETCH(QString, program);
    const QString ofPoint = names::checkPoint(name);
    const QString ofProgram = names::checkProgram(name);
    QCOMPARE(ofPoint.isEmpty(), point.isEmpty());
    QVERIFY2(ofPoint.contains(point), qPrintable(ofPoint));
    QCOMPARE(ofProgram.isEmpty(), program.isEmpty());
    QVERIFY2(ofProgram.contains(program), qPrintable(ofProgram));
}

LASERWELD_CORE_TEST_MAIN(NamesTest)
#include "tst_names.moc"
