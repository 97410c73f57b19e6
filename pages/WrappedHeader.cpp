#include "WrappedHeader.h"

#include "CaptionText.h"
#include "OwnedTimer.h"
#include "UiScale.h"

#include <QPainter>
#include <QStyleOptionHeader>
#include <QTableWidget>

#include <algorithm>

namespace {

// What the pages' sheets leave free beside and above the text of a section.
constexpr int PaddingX = 10;
constexpr int PaddingY = 8;
/// The sheets give the sections a font that is not the header's own.
constexpr int CaptionPoints = 10;

} // namespace

void WrappedHeader::install(QTableWidget* table)
{
    const QHeaderView* old = table->horizontalHeader();
    auto* header = new WrappedHeader(table);
    header->setMinimumSectionSize(old->minimumSectionSize());
    header->setDefaultSectionSize(old->defaultSectionSize());
    table->setHorizontalHeader(header);
}

WrappedHeader::WrappedHeader(QTableWidget* table)
    : QHeaderView(Qt::Horizontal, table)
{
    setSectionsClickable(true);
    connect(this, &QHeaderView::sectionResized, this, &WrappedHeader::followWidths);
}

// Columns are resized while the table lays itself out, which it does not begin again meanwhile.
void WrappedHeader::followWidths()
{
    if (isFollowing)
        return;
    isFollowing = true;
    ownedSingleShot(0, this, [this] {
        isFollowing = false;
        if (sizeHint().height() != height())
            Q_EMIT geometriesChanged();
    });
}

QString WrappedHeader::caption(int section) const
{
    return CaptionText::drawn(model()->headerData(section, orientation()).toString());
}

QSize WrappedHeader::sizeHint() const
{
    QSize hint = QHeaderView::sizeHint();
    for (int section = 0; section < count(); ++section)
        hint.setHeight(std::max(hint.height(), measuredCaption(section).height + PaddingY));
    return hint;
}

const WrappedHeader::Measured& WrappedHeader::measuredCaption(int section) const
{
    const QFont drawn = UiScale::font(CaptionPoints, parentWidget());
    if (drawn != measuredIn)
        measured.clear();
    measuredIn = drawn;
    const int width = sectionSize(section) - PaddingX;
    Measured& known = measured[caption(section)];
    if (known.height == 0 || known.width != width)
        known = measure(caption(section), drawn, width);
    return known;
}

WrappedHeader::Measured WrappedHeader::measure(const QString& text, const QFont& drawn,
                                               int width) const
{
    const QSize room(width, QWIDGETSIZE_MAX);
    const QFont fitted = CaptionText::fitted(text, drawn, room, parentWidget());
    return {width, CaptionText::height(text, fitted, width),
            double(fitted.pointSize()) / drawn.pointSize()};
}

// The font of the sections is the sheet's, so a caption is drawn smaller by the painter's scale.
void WrappedHeader::paintSection(QPainter* painter, const QRect& rect, int section) const
{
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = section;
    option.text = caption(section);
    option.textAlignment = Qt::Alignment(QFlag(CaptionText::Flags));
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);
    const double scale = measuredCaption(section).scale;
    const QRect room = style()->subElementRect(QStyle::SE_HeaderLabel, &option, this);
    option.rect = QRect(QPoint(), (QSizeF(room.size()) / scale).toSize());
    painter->save();
    painter->translate(room.topLeft());
    painter->scale(scale, scale);
    style()->drawControl(QStyle::CE_HeaderLabel, &option, painter, this);
    painter->restore();
}
