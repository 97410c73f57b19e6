#include "IoPoints.h"

#include "Cell.h"
#include "Controller.h"
#include "JsonText.h"
#include "RecordKeys.h"
#include "ResultCode.h"

#include <algorithm>
#include <iterator>

namespace pendant {
namespace {

struct Access
{
    const char* name;
    bool canRead;
    bool canWrite;
};

constexpr Access accesses[] = {
    {"ro", true, false},       {"r", true, false},  {"rd", true, false}, {"read", true, false},
    {"readonly", true, false}, {"wo", false, true}, {"w", false, true},  {"wr", false, true},
    {"write", false, true},    {"wt", false, true}, {"rw", true, true},  {"rdwr", true, true},
};

struct Content
{
    const char* type;
    RegisterContent content;
};

/// All other types but "string" are whole numbers.
constexpr Content contents[] = {
    {"bool", RegisterContent::Bit},    {"bit", RegisterContent::Bit},
    {"float", RegisterContent::Real},  {"double", RegisterContent::Real},
    {"string", RegisterContent::Text},
};

RegisterContent contentOf(const QString& type)
{
    const auto* found =
        std::find_if(std::begin(contents), std::end(contents),
                     [&](const Content& each) { return QLatin1String(each.type) == type; });
    return found != std::end(contents) ? found->content : RegisterContent::Whole;
}

Register registerOf(const QJsonObject& entry)
{
    const QString access = entry.value(QLatin1String("rw")).toString();
    const auto* found =
        std::find_if(std::begin(accesses), std::end(accesses),
                     [&](const Access& each) { return QLatin1String(each.name) == access; });
    const bool isKnown = found != std::end(accesses);
    return {contentOf(entry.value(QLatin1String("type")).toString()), isKnown && found->canRead,
            isKnown && found->canWrite, std::max(1, entry.value(QLatin1String("len")).toInt(1))};
}

bool takes(SignalKind kind, RegisterContent content)
{
    switch (kind) {
    case SignalKind::Digital:
        return content == RegisterContent::Bit;
    case SignalKind::Group:
        return content == RegisterContent::Whole;
    case SignalKind::Analogue:
        return content == RegisterContent::Whole || content == RegisterContent::Real;
    }
    return false;
}

/// For people.
QString wantedRegister(const WeldSignal& signal)
{
    constexpr const char* holding[] = {"numbers", "bits", "whole numbers"};
    return QStringLiteral("a %1 register of %2")
        .arg(QLatin1String(signal.isOutput ? "writable" : "readable"),
             QLatin1String(holding[static_cast<int>(signal.kind)]));
}

Result wrongType(const WeldSignal& signal, int type)
{
    QStringList known;
    for (int each = 0; each <= RegisterType; ++each) {
        const QString place = placeOf(signal, each);
        if (!place.isEmpty())
            known << QStringLiteral("%1 (%2)").arg(each).arg(place);
    }
    return refused(ResultCode::OutOfRange,
                   QStringLiteral("\"%1\": %2 is out of range; accepted: %3")
                       .arg(signal.typeKey())
                       .arg(type)
                       .arg(known.join(QStringLiteral(", "))));
}

Result wrongBias(const WeldSignal& signal, int bias, int length)
{
    return refused(ResultCode::OutOfRange,
                   QStringLiteral("\"%1\": %2 is out of range; accepted: 0 to %3")
                       .arg(signal.biasKey())
                       .arg(bias)
                       .arg(length - 1));
}

Result unfit(ResultCode code, const WeldSignal& signal, const Mapping& mapping,
             const QString& wrong, const QString& wanted)
{
    return refused(code, QStringLiteral("\"%1\": %2 %3; accepted: %4")
                             .arg(signal.portKey(), jsonText(mapping.port), wrong, wanted));
}

} // namespace

IoPoints::IoPoints(const Cell& cell, const Faults& faults)
    : m_ports(cell.record(keys::ports).toObject())
    , m_registers(cell.record(keys::registers).toArray())
    , m_firstPortIsGone(faults.firstPortGone)
{}

QStringList IoPoints::ports(const QString& kind) const
{
    QStringList names;
    const QJsonArray list = m_ports.value(kind).toArray();
    for (const QJsonValue& name : list)
        names.append(name.toString());
    if (m_firstPortIsGone && !names.isEmpty())
        names.removeFirst();
    return names;
}

std::optional<Register> IoPoints::findRegister(const QString& name) const
{
    if (m_registerIndex.isEmpty()) {
        for (int index = 0; index < m_registers.size(); ++index)
            m_registerIndex.insert(m_registers.at(index)[keys::name].toString(), index);
    }
    const auto found = m_registerIndex.constFind(name);
    if (name.isEmpty() || found == m_registerIndex.constEnd())
        return std::nullopt;
    return registerOf(m_registers.at(found.value()).toObject());
}

Result IoPoints::check(const WeldSignal& signal, const Mapping& mapping) const
{
    const QString place = placeOf(signal, mapping.type);
    if (place.isEmpty())
        return wrongType(signal, mapping.type);
    if (place == RegisterPlace && !mapping.port.isEmpty())
        return checkRegister(signal, mapping);
    if (mapping.bias != 0)
        return wrongBias(signal, mapping.bias, 1);
    return mapping.port.isEmpty() ? Result() : checkPort(signal, mapping, place);
}

Result IoPoints::checkPort(const WeldSignal& signal, const Mapping& mapping,
                           const QString& kind) const
{
    if (ports(kind).contains(mapping.port))
        return {};
    return unfit(ResultCode::NoSuchPort, signal, mapping,
                 QStringLiteral("is no port of the kind %1").arg(kind),
                 QStringLiteral("a port of the controller"));
}

Result IoPoints::checkRegister(const WeldSignal& signal, const Mapping& mapping) const
{
    const std::optional<Register> found = findRegister(mapping.port);
    const QString wanted = wantedRegister(signal);
    if (!found)
        return unfit(ResultCode::NoSuchPort, signal, mapping, QStringLiteral("is no register"),
                     wanted);
    if (!(signal.isOutput ? found->canWrite : found->canRead))
        return unfit(
            ResultCode::WrongRegister, signal, mapping,
            QStringLiteral("cannot be %1").arg(QLatin1String(signal.isOutput ? "written" : "read")),
            wanted);
    if (!takes(signal.kind, found->content))
        return unfit(ResultCode::WrongRegister, signal, mapping,
                     QStringLiteral("is a register of another type"), wanted);
    if (mapping.bias < 0 || mapping.bias >= found->length)
        return wrongBias(signal, mapping.bias, found->length);
    return {};
}

namespace {

QJsonObject shownRegister(const QJsonObject& entry, int number, const Faults& faults)
{
    QJsonObject shown = entry;
    const auto rename = [&](QLatin1String from, const char* to) {
        shown.insert(QLatin1String(to), shown.take(from));
    };
    if (faults.registerNumberNames)
        shown.insert(keys::name, number);
    if (faults.registersUndescribed) {
        shown.remove(QLatin1String("type"));
        shown.remove(QLatin1String("rw"));
    } else if (faults.registerOtherKeys) {
        rename(QLatin1String("type"), "data_type");
        rename(QLatin1String("rw"), "access");
    }
    if (faults.registerOtherKeys)
        rename(keys::name, "reg_name");
    return shown;
}

} // namespace

QJsonValue shownRegisters(const QJsonValue& registers, const Faults& faults)
{
    QJsonValue shown = registers;
    if (faults.registerOtherKeys || faults.registersUndescribed || faults.registerNumberNames) {
        QJsonArray list;
        const QJsonArray entries = registers.toArray();
        for (const QJsonValue& each : entries)
            list.append(shownRegister(each.toObject(), list.size() + 1, faults));
        shown = list;
    }
    return faults.registersNoArray ? QJsonObject{{keys::registers, shown}} : shown;
}

} // namespace pendant
