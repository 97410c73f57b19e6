#include "CaptionText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int AnyHeight = 1000;
/// Smaller than this, in points, cannot be read at arm's length.
constexpr int LeastPoints = 7;

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

void CaptionLabel::paintEvent(QPaintEvent*)
{
    const QString caption = CaptionText::drawn(text());
    QPainter painter(this);
    painter.setFont(fittedFont(caption));
    style()->drawItemText(&painter, contentsRect(), CaptionText::Flags, palette(), isEnabled(),
                          caption, foregroundRole());
}

QFont CaptionLabel::fittedFont(const QString& caption) const
{
    QFont fitted = font();
    const QSize room = contentsRect().size();
    while (fitted.pointSize() > LeastPoints &&
           CaptionText::height(caption, fitted, room.width()) > room.height())
        fitted.setPointSize(fitted.pointSize() - 1);
    return fitted;
}
