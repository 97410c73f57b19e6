// Feeds { "reply": any array, "level", "powered", ... } to all that reads a reply of the
// controller: the readers of CommandReply, and through them every button that saves or computes,
// the main switch and the hardware keys. "work" and the like next to it are the service items, see
// Pages::play().
//
// The readers agree where their rules do. A save tells its outcome once: success on 0, a failure on
// anything else, and nothing when it was not answered, but for the mapping, which says that too.
// The main switch stays on only when the start was accepted.

#include "CharacteristicsCurvePage.h"
#include "CommandReply.h"
#include "Pages.h"
#include "WeldParameterPage.h"
#include "WeldSettingPage.h"
#include "WeldioPage.h"

#include <QPushButton>
#include <QRegularExpression>

namespace {

const char* const Commands[] = {"set_weld_setting_config",
                                "set_weld_io_config",
                                "set_weld_param_list_config",
                                "set_weld_param_match_config",
                                "set_weld_curve_power_config",
                                "set_weld_curve_feed_config",
                                "set_weld_curve_frequency_config",
                                "set_weld_curve_dutycycle_config",
                                "compute_curve_config",
                                "set_weld_enable",
                                "set_virtual_welding",
                                "set_weld_red_light",
                                "set_weld_feed_wire",
                                "set_weld_retract_wire",
                                "set_weld_manual_gas"};

void feedReaders(const QJsonArray& reply)
{
    for (const char* name : Commands) {
        const QString command = QLatin1String(name);
        const auto strict = CommandReply::strictResult(reply, command);
        const auto tolerant = CommandReply::tolerantResult(reply, command);
        Fuzz::demand(strict.has_value() == tolerant.has_value(), "both readers find an answer");
        if (strict && *strict != 0)
            Fuzz::demand(strict == tolerant, "a whole number is read alike");
        const QJsonArray first = reply.isEmpty() ? QJsonArray() : QJsonArray{reply.first()};
        Fuzz::demand(CommandReply::firstElementResult(reply, command) ==
                         CommandReply::tolerantResult(first, command).value_or(0),
                     "the first element is read as it is alone");
        if (CommandReply::firstElementAccepted(reply, command))
            Fuzz::demand(CommandReply::tolerantResult(first, command) == 1, "true reads as 1");
    }
}

QStringList textsOf(const QVector<ScriptedHost::Message>& messages, int level)
{
    QStringList texts;
    for (const ScriptedHost::Message& each : messages) {
        Fuzz::demand(!each.text.isEmpty(), "the operator is told a text");
        Fuzz::demand(each.level >= 0 && each.level <= 2, "with a severity");
        if (each.level == level)
            texts << each.text;
    }
    return texts;
}

// The outcome of the last command that was sent, against what was told since.
void checkOutcome(const ScriptedHost& host, const QJsonArray& reply)
{
    const QStringList good = textsOf(host.messages, 0);
    const QStringList bad = textsOf(host.messages, 2);
    if (host.commands.isEmpty())
        return;
    const QString command = host.commands.last().data.keys().value(0);
    if (!command.startsWith(QLatin1String("set_weld_")) ||
        !command.endsWith(QLatin1String("_config")))
        return;
    const auto result = command == QLatin1String("set_weld_io_config")
                            ? CommandReply::tolerantResult(reply, command).value_or(-1)
                            : CommandReply::strictResult(reply, command);
    Fuzz::demand(good.size() == (result == 0 ? 1 : 0), "a success is told once");
    Fuzz::demand(bad.size() == (result && *result != 0 ? 1 : 0), "a failure is told once");
}

void pressButtons(const QWidget* page, ScriptedHost& host, const QJsonArray& reply)
{
    static const QRegularExpression name(QStringLiteral("save|compute"),
                                         QRegularExpression::CaseInsensitiveOption);
    const auto buttons = page->findChildren<QPushButton*>(name);
    for (QPushButton* button : buttons) {
        host.forgetCalls();
        button->click();
        checkOutcome(host, reply);
    }
}

void turnMainSwitch(Pages& pages, const QJsonArray& reply)
{
    pages.setting->onSwitchMain(true);
    if (!pages.host.powered)
        Fuzz::demand(
            !pages.setting->isMainEnabled() ||
                CommandReply::firstElementAccepted(reply, QLatin1String("set_weld_enable")),
            "the main switch is on only when the start was accepted");
    pages.setting->onSwitchMain(false);
    if (!pages.host.powered)
        Fuzz::demand(!pages.setting->isMainEnabled(), "the main switch can be turned off");
}

void pressKeys(ScriptedHost& host)
{
    const auto keys = host.firstKeys + host.secondKeys;
    for (const qelplugin::PhysicalButton& key : keys) {
        host.forgetCalls();
        key.callback(true);
        key.callback(false);
        Fuzz::demand(host.messages.size() <= 2, "a press and a release tell one thing each");
        textsOf(host.messages, 0);
    }
}

} // namespace

QStringList Fuzz::words()
{
    QStringList words = QStringLiteral("reply,level,powered,open,qelLaserWelding,return,intercept,"
                                       "slope,qelLaserSeamTracking,0,1,TRUE,laser_weld_data")
                            .split(QLatin1Char(','));
    for (const char* command : Commands)
        words << QLatin1String(command);
    return words;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QJsonObject input = Fuzz::json(data, size).toObject();
    static Pages pages;
    const QJsonArray reply = input.value(QLatin1String("reply")).toArray();
    feedReaders(reply);
    pages.play(input);
    for (const char* command : Commands)
        pages.host.replies.insert(QLatin1String(command), reply);
    pressButtons(pages.setting, pages.host, reply);
    pressButtons(pages.io, pages.host, reply);
    pressButtons(pages.curves, pages.host, reply);
    pressButtons(pages.schedules, pages.host, reply);
    pressButtons(pages.matching, pages.host, reply);
    turnMainSwitch(pages, reply);
    pressKeys(pages.host);
    if (input.contains(QLatin1String("open")))
        pages.open(input.value(QLatin1String("open")).toInt());
    return 0;
}
