#pragma once

#include <QString>
#include <QStringList>

/// The names under which programs call the controller's weld records.
namespace RecordNames {

/// Process schedules on the controller.
inline constexpr int ScheduleCount = 30;

/// "LsData1" for number 1; the numbers go to ScheduleCount.
inline QString scheduleName(int number)
{
    return QString(QLatin1String("LsData%1")).arg(number);
}

/// All of them, in the order of their numbers.
inline QStringList scheduleNames()
{
    QStringList names;
    for (int number = 1; number <= ScheduleCount; ++number)
        names << scheduleName(number);
    return names;
}

} // namespace RecordNames
