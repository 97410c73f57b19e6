#include "JsonCommon.h"

#include "NaturalSort.h"

#include <qelplugin.h>

#include <QDebug>
#include <QJsonArray>
#include <QJsonObject>
#include <QSet>

#include <algorithm>

namespace JsonCommon {

namespace {

// The keys of one fact of a register, the one that counts first.
constexpr QLatin1String TypeKeys[] = {QLatin1String("type"), QLatin1String("reg_type"),
                                      QLatin1String("value_type"), QLatin1String("data_type")};
constexpr QLatin1String AccessKeys[] = {QLatin1String("rw"), QLatin1String("access"),
                                        QLatin1String("perm"), QLatin1String("permission"),
                                        QLatin1String("mode")};
constexpr QLatin1String NameKeys[] = {QLatin1String("name"), QLatin1String("reg_name"),
                                      QLatin1String("key"), QLatin1String("id")};

constexpr QLatin1String ReadFilters[] = {QLatin1String("r"), QLatin1String("read"),
                                         QLatin1String("rd"), QLatin1String("ro")};
constexpr QLatin1String WriteFilters[] = {QLatin1String("w"), QLatin1String("write"),
                                          QLatin1String("wr"), QLatin1String("wo")};
// Read-write access stands with the writable ones only.
constexpr QLatin1String ReadAccesses[] = {QLatin1String("rd"), QLatin1String("read"),
                                          QLatin1String("ro"), QLatin1String("r"),
                                          QLatin1String("readonly")};
constexpr QLatin1String WriteAccesses[] = {
    QLatin1String("wr"), QLatin1String("write"), QLatin1String("w"), QLatin1String("wo"),
    QLatin1String("wt"), QLatin1String("rdwr"),  QLatin1String("rw")};

QStringList bitTypes()
{
    return {QLatin1String("bool"), QLatin1String("bit")};
}

QStringList integerTypes()
{
    return {QLatin1String("int8"),   QLatin1String("uint8"),  QLatin1String("byte"),
            QLatin1String("int16"),  QLatin1String("uint16"), QLatin1String("word"),
            QLatin1String("short"),  QLatin1String("int32"),  QLatin1String("uint32"),
            QLatin1String("dword"),  QLatin1String("int"),    QLatin1String("int64"),
            QLatin1String("uint64"), QLatin1String("long")};
}

QStringList floatingTypes()
{
    return {QLatin1String("float"), QLatin1String("double")};
}

QString readFilter()
{
    return ReadFilters[0];
}

QString writeFilter()
{
    return WriteFilters[0];
}

QString normalised(const QString& text)
{
    return text.trimmed().toLower();
}

template<std::size_t Size>
bool isOneOf(const QString& text, const QLatin1String (&texts)[Size])
{
    return std::find(std::begin(texts), std::end(texts), text) != std::end(texts);
}

enum class Direction { Any, Read, Write };

Direction directionOf(const QString& rw)
{
    const QString filter = normalised(rw);
    if (isOneOf(filter, ReadFilters))
        return Direction::Read;
    return isOneOf(filter, WriteFilters) ? Direction::Write : Direction::Any;
}

bool accessFits(const QString& access, Direction direction)
{
    switch (direction) {
    case Direction::Read:
        return isOneOf(normalised(access), ReadAccesses);
    case Direction::Write:
        return isOneOf(normalised(access), WriteAccesses);
    case Direction::Any:
        break;
    }
    return true;
}

// The first value that is a text and not blank.
template<std::size_t Size>
QString fact(const QJsonObject& record, const QLatin1String (&keys)[Size])
{
    for (const QLatin1String key : keys) {
        const auto found = record.constFind(key);
        if (found == record.constEnd())
            continue;
        QString text = found.value().toString().trimmed();
        if (!text.isEmpty())
            return text;
    }
    return {};
}

QStringList ports(const char* kind)
{
    return naturallySorted(qelplugin::qelPluginInterface().getIOByType(QLatin1String(kind)));
}

QStringList numericRegisters(const QString& rw)
{
    QStringList names = filterRegisters(integerTypes(), rw) + filterRegisters(floatingTypes(), rw);
    names.removeDuplicates();
    return naturallySorted(names);
}

// One walk over the registers. A fact is read only where it can still matter: the access and the
// name of a register of another type do so only until one register with all of them is found.
class RegisterWalk
{
public:
    RegisterWalk(const QStringList& types, const QString& rw)
        : direction(directionOf(rw))
    {
        for (const QString& type : types)
            accepted.insert(normalised(type));
    }

    void visit(const QJsonObject& record)
    {
        const QString type = fact(record, TypeKeys);
        const bool hasType = accepted.contains(type.toLower());
        if (!hasType && isComplete)
            return;
        const QString access = fact(record, AccessKeys);
        const bool fits = hasType && accessFits(access, direction);
        if (!fits && isComplete)
            return;
        const QString name = fact(record, NameKeys);
        isComplete = isComplete || !(type.isEmpty() || access.isEmpty() || name.isEmpty());
        if (fits && !name.isEmpty())
            names.append(name);
    }

    QSet<QString> accepted;
    Direction direction;
    bool isComplete = false; ///< a register with a type, an access and a name was met
    QStringList names;
};

} // namespace

QStringList aiList()
{
    return ports("AI");
}

QStringList aoList()
{
    return ports("AO");
}

QStringList diList()
{
    return ports("DI");
}

QStringList doList()
{
    return ports("DO");
}

QStringList giList()
{
    return ports("GI");
}

QStringList goList()
{
    return ports("GO");
}

QStringList readableBitRegisters()
{
    return filterRegisters(bitTypes(), readFilter());
}

QStringList writableBitRegisters()
{
    return filterRegisters(bitTypes(), writeFilter());
}

QStringList readableIntRegisters()
{
    return filterRegisters(integerTypes(), readFilter());
}

QStringList writableIntRegisters()
{
    return filterRegisters(integerTypes(), writeFilter());
}

QStringList readableNumericRegisters()
{
    return numericRegisters(readFilter());
}

QStringList writableNumericRegisters()
{
    return numericRegisters(writeFilter());
}

QStringList filterRegisters(const QStringList& types, const QString& rw)
{
    if (types.isEmpty())
        return {};
    const QJsonValue registers = qelplugin::qelPluginInterface().getRegisterValue();
    if (!registers.isArray()) {
        qWarning("[qellaserweld][JsonCommon] getRegisterValue is not an array, cannot filter "
                 "registers by type.");
        return {};
    }
    RegisterWalk walk(types, rw);
    const QJsonArray records = registers.toArray();
    for (const QJsonValue record : records) {
        if (record.isObject())
            walk.visit(record.toObject());
    }
    if (!walk.isComplete) {
        qWarning("[qellaserweld][JsonCommon] register metadata missing name/type/rw "
                 "(type/reg_type/value_type/data_type + rw/access/perm/permission/mode), cannot "
                 "filter by type and read/write.");
    }
    walk.names.removeDuplicates();
    return naturallySorted(walk.names);
}

bool matchesAccess(const QString& access, const QString& rw)
{
    return accessFits(access, directionOf(rw));
}

bool naturalLess(const QString& a, const QString& b)
{
    return naturallyLess(a, b);
}

} // namespace JsonCommon
