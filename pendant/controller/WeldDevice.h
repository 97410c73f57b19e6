#pragma once

#include <QDeadlineTimer>
#include <QJsonObject>
#include <QObject>
#include <QTimer>

namespace pendant {

/// What the weld device is doing.
struct WeldState
{
    bool enabled = false; ///< started with "set_weld_enable"; apart from the stored main switch
    bool virtualWelding = false;
    bool redLight = false;
    bool feeding = false;
    bool retracting = false;
    QDeadlineTimer gasUntil; ///< the gas valve closes then; expired while it is closed
};

/// The laser, the wire feeder and the gas valve. Takes on whatever state it is given: what may be
/// done when is decided by the commands.
class WeldDevice : public QObject
{
    Q_OBJECT

public:
    /// The state after a start: only what the stored record keeps survives the power being off.
    explicit WeldDevice(const QJsonObject& stored, QObject* parent = nullptr);

    const WeldState& state() const { return m_state; }
    void setState(const WeldState& state);

    /// The wire stops: the release of a key that is held can no longer arrive.
    void stopWire();

    /// The service item, as a plugin reads it.
    QJsonObject data() const { return data(m_state); }
    static QJsonObject data(const WeldState& state);
    /// The part of the service item that outlives a restart.
    static QJsonObject storedData(const WeldState& state);

Q_SIGNALS:
    /// The service item holds something new.
    void dataChanged();

private:
    void reportChange();

    WeldState m_state;
    QJsonObject m_reported;
    QTimer m_gasTimer;
};

} // namespace pendant
