#pragma once

#include "RecordSchema.h"
#include "WeldCurves.h"
#include "WeldParameterCheck.h"

#include <QJsonArray>
#include <QJsonObject>

/// A schedule with the least number and the switch off everywhere.
inline QJsonObject sampleSchedule(const QString& key)
{
    QJsonObject record;
    for (const pendant::Field& field : pendant::scheduleSchema().fields()) {
        const QJsonValue value =
            field.kind == pendant::FieldKind::Switch ? QJsonValue(false) : QJsonValue(field.least);
        record.insert(QString::fromStdString(field.key), value);
    }
    record.insert(QStringLiteral("LsDataID"), key);
    record.insert(QStringLiteral("Tips"), QStringLiteral("sample"));
    return record;
}

/// A matching record all of whose columns take part and rise.
inline QJsonObject sampleMatching(const QString& key)
{
    return {{QStringLiteral("PowerDataID"), key},
            {QStringLiteral("power_enable"), true},
            {QStringLiteral("frequency_enable"), true},
            {QStringLiteral("dutycycle_enable"), true},
            {QStringLiteral("power_data"),
             QJsonArray{QJsonArray{10, 100, 100, 10}, QJsonArray{20, 200, 200, 20},
                        QJsonArray{30, 300, 300, 30}, QJsonArray{40, 400, 400, 40}}}};
}

/// A curve of the nodes given.
inline QJsonObject curveRecord(const pendant::WeldCurve& curve, const QJsonArray& nodes)
{
    return {{QLatin1String(curve.numberKey), nodes.size()}, {QLatin1String(curve.nodesKey), nodes}};
}

/// The payload with one record under its key.
inline QJsonObject listed(const QString& key, const QJsonValue& record)
{
    return {{key, record}};
}

/// One value of each JSON type, and a few more numbers.
inline QVector<QJsonValue> everyJsonType()
{
    return {
        QJsonValue(),      QJsonValue(true),
        QJsonValue(-1),    QJsonValue(1.5),
        QJsonValue(1e300), QJsonValue(QStringLiteral("1")),
        QJsonArray{1, 2},  QJsonObject{{QStringLiteral("a"), 1}},
    };
}
