#pragma once

#include <qelplugin.h>

/// Tags of the log: each names a folder and a file of the log folder.
namespace LogTag {
inline constexpr char Plugin[] = "qelLaserWelding"; ///< frame and pages
inline constexpr char Short[] = "qellaserweld";     ///< instruction editors and call texts
} // namespace LogTag

namespace LogLine {

/// "[<level>|<MM/dd hh:mm:ss.zzz>]" with the present time.
QString header(char level);
/// "./log/qelplugin/<tag>/<tag>".
QString pathBase(const char* tag);

} // namespace LogLine

// One log line per statement: LOGI(LogTag::Plugin) << "items"; the line ends with the statement.
// Debug goes to the console, the others to the console and the file of the tag.

#define LOGD(tag)                                                                                  \
    qelplugin::QLog(QLatin1String("\x1b[32m"), (static_cast<void>(tag), LogLine::header('D')),     \
                    QString())
#define LASERWELD_FILE_LOG(level, colour, tag)                                                     \
    qelplugin::QFLog(QLatin1String(colour), LogLine::header(level), QString(),                     \
                     LogLine::pathBase(tag), QLatin1String("log"))
#define LOGI(tag) LASERWELD_FILE_LOG('I', "\x1b[36m", tag)
#define LOGW(tag) LASERWELD_FILE_LOG('W', "\x1b[33m", tag)
#define LOGE(tag) LASERWELD_FILE_LOG('E', "\x1b[31m", tag)
