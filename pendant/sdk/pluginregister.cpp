#include "hostbackend.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace qelplugin {

namespace {

struct Entry
{
    QString name;
    std::function<PluginBase*(QObject*)> factory;
};

// Never destroyed: a library that is still loaded at the exit of the process may take its factory
// with it before this list would go.
std::vector<Entry>& entries()
{
    static auto* list = new std::vector<Entry>;
    return *list;
}

auto find(const QString& name)
{
    auto& list = entries();
    return std::find_if(list.begin(), list.end(),
                        [&](const Entry& entry) { return entry.name == name; });
}

} // namespace

// The entries belong to the process, not to the object.
struct PluginRegister::State
{
    std::vector<Entry>& kept = entries();
};

PluginRegister::PluginRegister()
    : state(new State)
{}

PluginRegister::~PluginRegister()
{
    delete state;
}

void PluginRegister::regist(const QString& name, std::function<PluginBase*(QObject*)> factory)
{
    // The name is copied: it may lie in the library that registers itself and outlive that.
    const QString ownName(name.constData(), name.size());
    const auto found = find(name);
    if (found == state->kept.end())
        state->kept.push_back({ownName, std::move(factory)});
    else
        found->factory = std::move(factory);
}

QStringList registeredPlugins()
{
    QStringList names;
    for (const Entry& entry : entries())
        names << entry.name;
    return names;
}

PluginBase* createPlugin(const QString& name, QObject* parent)
{
    const auto factory = pluginFactory(name);
    return factory ? factory(parent) : nullptr;
}

std::function<PluginBase*(QObject*)> pluginFactory(const QString& name)
{
    const auto found = find(name);
    return found == entries().end() ? nullptr : found->factory;
}

bool forgetPlugin(const QString& name)
{
    const auto found = find(name);
    if (found == entries().end())
        return false;
    entries().erase(found);
    return true;
}

} // namespace qelplugin

qelplugin::PluginRegister& qelPluginFactory()
{
    static qelplugin::PluginRegister registry;
    return registry;
}
