#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>

namespace pendant {

struct Faults;

/// The reply to a plugin: its name over the commands with the answer of each, an object, after the
/// faults have had their way with it.
QJsonArray envelope(const QString& plugin, const QJsonObject& answers, const Faults& faults);

/// What Faults::returnValue can put in the place of each value of an answer, and its name.
QJsonValue returnValue(int number);
QStringList returnValueNames();

/// The same value with texts for numbers, and numbers for texts and for true and false, at every
/// depth.
QJsonValue withWrongTypes(const QJsonValue& value);

} // namespace pendant
