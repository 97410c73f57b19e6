#pragma once

#include <QJsonObject>
#include <QString>

namespace pendant {

/// The "return" of a reply. The numbers are part of the interface and never change their meaning.
enum class ResultCode {
    Done = 0,
    UnknownPlugin = 1,  ///< the command came under a name that this controller does not serve
    UnknownCommand = 2, ///< there is no such command
    WrongType = 3,    ///< the payload or a value in it has another JSON type, or is no whole number
    MissingKey = 4,   ///< a key of the record is missing
    UnknownKey = 5,   ///< the record has no such key
    OutOfRange = 6,   ///< a number or text outside of what the key takes
    Conflict = 7,     ///< feeding and retracting exclude each other
    RobotPowered = 8, ///< not while the robot is powered
    NotStored = 9,    ///< the cell file could not be written; the cell is as it was before
    NoSuchPort = 10,  ///< the cell has no such port or register
    WrongRegister = 11, ///< the register cannot be read or written so, or has another type
    NoPort = 12,        ///< a signal that is needed has no port
    WrongCount = 13,    ///< a list has more or fewer elements than it must have
    NotRising = 14,     ///< a number is not greater than the one before it
    NoLine = 15,        ///< no line can be laid through the nodes
};

/// The outcome of a check or a command.
struct Result
{
    int code = 0;         ///< a ResultCode, or what a tester wants to see
    QString reason;       ///< for the log; empty when done
    QJsonObject values{}; ///< what a command that is done answers beside its code

    bool isDone() const { return code == 0; }
};

inline Result refused(ResultCode code, const QString& reason)
{
    return {static_cast<int>(code), reason};
}

} // namespace pendant
