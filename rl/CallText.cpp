#include "CallText.h"

#include "Log.h"

#include <QDebug>
#include <QStringView>

#include <algorithm>

namespace qellaser::util {

namespace {

const char Function[] = "qellaser::util::extractFunctionAndParameters";

bool isBlank(QChar character)
{
    const char16_t code = character.unicode();
    return code == ' ' || (code >= '\t' && code <= '\r');
}

bool isWord(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') ||
           (code >= '0' && code <= '9') || code == '_';
}

/// A call in its two pieces, as they lie in the text.
struct Call
{
    QStringView name;
    QStringView inner;
};

// Reads "name (" from the front.
Call fromFront(QStringView text)
{
    const auto nameBegin = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto nameEnd = std::find_if_not(nameBegin, text.end(), isWord);
    const auto open = std::find_if_not(nameEnd, text.end(), isBlank);
    if (nameBegin == nameEnd || open == text.end() || *open != QLatin1Char('('))
        return {};
    return {{nameBegin, nameEnd}, {open + 1, text.end()}};
}

// Takes ")", one semicolon at most and the blanks off the end; null when there is no such end.
QStringView withoutEnd(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    if (!text.isEmpty() && text.back() == QLatin1Char(';'))
        text.chop(1);
    if (text.isEmpty() || text.back() != QLatin1Char(')'))
        return {};
    return {text.begin(), text.end() - 1};
}

// The same texts are calls as for ^\s*(\w+)\s*\((.*?)\);?\s*$ of QRegularExpression: word
// characters and blanks are those of ASCII, only a line feed breaks the arguments, and half a
// surrogate pair anywhere spoils the text.
Call findCall(const QString& text)
{
    Call call = fromFront(text);
    call.inner = withoutEnd(call.inner);
    if (call.inner.isNull() || call.inner.contains(QLatin1Char('\n')) || !text.isValidUtf16())
        return {};
    call.inner = call.inner.trimmed();
    return call;
}

void appendArgument(QStringList& list, QStringView argument)
{
    argument = argument.trimmed();
    if (!argument.isEmpty())
        list.append(argument.toString());
}

QStringList splitArguments(QStringView inner)
{
    QStringList list;
    int depth = 0;
    auto start = inner.begin();
    for (auto each = start; each != inner.end(); ++each) {
        const char16_t code = each->unicode();
        if (code == '(') {
            ++depth;
        } else if (code == ')') {
            depth = std::max(0, depth - 1);
        } else if (code == ',' && depth == 0) {
            appendArgument(list, {start, each});
            start = each + 1;
        }
    }
    appendArgument(list, {start, inner.end()});
    return list;
}

// As QDebug prints it, which is slow; most texts hold nothing that it would write differently.
void appendPrinted(QString& text, const QString& item)
{
    const bool asItIs = std::all_of(item.begin(), item.end(), [](QChar character) {
        const char16_t code = character.unicode();
        return code >= ' ' && code <= '~' && code != '"' && code != '\\';
    });
    if (asItIs)
        text += QLatin1Char('"') + item + QLatin1Char('"');
    else
        QDebug(&text).nospace() << item;
}

} // namespace

bool extractFunctionAndParameters(const QString& input, QString& functionName,
                                  QStringList& parameterList)
{
    functionName.clear();
    parameterList.clear();
    const Call call = findCall(input);
    if (call.name.isEmpty()) {
        LOGE(LogTag::Short)
            << Function << __LINE__
            << "Parsing failed: Input string does not match function call format. input:" << input;
        return false;
    }
    functionName = call.name.toString();
    parameterList = splitArguments(call.inner);
    if (call.inner.isEmpty())
        LOGE(LogTag::Short) << "LASER::" << Function << __LINE__
                            << "Extracted Parameter List: (Empty)";
    // The list comes with its quotation marks; a stream that adds some would escape them.
    (LOGD(LogTag::Short) << "LASER::" << Function << __LINE__ << "functionName:" << functionName
                         << ",parameterList:")
            .noquote()
        << printedList(parameterList);
    return true;
}

QString stripEnclosing(const QString& text, const QString& prefix, const QString& suffix)
{
    const int between = text.size() - prefix.size() - suffix.size();
    if (between < 0 || !text.startsWith(prefix) || !text.endsWith(suffix))
        return text;
    return text.mid(prefix.size(), between);
}

QString printedList(const QStringList& list)
{
    QString text(QLatin1Char('('));
    for (const QString& item : list) {
        if (text.size() > 1)
            text += QLatin1String(", ");
        appendPrinted(text, item);
    }
    text += QLatin1Char(')');
    return text;
}

} // namespace qellaser::util
