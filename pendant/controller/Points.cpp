#include "Points.h"

#include "JsonText.h"
#include "Names.h"
#include "RecordKeys.h"

#include <QJsonObject>

namespace pendant {
namespace {

/// Where the robot stands: it goes on along a seam from point to point. Millimetres in the work
/// object, and degrees about its axes.
QJsonObject presentPosition(int points)
{
    constexpr int perRow = 10;
    const int row = points / perRow;
    const int column = points % perRow;
    return {
        {QStringLiteral("x"), 450.0 + 25.5 * column},
        {QStringLiteral("y"), -120.0 + 40.0 * row},
        {QStringLiteral("z"), 310.25},
        {QStringLiteral("a"), 180.0},
        {QStringLiteral("b"), 0.5 * column},
        {QStringLiteral("c"), -90.0 + 5.0 * (row % 36)},
    };
}

} // namespace

QJsonArray withPoint(const QJsonArray& points, const Point& point)
{
    QJsonArray list = points;
    list.append(QJsonObject{{keys::name, point.name},
                            {keys::tool, point.tool},
                            {keys::workObject, point.workObject},
                            {keys::position, presentPosition(points.size())}});
    return list;
}

QStringList pointNames(const QJsonArray& points)
{
    QStringList names;
    for (const QJsonValue& point : points)
        names.append(point.toObject().value(keys::name).toString());
    return names;
}

QStringList namesOf(const Cell& cell, const QString& key)
{
    QStringList names;
    const QJsonArray list = cell.record(key).toArray();
    for (const QJsonValue& name : list)
        names.append(name.toString());
    return names;
}

QString checkListed(const Cell& cell, const QString& key, const QString& name)
{
    if (namesOf(cell, key).contains(name))
        return {};
    return QStringLiteral("The list \"%1\" has no %2. Choose a name of the list.")
        .arg(key, jsonText(name));
}

QString checkPoint(const Cell& cell, const Point& point)
{
    const QString reasons[] = {names::checkPoint(point.name),
                               checkListed(cell, keys::tools, point.tool),
                               checkListed(cell, keys::workObjects, point.workObject)};
    for (const QString& reason : reasons) {
        if (!reason.isEmpty())
            return reason;
    }
    if (pointNames(cell.record(keys::points).toArray()).contains(point.name))
        return QStringLiteral("There is a point %1 already. Choose another name.")
            .arg(jsonText(point.name));
    return {};
}

} // namespace pendant
