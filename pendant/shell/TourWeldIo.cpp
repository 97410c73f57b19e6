#include "TourChapters.h"

#include "Controller.h"
#include "WeldIo.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QJsonObject>
#include <QTabBar>
#include <QTableWidget>

#include <algorithm>

namespace pendant {

namespace {

constexpr const char* Page = "WeldioPage"; // context of its texts
constexpr const char* Record = "weld_io_config";
constexpr const char* OutputTab = "I/O output";
constexpr const char* InputTab = "I/O Input";
constexpr const char* Gap = "There is an empty port. Please check and reconfigure!";
constexpr const char* Saved = "Saved successfully";

/// Where a signal is put. Without a kind it is switched off.
struct Target
{
    const char* key;
    const char* kind; ///< entry of the type box
    const char* port;
    int element; ///< of a register, from 1
};

const Target Outputs[] = {
    {"laser_enable", "DO", "DO9", 0},       {"power", "GO", "GO3", 0},
    {"frequency", "AO", "AO6", 0},          {"duty_cycle", "REG", "R150", 3},
    {"red_light", "REG", "R20", 4},         {"gas_protect", "DO", "DO10", 0},
    {"wire_speed", "AO", "AO7", 0},         {"wire_feed", "DO", "DO11", 0},
    {"retract_direction", "REG", "R20", 5}, {"manual_wire_feed", "", "", 0},
    {"manual_retract", "DO", "DO12", 0},    {"adhesion_detection_en", "REG", "R40", 1},
    {"descent_signal", "DO", "DO13", 0},    {"swing_job", "REG", "R8", 2},
    {"process_job", "GO", "GO5", 0},
};

const Target Inputs[] = {
    {"power_feedback", "GI", "GI2", 0},      {"light_feedback", "DI", "DI9", 0},
    {"laser_alarm", "REG", "R153", 3},       {"shield_gas_feedback", "", "", 0},
    {"wire_speed_feedback", "AI", "AI3", 0}, {"wire_feed_feedback", "DI", "DI10", 0},
    {"wire_feeder_alarm", "DI", "DI1", 0},   {"adhesion_detection_feedback", "DI", "DI11", 0},
    {"external_alarm", "DI", "DI12", 0},
};

QString named(const char* pattern, const QString& key)
{
    return latin(pattern).arg(key);
}

QComboBox* box(TourStage& stage, const char* pattern, const QString& key)
{
    return qobject_cast<QComboBox*>(stage.widget(named(pattern, key)));
}

QComboBox* portBox(TourStage& stage, const QString& key)
{
    return box(stage, "comboBox_%1_port", key);
}

bool openTab(TourStage& stage, const char* tab)
{
    auto* bar = qobject_cast<QTabBar*>(stage.widget(latin("tabWidget_io/qt_tabwidget_tabbar")));
    return stage.hand().click(bar, shown(Page, tab));
}

// The boxes of a row are free while it is switched on.
bool turnRow(TourStage& stage, const QString& key, bool on)
{
    const QComboBox* port = portBox(stage, key);
    if (!port || port->isEnabled() == on)
        return port != nullptr;
    const QString stem = key == latin("adhesion_detection_en") ? latin("adhesion_detection") : key;
    return stage.clickName(named("pushButton_%1_enabled", stem)) &&
           stage.expect(port->isEnabled() == on,
                        QStringLiteral("the row \"%1\" does not switch").arg(key));
}

bool choosePort(TourStage& stage, const char* key, const char* port)
{
    return stage.hand().choose(portBox(stage, latin(key)), latin(port));
}

bool place(TourStage& stage, const Target& target)
{
    const QString key = latin(target.key);
    const bool isOn = *target.kind;
    if (!turnRow(stage, key, isOn) || !isOn)
        return !isOn;
    return stage.hand().choose(box(stage, "comboBox_%1_type", key), latin(target.kind)) &&
           choosePort(stage, target.key, target.port) &&
           (target.element == 0 || stage.hand().choose(box(stage, "comboBox_%1_bias", key),
                                                       QString::number(target.element)));
}

template<std::size_t Count>
bool placeAll(TourStage& stage, const char* tab, const Target (&targets)[Count])
{
    return openTab(stage, tab) &&
           std::all_of(std::begin(targets), std::end(targets),
                       [&](const Target& each) { return place(stage, each); });
}

bool isHeld(const QJsonObject& record, const Target& target)
{
    const WeldSignal* signal = findWeldSignal(latin(target.key));
    if (!signal)
        return false;
    const Mapping mapping = mappingOf(*signal, record);
    if (!*target.kind)
        return !mapping.isOn;
    return mapping.isOn && placeOf(*signal, mapping.type) == latin(target.kind) &&
           mapping.port == latin(target.port) && mapping.bias == qMax(0, target.element - 1);
}

template<std::size_t Count>
bool expectHeld(TourStage& stage, const Target (&targets)[Count])
{
    const QJsonObject record = stage.record(latin(Record)).toObject();
    const auto* wrong = std::find_if_not(std::begin(targets), std::end(targets),
                                         [&](const Target& each) { return isHeld(record, each); });
    return wrong == std::end(targets) ||
           stage.fail(QStringLiteral("the controller does not hold \"%1\" as it was put")
                          .arg(latin(wrong->key)));
}

bool pressSave(TourStage& stage, int level, const QString& message)
{
    return stage.clickName(latin("pushButton_Save")) && stage.expectMessage(level, message);
}

QString lostRegister()
{
    return shown(Page, "Signal %1: register \"%2\" is invalid or has wrong read/write permission, "
                       "expected %3.")
        .arg(shown(Page, "Duty"), latin("R150"), shown(Page, "writable register"));
}

QString doubleUse()
{
    return shown(Page, "Port %1 is already in use, save failed!").arg(latin("DO9"));
}

bool turnFault(TourStage& stage, const char* name)
{
    if (!stage.clickName(latin("button_faults")))
        return false;
    const QString box = named("fault_%1", latin(name));
    const auto* fault = qobject_cast<QAbstractButton*>(stage.widget(box));
    const bool wasOn = fault && fault->isChecked();
    return stage.clickName(box) &&
           stage.expect(fault && fault->isChecked() != wasOn,
                        QStringLiteral("\"%1\" does not switch").arg(box)) &&
           stage.clickName(latin("button_closeDrawer"));
}

bool showPage(TourStage& stage)
{
    return stage.clickTool("Weld I/O");
}

bool openPage(TourStage& stage)
{
    if (!stage.logIn(TourStage::OperatorLevel) || !showPage(stage))
        return false;
    const QJsonObject record = stage.record(latin(Record)).toObject();
    for (const WeldSignal& signal : weldSignals()) {
        const QComboBox* port = portBox(stage, latin(signal.key));
        if (!port || port->currentText() != record.value(signal.portKey()).toString())
            return stage.fail(
                QStringLiteral("the page does not show the port of \"%1\"").arg(latin(signal.key)));
    }
    return true;
}

bool mapOutputs(TourStage& stage)
{
    return placeAll(stage, OutputTab, Outputs);
}

bool mapInputs(TourStage& stage)
{
    return placeAll(stage, InputTab, Inputs);
}

// Three at a time: of a register, of a double use and of a gap only the first is told.
bool toldOfRegister(TourStage& stage)
{
    return openTab(stage, OutputTab) && choosePort(stage, "wire_feed", "DO9") &&
           choosePort(stage, "process_job", "") && turnFault(stage, "register-metadata") &&
           pressSave(stage, TourStage::Error, lostRegister());
}

bool toldOfDoubleUse(TourStage& stage)
{
    return turnFault(stage, "register-metadata") && pressSave(stage, TourStage::Error, doubleUse());
}

bool toldOfGap(TourStage& stage)
{
    return choosePort(stage, "wire_feed", "DO11") && pressSave(stage, TourStage::Error, shown(Page, Gap));
}

bool saveMapping(TourStage& stage)
{
    return choosePort(stage, "process_job", "GO5") &&
           pressSave(stage, TourStage::Information, shown(Page, Saved)) && expectHeld(stage, Outputs) &&
           expectHeld(stage, Inputs);
}

bool expectPort(TourStage& stage, const char* key, const char* port)
{
    const QComboBox* box = portBox(stage, latin(key));
    return box && stage.expect(box->currentText() == latin(port),
                                 QStringLiteral("\"%1\" shows the port \"%2\"")
                                     .arg(latin(key), box->currentText()));
}

bool portGoes(TourStage& stage)
{
    return turnFault(stage, "port-gone") && stage.clickTool("Weld Setup") &&
           showPage(stage) && openTab(stage, InputTab) &&
           expectPort(stage, "wire_feeder_alarm", "") && pressSave(stage, TourStage::Error, shown(Page, Gap));
}

bool portComesBack(TourStage& stage)
{
    return turnFault(stage, "port-gone") && stage.clickName(latin("pushButton_Cancel")) &&
           stage.expectMessage(TourStage::Information, shown(Page, "Cancel successful")) &&
           expectPort(stage, "wire_feeder_alarm", "DI1");
}

bool turnMainSwitch(TourStage& stage)
{
    return stage.clickTool("Weld Setup") && stage.clickName(latin("pushButton_main_enable"));
}

bool lockedWhileOn(TourStage& stage)
{
    if (!turnMainSwitch(stage) || !showPage(stage) || !openTab(stage, OutputTab))
        return false;
    for (const Target& each : Outputs) {
        const QString key = latin(each.key);
        const QWidget* label = stage.widget(named("label_%1_name", key));
        const QWidget* port = portBox(stage, key);
        if (!label || !port || port->isEnabled())
            return stage.fail(QStringLiteral("the row \"%1\" is not locked").arg(key));
    }
    return stage.clickName(latin("pushButton_Save")) && stage.expectNoMessage() &&
           expectPort(stage, "laser_enable", "DO9");
}

double valueOf(TourStage& stage, const char* key)
{
    const QVector<SignalState> all = stage.controller().ioSignals();
    const auto found = std::find_if(all.begin(), all.end(), [&](const SignalState& each) {
        return latin(each.signal->key) == latin(key);
    });
    return found != all.end() ? found->value : -1;
}

QString onOff(const char* text)
{
    return shown("pendant::IoMonitor", text);
}

/// At the controller and in the monitor, which is open.
bool expectOutput(TourStage& stage, const char* key, double value, const QString& text)
{
    const auto* table = qobject_cast<QTableWidget*>(stage.widget(latin("table_outputs")));
    int row = 0;
    while (row < 15 && latin(Outputs[row].key) != latin(key))
        ++row;
    return table && stage.expect(Hand::waitFor([&] {
                                     return valueOf(stage, key) == value &&
                                            table->item(row, 2)->text() == text;
                                 }),
                                 QStringLiteral("the output \"%1\" is %2 and shows \"%3\"")
                                     .arg(latin(key))
                                     .arg(valueOf(stage, key))
                                     .arg(table->item(row, 2)->text()));
}

bool watchLaser(TourStage& stage)
{
    return stage.clickName(latin("button_io")) && expectOutput(stage, "laser_enable", 1, onOff("On"));
}

bool watchGas(TourStage& stage)
{
    return stage.pressKey("ProtectGas") && expectOutput(stage, "gas_protect", 1, onOff("On"));
}

// Without a signal of its own for the hand, the feeder is given its speed and its start.
bool watchWire(TourStage& stage)
{
    const double speed = stage.record(latin("weld_setting_config.manual_feed_speed")).toDouble();
    return stage.releaseKey("ProtectGas") && stage.pressKey("Wiring") &&
           expectOutput(stage, "wire_feed", 1, onOff("On")) &&
           expectOutput(stage, "wire_speed", speed, QString::number(speed));
}

bool watchRetract(TourStage& stage)
{
    return stage.releaseKey("Wiring") && expectOutput(stage, "wire_feed", 0, onOff("Off")) &&
           stage.pressKey("Retract Wire") && expectOutput(stage, "manual_retract", 1, onOff("On"));
}

bool setInputs(TourStage& stage)
{
    return stage.releaseKey("Retract Wire") && stage.clickName(latin("button_inputs")) &&
           stage.hand().enter(stage.widget(latin("input_wire_speed_feedback")), latin("12.5\n")) &&
           stage.clickName(latin("input_light_feedback")) &&
           stage.expect(valueOf(stage, "wire_speed_feedback") == 12.5,
                        latin("the wire speed is not that which was entered")) &&
           stage.expect(valueOf(stage, "light_feedback") == 1,
                        latin("the laser feedback is not on"));
}

bool freeAgain(TourStage& stage)
{
    return stage.clickName(latin("input_light_feedback")) &&
           stage.clickName(latin("button_outputs")) &&
           stage.clickName(latin("button_closeDrawer")) && turnMainSwitch(stage) &&
           stage.clickName(latin("pushButton_save")) &&
           stage.expectMessage(TourStage::Information, shown("WeldSettingPage", Saved)) &&
           showPage(stage) &&
           stage.expect(portBox(stage, latin("laser_enable"))->isEnabled(),
                        latin("the page is still locked"));
}

} // namespace

TourChapter weldIoChapter()
{
    return {
        step("weld-io", "\"Weld I/O\" shows where the signals are mapped", openPage),
        step("weld-io-outputs", "Outputs go to DO, GO, AO and to elements of registers",
             mapOutputs),
        step("weld-io-inputs", "Inputs go to DI, GI, AI and to elements of registers", mapInputs),
        step("weld-io-register", "A register that has changed is told first", toldOfRegister),
        step("weld-io-double", "Then a port that is used twice", toldOfDoubleUse),
        step("weld-io-gap", "Then a signal without a port", toldOfGap),
        step("weld-io-saved", "\"Save\": the controller holds the mapping", saveMapping),
        step("weld-io-port-gone", "A port is gone at the next show", portGoes),
        step("weld-io-port-back", "It is back, and \"Cancel\" reads the mapping anew",
             portComesBack),
        step("weld-io-locked", "With the main switch on the page can be read only", lockedWhileOn),
        step("io-laser", "The I/O monitor: the laser's output is on", watchLaser),
        step("io-gas", "Key \"ProtectGas\" drives the output of the gas", watchGas),
        step("io-wire", "Key \"Wiring\" drives the wire's start and its speed", watchWire),
        step("io-retract", "Key \"Retract Wire\" drives the feeder's own input", watchRetract),
        step("io-inputs", "Inputs are set by hand", setInputs),
        step("weld-io-free", "The main switch is off: the page is free again", freeAgain),
    };
}

} // namespace pendant
