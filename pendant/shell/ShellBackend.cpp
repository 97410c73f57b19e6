#include "ShellBackend.h"

#include "Controller.h"
#include "Phrases.h"

#include <QJsonArray>
#include <QJsonObject>

namespace pendant {

namespace {

constexpr int Done = 0;
constexpr int Refused = -1;
constexpr int Warning = 1; // severity of a message

// A text that stays with the pendant must not share its characters with the library it came from.
QString kept(const QString& text)
{
    return QString(text.constData(), text.size());
}

} // namespace

ShellBackend::ShellBackend(Controller& controller)
    : machine(controller)
    , before(qelplugin::setHostBackend(this))
{
    connect(&machine, &Controller::connectionChanged, this, &ShellBackend::tellConnection);
}

ShellBackend::~ShellBackend()
{
    qelplugin::setHostBackend(before);
}

void ShellBackend::tellConnection() const
{
    if (machine.isConnected())
        Q_EMIT qelplugin::qelPluginInterface().sigNetworkConnect();
}

void ShellBackend::setUserLevel(int newLevel)
{
    level = newLevel;
}

void ShellBackend::setZoom(double zoom)
{
    fontZoom = zoom;
}

// A plugin has no name yet while it sets its label; the loader names it right after.
QString ShellBackend::labelOf(const QString& plugin) const
{
    for (const Label& each : labels) {
        if (each.plugin && each.plugin->objectName() == plugin && !each.text.isEmpty())
            return each.text;
    }
    return plugin;
}

void ShellBackend::pluginLabelSet(qelplugin::PluginBase* plugin, const QString& label)
{
    for (Label& each : labels) {
        if (each.plugin == plugin) {
            each.text = kept(label);
            return;
        }
    }
    labels.append({plugin, kept(label)});
}

int ShellBackend::createCenterWidget(const QString& plugin, QWidget* widget)
{
    if (!widget || pages.value(plugin))
        return Refused;
    pages.insert(kept(plugin), widget);
    Q_EMIT pageCreated(kept(plugin), widget);
    return Done;
}

int ShellBackend::createStatusBar(const QString& plugin, QWidget* widget, int position)
{
    if (!widget)
        return Refused;
    Q_EMIT indicatorCreated(kept(plugin), widget, position);
    return Done;
}

int ShellBackend::createPhyButtonList(const QString& plugin, const QString& group,
                                      const QList<qelplugin::PhysicalButton>& firstList,
                                      const QList<qelplugin::PhysicalButton>& secondList,
                                      const QStringList&)
{
    Q_EMIT keysCreated(kept(plugin), kept(group), firstList, secondList);
    return Done;
}

int ShellBackend::changePhyButtonStatus(const QString& plugin, const QString& group, bool active)
{
    Q_EMIT keysSwitched(kept(plugin), kept(group), active);
    return Done;
}

int ShellBackend::pluginWidget(const QString& plugin, QWidget*& widget)
{
    QWidget* page = pages.value(plugin);
    if (!page)
        return Refused;
    widget = page;
    return Done;
}

int ShellBackend::throwLog(const QString& plugin, qelplugin::enThrowLogLevel severity,
                           const QString& text)
{
    Q_EMIT messageThrown(kept(plugin), static_cast<int>(severity), kept(text));
    return Done;
}

QJsonValue ShellBackend::nodeData(const QString& key)
{
    if (key == QLatin1String("qeltheme.fontzoom"))
        return fontZoom;
    return QJsonValue(QJsonValue::Undefined);
}

QJsonValue ShellBackend::serviceData(const QString& key)
{
    return machine.serviceData(key);
}

QJsonArray ShellBackend::command(QObject*, const QString& plugin, const QJsonObject& data)
{
    return machine.command(plugin, data);
}

QJsonArray ShellBackend::textCommand(QObject*, const QString& plugin, const QString& command,
                                     const QString& value)
{
    return machine.textCommand(plugin, command, value);
}

bool ShellBackend::robotPowered()
{
    return machine.isPowered();
}

int ShellBackend::userLevel()
{
    return level;
}

QJsonValue ShellBackend::registers()
{
    return machine.registers();
}

QHash<QString, QStringList> ShellBackend::registerGroups()
{
    return machine.registerGroups();
}

QStringList ShellBackend::ports(const QString& kind)
{
    return machine.ports(kind);
}

QStringList ShellBackend::tools()
{
    return machine.tools();
}

QStringList ShellBackend::workObjects()
{
    return machine.workObjects();
}

QStringList ShellBackend::speeds()
{
    return machine.speeds();
}

QStringList ShellBackend::zones()
{
    return machine.zones();
}

QString ShellBackend::currentTool()
{
    return machine.currentTool();
}

QString ShellBackend::currentWorkObject()
{
    return machine.currentWorkObject();
}

QStringList ShellBackend::pointNames()
{
    return machine.pointNames();
}

bool ShellBackend::addCurrentPoint(const QString& name, bool, const QString& tool,
                                   const QString& wobj)
{
    QString error;
    const bool isDone = machine.addCurrentPoint(kept(name), kept(tool), kept(wobj), &error);
    if (!isDone)
        Q_EMIT messageThrown(QStringLiteral("pendant"), Warning,
                             tr("The point \"%1\" was not stored. %2").arg(name, phrase(error)));
    return isDone;
}

} // namespace pendant
