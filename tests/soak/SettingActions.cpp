// "Weld Setup": fields, save, cancel and the main switch.

#include "Actions.h"
#include "Forms.h"
#include "PageActions.h"
#include "RecordKeys.h"

#include <QWidget>

namespace soak {

namespace keys = pendant::keys;

namespace {

constexpr const char* Context = "WeldSettingPage";
constexpr const char* Locked[] = {"frame", "frame_2", "frame_3", "frame_4", "frame_WireSticking"};

QWidget* part(Scene& scene, const char* name)
{
    return Forms::within(scene.pageWidget(), latin(name));
}

bool mainIsOn(Scene& scene)
{
    return Forms::isOn(part(scene, "pushButton_main_enable"));
}

void checkLock(Scene& scene)
{
    const bool isOn = mainIsOn(scene);
    for (const char* name : Locked)
        demand(part(scene, name)->isEnabledTo(scene.pageWidget()) != isOn,
               QStringLiteral("\"%1\" is %2, and the main switch %3")
                   .arg(latin(name), latin(isOn ? "free" : "locked"), latin(isOn ? "on" : "off")));
}

// True when the times fit; else the operator is told.
bool timesFit(Scene& scene, const QJsonObject& form)
{
    if (form.value(latin("feedback_delay")).toInt() >=
        form.value(latin("laser_check_out_time")).toInt())
        return true;
    scene.model.tell(Model::Error, shown(Context, "The detected time of the light output is later "
                                                  "than the light output inspection time; saving "
                                                  "failed!"));
    return false;
}

void editField(Scene& scene)
{
    scene.goTo(Page::Setting);
    enterNumber(scene, scene.chance.of(visibleOf(scene.pageWidget(),
                                                 Forms::settingNumbers(scene.pageWidget()))));
}

void turnFeeder(Scene& scene)
{
    scene.goTo(Page::Setting);
    QWidget* toggle = part(scene, "pushButton_Feeder");
    const bool before = Forms::isOn(toggle);
    scene.click(toggle);
    demand(Forms::isOn(toggle) == (before != isFree(toggle)),
           latin("the switch of the wire feeder does not follow"));
}

void save(Scene& scene)
{
    scene.goTo(Page::Setting);
    const QJsonObject form = Forms::setting(scene.pageWidget());
    QWidget* button = part(scene, "pushButton_save");
    const bool canSave = isFree(button);
    demand(canSave == (scene.model.mayOperate() && !mainIsOn(scene)),
           latin("\"Save\" is not as user and main switch demand"));
    scene.click(button);
    if (canSave && timesFit(scene, form))
        finishSave(scene, latin("set_weld_setting_config"), keys::weldSetting, form, Context);
}

void cancel(Scene& scene)
{
    scene.goTo(Page::Setting);
    QWidget* button = part(scene, "pushButton_cancel");
    const bool canCancel = isFree(button);
    scene.click(button);
    if (canCancel)
        tellCancelled(scene, Context);
}

void start(Scene& scene, QJsonObject form)
{
    Model& model = scene.model;
    if (!timesFit(scene, form))
        return;
    const std::optional<int> code = scene.codeOf(latin("set_weld_enable"));
    demand(code.has_value() == model.arrives(), latin("the start was not sent"));
    model.welding = model.welding || code == 0;
    const bool isAccepted = code == 0 && model.strictResult(0) && !model.faults.wrongTypes;
    demand(mainIsOn(scene) == isAccepted, latin("the main switch does not follow the answer"));
    if (!isAccepted) {
        model.tell(Model::Error, shown(Context, "Laser weld startup faild!"));
        return;
    }
    form.insert(latin("laser_main_enable"), true);
    demand(scene.codeOf(latin("set_weld_setting_config")) == 0,
           latin("the start is not followed by a save"));
    model.records[keys::weldSetting] = form;
}

void stop(Scene& scene)
{
    demand(!mainIsOn(scene), latin("the main switch stays on"));
    if (scene.model.arrives() && scene.model.faults.returnCode == 0)
        scene.model.welding = false;
}

void turnMain(Scene& scene)
{
    scene.goTo(Page::Setting);
    const QJsonObject form = Forms::setting(scene.pageWidget());
    const bool wasOn = mainIsOn(scene);
    scene.click(part(scene, "pushButton_main_enable"));
    scene.note = latin(wasOn ? "off" : "on");
    if (!scene.model.mayOperate()) {
        demand(mainIsOn(scene) == wasOn, latin("a locked switch turns"));
    } else if (scene.model.powered) {
        scene.model.tell(Model::Error, shown(Context, "Do not modify while powered on!"));
        demand(mainIsOn(scene) == wasOn, latin("the switch turns while the robot is powered"));
    } else if (wasOn) {
        stop(scene);
    } else {
        start(scene, form);
    }
    scene.mainIsOn = mainIsOn(scene);
    checkLock(scene);
}

} // namespace

Actions settingActions()
{
    return {
        {"setting: field", 6, editField},
        {"setting: feeder", 2, turnFeeder},
        {"setting: save", 6, save},
        {"setting: cancel", 2, cancel},
        {"setting: main switch", 3, turnMain},
    };
}

} // namespace soak
