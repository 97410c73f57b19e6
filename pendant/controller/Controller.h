#pragma once

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QObject>
#include <QStringList>

#include <memory>

namespace pendant {

/// How many ports and registers a new cell gets.
struct CellSize
{
    int ports = 128;     ///< of each kind
    int registers = 160; ///< in all
};

/// What a tester can make go wrong; all off at first.
struct Faults
{
    int replyDelay = 0;         ///< milliseconds before each reply
    bool emptyReply = false;    ///< an empty array, after the command was carried out
    bool foreignReply = false;  ///< the reply stands under another plugin's name
    bool missingReturn = false; ///< the command's object has no "return"
    int returnCode = 0;         ///< refuse every command with this code when it is not 0
    bool wrongTypes = false;    ///< texts for numbers and numbers for texts in replies and records
    bool registersNoArray = false; ///< the register list is an object
};

/// The simulated controller: records, ports, registers, the weld device. A cell is one SQLite file.
///
/// Every command is one transaction: a command that was answered with success survives a kill of
/// the process at any moment, and no record is ever half written.
class Controller : public QObject
{
    Q_OBJECT

public:
    /// Opens the cell file, or makes a new cell when there is none. On failure returns null and
    /// sets `error` to a text that names the file and the remedy; the file is left as it was.
    static std::unique_ptr<Controller> open(const QString& file, const CellSize& size,
                                            QString* error);
    ~Controller() override;

    QString fileName() const;

    /// The present value of a record; a dotted key reaches into an object. Undefined when there is
    /// none and while the connection is down.
    QJsonValue serviceData(const QString& key) const;
    /// Carries out the commands of the object and returns the reply envelope; empty while the
    /// connection is down.
    QJsonArray command(const QString& plugin, const QJsonObject& data);
    /// Carries out one command with a text value.
    QJsonArray textCommand(const QString& plugin, const QString& command, const QString& value);

    QStringList ports(const QString& kind) const;
    QJsonValue registers() const;
    QHash<QString, QStringList> registerGroups() const;

    bool isPowered() const;
    void setPowered(bool on);
    bool isConnected() const;
    void setConnected(bool on);

    /// The work mode at the controller's own cabinet: apart from the connection, the power and the
    /// faults. Setting it is false when it could not be stored.
    bool isVirtualWelding() const;
    bool setVirtualWelding(bool on);

    /// Takes effect with the next command or read.
    const Faults& faults() const;
    void setFaults(const Faults& faults);

Q_SIGNALS:
    void connectionChanged(bool up);
    void powerChanged(bool on);
    /// A record, by its key, holds something new.
    void recordChanged(const QString& key);
    /// A line of the controller's own log: what was refused and why, and what was done.
    void logged(const QString& text);

private:
    struct Private;
    explicit Controller(std::unique_ptr<Private> state);
    std::unique_ptr<Private> d;
};

} // namespace pendant
