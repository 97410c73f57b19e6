#include "BriefLabel.h"

#include <QPainter>
#include <QTextLayout>

namespace pendant {

BriefLabel::BriefLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QStringList BriefLabel::linesFor(int width) const
{
    QString whole = text();
    whole.replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextLayout layout(whole, font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QVector<int> starts;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        starts << line.textStart();
    }
    layout.endLayout();
    whole.replace(QChar::LineSeparator, QLatin1Char(' '));
    if (starts.size() < 2)
        return whole.isEmpty() ? QStringList() : QStringList{whole};
    const QString first = whole.left(starts.at(1)).trimmed();
    const QString rest = whole.mid(starts.at(1)).trimmed();
    return {first, fontMetrics().elidedText(rest, Qt::ElideRight, width)};
}

QSize BriefLabel::sizeHint() const
{
    return {0, 2 * fontMetrics().lineSpacing()};
}

QSize BriefLabel::minimumSizeHint() const
{
    return sizeHint();
}

void BriefLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter,
                     linesFor(width()).join(QLatin1Char('\n')));
}

} // namespace pendant
