#include "FaultTable.h"

#include "Envelope.h"

#include <algorithm>
#include <optional>

namespace pendant {

const std::vector<FaultRow>& faultRows()
{
    static const std::vector<FaultRow> rows{
        {"no-reply", "No reply", "A command gets lost: nothing is done, an empty array comes",
         &Faults::noReply, nullptr, 0, 0, 0, ""},
        {"lost-before", "Lost before storing",
         "A command drops the connection and is not carried out", &Faults::lostBefore, nullptr, 0,
         0, 0, ""},
        {"lost-after", "Lost after storing", "A command is carried out and drops the connection",
         &Faults::lostAfter, nullptr, 0, 0, 0, ""},
        {"empty-reply", "Empty reply", "Commands are carried out, the reply is an empty array",
         &Faults::emptyReply, nullptr, 0, 0, 0, ""},
        {"element-types", "Reply of other types",
         "The reply is an array with an element of each type, none an answer",
         &Faults::elementTypes, nullptr, 0, 0, 0, ""},
        {"foreign-reply", "Reply of another plugin", "The reply stands under another plugin's name",
         &Faults::foreignReply, nullptr, 0, 0, 0, ""},
        {"missing-return", "Reply without \"return\"", "The command's answer has no result",
         &Faults::missingReturn, nullptr, 0, 0, 0, ""},
        {"wrong-types", "Wrong types", "Texts for numbers and numbers for texts",
         &Faults::wrongTypes, nullptr, 0, 0, 0, ""},
        {"registers-no-array", "Register list is no array", "The register list is an object",
         &Faults::registersNoArray, nullptr, 0, 0, 0, ""},
        {"register-keys", "Registers with other keys",
         "Registers have reg_name, data_type and access for name, type and rw",
         &Faults::registerOtherKeys, nullptr, 0, 0, 0, ""},
        {"register-metadata", "Registers without metadata",
         "Registers have neither a type nor an access", &Faults::registersUndescribed, nullptr, 0,
         0, 0, ""},
        {"register-numbers", "Registers named by numbers",
         "The name of a register is a number and no text", &Faults::registerNumberNames, nullptr, 0,
         0, 0, ""},
        {"port-gone", "First port of each kind gone",
         "The first port of each kind is gone from the controller", &Faults::firstPortGone, nullptr,
         0, 0, 0, ""},
        {"return-code", "Refuse with code", "Every command is refused with this code; 0: none",
         nullptr, &Faults::returnCode, -9999, 9999, 5, ""},
        {"return-value", "Other value in \"return\"",
         "Each value of an answer is replaced by another one", nullptr, &Faults::returnValue, 0,
         static_cast<int>(returnValueNames().size()), 1, "", returnValueNames},
        {"reply-delay", "Delay of replies", "Time before each reply; 0: none", nullptr,
         &Faults::replyDelay, 0, 60000, 1000, " ms"},
    };
    return rows;
}

QStringList faultNames()
{
    QStringList names;
    for (const FaultRow& row : faultRows())
        names << QString::fromLatin1(row.name);
    return names;
}

namespace {

/// Nothing when the text is no number that the row takes.
std::optional<int> numberOf(const FaultRow& row, const QString& text)
{
    if (text.isNull())
        return row.usual;
    bool isNumber = true;
    const int number = row.choices ? row.choices().indexOf(text) + 1 : text.toInt(&isNumber);
    const bool isChosen = !row.choices || number > 0;
    if (!isNumber || !isChosen || number < row.minimum || number > row.maximum)
        return std::nullopt;
    return number;
}

QString applyNumber(const FaultRow& row, const QString& text, Faults* faults)
{
    const std::optional<int> number = numberOf(row, text);
    if (!number)
        return QStringLiteral("fault \"%1\" takes %2, not \"%3\"")
            .arg(QString::fromLatin1(row.name), faultRange(row), text);
    faults->*row.number = *number;
    return {};
}

} // namespace

QString faultRange(const FaultRow& row)
{
    if (row.choices)
        return QStringLiteral("one of %1").arg(row.choices().join(QLatin1String(", ")));
    return QStringLiteral("a number from %1 to %2").arg(row.minimum).arg(row.maximum);
}

QString applyFault(const QString& text, Faults* faults)
{
    const int equals = text.indexOf(QLatin1Char('='));
    const QString name = text.left(equals);
    const QString value = equals < 0 ? QString() : text.mid(equals + 1);
    for (const FaultRow& row : faultRows()) {
        if (name != QLatin1String(row.name))
            continue;
        if (row.number)
            return applyNumber(row, value, faults);
        if (equals >= 0)
            return QStringLiteral("fault \"%1\" takes no value").arg(name);
        faults->*row.flag = true;
        return {};
    }
    return QStringLiteral("there is no fault \"%1\"; there are: %2")
        .arg(name, faultNames().join(QLatin1String(", ")));
}

bool anyFault(const Faults& faults)
{
    const auto& rows = faultRows();
    return std::any_of(rows.begin(), rows.end(), [&](const FaultRow& row) {
        return row.flag ? faults.*row.flag : faults.*row.number != 0;
    });
}

} // namespace pendant
