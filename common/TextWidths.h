#pragma once

#include <QFont>
#include <QHash>
#include <QString>

/// Widths of texts that are asked for again and again: each is measured once. Meant for a few dozen
/// texts in one font at a time; another font makes it forget the widths of the one before.
class TextWidths
{
public:
    /// Advance of the text, in pixels.
    int of(const QString& text, const QFont& textFont);

private:
    QFont font;
    QHash<QString, int> widths;
};
