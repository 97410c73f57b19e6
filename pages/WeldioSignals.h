#pragma once

#include <QStringList>
#include <QVector>

#include <functional>

/// What a port box offers for an index of its type box.
using PortSource = std::function<QStringList(int typeIndex)>;

/// One process signal that can be mapped to a port or a register.
struct WeldioSignalDef
{
    const char* key;        ///< stem of the JSON keys and of the object names
    const char* caption;    ///< translated in the context "WeldioPage"
    const char* enabledKey; ///< JSON key of the switch; null without one
    qint32 typeCode;        ///< index of the list of kinds, see WeldioSignals::typeItems()
    bool digital;           ///< two kinds, the second of which is REG
    bool hasSwitch;
    bool portRequired; ///< needs a port whatever any switch says
    bool portCounted;  ///< counts as a use of its port whatever any switch says
    bool isOutput;     ///< written by the controller's process, so a register must be writable
    PortSource portSource;
};

/// The process signals. The tables are made on the first use and stay as they are.
namespace WeldioSignals {

const QVector<WeldioSignalDef>& outputs();
const QVector<WeldioSignalDef>& inputs();

/// The kinds that a type box offers; empty for an unknown code.
QStringList typeItems(qint32 typeCode);

} // namespace WeldioSignals
