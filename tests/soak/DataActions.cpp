// "Weld Data": lists, schedules and matching records.

#include "Actions.h"
#include "Forms.h"
#include "PageActions.h"
#include "RecordKeys.h"

#include <QComboBox>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>

namespace soak {

namespace keys = pendant::keys;

namespace {

constexpr const char* Context = "WeldParameterPage";
constexpr const char* ListTabs[] = {"Process schedule", "Parameter matching"};
constexpr const char* ListTables[] = {"tableWidget", "tableWidget_2"};
constexpr const char* ScheduleTabs[] = {"Starting process", "Welding process", "Ending process"};

enum View { Lists, Schedule, Matching };

QWidget* part(Scene& scene, const char* name)
{
    return Forms::within(scene.pageWidget(), latin(name));
}

int view(Scene& scene)
{
    scene.goTo(Page::Data);
    return Forms::within<QStackedWidget>(scene.pageWidget(), latin("stackedWidget"))
        ->currentIndex();
}

int listTab(Scene& scene)
{
    return Forms::within<QTabWidget>(scene.pageWidget(), latin("tabWidget"))->currentIndex();
}

// What is locked does not move.
bool goBack(Scene& scene)
{
    if (view(scene) == Lists)
        return true;
    scene.click(part(scene, "pushButton_back"));
    scene.pageRead();
    return view(scene) == Lists;
}

bool isLocked(Scene& scene)
{
    return !isFree(scene.pageWidget());
}

void turnTab(Scene& scene)
{
    if (!goBack(scene) || isLocked(scene))
        return;
    scene.openTab(latin("WeldParameterPage/tabWidget"), shown(Context, scene.chance.of(ListTabs)));
    scene.pageRead();
}

// What a list shows of the records that there are.
void checkList(Scene& scene)
{
    constexpr const char* columns[] = {"welding_speed", "laser_power_weld", "feeding_speed_run",
                                       "Tips"};
    if (!goBack(scene) || !scene.model.readsTruly() || listTab(scene) != 0)
        return;
    scene.goTo(Page::Setting);
    scene.goTo(Page::Data); // which reads anew
    const QJsonObject all = scene.model.records[keys::weldSchedules].toObject();
    const auto* table = Forms::within<QTableWidget>(scene.pageWidget(), latin(ListTables[0]));
    for (auto each = all.begin(); each != all.end(); ++each) {
        const int row = each.key().midRef(6).toInt() - 1;
        for (int column = 1; column <= 4; ++column) {
            const QString held = each.value()[latin(columns[column - 1])].toVariant().toString();
            const auto* cell = table->item(row, column);
            demand(cell && cell->text() == held,
                   QStringLiteral("the list shows another \"%1\" of \"%2\"")
                       .arg(latin(columns[column - 1]), each.key()));
        }
    }
}

void open(Scene& scene)
{
    if (!goBack(scene))
        return;
    const char* name = ListTables[listTab(scene)];
    auto* table = Forms::within<QTableWidget>(scene.pageWidget(), latin(name));
    if (!scene.chance.oneIn(6)) {
        const int row = scene.chance.below(table->rowCount());
        scene.note = QStringLiteral("row %1").arg(row + 1);
        scene.clickRow(QStringLiteral("WeldParameterPage/") + latin(name), row, 1);
    }
    const bool isChosen = table->currentRow() >= 0;
    scene.click(part(scene, "pushButton_Config"));
    if (isLocked(scene))
        return;
    if (isChosen)
        scene.pageRead();
    else
        scene.model.tell(Model::Warning,
                         shown(Context, "Please select a row of data in the table first"));
    demand((view(scene) != Lists) == isChosen, latin("\"Detailed\" does not open as it should"));
}

void goBackToLists(Scene& scene)
{
    goBack(scene);
}

// A schedule, opened if need be and if that is possible.
bool scheduleIsOpen(Scene& scene)
{
    if (view(scene) == Lists && listTab(scene) == 0)
        open(scene);
    return view(scene) == Schedule;
}

bool openAnyTab(Scene& scene)
{
    if (!scheduleIsOpen(scene))
        return false;
    if (!isLocked(scene))
        scene.openTab(latin("WeldParameterPage/tabWidget_config"),
                      shown(Context, scene.chance.of(ScheduleTabs)));
    return true;
}

template<typename Touch>
void touchAny(Scene& scene, const QStringList& names, const Touch& touch)
{
    if (!openAnyTab(scene))
        return;
    const QList<QWidget*> all = visibleOf(scene.pageWidget(), names);
    if (!all.isEmpty())
        touch(scene.chance.of(all));
}

void enterField(Scene& scene)
{
    touchAny(scene, Forms::scheduleNumbers(), [&](QWidget* field) { enterNumber(scene, field); });
}

void turnSwitch(Scene& scene)
{
    touchAny(scene, Forms::scheduleSwitches(), [&](QWidget* toggle) {
        const bool before = Forms::isOn(toggle);
        scene.note = toggle->objectName();
        scene.click(toggle);
        demand(Forms::isOn(toggle) == (before != isFree(toggle)),
               latin("the switch does not follow"));
    });
}

void chooseEntry(Scene& scene)
{
    touchAny(scene, Forms::scheduleChoices(), [&](QWidget* choice) {
        auto* box = qobject_cast<QComboBox*>(choice);
        if (isFree(box))
            chooseAny(scene, box);
    });
}

void enterComment(Scene& scene)
{
    constexpr const char* comments[] = {"butt joint", "fillet 2 mm", "corner", "tack"};
    if (!scheduleIsOpen(scene))
        return;
    auto* header = part(scene, "frame_config_header");
    const QString text = latin(scene.chance.of(comments));
    auto* field = Forms::within(header, latin("lineEdit"));
    scene.enter(field, text);
    demand(!isFree(field) || field->property("text").toString() == text,
           latin("the comment is not as it was typed"));
}

// A matching record, opened if need be and if that is possible.
bool matchingIsOpen(Scene& scene)
{
    if (view(scene) == Lists && listTab(scene) == 1)
        open(scene);
    return view(scene) == Matching;
}

QWidget* cell(Scene& scene, int row, int column)
{
    const auto* table =
        Forms::within<QTableWidget>(scene.pageWidget(), latin("tableWidget_matching"));
    return table->cellWidget(row + 2, column + 1);
}

void enterCell(Scene& scene)
{
    if (matchingIsOpen(scene))
        enterNumber(scene, cell(scene, scene.chance.below(4), scene.chance.below(4)));
}

void enterRisingCells(Scene& scene)
{
    if (!matchingIsOpen(scene) || isLocked(scene))
        return;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            scene.enter(cell(scene, row, column),
                        QString::number(20 * row + 10 + scene.chance.below(10)));
    }
}

void saveSchedule(Scene& scene)
{
    const QJsonObject form = Forms::schedule(scene.pageWidget());
    const QString key = form.value(latin("LsDataID")).toString();
    scene.click(part(scene, "pushButton_save"));
    if (isLocked(scene))
        return;
    finishSave(scene, latin("set_weld_param_list_config"), keys::weldSchedules,
               merged(scene.model.records[keys::weldSchedules].toObject(), {{key, form}}), Context);
}

/// The columns that must rise, in the order in which they are looked at.
struct Column
{
    const char* name;
    int index;
    const char* enableKey; ///< null: always
};

constexpr Column Columns[] = {{"Power", 1, "power_enable"},
                              {"Frequency", 2, "frequency_enable"},
                              {"Duty Cycle", 3, "dutycycle_enable"},
                              {"Speed", 0, nullptr}};

// What the page tells of columns that do not rise; empty when all do.
QString complaint(const QJsonObject& form)
{
    const QJsonArray rows = form.value(latin("power_data")).toArray();
    for (int row = 1; row < rows.size(); ++row) {
        for (const Column& each : Columns) {
            if (each.enableKey && !form.value(latin(each.enableKey)).toBool())
                continue;
            if (rows.at(row)[each.index].toInt() > rows.at(row - 1)[each.index].toInt())
                continue;
            const QByteArray text = QByteArray(each.name) +
                                    " parameter validation failed between row %1 and row %2. Row "
                                    "%1 value must be less than row %2.";
            return shown(Context, text.constData()).arg(row).arg(row + 1);
        }
    }
    return {};
}

void saveMatching(Scene& scene)
{
    const QJsonObject form = Forms::matching(scene.pageWidget());
    const QString key = form.value(latin("PowerDataID")).toString();
    scene.click(part(scene, "pushButton_save"));
    if (isLocked(scene))
        return;
    const QString refusal = complaint(form);
    if (!refusal.isEmpty()) {
        scene.model.tell(Model::Warning, refusal);
        scene.model.allowedWarnings << latin("validateMatchingTableParams: ");
        return;
    }
    finishSave(scene, latin("set_weld_param_match_config"), keys::weldMatching,
               merged(scene.model.records[keys::weldMatching].toObject(), {{key, form}}), Context);
}

void save(Scene& scene)
{
    if (view(scene) == Lists)
        open(scene);
    if (view(scene) == Schedule)
        saveSchedule(scene);
    else if (view(scene) == Matching)
        saveMatching(scene);
}

} // namespace

Actions dataActions()
{
    return {
        {"data: tab", 4, turnTab},        {"data: list", 2, checkList},
        {"data: open", 4, open},          {"data: back", 3, goBackToLists},
        {"data: field", 6, enterField},   {"data: switch", 4, turnSwitch},
        {"data: choice", 2, chooseEntry}, {"data: comment", 2, enterComment},
        {"data: cell", 4, enterCell},     {"data: rising cells", 3, enterRisingCells},
        {"data: save", 8, save},
    };
}

} // namespace soak
