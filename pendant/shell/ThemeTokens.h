#pragma once

#include <QString>

#include <optional>

namespace pendant {

/// What the theme has for a reference of a plugin's sheet: kind "font", "color", "border" or
/// "image", and the token. A value of a Qt style sheet, in the shade that is in force; nothing when
/// the theme does not know the token. Fonts are as large as the zoom that plugins are told.
std::optional<QString> themeValue(const QString& kind, const QString& token);

} // namespace pendant
