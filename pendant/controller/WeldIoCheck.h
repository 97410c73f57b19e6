#pragma once

#include "ResultCode.h"

#include <QJsonValue>

namespace pendant {

class IoPoints;
class RecordSchema;

/// Of "weld_io_config": its keys with their types. What fits the cell is checked below.
const RecordSchema& weldIoSchema();

/// Refuses, after what the schema refuses, for each signal in turn: a type that it does not have, a
/// port or register that the cell does not have, a register of the wrong access or type, a bias
/// beyond the register, and a signal that is switched on without a port. A signal without a switch
/// may be without a port: a cell is commissioned step by step.
Result checkWeldIo(const QJsonValue& record, const IoPoints& points);

/// Refuses while the laser or the gas, which no weld can do without, has no port that is there.
Result checkReadyToWeld(const QJsonValue& record, const IoPoints& points);

} // namespace pendant
