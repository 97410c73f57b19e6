#include "WeldIoCheck.h"

#include "IoPoints.h"
#include "RecordSchema.h"
#include "WeldSignals.h"

#include <limits>

namespace pendant {
namespace {

std::vector<Field> fieldsOf(const WeldSignal& signal)
{
    constexpr int most = std::numeric_limits<int>::max();
    std::vector<Field> fields{
        {signal.typeKey().toStdString(), FieldKind::Whole, 0, RegisterType, ""},
        {signal.portKey().toStdString(), FieldKind::Text, 0, 0, ""},
        {signal.biasKey().toStdString(), FieldKind::Whole, 0, most, ""},
    };
    if (signal.switchKey)
        fields.push_back({signal.switchKey, FieldKind::Switch, 0, 0, ""});
    return fields;
}

Result noPort(const WeldSignal& signal, const char* why)
{
    return refused(ResultCode::NoPort,
                   QStringLiteral("\"%1\" is empty, but \"%2\" %3; accepted: a port or a register")
                       .arg(signal.portKey(), QLatin1String(signal.key), QLatin1String(why)));
}

} // namespace

const RecordSchema& weldIoSchema()
{
    static const RecordSchema schema([] {
        std::vector<Field> fields;
        for (const WeldSignal& signal : weldSignals()) {
            for (const Field& field : fieldsOf(signal))
                fields.push_back(field);
        }
        return fields;
    }());
    return schema;
}

Result checkWeldIo(const QJsonValue& record, const IoPoints& points)
{
    Result result = weldIoSchema().check(record);
    for (const WeldSignal& signal : weldSignals()) {
        if (!result.isDone())
            break;
        const Mapping mapping = mappingOf(signal, record.toObject());
        result = points.check(signal, mapping);
        if (result.isDone() && signal.switchKey && mapping.isOn && mapping.port.isEmpty())
            result = noPort(signal, "is switched on");
    }
    return result;
}

Result checkReadyToWeld(const QJsonValue& record, const IoPoints& points)
{
    Result result;
    for (const WeldSignal& signal : weldSignals()) {
        if (signal.switchKey || !result.isDone())
            continue;
        const Mapping mapping = mappingOf(signal, record.toObject());
        result = mapping.port.isEmpty() ? noPort(signal, "must have a port for welding")
                                        : points.check(signal, mapping);
    }
    return result;
}

} // namespace pendant
