#pragma once

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QObject>
#include <QStringList>
#include <QVector>

#include <memory>

namespace pendant {

struct SignalState;

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
    bool noReply = false;       ///< a command gets lost: nothing is done, an empty array comes
    bool lostBefore = false;    ///< a command drops the connection and is not carried out
    bool lostAfter = false;     ///< a command is carried out and drops the connection
    bool emptyReply = false;    ///< an empty array, after the command was carried out
    bool elementTypes = false;  ///< an array with an element of each type, none a command's answer
    bool foreignReply = false;  ///< the reply stands under another plugin's name
    bool missingReturn = false; ///< the command's object has no "return"
    int returnValue = 0;        ///< one of returnValueNames(), from 1, for each value of an answer
    int returnCode = 0;         ///< refuse every command with this code when it is not 0
    bool wrongTypes = false;    ///< texts for numbers and numbers for texts in replies and records
    bool registersNoArray = false;     ///< the register list is an object
    bool registerOtherKeys = false;    ///< its keys are those of another maker
    bool registersUndescribed = false; ///< registers have neither a type nor an access
    bool registerNumberNames = false;  ///< a register's name is a number
    bool firstPortGone = false;        ///< the first port of each kind is not there
};

/// The simulated controller: records, ports, registers, the weld device, the robot's points and
/// programs. A cell is one SQLite file.
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

    // The process signals at the controller's own terminals: apart from the connection.

    /// Outputs, then inputs, with their places and values. The values begin at 0 with each start.
    QVector<SignalState> ioSignals() const;
    /// Puts a value at an input's port or register: 0 or 1, or a number to +/-999999 that the place
    /// can hold. False, with the reason in the log, when the signal is no input, is not mapped, or
    /// the value does not fit.
    bool setInput(const QString& signal, double value);

    // What a robot program names, and what is selected for the robot now. All lists and names are
    // empty while the connection is down.
    QStringList tools() const;
    QStringList workObjects() const;
    QStringList speeds() const;
    QStringList zones() const;
    QString currentTool() const;
    QString currentWorkObject() const;
    /// A name that the cell does not have is refused and the selection stays.
    void setCurrentTool(const QString& name);
    void setCurrentWorkObject(const QString& name);

    /// In the order in which they were added.
    QStringList pointNames() const;
    /// Stores the robot's present position under a name of 1 to 64 letters, digits and underscores
    /// that does not begin with a digit and that no other point has. A failure is told in `error`
    /// with the remedy.
    bool addCurrentPoint(const QString& name, const QString& tool, const QString& workObject,
                         QString* error = nullptr);

    // Robot programs, kept byte for byte. A name has 1 to 64 characters, none of them a control
    // character, a slash or a backslash, and no blank at either end; upper and lower case are told
    // apart. A failure changes nothing and is told in `error` with the remedy.

    /// The names in alphabetical order.
    QStringList programs() const;
    /// False when there is no such program, it could not be read, or the connection is down.
    bool readProgram(const QString& name, QByteArray* text) const;
    /// Replaces the text, at most 64 MiB; makes the program when there is none.
    bool saveProgram(const QString& name, const QByteArray& text, QString* error = nullptr);
    /// Makes an empty program under a name that no other has.
    bool createProgram(const QString& name, QString* error = nullptr);
    bool renameProgram(const QString& from, const QString& to, QString* error = nullptr);
    bool removeProgram(const QString& name, QString* error = nullptr);

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
    /// A signal of ioSignals() may be elsewhere or have another value.
    void ioChanged();
    /// A point was added.
    void pointsChanged();
    /// A program was made, saved, renamed or removed.
    void programsChanged();
    /// A line of the controller's own log: what was refused and why, and what was done.
    void logged(const QString& text);

private:
    struct Private;
    template<typename Change>
    bool changeProgram(const QString& verb, const QString& name, QString* error,
                       const Change& carryOut);

    explicit Controller(std::unique_ptr<Private> state);
    QJsonArray lose(const QJsonObject& data, bool dropsConnection);
    std::unique_ptr<Private> d;
};

} // namespace pendant
