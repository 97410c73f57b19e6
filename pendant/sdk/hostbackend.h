#pragma once

#include "qelplugin.h"

#include <functional>

namespace qelplugin {

/// What the application supplies to the SDK library: its window and its controller.
///
/// The one seam between the SDK's calls and whoever answers them. Every operation has a body that
/// answers as a host with nothing behind it, so that a backend states only what it has.
class QELPLUGIN_EXPORT HostBackend
{
public:
    HostBackend();
    virtual ~HostBackend();

    // What a plugin tells of itself.
    virtual void pluginLabelSet(PluginBase* plugin, const QString& label);
    virtual void defaultGlobalSheetSet(PluginBase* plugin, bool on);

    // The window. Results are status codes, 0 for success.
    virtual int createCenterWidget(const QString& plugin, QWidget* widget);
    virtual int createStatusBar(const QString& plugin, QWidget* widget, int position);
    virtual int createPhyButtonList(const QString& plugin, const QString& group,
                                    const QList<PhysicalButton>& firstList,
                                    const QList<PhysicalButton>& secondList,
                                    const QStringList& extra);
    virtual int changePhyButtonStatus(const QString& plugin, const QString& group, bool active);
    virtual int pluginWidget(const QString& plugin, QWidget*& widget);
    virtual int throwLog(const QString& plugin, enThrowLogLevel level, const QString& text);

    // The robot and the controller.
    virtual QJsonValue nodeData(const QString& key);
    virtual QJsonValue serviceData(const QString& key);
    virtual QJsonArray command(QObject* sender, const QString& plugin, const QJsonObject& data);
    virtual QJsonArray textCommand(QObject* sender, const QString& plugin, const QString& command,
                                   const QString& value);
    virtual bool robotPowered();
    virtual int userLevel();
    virtual QJsonValue registers();
    virtual QHash<QString, QStringList> registerGroups();
    virtual QStringList ports(const QString& kind);
    virtual QStringList tools();
    virtual QStringList workObjects();
    virtual QStringList speeds();
    virtual QStringList zones();
    virtual QString currentTool();
    virtual QString currentWorkObject();
    virtual QStringList pointNames();
    virtual bool addCurrentPoint(const QString& name, bool flag, const QString& tool,
                                 const QString& wobj);

private:
    Q_DISABLE_COPY(HostBackend)
};

/// Puts the backend behind the SDK's calls; null takes it away. Returns the one before. The caller
/// keeps the ownership.
QELPLUGIN_EXPORT HostBackend* setHostBackend(HostBackend* backend);
/// The backend in place, or one with nothing behind it. Never null.
QELPLUGIN_EXPORT HostBackend& hostBackend();

/// Names of the plugins whose factories are registered, in the order of their registration.
QELPLUGIN_EXPORT QStringList registeredPlugins();
/// Makes the plugin that is registered under the name, or returns null when there is none.
QELPLUGIN_EXPORT PluginBase* createPlugin(const QString& name, QObject* parent);
/// The factory that is registered under the name, or an empty one.
QELPLUGIN_EXPORT std::function<PluginBase*(QObject* parent)> pluginFactory(const QString& name);
/// Drops the factory. To be called before its library is unloaded: the factory is code of it.
QELPLUGIN_EXPORT bool forgetPlugin(const QString& name);

} // namespace qelplugin
