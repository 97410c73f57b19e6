#pragma once

#include <QFont>
#include <QLabel>

/// Captions of table columns, which are broken into lines where their column is narrow.
namespace CaptionText {

/// Flags for drawing and measuring: centred, broken between words.
constexpr int Flags = int(Qt::AlignCenter) | int(Qt::TextWordWrap);

/// The caption as it is drawn: broken before a bracket, but not within a unit such as "mm/s".
QString drawn(QString caption);

/// Height of the caption in lines of `width` pixels.
int height(const QString& caption, const QFont& font, int width);

/// The font, or a smaller one where a word or the lines would not fit the room, in pixels. What is
/// hard to read at arm's length on the widget's screen is not given: there the caption is cut.
QFont fitted(const QString& caption, QFont font, const QSize& room, QWidget* widget);

} // namespace CaptionText

/// A caption in a cell: broken into lines, and drawn smaller where they would not fit the cell.
class CaptionLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};
