#include "WeldIo.h"

#include "RecordKeys.h"
#include "ResultCode.h"

#include <algorithm>
#include <cmath>

namespace pendant {
namespace {

using Values = QHash<QString, double>;

// Limits for a number that is set by hand; neither a port nor a register takes every double.
constexpr double largest = 999999;

bool isOn(const char* key, const QJsonObject& mapping)
{
    const WeldSignal* signal = findWeldSignal(QLatin1String(key));
    return signal && mappingOf(*signal, mapping).isOn;
}

/// A feeder that has an input for the hand is moved by that alone; any other by its speed, its
/// direction and its start.
void moveWire(Values& values, const WeldIo::Source& source, bool isBack)
{
    const char* manual = isBack ? "manual_retract" : "manual_wire_feed";
    if (isOn(manual, source.mapping)) {
        values.insert(QLatin1String(manual), 1);
        return;
    }
    const QLatin1String speed = isBack ? keys::manualRetractSpeed : keys::manualFeedSpeed;
    values.insert(QStringLiteral("wire_speed"), source.setting.value(speed).toDouble());
    values.insert(QStringLiteral("retract_direction"), isBack);
    values.insert(QStringLiteral("wire_feed"), 1);
}

/// What the device wants of the outputs; all others are 0.
Values wantedOutputs(const WeldIo::Source& source)
{
    Values values;
    values.insert(QStringLiteral("laser_enable"), source.device.enabled);
    values.insert(QStringLiteral("red_light"), source.device.redLight);
    values.insert(QStringLiteral("gas_protect"), !source.device.gasUntil.hasExpired());
    if (source.device.feeding || source.device.retracting)
        moveWire(values, source, source.device.retracting);
    return values;
}

RegisterContent contentOf(const SignalState& state, const IoPoints& points)
{
    if (state.signal->kind == SignalKind::Digital)
        return RegisterContent::Bit;
    if (state.place != RegisterPlace)
        return state.place.startsWith(QLatin1Char('A')) ? RegisterContent::Real
                                                        : RegisterContent::Whole;
    const std::optional<Register> found = points.findRegister(state.mapping.port);
    return found ? found->content : RegisterContent::Whole;
}

SignalState stateOf(const WeldSignal& signal, const WeldIo::Source& source)
{
    SignalState state;
    state.signal = &signal;
    state.mapping = mappingOf(signal, source.mapping);
    state.place = placeOf(signal, state.mapping.type);
    state.trouble = source.points.check(signal, state.mapping).reason;
    state.content = contentOf(state, source.points);
    return state;
}

/// A port stands by itself, a register with its element.
QString placeKey(const SignalState& state)
{
    return QStringLiteral("%1 %2 %3")
        .arg(state.place, QString::number(state.mapping.bias), state.mapping.port);
}

/// Of signals that share a place the highest value counts.
void drive(Values& values, const QVector<SignalState>& states, const Values& wanted)
{
    for (const SignalState& state : states) {
        if (!state.signal->isOutput || !state.mapping.isOn || !state.isMapped())
            continue;
        double& value = values[placeKey(state)];
        value = std::max(value, wanted.value(QLatin1String(state.signal->key)));
    }
}

QString checkValue(const SignalState& state, double value)
{
    const bool isWhole = std::trunc(value) == value;
    if (state.content == RegisterContent::Bit && value != 0 && value != 1)
        return QStringLiteral("%1 is neither 0 nor 1").arg(value);
    if (!(std::abs(value) <= largest))
        return QStringLiteral("%1 is beyond %2").arg(value).arg(largest, 0, 'f', 0);
    if (state.content == RegisterContent::Whole && !isWhole)
        return QStringLiteral("%1 is no whole number").arg(value);
    return {};
}

} // namespace

QVector<SignalState> WeldIo::states(const Source& source) const
{
    QVector<SignalState> states;
    for (const WeldSignal& signal : weldSignals())
        states.append(stateOf(signal, source));
    Values values = m_inputs;
    drive(values, states, wantedOutputs(source));
    for (SignalState& state : states)
        state.value = state.isMapped() ? values.value(placeKey(state)) : 0;
    return states;
}

QString WeldIo::setInput(const QString& key, double value, const Source& source)
{
    const WeldSignal* signal = findWeldSignal(key);
    if (!signal || signal->isOutput)
        return QStringLiteral("there is no such input");
    const SignalState state = stateOf(*signal, source);
    if (!state.isMapped())
        return state.trouble.isEmpty() ? QStringLiteral("it has no port") : state.trouble;
    const QString wrong = checkValue(state, value);
    if (wrong.isEmpty())
        m_inputs.insert(placeKey(state), value);
    return wrong;
}

} // namespace pendant
