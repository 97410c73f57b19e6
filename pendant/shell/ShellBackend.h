#pragma once

#include "hostbackend.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QVector>
#include <QWidget>

namespace pendant {

class Controller;

/// Answers the plugins' calls: what belongs to the controller goes there, what belongs to the
/// window comes out as a signal. In place for as long as it lives; the one before comes back.
class ShellBackend : public QObject, public qelplugin::HostBackend
{
    Q_OBJECT

public:
    /// The controller must outlive the backend.
    explicit ShellBackend(Controller& controller);
    ~ShellBackend() override;

    /// Level of the user who is logged in, 0 to 4.
    void setUserLevel(int level);
    /// Font zoom that plugins are told, 0.75 to 3.
    void setZoom(double zoom);
    /// Tells the plugins that the connection is up, if it is: for those that were made since.
    void tellConnection() const;
    /// What the plugin calls itself; its registered name while it has not said.
    QString labelOf(const QString& plugin) const;

    // The SDK's calls.
    void pluginLabelSet(qelplugin::PluginBase* plugin, const QString& label) override;
    int createCenterWidget(const QString& plugin, QWidget* widget) override;
    int createStatusBar(const QString& plugin, QWidget* widget, int position) override;
    int createPhyButtonList(const QString& plugin, const QString& group,
                            const QList<qelplugin::PhysicalButton>& firstList,
                            const QList<qelplugin::PhysicalButton>& secondList,
                            const QStringList& extra) override;
    int changePhyButtonStatus(const QString& plugin, const QString& group, bool active) override;
    int pluginWidget(const QString& plugin, QWidget*& widget) override;
    int throwLog(const QString& plugin, qelplugin::enThrowLogLevel level,
                 const QString& text) override;
    QJsonValue nodeData(const QString& key) override;
    QJsonValue serviceData(const QString& key) override;
    QJsonArray command(QObject* sender, const QString& plugin, const QJsonObject& data) override;
    QJsonArray textCommand(QObject* sender, const QString& plugin, const QString& command,
                           const QString& value) override;
    bool robotPowered() override;
    int userLevel() override;
    QJsonValue registers() override;
    QHash<QString, QStringList> registerGroups() override;
    QStringList ports(const QString& kind) override;
    QStringList tools() override;
    QStringList workObjects() override;
    QStringList speeds() override;
    QStringList zones() override;
    QString currentTool() override;
    QString currentWorkObject() override;
    QStringList pointNames() override;
    bool addCurrentPoint(const QString& name, bool flag, const QString& tool,
                         const QString& wobj) override;

Q_SIGNALS:
    // The receiver takes the widgets over.
    void pageCreated(const QString& plugin, QWidget* page);
    void indicatorCreated(const QString& plugin, QWidget* indicator, int position);
    void keysCreated(const QString& plugin, const QString& group,
                     const QList<qelplugin::PhysicalButton>& firstList,
                     const QList<qelplugin::PhysicalButton>& secondList);
    void keysSwitched(const QString& plugin, const QString& group, bool active);
    /// 0 information, 1 warning, 2 error. What the pendant itself says comes from "pendant".
    void messageThrown(const QString& plugin, int level, const QString& text);

private:
    struct Label
    {
        QPointer<qelplugin::PluginBase> plugin;
        QString text;
    };

    Controller& machine;
    qelplugin::HostBackend* before;
    QHash<QString, QPointer<QWidget>> pages; ///< by plugin
    QVector<Label> labels;
    int level = 0;
    double fontZoom = 1.0;
};

} // namespace pendant
