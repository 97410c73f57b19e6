#pragma once

#include "ResultCode.h"

#include <QJsonValue>

namespace pendant {

class RecordSchema;

// Records of the process data lie in lists under a stem and a number from 1: "LsData7".
constexpr int scheduleCount = 30;
constexpr int matchingCount = 10;
QString scheduleKey(int number);
QString matchingKey(int number);

/// Of one schedule.
const RecordSchema& scheduleSchema();

/// Of a payload: one schedule under its key. Refuses another number of records or another key, then
/// what the schema refuses, then an "LsDataID" that is not the key.
Result checkSchedule(const QJsonValue& payload);

/// Of a payload: one matching record under its key. Refuses, after what is refused of a schedule,
/// anything but four rows of a speed, a power, a frequency and a duty cycle in their ranges, and
/// columns that do not rise strictly: the speed's, and those that are switched on.
Result checkMatching(const QJsonValue& payload);

} // namespace pendant
