#include "rlmanager.h"

#include "rlregistry.h"

#include <utility>

namespace qelplugin {

// A handle: the registry outlives it.
struct RLManager::State
{
    RlRegistry& registry = RlRegistry::instance();
};

RLManager::RLManager(QObject* parent)
    : QObject(parent)
    , state(new State)
{}

RLManager::~RLManager()
{
    delete state;
}

void RLManager::createTypeKey(const QString& key)
{
    state->registry.tellObserver("createTypeKey", {key});
    state->registry.instruction(key);
}

void RLManager::createSkeleton(const QString& key, const QString& skeleton)
{
    state->registry.tellObserver("createSkeleton", {key, skeleton});
    state->registry.instruction(key).skeleton = skeleton;
}

void RLManager::createInsDescribe(const QString& key, const QString& description)
{
    state->registry.tellObserver("createInsDescribe", {key, description});
    state->registry.instruction(key).description = description;
}

void RLManager::createPattern(const QString& key, const QString& pattern)
{
    state->registry.tellObserver("createPattern", {key, pattern});
    state->registry.instruction(key).pattern = pattern;
}

void RLManager::createInsDefault(const QString& key, const QString& text)
{
    state->registry.tellObserver("createInsDefault", {key, text});
    state->registry.instruction(key).defaultText = text;
}

void RLManager::createInsertWidget(const QString& key, Factory factory)
{
    state->registry.tellObserver("createInsertWidget", {key});
    state->registry.instruction(key).insertEditor = std::move(factory);
}

void RLManager::createPropertyWidget(const QString& key, Factory factory)
{
    state->registry.tellObserver("createPropertyWidget", {key});
    state->registry.instruction(key).propertyEditor = std::move(factory);
}

void RLManager::createTypeToGroup(const QString& group, const QString& key)
{
    state->registry.tellObserver("createTypeToGroup", {group, key});
    state->registry.instruction(key).group = group;
}

void RLManager::createGroups(const QString& title, const QString& group)
{
    state->registry.tellObserver("createGroups", {title, group});
    state->registry.group(group).title = title;
}

void RLManager::createData(const QString& group, const RlCustomCommandSpec& command, Factory insert,
                           Factory property)
{
    state->registry.tellObserver("createData", {group, command.name});
    RlInstruction& instruction = state->registry.instruction(command.name);
    instruction.group = group;
    instruction.skeleton = command.skeleton;
    instruction.description = command.description;
    instruction.insertEditor = std::move(insert);
    instruction.propertyEditor = std::move(property);
    instruction.command = command;
}

} // namespace qelplugin
