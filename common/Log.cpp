#include "Log.h"

#include <QDateTime>

namespace LogLine {

QString header(char level)
{
    const QString time = QDateTime::currentDateTime().toString(QLatin1String("MM/dd hh:mm:ss.zzz"));
    return QString(QLatin1String("[%1|%2]")).arg(QLatin1Char(level)).arg(time);
}

QString pathBase(const char* tag)
{
    return QString(QLatin1String("./log/qelplugin/%1/%1")).arg(QLatin1String(tag));
}

} // namespace LogLine
