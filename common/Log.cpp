#include "Log.h"

#include <QDateTime>
#include <QStringBuilder>

namespace LogLine {

QString header(char level)
{
    const QString time = QDateTime::currentDateTime().toString(QLatin1String("MM/dd hh:mm:ss.zzz"));
    return QLatin1Char('[') % QLatin1Char(level) % QLatin1Char('|') % time % QLatin1Char(']');
}

QString pathBase(const char* tag)
{
    const QLatin1String name(tag);
    return QLatin1String("./log/qelplugin/") % name % QLatin1Char('/') % name;
}

} // namespace LogLine
