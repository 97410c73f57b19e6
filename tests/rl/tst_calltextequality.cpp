#include "CallText.h"
#include "LogFolder.h"
#include "TestCase.h"

#include <functional>
#include <random>

// The splitter against the regular expression that says what a call is.

namespace {

constexpr int Lines = 150'000;
constexpr int LongLines = 200;

struct Result
{
    bool found = false;
    QString name;
    QStringList list;

    bool operator==(const Result& other) const
    {
        return found == other.found && name == other.name && list == other.list;
    }
};

QStringList scanned(const QString& inner)
{
    QStringList list;
    int depth = 0;
    int start = 0;
    for (int at = 0; at <= inner.size(); ++at) {
        const QChar character = at < inner.size() ? inner.at(at) : QLatin1Char(',');
        if (character == QLatin1Char('('))
            ++depth;
        else if (character == QLatin1Char(')'))
            depth = std::max(0, depth - 1);
        else if (at == inner.size() || (character == QLatin1Char(',') && depth == 0)) {
            list << inner.mid(start, at - start).trimmed();
            start = at + 1;
        }
    }
    list.removeAll(QString());
    return list;
}

Result expected(const QString& input)
{
    static const QRegularExpression call(QStringLiteral(R"(^\s*(\w+)\s*\((.*?)\);?\s*$)"));
    const QRegularExpressionMatch match = call.match(input);
    if (!match.hasMatch())
        return {};
    return {true, match.captured(1).trimmed(), scanned(match.captured(2).trimmed())};
}

Result actual(const QString& input)
{
    Result result;
    result.found = qellaser::util::extractFunctionAndParameters(input, result.name, result.list);
    return result;
}

/// Lines of words that matter to the splitter, most of them near to a call.
class Generator
{
public:
    explicit Generator(unsigned seed)
        : random(seed)
    {}

    QString line()
    {
        if (below(4) == 0)
            return words(below(12));
        return blank() + pick(names) + blank() + pick(opens) + words(below(10)) + pick(ends) +
               blank();
    }
    QString longLine()
    {
        return mostly(names) + QLatin1Char('(') + words(1000 + below(5000)) + mostly(ends) +
               blank();
    }

private:
    int below(int end) { return int(random() % unsigned(end)); }
    QString pick(const QStringList& texts) { return texts[below(texts.size())]; }
    QString mostly(const QStringList& texts) { return below(4) ? texts[0] : pick(texts); }
    QString blank() { return below(3) == 0 ? mostly(blanks) : QString(); }
    QString words(int count)
    {
        QString text;
        for (int word = 0; word < count; ++word)
            text += below(200) == 0 ? anyCharacter() : pick(below(60) == 0 ? breakers : inner);
        return text;
    }
    QString anyCharacter() { return QString(QChar(ushort(below(below(2) ? 256 : 65536)))); }

    std::mt19937 random;
    const QString pair = QString::fromUtf8("\xf0\x9f\x94\xa7");
    const QStringList names{QStringLiteral("Offs"),    QStringLiteral("LsMoveL"),
                            QStringLiteral("_1"),      QStringLiteral("a"),
                            QStringLiteral("F\u00e4"), QString(),
                            QStringLiteral("\u0661"),  QStringLiteral("a b"),
                            QStringLiteral("RelTool"), QStringLiteral("\u017f")};
    const QStringList opens{QStringLiteral("("), QStringLiteral("("), QStringLiteral("("),
                            QStringLiteral("(("), QString()};
    const QStringList ends{QStringLiteral(");"),       QStringLiteral(")"),    QStringLiteral(");"),
                           QStringLiteral(");;"),      QStringLiteral(") ;"),  QStringLiteral(";"),
                           QStringLiteral("); //"),    QStringLiteral(")\n;"), QString(),
                           QStringLiteral("); // (x)")};
    const QStringList blanks{
        QStringLiteral(" "),      QStringLiteral("\t\t"),   QStringLiteral("\n"),
        QStringLiteral("\r\n"),   QStringLiteral("\v"),     QStringLiteral("\f"),
        QStringLiteral("\r"),     QStringLiteral("\u0085"), QStringLiteral("\u00a0"),
        QStringLiteral("\u2028"), QStringLiteral("\u2029"), QStringLiteral("\u2003"),
        QStringLiteral("\n\n"),   QStringLiteral("\u180e"), QString(QChar(0))};
    const QStringList inner{QStringLiteral("p1"),
                            QStringLiteral(","),
                            QStringLiteral(", "),
                            QStringLiteral("("),
                            QStringLiteral(")"),
                            QStringLiteral("\""),
                            QStringLiteral(" "),
                            QStringLiteral("1.5"),
                            QStringLiteral("\u4e2d"),
                            QStringLiteral(","),
                            QStringLiteral("Offs(p1,1,2,3)"),
                            QStringLiteral("\\"),
                            pair};
    const QStringList breakers{QStringLiteral("\n"),     QStringLiteral("\r"),
                               QStringLiteral("\r\n"),   QStringLiteral("\v"),
                               QStringLiteral("\f"),     QStringLiteral("\u0085"),
                               QStringLiteral("\u2028"), QStringLiteral("\u2029"),
                               pair.mid(0, 1),           pair.right(1),
                               QStringLiteral(";"),      QString(QChar(0)),
                               QStringLiteral("//"),     QStringLiteral("\ufffe"),
                               QStringLiteral("\u00a0")};
};

// The first line that is read differently, and what was expected; null when there is none.
QString firstDifference(int count, const std::function<QString()>& next, int& calls)
{
    const LogFolder folder;
    const ConsoleCapture console;
    for (int line = 0; line < count; ++line) {
        const QString text = next();
        const Result wanted = expected(text);
        calls += wanted.found;
        if (!(actual(text) == wanted))
            return qellaser::util::printedList(
                {text, wanted.name, wanted.list.join(QLatin1Char('|'))});
    }
    return {};
}

unsigned seed()
{
    const unsigned number = qEnvironmentVariableIsSet("LASERWELD_SEED")
                                ? unsigned(qEnvironmentVariableIntValue("LASERWELD_SEED"))
                                : 20261121U;
    qInfo("seed %u", number);
    return number;
}

} // namespace

class CallTextEqualityTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void equalsExpression();
    void equalsExpressionOnLongLines();
    void equalsExpressionOnEveryCharacter_data();
    void equalsExpressionOnEveryCharacter();
};

void CallTextEqualityTest::equalsExpression()
{
    Generator generator(seed());
    int calls = 0;
    QCOMPARE(firstDifference(
                 Lines, [&generator] { return generator.line(); }, calls),
             QString());
    QVERIFY2(calls > Lines / 10 && calls < Lines * 9 / 10, qPrintable(QString::number(calls)));
}

void CallTextEqualityTest::equalsExpressionOnLongLines()
{
    Generator generator(seed());
    int calls = 0;
    const auto longLine = [&generator] { return generator.longLine(); };
    QCOMPARE(firstDifference(LongLines, longLine, calls), QString());
    const auto longCall = [] {
        return QStringLiteral("F(%1);").arg(QString(2'000'000, QLatin1Char('(')));
    };
    QCOMPARE(firstDifference(1, longCall, calls), QString());
    QVERIFY(calls > 0);
}

void CallTextEqualityTest::equalsExpressionOnEveryCharacter_data()
{
    QTest::addColumn<QString>("pattern");
    for (const char* pattern : {"%1F(a)", "F%1(a)", "%1(a)", "F(%1)", "F(a%1,b)", "F(a)%1",
                                "F(a)%1;", "F(a);%1", "F%1a)", "F(a%1", "F(a);\n%1"})
        QTest::newRow(pattern) << QString::fromLatin1(pattern);
}

void CallTextEqualityTest::equalsExpressionOnEveryCharacter()
{
    QFETCH(QString, pattern);
    int code = 0;
    int calls = 0;
    const auto next = [&] {
        return QString(pattern).replace(QLatin1String("%1"), QChar(ushort(code++)));
    };
    QCOMPARE(firstDifference(65536, next, calls), QString());
}

LASERWELD_CORE_TEST_MAIN(CallTextEqualityTest)
#include "tst_calltextequality.moc"
