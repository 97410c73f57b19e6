#include "PluginSheet.h"

#include "ThemeTokens.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace pendant {

namespace {

constexpr const char* ByteOrderMark = "\xef\xbb\xbf";
const QLatin1String SelectorKey("name");

// A brace or a semicolon would reach into what stands beside it, and so would a comment, or a
// quotation mark without its other.
bool breaksTheSheet(QString text)
{
    static const QRegularExpression sign(QStringLiteral(R"([{};\\]|/\*|\*/)"));
    static const QRegularExpression quoted(QStringLiteral(R"("[^"\n]*"|'[^'\n]*')"));
    static const QRegularExpression mark(QStringLiteral("[\"']"));
    return text.contains(sign) || text.remove(quoted).contains(mark);
}

} // namespace

PluginSheet::PluginSheet(const QByteArray& json, const Lookup& lookup)
    : find(lookup)
{
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(
        json.startsWith(ByteOrderMark) ? json.mid(static_cast<int>(qstrlen(ByteOrderMark))) : json,
        &error);
    if (error.error != QJsonParseError::NoError)
        wrong
            << QStringLiteral("no JSON: %1 at byte %2").arg(error.errorString()).arg(error.offset);
    else if (!document.isArray())
        wrong << QStringLiteral("no array of rules");
    const QJsonArray rules = document.array();
    for (int index = 0; index < rules.size(); ++index) {
        if (rules.at(index).isObject())
            addRule(index + 1, rules.at(index).toObject());
        else
            wrong << QStringLiteral("rule %1 is no object").arg(index + 1);
    }
}

// The properties stand in the order of their names, which JSON does not keep: "border" before
// "border-bottom", as a sheet wants it.
void PluginSheet::addRule(int number, const QJsonObject& rule)
{
    const QString selector = rule.value(SelectorKey).toString();
    if (selector.trimmed().isEmpty() || breaksTheSheet(selector)) {
        wrong << QStringLiteral("rule %1 has no selector").arg(number);
        return;
    }
    sheet += selector + QLatin1String(" {");
    for (auto each = rule.begin(); each != rule.end(); ++each) {
        if (each.key() == SelectorKey)
            continue;
        QString reason;
        const auto value = valueOf(each.value(), &reason);
        if (value && !breaksTheSheet(each.key()))
            sheet += QStringLiteral(" %1: %2;").arg(each.key(), *value);
        else
            wrong << QStringLiteral("rule %1 (%2), \"%3\": %4")
                         .arg(QString::number(number), selector, each.key(),
                              value ? QStringLiteral("no name of a property") : reason);
    }
    sheet += QLatin1String(" }\n");
}

std::optional<QString> PluginSheet::valueOf(const QJsonValue& value, QString* reason) const
{
    static const QRegularExpression reference(QStringLiteral("^\\$(\\w+)\\$([\\w/]+)$"));
    const QString text = value.toString();
    const auto match = reference.match(text);
    if (match.hasMatch()) {
        const auto found = find(match.captured(1), match.captured(2));
        if (!found)
            *reason = QStringLiteral("the theme has no %1").arg(text);
        return found;
    }
    if (!value.isString() || text.trimmed().isEmpty())
        *reason = QStringLiteral("the value is no text");
    else if (text.contains(QLatin1Char('$')))
        *reason = QStringLiteral("%1 is no reference").arg(text);
    else if (breaksTheSheet(text))
        *reason = QStringLiteral("%1 is no value").arg(text);
    else
        return text;
    return std::nullopt;
}

QString PluginSheet::ofPlugin(const QString& name)
{
    QFile file(QStringLiteral(":/%1/render/sub_page.json").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const PluginSheet sheet(file.readAll(), themeValue);
    for (const QString& each : sheet.complaints())
        qWarning("The sheet of %s: %s", qPrintable(name), qPrintable(each));
    return sheet.text();
}

} // namespace pendant
