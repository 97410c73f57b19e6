#pragma once

#include "WeldioSignals.h"

#include <QJsonValue>

class EnableButton;
class QComboBox;
class QLabel;

/// One row of a signal table. The widgets belong to the table; a row only points at them.
///
/// A box that is null is passed over by each of the functions.
struct WeldioRow
{
    QString key;
    QString enabledKey; ///< empty without a switch
    QComboBox* typeBox = nullptr;
    QComboBox* portBox = nullptr;
    QComboBox* biasBox = nullptr;
    EnableButton* enableSwitch = nullptr;
    QLabel* nameLabel = nullptr;
    qint32 typeCode = 0;
    bool digital = false;
    bool hasSwitch = false;
    bool portRequired = false;
    bool portCounted = false;
    bool isOutput = false;
    PortSource portSource;

    /// What the source offers for the kind that is selected.
    QStringList offeredPorts() const;
    QString portText() const;
    bool isRegister() const;

    /// Kind as in the record: 0 first kind, 1 second of three, 2 register; -1 when none of three
    /// kinds is selected.
    int recordType() const;
    void selectRecordType(int type) const;
    /// Zero-based place inside the register; 0 for anything but a register.
    int recordBias() const;

    bool isSwitchedOn() const;
    bool needsPort() const;
    bool usesPort() const;

    /// Offers the places of the selected register and selects `preferred` (from 1), or for 0 and
    /// less the place that was selected; hides the box where no register is selected.
    void updateBias(int preferred) const;
    /// Makes the closed bias box paint its number.
    void reselectBias() const { reselect(biasBox); }
    static void reselect(QComboBox* box);

    /// Frees the boxes if the page can be edited and the row is switched on. The label is grey
    /// only where the row is switched off.
    void applyEditable(bool editable) const;
    void setBoxesEnabled(bool enabled) const;
};

/// How many places a register has, for the bias boxes.
namespace RegisterLengths {

/// Takes the lengths from the host's registers, and forgets those from before. Anything but an
/// array leaves all registers unknown.
void read(const QJsonValue& registers);
/// Places of the register, at least 1; 1 for an unknown one.
int of(const QString& name);

} // namespace RegisterLengths
