#pragma once

#include "LogTail.h"

#include <QObject>
#include <QStringList>
#include <QVector>

namespace pendant {
class Session;
}

namespace soak {

/// A message to the operator.
struct Told
{
    int level;
    QString text;

    bool operator==(const Told& other) const { return level == other.level && text == other.text; }
};

/// Hears what is said while a step is taken: to the operator, by the controller, in the plugin's
/// log and as a warning of Qt. There is one at a time.
class Witness : public QObject
{
    Q_OBJECT

public:
    Witness();
    ~Witness() override;

    /// Listens to a session that has just been opened.
    void listen(pendant::Session& session);
    /// A new step begins.
    void forget();

    QVector<Told> messages;
    QStringList controllerLines;
    QStringList recordsChanged; ///< their keys
    QStringList warnings;       ///< of Qt and of the code
    /// The plugin's lines of the severity E since the last call, without their headers and with
    /// single blanks.
    QStringList takeErrorLines();

private:
    LogTail pluginLog;
    LogTail editorLog;
};

} // namespace soak
