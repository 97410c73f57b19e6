#include "LogTail.h"

#include <QFile>

namespace soak {

LogTail::LogTail(const QString& base)
    : name(base + QStringLiteral(".log"))
    , nameBefore(base + QStringLiteral(".1.log"))
{}

QByteArray LogTail::read(const QString& file, qint64 from)
{
    QFile log(file);
    if (!log.open(QIODevice::ReadOnly) || !log.seek(from))
        return {};
    return log.readAll();
}

QStringList LogTail::take()
{
    QByteArray bytes;
    if (QFile(name).size() < place) {
        bytes = read(nameBefore, place);
        place = 0;
    }
    const QByteArray added = read(name, place);
    place += added.size();
    bytes += added;
    return QString::fromUtf8(bytes).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace soak
