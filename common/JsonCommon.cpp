#include "JsonCommon.h"

#include "NaturalSort.h"

#include <qelplugin.h>

#include <QDebug>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QPair>
#include <QSet>

#include <algorithm>

namespace JsonCommon {

namespace {

template<std::size_t Size>
constexpr QLatin1String latin1(const char (&text)[Size])
{
    return QLatin1String(text, static_cast<int>(Size) - 1);
}

// The keys of one fact of a register, the one that counts first.
constexpr QLatin1String TypeKeys[] = {latin1("type"), latin1("reg_type"), latin1("value_type"),
                                      latin1("data_type")};
constexpr QLatin1String AccessKeys[] = {latin1("rw"), latin1("access"), latin1("perm"),
                                        latin1("permission"), latin1("mode")};
constexpr QLatin1String NameKeys[] = {latin1("name"), latin1("reg_name"), latin1("key"),
                                      latin1("id")};

constexpr QLatin1String ReadFilters[] = {latin1("r"), latin1("read"), latin1("rd"), latin1("ro")};
constexpr QLatin1String WriteFilters[] = {latin1("w"), latin1("write"), latin1("wr"), latin1("wo")};
// Read-write access stands with the writable ones only.
constexpr QLatin1String ReadAccesses[] = {latin1("rd"), latin1("read"), latin1("ro"), latin1("r"),
                                          latin1("readonly")};
constexpr QLatin1String WriteAccesses[] = {latin1("wr"), latin1("write"), latin1("w"), latin1("wo"),
                                           latin1("wt"), latin1("rdwr"),  latin1("rw")};

QStringList bitTypes()
{
    return {latin1("bool"), latin1("bit")};
}

QStringList integerTypes()
{
    return {latin1("int8"), latin1("uint8"), latin1("byte"),   latin1("int16"),  latin1("uint16"),
            latin1("word"), latin1("short"), latin1("int32"),  latin1("uint32"), latin1("dword"),
            latin1("int"),  latin1("int64"), latin1("uint64"), latin1("long")};
}

QStringList floatingTypes()
{
    return {latin1("float"), latin1("double")};
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

// The host is asked at each call, but what it has told before is not worked through again: a page
// asks for the same few lists once for each of its boxes. Equal answers also share their memory,
// so that comparing them costs nothing.

/// A list of ports as the host gave it last, and in order.
struct PortMemo
{
    QStringList given;
    QStringList sorted;
};

QStringList ports(const char* kind)
{
    static QHash<QString, PortMemo> memos;
    const QString key = QLatin1String(kind);
    const QStringList given = qelplugin::qelPluginInterface().getIOByType(key);
    PortMemo& memo = memos[key];
    if (memo.given != given)
        memo.sorted = naturallySorted(given);
    memo.given = given; // shared with the host: the next comparison costs nothing
    return memo.sorted;
}

/// Two lists of registers, and both as one in order.
struct NumericMemo
{
    QStringList integers;
    QStringList floats;
    QStringList sorted;
};

QStringList numericRegisters(const QString& rw)
{
    static QHash<QString, NumericMemo> memos;
    const QStringList integers = filterRegisters(integerTypes(), rw);
    const QStringList floats = filterRegisters(floatingTypes(), rw);
    NumericMemo& memo = memos[rw];
    if (memo.integers != integers || memo.floats != floats) {
        QStringList names = integers + floats;
        names.removeDuplicates();
        memo = {integers, floats, naturallySorted(names)};
    }
    return memo.sorted;
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

/// The registers that fit a filter.
struct FilterResult
{
    bool isComplete = false;
    QStringList names; ///< in order, each once
};

FilterResult filtered(const QJsonArray& registers, const QStringList& types, const QString& rw)
{
    RegisterWalk walk(types, rw);
    for (const QJsonValue& each : registers) {
        if (each.isObject())
            walk.visit(each.toObject());
    }
    walk.names.removeDuplicates();
    return {walk.isComplete, naturallySorted(walk.names)};
}

/// What the filters made of the registers that the host gave last.
class FilterMemo
{
public:
    FilterResult result(const QJsonArray& given, const QStringList& types, const QString& rw)
    {
        if (registers != given || results.size() >= MostFilters)
            results.clear();
        registers = given; // shared with the host: the next comparison costs nothing
        const auto filter = qMakePair(types, rw);
        auto found = results.find(filter);
        if (found == results.end())
            found = results.insert(filter, filtered(registers, types, rw));
        return *found;
    }

private:
    static constexpr int MostFilters = 16; // the pages use six

    QJsonArray registers;
    QHash<QPair<QStringList, QString>, FilterResult> results;
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
    static FilterMemo memo;
    const FilterResult result = memo.result(registers.toArray(), types, rw);
    if (!result.isComplete) {
        qWarning("[qellaserweld][JsonCommon] register metadata missing name/type/rw "
                 "(type/reg_type/value_type/data_type + rw/access/perm/permission/mode), cannot "
                 "filter by type and read/write.");
    }
    return result.names;
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
