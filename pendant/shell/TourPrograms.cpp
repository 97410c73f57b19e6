#include "TourChapters.h"

#include "Cell.h"
#include "Controller.h"
#include "MainWindow.h"
#include "RecordKeys.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QListView>

#include <algorithm>

namespace pendant {

namespace {

constexpr const char* Program = "tour";
constexpr const char* Group = "Laser Weld Ins";
constexpr const char* Description = "Linear welding motion instruction";
constexpr const char* Signature = "LsMoveL(Pos, Speed, Zone, Tool, Wobj);";
constexpr int Wire = 2; // the row that is commented, moved and deleted

/// What is done to a widget of an editor: the entry of a list is chosen, text goes into a field,
/// and a button is pressed.
struct Touch
{
    const char* widget;
    const char* value; ///< of a button: nothing
};

/// An instruction as it is inserted, and as it is changed later.
struct Line
{
    const char* key;
    std::vector<Touch> first;
    const char* text;
    std::vector<Touch> later;
    const char* changed;
};

const Line Lines[] = {
    {"LsMoveL",
     {{"cbxPoint", "seam"},
      {"btnOffs", ""},
      {"sbxZ", "100"},
      {"cbxSpeed", "v100"},
      {"cbxZone", "z10"}},
     "LsMoveL(Offs(seam,0,0,100), v100, z10, laser_torch, wobj0);",
     {{"sbxX", "-25"}, {"cbxSpeed", "v200"}, {"cbxWobj", "fixture_a"}},
     "LsMoveL(Offs(seam,-25,0,100), v200, z10, laser_torch, fixture_a);"},
    {"LaserOn",
     {{"cbxLaserDataID", "LsData2"}, {"cbxStartMode", "Spot weld"}, {"spinInPlaceWait", "800"}},
     "LaserOn(\"LsData2\", 800);",
     {{"cbxLaserDataID", "LsData12"}, {"spinInPlaceWait", "1200"}},
     "LaserOn(\"LsData12\", 1200);"},
    {"LsWireFwd",
     {{"input_1", "30"}, {"input_2", "1500"}},
     "LsWireFwd(30, 1500);",
     {{"input_2", "2000"}},
     "LsWireFwd(30, 2000);"},
    {"LsParaMatch",
     {{"input_1", "\"PowerData3\""}},
     "LsParaMatch(\"PowerData3\");",
     {{"input_1", "\"PowerData10\""}},
     "LsParaMatch(\"PowerData10\");"},
    {"LsMoveCF",
     {{"wgtAuxPoint1/cbxPoint", "ring1"},
      {"wgtAuxPoint2/cbxPoint", "ring2"},
      {"cbxRotType", "ConstPose"},
      {"cbxSpeed", "v20"}},
     "LsMoveCF(ring1, ring2, 360, \"ConstPose\", v20, fine, laser_torch, wobj0);",
     {{"sbxRunDeg", "390"}, {"cbxRotType", "FixedAxis"}},
     "LsMoveCF(ring1, ring2, 390, \"FixedAxis\", v20, fine, laser_torch, wobj0);"},
    {"LsMoveC",
     {{"wgtAuxPoint/cbxPoint", "p2"}, {"wgtTargetPoint/cbxPoint", "p3"}},
     "LsMoveC(p2, p3, NULL, fine, laser_torch, wobj0);",
     {{"wgtTargetPoint/cbxPoint", "p4"}},
     "LsMoveC(p2, p4, NULL, fine, laser_torch, wobj0);"},
    {"LsParaSet", {}, "LsParaSet(\"LsData1\");", {}, "LsParaSet(\"LsData1\");"},
    {"LsParaMatchOff", {}, "LsParaMatchOff();", {}, "LsParaMatchOff();"},
    {"LsWireBwd",
     {{"input_1", "20"}, {"input_2", "500"}},
     "LsWireBwd(20, 500);",
     {{"input_1", "25"}},
     "LsWireBwd(25, 500);"},
    {"LaserOff", {}, "LaserOff();", {}, "LaserOff();"},
};

/// The new points, each stored with what was selected for the robot then.
constexpr const char* Points[] = {"seam", "ring1", "ring2"};

QListView* list(TourStage& stage, const char* name)
{
    return qobject_cast<QListView*>(stage.widget(latin(name)));
}

QString labelText(TourStage& stage, const char* name)
{
    const auto* label = qobject_cast<QLabel*>(stage.widget(latin(name)));
    return label ? label->text() : QString();
}

bool clickRow(TourStage& stage, const char* name, int row)
{
    QListView* view = list(stage, name);
    return view && stage.hand().click(view, view->model()->index(row, 0));
}

bool clickEntry(TourStage& stage, const char* name, const QString& entry)
{
    QListView* view = list(stage, name);
    if (!view)
        return false;
    const QModelIndexList found = view->model()->match(view->model()->index(0, 0), Qt::DisplayRole,
                                                       entry, 1, Qt::MatchExactly);
    return stage.hand().click(view, found.value(0));
}

bool touch(TourStage& stage, const Touch& touch)
{
    QWidget* widget = stage.widget(latin(touch.widget));
    if (qobject_cast<QAbstractButton*>(widget))
        return stage.hand().click(widget);
    auto* box = qobject_cast<QComboBox*>(widget);
    // An entry may be a word of the editor, a name otherwise.
    if (box && !box->isEditable())
        return stage.hand().choose(box, shown("qelplugin::RLLaserOnInsertWidget", touch.value));
    return stage.hand().enter(widget, latin(touch.value));
}

bool touchAll(TourStage& stage, const std::vector<Touch>& all)
{
    return std::all_of(all.begin(), all.end(),
                       [&](const Touch& each) { return touch(stage, each); });
}

// The lines of the program in the editor.
QStringList shownLines(TourStage& stage)
{
    QStringList lines;
    const auto* model = list(stage, "programView")->model();
    for (int row = 0; row < model->rowCount(); ++row)
        lines << model->index(row, 0).data().toString();
    return lines;
}

bool expectLines(TourStage& stage, const QStringList& expected)
{
    const QStringList lines = shownLines(stage);
    return stage.expect(lines == expected,
                        QStringLiteral("the program is \"%1\", not \"%2\"")
                            .arg(lines.join(QLatin1Char('\n')), expected.join(QLatin1Char('\n'))));
}

/// The first `rows` lines as they were inserted, those before `changed` as they are later.
QStringList storyLines(std::size_t rows, std::size_t changed)
{
    QStringList lines;
    for (std::size_t row = 0; row < rows; ++row)
        lines << latin(row < changed ? Lines[row].changed : Lines[row].text);
    return lines;
}

QStringList finalLines()
{
    return storyLines(std::size(Lines), std::size(Lines));
}

bool showPrograms(TourStage& stage)
{
    return stage.logIn(TourStage::OperatorLevel) && stage.clickName(latin("button_program"));
}

bool nameProgram(TourStage& stage)
{
    return stage.clickName(latin("button_newProgram")) &&
           stage.hand().enter(stage.widget(latin("edit_name")), latin(Program));
}

bool openProgram(TourStage& stage)
{
    return clickEntry(stage, "list_programs", latin(Program)) &&
           stage.clickName(latin("button_openProgram"));
}

bool openNewProgram(TourStage& stage)
{
    return stage.clickName(latin("answer_ok")) && openProgram(stage) && expectLines(stage, {});
}

bool pickInstruction(TourStage& stage, const char* key)
{
    return stage.hand().choose(qobject_cast<QComboBox*>(stage.widget(latin("box_group"))),
                               shown("RlLaserWeldDefine", Group)) &&
           clickEntry(stage, "list_instructions", latin(key));
}

bool readDescription(TourStage& stage)
{
    const QString description =
        shown("RlLaserWeldDefine", Description) + latin("\n\n") + latin(Signature);
    return pickInstruction(stage, Lines[0].key) &&
           stage.expect(labelText(stage, "label_description") == description,
                        latin("the description is not that of the instruction"));
}

bool setTarget(TourStage& stage)
{
    const QStringList before = stage.controller().pointNames();
    return touchAll(stage, Lines[0].first) &&
           stage.expect(stage.controller().pointNames() == before,
                        latin("the controller has a point too early"));
}

bool pressInsert(TourStage& stage, std::size_t row)
{
    return stage.clickName(latin("button_insertAfter")) && stage.expectNoMessage() &&
           expectLines(stage, storyLines(row + 1, 0));
}

bool insertMove(TourStage& stage)
{
    return pressInsert(stage, 0) &&
           stage.expect(stage.controller().pointNames().contains(latin(Points[0])),
                        latin("the point is not on the controller"));
}

bool insertLine(TourStage& stage, std::size_t row)
{
    return pickInstruction(stage, Lines[row].key) && touchAll(stage, Lines[row].first) &&
           pressInsert(stage, row);
}

bool changeLine(TourStage& stage, std::size_t row)
{
    return clickRow(stage, "programView", static_cast<int>(row)) &&
           touchAll(stage, Lines[row].later) && stage.clickName(latin("button_replace")) &&
           stage.expectNoMessage() && expectLines(stage, storyLines(std::size(Lines), row + 1));
}

bool makeComment(TourStage& stage)
{
    QStringList lines = finalLines();
    lines[Wire].prepend(latin("// "));
    return clickRow(stage, "programView", Wire) && stage.clickName(latin("button_comment")) &&
           expectLines(stage, lines);
}

bool moveAndDelete(TourStage& stage)
{
    QStringList lines = finalLines();
    lines.move(Wire, Wire + 1);
    if (!stage.clickName(latin("button_undo")) || !clickRow(stage, "programView", Wire) ||
        !stage.clickName(latin("button_moveDown")) || !expectLines(stage, lines))
        return false;
    lines.removeAt(Wire + 1);
    return stage.clickName(latin("button_delete")) && expectLines(stage, lines);
}

// The comment, the move and the deletion; the two last ones are done again.
bool undoAndRedo(TourStage& stage)
{
    const auto twice = [&](const char* button) {
        return stage.clickName(latin(button)) && stage.clickName(latin(button));
    };
    const QStringList deleted = shownLines(stage);
    return twice("button_undo") && expectLines(stage, finalLines()) && twice("button_redo") &&
           expectLines(stage, deleted) && twice("button_undo") && expectLines(stage, finalLines());
}

bool leaveUnsaved(TourStage& stage)
{
    const QWidget* question = stage.widget(latin("questionPanel"));
    return stage.clickName(latin("button_programs")) &&
           stage.expect(question->isVisible(), latin("unsaved work is left without a question"));
}

bool save(TourStage& stage)
{
    QByteArray text;
    return stage.clickName(latin("answer_cancel")) && stage.clickName(latin("button_save")) &&
           stage.expectNoMessage() && stage.controller().readProgram(latin(Program), &text) &&
           stage.expect(QString::fromUtf8(text) ==
                            finalLines().join(QLatin1Char('\n')) + QLatin1Char('\n'),
                        latin("the controller does not hold the program"));
}

// As the cell file has them: the pendant is closed.
bool expectStoredPoints(TourStage& stage, const QString& tool, const QString& workObject)
{
    QString error;
    const auto cell = Cell::open(stage.cellFile(), {}, {}, &error);
    if (!cell)
        return stage.fail(error);
    const QJsonArray points = cell->record(keys::points).toArray();
    const auto isStored = [&](const char* name) {
        return std::any_of(points.begin(), points.end(), [&](const QJsonValue& each) {
            return each[keys::name] == latin(name) && each[keys::tool] == tool &&
                   each[keys::workObject] == workObject;
        });
    };
    return stage.expect(std::all_of(std::begin(Points), std::end(Points), isStored),
                        latin("the cell lacks a point, or its tool or work object"));
}

bool findAgain(TourStage& stage)
{
    const QString tool = stage.controller().currentTool();
    const QString workObject = stage.controller().currentWorkObject();
    stage.close();
    return expectStoredPoints(stage, tool, workObject) && stage.open() && showPrograms(stage) &&
           openProgram(stage) && expectLines(stage, finalLines());
}

bool expectRefused(TourStage& stage, const char* text)
{
    return stage.expectMessage(TourStage::Warning,
                               shown("pendant::ProgramEditor", text).arg(latin(Lines[0].key))) && expectLines(stage, finalLines());
}

bool refuseInsert(TourStage& stage)
{
    const QStringList before = stage.controller().pointNames();
    return stage.logIn(TourStage::TooLow) && pickInstruction(stage, Lines[0].key) &&
           touchAll(stage, {{"cbxPoint", "never"}}) &&
           stage.clickName(latin("button_insertAfter")) &&
           expectRefused(stage, "Inserting \"%1\" was refused. Check what is filled in and who is "
                                "logged in.") &&
           stage.expect(stage.controller().pointNames() == before,
                        latin("the controller has a new point"));
}

bool refuseReplace(TourStage& stage)
{
    return clickRow(stage, "programView", 0) && touchAll(stage, {{"cbxSpeed", "v5"}}) &&
           stage.clickName(latin("button_replace")) &&
           expectRefused(stage, "Replacing by \"%1\" was refused. Check what is filled in and who is "
                                "logged in.");
}

bool askToDelete(TourStage& stage)
{
    return stage.clickName(latin("button_programs")) &&
           stage.clickName(latin("button_removeProgram")) &&
           stage.expect(stage.controller().programs().contains(latin(Program)),
                        latin("the program is gone without an answer"));
}

bool deleteProgram(TourStage& stage)
{
    return stage.clickName(latin("answer_delete")) &&
           stage.expect(!stage.controller().programs().contains(latin(Program)),
                        latin("the program is still there")) &&
           stage.clickName(latin("button_program"));
}

TourStep lineStep(const char* name, const char* title, std::size_t row, const char* text,
                  bool (*perform)(TourStage&, std::size_t))
{
    return {latin(name).arg(latin(Lines[row].key)), latin(title).arg(latin(text)),
            [=](TourStage& stage) { return perform(stage, row); }};
}

} // namespace

TourChapter programsChapter()
{
    TourChapter chapter{
        step("programs", "The robot programs of the controller", showPrograms),
        step("program-name", "A new program gets its name", nameProgram),
        step("program-open", "It is opened: there is nothing in it", openNewProgram),
        step("program-instruction", "\"LsMoveL\" is picked, and its description read",
             readDescription),
        step("program-target", "The target is a new point, with an offset", setTarget),
        step("program-insert-LsMoveL", "It is inserted: the point is on the controller",
             insertMove),
    };
    for (std::size_t row = 1; row < std::size(Lines); ++row) {
        chapter.push_back(
            lineStep("program-insert-%1", "Inserted: %1", row, Lines[row].text, insertLine));
    }
    for (std::size_t row = 0; row < std::size(Lines); ++row) {
        chapter.push_back(lineStep("program-change-%1", "Changed and replaced: %1", row,
                                   Lines[row].changed, changeLine));
    }
    const TourStep rest[] = {
        step("program-comment", "A line becomes a comment", makeComment),
        step("program-delete", "The line is one again, is moved down, and deleted", moveAndDelete),
        step("program-undo", "Both are undone, done again, and undone", undoAndRedo),
        step("program-unsaved", "Leaving asks, for nothing is saved yet", leaveUnsaved),
        step("program-saved", "The program is saved on the controller", save),
        step("program-again", "The pendant is closed and started again: the program is there",
             findAgain),
        step("program-insert-refused", "A user of level 2 may not insert a motion", refuseInsert),
        step("program-replace-refused", "Nor replace one", refuseReplace),
        step("program-delete-asked", "Deleting the program asks first", askToDelete),
        step("program-deleted", "It is deleted, and the plugin's page is back", deleteProgram),
    };
    chapter.insert(chapter.end(), std::begin(rest), std::end(rest));
    return chapter;
}

} // namespace pendant
