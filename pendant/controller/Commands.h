#pragma once

#include "Cell.h"
#include "IoPoints.h"
#include "ResultCode.h"
#include "WeldDevice.h"

namespace pendant {

/// What the commands of one call have done so far. It becomes real only when the changed records
/// are stored; until then the cell and the device are as they were.
struct Transaction
{
    const Cell& cell;
    const Faults& faults;
    bool isPowered = false;
    WeldState device;
    Records changes;

    /// With the changes of the commands before.
    QJsonValue record(const QString& key) const;
    IoPoints points() const { return {cell, faults}; }
};

/// How the outcome stands in the answer.
enum class ReplyForm {
    Code,   ///< a ResultCode as a number
    Flag,   ///< true when done, false when refused
    Values, ///< when done its values stand in place of "return"; a refusal is a Code
};

/// One command that the controller understands.
struct Command
{
    const char* name;
    ReplyForm reply;
    /// Checks the payload, then changes the transaction; a refusal leaves it as it was.
    Result (*carryOut)(const QJsonValue& payload, Transaction& transaction);
};

/// Null when there is no such command.
const Command* findCommand(const QString& name);

} // namespace pendant
