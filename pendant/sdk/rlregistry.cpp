#include "rlregistry.h"

#include <algorithm>

namespace qelplugin {

namespace {

template<typename Record>
Record& findOrMake(QVector<Record>& records, const QString& key)
{
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const Record& record) { return record.key == key; });
    if (found != records.end())
        return *found;
    records.append(Record());
    records.last().key = key;
    return records.last();
}

} // namespace

// Never destroyed, for the factories may lie in a library that is gone at the exit of the process.
RlRegistry& RlRegistry::instance()
{
    static auto* registry = new RlRegistry;
    return *registry;
}

RlInstruction& RlRegistry::instruction(const QString& key)
{
    return findOrMake(instructions, key);
}

RlGroup& RlRegistry::group(const QString& key)
{
    return findOrMake(groups, key);
}

void RlRegistry::clear()
{
    instructions.clear();
    groups.clear();
}

void RlRegistry::tellObserver(const char* operation, const QStringList& texts) const
{
    if (observer)
        observer(operation, texts);
}

} // namespace qelplugin
