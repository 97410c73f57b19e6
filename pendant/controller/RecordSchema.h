#pragma once

#include "ResultCode.h"

#include <QJsonValue>

#include <string>
#include <vector>

namespace pendant {

enum class FieldKind {
    Switch, ///< bool
    Number, ///< may have a fraction
    Whole,  ///< number without a fraction
    Text,   ///< may be empty
    List,   ///< array; whoever knows its elements checks them
};

/// One key of a record.
struct Field
{
    std::string key;
    FieldKind kind;
    double least;     ///< of a number; both limits belong to the range
    double most;      ///< of a number
    const char* unit; ///< of a number, for people; may be empty
};

/// Refuses a wrong type and a number out of range, in this order. The reason names the key, the
/// value and what is accepted.
Result checkField(const Field& field, const QJsonValue& value);

/// What a record must look like: exactly these keys, each with its type and range.
class RecordSchema
{
public:
    explicit RecordSchema(std::vector<Field> fields);

    const std::vector<Field>& fields() const { return m_fields; }

    /// Refuses what is no object, an unknown key, a missing key, a wrong type and a number out of
    /// range, in this order. The reason names the key, the value and what is accepted.
    Result check(const QJsonValue& record) const;

private:
    Result checkKeys(const QJsonObject& record) const;
    bool hasKey(const QString& key) const;

    std::vector<Field> m_fields;
};

const RecordSchema& weldSettingSchema();

} // namespace pendant
