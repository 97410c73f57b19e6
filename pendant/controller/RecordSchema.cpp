#include "RecordSchema.h"

#include "JsonText.h"

#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace pendant {
namespace {

QString keyOf(const Field& field)
{
    return QString::fromStdString(field.key);
}

QString accepted(const Field& field)
{
    if (field.kind == FieldKind::Switch)
        return QStringLiteral("true or false");
    if (field.kind == FieldKind::Text)
        return QStringLiteral("a text");
    if (field.kind == FieldKind::List)
        return QStringLiteral("a list");
    if (field.least == field.most)
        return QStringLiteral("the number %1").arg(field.least);
    const QString numbers =
        field.kind == FieldKind::Whole ? QStringLiteral("whole number") : QStringLiteral("number");
    return QStringLiteral("%1 from %2 to %3 %4")
        .arg(numbers)
        .arg(field.least)
        .arg(field.most, 0, 'g', 8)
        .arg(QLatin1String(field.unit))
        .trimmed();
}

bool hasType(const Field& field, const QJsonValue& value)
{
    if (field.kind == FieldKind::Switch)
        return value.isBool();
    if (field.kind == FieldKind::Text)
        return value.isString();
    if (field.kind == FieldKind::List)
        return value.isArray();
    const double number = value.toDouble();
    return value.isDouble() && (field.kind == FieldKind::Number || std::trunc(number) == number);
}

bool isInRange(const Field& field, const QJsonValue& value)
{
    const bool isNumber = field.kind == FieldKind::Number || field.kind == FieldKind::Whole;
    const double number = value.toDouble();
    return !isNumber || (number >= field.least && number <= field.most);
}

} // namespace

Result checkField(const Field& field, const QJsonValue& value)
{
    const auto refuse = [&](ResultCode code, const QString& wrong) {
        return refused(code, QStringLiteral("\"%1\": %2 %3; accepted: %4")
                                 .arg(keyOf(field), jsonText(value), wrong, accepted(field)));
    };
    if (!hasType(field, value))
        return refuse(ResultCode::WrongType, QStringLiteral("has the wrong type"));
    if (!isInRange(field, value))
        return refuse(ResultCode::OutOfRange, QStringLiteral("is out of range"));
    return {};
}

RecordSchema::RecordSchema(std::vector<Field> fields)
    : m_fields(std::move(fields))
{}

Result RecordSchema::check(const QJsonValue& record) const
{
    if (!record.isObject())
        return refused(ResultCode::WrongType,
                       QStringLiteral("%1 is no object").arg(jsonText(record)));
    const QJsonObject object = record.toObject();
    Result result = checkKeys(object);
    for (auto field = m_fields.cbegin(); result.isDone() && field != m_fields.cend(); ++field)
        result = checkField(*field, object.value(keyOf(*field)));
    return result;
}

Result RecordSchema::checkKeys(const QJsonObject& record) const
{
    for (auto each = record.begin(); each != record.end(); ++each) {
        if (!hasKey(each.key()))
            return refused(
                ResultCode::UnknownKey,
                QStringLiteral("\"%1\": %2 stands under a key that the record does not have")
                    .arg(shortText(each.key()), jsonText(each.value())));
    }
    for (const Field& field : m_fields) {
        if (!record.contains(keyOf(field)))
            return refused(ResultCode::MissingKey, QStringLiteral("\"%1\" is missing; accepted: %2")
                                                       .arg(keyOf(field), accepted(field)));
    }
    return {};
}

bool RecordSchema::hasKey(const QString& key) const
{
    return std::any_of(m_fields.begin(), m_fields.end(),
                       [&](const Field& field) { return keyOf(field) == key; });
}

const RecordSchema& weldSettingSchema()
{
    using Kind = FieldKind;
    // A number that the page reads with its fraction cut off may have one; the others may not.
    static const RecordSchema schema({
        {"laser_main_enable", Kind::Switch, 0, 0, ""},
        {"laser_comm_type", Kind::Whole, 0, 1, ""},
        {"laser_power", Kind::Number, 0, 9999, "W"},
        {"feedback_delay", Kind::Number, 0, 2000, "ms"},
        {"pre_gas_time", Kind::Whole, 0, 2000, "ms"},
        {"delay_off_time", Kind::Whole, 0, 2000, "ms"},
        {"detection_delay", Kind::Whole, 0, 2000, "ms"},
        {"manual_gas_time", Kind::Whole, 1000, 10000, "ms"},
        {"retraction_distance", Kind::Number, 0, 50, "mm"},
        {"retraction_speed", Kind::Number, 0, 100, "mm/s"},
        {"detection_time", Kind::Whole, 100, 1000, "ms"},
        {"feeder_enable", Kind::Switch, 0, 0, ""},
        {"wire_feeder_comm_type", Kind::Whole, 0, 2, ""},
        {"max_feed_speed", Kind::Number, 0, 1000, "mm/s"},
        {"manual_feed_speed", Kind::Number, 0, 500, "mm/s"},
        {"manual_retract_speed", Kind::Number, 0, 500, "mm/s"},
        {"wire_feedback_detection", Kind::Whole, 0, 2000, "ms"},
        {"laser_check_out_time", Kind::Whole, 0, 500, "ms"},
    });
    return schema;
}

} // namespace pendant
