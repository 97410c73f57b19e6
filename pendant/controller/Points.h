#pragma once

#include "Cell.h"

#include <QJsonArray>

namespace pendant {

/// A point that the robot can move to.
struct Point
{
    QString name;
    QString tool;
    QString workObject;
};

/// The list with the point behind the others, at the position where the robot stands.
QJsonArray withPoint(const QJsonArray& points, const Point& point);

/// The names of a list of points.
QStringList pointNames(const QJsonArray& points);

/// The list of names that is kept under the key.
QStringList namesOf(const Cell& cell, const QString& key);

/// Empty when the point may be added to the cell, and otherwise the text for the user.
QString checkPoint(const Cell& cell, const Point& point);

/// Empty when the list under the key has the name, and otherwise the text for the user.
QString checkListed(const Cell& cell, const QString& key, const QString& name);

} // namespace pendant
