#pragma once

#include "Controller.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace pendant {

/// One fault that a tester can turn: its name on the command line, its caption in the fault panel,
/// and where the controller keeps it. Exactly one of `flag` and `number` is set; with `choices` the
/// number is one of these names, from 1, and 0 none of them.
struct FaultRow
{
    const char* name;
    const char* caption;
    const char* hint;
    bool Faults::*flag;
    int Faults::*number;
    int minimum; ///< of the number
    int maximum;
    int usual;        ///< number that the bare name stands for
    const char* unit; ///< behind the number
    QStringList (*choices)() = nullptr;
};

/// All faults, in the order in which they are shown.
const std::vector<FaultRow>& faultRows();
QStringList faultNames();

/// What the number can be, for a message.
QString faultRange(const FaultRow& row);

/// Turns on the fault that `text` names, as "name" or, for one with a number, "name=number", for
/// one with choices "name=choice". Returns what is wrong with the text; empty on success.
QString applyFault(const QString& text, Faults* faults);

/// True when any fault is on.
bool anyFault(const Faults& faults);

} // namespace pendant
