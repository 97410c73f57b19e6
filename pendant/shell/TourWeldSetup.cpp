#include "TourChapters.h"

#include "Controller.h"

#include <QJsonArray>
#include <QWidget>

namespace pendant {

namespace {

constexpr int NewPower = 2650; // watts; no cell starts with it

// Contexts of the plugin's texts.
constexpr const char* Plugin = "qelplugin::qelLaserWelding";
constexpr const char* SettingPage = "WeldSettingPage";

constexpr const char* MainSwitch = "pushButton_main_enable";
constexpr const char* PowerField = "spinBox_laser_power";
constexpr const char* Setting = "weld_setting_config";
constexpr const char* RedLight = "laser_weld_data.weld_redlight_status";
constexpr const char* VirtualWelding = "laser_weld_data.virtual_welding_status";

// What the main switch locks.
constexpr const char* Locked[] = {"frame", "frame_2", "frame_3", "frame_4", "frame_WireSticking"};

QJsonValue setting(const TourStage& stage, const char* key)
{
    return stage.record(latin(Setting))[QLatin1String(key)];
}

// An empty text stands for no message.
bool expectOutcome(TourStage& stage, int level, const char* text)
{
    return *text ? stage.expectMessage(level, shown(Plugin, text)) : stage.expectNoMessage();
}

bool workKey(TourStage& stage, const char* label, int level, const char* onPress,
             const char* onRelease)
{
    return stage.pressKey(label) && expectOutcome(stage, level, onPress) &&
           stage.releaseKey(label) && expectOutcome(stage, level, onRelease);
}

bool expectPage(TourStage& stage, bool editable)
{
    for (const char* name : Locked) {
        const QWidget* frame = stage.widget(latin(name));
        if (!frame || frame->isEnabled() != editable) {
            return stage.fail(QStringLiteral("\"%1\" is %2")
                                  .arg(latin(name), latin(editable ? "locked" : "free")));
        }
    }
    return true;
}

bool expectPower(TourStage& stage, int watts)
{
    const QWidget* field = stage.widget(latin(PowerField));
    return field && stage.expect(field->property("value").toInt() == watts,
                                 QStringLiteral("the field shows %1 W, not %2 W")
                                     .arg(field->property("value").toInt())
                                     .arg(watts));
}

// The picture at the start is that of real welding.
bool expectVirtual(TourStage& stage, bool on)
{
    const auto isShown = [&] { return (stage.indicators() != stage.firstIndicators()) == on; };
    return stage.expect(Hand::waitFor(isShown),
                        latin(on ? "the indicator does not show virtual welding"
                                 : "the indicator does not show real welding"));
}

bool expectSaved(TourStage& stage)
{
    return stage.clickName(latin("pushButton_save")) &&
           stage.expectMessage(TourStage::Information, shown(SettingPage, "Saved successfully"));
}

bool showSetup(TourStage& stage)
{
    return stage.clickTool("Weld Setup") &&
           expectPower(stage, setting(stage, "laser_power").toInt());
}

bool changePower(TourStage& stage)
{
    return stage.hand().enter(stage.widget(latin(PowerField)), QString::number(NewPower)) &&
           expectPower(stage, NewPower);
}

bool savePower(TourStage& stage)
{
    return expectSaved(stage) &&
           stage.expect(setting(stage, "laser_power").toInt() == NewPower,
                        latin("the controller does not hold the new laser power"));
}

bool startAgain(TourStage& stage)
{
    stage.close();
    return stage.open() && stage.logIn(TourStage::OperatorLevel) &&
           stage.clickTool("Weld Setup") && expectPower(stage, NewPower);
}

bool switchOn(TourStage& stage)
{
    return stage.clickName(latin(MainSwitch)) &&
           stage.expect(Hand::waitFor([&] { return setting(stage, "laser_main_enable").toBool(); }),
                        latin("the controller does not hold the main switch")) &&
           expectPage(stage, false);
}

// Switching off is not stored by itself.
bool switchOff(TourStage& stage)
{
    return stage.clickName(latin(MainSwitch)) && expectPage(stage, true) && expectSaved(stage) &&
           stage.expect(!setting(stage, "laser_main_enable").toBool(true),
                        latin("the controller still holds the main switch on"));
}

bool refusedWhilePowered(TourStage& stage)
{
    return stage.clickName(latin("button_power")) && stage.clickName(latin(MainSwitch)) &&
           stage.expectMessage(TourStage::Error, shown(SettingPage, "Do not modify while powered on!")) &&
           expectPage(stage, true);
}

bool powerOff(TourStage& stage)
{
    return stage.clickName(latin("button_power")) &&
           stage.expect(!stage.controller().isPowered(), latin("the robot is still powered"));
}

bool redLight(TourStage& stage)
{
    const bool before = stage.record(latin(RedLight)).toBool();
    return workKey(stage, "Red Light", TourStage::Information, "", "") &&
           stage.expect(stage.record(latin(RedLight)).toBool() != before,
                        latin("the red light did not change"));
}

bool workMode(TourStage& stage)
{
    return workKey(stage, "Work mode", TourStage::Information, "Switch to VirtualWelding", "") &&
           expectVirtual(stage, true);
}

// What the indicator shows must not change before the connection is back.
bool dropConnection(TourStage& stage)
{
    if (!stage.clickName(latin("button_connection")))
        return false;
    stage.controller().setVirtualWelding(false);
    return stage.expect(!stage.controller().isConnected(),
                        latin("the connection did not go down")) &&
           expectVirtual(stage, true);
}

bool bringBack(TourStage& stage)
{
    return stage.clickName(latin("button_connection")) && expectVirtual(stage, false) &&
           stage.expect(!stage.record(latin(VirtualWelding)).toBool(true),
                        latin("the controller is not in real welding"));
}

// The keys that test the user before the key's state refuse the release as well.
bool keysRefused(TourStage& stage)
{
    constexpr const char* Refusal = "Insufficient user permissions!";
    bool good = true;
    for (const char* key : {"Wiring", "Retract Wire"})
        good = good && workKey(stage, key, TourStage::Warning, Refusal, Refusal);
    for (const char* key : {"Work mode", "ProtectGas", "Red Light"})
        good = good && workKey(stage, key, TourStage::Warning, Refusal, "");
    return good;
}

bool pageRefused(TourStage& stage)
{
    const QWidget* page = stage.widget(latin("WeldSettingPage"));
    return stage.expect(page && !page->isEnabled(), latin("the page is not locked")) &&
           stage.clickName(latin(MainSwitch)) && stage.expectNoMessage() &&
           stage.clickName(latin("pushButton_save")) && stage.expectNoMessage();
}

bool refusedBelowLevel(TourStage& stage)
{
    const auto state = [&] {
        return QJsonArray{stage.record(latin(Setting)), stage.record(latin("laser_weld_data"))};
    };
    const QJsonArray before = state();
    return stage.logIn(TourStage::TooLow) && keysRefused(stage) && pageRefused(stage) &&
           stage.expect(state() == before, latin("the controller holds something new"));
}

/// Row of the keys that tell their success.
TourStep keyStep(const char* name, const char* label, const char* outcome)
{
    return {latin(name), QStringLiteral("Key \"%1\": pressed and released").arg(latin(label)),
            [=](TourStage& stage) {
                return workKey(stage, label, TourStage::Information, outcome, outcome);
            }};
}

bool holdGas(TourStage& stage)
{
    return stage.pressKey("ProtectGas") &&
           stage.expectMessage(TourStage::Information, shown(Plugin, "Open gas successfully"));
}

bool releaseGas(TourStage& stage)
{
    return stage.releaseKey("ProtectGas") && stage.expectNoMessage();
}

} // namespace

TourChapter weldSetupChapter()
{
    return {
        step("start", "The pendant starts and loads the plugin",
             [](TourStage& stage) { return stage.open(); }),
        step("log-in", "A user of level 3 logs in",
             [](TourStage& stage) { return stage.logIn(TourStage::OperatorLevel); }),
        step("weld-setup", "\"Weld Setup\" shows the controller's record", showSetup),
        step("laser-power", "The laser power is changed", changePower),
        step("saved", "\"Save\" is pressed", savePower),
        step("start-again", "The pendant is closed and started again: the value is there",
             startAgain),
        step("switch-on", "The main switch goes on: the page locks", switchOn),
        step("switch-off", "The main switch goes off again", switchOff),
        step("powered", "The switch is refused while the robot is powered", refusedWhilePowered),
        step("power-off", "The robot's power goes off", powerOff),
        keyStep("key-wiring", "Wiring", "Feed wire successfully"),
        step("key-gas-held", "Key \"ProtectGas\": held", holdGas),
        step("key-gas", "Key \"ProtectGas\": released", releaseGas),
        keyStep("key-retract", "Retract Wire", "Retract wire successfully"),
        step("key-red-light", "Key \"Red Light\": the light changes", redLight),
        step("key-work-mode", "Key \"Work mode\": the indicator shows virtual welding", workMode),
        step("connection-dropped",
             "The connection is dropped, and the mode changed at the controller", dropConnection),
        step("connection-back", "The connection is back: the indicator follows the controller",
             bringBack),
        step("level-2", "A user of level 2 is refused everything", refusedBelowLevel),
    };
}

} // namespace pendant
