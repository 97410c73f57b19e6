#pragma once

#include <QLabel>

/// Captions of table columns, which are broken into lines where their column is narrow.
namespace CaptionText {

/// Flags for drawing and measuring: centred, broken between words.
constexpr int Flags = int(Qt::AlignCenter) | int(Qt::TextWordWrap);

/// The caption as it is drawn: broken before a bracket, but not within a unit such as "mm/s".
QString drawn(QString caption);

/// Height of the caption in lines of `width` pixels.
int height(const QString& caption, const QFont& font, int width);

} // namespace CaptionText

/// A caption in a cell: broken into lines, and drawn smaller where they would not fit the cell.
class CaptionLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont fittedFont(const QString& caption) const;
};
