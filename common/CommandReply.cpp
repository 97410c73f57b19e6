#include "CommandReply.h"

#include "Host.h"
#include "Log.h"
#include "Numbers.h"

namespace CommandReply {

namespace {

QLatin1String resultKey()
{
    return QLatin1String("return");
}

// The value under "return", or nothing when the element does not answer the command.
std::optional<QJsonValue> answer(const QJsonValue& element, const QString& command)
{
    const QJsonObject commands = element.toObject().value(Host::pluginName()).toObject();
    const auto found = commands.constFind(command);
    if (found == commands.constEnd())
        return {};
    const QJsonObject result = found->toObject();
    const auto value = result.constFind(resultKey());
    if (value == result.constEnd())
        return {};
    return *value;
}

std::optional<QJsonValue> firstAnswer(const QJsonArray& reply, const QString& command)
{
    for (const QJsonValue& element : reply) {
        if (auto value = answer(element, command))
            return value;
    }
    return {};
}

int tolerantInt(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::String:
        return value.toString().toInt();
    case QJsonValue::Bool:
        return value.toBool() ? 1 : 0;
    case QJsonValue::Double:
        return truncatedToInt(value.toDouble());
    default:
        return 0;
    }
}

} // namespace

QJsonArray send(QObject* sender, const QString& command, const QJsonValue& payload)
{
    return sendBody(sender, {{command, payload}});
}

QJsonArray sendBody(QObject* sender, const QJsonObject& body)
{
    return qelplugin::qelPluginInterface().commandCustomData(sender, Host::pluginName(), body);
}

QJsonArray sendText(QObject* sender, const QString& command, const QString& value)
{
    return qelplugin::qelPluginInterface().commandCustomData(sender, Host::pluginName(), command,
                                                             value);
}

std::optional<int> strictResult(const QJsonArray& reply, const QString& command)
{
    const auto value = firstAnswer(reply, command);
    return value ? std::optional<int>(value->toInt()) : std::nullopt;
}

std::optional<int> tolerantResult(const QJsonArray& reply, const QString& command)
{
    const auto value = firstAnswer(reply, command);
    return value ? std::optional<int>(tolerantInt(*value)) : std::nullopt;
}

int firstElementResult(const QJsonArray& reply, const QString& command)
{
    const auto value = answer(reply.first(), command);
    return value ? tolerantInt(*value) : 0;
}

bool firstElementAccepted(const QJsonArray& reply, const QString& command)
{
    const auto value = answer(reply.first(), command);
    return value && value->isBool() && value->toBool();
}

bool reportStrict(const QJsonArray& reply, const QString& command, const SaveTexts& texts)
{
    const std::optional<int> result = strictResult(reply, command);
    if (!result) {
        LOGE(LogTag::Plugin) << texts.noneLog << command << " Result";
        return false;
    }
    if (*result == 0) {
        Host::tellSuccess(texts.saved);
    } else {
        Host::tellError(texts.failed);
        LOGE(LogTag::Plugin) << texts.failLog << command << " Result:" << *result;
    }
    return true;
}

} // namespace CommandReply
