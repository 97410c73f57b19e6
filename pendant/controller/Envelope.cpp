#include "Envelope.h"

#include "Controller.h"

namespace pendant {
namespace {

/// Under which a reply stands that is none for the plugin that asked.
const QLatin1String foreignPlugin("qelOtherProcess");

} // namespace

QJsonArray envelope(const QString& plugin, const QJsonObject& answers, const Faults& faults)
{
    if (faults.emptyReply)
        return {};
    QJsonObject shown = faults.wrongTypes ? withWrongTypes(answers).toObject() : answers;
    for (auto each = shown.begin(); faults.missingReturn && each != shown.end(); ++each)
        each.value() = QJsonObject();
    return {QJsonObject{{faults.foreignReply ? foreignPlugin : plugin, shown}}};
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
