#include "RlLaserWeldDefine.h"

#include "MotionEditors.h"
#include "RLLaserOnInsertWidget.h"
#include "RLParaSetInsertWidget.h"

#include <qelplugin.h>

#include <QLabel>
#include <QVBoxLayout>

#include <cstddef>

using qelplugin::RLContentBase;
using qelplugin::RLManager;

namespace {

constexpr char GroupKey[] = "LaserWeld";

/// Editor of an instruction without parameters: one fixed line.
class DefaultLineInsertWidget : public RLContentBase
{
public:
    DefaultLineInsertWidget(const QString& instructionLine, QWidget* parent)
        : RLContentBase(parent)
        , line(instructionLine)
    {
        auto* layout = new QVBoxLayout(this);
        auto* label = new QLabel(QLatin1String("No parameters."));
        label->setAlignment(Qt::AlignHCenter);
        layout->addWidget(label, 0, Qt::AlignHCenter);
        layout->addStretch();
    }

    void FillWith(const QString&) override {}
    QString BuildText() override { return line; }
    bool CheckInsert() override { return true; }
    bool CheckReplace() override { return true; }

private:
    QString line;
};

/// An instruction that the host edits in the one editor that serves both ways, or in a form built
/// from the skeleton.
struct Instruction
{
    const char* key;
    const char* skeleton;
    const char* labels[2]; ///< of the skeleton's fields, to be translated
    const char* description;
    const char* pattern;
    const char* patternParts[2]; ///< what the pattern's placeholders stand for
    const char* defaultText;
    /// Makes the editor; null for the form from the skeleton.
    RLContentBase* (*makeEditor)(const Instruction& instruction);
};

QString text(const char* literal)
{
    return QLatin1String(literal);
}

RLContentBase* makeFixedLine(const Instruction& instruction)
{
    return new DefaultLineInsertWidget(text(instruction.defaultText), nullptr);
}

template<typename Editor>
RLContentBase* makeEditorOfKey(const Instruction& instruction)
{
    return new Editor(text(instruction.key), nullptr);
}

constexpr char BareKeyPattern[] = R"(^\s*%1\s*(?://.*)?$)";
constexpr char WholeNumber[] = R"(\s*(?:-?\d+)\s*)";
constexpr char QuotedText[] = R"x([^\"]+)x";

// The three patterns of the bare key do not take the call with its parentheses, not even the
// default text; the host goes by the call's name there.
constexpr Instruction Instructions[] = {
    {"LaserOn",
     "LaserOn;",
     {},
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Welding start instruction\n"
                                            "1. LaserOn(\"LsDatax\"), normal\n"
                                            "2. LaserOn(\"LsDatax\", Time), spot weld"),
     R"x(^\s*LaserOn\(\s*\"(%1)\"\s*(?:,\s*(%2)\s*)?\);\s*(?://.*)?$)x",
     {QuotedText, R"((?:0|[1-9]\d{0,2}|[1-4]\d{3}|5000))"},
     "LaserOn(\"LsData1\");",
     &makeEditorOfKey<qelplugin::RLLaserOnInsertWidget>},
    {"LaserOff",
     "LaserOff();",
     {},
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Welding end instruction\n"
                                            "LaserOff(), no parameters"),
     BareKeyPattern,
     {"LaserOff"},
     "LaserOff();",
     &makeFixedLine},
    {"LsParaSet",
     "LsParaSet;",
     {},
     QT_TRANSLATE_NOOP("RlLaserWeldDefine",
                       "Parameter switch instruction\n"
                       "1. LsParaSet(\"LsData1\"), no ramp\n"
                       "2. LsParaSet(\"LsData1\", \"Time\", value), time ramp\n"
                       "3. LsParaSet(\"LsData1\", \"Pos\"), position ramp"),
     BareKeyPattern,
     {"LsParaSet"},
     "LsParaSet(\"LsData1\");",
     &makeEditorOfKey<qelplugin::RLParaSetInsertWidget>},
    {"LsWireFwd",
     "LsWireFwd($%1#spn#1,100#true$, $%2#spn#1,10000#true$);",
     {QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed speed [1-100](mm/s):"),
      QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed time [1-10000](ms):")},
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed instruction\n"
                                            "LsWireFwd(speed, time)"),
     R"x(^\s*LsWireFwd\((%1),(%2)\);\s*(?://.*)?$)x",
     {WholeNumber, WholeNumber},
     "LsWireFwd(50,1000);",
     nullptr},
    {"LsWireBwd",
     "LsWireBwd($%1#spn#1,100#true$, $%2#spn#1,10000#true$);",
     {QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed back speed [1-100](mm/s):"),
      QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire feed back time [1-10000](ms):")},
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Wire retract instruction\n"
                                            "LsWireBwd(speed, time)"),
     R"x(^\s*LsWireBwd\((%1),(%2)\);\s*(?://.*)?$)x",
     {WholeNumber, WholeNumber},
     "LsWireBwd(50,1000);",
     nullptr},
    {"LsParaMatch",
     "LsParaMatch($%1#cmb#\"PowerData1\"/\"PowerData2\"/\"PowerData3\"/\"PowerData4\"/"
     "\"PowerData5\"/\"PowerData6\"/\"PowerData7\"/\"PowerData8\"/\"PowerData9\"/"
     "\"PowerData10\"#true$);",
     {QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Sched:")},
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Parameter match enable instruction\n"
                                            "LsParaMatch(\"PowerDatax\")"),
     R"x(^\s*LsParaMatch\(\s*\"(%1)\"\s*\);\s*(?://.*)?$)x",
     {QuotedText},
     "LsParaMatch(\"PowerData1\");",
     nullptr},
    {"LsParaMatchOff",
     "LsParaMatchOff();",
     {},
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Parameter match disable instruction\n"
                                            "LsParaMatchOff(), no parameters"),
     BareKeyPattern,
     {"LsParaMatchOff"},
     "LsParaMatchOff();",
     &makeFixedLine},
};

struct Field
{
    const char* name;
    qelplugin::RlCustomFieldKind kind;
};

/// A motion: its arguments are typed and it has an editor of its own for either way.
struct Motion
{
    const char* key;
    const char* skeleton;
    const char* purpose;   ///< to be translated
    const char* signature; ///< not translated
    Field ownFields[4];    ///< in front of MotionFields; ends with a field without a name
    RLContentBase* (*makeInsertEditor)();
    RLContentBase* (*makePropertyEditor)();
};

constexpr Field MotionFields[] = {
    {"speed", qelplugin::Speed},
    {"zone", qelplugin::Zone},
    {"tool", qelplugin::Tool},
    {"wobj", qelplugin::Wobj},
};

template<typename Editor>
RLContentBase* makeMotionEditor()
{
    return new Editor(nullptr);
}

constexpr Motion Motions[] = {
    {"LsMoveL",
     "LsMoveL;",
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Linear welding motion instruction"),
     "LsMoveL(Pos, Speed, Zone, Tool, Wobj);",
     {{"Pos", qelplugin::RobTarget}},
     &makeMotionEditor<WMoveLInsertWidget>,
     &makeMotionEditor<WMoveLPropertyWidget>},
    {"LsMoveC",
     "LsMoveC;",
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Arc welding motion instruction"),
     "LsMoveC(MidPos, Pos, Speed, Zone, Tool, Wobj);",
     {{"midPos", qelplugin::RobTarget}, {"Pos", qelplugin::RobTarget}},
     &makeMotionEditor<WMoveCInsertWidget>,
     &makeMotionEditor<WMoveCPropertyWidget>},
    {"LsMoveCF",
     "LsMoveCF;",
     QT_TRANSLATE_NOOP("RlLaserWeldDefine", "Full circle welding motion instruction"),
     "LsMoveCF(Aux1, Aux2, RunDeg, \"RotType\", Speed, Zone, Tool, Wobj);",
     {{"auxPos1", qelplugin::RobTarget},
      {"auxPos2", qelplugin::RobTarget},
      {"runDeg", qelplugin::Number},
      {"rotType", qelplugin::Text}},
     &makeMotionEditor<WMoveCFInsertWidget>,
     &makeMotionEditor<WMoveCFPropertyWidget>},
};

QString translated(const char* literal)
{
    return RlLaserWeldDefine::tr(literal);
}

/// Fills %1, then %2; a null value fills nothing.
QString filled(const char* frame, const char* const (&values)[2], QString (*toText)(const char*))
{
    QString result = text(frame);
    for (const char* value : values) {
        if (value)
            result = result.arg(toText(value));
    }
    return result;
}

/// `instruction` is a row of the table: the factories keep a reference to it.
void registerInstruction(RLManager& manager, const Instruction& instruction)
{
    const QString key = text(instruction.key);
    manager.createTypeKey(key);
    manager.createSkeleton(key, filled(instruction.skeleton, instruction.labels, &translated));
    manager.createInsDescribe(key, translated(instruction.description));
    manager.createPattern(key, filled(instruction.pattern, instruction.patternParts, &text));
    manager.createInsDefault(key, text(instruction.defaultText));
    if (instruction.makeEditor) {
        const auto factory = [&instruction] { return instruction.makeEditor(instruction); };
        manager.createPropertyWidget(key, factory);
        manager.createInsertWidget(key, factory);
    }
    manager.createTypeToGroup(text(GroupKey), key);
}

template<std::size_t Size>
void appendFields(const Field (&fields)[Size], QList<qelplugin::RlCustomField>& all)
{
    constexpr auto NoRule = static_cast<qelplugin::ArgRuleTypeAPI>(0);
    for (const Field& field : fields) {
        if (field.name)
            all << qelplugin::RlCustomField(text(field.name), field.kind, NoRule);
    }
}

qelplugin::RlCustomCommandSpec commandOf(const Motion& motion)
{
    qelplugin::RlCustomCommandSpec command;
    command.name = text(motion.key);
    command.description =
        translated(motion.purpose) + QLatin1String("\n\n") + text(motion.signature);
    command.skeleton = text(motion.skeleton);
    command.flag = false;
    appendFields(motion.ownFields, command.fields);
    appendFields(MotionFields, command.fields);
    return command;
}

// Insert before property, the other way round than above.
void registerMotion(RLManager& manager, const Motion& motion)
{
    const qelplugin::RlCustomCommandSpec command = commandOf(motion);
    manager.createData(text(GroupKey), command, motion.makeInsertEditor, motion.makePropertyEditor);
    manager.createInsertWidget(command.name, motion.makeInsertEditor);
    manager.createPropertyWidget(command.name, motion.makePropertyEditor);
}

} // namespace

// The group is declared after the instructions have been bound to it.
RlLaserWeldDefine::RlLaserWeldDefine(QObject* parent)
    : QObject(parent)
    , manager(new RLManager(this))
{
    for (const Instruction& instruction : Instructions)
        registerInstruction(*manager, instruction);
    for (const Motion& motion : Motions)
        registerMotion(*manager, motion);
    manager->createGroups(tr("Laser Weld Ins"), text(GroupKey));
}
