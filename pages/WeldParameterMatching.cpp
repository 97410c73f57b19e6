// The matching records of WeldParameterPage.

#include "CaptionText.h"
#include "EnableButton.h"
#include "Host.h"
#include "UiScale.h"
#include "WeldParameterPage.h"
#include "ui_WeldParameterPage.h"

#include <qelplugin.h>

#include <QDebug>

#include <algorithm>
#include <array>

namespace {

constexpr char ServiceKey[] = "weld_param_match";
constexpr char Command[] = "set_weld_param_match_config";

constexpr int RecordCount = 10;
/// The list shows the highest row of a record.
constexpr int ListedRow = 3;

// The table: two rows of headers, then the data.
constexpr int HeaderRows = 2;
constexpr int DataRows = 4;
constexpr int HeaderHeight = 38;
constexpr int FirstColumnWidth = 60;
constexpr QSize SwitchSize(50, 24);

/// A column of values. A switch says whether it takes part; the speed always does.
struct ValueColumn
{
    int column;
    const char* caption;
    int least;
    int most;
    const char* enableKey; ///< null without a switch
    const char* name;      ///< in the log
    const char* message;
};

// In the order of a row's values.
constexpr ValueColumn Speed{
    1,
    QT_TRANSLATE_NOOP("WeldParameterPage", "Welding Speed (mm/s)"),
    0,
    1000,
    nullptr,
    "Speed",
    QT_TRANSLATE_NOOP("WeldParameterPage",
                      "Speed parameter validation failed between row %1 and row %2. Row %1 value "
                      "must be less than row %2.")};
constexpr ValueColumn Power{
    2,
    QT_TRANSLATE_NOOP("WeldParameterPage", "Power (W)"),
    0,
    10000,
    "power_enable",
    "Power",
    QT_TRANSLATE_NOOP("WeldParameterPage",
                      "Power parameter validation failed between row %1 and row %2. Row %1 value "
                      "must be less than row %2.")};
constexpr ValueColumn Frequency{
    3,
    QT_TRANSLATE_NOOP("WeldParameterPage", "Frequency (Hz)"),
    10,
    10000,
    "frequency_enable",
    "Frequency",
    QT_TRANSLATE_NOOP("WeldParameterPage",
                      "Frequency parameter validation failed between row %1 and row %2. Row %1 "
                      "value must be less than row %2.")};
constexpr ValueColumn DutyCycle{
    4,
    QT_TRANSLATE_NOOP("WeldParameterPage", "Duty Cycle (%)"),
    0,
    100,
    "dutycycle_enable",
    "Duty Cycle",
    QT_TRANSLATE_NOOP("WeldParameterPage",
                      "Duty Cycle parameter validation failed between row %1 and row %2. Row %1 "
                      "value must be less than row %2.")};

constexpr std::array<const ValueColumn*, 4> ValueColumns{&Speed, &Power, &Frequency, &DutyCycle};
constexpr std::array<const ValueColumn*, 3> SwitchedColumns{&Power, &Frequency, &DutyCycle};
/// The speed is checked last.
constexpr std::array<const ValueColumn*, 4> CheckOrder{&Power, &Frequency, &DutyCycle, &Speed};

QJsonValue serviceData()
{
    return qelplugin::qelPluginInterface().getQelServiceData(QLatin1String(ServiceKey));
}

QSpinBox* spinBox(const QTableWidget* table, int row, int column)
{
    return qobject_cast<QSpinBox*>(table->cellWidget(row, column));
}

QTableWidgetItem* centredItem(const QString& text)
{
    auto* item = new QTableWidgetItem(text);
    item->setTextAlignment(Qt::AlignCenter);
    return item;
}

void setCell(QTableWidget* table, int row, int column, const QString& text)
{
    if (QTableWidgetItem* item = table->item(row, column))
        item->setText(text);
    else
        table->setItem(row, column, centredItem(text));
}

/// The list's values of a record; empty when it has none, after a warning where it is malformed.
QJsonArray listedValues(const QString& key, const QJsonValue& value)
{
    if (!value.isObject()) {
        qWarning() << "setTableMatchData:" << key << "is not an object";
        return {};
    }
    const QJsonObject record = value.toObject();
    const QLatin1String dataKey("power_data");
    if (!record.contains(dataKey)) {
        qWarning() << "setTableMatchData:" << key << "does not contain power_data";
        return {};
    }
    if (!record.value(dataKey).isArray()) {
        qWarning() << "setTableMatchData:" << key << "power_data is not an array";
        return {};
    }
    const QJsonArray rows = record.value(dataKey).toArray();
    if (rows.isEmpty())
        qWarning() << "setTableMatchData:" << key << "power_data array is empty";
    return rows.at(ListedRow).toArray();
}

QSpinBox* newEditor(const ValueColumn& column, int value, QWidget* page)
{
    auto* editor = new QSpinBox;
    editor->setRange(column.least, column.most);
    editor->setValue(value);
    editor->setButtonSymbols(QAbstractSpinBox::NoButtons);
    editor->setAlignment(Qt::AlignCenter);
    editor->setFont(UiScale::font(10, page));
    UiScale::setStyleSheet(
        editor, QLatin1String("QSpinBox { border: none; background: transparent; }"), page);
    return editor;
}

void growTable(QTableWidget* table, int rows, int columns)
{
    if (table->rowCount() < rows)
        table->setRowCount(rows);
    if (table->columnCount() < columns)
        table->setColumnCount(columns);
}

/// Sets the row's editors; false when none was found for a value.
bool showRow(const QTableWidget* table, const QJsonArray& values, int row, int startColumn,
             int columns)
{
    bool found = false;
    for (int index = 0; index < std::min(values.size(), columns); ++index) {
        if (QSpinBox* editor = spinBox(table, row, startColumn + index)) {
            editor->setValue(values.at(index).toInt());
            found = true;
        } else {
            qWarning() << "parseMatchParamToTable: missing spinbox at" << row
                       << startColumn + index;
        }
    }
    return found;
}

/// Shows the rows of a record; false when no value was found.
bool showRows(QTableWidget* table, const QJsonArray& data, int startRow, int startColumn, int rows,
              int columns)
{
    growTable(table, startRow + rows, startColumn + columns);
    bool found = false;
    for (int index = 0; index < rows; ++index) {
        if (data.at(index).isArray())
            found =
                showRow(table, data.at(index).toArray(), startRow + index, startColumn, columns) ||
                found;
        else
            qWarning() << "parseMatchParamToTable: 'power_data' element" << index
                       << "is not an array";
    }
    if (!found)
        qWarning() << "parseMatchParamToTable: No valid data found in 'power_data' array";
    return found;
}

/// The first reason for which nothing can be parsed; false without one.
bool isUnusable(const QJsonObject& processData, const QString& key, const QTableWidget* table,
                const std::array<int, 4>& place)
{
    if (processData.isEmpty())
        qWarning() << "parseMatchParamToTable: Process data is empty";
    else if (key.isEmpty())
        qWarning() << "parseMatchParamToTable: PowerData parameter is empty";
    else if (!table)
        qWarning() << "parseMatchParamToTable: TableWidget pointer is null";
    else if (place[0] < 0 || place[1] < 0 || place[2] < 1 || place[3] < 1)
        qWarning() << "parseMatchParamToTable: Invalid position or size parameters";
    else if (!processData.contains(key))
        qWarning() << "parseMatchParamToTable: PowerData" << key << "not found";
    else if (!processData.value(key).isObject())
        qWarning() << "parseMatchParamToTable: PowerData" << key << "value is not a JSON object";
    else
        return false;
    return true;
}

/// The value of a cell for the record; `used` is set when the cell holds one.
double cellValue(const QTableWidget* table, int row, int column, bool& used)
{
    if (const QSpinBox* editor = spinBox(table, row, column)) {
        used = true;
        return editor->value();
    }
    const QTableWidgetItem* item = table->item(row, column);
    bool isNumber = false;
    const double value = item ? item->text().toDouble(&isNumber) : 0;
    used = used || isNumber;
    return isNumber ? value : 0;
}

/// Whether the value rises from the row to the next; tells the operator when it does not.
bool checkRise(const QTableWidget* table, int row, const ValueColumn& column)
{
    const int earlier = spinBox(table, row, column.column)->value();
    const int later = spinBox(table, row + 1, column.column)->value();
    if (earlier < later)
        return true;
    const QByteArray failure = QByteArray("validateMatchingTableParams: ") + column.name +
                               " validation failed at data row";
    qWarning() << failure.constData() << row << ". Previous:" << earlier << " Current:" << later;
    const int dataRow = row - HeaderRows + 1;
    Host::tellWarning(WeldParameterPage::tr(column.message).arg(dataRow).arg(dataRow + 1));
    return false;
}

bool hasEditors(const QTableWidget* table, int row)
{
    return std::all_of(ValueColumns.begin(), ValueColumns.end(),
                       [&](const ValueColumn* each) { return spinBox(table, row, each->column); });
}

} // namespace

void WeldParameterPage::setTableMatchData()
{
    const QJsonValue value = serviceData();
    if (!value.isObject()) {
        qWarning() << "setTableMatchData: weld_param_match is not an object or not found";
        return;
    }
    const QJsonObject records = value.toObject();
    for (int row = 0; row < RecordCount; ++row) {
        const QString key = QLatin1String("PowerData") + QString::number(row + 1);
        if (!records.contains(key))
            continue;
        const QJsonArray values = listedValues(key, records.value(key));
        if (values.size() < static_cast<int>(ValueColumns.size()))
            continue;
        for (const ValueColumn* each : ValueColumns)
            setCell(ui->tableWidget_2, row, each->column,
                    QString::number(values.at(each->column - 1).toInt()));
    }
}

void WeldParameterPage::initMatchingTable()
{
    QTableWidget* table = ui->tableWidget_matching;
    table->setFrameShape(QFrame::NoFrame);
    QHeaderView* header = table->horizontalHeader();
    header->hide();
    header->setHighlightSections(false);
    header->setSectionResizeMode(QHeaderView::Stretch);
    header->setSectionResizeMode(0, QHeaderView::Fixed);
    table->setColumnWidth(0, FirstColumnWidth);
    table->clearSpans();
    while (table->rowCount() < HeaderRows)
        table->insertRow(table->rowCount());
    for (int row = 0; row < HeaderRows; ++row)
        table->setRowHeight(row, HeaderHeight);
    table->setCellWidget(0, 0, makeHeaderCell(tr("No."), table));
    table->setCellWidget(0, 1, makeHeaderCell(tr("Enable"), table));
    table->setCellWidget(1, 0, makeHeaderCell(QString(), table));
    for (const ValueColumn* each : ValueColumns)
        table->setCellWidget(1, each->column, makeHeaderCell(tr(each->caption), table));
    for (const ValueColumn* each : SwitchedColumns)
        ensureEnableCell(each->column);
    for (int i = 1; i <= DataRows; ++i)
        addMatchingRow(table, i, 10 * i, 100 * i, 100 * i, 10 * i);
}

QWidget* WeldParameterPage::makeHeaderCell(const QString& text, QTableWidget* table)
{
    auto* label = new CaptionLabel(text, table);
    label->setAlignment(Qt::AlignCenter);
    UiScale::setStyleSheet(label,
                           QLatin1String(R"(QLabel{border:none;background:transparent;)"
                                         R"(font:400 10pt "Segoe UI";color:#202020;})"),
                           table);
    return label;
}

EnableButton* WeldParameterPage::findEnableButton(const QTableWidget* table, int column)
{
    const QWidget* cell = table->cellWidget(0, column);
    return cell ? cell->findChild<EnableButton*>() : nullptr;
}

bool WeldParameterPage::hasMatchingHeader() const
{
    return std::all_of(SwitchedColumns.begin(), SwitchedColumns.end(), [this](const auto* each) {
        return ui->tableWidget_matching->cellWidget(0, each->column) != nullptr;
    });
}

void WeldParameterPage::ensureEnableCell(int column)
{
    QTableWidget* table = ui->tableWidget_matching;
    EnableButton* button = findEnableButton(table, column);
    if (!button) {
        auto* cell = new QWidget;
        UiScale::expand(cell);
        UiScale::setStyleSheet(cell, QLatin1String("background:transparent;"), table);
        button = new EnableButton(cell);
        auto* row = new QHBoxLayout;
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(0);
        row->addStretch();
        row->addWidget(button);
        row->addStretch();
        auto* halfway = new QVBoxLayout(cell);
        halfway->setContentsMargins(2, 2, 2, 2);
        halfway->setSpacing(0);
        halfway->addStretch();
        halfway->addLayout(row);
        halfway->addStretch();
        table->setCellWidget(0, column, cell);
    }
    button->setFixedSize(SwitchSize);
}

void WeldParameterPage::addMatchingRow(QTableWidget* table, int i, int speed, int power,
                                       int frequency, int duty)
{
    const int row = i + 1;
    while (table->rowCount() <= row)
        table->insertRow(table->rowCount());
    QTableWidgetItem* number = centredItem(QString::number(i));
    number->setFlags(number->flags() & ~Qt::ItemIsEditable);
    table->setItem(row, 0, number);
    const int values[] = {speed, power, frequency, duty};
    for (const ValueColumn* each : ValueColumns)
        table->setCellWidget(row, each->column, newEditor(*each, values[each->column - 1], this));
    table->setRowHeight(row, UiScale::rowHeight(this));
}

// A record that was never saved shows what the table held before.
void WeldParameterPage::loadMatchData(const QString& key)
{
    const QJsonObject records = key.isEmpty() ? QJsonObject() : serviceData().toObject();
    if (!key.isEmpty() && !records.contains(key))
        qDebug() << "has No value " << key;
    if (!records.contains(key) || key.isEmpty()) {
        if (!hasMatchingHeader())
            initMatchingTable();
        return;
    }
    QTableWidget* table = ui->tableWidget_matching;
    table->clearContents();
    table->setRowCount(0);
    initMatchingTable();
    parseMatchParamToTable(records, key, table, HeaderRows, 1, DataRows,
                           static_cast<int>(ValueColumns.size()));
}

bool WeldParameterPage::parseMatchParamToTable(const QJsonObject& processData,
                                               const QString& powerDataKey, QTableWidget* table,
                                               int startRow, int startColumn, int maxRows,
                                               int maxColumns)
{
    if (isUnusable(processData, powerDataKey, table, {startRow, startColumn, maxRows, maxColumns}))
        return false;
    const QJsonObject record = processData.value(powerDataKey).toObject();
    for (const ValueColumn* each : SwitchedColumns) {
        if (EnableButton* button = findEnableButton(table, each->column))
            button->setChecked(record.value(QLatin1String(each->enableKey)).toBool());
    }
    const QJsonValue stored = record.value(QLatin1String("power_data"));
    if (stored.isUndefined()) {
        qWarning() << "parseMatchParamToTable: 'power_data' field not found";
        return false;
    }
    if (!stored.isArray()) {
        qWarning() << "parseMatchParamToTable: 'power_data' is not an array";
        return false;
    }
    const QJsonArray rows = stored.toArray();
    if (rows.isEmpty()) {
        qWarning() << "parseMatchParamToTable: 'power_data' array is empty";
        return true;
    }
    return showRows(table, rows, startRow, startColumn, std::min(rows.size(), maxRows),
                    std::min(maxColumns, static_cast<int>(ValueColumns.size())));
}

bool WeldParameterPage::validateMatchingTableParams() const
{
    const QTableWidget* table = ui->tableWidget_matching;
    if (!table) {
        qWarning() << "validateMatchingTableParams: tableWidget_matching is null";
        return false;
    }
    if (table->rowCount() < HeaderRows + DataRows) {
        qWarning() << "validateMatchingTableParams: table does not have enough rows";
        return false;
    }
    const auto takesPart = [table](const ValueColumn* column) {
        const EnableButton* button =
            column->enableKey ? findEnableButton(table, column->column) : nullptr;
        return !button || button->isChecked();
    };
    for (int row = HeaderRows; row < HeaderRows + DataRows - 1; ++row) {
        if (!hasEditors(table, row) || !hasEditors(table, row + 1)) {
            qWarning() << "validateMatchingTableParams: missing spinbox widgets at data row" << row;
            return false;
        }
        for (const ValueColumn* each : CheckOrder) {
            if (takesPart(each) && !checkRise(table, row, *each))
                return false;
        }
    }
    return true;
}

QJsonObject WeldParameterPage::createMatchDataJson() const
{
    const QString key = ui->label_ProcessID->text();
    if (key.isEmpty()) {
        qWarning() << "createMatchDataJson: PowerDataID is empty";
        return {};
    }
    const QTableWidget* table = ui->tableWidget_matching;
    QJsonObject record{{QLatin1String("PowerDataID"), key}};
    for (const ValueColumn* each : SwitchedColumns) {
        const EnableButton* button = findEnableButton(table, each->column);
        record.insert(QLatin1String(each->enableKey), button && button->isChecked());
    }
    QJsonArray rows;
    for (int row = HeaderRows; row < table->rowCount(); ++row) {
        bool used = false;
        QJsonArray values;
        for (const ValueColumn* each : ValueColumns)
            values.append(cellValue(table, row, each->column, used));
        if (used)
            rows.append(values);
    }
    record.insert(QLatin1String("power_data"), rows);
    return {{QLatin1String(Command), QJsonObject{{key, record}}}};
}
