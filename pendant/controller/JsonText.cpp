#include "JsonText.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace pendant {

QString jsonText(const QJsonValue& value)
{
    // A document is never a bare value.
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return shortText(QString::fromUtf8(list.mid(1, list.size() - 2)));
}

QString shortText(const QString& text)
{
    constexpr int longest = 60;
    return text.size() <= longest ? text : text.left(longest) + QStringLiteral("...");
}

} // namespace pendant
