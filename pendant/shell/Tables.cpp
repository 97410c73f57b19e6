#include "Tables.h"

#include "Theme.h"

#include <QHeaderView>
#include <QTableView>

namespace pendant {

void makeReadOnlyTable(QTableView* table, std::initializer_list<int> widths)
{
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setFocusPolicy(Qt::NoFocus);
    table->setShowGrid(false);
    table->setWordWrap(true);
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    auto* head = table->horizontalHeader();
    head->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    head->setStretchLastSection(true);
    head->setHighlightSections(false);
    int column = 0;
    for (const int width : widths)
        table->setColumnWidth(column++, Theme::px(width));
}

} // namespace pendant
