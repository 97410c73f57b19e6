// The robot programs: the list and the editor.

#include "Actions.h"
#include "Controller.h"
#include "MainWindow.h"
#include "ProgramEditor.h"
#include "Scene.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

namespace soak {

namespace {

constexpr const char* Names[] = {"seam_a", "seam_b", "ring", "frame", "Tack 1", "test"};
constexpr const char* Points[] = {"p1", "p2", "p3", "home", "seam1", "seam2", "seam3"};
constexpr int MostLines = 40;
constexpr int LeastPrograms = 2;

pendant::ProgramEditor& editor(Scene& scene)
{
    return *scene.stage.window().findChild<pendant::ProgramEditor*>();
}

QStringList lines(Scene& scene)
{
    const pendant::ProgramDocument& program = editor(scene).program();
    QStringList all;
    for (int row = 0; row < program.rowCount(); ++row)
        all << program.line(row);
    return all;
}

bool editorIsOpen(Scene& scene)
{
    return scene.isVisible(latin("programView"));
}

// The shell words them, and the model does not know them by heart. An instruction with two new
// points may bring two.
void takeComplaints(Scene& scene)
{
    const auto& told = scene.witness.messages;
    auto& known = scene.model.messages;
    demand(told.size() > known.size(), latin("nothing tells why it did not work"));
    while (known.size() < told.size()) {
        const Told& next = told.at(known.size());
        demand(next.level == Model::Warning,
               QStringLiteral("what is told is no warning: %1").arg(next.text));
        known.append(next);
    }
}

void startHistory(Scene& scene)
{
    scene.history = {lines(scene)};
    scene.historyIndex = 0;
}

// The history of the document has a step more if it has a step more.
void noteChange(Scene& scene)
{
    const int index = editor(scene).program().history().index();
    const auto place = static_cast<std::size_t>(index);
    if (index != scene.historyIndex) {
        demand(index == scene.historyIndex + 1, latin("a change is more than a step"));
        scene.history.resize(place);
        scene.history.push_back(lines(scene));
        scene.historyIndex = index;
    }
    demand(lines(scene) == scene.history[place], latin("the lines have changed without a step"));
}

void save(Scene& scene)
{
    scene.click(latin("button_save"));
    if (!scene.model.connected || !scene.model.programs.contains(editor(scene).name())) {
        if (!scene.model.connected)
            takeComplaints(scene);
        else
            scene.model.programs.insert(editor(scene).name(), editor(scene).program().text());
        return;
    }
    scene.model.programs[editor(scene).name()] = editor(scene).program().text();
    demand(!editor(scene).program().isModified(), latin("what was saved counts as changed"));
}

// To the list: what is not saved is saved or given up, or the operator stays.
bool leave(Scene& scene, bool mayStay)
{
    scene.showPrograms();
    if (!editorIsOpen(scene))
        return true;
    const bool isModified = editor(scene).program().isModified();
    scene.click(latin("button_programs"));
    demand(scene.isVisible(latin("questionPanel")) == isModified,
           latin("the question does not come when it should"));
    if (isModified && mayStay && scene.chance.oneIn(3)) {
        scene.click(latin("answer_cancel"));
        return false;
    }
    if (isModified && scene.model.connected && scene.chance.oneIn(2)) {
        scene.model.programs[editor(scene).name()] = editor(scene).program().text();
        scene.click(latin("answer_save"));
    } else if (isModified) {
        scene.click(latin("answer_discard"));
        startHistory(scene);
    }
    demand(!editorIsOpen(scene), latin("the editor is still open"));
    return true;
}

void leaveEditor(Scene& scene)
{
    leave(scene, true);
}

// False when there is none to be opened.
bool open(Scene& scene)
{
    scene.showPrograms();
    if (editorIsOpen(scene))
        return true;
    auto* list = scene.widget<QListWidget>(latin("list_programs"));
    if (list->count() == 0)
        return false;
    const int row = scene.chance.below(list->count());
    const QString name = list->item(row)->text();
    scene.clickRow(latin("list_programs"), row);
    scene.click(latin("button_openProgram"));
    demand(editorIsOpen(scene) && editor(scene).name() == name, latin("the program does not open"));
    demand(editor(scene).program().text() == scene.model.programs.value(name),
           latin("the editor shows another program"));
    startHistory(scene);
    return true;
}

void openOne(Scene& scene)
{
    if (leave(scene, false))
        open(scene);
}

void makeNew(Scene& scene)
{
    leave(scene, false);
    const QString name = latin(scene.chance.of(Names));
    scene.note = name;
    scene.click(latin("button_newProgram"));
    scene.enter(scene.widget(latin("edit_name")), name);
    scene.click(latin("answer_ok"));
    if (scene.model.connected && !scene.model.programs.contains(name)) {
        scene.model.programs.insert(name, {});
        return;
    }
    takeComplaints(scene);
    scene.click(latin("answer_cancel"));
}

void remove(Scene& scene)
{
    leave(scene, false);
    const auto* list = scene.widget<QListWidget>(latin("list_programs"));
    if (list->count() <= LeastPrograms)
        return;
    const int row = scene.chance.below(list->count());
    const QString name = list->item(row)->text();
    const bool isSure = !scene.chance.oneIn(3);
    scene.clickRow(latin("list_programs"), row);
    scene.click(latin("button_removeProgram"));
    scene.click(latin(isSure ? "answer_delete" : "answer_cancel"));
    if (isSure)
        scene.model.programs.remove(name);
}

void touchSpin(Scene& scene, QWidget* field)
{
    const int least = qMax(0, field->property("minimum").toInt());
    const int most = qMin(999, field->property("maximum").toInt());
    scene.enter(field, QString::number(scene.chance.between(least, qMax(least, most))));
}

void touchBox(Scene& scene, QComboBox* box)
{
    if (box->isEditable())
        scene.enter(box, latin(scene.chance.of(Points)));
    else if (box->count() > 0)
        scene.choose(box, scene.chance.below(box->count()));
}

void touchField(Scene& scene, QWidget* field)
{
    if (auto* box = qobject_cast<QComboBox*>(field))
        touchBox(scene, box);
    else if (qobject_cast<QAbstractSpinBox*>(field))
        touchSpin(scene, field);
    else
        scene.enter(field, QString::number(scene.chance.between(1, 500)));
}

// Those of the editor that can be filled in now, without what they are made of.
QList<QWidget*> fields(Scene& scene)
{
    QList<QWidget*> all;
    const auto candidates = scene.widget(latin("scroll_editor"))->findChildren<QWidget*>();
    for (QWidget* each : candidates) {
        const QWidget* parent = each->parentWidget();
        const bool isInner =
            qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent);
        const bool isField = qobject_cast<QComboBox*>(each) ||
                             qobject_cast<QAbstractSpinBox*>(each) ||
                             qobject_cast<QLineEdit*>(each);
        if (isField && !isInner && each->isVisible() && each->isEnabled())
            all << each;
    }
    return all;
}

void fillIn(Scene& scene)
{
    for (int touches = scene.chance.below(4); touches > 0; --touches) {
        const QList<QWidget*> all = fields(scene); // a touch may change which there are
        if (!all.isEmpty())
            touchField(scene, scene.chance.of(all));
    }
}

void pickInstruction(Scene& scene)
{
    auto* groups = scene.widget<QComboBox>(latin("box_group"));
    if (groups->count() > 0)
        scene.choose(groups, scene.chance.oneIn(4) ? scene.chance.below(groups->count()) : 0);
    auto* list = scene.widget<QListWidget>(latin("list_instructions"));
    const int row = scene.chance.below(list->count());
    scene.note = list->item(row)->text();
    scene.clickRow(latin("list_instructions"), row);
}

// What was offered is in the program, or the operator knows why not. A point that cannot be stored
// is told as well. A line may be replaced by itself.
void checkOffer(Scene& scene, const QStringList& before, bool mayChange, bool isReplaced)
{
    const bool isChanged = lines(scene) != before;
    demand(mayChange || !isChanged, latin("who may not operate has changed the program"));
    const bool isTold = scene.witness.messages.size() > scene.model.messages.size();
    demand(isChanged || isTold || isReplaced, latin("nothing has changed, and nothing says why"));
    if (isTold)
        takeComplaints(scene);
    noteChange(scene);
}

bool isMotion(const QString& key)
{
    return key.startsWith(latin("LsMove"));
}

void insert(Scene& scene)
{
    if (!open(scene) || lines(scene).size() > MostLines)
        return;
    pickInstruction(scene);
    const QString key = scene.note;
    fillIn(scene);
    const QStringList before = lines(scene);
    scene.click(latin(scene.chance.oneIn(3) ? "button_insertBefore" : "button_insertAfter"));
    demand(lines(scene).size() >= before.size(), latin("inserting has taken lines away"));
    const bool mayChange = scene.model.mayOperate() || !isMotion(key);
    checkOffer(scene, before, mayChange, false);
}

bool selectLine(Scene& scene)
{
    const int count = open(scene) ? lines(scene).size() : 0;
    if (count > 0)
        scene.clickRow(latin("programView"), scene.chance.below(count));
    return count > 0;
}

void replace(Scene& scene)
{
    if (!selectLine(scene) || !scene.widget(latin("button_replace"))->isEnabled())
        return;
    fillIn(scene);
    const QStringList before = lines(scene);
    scene.click(latin("button_replace"));
    checkOffer(scene, before, true, true);
}

void changeLines(Scene& scene)
{
    constexpr const char* buttons[] = {"button_comment", "button_delete",   "button_delete",
                                       "button_moveUp",  "button_moveDown", "button_cut",
                                       "button_copy",    "button_paste"};
    if (!selectLine(scene))
        return;
    const char* name = scene.chance.of(buttons);
    scene.note = latin(name);
    scene.click(latin(name));
    noteChange(scene);
}

void turnHistory(Scene& scene, int direction, const char* button)
{
    if (!open(scene))
        return;
    const int index = scene.historyIndex + direction;
    const bool isThere = index >= 0 && index < static_cast<int>(scene.history.size());
    demand(scene.widget(latin(button))->isEnabled() == isThere,
           QStringLiteral("\"%1\" is not as the history demands").arg(latin(button)));
    scene.click(latin(button));
    if (isThere)
        scene.historyIndex = index;
    demand(lines(scene) == scene.history[static_cast<std::size_t>(scene.historyIndex)],
           latin("the lines are not as they were"));
}

void undo(Scene& scene)
{
    turnHistory(scene, -1, "button_undo");
}

void redo(Scene& scene)
{
    turnHistory(scene, 1, "button_redo");
}

void saveOpen(Scene& scene)
{
    if (open(scene))
        save(scene);
}

void find(Scene& scene)
{
    constexpr const char* texts[] = {"LsMove", "laser", "nowhere", "//", "30"};
    if (!open(scene))
        return;
    const QString text = latin(scene.chance.of(texts));
    scene.note = text;
    scene.enter(scene.widget(latin("edit_find")), text);
    scene.click(latin("button_find"));
    const bool isThere = !lines(scene).filter(text, Qt::CaseInsensitive).isEmpty();
    if (!isThere)
        scene.model.tell(
            Model::Warning,
            shown("pendant::ProgramEditor", "\"%1\" is not in the program.").arg(text));
}

} // namespace

Actions programActions()
{
    return {
        {"program: open", 3, openOne},    {"program: new", 2, makeNew},
        {"program: delete", 1, remove},   {"program: insert", 10, insert},
        {"program: replace", 5, replace}, {"program: lines", 7, changeLines},
        {"program: undo", 5, undo},       {"program: redo", 3, redo},
        {"program: save", 4, saveOpen},   {"program: leave", 2, leaveEditor},
        {"program: find", 2, find},
    };
}

} // namespace soak
