#include "Envelope.h"

#include "Controller.h"

namespace pendant {
namespace {

/// Under which a reply stands that is none for the plugin that asked.
const QLatin1String foreignPlugin("qelOtherProcess");

} // namespace

QJsonArray envelope(const QString& plugin, const QJsonObject& returns, const Faults& faults)
{
    if (faults.emptyReply)
        return {};
    QJsonObject answers;
    for (auto each = returns.begin(); each != returns.end(); ++each) {
        const QJsonValue shown = faults.wrongTypes ? withWrongTypes(each.value()) : each.value();
        answers.insert(each.key(), faults.missingReturn
                                       ? QJsonObject()
                                       : QJsonObject{{QStringLiteral("return"), shown}});
    }
    return {QJsonObject{{faults.foreignReply ? foreignPlugin : plugin, answers}}};
}

QJsonValue withWrongTypes(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Double:
        return QString::number(value.toDouble());
    case QJsonValue::String:
        return value.toString().size();
    case QJsonValue::Bool:
        return value.toBool() ? 1 : 0;
    case QJsonValue::Array: {
        QJsonArray array;
        const QJsonArray elements = value.toArray();
        for (const QJsonValue& each : elements)
            array.append(withWrongTypes(each));
        return array;
    }
    case QJsonValue::Object: {
        QJsonObject object = value.toObject();
        for (auto each = object.begin(); each != object.end(); ++each)
            each.value() = withWrongTypes(each.value());
        return object;
    }
    default:
        return value;
    }
}

} // namespace pendant
