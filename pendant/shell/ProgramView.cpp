#include "ProgramView.h"

#include "InstructionCatalogue.h"
#include "ProgramDocument.h"
#include "ProgramLine.h"
#include "Theme.h"

#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace pendant {

namespace {

constexpr int RowHeight = 36;  // for 96 dots per inch, for a finger
constexpr int BarWidth = 4;    // for 96 dots per inch, beside a selected line
constexpr int LongShown = 500; // characters of a line; the rest is not painted

/// A stretch of a line in one colour.
struct Stretch
{
    QString text;
    QColor colour;
    bool isBold = false;
};

// All its characters are as wide as half a Chinese one.
QFont programFont(QFont font)
{
    font.setFamilies({QStringLiteral("Noto Sans Mono CJK SC"), QStringLiteral("monospace")});
    font.setStyleHint(QFont::Monospace);
    return font;
}

class LineDelegate : public QStyledItemDelegate
{
public:
    LineDelegate(const ProgramDocument& program, const InstructionCatalogue& instructions,
                 QObject* parent)
        : QStyledItemDelegate(parent)
        , document(program)
        , catalogue(instructions)
    {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    void paintLine(QPainter* painter, const QStyleOptionViewItem& option, int row) const;
    void paintNumber(QPainter* painter, const QStyleOptionViewItem& option, int row) const;
    int numberWidth(const QFontMetrics& metrics) const;
    QVector<Stretch> stretches(const QString& line) const;

    const ProgramDocument& document;
    const InstructionCatalogue& catalogue;
};

// Of all rows alike: the longest line counts, each byte as one character.
QSize LineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    const int characters = qMin(document.longestLine(), LongShown);
    return {numberWidth(option.fontMetrics) +
                characters * option.fontMetrics.horizontalAdvance(QLatin1Char('m')) + Theme::px(12),
            Theme::px(RowHeight)};
}

int LineDelegate::numberWidth(const QFontMetrics& metrics) const
{
    const int digits = qMax(3, QString::number(document.rowCount()).size());
    return metrics.horizontalAdvance(QString(digits, QLatin1Char('0'))) + Theme::px(22);
}

QVector<Stretch> LineDelegate::stretches(const QString& line) const
{
    const QColor ink = Theme::colour(Theme::Ink);
    const int end = commentStart(line);
    const Stretch remark{line.mid(end), Theme::colour(Theme::Good)};
    const QString code = line.left(end);
    if (catalogue.find(line) < 0)
        return {{code, ink}, remark};
    const auto isWord = [](QChar sign) { return sign.isLetterOrNumber() || sign.isSpace(); };
    const auto* const stop = std::find_if_not(code.constBegin(), code.constEnd(), isWord);
    const int length = static_cast<int>(stop - code.constBegin());
    return {{code.left(length), Theme::colour(Theme::Accent), true}, {code.mid(length), ink}, remark};
}

void LineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    painter->save();
    if (option.state.testFlag(QStyle::State_Selected))
        painter->fillRect(option.rect, Theme::colour(Theme::Pressed));
    paintLine(painter, option, index.row());
    paintNumber(painter, option, index.row());
    painter->restore();
}

void LineDelegate::paintLine(QPainter* painter, const QStyleOptionViewItem& option, int row) const
{
    QRect place = option.rect.adjusted(numberWidth(option.fontMetrics) + Theme::px(6), 0, 0, 0);
    QString line = document.line(row).left(LongShown);
    line.replace(QLatin1Char('\t'), QLatin1String("    "));
    const QVector<Stretch> all = stretches(line);
    for (const Stretch& each : all) {
        QFont font = option.font;
        font.setBold(each.isBold);
        painter->setFont(font);
        painter->setPen(each.colour);
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter, each.text);
        place.setLeft(place.left() + QFontMetrics(font).horizontalAdvance(each.text));
    }
}

// The number stays at the left edge when the line is scrolled aside.
void LineDelegate::paintNumber(QPainter* painter, const QStyleOptionViewItem& option, int row) const
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    QRect place(0, option.rect.top(), numberWidth(option.fontMetrics), option.rect.height());
    painter->fillRect(place, Theme::colour(isSelected ? Theme::Pressed : Theme::Ground));
    if (isSelected)
        painter->fillRect(QRect(place.topLeft(), QSize(Theme::px(BarWidth), place.height())),
                          Theme::colour(Theme::Accent));
    QFont font = option.font;
    font.setBold(isSelected);
    painter->setFont(font);
    painter->setPen(Theme::colour(isSelected ? Theme::Ink : Theme::MutedInk));
    painter->drawText(place.adjusted(0, 0, -Theme::px(8), 0), Qt::AlignRight | Qt::AlignVCenter,
                      QString::number(row + 1));
}

} // namespace

ProgramView::ProgramView(ProgramDocument& document, const InstructionCatalogue& catalogue,
                         QWidget* parent)
    : QListView(parent)
{
    setObjectName(QStringLiteral("programView"));
    setFont(programFont(font()));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ContiguousSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setItemDelegate(new LineDelegate(document, catalogue, this));
    setModel(&document);
}

int ProgramView::selectedFirst() const
{
    int first = -1;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection)
        first = first < 0 ? range.top() : qMin(first, range.top());
    return first;
}

int ProgramView::selectedCount() const
{
    int count = 0;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection)
        count += range.height();
    return count;
}

void ProgramView::select(int first, int count)
{
    const int last = qMin(first + count, model()->rowCount()) - 1;
    if (first < 0 || last < first) {
        clearSelection();
        return;
    }
    const QModelIndex start = model()->index(first, 0);
    selectionModel()->setCurrentIndex(start, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(start, model()->index(last, 0)),
                             QItemSelectionModel::ClearAndSelect);
    scrollTo(start);
}

// The numbers do not move aside with the lines.
void ProgramView::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    if (dx != 0)
        viewport()->update();
}

void ProgramView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QListView::selectionChanged(selected, deselected);
    Q_EMIT selectionMoved();
}

} // namespace pendant
