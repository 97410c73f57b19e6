#include "rlmanager.h"

#include "rlregistry.h"

#include <utility>

namespace qelplugin {

// A handle without anything of its own: the registry outlives it.
struct RLManager::State
{};

RLManager::RLManager(QObject* parent)
    : QObject(parent)
    , state(nullptr)
{}

RLManager::~RLManager() = default;

void RLManager::createTypeKey(const QString& key)
{
    RlRegistry::instance().instruction(key);
}

void RLManager::createSkeleton(const QString& key, const QString& skeleton)
{
    RlRegistry::instance().instruction(key).skeleton = skeleton;
}

void RLManager::createInsDescribe(const QString& key, const QString& description)
{
    RlRegistry::instance().instruction(key).description = description;
}

void RLManager::createPattern(const QString& key, const QString& pattern)
{
    RlRegistry::instance().instruction(key).pattern = pattern;
}

void RLManager::createInsDefault(const QString& key, const QString& text)
{
    RlRegistry::instance().instruction(key).defaultText = text;
}

void RLManager::createInsertWidget(const QString& key, Factory factory)
{
    RlRegistry::instance().instruction(key).insertEditor = std::move(factory);
}

void RLManager::createPropertyWidget(const QString& key, Factory factory)
{
    RlRegistry::instance().instruction(key).propertyEditor = std::move(factory);
}

void RLManager::createTypeToGroup(const QString& group, const QString& key)
{
    RlRegistry::instance().instruction(key).group = group;
}

void RLManager::createGroups(const QString& title, const QString& group)
{
    RlRegistry::instance().group(group).title = title;
}

void RLManager::createData(const QString& group, const RlCustomCommandSpec& command, Factory insert,
                           Factory property)
{
    RlInstruction& instruction = RlRegistry::instance().instruction(command.name);
    instruction.group = group;
    instruction.skeleton = command.skeleton;
    instruction.description = command.description;
    instruction.insertEditor = std::move(insert);
    instruction.propertyEditor = std::move(property);
    instruction.command = command;
}

} // namespace qelplugin
