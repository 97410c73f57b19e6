#pragma once

#include "qelpluginglobal.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QObject>
#include <QString>
#include <QStringList>

namespace qelplugin {

/// Gateway to the robot's state and to the controller. All calls belong on the GUI thread.
class QELPLUGIN_EXPORT InterfaceManager : public QObject
{
    Q_OBJECT

public:
    explicit InterfaceManager(QObject* parent = nullptr);
    ~InterfaceManager() override;

    /// A value of the host's own data tree; undefined or null when absent.
    QJsonValue getNodeData(const QString& key);
    /// The present value of a controller service item; a dotted key reaches into an object.
    /// Undefined when absent.
    QJsonValue getQelServiceData(const QString& key);

    /// Sends a command object and returns the collected reply. Blocks until the reply is in.
    QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QJsonObject& data);
    /// Sends one command with a text value and returns the collected reply. Blocks likewise.
    QJsonArray commandCustomData(QObject* sender, const QString& plugin, const QString& command,
                                 const QString& value);

    /// True while the robot is powered.
    bool getRobotEleStatus();
    /// Level of the user who is logged in, 0 to 4; 3 and more may operate.
    int getUserOperateLevel();

    /// An array of objects, one per controller register.
    QJsonValue getRegisterValue();
    QHash<QString, QStringList> getRegisterHash();
    /// Names of the ports of one kind: "AI", "AO", "DI", "DO", "GI" or "GO".
    QStringList getIOByType(const QString& type);

    QStringList getToolList();
    QStringList getWobjList();
    QStringList getSpeedList();
    QStringList getZoneList();
    QString getCurTool();
    QString getCurWobj();

    QStringList getPointNameList();
    /// Makes a point from the robot's present position in the given tool and work object.
    bool addCurrentPoint(const QString& name, bool flag, const QString& tool, const QString& wobj);

Q_SIGNALS:
    /// The connection to the controller has come up.
    void sigNetworkConnect();

private:
    Q_DISABLE_COPY(InterfaceManager)
};

/// The process-wide gateway; valid from library load.
QELPLUGIN_EXPORT InterfaceManager& qelPluginInterface();

} // namespace qelplugin
