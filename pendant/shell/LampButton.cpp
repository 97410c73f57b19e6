#include "LampButton.h"

#include "Theme.h"

#include <QFontMetrics>
#include <QPainter>

namespace pendant {

namespace {

// For 96 dots per inch.
constexpr int Margin = 10;
constexpr int LampSize = 16;
constexpr int Height = 44;
constexpr int Radius = 6;

} // namespace

LampButton::LampButton(const QString& caption, QWidget* parent)
    : QAbstractButton(parent)
{
    setText(caption);
    setFont(Theme::font());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void LampButton::setValue(const QString& value)
{
    shown = value;
    setAccessibleName(text() + QStringLiteral(": ") + value);
    updateGeometry();
    update();
}

void LampButton::setLamp(const QColor& colour)
{
    lampColour = colour;
    updateGeometry();
    update();
}

QFont LampButton::captionFont() const
{
    QFont small = font();
    small.setPointSizeF(Theme::points(8.5));
    return small;
}

QFont LampButton::valueFont() const
{
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

int LampButton::lampRoom() const
{
    return lampColour.isValid() ? Theme::px(LampSize + Margin) : 0;
}

QSize LampButton::sizeHint() const
{
    const QFontMetrics small(captionFont());
    const QFontMetrics bold(valueFont());
    const int width = qMax(small.horizontalAdvance(text()), bold.horizontalAdvance(shown));
    const int lines = small.height() + bold.height();
    return {width + lampRoom() + Theme::px(2 * Margin), qMax(Theme::px(Height), lines)};
}

void LampButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Theme::colour(hasFocus() ? Theme::Accent : Theme::Line));
    painter.setBrush(Theme::colour(isDown() ? Theme::Pressed : Theme::Card));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Theme::px(Radius),
                            Theme::px(Radius));
    const int margin = Theme::px(Margin);
    if (lampColour.isValid()) {
        const int size = Theme::px(LampSize);
        painter.setPen(lampColour.darker(130));
        painter.setBrush(lampColour);
        painter.drawEllipse(QRectF(margin, (height() - size) / 2.0, size, size));
    }
    const QFontMetrics small(captionFont());
    const QFontMetrics bold(valueFont());
    const int top = (height() - small.height() - bold.height()) / 2;
    const QRect line(margin + lampRoom(), top, width() - lampRoom() - margin, small.height());
    painter.setFont(captionFont());
    painter.setPen(Theme::colour(Theme::MutedInk));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, text());
    painter.setFont(valueFont());
    painter.setPen(Theme::colour(Theme::Ink));
    painter.drawText(QRect(line.left(), line.bottom() + 1, line.width(), bold.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, shown);
}

} // namespace pendant
