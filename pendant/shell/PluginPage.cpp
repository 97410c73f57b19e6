#include "PluginPage.h"

#include "Phrases.h"
#include "Tables.h"
#include "Theme.h"

#include <QEvent>
#include <QTableWidget>
#include <QVBoxLayout>

namespace pendant {

namespace {

enum Column { State, Name, File, Reason, ColumnCount };

} // namespace

PluginPage::PluginPage(QWidget* parent)
    : QWidget(parent)
    , table(new QTableWidget(0, ColumnCount, this))
{
    table->setObjectName(QStringLiteral("table_plugins"));
    table->setHorizontalHeaderLabels({tr("State"), tr("Plugin"), tr("File"), tr("Reason")});
    makeReadOnlyTable(table, {100, 150, 220});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(table);
}

void PluginPage::setReports(const QVector<PluginReport>& reports)
{
    shown = reports;
    table->setRowCount(reports.size());
    for (int row = 0; row < reports.size(); ++row) {
        const PluginReport& report = reports.at(row);
        const QString cells[ColumnCount] = {report.loaded ? tr("Loaded") : tr("Not loaded"),
                                            report.name, report.file, phrase(report.reason)};
        for (int column = 0; column < ColumnCount; ++column)
            table->setItem(row, column, new QTableWidgetItem(cells[column]));
        table->item(row, State)->setForeground(Theme::colour(report.loaded ? Theme::Good : Theme::Bad));
    }
}

void PluginPage::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (Theme::isChange(*event))
        setReports(QVector<PluginReport>(shown));
}

} // namespace pendant
