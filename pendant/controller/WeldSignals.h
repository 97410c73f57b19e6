#pragma once

#include <QJsonObject>
#include <QString>

#include <vector>

namespace pendant {

/// What a signal carries, and with it the kinds of ports that take it.
enum class SignalKind {
    Analogue, ///< a number: an analogue port, a group port, or a register of numbers
    Digital,  ///< on or off: a digital port or a register of bits
    Group,    ///< a whole number: a group port or a register of whole numbers
};

/// A signal of the weld process. The keys of its record begin with `key`.
struct WeldSignal
{
    const char* key;
    const char* caption;
    const char* switchKey; ///< null: the signal is always on
    SignalKind kind;
    bool isOutput;         ///< of the controller
    const char* usualPort; ///< in a new cell; without one the signal is switched off there

    QString typeKey() const { return withEnding("_type"); }
    QString portKey() const { return withEnding("_port"); }
    QString biasKey() const { return withEnding("_bias"); }

private:
    QString withEnding(const char* ending) const
    {
        return QLatin1String(key) + QLatin1String(ending);
    }
};

/// The outputs, then the inputs.
const std::vector<WeldSignal>& weldSignals();
/// Null when there is none of that key.
const WeldSignal* findWeldSignal(const QString& key);

/// A type as the record "weld_io_config" has it: 0, 1 or this.
constexpr int RegisterType = 2;
inline const QLatin1String RegisterPlace("REG");

/// Where a record puts a signal.
struct Mapping
{
    int type = 0;
    QString port; ///< or register; may be empty
    int bias = 0; ///< element of the register, from 0
    bool isOn = false;
};

/// Of a record that was checked, or of any other: what is unusable in it reads as 0, as no port or
/// as off.
Mapping mappingOf(const WeldSignal& signal, const QJsonObject& record);

/// What the type stands for: a kind of port such as "DO", or "REG". Empty for a type that the
/// signal does not have.
QString placeOf(const WeldSignal& signal, int type);

} // namespace pendant
