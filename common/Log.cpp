#include "Log.h"

#include <QDateTime>
#include <QStringBuilder>
#include <QStringView>

namespace LogLine {

namespace {

constexpr qint64 MillisecondsPerSecond = 1000;

/// The second of the last line, as it is written. Has nothing to destroy: the library can be
/// unloaded.
struct Second
{
    qint64 number = -1;     ///< since 1970
    char text[14 + 1] = {}; ///< MM/dd hh:mm:ss
};

// To find the local time, the system looks at its files each time: not more than once a second.
QLatin1String secondText(qint64 number)
{
    static Second last; // all lines come from the GUI thread
    if (last.number != number) {
        const QDateTime time = QDateTime::fromMSecsSinceEpoch(number * MillisecondsPerSecond);
        qstrncpy(last.text, time.toString(QLatin1String("MM/dd hh:mm:ss")).toLatin1().constData(),
                 sizeof last.text);
        last.number = number;
    }
    return QLatin1String(last.text);
}

} // namespace

QString header(char level)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const int rest = int(now % MillisecondsPerSecond);
    const QChar milliseconds[] = {QLatin1Char(char('0' + rest / 100)),
                                  QLatin1Char(char('0' + rest / 10 % 10)),
                                  QLatin1Char(char('0' + rest % 10))};
    return QLatin1Char('[') % QLatin1Char(level) % QLatin1Char('|') %
           secondText(now / MillisecondsPerSecond) % QLatin1Char('.') %
           QStringView(milliseconds, 3) % QLatin1Char(']');
}

QString pathBase(const char* tag)
{
    const QLatin1String name(tag);
    return QLatin1String("./log/qelplugin/") % name % QLatin1Char('/') % name;
}

} // namespace LogLine
