#pragma once

#include "ResultCode.h"

#include <QJsonValue>

#include <array>

namespace pendant {

/// How an output becomes a process value: measured nodes of both. A curve is two keys of the record
/// "weld_curve_config".
struct WeldCurve
{
    const char* numberKey; ///< of the nodes, 2 to 10
    const char* nodesKey;  ///< array of [output value, process value]
    int least;             ///< process value
    int most;              ///< process value
    const char* unit;      ///< of the process value
};

/// Laser power, feeding speed, frequency, duty cycle.
const std::array<WeldCurve, 4>& weldCurves();

/// Refuses unknown and missing keys, wrong types and a number of nodes beyond its range; then nodes
/// of another number, or that are no pairs in the ranges; then values that do not rise strictly,
/// of both kinds.
Result checkCurve(const WeldCurve& curve, const QJsonValue& payload);

/// Lays the line of least squares through the nodes of one curve, whichever its keys tell, and
/// returns its "slope" and "intercept" as values. The nodes may come in any order. Refuses as
/// above, and nodes that all have the same output value.
Result fitCurve(const QJsonValue& payload);

} // namespace pendant
