#include "hostbackend.h"

namespace qelplugin {

// The gateway holds nothing: the backend answers every call.
InterfaceManager::InterfaceManager(QObject* parent)
    : QObject(parent)
{}

InterfaceManager::~InterfaceManager() = default;

QJsonValue InterfaceManager::getNodeData(const QString& key)
{
    return hostBackend().nodeData(key);
}

QJsonValue InterfaceManager::getQelServiceData(const QString& key)
{
    return hostBackend().serviceData(key);
}

QJsonArray InterfaceManager::commandCustomData(QObject* sender, const QString& plugin,
                                               const QJsonObject& data)
{
    return hostBackend().command(sender, plugin, data);
}

QJsonArray InterfaceManager::commandCustomData(QObject* sender, const QString& plugin,
                                               const QString& command, const QString& value)
{
    return hostBackend().textCommand(sender, plugin, command, value);
}

bool InterfaceManager::getRobotEleStatus()
{
    return hostBackend().robotPowered();
}

int InterfaceManager::getUserOperateLevel()
{
    return hostBackend().userLevel();
}

QJsonValue InterfaceManager::getRegisterValue()
{
    return hostBackend().registers();
}

QHash<QString, QStringList> InterfaceManager::getRegisterHash()
{
    return hostBackend().registerGroups();
}

QStringList InterfaceManager::getIOByType(const QString& type)
{
    return hostBackend().ports(type);
}

QStringList InterfaceManager::getToolList()
{
    return hostBackend().tools();
}

QStringList InterfaceManager::getWobjList()
{
    return hostBackend().workObjects();
}

QStringList InterfaceManager::getSpeedList()
{
    return hostBackend().speeds();
}

QStringList InterfaceManager::getZoneList()
{
    return hostBackend().zones();
}

QString InterfaceManager::getCurTool()
{
    return hostBackend().currentTool();
}

QString InterfaceManager::getCurWobj()
{
    return hostBackend().currentWorkObject();
}

QStringList InterfaceManager::getPointNameList()
{
    return hostBackend().pointNames();
}

bool InterfaceManager::addCurrentPoint(const QString& name, bool flag, const QString& tool,
                                       const QString& wobj)
{
    return hostBackend().addCurrentPoint(name, flag, tool, wobj);
}

InterfaceManager& qelPluginInterface()
{
    static InterfaceManager manager;
    return manager;
}

} // namespace qelplugin
