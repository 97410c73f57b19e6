#pragma once

#include "WeldSignals.h"

#include <QHash>
#include <QJsonArray>
#include <QStringList>

#include <optional>

namespace pendant {

class Cell;
struct Faults;
struct Result;

/// What the elements of a register hold.
enum class RegisterContent { Bit, Whole, Real, Text };

struct Register
{
    RegisterContent content;
    bool canRead;
    bool canWrite;
    int length; ///< elements, at least 1
};

/// The ports and registers that signals can be mapped to, as the controller finds them now.
class IoPoints
{
public:
    /// Reads both lists from the cell; a fault takes ports away.
    IoPoints(const Cell& cell, const Faults& faults);

    /// Of a kind such as "DO"; empty for an unknown kind.
    QStringList ports(const QString& kind) const;
    /// The last of that name, as its length is read by others.
    std::optional<Register> findRegister(const QString& name) const;

    /// Refuses a type, a port, a register or a bias that the signal cannot have. An empty port is
    /// none of these.
    Result check(const WeldSignal& signal, const Mapping& mapping) const;

private:
    Result checkPort(const WeldSignal& signal, const Mapping& mapping, const QString& kind) const;
    Result checkRegister(const WeldSignal& signal, const Mapping& mapping) const;

    QJsonObject m_ports;
    QJsonArray m_registers;
    mutable QHash<QString, int> m_registerIndex; ///< made at the first look
    bool m_firstPortIsGone;
};

/// The register list as the faults let a plugin see it.
QJsonValue shownRegisters(const QJsonValue& registers, const Faults& faults);

} // namespace pendant
