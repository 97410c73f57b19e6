#pragma once

#include <QJsonValue>
#include <QString>

namespace pendant {

/// The value as JSON, cut to a length that a log line bears.
QString jsonText(const QJsonValue& value);

/// The text, cut likewise.
QString shortText(const QString& text);

} // namespace pendant
