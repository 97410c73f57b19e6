#include "Commands.h"

#include "JsonText.h"
#include "RecordKeys.h"
#include "RecordSchema.h"
#include "WeldCurves.h"
#include "WeldIoCheck.h"
#include "WeldParameterCheck.h"

#include <algorithm>
#include <iterator>

namespace pendant {
namespace {

Result notABool(const QJsonValue& payload)
{
    return refused(
        ResultCode::WrongType,
        QStringLiteral("%1 has the wrong type; accepted: true or false").arg(jsonText(payload)));
}

void storeStatus(Transaction& transaction)
{
    transaction.changes.insert(keys::weldData, WeldDevice::storedData(transaction.device));
}

/// Puts one status of the device; it is stored.
template<bool WeldState::*status>
Result setStatus(const QJsonValue& payload, Transaction& transaction)
{
    if (!payload.isBool())
        return notABool(payload);
    transaction.device.*status = payload.toBool();
    storeStatus(transaction);
    return {};
}

/// Starts and stops the wire in one direction, while it does not run in the other.
template<bool WeldState::*direction, bool WeldState::*opposite>
Result moveWire(const QJsonValue& payload, Transaction& transaction)
{
    if (!payload.isBool())
        return notABool(payload);
    if (payload.toBool() && transaction.device.*opposite)
        return refused(ResultCode::Conflict,
                       QStringLiteral("the wire is running in the other direction"));
    transaction.device.*direction = payload.toBool();
    return {};
}

/// The gas valve closes by itself after the purge time; opening it again begins that time anew.
Result setManualGas(const QJsonValue& payload, Transaction& transaction)
{
    if (!payload.isBool())
        return notABool(payload);
    const QJsonObject setting = transaction.record(keys::weldSetting).toObject();
    const int purgeTime = setting.value(keys::manualGasTime).toInt(); // milliseconds
    transaction.device.gasUntil =
        payload.toBool() ? QDeadlineTimer(purgeTime, Qt::PreciseTimer) : QDeadlineTimer();
    return {};
}

/// Starts and stops welding. The stored main switch is left alone: it changes with the next save.
Result setWeldEnable(const QJsonValue& payload, Transaction& transaction)
{
    const QString text = payload.toString();
    const bool isOn = text == QLatin1String("TRUE");
    if (!payload.isString())
        return refused(ResultCode::WrongType,
                       QStringLiteral("%1 has the wrong type; accepted: the text TRUE or FALSE")
                           .arg(jsonText(payload)));
    if (!isOn && text != QLatin1String("FALSE"))
        return refused(ResultCode::OutOfRange,
                       QStringLiteral("%1 is out of range; accepted: the text TRUE or FALSE")
                           .arg(jsonText(payload)));
    if (transaction.isPowered)
        return refused(ResultCode::RobotPowered, QStringLiteral("the robot is powered"));
    const Result ready =
        isOn ? checkReadyToWeld(transaction.record(keys::weldIo), transaction.points()) : Result();
    if (ready.isDone())
        transaction.device.enabled = isOn;
    return ready;
}

Result setWeldSetting(const QJsonValue& payload, Transaction& transaction)
{
    const Result result = weldSettingSchema().check(payload);
    if (result.isDone())
        transaction.changes.insert(keys::weldSetting, payload);
    return result;
}

Result setWeldIo(const QJsonValue& payload, Transaction& transaction)
{
    const Result result = checkWeldIo(payload, transaction.points());
    if (result.isDone())
        transaction.changes.insert(keys::weldIo, payload);
    return result;
}

/// Puts what the payload has into the record that is kept under the key; the rest of it stays.
void merge(const QString& key, const QJsonValue& payload, Transaction& transaction)
{
    QJsonObject record = transaction.record(key).toObject();
    const QJsonObject added = payload.toObject();
    for (auto each = added.begin(); each != added.end(); ++each)
        record.insert(each.key(), each.value());
    transaction.changes.insert(key, record);
}

Result setWeldSchedule(const QJsonValue& payload, Transaction& transaction)
{
    const Result result = checkSchedule(payload);
    if (result.isDone())
        merge(keys::weldSchedules, payload, transaction);
    return result;
}

Result setWeldMatching(const QJsonValue& payload, Transaction& transaction)
{
    const Result result = checkMatching(payload);
    if (result.isDone())
        merge(keys::weldMatching, payload, transaction);
    return result;
}

template<std::size_t index>
Result setWeldCurve(const QJsonValue& payload, Transaction& transaction)
{
    const Result result = checkCurve(weldCurves()[index], payload);
    if (result.isDone())
        merge(keys::weldCurves, payload, transaction);
    return result;
}

/// Changes nothing.
Result computeCurve(const QJsonValue& payload, Transaction&)
{
    return fitCurve(payload);
}

constexpr auto feedWire = moveWire<&WeldState::feeding, &WeldState::retracting>;
constexpr auto retractWire = moveWire<&WeldState::retracting, &WeldState::feeding>;

constexpr Command commands[] = {
    {"set_weld_setting_config", ReplyForm::Code, setWeldSetting},
    {"set_weld_io_config", ReplyForm::Code, setWeldIo},
    {"set_weld_param_list_config", ReplyForm::Code, setWeldSchedule},
    {"set_weld_param_match_config", ReplyForm::Code, setWeldMatching},
    {"set_weld_curve_power_config", ReplyForm::Code, setWeldCurve<0>},
    {"set_weld_curve_feed_config", ReplyForm::Code, setWeldCurve<1>},
    {"set_weld_curve_frequency_config", ReplyForm::Code, setWeldCurve<2>},
    {"set_weld_curve_dutycycle_config", ReplyForm::Code, setWeldCurve<3>},
    {"compute_curve_config", ReplyForm::Values, computeCurve},
    {"set_weld_enable", ReplyForm::Flag, setWeldEnable},
    {"set_virtual_welding", ReplyForm::Code, setStatus<&WeldState::virtualWelding>},
    {"set_weld_red_light", ReplyForm::Code, setStatus<&WeldState::redLight>},
    {"set_weld_feed_wire", ReplyForm::Code, feedWire},
    {"set_weld_retract_wire", ReplyForm::Code, retractWire},
    {"set_weld_manual_gas", ReplyForm::Code, setManualGas},
};

} // namespace

QJsonValue Transaction::record(const QString& key) const
{
    const auto changed = changes.constFind(key);
    return changed != changes.constEnd() ? changed.value() : cell.record(key);
}

const Command* findCommand(const QString& name)
{
    const auto* found =
        std::find_if(std::begin(commands), std::end(commands),
                     [&](const Command& command) { return QLatin1String(command.name) == name; });
    return found != std::end(commands) ? found : nullptr;
}

} // namespace pendant
