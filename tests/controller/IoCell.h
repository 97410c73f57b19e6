#pragma once

#include "Cell.h"
#include "Controller.h"
#include "IoPoints.h"
#include "RecordKeys.h"

#include <QTemporaryDir>

/// A cell with a few ports of each kind and registers of known types:
/// "bits" (bool, w, 4), "flags" (bool, ro, 2), "both" (bit, rw), "words" (int16, w, 8),
/// "speed" (float, wo), "temp" (double, rd, 3), "count" (uint8, r), "text" (string, rw).
class IoCell
{
public:
    IoCell();

    const pendant::Cell& operator*() const { return *cell; }
    pendant::IoPoints points(const pendant::Faults& faults = {}) const { return {*cell, faults}; }

private:
    QTemporaryDir folder;
    std::unique_ptr<pendant::Cell> cell;
};

inline QJsonObject registerEntry(const char* name, const char* type, const char* access,
                                 const QJsonValue& length)
{
    return {{QStringLiteral("name"), QLatin1String(name)},
            {QStringLiteral("type"), QLatin1String(type)},
            {QStringLiteral("rw"), QLatin1String(access)},
            {QStringLiteral("len"), length}};
}

inline IoCell::IoCell()
{
    QJsonObject ports;
    for (const char* kind : {"AI", "AO", "DI", "DO", "GI", "GO"}) {
        QJsonArray names;
        for (int number = 1; number <= 16; ++number)
            names << QLatin1String(kind) + QString::number(number);
        ports.insert(QLatin1String(kind), names);
    }
    const QJsonArray registers{
        registerEntry("bits", "bool", "w", 4),     registerEntry("flags", "bool", "ro", 2),
        registerEntry("both", "bit", "rw", 1),     registerEntry("words", "int16", "w", 8),
        registerEntry("speed", "float", "wo", {}), registerEntry("temp", "double", "rd", 3),
        registerEntry("count", "uint8", "r", 0),   registerEntry("text", "string", "rw", 1),
        registerEntry("odd", "bool", "none", 1),
    };
    QString error;
    cell = pendant::Cell::open(
        folder.filePath(QStringLiteral("cell")),
        {{pendant::keys::ports, ports}, {pendant::keys::registers, registers}}, {}, &error);
    if (!cell)
        qFatal("%s", qPrintable(error));
}

/// A record in which every signal has a port of its own and is switched on.
inline QJsonObject fullMapping()
{
    QJsonObject record;
    int number = 0;
    for (const pendant::WeldSignal& signal : pendant::weldSignals()) {
        record.insert(signal.typeKey(), 0);
        const QString port = pendant::placeOf(signal, 0) + QString::number(++number % 15 + 1);
        record.insert(signal.portKey(), port);
        record.insert(signal.biasKey(), 0);
        if (signal.switchKey)
            record.insert(QLatin1String(signal.switchKey), true);
    }
    return record;
}

/// Puts a signal elsewhere.
inline void remap(QJsonObject& record, const char* key, int type, const char* port, int bias = 0)
{
    const QString stem = QLatin1String(key);
    record.insert(stem + QStringLiteral("_type"), type);
    record.insert(stem + QStringLiteral("_port"), QLatin1String(port));
    record.insert(stem + QStringLiteral("_bias"), bias);
}
