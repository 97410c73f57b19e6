#include "Envelope.h"

#include "Controller.h"

#include <vector>

namespace pendant {
namespace {

/// Under which a reply stands that is none for the plugin that asked.
const QLatin1String foreignPlugin("qelOtherProcess");

struct ReturnValue
{
    const char* name;
    QJsonValue value;
};

const std::vector<ReturnValue>& returnValues()
{
    static const std::vector<ReturnValue> values{
        {"null", QJsonValue::Null},
        {"true", true},
        {"false", false},
        {"text-0", QStringLiteral("0")},
        {"text-7", QStringLiteral("7")},
        {"text", QStringLiteral("done")},
        {"fraction", 2.5},
        {"negative", -1},
        {"huge", 1e300},
        {"array", QJsonArray{7}},
        {"object", QJsonObject{{QStringLiteral("code"), 7}}},
    };
    return values;
}

QJsonObject withValues(QJsonObject answer, const QJsonValue& value)
{
    for (auto each = answer.begin(); each != answer.end(); ++each)
        each.value() = value;
    return answer;
}

/// None of them answers a command.
QJsonArray elementOfEachType()
{
    return {QJsonValue::Null, true, 7, QStringLiteral("done"), QJsonArray{}, QJsonObject{}};
}

/// The answer to one command.
QJsonValue faultyAnswer(const QJsonObject& answer, const Faults& faults)
{
    if (faults.missingReturn)
        return QJsonObject();
    if (faults.returnValue != 0)
        return withValues(answer, returnValue(faults.returnValue));
    return faults.wrongTypes ? withWrongTypes(answer) : answer;
}

} // namespace

QJsonArray envelope(const QString& plugin, const QJsonObject& answers, const Faults& faults)
{
    if (faults.emptyReply || faults.lostAfter)
        return {};
    if (faults.elementTypes)
        return elementOfEachType();
    QJsonObject shown = answers;
    for (auto each = shown.begin(); each != shown.end(); ++each)
        each.value() = faultyAnswer(each.value().toObject(), faults);
    return {QJsonObject{{faults.foreignReply ? foreignPlugin : plugin, shown}}};
}

QJsonValue returnValue(int number)
{
    return returnValues().at(static_cast<std::size_t>(number) - 1).value;
}

QStringList returnValueNames()
{
    QStringList names;
    for (const ReturnValue& each : returnValues())
        names << QString::fromLatin1(each.name);
    return names;
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
