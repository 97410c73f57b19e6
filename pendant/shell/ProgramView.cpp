#include "ProgramView.h"

#include "InstructionCatalogue.h"
#include "ProgramDocument.h"
#include "Theme.h"

#include <QFontDatabase>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace pendant {

namespace {

constexpr int RowHeight = 30;  // for 96 dots per inch, for a finger
constexpr int LongShown = 500; // characters of a line; the rest is not painted

/// A stretch of a line in one colour.
struct Stretch
{
    QString text;
    QColor colour;
};

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
                characters * option.fontMetrics.horizontalAdvance(QLatin1Char('m')) + Theme::px(16),
            Theme::px(RowHeight)};
}

int LineDelegate::numberWidth(const QFontMetrics& metrics) const
{
    const int digits = qMax(3, QString::number(document.rowCount()).size());
    return metrics.horizontalAdvance(QString(digits, QLatin1Char('0'))) + Theme::px(12);
}

QVector<Stretch> LineDelegate::stretches(const QString& line) const
{
    const QColor ink(Theme::Ink);
    const int end = line.indexOf(QLatin1String("//"));
    const Stretch remark{end < 0 ? QString() : line.mid(end), QColor(Theme::Good)};
    const QString code = line.left(end < 0 ? line.size() : end);
    if (catalogue.find(line) < 0)
        return {{code, ink}, remark};
    const auto isWord = [](QChar sign) { return sign.isLetterOrNumber() || sign.isSpace(); };
    const auto* const stop = std::find_if_not(code.constBegin(), code.constEnd(), isWord);
    const int length = static_cast<int>(stop - code.constBegin());
    return {{code.left(length), QColor(Theme::Accent)}, {code.mid(length), ink}, remark};
}

void LineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setFont(option.font);
    if (selected)
        painter->fillRect(option.rect, QColor(Theme::Pressed));
    QRect place = option.rect;
    place.setWidth(numberWidth(option.fontMetrics) - Theme::px(8));
    painter->setPen(QColor(selected ? Theme::Ink : Theme::Off));
    painter->drawText(place, Qt::AlignRight | Qt::AlignVCenter, QString::number(index.row() + 1));
    place = option.rect.adjusted(numberWidth(option.fontMetrics), 0, 0, 0);
    QString line = document.line(index.row()).left(LongShown);
    line.replace(QLatin1Char('\t'), QLatin1String("    "));
    const QVector<Stretch> all = stretches(line);
    for (const Stretch& each : all) {
        painter->setPen(each.colour);
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter, each.text);
        place.setLeft(place.left() + option.fontMetrics.horizontalAdvance(each.text));
    }
    painter->restore();
}

} // namespace

ProgramView::ProgramView(ProgramDocument& document, const InstructionCatalogue& catalogue,
                         QWidget* parent)
    : QListView(parent)
{
    setObjectName(QStringLiteral("programView"));
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
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

void ProgramView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QListView::selectionChanged(selected, deselected);
    Q_EMIT selectionMoved();
}

} // namespace pendant
