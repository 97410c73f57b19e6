// Feeds one text as a line of a robot program: to the splitter, and to the two editors of every
// instruction that the plugin registers.
//
// A line is a call when the regular expression says so. What is taken apart and put together again
// comes apart as before. Whatever line an editor was given, what it builds is a call of its
// instruction; filled with that, it builds the same again. Its checks follow the user's level.

#include "CallText.h"
#include "Harness.h"
#include "RlLaserWeldDefine.h"
#include "ScriptedHost.h"
#include "rlregistry.h"

#include <QRegularExpression>

#include <vector>

namespace {

using qellaser::util::extractFunctionAndParameters;
using qelplugin::RLContentBase;

struct Editor
{
    QString key;
    RLContentBase* widget;
    bool isInsert;
};

void giveLists(ScriptedHost& host)
{
    host.toolNames = QStringList{QStringLiteral("tool0"), QStringLiteral("gun")};
    host.workObjectNames = QStringList{QStringLiteral("wobj0"), QStringLiteral("table")};
    host.speedNames = QStringList{QStringLiteral("v10"), QStringLiteral("v100")};
    host.zoneNames = QStringList{QStringLiteral("fine"), QStringLiteral("z10")};
    host.points = QStringList{QStringLiteral("p1"), QStringLiteral("p3"), QStringLiteral("home")};
    host.tool = QStringLiteral("gun");
    host.workObject = QStringLiteral("table");
}

std::vector<Editor> allEditors()
{
    static const RlLaserWeldDefine instructions(nullptr);
    std::vector<Editor> editors;
    const auto registered = qelplugin::RlRegistry::instance().instructions;
    for (const qelplugin::RlInstruction& each : registered) {
        if (each.insertEditor)
            editors.push_back({each.key, each.insertEditor(), true});
        if (each.propertyEditor)
            editors.push_back({each.key, each.propertyEditor(), false});
    }
    return editors;
}

bool isBalanced(const QString& argument)
{
    int depth = 0;
    for (const QChar each : argument) {
        depth += each == QLatin1Char('(') ? 1 : each == QLatin1Char(')') ? -1 : 0;
        if (depth < 0)
            return false;
    }
    return depth == 0;
}

void feedSplitter(const QString& line)
{
    static const QRegularExpression call(QStringLiteral(R"(^\s*(\w+)\s*\((.*?)\);?\s*$)"));
    QString name;
    QStringList arguments;
    const bool isCall = extractFunctionAndParameters(line, name, arguments);
    const auto match = call.match(line);
    Fuzz::demand(isCall == match.hasMatch(), "a call is what the expression matches");
    Fuzz::demand(name == match.captured(1), "the name is that of the call");
    Fuzz::demand(isCall || arguments.isEmpty(), "no call has no arguments");
    bool comesApart = isCall;
    for (const QString& argument : std::as_const(arguments)) {
        Fuzz::demand(!argument.isEmpty() && argument == argument.trimmed(),
                     "an argument is a text");
        comesApart = comesApart && isBalanced(argument);
    }
    if (!comesApart)
        return;
    const QString again =
        name + QLatin1Char('(') + arguments.join(QLatin1Char(',')) + QLatin1String(");");
    QString nameAgain;
    QStringList argumentsAgain;
    Fuzz::demand(extractFunctionAndParameters(again, nameAgain, argumentsAgain) &&
                     nameAgain == name && argumentsAgain == arguments,
                 "what is put together comes apart again");
}

void feedEditor(const Editor& editor, const QString& line, const ScriptedHost& host)
{
    editor.widget->FillWith(line);
    const bool mayInsert = editor.widget->CheckInsert();
    const bool mayReplace = editor.widget->CheckReplace();
    const bool asksLevel = editor.key.startsWith(QLatin1String("LsMove"));
    if (asksLevel)
        Fuzz::demand((editor.isInsert ? mayInsert : mayReplace) == (host.level >= 3),
                     "who may operate may edit");
    // A new motion does not depend on the line, and asks the host for points at length.
    if (editor.isInsert && asksLevel && line.size() % 32 != 0)
        return;
    const QString built = editor.widget->BuildText();
    if (built.isEmpty())
        return;
    Fuzz::demand(built.startsWith(editor.key + QLatin1Char('(')) &&
                     built.endsWith(QLatin1String(");")),
                 "what is built is a call of the instruction");
    if (editor.isInsert && asksLevel)
        return; // proposes new points each time
    editor.widget->FillWith(built);
    Fuzz::demand(editor.widget->BuildText() == built, "what is built builds itself");
}

} // namespace

QStringList Fuzz::words()
{
    return {};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static ScriptedHost host;
    giveLists(host);
    static const std::vector<Editor> editors = allEditors();
    const QString line = Fuzz::text(data, size);
    host.level = line.size() % 5;
    feedSplitter(line);
    feedSplitter(qellaser::util::stripEnclosing(line, QStringLiteral("("), QStringLiteral(")")));
    for (const Editor& editor : editors)
        feedEditor(editor, line, host);
    host.forgetCalls();
    return 0;
}
