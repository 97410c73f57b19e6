#pragma once

#include <QString>

/// The names under which programs call the controller's weld records.
namespace RecordNames {

/// Process schedules on the controller.
inline constexpr int ScheduleCount = 30;

/// "LsData1" for number 1; the numbers go to ScheduleCount.
inline QString scheduleName(int number)
{
    return QString(QLatin1String("LsData%1")).arg(number);
}

} // namespace RecordNames
