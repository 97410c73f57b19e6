#pragma once

#include "Cell.h"

#include <QStringList>

namespace pendant {

struct CellSize;

/// The kinds of ports, in the order in which a controller tells them.
QStringList portKinds();

/// The robot programs of a new cell: examples to begin with.
Programs defaultPrograms();

/// The records of a new cell: a weld cell as it leaves its commissioning, with its laser, wire
/// feeder and gas on the first ports.
Records defaultRecords(const CellSize& size);

} // namespace pendant
