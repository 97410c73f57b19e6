#include "WeldioLayout.h"

#include "BoxModels.h"
#include "EnableButton.h"
#include "StyleHelpers.h"
#include "UiScale.h"
#include "WeldioPage.h"
#include "WeldioRow.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTableWidget>

#include <algorithm>
#include <array>
#include <numeric>

namespace {

enum Column { Number, Name, Type, Assign, Enable, ColumnCount };

// A row's height, in pixels.
constexpr int LowestRow = 20;
constexpr int HighestRow = 28;
constexpr int LeastRoomPerRow = 15; ///< below it the rows are left as they are
// Room of a table that has not been laid out yet is taken from its parent.
constexpr int NarrowestViewport = 80;
constexpr int LowestViewport = 32;

constexpr QSize SwitchSize(50, 24);

const char TableSheet[] =
    R"(QTableWidget{gridline-color:#e8e8e8;border:none;background:transparent;)"
    R"(font:400 9pt "Microsoft YaHei UI";})"
    R"(QTableWidget::item{padding:0px 2px;border:none;})"
    R"(QTableWidget::item:selected{background:transparent;color:#202020;})"
    R"(QTableWidget QHeaderView{background:#f5f5f5;border:none;})"
    R"(QTableWidget QHeaderView::section{background:#f5f5f5;color:#202020;border:none;)"
    R"(border-bottom:1px solid #c8c8c8;border-right:1px solid #e8e8e8;padding:%1px %2px;)"
    R"(font:400 9pt "Microsoft YaHei UI";})"
    R"(QTableWidget QHeaderView::section:last{border-right:none;}%3)";

const char BiasSheet[] =
    R"(QComboBox{background:#ffffff;color:#202020;border:1px solid #E4E4E4;border-radius:%2px;)"
    R"(padding:0px %3px 0px 4px;combobox-popup:0;font:400 9pt "Microsoft YaHei UI";)"
    R"(min-height:%1px;max-height:%1px;})"
    R"(QComboBox::drop-down{subcontrol-origin:padding;subcontrol-position:top right;width:%4px;)"
    R"(border:none;})"
    R"(QComboBox::down-arrow{image:url(:/qelLaserWelding/png/arrow/down_arrow_white.png);)"
    R"(width:10px;height:10px;})"
    R"(QComboBox:disabled{background:#f5f5f5;color:#A3A4A4;border:1px solid #E4E4E4;})"
    R"(QComboBox:focus{outline:none;})"
    R"(QComboBox QAbstractItemView{background:#ffffff;border:1px solid #E4E4E4;outline:0;)"
    R"(selection-background-color:#007cf9;selection-color:#ffffff;})"
    R"(QComboBox QAbstractItemView::item{min-height:%1px;padding:2px 6px;})"
    R"(QComboBox QAbstractItemView::item:selected{background:#007cf9;color:#ffffff;})";

/// Lets a cell reach over the lines of the grid, where its own lines are drawn. By itself Qt keeps
/// it within the padding of an item, and its lines beside those of the grid.
class WholeCellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex&) const override
    {
        editor->setGeometry(option.rect.adjusted(0, 0, 1, 1));
    }
};

const char LabelSheet[] = "background:transparent;border:none;";
const char CellSheet[] = "background:transparent;border:none;border-bottom:1px solid #e8e8e8;";
const char CellSheetWithEdge[] = "background:transparent;border:none;border-bottom:1px solid "
                                 "#e8e8e8;border-right:1px solid #e8e8e8;";

QString tableStyleSheet(QWidget* page)
{
    const QFontMetrics metrics(UiScale::font(10, page));
    const QString combo = comboStyleSheet(page, std::max(20, metrics.height() + 2),
                                          std::max(4, UiScale::pixels(6, page)),
                                          std::max(18, UiScale::pixels(22, page)), true);
    return QString(QLatin1String(TableSheet))
        .arg(UiScale::pixels(4, page))
        .arg(UiScale::pixels(8, page))
        .arg(combo);
}

QString biasStyleSheet(int height)
{
    return QString(QLatin1String(BiasSheet)).arg(std::max(16, height)).arg(4).arg(16).arg(14);
}

QString boxStyleSheet(QWidget* page, int height)
{
    return comboStyleSheet(page, std::max(height - 4, 14), std::max(4, UiScale::pixels(6, page)),
                           std::max(18, UiScale::pixels(22, page)), false);
}

int widestPort(const QFont& font, const QVector<WeldioRow>& rows)
{
    int widest = 0;
    for (const WeldioRow& row : rows) {
        if (const auto* ports = dynamic_cast<const PortListModel*>(row.portBox->model()))
            widest = std::max(widest, ports->widestName(font));
    }
    return widest;
}

// Setters that leave alone what is in place: Qt lays out anew also for what does not change.

void setPolicy(QWidget* widget, QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical)
{
    const QSizePolicy before = widget->sizePolicy();
    if (before.horizontalPolicy() != horizontal || before.verticalPolicy() != vertical)
        widget->setSizePolicy(horizontal, vertical);
}

QStringList headerTexts()
{
    return {WeldioPage::tr("NO."), WeldioPage::tr("Name"), WeldioPage::tr("Type"),
            WeldioPage::tr("Assign"), WeldioPage::tr("ENB/DIS")};
}

void setHeaderTexts(QTableWidget* table)
{
    const QStringList texts = headerTexts();
    for (int column = 0; column < texts.size(); ++column) {
        const QTableWidgetItem* item = table->horizontalHeaderItem(column);
        if (!item || item->text() != texts.at(column)) {
            table->setHorizontalHeaderLabels(texts);
            return;
        }
    }
}

void styleHeader(QTableWidget* table, const QFont& font, int leastSection)
{
    QHeaderView* header = table->horizontalHeader();
    if (header->font() != font)
        header->setFont(font);
    header->setFixedHeight(std::max(QFontMetrics(font).height() + 9, 24));
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    if (header->minimumSectionSize() != leastSection)
        header->setMinimumSectionSize(leastSection);
    if (header->stretchLastSection())
        header->setStretchLastSection(false);
}

QVector<int> columnWidths(const QTableWidget* table)
{
    QVector<int> widths(table->columnCount());
    for (int column = 0; column < widths.size(); ++column)
        widths[column] = table->columnWidth(column);
    return widths;
}

void setColumnWidths(QTableWidget* table, const QVector<int>& widths)
{
    const bool areNew = columnWidths(table) != widths;
    QHeaderView* header = table->horizontalHeader();
    for (int column = 0; column < widths.size(); ++column) {
        table->setColumnWidth(column, widths.at(column));
        if (header->sectionResizeMode(column) != QHeaderView::Fixed)
            header->setSectionResizeMode(column, QHeaderView::Fixed);
    }
    // The scroll bar below takes its room at once, and not after the rows have been given theirs.
    if (areNew)
        QMetaObject::invokeMethod(table, "updateGeometries", Qt::DirectConnection);
}

void clearAlignment(QTableWidget* table)
{
    QLayout* layout = table->parentWidget()->layout();
    const int place = layout ? layout->indexOf(table) : -1;
    if (place >= 0 && layout->itemAt(place)->alignment())
        layout->setAlignment(table, Qt::Alignment());
}

void releaseTable(QTableWidget* table)
{
    table->setMinimumWidth(0);
    table->setMaximumWidth(QWIDGETSIZE_MAX);
    setPolicy(table, QSizePolicy::Expanding, QSizePolicy::Expanding);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    clearAlignment(table);
}

void showWholeCells(QTableWidget* table)
{
    if (table->itemDelegateForColumn(Type))
        return;
    auto* delegate = new WholeCellDelegate(table);
    for (const Column column : {Type, Assign, Enable})
        table->setItemDelegateForColumn(column, delegate);
}

void styleTable(QTableWidget* table)
{
    if (table->frameStyle() != QFrame::NoFrame)
        table->setFrameStyle(QFrame::NoFrame);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setFocusPolicy(Qt::NoFocus);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    table->verticalHeader()->setVisible(false);
    showWholeCells(table);
    // By itself Qt keeps a row as high as its text with some air.
    if (table->verticalHeader()->minimumSectionSize() != LowestRow)
        table->verticalHeader()->setMinimumSectionSize(LowestRow);
    table->horizontalHeader()->setHighlightSections(false);
}

/// Width that the columns may take.
int roomForColumns(const QTableWidget* table)
{
    const int width = table->viewport()->width();
    if (width >= NarrowestViewport)
        return width;
    const QWidget* parent = table->parentWidget();
    const QLayout* layout = parent->layout();
    const QMargins margins = layout ? layout->contentsMargins() : QMargins();
    const int edges = layout ? margins.left() + margins.right() : UiScale::pixels(8, nullptr);
    return std::max(parent->width() - edges, 0);
}

/// Height that the rows may take.
int roomForRows(const QTableWidget* table)
{
    const int height = table->viewport()->height();
    if (height >= LowestViewport)
        return height;
    const QWidget* parent = table->parentWidget();
    const QLayout* layout = parent->layout();
    const QMargins margins = layout ? layout->contentsMargins() : QMargins();
    const int edges = margins.top() + margins.bottom() + table->horizontalHeader()->height();
    return std::max(parent->height() - edges, 0);
}

/// What is left over goes to the names, up to a limit, and to the assignments.
void shareRest(QVector<int>& widths, int room, int mostForNames)
{
    const int rest = room - std::accumulate(widths.cbegin(), widths.cend(), 0);
    if (rest <= 0)
        return;
    const int forNames = std::min(rest / 4, mostForNames);
    widths[Name] += forNames;
    widths[Assign] += rest - forNames;
}

void styleCell(QWidget* cell, int column)
{
    if (column < Type)
        return;
    const bool hasEdge = column == Type || column == Assign;
    cell->setAttribute(Qt::WA_StyledBackground);
    UiScale::setStyleSheet(cell, QLatin1String(hasEdge ? CellSheetWithEdge : CellSheet));
}

void setRowHeights(QTableWidget* table, int height)
{
    for (int row = 0; row < table->rowCount(); ++row) {
        table->setRowHeight(row, height);
        for (int column = 0; column < table->columnCount(); ++column) {
            if (QWidget* cell = table->cellWidget(row, column)) {
                cell->setFixedHeight(height);
                styleCell(cell, column);
            }
        }
    }
}

void arrangeLabel(QLabel* label, int height)
{
    if (label->wordWrap())
        label->setWordWrap(false);
    setPolicy(label, QSizePolicy::Expanding, QSizePolicy::Expanding);
    label->setFixedHeight(height);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    UiScale::setStyleSheet(label, QLatin1String(LabelSheet));
}

void styleBox(QComboBox* box, const QString& sheet, int height)
{
    UiScale::tuneComboPopup(box, 10); // first: a sheet makes the popup lay out its rows
    UiScale::setScaledSheet(box, sheet);
    box->setFixedHeight(height);
}

/// A popup that has not been shown keeps the frame that it was made with.
void refreshFrame(QAbstractItemView* view)
{
    if (view->contentsMargins().left() == view->frameWidth())
        return;
    QEvent change(QEvent::StyleChange);
    QCoreApplication::sendEvent(view, &change);
}

} // namespace

WeldioLayout::WeldioLayout(QWidget* servedPage, const QVector<SignalTable>& signalTables)
    : page(servedPage)
    , tables(signalTables)
{}

void WeldioLayout::setSheets()
{
    const QString sheet = tableStyleSheet(page);
    for (const SignalTable& table : qAsConst(tables))
        UiScale::setStyleSheet(table.widget, sheet, page);
}

void WeldioLayout::styleTables()
{
    setSheets();
    for (const SignalTable& table : qAsConst(tables))
        styleTable(table.widget);
    arrangeTables();
}

void WeldioLayout::arrangeTables()
{
    for (const SignalTable& table : qAsConst(tables))
        arrangeColumns(table);
    for (const SignalTable& table : qAsConst(tables))
        arrangeRows(table);
}

void WeldioLayout::arrangeColumns(const SignalTable& table)
{
    setHeaderTexts(table.widget);
    styleHeader(table.widget, UiScale::font(9, page), UiScale::pixels(28, page));
    QVector<int> widths = neededColumns(table);
    shareRest(widths, roomForColumns(table.widget), UiScale::pixels(64, page));
    setColumnWidths(table.widget, widths);
    releaseTable(table.widget);
}

QVector<int> WeldioLayout::neededColumns(const SignalTable& table)
{
    const QStringList texts = headerTexts();
    const auto header = [&](Column column) { return textWidth(texts.at(column)); };
    const int largestNumber = textWidth(QLatin1String("15"));

    QVector<int> widths(ColumnCount);
    widths[Number] = std::max({header(Number) + 14, 44, largestNumber + 14});
    widths[Name] = std::max({header(Name) + 14, 120, widestCaption(table) + 14});
    widths[Type] = std::max({header(Type) + 14, 84, 40 + widestKind(table), 92});
    widths[Assign] =
        std::max(header(Assign) + UiScale::pixels(14, page), neededAssignColumn(table));
    widths[Enable] =
        std::max({header(Enable) + UiScale::pixels(14, page), UiScale::pixels(72, page),
                  UiScale::pixels(10, page) + SwitchSize.width()});
    return widths;
}

// A caption may be drawn larger than the text of the table.
int WeldioLayout::widestCaption(const SignalTable& table)
{
    int widest = 0;
    for (const WeldioRow& row : *table.rows) {
        row.nameLabel->ensurePolished();
        const QString caption = row.nameLabel->text();
        widest = std::max(
            {widest, textWidth(caption), captionWidths.of(caption, row.nameLabel->font())});
    }
    return widest;
}

int WeldioLayout::widestKind(const SignalTable& table)
{
    const QFont font = UiScale::font(10, page);
    int widest = boxWidths.of(QLatin1String("REG"), font);
    for (const WeldioRow& row : *table.rows) {
        for (int index = 0; index < row.typeBox->count(); ++index)
            widest = std::max(widest, boxWidths.of(row.typeBox->itemText(index), font));
    }
    return widest;
}

int WeldioLayout::textWidth(const QString& text)
{
    return tableWidths.of(text, UiScale::font(9, page));
}

// A port that is empty keeps room for one, and the bias has its own beside it.
int WeldioLayout::neededAssignColumn(const SignalTable& table)
{
    const int port = widestPort(UiScale::font(9, page), *table.rows);
    const int withPort = port > 0 ? port + UiScale::pixels(36, page) : 0;
    return biasWidth() + std::max(withPort, UiScale::pixels(96, page));
}

int WeldioLayout::biasWidth()
{
    return std::max(textWidth(QLatin1String("88")) + 24, 48);
}

void WeldioLayout::arrangeRows(const SignalTable& table)
{
    const int count = table.widget->rowCount();
    if (count == 0)
        return;
    table.widget->setMinimumHeight(0);
    table.widget->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int room = roomForRows(table.widget);
    if (room < LeastRoomPerRow * count)
        return;
    const int height = std::clamp(room / count, LowestRow, HighestRow);
    setRowHeights(table.widget, height);
    for (const WeldioRow& row : *table.rows) {
        arrangeLabel(row.nameLabel, height);
        if (row.enableSwitch)
            row.enableSwitch->setFixedSize(SwitchSize);
    }
    arrangeBoxes(table, std::max(height - 8, 16));
}

void WeldioLayout::arrangeBoxes(const SignalTable& table, int height)
{
    const QString biasSheet = UiScale::styleSheet(biasStyleSheet(height), page);
    const QString boxSheet = UiScale::styleSheet(boxStyleSheet(page, height), page);
    const int typeWidth = std::max(table.widget->columnWidth(Type) - UiScale::pixels(8, page),
                                   UiScale::pixels(76, page));
    for (const WeldioRow& row : *table.rows) {
        styleBox(row.typeBox, boxSheet, height);
        row.typeBox->setFixedWidth(typeWidth);
        styleBox(row.portBox, boxSheet, height);
        arrangePort(row.portBox);
        styleBox(row.biasBox, biasSheet, height);
        arrangeBias(row.biasBox);
    }
}

void WeldioLayout::arrangeBias(QComboBox* box)
{
    refreshFrame(box->view());
    WeldioRow::reselect(box);
    box->setFixedWidth(biasWidth());
    setPolicy(box, QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void WeldioLayout::arrangePort(QComboBox* box)
{
    setPolicy(box, QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->setSizeAdjustPolicy(PortSizePolicy);
    box->setMinimumWidth(0);
    box->setMaximumWidth(QWIDGETSIZE_MAX);
}
