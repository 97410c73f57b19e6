#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

/// Paths of the libraries in this process whose file names start so; a library's file may have a
/// longer version than its name.
inline QStringList mappedLibraries(const QString& fileName)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly))
        qFatal("no /proc/self/maps");
    QStringList paths;
    const QStringList lines = QString::fromLocal8Bit(maps.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (line.section(QLatin1Char('/'), -1).startsWith(fileName))
            paths << line.mid(line.indexOf(QLatin1Char('/')));
    }
    paths.removeDuplicates();
    return paths;
}
