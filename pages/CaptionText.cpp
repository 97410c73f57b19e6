#include "CaptionText.h"

#include "UiScale.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int AnyHeight = 1000;
/// Smaller than this, in points on a screen of 96 dpi, cannot be read at arm's length.
constexpr int LeastPoints = 7;

bool fits(const QString& caption, const QFont& font, const QSize& room)
{
    const QRect lines(0, 0, std::max(room.width(), 1), AnyHeight);
    const QSize needed = QFontMetrics(font).boundingRect(lines, CaptionText::Flags, caption).size();
    return needed.width() <= room.width() && needed.height() <= room.height();
}

} // namespace

QString CaptionText::drawn(QString caption)
{
    constexpr ushort WordJoiner = 0x2060;
    constexpr ushort ZeroWidthSpace = 0x200b;
    caption.replace(QLatin1Char('/'), QString(QLatin1Char('/')) + QChar(WordJoiner));
    return caption.replace(QLatin1Char('('), QString(QChar(ZeroWidthSpace)) + QLatin1Char('('));
}

int CaptionText::height(const QString& caption, const QFont& font, int width)
{
    const QRect room(0, 0, std::max(width, 1), AnyHeight);
    return QFontMetrics(font).boundingRect(room, Flags, caption).height();
}

QFont CaptionText::fitted(const QString& caption, QFont font, const QSize& room, QWidget* widget)
{
    const int least = UiScale::pointSize(LeastPoints, widget);
    while (font.pointSize() > least && !fits(caption, font, room))
        font.setPointSize(font.pointSize() - 1);
    return font;
}

void CaptionLabel::paintEvent(QPaintEvent*)
{
    const QString caption = CaptionText::drawn(text());
    QPainter painter(this);
    painter.setFont(CaptionText::fitted(caption, font(), contentsRect().size(), this));
    style()->drawItemText(&painter, contentsRect(), CaptionText::Flags, palette(), isEnabled(),
                          caption, foregroundRole());
}
