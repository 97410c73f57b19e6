#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>

class QObject;

/// The controller's command channel: sending a command and reading its reply.
///
/// A reply is an array of objects, { plugin name: { command: { "return": result } } }. Its readers
/// differ on purpose in what they take as success; all of them are here.
namespace CommandReply {

/// Sends { command: payload } under the plugin's name and returns the reply. Blocks until it is in.
QJsonArray send(QObject* sender, const QString& command, const QJsonValue& payload);
/// Likewise with the whole command, which may hold nothing.
QJsonArray sendBody(QObject* sender, const QJsonObject& body);
/// Likewise, but the command and its value go as two texts.
QJsonArray sendText(QObject* sender, const QString& command, const QString& value);

/// Result of the first element that holds the command and "return", by toInt(): anything but an
/// integral number reads as 0. Nothing when no element holds them.
std::optional<int> strictResult(const QJsonArray& reply, const QString& command);

/// Likewise, but a string is read in base 10, a bool as 0 or 1 and a fraction is truncated.
std::optional<int> tolerantResult(const QJsonArray& reply, const QString& command);

/// Reads the first element only, with the conversions of tolerantResult(); 0 when anything of the
/// envelope is missing.
int firstElementResult(const QJsonArray& reply, const QString& command);

/// Reads the first element only; true only when "return" is there and is the bool true.
bool firstElementAccepted(const QJsonArray& reply, const QString& command);

/// The texts with which a reply is reported.
struct SaveTexts
{
    QString saved;   ///< to the operator, on 0
    QString failed;  ///< to the operator, on anything else
    QString failLog; ///< start of the log line on anything else
    QString noneLog; ///< start of the log line when no element answers the command
};

/// Reads the reply with strictResult() and reports the outcome. When no element answers the
/// command the operator is told nothing. True when the command was answered.
bool reportStrict(const QJsonArray& reply, const QString& command, const SaveTexts& texts);

} // namespace CommandReply
