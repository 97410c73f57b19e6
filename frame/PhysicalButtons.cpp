#include "CommandReply.h"
#include "Host.h"
#include "Log.h"
#include "ShowStatusBar.h"
#include "qelLaserWelding.h"

#include <QDebug>

#include <utility>

namespace qelplugin {

namespace {

struct Key
{
    const char* label;
    const char* picture; ///< start of the names of its two pictures
    const char* command;
};

constexpr Key WorkMode{QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Work mode"), "switchMode",
                       "set_virtual_welding"};
constexpr Key FeedWire{QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Wiring"), "feedWire",
                       "set_weld_feed_wire"};
constexpr Key ProtectGas{QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "ProtectGas"), "gas",
                         "set_weld_manual_gas"};
constexpr Key RetractWire{QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Retract Wire"),
                          "pullWire", "set_weld_retract_wire"};
constexpr Key RedLight{QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Red Light"), "redLight",
                       "set_weld_red_light"};

/// What is said of the reply to a key.
struct ReplyTexts
{
    const char* success;
    const char* failure;
    const char* failLog;
    const char* noneLog;
    const char* noneDebug; ///< to the console, behind the log line
};

constexpr ReplyTexts FeedWireTexts{
    QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Feed wire successfully"),
    QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Feed wire failed. Please check logs."),
    "Phybtn:: feed_wire failed. ", "Phybtn:: feed_wire failed. not found ", "Welding"};
constexpr ReplyTexts RetractWireTexts{
    QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Retract wire successfully"),
    QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Retract wire failed. Please check logs."),
    "Phybtn:: retract_wire failed. ", "Phybtn:: retract_wire failed. not found ", "Retract Wire"};
constexpr ReplyTexts ProtectGasTexts{
    QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Open gas successfully"),
    QT_TRANSLATE_NOOP("qelplugin::qelLaserWelding", "Open gas failed. Please check logs."),
    "Phybtn:: open gas failed. ", "Phybtn:: open gas failed. not found ", "ProtectGas"};

PhysicalButton button(const Key& key, std::function<void(bool)> callback)
{
    const QString picture =
        QLatin1String(":/png/phybutton/") + QLatin1String(key.picture) + QLatin1String("%1.png");
    return {qelLaserWelding::tr(key.label), picture.arg(QLatin1String("Pressed")),
            picture.arg(QLatin1String("Unpressed")), std::move(callback)};
}

bool isAllowed()
{
    if (Host::mayOperate())
        return true;
    Host::tellWarning(qelLaserWelding::tr("Insufficient user permissions!"));
    return false;
}

QJsonArray send(QObject* plugin, const Key& key, bool on)
{
    return CommandReply::send(plugin, QLatin1String(key.command), on);
}

bool isAnswered(const QJsonArray& reply, const Key& key, const ReplyTexts& texts)
{
    return CommandReply::reportStrict(reply, QLatin1String(key.command),
                                      {qelLaserWelding::tr(texts.success),
                                       qelLaserWelding::tr(texts.failure),
                                       QLatin1String(texts.failLog), QLatin1String(texts.noneLog)});
}

void sendAndReport(QObject* plugin, const Key& key, const ReplyTexts& texts, bool on)
{
    if (!isAnswered(send(plugin, key, on), key, texts))
        qDebug() << texts.noneDebug;
}

// The level is asked on the release as well, so who may not operate is told so twice.
void feedWire(QObject* plugin, bool pressed)
{
    if (!isAllowed())
        return;
    const QJsonArray reply = send(plugin, FeedWire, pressed);
    if (!pressed)
        qDebug() << "is_pressed = " << false;
    if (isAnswered(reply, FeedWire, FeedWireTexts))
        return;
    if (pressed)
        qDebug() << "is_pressed = " << true;
    qDebug() << FeedWireTexts.noneDebug;
}

void retractWire(QObject* plugin, bool pressed)
{
    if (isAllowed())
        sendAndReport(plugin, RetractWire, RetractWireTexts, pressed);
}

// Only ever opens the gas: the controller closes it.
void openGas(QObject* plugin, bool pressed)
{
    if (pressed && isAllowed())
        sendAndReport(plugin, ProtectGas, ProtectGasTexts, true);
}

void switchRedLight(QObject* plugin, bool pressed)
{
    if (pressed && isAllowed())
        send(plugin, RedLight, !Host::isRedLightOn());
}

// A reply without a result counts as success.
void switchWorkMode(QObject* plugin, ShowStatusBar* indicator, bool pressed)
{
    const bool toVirtual = !Host::isVirtualWelding();
    if (!pressed || !isAllowed())
        return;
    const QJsonArray reply = send(plugin, WorkMode, toVirtual);
    if (CommandReply::firstElementResult(reply, QLatin1String(WorkMode.command)) != 0) {
        Host::tellError(qelLaserWelding::tr("Switch work mode failed"));
        return;
    }
    indicator->showWorkMode(toVirtual);
    Host::tellSuccess(toVirtual ? qelLaserWelding::tr("Switch to VirtualWelding")
                                : qelLaserWelding::tr("Switch to RealWdlding"));
}

} // namespace

// The indicator is made after the keys, so it is looked up at each press.
void qelLaserWelding::initPhysicalButton()
{
    LOGI(LogTag::Plugin) << "qelLaserWelding::initPhysicalButton()";
    const PhysicalButton workMode =
        button(WorkMode, [this](bool pressed) { switchWorkMode(this, statusBar, pressed); });
    const PhysicalButton feed = button(FeedWire, [this](bool pressed) { feedWire(this, pressed); });
    const PhysicalButton gas = button(ProtectGas, [this](bool pressed) { openGas(this, pressed); });
    const PhysicalButton retract =
        button(RetractWire, [this](bool pressed) { retractWire(this, pressed); });
    const PhysicalButton redLight =
        button(RedLight, [this](bool pressed) { switchRedLight(this, pressed); });

    const QString group = Host::pluginName();
    const QStringList extra{QLatin1String("")};
    CreatePhyButtonList(Host::pluginName(), group, {workMode, feed, redLight}, {gas, retract},
                        extra);
    ChangePhyButtonStatus(Host::pluginName(), group, true);
}

} // namespace qelplugin
