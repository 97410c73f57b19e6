#pragma once

#include "IoPoints.h"
#include "WeldDevice.h"

#include <QHash>
#include <QVector>

namespace pendant {

/// A signal with the place where it is mapped and what is there now.
struct SignalState
{
    const WeldSignal* signal;
    Mapping mapping;
    QString place;   ///< kind of port, or "REG"
    QString trouble; ///< why what is mapped cannot be used; empty when it can or nothing is mapped
    RegisterContent content = RegisterContent::Bit; ///< what the value is; never a text
    double value = 0;

    bool isMapped() const { return !mapping.port.isEmpty() && trouble.isEmpty(); }
};

/// Values of the ports and registers that the signals are mapped to. The outputs follow the weld
/// device, the inputs are set by hand. Neither outlives a restart, as at a controller whose power
/// was off.
class WeldIo
{
public:
    /// What is read for one look at the signals.
    struct Source
    {
        QJsonObject mapping; ///< record "weld_io_config"
        QJsonObject setting; ///< record "weld_setting_config"
        const WeldState& device;
        const IoPoints& points;
    };

    /// The outputs, then the inputs. A signal that is switched off drives nothing, but shows what
    /// another one drives at its place.
    QVector<SignalState> states(const Source& source) const;
    /// Puts a value at the place of an input. Empty when done, and otherwise why not.
    QString setInput(const QString& key, double value, const Source& source);

private:
    QHash<QString, double> m_inputs; ///< by place
};

} // namespace pendant
