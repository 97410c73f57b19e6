#include "TextWidths.h"

#include <QFontMetrics>

int TextWidths::of(const QString& text, const QFont& textFont)
{
    if (font != textFont) {
        font = textFont;
        widths.clear();
    }
    auto found = widths.find(text);
    if (found == widths.end())
        found = widths.insert(text, QFontMetrics(font).horizontalAdvance(text));
    return *found;
}
