#include "MessagePage.h"

#include "MessageModel.h"
#include "Tables.h"
#include "Theme.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace pendant {

MessagePage::MessagePage(MessageModel& model, QWidget* parent)
    : QWidget(parent)
{
    auto* table = new QTableView(this);
    table->setObjectName(QStringLiteral("table_messages"));
    table->setModel(&model);
    makeReadOnlyTable(table, {90, 120});
    // Qt looks at the heights of the rows when rows come, not when the width changes. A scroll bar
    // that comes and goes with the heights would change the width in turn.
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    connect(table->horizontalHeader(), &QHeaderView::sectionResized, table,
            &QTableView::resizeRowsToContents);
    auto* clear = new QPushButton(tr("Clear"), this);
    clear->setObjectName(QStringLiteral("button_clearMessages"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::px(8));
    column->addWidget(table, 1);
    column->addWidget(clear, 0, Qt::AlignRight);
    connect(clear, &QPushButton::clicked, this, &MessagePage::clearClicked);
}

} // namespace pendant
