#include "Checks.h"

#include "Controller.h"
#include "Drawer.h"
#include "HardwareKey.h"
#include "LampButton.h"
#include "LoginPanel.h"
#include "MainWindow.h"
#include "RecordKeys.h"
#include "Scene.h"
#include "Session.h"
#include "WeldIo.h"

#include <QJsonObject>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>

#include <algorithm>

namespace soak {

namespace keys = pendant::keys;

namespace {

template<typename Value>
void equal(const char* what, const Value& is, const Value& expected)
{
    demand(is == expected, QStringLiteral("%1 is %2, expected %3")
                               .arg(latin(what), QVariant::fromValue(is).toString(),
                                    QVariant::fromValue(expected).toString()));
}

QString textOf(const QVector<Told>& messages)
{
    QStringList texts;
    for (const Told& each : messages)
        texts << QStringLiteral("%1 \"%2\"").arg(each.level).arg(each.text);
    return texts.isEmpty() ? QStringLiteral("nothing") : texts.join(QLatin1String(", "));
}

// ------------------------------------------------------------------- what is said

void messages(Scene& scene)
{
    demand(scene.witness.messages == scene.model.messages,
           QStringLiteral("told was %1, expected %2")
               .arg(textOf(scene.witness.messages), textOf(scene.model.messages)));
    const auto& history = scene.stage.window().messages();
    const QString newest = history.rowCount() > 0 ? history.at(0).text : QString();
    equal("the tool tip of the strip", scene.widget(QStringLiteral("label_message"))->toolTip(),
          newest);
}

// An editor gets the whole line first, and then what stands before its comment.
bool isOfAComment(const QString& line)
{
    return line.startsWith(latin("qellaser::util::extractFunctionAndParameters ")) &&
           line.contains(latin("//"));
}

void pluginLog(Scene& scene)
{
    QStringList lines = scene.witness.takeErrorLines();
    lines.erase(std::remove_if(lines.begin(), lines.end(), isOfAComment), lines.end());
    const QStringList& expected = scene.model.errorLines;
    const bool fits =
        std::equal(lines.begin(), lines.end(), expected.begin(), expected.end(),
                   [](const QString& line, const QString& part) { return line.contains(part); });
    demand(fits, QStringLiteral("the log has the errors [%1], expected [%2]")
                     .arg(lines.join(QLatin1String(" | ")), expected.join(QLatin1String(" | "))));
}

void warnings(Scene& scene)
{
    const QStringList& allowed = scene.model.allowedWarnings;
    const QStringList& heard = scene.witness.warnings;
    for (const QString& text : heard) {
        demand(std::any_of(allowed.begin(), allowed.end(),
                           [&](const QString& start) { return text.startsWith(start); }),
               QStringLiteral("a warning: %1").arg(text));
    }
}

void controllerLog(Scene& scene)
{
    const QStringList& lines = scene.witness.controllerLines;
    const auto* view = scene.stage.window().findChild<QPlainTextEdit*>(QStringLiteral("panel_log"));
    demand(view && view->blockCount() <= 2000, QStringLiteral("the controller's log has no end"));
    demand(lines.isEmpty() || view->toPlainText().endsWith(lines.last()),
           QStringLiteral("the panel of the controller's log does not show \"%1\"")
               .arg(lines.value(lines.size() - 1)));
}

// -------------------------------------------------------------------- the controller

void state(Scene& scene)
{
    const Model& model = scene.model;
    const pendant::Controller& machine = scene.stage.controller();
    equal("connected", machine.isConnected(), model.connected);
    equal("powered", machine.isPowered(), model.powered);
    const QJsonObject device = scene.stored(keys::weldData).toObject();
    const auto status = [&](const char* key) { return device.value(latin(key)).toBool(); };
    equal("virtual welding", status("virtual_welding_status"), model.virtualWelding);
    equal("the red light", status("weld_redlight_status"), model.redLight);
    equal("welding", status("weld_enable_status"), model.welding);
    equal("feeding wire", status("weld_feed_wire_status"), model.feeding);
    equal("retracting wire", status("weld_retract_wire_status"), model.retracting);
}

/// What the device asks of an output, unless the output is shared or nowhere.
double wanted(const Model& model, const QString& key)
{
    if (key == latin("laser_enable"))
        return model.welding;
    if (key == latin("red_light"))
        return model.redLight;
    if (key == latin("manual_wire_feed"))
        return model.feeding;
    return key == latin("manual_retract") ? model.retracting : -1;
}

void outputs(Scene& scene)
{
    const auto states = scene.stage.controller().ioSignals();
    const auto isAlone = [&](const pendant::SignalState& signal) {
        return std::none_of(states.begin(), states.end(), [&](const pendant::SignalState& other) {
            return other.signal != signal.signal && other.mapping.port == signal.mapping.port;
        });
    };
    for (const pendant::SignalState& each : states) {
        const double value = wanted(scene.model, latin(each.signal->key));
        if (value >= 0 && each.isMapped() && each.mapping.isOn && isAlone(each))
            equal(each.signal->key, each.value, value);
    }
}

void records(Scene& scene)
{
    for (auto each = scene.model.records.cbegin(); each != scene.model.records.cend(); ++each) {
        demand(scene.stored(each.key()) == each.value(),
               QStringLiteral("the controller holds another \"%1\" than what was saved")
                   .arg(each.key()));
    }
}

void programs(Scene& scene)
{
    const QStringList held = scene.stage.controller().programs();
    QStringList expected =
        scene.model.connected ? QStringList(scene.model.programs.keys()) : QStringList();
    expected.sort();
    QStringList sorted = held;
    sorted.sort();
    demand(sorted == expected,
           QStringLiteral("the controller has the programs %1, expected %2")
               .arg(sorted.join(QLatin1Char(' ')), expected.join(QLatin1Char(' '))));
    for (const QString& name : held) {
        QByteArray text;
        demand(scene.stage.controller().readProgram(name, &text) &&
                   text == scene.model.programs.value(name),
               QStringLiteral("the program \"%1\" is another than what was saved").arg(name));
    }
    const auto* list =
        scene.stage.window().findChild<QListWidget*>(QStringLiteral("list_programs"));
    demand(list, latin("there is no list of programs"));
    QStringList listed;
    for (int row = 0; row < list->count(); ++row)
        listed << list->item(row)->text();
    demand(listed == held, QStringLiteral("the list of programs shows %1, not %2")
                               .arg(listed.join(QLatin1Char(' ')), held.join(QLatin1Char(' '))));
}

// ------------------------------------------------------------------------ the screen

QString lampValue(Scene& scene, const char* name)
{
    return scene.widget<pendant::LampButton>(latin(name))->value();
}

void topBar(Scene& scene)
{
    const Model& model = scene.model;
    equal("the lamp of the connection", lampValue(scene, "button_connection"),
          shown("pendant::TopBar", model.connected ? "Connected" : "No connection"));
    equal("the lamp of the robot", lampValue(scene, "button_power"),
          shown("pendant::TopBar", model.powered ? "Powered" : "Power off"));
    equal("the user", lampValue(scene, "button_user"), pendant::userName(model.level));
    equal("the language", static_cast<int>(scene.stage.pendant().language()),
          static_cast<int>(model.language));
    equal("the theme", static_cast<int>(pendant::Theme::shade()), static_cast<int>(model.shade));
    const bool isProgram = scene.isVisible(latin("programPage"));
    equal("the title", scene.widget<QLabel>(latin("label_application"))->text(),
          isProgram ? shown("pendant::MainWindow", "Robot programs")
                    : shown("qelplugin::qelLaserWelding", "Laser Welding"));
}

// The picture at the first start, of a new cell, is that of real welding.
void indicator(Scene& scene)
{
    const auto* place = scene.stage.window().findChild<QWidget*>(latin("indicators"));
    const auto* label = place ? place->findChild<QLabel*>() : nullptr;
    const QPixmap shownNow = label ? label->pixmap(Qt::ReturnByValue) : QPixmap();
    const QImage picture = shownNow.isNull() ? QImage() : shownNow.toImage();
    demand(!picture.isNull(), latin("there is no picture of the work mode"));
    if (scene.realWelding.isNull())
        scene.realWelding = picture;
    equal("the picture shows virtual welding", picture != scene.realWelding,
          scene.model.showsVirtual);
}

void hardwareKeys(Scene& scene)
{
    for (int each = 0; each < KeyCount; ++each) {
        const char* label = labelOf(static_cast<Key>(each));
        const auto* key = scene.stage.window().findChild<pendant::HardwareKey*>(
            latin("key_") + shown("qelplugin::qelLaserWelding", label));
        demand(key, QStringLiteral("there is no key \"%1\"").arg(latin(label)));
        equal(label, key->isHeld(), scene.model.held[static_cast<std::size_t>(each)]);
    }
}

void lockedPage(Scene& scene)
{
    if (scene.isVisible(latin("programPage")) || scene.page == Page::Tracking)
        return;
    equal("the page is free", scene.pageWidget()->isEnabled(), scene.model.mayOperate());
}

using Check = void (*)(Scene& scene);

// What is said first: it mostly tells why the rest is as it is.
constexpr Check Checks[] = {messages, pluginLog, warnings, controllerLog, state,        records,
                            outputs,  programs,  topBar,   indicator,     hardwareKeys, lockedPage};

} // namespace

void checkAll(Scene& scene)
{
    for (const Check check : Checks)
        check(scene);
}

} // namespace soak
