#include "ScriptedHost.h"

#include <utility>

ScriptedHost::ScriptedHost()
    : before(qelplugin::setHostBackend(this))
{}

ScriptedHost::~ScriptedHost()
{
    qelplugin::setHostBackend(before);
}

QStringList ScriptedHost::callNames() const
{
    QStringList names;
    for (const Call& call : calls)
        names << call.name;
    return names;
}

int ScriptedHost::count(const QString& call) const
{
    return callNames().count(call);
}

QStringList ScriptedHost::messageTexts() const
{
    QStringList texts;
    for (const Message& message : messages)
        texts << QStringLiteral("%1: %2").arg(message.level).arg(message.text);
    return texts;
}

QJsonArray ScriptedHost::lastArguments(const QString& call) const
{
    for (auto each = calls.crbegin(); each != calls.crend(); ++each) {
        if (each->name == call)
            return each->arguments;
    }
    return {};
}

void ScriptedHost::forgetCalls()
{
    calls.clear();
    messages.clear();
    commands.clear();
}

void ScriptedHost::emitNetworkConnect()
{
    Q_EMIT qelplugin::qelPluginInterface().sigNetworkConnect();
}

QJsonArray ScriptedHost::reply(const QString& command, const QJsonValue& result,
                               const QString& plugin)
{
    const QJsonObject answer{{QStringLiteral("return"), result}};
    return {QJsonObject{{plugin, QJsonObject{{command, answer}}}}};
}

void ScriptedHost::note(const char* name, const QJsonArray& arguments)
{
    calls.append({QString::fromLatin1(name), arguments});
}

QJsonArray ScriptedHost::answer(const Command& command)
{
    commands.append(command);
    if (onCommand)
        onCommand(command);
    const QString name = command.data.keys().value(0);
    const auto scripted = replies.constFind(name);
    if (scripted != replies.constEnd())
        return *scripted;
    return reply(name, command.isText ? QJsonValue(true) : QJsonValue(0));
}

void ScriptedHost::pluginLabelSet(qelplugin::PluginBase*, const QString& text)
{
    note("setPluginLabel", {text});
    label = text;
}

void ScriptedHost::defaultGlobalSheetSet(qelplugin::PluginBase*, bool on)
{
    note("setDefaultGlobalSheet", {on});
}

int ScriptedHost::createCenterWidget(const QString& plugin, QWidget* widget)
{
    note("CreateCenterWidget", {plugin});
    centerWidget = widget;
    return 0;
}

int ScriptedHost::createStatusBar(const QString& plugin, QWidget* widget, int position)
{
    note("CreateStatusBar", {plugin, position});
    statusBarWidget = widget;
    return 0;
}

int ScriptedHost::createPhyButtonList(const QString& plugin, const QString& group,
                                      const QList<qelplugin::PhysicalButton>& firstList,
                                      const QList<qelplugin::PhysicalButton>& secondList,
                                      const QStringList& extra)
{
    note("CreatePhyButtonList", {plugin, group, QJsonArray::fromStringList(extra)});
    firstKeys = firstList;
    secondKeys = secondList;
    return 0;
}

int ScriptedHost::changePhyButtonStatus(const QString& plugin, const QString& group, bool active)
{
    note("ChangePhyButtonStatus", {plugin, group, active});
    return 0;
}

int ScriptedHost::pluginWidget(const QString& plugin, QWidget*& widget)
{
    note("GetPluginNoUniqueWidget", {plugin});
    const auto found = siblings.constFind(plugin);
    if (found == siblings.constEnd())
        return 1;
    widget = *found;
    return 0;
}

int ScriptedHost::throwLog(const QString& plugin, qelplugin::enThrowLogLevel severity,
                           const QString& text)
{
    note("ThrowLog", {plugin, static_cast<int>(severity), text});
    messages.append({static_cast<int>(severity), text});
    return 0;
}

QJsonValue ScriptedHost::nodeData(const QString& key)
{
    note("getNodeData", {key});
    return nodes.value(key, QJsonValue(QJsonValue::Undefined));
}

QJsonValue ScriptedHost::serviceData(const QString& key)
{
    note("getQelServiceData", {key});
    return service.value(key, QJsonValue(QJsonValue::Undefined));
}

QJsonArray ScriptedHost::command(QObject* sender, const QString& plugin, const QJsonObject& data)
{
    note("commandCustomData", {plugin, data});
    return answer({sender, plugin, data, false});
}

QJsonArray ScriptedHost::textCommand(QObject* sender, const QString& plugin,
                                     const QString& commandName, const QString& value)
{
    note("commandCustomData", {plugin, commandName, value});
    return answer({sender, plugin, QJsonObject{{commandName, value}}, true});
}

bool ScriptedHost::robotPowered()
{
    note("getRobotEleStatus");
    return powered;
}

int ScriptedHost::userLevel()
{
    note("getUserOperateLevel");
    return level;
}

QJsonValue ScriptedHost::registers()
{
    note("getRegisterValue");
    return registerValue;
}

QHash<QString, QStringList> ScriptedHost::registerGroups()
{
    note("getRegisterHash");
    return {};
}

QStringList ScriptedHost::ports(const QString& kind)
{
    note("getIOByType", {kind});
    return portNames.value(kind);
}

QStringList ScriptedHost::tools()
{
    note("getToolList");
    return toolNames;
}

QStringList ScriptedHost::workObjects()
{
    note("getWobjList");
    return workObjectNames;
}

QStringList ScriptedHost::speeds()
{
    note("getSpeedList");
    return speedNames;
}

QStringList ScriptedHost::zones()
{
    note("getZoneList");
    return zoneNames;
}

QString ScriptedHost::currentTool()
{
    note("getCurTool");
    return tool;
}

QString ScriptedHost::currentWorkObject()
{
    note("getCurWobj");
    return workObject;
}

QStringList ScriptedHost::pointNames()
{
    note("getPointNameList");
    return points;
}

bool ScriptedHost::addCurrentPoint(const QString& name, bool flag, const QString& inTool,
                                   const QString& inWorkObject)
{
    note("addCurrentPoint", {name, flag, inTool, inWorkObject});
    if (points.contains(name))
        return false;
    points << name;
    return true;
}
