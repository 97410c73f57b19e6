#pragma once

#include <QFile>

/// Resident memory of the process, in KiB; 0 where the system does not tell.
inline double residentKiB()
{
    QFile status(QLatin1String("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toDouble();
    }
    return 0;
}
