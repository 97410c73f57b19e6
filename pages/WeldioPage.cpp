#include "WeldioPage.h"

#include "CommandReply.h"
#include "EnableButton.h"
#include "Host.h"
#include "Log.h"
#include "OwnedTimer.h"
#include "StyleHelpers.h"
#include "UiScale.h"
#include "WeldSettingPage.h"
#include "WeldioLayout.h"
#include "ui_WeldioPage.h"

#include <qelplugin.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSet>
#include <QSignalBlocker>
#include <QTableWidgetItem>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <optional>
#include <utility>

namespace {

constexpr char ConfigKey[] = "weld_io_config";
constexpr char SaveCommand[] = "set_weld_io_config";

/// Milliseconds in which causes of a layout are gathered; one frame.
constexpr int LayoutDelay = 16;

enum Column { Number, Name, Type, Assign, Enable };

QString jsonKey(const WeldioRow& row, const char* suffix)
{
    return row.key + QLatin1String(suffix);
}

QString nameOf(const char* pattern, const QString& stem)
{
    return QString(QLatin1String(pattern)).arg(stem);
}

/// The switch of one row has another stem than its boxes.
QString switchStem(const QString& key)
{
    return key == QLatin1String("adhesion_detection_en") ? QLatin1String("adhesion_detection")
                                                         : key;
}

QComboBox* newBox(QHBoxLayout* cell, const char* pattern, const QString& key)
{
    auto* box = new QComboBox(cell->parentWidget());
    cell->addWidget(box);
    box->setObjectName(nameOf(pattern, key));
    return box;
}

/// Puts a cell into the table that holds a row of widgets halfway up. The widgets are added after
/// it: a cell that is put in with its contents measures them at once.
QHBoxLayout* addCell(QTableWidget* table, int row, int column, int spacing)
{
    auto* cell = new QWidget;
    UiScale::expand(cell);
    table->setCellWidget(row, column, cell);
    auto* halfway = new QVBoxLayout(cell);
    halfway->setContentsMargins(2, 2, 2, 2);
    halfway->setSpacing(0);
    halfway->addStretch();
    auto* widgets = new QHBoxLayout;
    widgets->setContentsMargins(0, 0, 0, 0);
    widgets->setSpacing(spacing);
    halfway->addLayout(widgets);
    halfway->addStretch();
    return widgets;
}

QTableWidgetItem* numberItem(int number)
{
    auto* item = new QTableWidgetItem(QString::number(number));
    item->setTextAlignment(Qt::AlignCenter);
    item->setFlags(Qt::ItemIsEnabled);
    return item;
}

WeldioRow rowOf(const WeldioSignalDef& signal)
{
    WeldioRow row;
    row.key = QLatin1String(signal.key);
    row.enabledKey = QLatin1String(signal.enabledKey);
    row.typeCode = signal.typeCode;
    row.digital = signal.digital;
    row.hasSwitch = signal.hasSwitch;
    row.portRequired = signal.portRequired;
    row.portCounted = signal.portCounted;
    row.isOutput = signal.isOutput;
    row.portSource = signal.portSource;
    return row;
}

/// One use of a port: a register may be used again at another place.
QString useOf(const WeldioRow& row)
{
    constexpr int registerType = 2;
    const int type = row.recordType();
    const QString use = row.portText() + QLatin1Char('_') + QString::number(type);
    return type == registerType ? use + QLatin1Char('_') + QString::number(row.recordBias()) : use;
}

} // namespace

WeldioPage::WeldioPage(WeldSettingPage* settingPage, QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::WeldioPage)
    , weldSettingPage(settingPage)
{
    // What is made under its sheets is not styled a second time, and makes no popup for it.
    applyBaseSheet(this);
    ui->setupUi(this);
    tableLayout.reset(new WeldioLayout(
        this, {{ui->tableWidget_output, &outputRows}, {ui->tableWidget_input, &inputRows}}));
    setSheets();
    UiScale::expand(this);
    ui->verticalLayout_main->setStretchFactor(ui->tabWidget_io, 1);
    ui->verticalLayout_main->setStretchFactor(ui->horizontalLayout, 0);
    buildTable(ui->tableWidget_output, WeldioSignals::outputs(), outputRows);
    buildTable(ui->tableWidget_input, WeldioSignals::inputs(), inputRows);
    connect(ui->pushButton_Save, &QPushButton::clicked, this, &WeldioPage::save);
    connect(ui->pushButton_Cancel, &QPushButton::clicked, this, &WeldioPage::cancel);
    connectRows(outputRows);
    connectRows(inputRows);
    connect(ui->tabWidget_io, &QTabWidget::currentChanged, this, &WeldioPage::requestFullLayout);
}

WeldioPage::~WeldioPage() = default;

// The vector does not grow after this: others point at its rows.
void WeldioPage::buildTable(QTableWidget* table, const QVector<WeldioSignalDef>& signalDefs,
                            QVector<WeldioRow>& rows)
{
    table->setRowCount(signalDefs.size());
    rows.clear();
    rows.reserve(signalDefs.size());
    for (const WeldioSignalDef& signal : signalDefs) {
        rows.append(rowOf(signal));
        buildRow(table, rows.size() - 1, rows.last(), signal);
        if (rows.last().key == QLatin1String("retract_direction"))
            retractDirectionRow = &rows.last();
    }
}

void WeldioPage::buildRow(QTableWidget* table, int number, WeldioRow& row,
                          const WeldioSignalDef& signal)
{
    table->setItem(number, Number, numberItem(number + 1));
    row.nameLabel = new QLabel(tr(signal.caption));
    row.nameLabel->setObjectName(nameOf("label_%1_name", row.key));
    table->setCellWidget(number, Name, row.nameLabel);
    row.typeBox = newBox(addCell(table, number, Type, 0), "comboBox_%1_type", row.key);
    row.typeBox->addItems(WeldioSignals::typeItems(row.typeCode));
    buildAssignCell(table, number, row);
    if (!row.hasSwitch)
        return;
    QHBoxLayout* cell = addCell(table, number, Enable, 0);
    row.enableSwitch = new EnableButton(cell->parentWidget());
    row.enableSwitch->setObjectName(nameOf("pushButton_%1_enabled", switchStem(row.key)));
    cell->addWidget(row.enableSwitch);
}

void WeldioPage::buildAssignCell(QTableWidget* table, int number, WeldioRow& row)
{
    QHBoxLayout* cell = addCell(table, number, Assign, UiScale::pixels(4, table));
    row.portBox = newBox(cell, "comboBox_%1_port", row.key);
    row.biasBox = newBox(cell, "comboBox_%1_bias", row.key);
    row.biasBox->setModel(new NumberListModel(row.biasBox));
    row.biasBox->hide();
}

void WeldioPage::connectRows(const QVector<WeldioRow>& rows)
{
    for (const WeldioRow& row : rows)
        connectRow(row);
}

void WeldioPage::connectRow(const WeldioRow& row)
{
    if (row.enableSwitch) {
        connect(row.enableSwitch, &EnableButton::enabled, this, [row](bool isOn) {
            row.nameLabel->setEnabled(isOn);
            row.setBoxesEnabled(isOn);
        });
    }
    connect(row.typeBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, row] {
        portLists.refill(row.portBox, row.offeredPorts(), false);
        row.updateBias(0);
    });
    connect(row.portBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [row] { row.updateBias(0); });
    connect(row.biasBox, QOverload<int>::of(&QComboBox::activated), this,
            [row] { row.reselectBias(); });
}

std::vector<const WeldioRow*> WeldioPage::allRows() const
{
    std::vector<const WeldioRow*> rows;
    for (const QVector<WeldioRow>* table : {&outputRows, &inputRows}) {
        for (const WeldioRow& row : *table)
            rows.push_back(&row);
    }
    return rows;
}

void WeldioPage::loadConfig(const QJsonValue& config)
{
    if (!config.isObject())
        return;
    std::vector<QSignalBlocker> blockers;
    for (const WeldioRow* row : allRows()) {
        blockers.emplace_back(row->typeBox);
        blockers.emplace_back(row->portBox);
    }
    const QJsonObject record = config.toObject();
    for (const WeldioRow* row : allRows())
        loadRow(*row, record);
}

void WeldioPage::loadRow(const WeldioRow& row, const QJsonObject& record)
{
    row.selectRecordType(record.value(jsonKey(row, "_type")).toInt());
    portLists.refill(row.portBox, row.offeredPorts(), true);
    row.portBox->setCurrentText(record.value(jsonKey(row, "_port")).toString());
    const int bias = record.value(jsonKey(row, "_bias")).toInt();
    row.updateBias(bias < std::numeric_limits<int>::max() ? bias + 1 : bias);
    if (row.enableSwitch && !row.enabledKey.isEmpty())
        row.enableSwitch->setChecked(record.value(row.enabledKey).toBool());
}

void WeldioPage::loadFromController()
{
    loadConfig(qelplugin::qelPluginInterface().getQelServiceData(QLatin1String(ConfigKey)));
}

QJsonObject WeldioPage::formRecord() const
{
    QJsonObject record;
    for (const WeldioRow* row : allRows()) {
        record.insert(jsonKey(*row, "_type"), row->recordType());
        record.insert(jsonKey(*row, "_port"), row->portText());
        record.insert(jsonKey(*row, "_bias"), row->recordBias());
        if (row->enableSwitch)
            record.insert(row->enabledKey, row->enableSwitch->isChecked());
    }
    return record;
}

QJsonObject WeldioPage::toSaveCommand() const
{
    return {{QLatin1String(SaveCommand), formRecord()}};
}

bool WeldioPage::isEditable() const
{
    return !weldSettingPage || !weldSettingPage->isMainEnabled();
}

void WeldioPage::save()
{
    if (!isEnabled() || !isEditable()) {
        Host::tellWarning(tr("Current status does not allow saving I/O configuration."));
        return;
    }
    if (!isConsistent())
        return;
    const QString command = QLatin1String(SaveCommand);
    if (!checkSaveResult(CommandReply::send(this, command, formRecord()), command))
        return;
    loadFromController();
    applyPermissions();
}

// A bad register of either table is told before a gap of the first.
bool WeldioPage::isConsistent() const
{
    for (const QVector<WeldioRow>* rows : {&outputRows, &inputRows}) {
        if (!checkRegisters(*rows) || !checkDuplicates(*rows))
            return false;
    }
    if (!hasGap(outputRows) && !hasGap(inputRows))
        return true;
    Host::tellError(tr("There is an empty port. Please check and reconfigure!"));
    return false;
}

bool WeldioPage::checkRegisters(const QVector<WeldioRow>& rows)
{
    return std::all_of(rows.cbegin(), rows.cend(), &WeldioPage::checkRegister);
}

bool WeldioPage::checkRegister(const WeldioRow& row)
{
    const QString name = row.portText().trimmed();
    if (!row.isRegister() || name.isEmpty() || row.offeredPorts().contains(name))
        return true;
    Host::tellError(tr("Signal %1: register \"%2\" is invalid or has wrong read/write permission, "
                       "expected %3.")
                        .arg(row.nameLabel->text(), name,
                             row.isOutput ? tr("writable register") : tr("readable register")));
    return false;
}

bool WeldioPage::checkDuplicates(const QVector<WeldioRow>& rows)
{
    QSet<QString> uses;
    for (const WeldioRow& row : rows) {
        if (!row.usesPort() || row.portText().isEmpty())
            continue;
        const QString use = useOf(row);
        if (uses.contains(use)) {
            Host::tellError(tr("Port %1 is already in use, save failed!").arg(row.portText()));
            return false;
        }
        uses.insert(use);
    }
    return true;
}

bool WeldioPage::hasGap(const QVector<WeldioRow>& rows)
{
    return std::any_of(rows.cbegin(), rows.cend(), [](const WeldioRow& row) {
        return row.needsPort() && row.portText().isEmpty();
    });
}

bool WeldioPage::checkSaveResult(const QJsonArray& reply, const QString& command)
{
    const QString origin = QLatin1String("WeldioPage::checkSaveResult failed. ");
    const std::optional<int> result = CommandReply::tolerantResult(reply, command);
    if (result == 0) {
        Host::tellSuccess(tr("Saved successfully"));
        return true;
    }
    if (result) {
        Host::tellError(tr("Save failed. Please check the parameter configuration."));
        LOGE(LogTag::Plugin) << origin << command << " Result:" << *result;
        return false;
    }
    Host::tellError(tr("Save failed. No response from controller."));
    if (reply.isEmpty())
        LOGE(LogTag::Plugin) << origin + QLatin1String("empty response for ") << command;
    else
        LOGE(LogTag::Plugin) << origin + QLatin1String("not found ") << command << " Result";
    return false;
}

void WeldioPage::cancel()
{
    loadFromController();
    Host::tellSuccess(tr("Cancel successful"));
}

void WeldioPage::applyPermissions()
{
    if (!Host::mayOperate()) {
        setEnabled(false);
        return;
    }
    for (QWidget* each : std::initializer_list<QWidget*>{
             this, ui->tabWidget_io, ui->tableWidget_output, ui->tableWidget_input})
        each->setEnabled(true);
    const bool editable = isEditable();
    ui->pushButton_Save->setEnabled(editable);
    ui->pushButton_Cancel->setEnabled(editable);
    for (const WeldioRow* row : allRows())
        row->applyEditable(editable);
}

void WeldioPage::refillPorts()
{
    for (const WeldioRow* row : allRows())
        portLists.refill(row->portBox, row->offeredPorts(), true);
}

/// By itself a box asks all of its items how wide it is to be.
void WeldioPage::spareMeasuring()
{
    for (const WeldioRow* row : allRows()) {
        row->portBox->setSizeAdjustPolicy(WeldioLayout::PortSizePolicy);
        row->biasBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }
}

void WeldioPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    spareMeasuring();
    finishStyle();
    auto& host = qelplugin::qelPluginInterface();
    RegisterLengths::read(host.getRegisterValue());
    const QJsonValue config = host.getQelServiceData(QLatin1String(ConfigKey));
    refillPorts();
    for (const WeldioRow* row : allRows()) {
        for (QComboBox* box : {row->typeBox, row->portBox, row->biasBox})
            box->setMaxVisibleItems(10);
    }
    loadConfig(config);
    applyBoxFonts();
    if (retractDirectionRow && retractDirectionRow->nameLabel)
        retractDirectionRow->nameLabel->setText(tr("Wire back feed"));
    requestFullLayout();
    applyPermissions();
}

void WeldioPage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    requestLayout();
}

void WeldioPage::setSheets()
{
    applyBaseSheet(this);
    applyTabStyle(ui->tabWidget_io);
    tableLayout->setSheets();
}

// The sheets are set at once. The rest takes more time than all other pages together, and waits for
// the first show: the plugin is loaded without a pause.
void WeldioPage::applyPageStyle()
{
    setSheets();
    ui->tabWidget_io->setDocumentMode(false);
    styleWaits = true;
    if (isVisible())
        finishStyle();
}

void WeldioPage::finishStyle()
{
    if (!std::exchange(styleWaits, false))
        return;
    applyBaseStyle(this);
    tableLayout->styleTables();
    applyBoxFonts();
}

// Qt lays a page out anew for each font that is set, also for the one that is there already.
void WeldioPage::applyBoxFonts()
{
    const QFont font = UiScale::font(9, this);
    if (font == boxFont)
        return;
    UiScale::applyFonts(this, 9);
    boxFont = font;
}

void WeldioPage::requestFullLayout()
{
    fullRelayout = true;
    requestLayout();
}

void WeldioPage::requestLayout()
{
    if (layoutPending)
        return;
    layoutPending = true;
    ownedSingleShot(LayoutDelay, this, &WeldioPage::runLayout);
}

void WeldioPage::runLayout()
{
    layoutPending = false;
    const bool isFull = std::exchange(fullRelayout, false);
    if (isFull)
        tableLayout->styleTables();
    else
        tableLayout->arrangeTables();
}
