#include "CallText.h"
#include "Log.h"
#include "Ratio.h"

#include <benchmark/benchmark.h>

#include <QRegularExpression>

#include <algorithm>

// The splitter, its log lines included, beside regular expressions that write none, over a program
// of valid and broken lines. The log of this program does nothing.

namespace {

constexpr int Repeats = 100;
constexpr int Rounds = 30;
constexpr double OnceLimit = 1.2;
constexpr double EachLimit = 0.05;

const char Function[] = "qellaser::util::extractFunctionAndParameters";
const char CallExpression[] = R"(^\s*(\w+)\s*\((.*?)\);?\s*$)";
const char ArgumentExpression[] = R"(\s*((?:[^,()]++|\((?:[^()]++|(?R))*\))*)\s*)";

QStringList program()
{
    const char* const lines[] = {
        "LsMoveL(p1, v100, fine, \"fix\", tool0, wobj0);",
        "LsMoveL(Offs(p1,0,0,10.5), v100, z10, \"fix\", tool0, wobj0);",
        "  LsMoveC(p1, RelTool(p2,0,0,10,0,0,90), v100, z10, \"fix\", tool0, wobj0);  ",
        "LsMoveCF(p1, p2, v100, fine, 360, \"fix\", tool0, wobj0);",
        "LsParaSet(\"LsData1\",\"linear\",100,200);",
        "LaserOn(\"LsData12\", 500);",
        "LaserOff();",
        "Offs(p12,1,2,3)",
        "RelTool(p12,1,2,3,4,5,6)",
        "LsMoveL(p1, v100, fine, tool0, wobj0); // seam",
        "LsMoveL(p1, v100, fine",
        "IF reg1 > 5 THEN",
        "// weld the left side, from the front to the back",
        "",
        "LsMoveL(p1,\nv100);",
        "p1",
    };
    QStringList all;
    for (int repeat = 0; repeat < Repeats; ++repeat) {
        for (const char* line : lines)
            all << QString::fromLatin1(line);
    }
    return all;
}

void append(QStringList& list, const QString& argument)
{
    if (!argument.isEmpty())
        list << argument;
}

void scan(const QString& inner, QStringList& list)
{
    int depth = 0;
    int start = 0;
    for (int at = 0; at < inner.size(); ++at) {
        const QChar character = inner.at(at);
        if (character == QLatin1Char('('))
            ++depth;
        else if (character == QLatin1Char(')'))
            depth = std::max(0, depth - 1);
        else if (character == QLatin1Char(',') && depth == 0) {
            append(list, inner.mid(start, at - start).trimmed());
            start = at + 1;
        }
    }
    append(list, inner.mid(start).trimmed());
}

void logResult(const QString& name, const QStringList& list)
{
    if (list.isEmpty())
        LOGE(LogTag::Short) << "LASER::" << Function << __LINE__
                            << "Extracted Parameter List: (Empty)";
    LOGD(LogTag::Short) << "LASER::" << Function << __LINE__ << "functionName:" << name
                        << ",parameterList:" << list;
}

bool split(const QRegularExpression& call, const QString& line, QString& name, QStringList& list)
{
    name.clear();
    list.clear();
    const QRegularExpressionMatch match = call.match(line);
    if (!match.hasMatch()) {
        LOGE(LogTag::Short)
            << Function << __LINE__
            << "Parsing failed: Input string does not match function call format. input:" << line;
        return false;
    }
    name = match.captured(1).trimmed();
    scan(match.captured(2).trimmed(), list);
    logResult(name, list);
    return true;
}

bool splitCompiling(const QString& line, QString& name, QStringList& list)
{
    const QRegularExpression call{QString(QLatin1String(CallExpression))};
    const bool found = split(call, line, name, list);
    if (list.isEmpty())
        return found;
    const QRegularExpression arguments(QString(QLatin1String(ArgumentExpression)),
                                       QRegularExpression::ExtendedPatternSyntaxOption);
    benchmark::DoNotOptimize(arguments.globalMatch(name));
    return found;
}

template<typename Splitter>
Ratio::Work overAll(const QStringList& lines, Splitter splitter)
{
    return [lines, splitter] {
        QString name;
        QStringList list;
        for (const QString& line : lines)
            benchmark::DoNotOptimize(splitter(line, name, list));
    };
}

bool compare()
{
    const QStringList lines = program();
    const QRegularExpression once{QString(QLatin1String(CallExpression))};
    const auto ours = overAll(lines, [](const QString& line, QString& name, QStringList& list) {
        return qellaser::util::extractFunctionAndParameters(line, name, list);
    });
    const auto compiledOnce =
        overAll(lines, [once](const QString& line, QString& name, QStringList& list) {
            return split(once, line, name, list);
        });
    bool holds = Ratio::report("1600 lines split / expression compiled once, and a scan",
                               Ratio::measure(Rounds, ours, compiledOnce), OnceLimit);
    holds &= Ratio::report("1600 lines split / expressions compiled for each line",
                           Ratio::measure(3, ours, overAll(lines, splitCompiling)), EachLimit);
    return holds;
}

} // namespace

int main()
{
    return compare() ? 0 : 1;
}
