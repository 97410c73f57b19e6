#include "WrappedHeader.h"

#include "CaptionText.h"
#include "OwnedTimer.h"
#include "UiScale.h"

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
    const QFont drawn = UiScale::font(CaptionPoints, parentWidget());
    for (int section = 0; section < count(); ++section)
        hint.setHeight(std::max(hint.height(), captionHeight(section, drawn) + PaddingY));
    return hint;
}

int WrappedHeader::captionHeight(int section, const QFont& drawn) const
{
    if (drawn != measuredIn)
        measured.clear();
    measuredIn = drawn;
    const int width = sectionSize(section) - PaddingX;
    Measured& known = measured[caption(section)];
    if (known.height == 0 || known.width != width)
        known = {width, CaptionText::height(caption(section), drawn, width)};
    return known.height;
}

void WrappedHeader::paintSection(QPainter* painter, const QRect& rect, int section) const
{
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = section;
    option.text = caption(section);
    option.textAlignment = Qt::Alignment(QFlag(CaptionText::Flags));
    style()->drawControl(QStyle::CE_Header, &option, painter, this);
}
