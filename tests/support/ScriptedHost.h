#pragma once

#include "hostbackend.h"

#include <QHash>
#include <QJsonValue>
#include <QPointer>
#include <QStringList>
#include <QVector>
#include <QWidget>

#include <functional>

/// A host that records each call and plays back what a test wants. In place for as long as it
/// lives; the one before comes back after it.
class ScriptedHost : public qelplugin::HostBackend
{
public:
    /// One call of the SDK: the name of the SDK's function and its arguments.
    struct Call
    {
        QString name;
        QJsonArray arguments;
    };
    struct Message
    {
        int level;
        QString text;
    };
    struct Command
    {
        QObject* sender;
        QString plugin;
        QJsonObject data; ///< of the text overload: { command: text }
        bool isText;
    };

    ScriptedHost();
    ~ScriptedHost() override;

    // What it plays back.
    QHash<QString, QJsonValue> nodes;   ///< by key of getNodeData
    QHash<QString, QJsonValue> service; ///< by key of getQelServiceData, whole or dotted
    QJsonValue registerValue = QJsonArray();
    QHash<QString, QStringList> portNames; ///< by kind
    QStringList toolNames, workObjectNames, speedNames, zoneNames, points;
    QString tool, workObject;
    bool powered = false;
    int level = 3;
    /// Reply to the next commands by command name; without an entry the reply is successReply().
    QHash<QString, QJsonArray> replies;
    /// Called on each command before its reply is looked up.
    std::function<void(const Command&)> onCommand;
    QHash<QString, QWidget*> siblings; ///< by plugin name, of GetPluginNoUniqueWidget

    // What it was given. The widgets are owned by the test.
    QPointer<QWidget> centerWidget;
    QPointer<QWidget> statusBarWidget;
    QList<qelplugin::PhysicalButton> firstKeys, secondKeys;
    QString label;
    QVector<Call> calls;
    QVector<Message> messages;
    QVector<Command> commands;

    /// Names of the calls so far, in their order.
    QStringList callNames() const;
    int count(const QString& call) const;
    /// The messages so far as "level: text".
    QStringList messageTexts() const;
    /// The arguments of the last call of the name; empty when there was none.
    QJsonArray lastArguments(const QString& call) const;
    /// Forgets calls, messages and commands, and keeps what it plays back.
    void forgetCalls();
    /// Lets the connection come up.
    static void emitNetworkConnect();

    /// [ { plugin: { command: { "return": result } } } ]
    static QJsonArray reply(const QString& command, const QJsonValue& result,
                            const QString& plugin = QStringLiteral("qelLaserWelding"));

    // The SDK's calls.
    void pluginLabelSet(qelplugin::PluginBase* plugin, const QString& label) override;
    void defaultGlobalSheetSet(qelplugin::PluginBase* plugin, bool on) override;
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

private:
    void note(const char* name, const QJsonArray& arguments = {});
    QJsonArray answer(const Command& command);

    HostBackend* before;
};
