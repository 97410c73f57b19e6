#include "Model.h"

#include "TourStage.h"

namespace soak {

using pendant::shown;

namespace {

constexpr const char* Plugin = "qelplugin::qelLaserWelding";
constexpr int Conflict = 7; // the wire runs the other way

constexpr const char* Labels[KeyCount] = {"Work mode", "Wiring", "Red Light", "ProtectGas",
                                          "Retract Wire"};

constexpr SaveTexts WireTexts[] = {
    {Plugin, "Feed wire successfully", "Feed wire failed. Please check logs."},
    {Plugin, "Retract wire successfully", "Retract wire failed. Please check logs."},
};
constexpr SaveTexts GasTexts{Plugin, "Open gas successfully",
                             "Open gas failed. Please check logs."};

} // namespace

const char* labelOf(Key key)
{
    return Labels[static_cast<int>(key)];
}

void Model::beginStep()
{
    messages.clear();
    errorLines.clear();
    allowedWarnings.clear();
    allowForUntrueReads();
}

void Model::allowForUntrueReads()
{
    constexpr const char* beginnings[] = {
        "setTableMatchData: ", "parseMatchParamToTable: ", "[qellaserweld][JsonCommon] "};
    for (const char* each : beginnings) {
        if (!readsTruly())
            allowedWarnings << QString::fromLatin1(each);
    }
}

bool Model::readsTruly() const
{
    return connected && !faults.wrongTypes && !faults.registersNoArray &&
           !faults.registerOtherKeys && !faults.registersUndescribed &&
           !faults.registerNumberNames && !faults.firstPortGone;
}

// The power was off: only what is stored is as it was. The connection comes up behind the plugins.
void Model::opened()
{
    level = 0;
    powered = false;
    faults = {};
    language = pendant::Language::English;
    shade = pendant::Theme::Shade::Light;
    feeding = retracting = welding = false;
    held = {};
    connected = true;
    pluginMade();
}

void Model::pluginMade()
{
    showsVirtual = connected && readsFlag(virtualWelding);
}

bool Model::isAnswered() const
{
    return arrives() && !faults.emptyReply && !faults.elementTypes && !faults.foreignReply &&
           !faults.missingReturn;
}

bool Model::readsFlag(bool flag) const
{
    return connected && !faults.wrongTypes && flag;
}

std::optional<int> Model::strictResult(int code) const
{
    if (!isAnswered())
        return std::nullopt;
    return faults.wrongTypes ? 0 : code; // a text reads as 0
}

void Model::report(const QString& command, int code, const SaveTexts& texts)
{
    const std::optional<int> result = strictResult(code);
    if (!result) {
        errorLines << QStringLiteral("not found %1 Result").arg(command);
    } else if (*result == 0) {
        tell(Information, shown(texts.context, texts.saved));
    } else {
        tell(Error, shown(texts.context, texts.failed));
        errorLines << QStringLiteral("%1 Result: %2").arg(command).arg(*result);
    }
}

void Model::saved(const QString& command, int code, const SaveTexts& texts)
{
    report(command, code, texts);
}

// A text is a number to it, and no answer is told.
void Model::savedMapping(int code)
{
    constexpr const char* page = "WeldioPage";
    const QString command = QStringLiteral("set_weld_io_config");
    if (!isAnswered()) {
        const bool isEmpty = !arrives() || faults.emptyReply;
        tell(Error, shown(page, "Save failed. No response from controller."));
        errorLines << QLatin1String(isEmpty ? "empty response for " : "not found ") + command;
    } else if (code == 0) {
        tell(Information, shown(page, "Saved successfully"));
    } else {
        tell(Error, shown(page, "Save failed. Please check the parameter configuration."));
        errorLines << QStringLiteral("%1 Result: %2").arg(command).arg(code);
    }
}

// The two keys of the wire ask the user at their release as well.
bool Model::operates(Key key, bool pressed)
{
    const bool isWire = key == Key::Wiring || key == Key::RetractWire;
    if (!pressed && !isWire)
        return false;
    if (!mayOperate())
        tell(Warning, shown(Plugin, "Insufficient user permissions!"));
    return mayOperate();
}

void Model::press(Key key)
{
    held[static_cast<std::size_t>(key)] = true;
    if (!operates(key, true))
        return;
    const bool isDone = arrives() && faults.returnCode == 0;
    if (key == Key::WorkMode)
        switchMode();
    else if (key == Key::RedLight)
        redLight = isDone ? !readsFlag(redLight) : redLight;
    else if (key == Key::ProtectGas)
        report(QStringLiteral("set_weld_manual_gas"), codeOf(0), GasTexts);
    else
        moveWire(key, true);
}

void Model::release(Key key)
{
    held[static_cast<std::size_t>(key)] = false;
    if (operates(key, false))
        moveWire(key, false);
}

void Model::releaseKeys()
{
    for (int each = 0; each < KeyCount; ++each) {
        if (held[static_cast<std::size_t>(each)])
            release(static_cast<Key>(each));
    }
}

void Model::moveWire(Key key, bool on)
{
    const bool isBack = key == Key::RetractWire;
    bool& moves = isBack ? retracting : feeding;
    const bool isBlocked = on && (isBack ? feeding : retracting);
    const int code = codeOf(isBlocked ? Conflict : 0);
    if (arrives() && code == 0)
        moves = on;
    report(QLatin1String(isBack ? "set_weld_retract_wire" : "set_weld_feed_wire"), code,
           WireTexts[isBack ? 1 : 0]);
}

// No answer counts as success, and the picture follows the answer.
void Model::switchMode()
{
    const bool toVirtual = !readsFlag(virtualWelding);
    if (arrives() && faults.returnCode == 0)
        virtualWelding = toVirtual;
    if (isAnswered() && faults.returnCode != 0) {
        tell(Error, shown(Plugin, "Switch work mode failed"));
        return;
    }
    showsVirtual = toVirtual;
    tell(Information,
         shown(Plugin, toVirtual ? "Switch to VirtualWelding" : "Switch to RealWdlding"));
}

// The wire stops with the connection; the picture is read when it is back.
void Model::connection(bool up)
{
    connected = up;
    if (up)
        showsVirtual = readsFlag(virtualWelding);
    else
        feeding = retracting = false;
}

} // namespace soak
