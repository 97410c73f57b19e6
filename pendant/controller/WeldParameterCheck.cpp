#include "WeldParameterCheck.h"

#include "JsonText.h"
#include "RecordSchema.h"

#include <QJsonArray>

namespace pendant {
namespace {

const QLatin1String scheduleStem("LsData");
const QLatin1String matchingStem("PowerData");
const QLatin1String powerData("power_data");

/// A list of numbered records.
struct RecordList
{
    QLatin1String stem;
    int count;
    const char* idKey; ///< of the record, for its own key
    const RecordSchema& schema;
};

/// One of the numbers of a row of a matching record.
struct Column
{
    const char* switchKey; ///< whether it takes part; null: always
    double least;
    double most;
    const char* unit;
};

constexpr int rowCount = 4;

constexpr Column columns[] = {
    {nullptr, 0, 1000, "mm/s"},
    {"power_enable", 0, 10000, "W"},
    {"frequency_enable", 10, 10000, "Hz"},
    {"dutycycle_enable", 0, 100, "%"},
};
constexpr int columnCount = static_cast<int>(std::size(columns));

QString keyOf(QLatin1String stem, int number)
{
    return stem + QString::number(number);
}

bool isKeyOf(const RecordList& list, const QString& key)
{
    const int number = key.midRef(list.stem.size()).toInt();
    return number >= 1 && number <= list.count && key == keyOf(list.stem, number);
}

QString keysOf(const RecordList& list)
{
    return QStringLiteral("one of \"%1\" to \"%2\"")
        .arg(keyOf(list.stem, 1), keyOf(list.stem, list.count));
}

Result checkEnvelope(const RecordList& list, const QJsonValue& payload)
{
    const QJsonObject records = payload.toObject();
    if (!payload.isObject())
        return refused(ResultCode::WrongType,
                       QStringLiteral("%1 is no object").arg(jsonText(payload)));
    if (records.size() != 1)
        return refused(
            ResultCode::WrongCount,
            QStringLiteral("%1 records; accepted: %2").arg(records.size()).arg(keysOf(list)));
    const QString key = records.begin().key();
    if (!isKeyOf(list, key))
        return refused(
            ResultCode::UnknownKey,
            QStringLiteral("\"%1\" is no record; accepted: %2").arg(shortText(key), keysOf(list)));
    return {};
}

Result checkId(const RecordList& list, const QString& key, const QJsonObject& record)
{
    const QString idKey = QLatin1String(list.idKey);
    const QJsonValue id = record.value(idKey);
    if (id == key)
        return {};
    return refused(ResultCode::OutOfRange,
                   QStringLiteral("\"%1\": %2 is not the record's own key; accepted: \"%3\"")
                       .arg(idKey, jsonText(id), key));
}

/// With the record's key before the reason.
Result of(const QString& key, const Result& result)
{
    if (result.isDone())
        return result;
    return {result.code, QStringLiteral("\"%1\", %2").arg(key, result.reason)};
}

template<typename CheckMore>
Result checkListed(const RecordList& list, const QJsonValue& payload, const CheckMore& checkMore)
{
    const Result envelope = checkEnvelope(list, payload);
    if (!envelope.isDone())
        return envelope;
    const QJsonObject records = payload.toObject();
    const auto listed = records.constBegin();
    const QString key = listed.key();
    Result result = list.schema.check(listed.value());
    if (result.isDone())
        result = checkId(list, key, listed.value().toObject());
    if (result.isDone())
        result = checkMore(listed.value().toObject());
    return of(key, result);
}

Result checkLength(const QString& what, const QJsonArray& list, int length)
{
    if (list.size() == length)
        return {};
    return refused(ResultCode::WrongCount, QStringLiteral("\"%1\" has %2 elements; accepted: %3")
                                               .arg(what)
                                               .arg(list.size())
                                               .arg(length));
}

Result checkRow(const QString& what, const QJsonValue& row)
{
    Result result = checkField({what.toStdString(), FieldKind::List, 0, 0, ""}, row);
    const QJsonArray numbers = row.toArray();
    if (result.isDone())
        result = checkLength(what, numbers, columnCount);
    for (int index = 0; result.isDone() && index < columnCount; ++index) {
        const Column& column = columns[index];
        const QString cell = QStringLiteral("%1[%2]").arg(what).arg(index);
        result = checkField(
            {cell.toStdString(), FieldKind::Whole, column.least, column.most, column.unit},
            numbers.at(index));
    }
    return result;
}

Result checkRising(const Column& column, int index, const QJsonArray& rows)
{
    for (int row = 1; row < rows.size(); ++row) {
        const double before = rows.at(row - 1).toArray().at(index).toDouble();
        const double number = rows.at(row).toArray().at(index).toDouble();
        if (number <= before)
            return refused(ResultCode::NotRising,
                           QStringLiteral("\"%1[%2][%3]\": %4 does not rise; accepted: more than "
                                          "%5 %6")
                               .arg(powerData)
                               .arg(row)
                               .arg(index)
                               .arg(number)
                               .arg(before)
                               .arg(QLatin1String(column.unit)));
    }
    return {};
}

Result checkTable(const QJsonObject& record)
{
    const QJsonArray rows = record.value(powerData).toArray();
    Result result = checkLength(powerData, rows, rowCount);
    for (int row = 0; result.isDone() && row < rowCount; ++row)
        result = checkRow(QStringLiteral("%1[%2]").arg(powerData).arg(row), rows.at(row));
    for (int index = 0; result.isDone() && index < columnCount; ++index) {
        const Column& column = columns[index];
        if (!column.switchKey || record.value(QLatin1String(column.switchKey)).toBool())
            result = checkRising(column, index, rows);
    }
    return result;
}

const RecordSchema& matchingSchema()
{
    using Kind = FieldKind;
    static const RecordSchema schema({
        {"PowerDataID", Kind::Text, 0, 0, ""},
        {"power_enable", Kind::Switch, 0, 0, ""},
        {"frequency_enable", Kind::Switch, 0, 0, ""},
        {"dutycycle_enable", Kind::Switch, 0, 0, ""},
        {"power_data", Kind::List, 0, 0, ""},
    });
    return schema;
}

} // namespace

QString scheduleKey(int number)
{
    return keyOf(scheduleStem, number);
}

QString matchingKey(int number)
{
    return keyOf(matchingStem, number);
}

const RecordSchema& scheduleSchema()
{
    using Kind = FieldKind;
    constexpr double byTime = 2; // the one ramp mode that the process knows
    static const RecordSchema schema({
        {"LsDataID", Kind::Text, 0, 0, ""},
        {"Tips", Kind::Text, 0, 0, ""},
        {"laser_power_start", Kind::Whole, 0, 9999, "W"},
        {"frequency_start", Kind::Whole, 1, 9999, "Hz"},
        {"duty_cycle_start", Kind::Whole, 1, 100, "%"},
        {"ramp_mode_start", Kind::Whole, byTime, byTime, ""},
        {"ramp_value_start", Kind::Whole, 0, 1000, "ms"},
        {"delay_time_start", Kind::Whole, 0, 2000, "ms"},
        {"welding_speed", Kind::Whole, 1, 200, "mm/s"},
        {"laser_power_weld", Kind::Whole, 0, 9999, "W"},
        {"frequency_weld", Kind::Whole, 1, 9999, "Hz"},
        {"duty_cycle_weld", Kind::Whole, 1, 100, "%"},
        {"laser_power_end", Kind::Whole, 0, 9999, "W"},
        {"frequency_end", Kind::Whole, 1, 9999, "Hz"},
        {"duty_cycle_end", Kind::Whole, 1, 100, "%"},
        {"ramp_mode_end", Kind::Whole, byTime, byTime, ""},
        {"ramp_value_end", Kind::Whole, 0, 1000, "ms"},
        {"delay_time_end", Kind::Whole, 0, 2000, "ms"},
        {"laser_off_mode", Kind::Whole, 0, 1, ""},
        {"wire_feed_enable_start", Kind::Switch, 0, 0, ""},
        {"feeding_speed_start", Kind::Whole, 0, 500, "mm/s"},
        {"wire_mode_start", Kind::Whole, 0, 1, ""},
        {"wire_feed_time_start", Kind::Whole, 0, 1000, "ms"},
        {"feeding_speed_run", Kind::Whole, 0, 500, "mm/s"},
        {"wire_feed_enable_end", Kind::Switch, 0, 0, ""},
        {"wire_speed_end", Kind::Whole, 0, 500, "mm/s"},
        {"wire_mode_end", Kind::Whole, 0, 1, ""},
        {"wire_feed_time_end", Kind::Whole, 0, 1000, "ms"},
        {"wire_stick_enable_end", Kind::Switch, 0, 0, ""},
        {"wire_retraction_end", Kind::Switch, 0, 0, ""},
        {"wire_retract_end", Kind::Whole, 0, 200, "mm/s"},
        {"wire_retract_time_end", Kind::Whole, 0, 1000, "ms"},
        {"wire_fill_com_end", Kind::Switch, 0, 0, ""},
        {"fill_delay_time_end", Kind::Whole, 0, 1000, "ms"},
        {"fill_wire_speed_end", Kind::Whole, 0, 200, "mm/s"},
        {"fill_wire_time_end", Kind::Whole, 0, 1000, "ms"},
        {"work_mode", Kind::Whole, 0, 1, ""},
        {"swing_job", Kind::Whole, 0, 99, ""},
        {"process_job", Kind::Whole, 0, 99, ""},
    });
    return schema;
}

Result checkSchedule(const QJsonValue& payload)
{
    const RecordList list{scheduleStem, scheduleCount, "LsDataID", scheduleSchema()};
    return checkListed(list, payload, [](const QJsonObject&) { return Result(); });
}

Result checkMatching(const QJsonValue& payload)
{
    const RecordList list{matchingStem, matchingCount, "PowerDataID", matchingSchema()};
    return checkListed(list, payload, checkTable);
}

} // namespace pendant
