#pragma once

#include <QStringList>

#include <functional>
#include <optional>

class QByteArray;
class QJsonObject;
class QJsonValue;

namespace pendant {

/// The style sheet that a plugin brings as JSON: an array of rules in their order, each an object
/// with its selector under "name" and a property under every other key. A value is a literal, or
/// as a whole one reference "$kind$token" to what the theme has.
///
/// What cannot be read is left out and said; everything else stays.
class ThemeSheet
{
public:
    using Lookup = std::function<std::optional<QString>(const QString& kind, const QString& token)>;

    /// The file may begin with a byte-order mark.
    ThemeSheet(const QByteArray& json, const Lookup& lookup);

    /// The sheet of the plugin of the registered name, with the values of the theme in force; what
    /// is wrong with it becomes a warning. Empty when the plugin brings none.
    static QString ofPlugin(const QString& name);

    /// As Qt reads it, one rule a line.
    const QString& text() const { return sheet; }
    /// What was left out, and why.
    const QStringList& complaints() const { return wrong; }

private:
    void addRule(int number, const QJsonObject& rule);
    std::optional<QString> valueOf(const QJsonValue& value, QString* reason) const;

    Lookup find;
    QString sheet;
    QStringList wrong;
};

} // namespace pendant
