#include "WeldDevice.h"

namespace pendant {
namespace {

struct StatusField
{
    const char* key;
    bool WeldState::*status;
    bool isStored;
};

constexpr StatusField statusFields[] = {
    {"virtual_welding_status", &WeldState::virtualWelding, true},
    {"weld_redlight_status", &WeldState::redLight, true},
    {"weld_enable_status", &WeldState::enabled, false},
    {"weld_feed_wire_status", &WeldState::feeding, false},
    {"weld_retract_wire_status", &WeldState::retracting, false},
};

} // namespace

WeldDevice::WeldDevice(const QJsonObject& stored, QObject* parent)
    : QObject(parent)
{
    for (const StatusField& field : statusFields) {
        if (field.isStored)
            m_state.*field.status = stored.value(QLatin1String(field.key)).toBool();
    }
    m_reported = data();
    m_gasTimer.setSingleShot(true);
    m_gasTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_gasTimer, &QTimer::timeout, this, [this] {
        m_state.gasUntil = QDeadlineTimer();
        reportChange();
    });
}

void WeldDevice::setState(const WeldState& state)
{
    if (state.gasUntil.hasExpired())
        m_gasTimer.stop();
    else if (state.gasUntil != m_state.gasUntil)
        m_gasTimer.start(static_cast<int>(state.gasUntil.remainingTime()));
    m_state = state;
    reportChange();
}

void WeldDevice::stopWire()
{
    WeldState state = m_state;
    state.feeding = false;
    state.retracting = false;
    setState(state);
}

QJsonObject WeldDevice::data(const WeldState& state)
{
    QJsonObject data;
    for (const StatusField& field : statusFields)
        data.insert(QLatin1String(field.key), state.*field.status);
    data.insert(QLatin1String("weld_gas_status"), !state.gasUntil.hasExpired());
    return data;
}

QJsonObject WeldDevice::storedData(const WeldState& state)
{
    QJsonObject data;
    for (const StatusField& field : statusFields) {
        if (field.isStored)
            data.insert(QLatin1String(field.key), state.*field.status);
    }
    return data;
}

void WeldDevice::reportChange()
{
    const QJsonObject present = data();
    if (present == m_reported)
        return;
    m_reported = present;
    Q_EMIT dataChanged();
}

} // namespace pendant
