#include "Names.h"

#include "JsonText.h"

#include <algorithm>

namespace pendant::names {
namespace {

bool isWord(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_');
}

bool isSlash(QChar character)
{
    return character == QLatin1Char('/') || character == QLatin1Char('\\');
}

/// Also what is no character at all or cannot be seen, such as a mark of direction.
bool isControl(uint character)
{
    return !QChar::isPrint(character) || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

bool hasControl(const QString& name)
{
    const auto characters = name.toUcs4();
    return !name.isValidUtf16() || std::any_of(characters.begin(), characters.end(), isControl);
}

QString checkAny(const QString& name)
{
    const QString shown = jsonText(name);
    if (name.isEmpty())
        return QStringLiteral("The name \"\" is empty. Give a name of 1 to %1 characters.")
            .arg(longest);
    if (name.size() > longest)
        return QStringLiteral("The name %1 has %2 characters. Give a name of at most %3.")
            .arg(shown, QString::number(name.size()), QString::number(longest));
    if (hasControl(name))
        return QStringLiteral("The name %1 holds a control character. Leave it out.").arg(shown);
    return {};
}

} // namespace

QString checkPoint(const QString& name)
{
    const QString reason = checkAny(name);
    if (!reason.isEmpty())
        return reason;
    if (name.at(0).isDigit() || !std::all_of(name.begin(), name.end(), isWord))
        return QStringLiteral("The name %1 cannot stand in a program. Use letters, digits and "
                              "underscores, and no digit first.")
            .arg(jsonText(name));
    return {};
}

QString checkProgram(const QString& name)
{
    const QString reason = checkAny(name);
    if (!reason.isEmpty())
        return reason;
    if (name.trimmed() != name)
        return QStringLiteral("The name %1 begins or ends with a blank. Leave it out.")
            .arg(jsonText(name));
    if (std::any_of(name.begin(), name.end(), isSlash))
        return QStringLiteral("The name %1 holds a slash. Leave it out.").arg(jsonText(name));
    return {};
}

} // namespace pendant::names
