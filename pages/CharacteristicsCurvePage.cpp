#include "CharacteristicsCurvePage.h"

#include "CommandReply.h"
#include "CustomChart.h"
#include "Host.h"
#include "Numbers.h"
#include "StyleHelpers.h"
#include "UiScale.h"
#include "WeldSettingPage.h"
#include "WrappedHeader.h"
#include "ui_CharacteristicsCurvePage.h"

#include <qelplugin.h>

#include <QDoubleSpinBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QSpinBox>

#include <algorithm>
#include <array>

namespace {

using Form = Ui_CharacteristicsCurvePage;

constexpr char CurveKey[] = "weld_curve_config";
constexpr char IoKey[] = "weld_io_config";
constexpr char ComputeCommand[] = "compute_curve_config";

constexpr int LeastNodes = 2;
/// Free room on each side of the three buttons, where there is that much.
constexpr int ButtonMargin = 50;
/// Rows that a record may ask for; the box offers up to ten.
constexpr int MostRows = 200;

enum Column { Node, Output, Process, ColumnCount };

// In the colours of the other pages.
const char PageSheet[] =
    R"(QTabBar::tab:disabled{color:#A3A4A4;})"
    R"(QLabel{border:none;font:400 10pt "Microsoft YaHei UI";color:#202020;})"
    R"(QTableWidget{background:#ffffff;gridline-color:#d0d0d0;border:1px solid #d0d0d0;)"
    R"(font:400 10pt "Microsoft YaHei UI";color:#202020;selection-background-color:#cfe4f8;})"
    R"(QTableWidget QHeaderView{border:none;})" // a frame like any other
    R"(QTableWidget QHeaderView::section{background:#224d75;color:#ffffff;border:none;)"
    R"(border-right:1px solid #d0d0d0;padding:4px 1px;min-height:24px;)"
    R"(font:400 10pt "Microsoft YaHei UI";})"
    R"(QTableWidget QAbstractSpinBox{background:transparent;border:none;padding:0px 3px;)"
    R"(color:#202020;selection-background-color:#0078D4;selection-color:#ffffff;})"
    R"(QTableWidget QAbstractSpinBox:disabled{color:#A3A4A4;})"
    R"(QComboBox{background:#ffffff;color:#202020;border:2px solid #E4E4E4;border-radius:10px;)"
    R"(padding:0px 32px 0px 6px;min-height:30px;combobox-popup:0;)"
    R"(font:400 10pt "Microsoft YaHei UI";})"
    R"(QComboBox:disabled{background:#f5f5f5;color:#A3A4A4;})"
    R"(QComboBox::drop-down{subcontrol-origin:padding;subcontrol-position:top right;width:30px;)"
    R"(border:none;})"
    R"(QComboBox::down-arrow{image:url(:/qelLaserWelding/png/arrow/down_arrow_white.png);)"
    R"(padding:5px;})"
    R"(QComboBox QAbstractItemView{background:#ffffff;border:2px solid #E4E4E4;outline:0;)"
    R"(selection-background-color:#007cf9;selection-color:#ffffff;})"
    R"(QPushButton{background:#224d75;color:#ffffff;min-height:36px;border:none;border-radius:6px;)"
    R"(padding:0px 2px;font-size:16px;})"
    R"(QPushButton:hover{background:#8AB6F0;})"
    R"(QPushButton:pressed{background:#D9E6F2;})"
    R"(QPushButton:disabled{background:#cccccc;color:#A3A4A4;})";

QJsonValue serviceData(const char* key)
{
    return qelplugin::qelPluginInterface().getQelServiceData(QLatin1String(key));
}

template<typename Editor>
Editor* editor(const QTableWidget* table, int row, Column column)
{
    return qobject_cast<Editor*>(table->cellWidget(row, column));
}

QList<QWidget*> editorsOf(const QTableWidget* table)
{
    QList<QWidget*> editors;
    for (int row = 0; row < table->rowCount(); ++row) {
        for (Column column : {Output, Process}) {
            if (auto* each = editor<QAbstractSpinBox>(table, row, column))
                editors << each;
        }
    }
    return editors;
}

void setEditorsEnabled(const QTableWidget* table, bool enabled)
{
    const auto editors = editorsOf(table);
    for (QWidget* each : editors)
        each->setEnabled(enabled);
}

/// The numbers that the texts of two items hold.
bool itemNode(const QTableWidget* table, int row, QPair<double, double>& node)
{
    const QTableWidgetItem* output = table->item(row, Output);
    const QTableWidgetItem* process = table->item(row, Process);
    if (!output || !process)
        return false;
    bool isNumber = false;
    node.first = output->text().toDouble(&isNumber);
    if (!isNumber)
        return false;
    node.second = process->text().toDouble(&isNumber);
    return isNumber;
}

/// Range of an axis that holds all nodes, and the distance of its ticks.
struct Axis
{
    int first;
    int last;
    int step;
};

/// About five ticks, a whole number of the largest power of ten apart that the number holds.
int stepFor(int largest)
{
    if (largest <= 0)
        return 1;
    qint64 power = 1; // rounding up may leave the range of an int
    while (largest / power >= 10)
        power *= 10;
    const qint64 up = (largest + power - 1) / power * power;
    return static_cast<int>((up + power) / 5);
}

void reach(Axis& axis, double value)
{
    if (value > axis.last) {
        axis.last = truncatedToInt(value + 1);
        axis.step = stepFor(axis.last);
    }
}

QString yTitleOf(const CustomChart* chart)
{
    static constexpr struct
    {
        const char* chart;
        const char* title;
    } titles[] = {
        {"Chart_laserpower", QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "Power W")},
        {"Chart_feedspeed", QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "Feedspeed mm/s")},
        {"Chart_frequency", QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "Frequency Hz")},
        {"Chart_dutycycle", QT_TRANSLATE_NOOP("CharacteristicsCurvePage", "Dutycycle %")},
    };
    for (const auto& each : titles) {
        if (chart->objectName() == QLatin1String(each.chart))
            return CharacteristicsCurvePage::tr(each.title);
    }
    return {};
}

QTableWidgetItem* headerItem(QTableWidget* table, int column)
{
    if (!table->horizontalHeaderItem(column))
        table->setHorizontalHeaderItem(column, new QTableWidgetItem);
    return table->horizontalHeaderItem(column);
}

int widestItem(const QTableWidget* table, int column)
{
    const QFontMetrics metrics(table->font());
    int widest = 0;
    for (int row = 0; row < table->rowCount(); ++row) {
        if (const QTableWidgetItem* item = table->item(row, column))
            widest = std::max(widest, metrics.horizontalAdvance(item->text()));
    }
    return widest;
}

int nodeColumnWidth(QTableWidget* table)
{
    constexpr int narrowestViewport = 80;
    const int viewport = table->viewport()->width();
    const int room = viewport < narrowestViewport ? table->width() : viewport;
    const QString header = headerItem(table, Node)->text();
    const int headerWidth =
        QFontMetrics(table->horizontalHeader()->font()).horizontalAdvance(header);
    const int needed = std::max({44, headerWidth + 20, widestItem(table, Node) + 16});
    return std::min(needed, std::max(72, room / 5));
}

void prepareNumberItem(QTableWidgetItem* item)
{
    item->setTextAlignment(Qt::AlignCenter);
    item->setFlags(Qt::ItemIsEnabled);
}

/// A table that lacks the column does not take the editor.
void place(QTableWidget* table, int row, Column column, QWidget* editor)
{
    table->setCellWidget(row, column, editor);
    if (table->cellWidget(row, column) != editor)
        delete editor;
}

void widen(QWidget* editor)
{
    editor->setMinimumWidth(0);
    editor->setMaximumWidth(QWIDGETSIZE_MAX);
    editor->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

bool rises(const QTableWidget* table, int row, bool* isComplete)
{
    const auto* output = editor<QDoubleSpinBox>(table, row, Output);
    const auto* outputBefore = editor<QDoubleSpinBox>(table, row - 1, Output);
    const auto* process = editor<QSpinBox>(table, row, Process);
    const auto* processBefore = editor<QSpinBox>(table, row - 1, Process);
    *isComplete = output && outputBefore && process && processBefore;
    return *isComplete && output->value() > outputBefore->value() &&
           process->value() > processBefore->value();
}

} // namespace

/// What the four tabs differ in.
struct CharacteristicsCurvePage::Curve
{
    QWidget* Form::*page;
    QComboBox* Form::*nodeBox;
    QTableWidget* Form::*table;
    CustomChart* Form::*chart;
    QPushButton* Form::*compute;
    QPushButton* Form::*cancel;
    QPushButton* Form::*save;
    QHBoxLayout* Form::*buttonRow;
    const char* nodeKey;
    const char* dataKey;
    const char* saveCommand;
    const char* enabledKey; ///< of the mapping, like the next
    const char* portKey;
    void (CharacteristicsCurvePage::*unused)(); ///< connected behind the compute button

    std::array<QPushButton*, 3> buttons(const Form& form) const
    {
        return {form.*compute, form.*cancel, form.*save};
    }
};

const CharacteristicsCurvePage::Curve CharacteristicsCurvePage::curves[] = {
    {&Form::laserpower, &Form::comboBox_node, &Form::tableWidget_laserpower,
     &Form::Chart_laserpower, &Form::pushButton_compute, &Form::pushButton_cancel,
     &Form::pushButton_Save_laserpower, &Form::horizontalLayout_buttons_laserpower,
     "laser_power_node", "power_nodes_data", "set_weld_curve_power_config", "power_enabled",
     "power_port", &CharacteristicsCurvePage::onComputePowerChart},
    {&Form::feedspeed, &Form::comboBox_node_2, &Form::tableWidget_feedspeed, &Form::Chart_feedspeed,
     &Form::pushButton_compute_5, &Form::pushButton_cancel_5, &Form::pushButton_Save_speed,
     &Form::horizontalLayout_buttons_feedspeed, "laser_feed_node", "feed_nodes_data",
     "set_weld_curve_feed_config", "wire_speed_enabled", "wire_speed_port", nullptr},
    {&Form::frequency, &Form::comboBox_node_3, &Form::tableWidget_frequency, &Form::Chart_frequency,
     &Form::pushButton_compute_2, &Form::pushButton_cancel_2, &Form::pushButton_Save_frequency,
     &Form::horizontalLayout_buttons_frequency, "laser_frequency_node", "frequency_nodes_data",
     "set_weld_curve_frequency_config", "frequency_enabled", "frequency_port",
     &CharacteristicsCurvePage::onComputeFrequencyChart},
    {&Form::dutycycle, &Form::comboBox_node_4, &Form::tableWidget_dutycycle, &Form::Chart_dutycycle,
     &Form::pushButton_compute_3, &Form::pushButton_cancel_3, &Form::pushButton_Save_dutycycle,
     &Form::horizontalLayout_buttons_dutycycle, "laser_dutycycle_node", "dutycycle_nodes_data",
     "set_weld_curve_dutycycle_config", "duty_cycle_enabled", "duty_cycle_port",
     &CharacteristicsCurvePage::onComputeDutyCycleChart},
};

CharacteristicsCurvePage::CharacteristicsCurvePage(WeldSettingPage* settingPage, QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::CharacteristicsCurvePage)
    , weldSettingPage(settingPage)
{
    ui->setupUi(this);
    UiScale::expand(this);
    for (int tab = 0; tab < TabCount; ++tab) {
        WrappedHeader::install(table(tab));
        rebuildNodeTable(table(tab), LeastNodes, {});
    }
    for (int tab = 0; tab < TabCount; ++tab) {
        connectTab(tab);
        letButtonsShrink(tab);
    }
}

CharacteristicsCurvePage::~CharacteristicsCurvePage() = default;

// The buttons take what is there; on a narrow page their texts need the room beside them.
void CharacteristicsCurvePage::letButtonsShrink(int tab)
{
    for (QPushButton* button : curves[tab].buttons(*ui))
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    chart(tab)->installEventFilter(this);
}

// The chart is as wide as the row of the buttons below it.
bool CharacteristicsCurvePage::eventFilter(QObject* watched, QEvent* event)
{
    for (int tab = 0; tab < TabCount && event->type() == QEvent::Resize; ++tab) {
        if (watched == chart(tab))
            fitButtons(tab);
    }
    return QWidget::eventFilter(watched, event);
}

// All of one width where there is room, else as wide as their texts demand.
void CharacteristicsCurvePage::fitButtons(int tab)
{
    QHBoxLayout* row = (*ui).*curves[tab].buttonRow;
    const auto buttons = curves[tab].buttons(*ui);
    int needed = 0;
    for (const QPushButton* button : buttons)
        needed = std::max(needed, button->sizeHint().width());
    needed = needed * row->count() + row->spacing() * (row->count() - 1);
    const bool isWide = chart(tab)->width() >= needed + 2 * ButtonMargin;
    for (QPushButton* button : buttons)
        row->setStretchFactor(button, isWide ? 0 : button->sizeHint().width());
    const int side = std::clamp((chart(tab)->width() - needed) / 2, 0, ButtonMargin);
    QMargins margins = row->contentsMargins();
    margins.setLeft(side);
    margins.setRight(side);
    row->setContentsMargins(margins);
}

void CharacteristicsCurvePage::connectTab(int tab)
{
    const Curve& curve = curves[tab];
    connect(nodeBox(tab), QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this, tab](int index) { rebuildNodeTable(table(tab), index + LeastNodes, {}); });
    connect((*ui).*curve.compute, &QPushButton::clicked, this, [this, tab] { computeCurve(tab); });
    if (curve.unused)
        connect((*ui).*curve.compute, &QPushButton::clicked, this, curve.unused);
    connect((*ui).*curve.cancel, &QPushButton::clicked, this, [this, tab] { cancel(tab); });
    connect((*ui).*curve.save, &QPushButton::clicked, this, [this, tab] { save(tab); });
}

QComboBox* CharacteristicsCurvePage::nodeBox(int tab) const
{
    return (*ui).*curves[tab].nodeBox;
}

QTableWidget* CharacteristicsCurvePage::table(int tab) const
{
    return (*ui).*curves[tab].table;
}

CustomChart* CharacteristicsCurvePage::chart(int tab) const
{
    return (*ui).*curves[tab].chart;
}

bool CharacteristicsCurvePage::isEditable() const
{
    return !weldSettingPage || !weldSettingPage->isMainEnabled();
}

void CharacteristicsCurvePage::rebuildNodeTable(QTableWidget* table, int count, const Nodes& nodes)
{
    table->clearContents();
    table->setRowCount(0);
    for (int index = 0; index < std::min(count, MostRows); ++index) {
        const QPair<double, double> node = nodes.value(index);
        addNodeRow(table, index + 1, node.first, node.second);
    }
    if (!isEditable())
        setEditorsEnabled(table, false);
    if (table->columnCount() >= ColumnCount)
        arrangeColumns(table);
}

void CharacteristicsCurvePage::addNodeRow(QTableWidget* table, int number, double x, double y)
{
    const int row = table->rowCount();
    table->insertRow(row);
    auto* item = new QTableWidgetItem(QString::number(number));
    prepareNumberItem(item);
    table->setItem(row, Node, item);
    place(table, row, Output, newOutputEditor(x));
    place(table, row, Process, newProcessEditor(table, y));
    table->setRowHeight(row, UiScale::rowHeight(this));
}

QWidget* CharacteristicsCurvePage::newOutputEditor(double value)
{
    auto* editor = new QDoubleSpinBox;
    editor->setRange(0, 65535.99);
    editor->setDecimals(2);
    editor->setSingleStep(0.01);
    prepareEditor(editor);
    editor->setValue(value);
    return editor;
}

// No table has the name of the first range: the power table takes the widest as well.
QWidget* CharacteristicsCurvePage::newProcessEditor(const QTableWidget* table, double value)
{
    auto* editor = new QSpinBox;
    if (table->objectName() == QLatin1String("tableWidget_power"))
        editor->setRange(0, 6000);
    else if (table->objectName() == QLatin1String("tableWidget_dutycycle"))
        editor->setRange(1, 100);
    else
        editor->setRange(0, 65535);
    prepareEditor(editor);
    editor->setValue(truncatedToInt(value));
    return editor;
}

void CharacteristicsCurvePage::prepareEditor(QAbstractSpinBox* editor)
{
    editor->setButtonSymbols(QAbstractSpinBox::NoButtons);
    editor->setFont(UiScale::font(10, this));
    widen(editor);
}

void CharacteristicsCurvePage::arrangeColumns(QTableWidget* table)
{
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    UiScale::expand(table);
    QHeaderView* header = table->horizontalHeader();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(Node, QHeaderView::Fixed);
    header->setSectionResizeMode(Output, QHeaderView::Stretch);
    header->setSectionResizeMode(Process, QHeaderView::Stretch);
    table->setColumnWidth(Node, nodeColumnWidth(table));
    for (int row = 0; row < table->rowCount(); ++row) {
        if (QTableWidgetItem* item = table->item(row, Node))
            prepareNumberItem(item);
    }
    const auto editors = editorsOf(table);
    for (QWidget* each : editors)
        widen(each);
}

CharacteristicsCurvePage::Nodes CharacteristicsCurvePage::readNodes(const QTableWidget* table)
{
    Nodes nodes;
    for (int row = 0; row < table->rowCount(); ++row) {
        const auto* output = editor<QDoubleSpinBox>(table, row, Output);
        const auto* process = editor<QSpinBox>(table, row, Process);
        QPair<double, double> node;
        if (output && process)
            nodes << qMakePair(output->value(), static_cast<double>(process->value()));
        else if (itemNode(table, row, node))
            nodes << node;
    }
    return nodes;
}

CharacteristicsCurvePage::Nodes CharacteristicsCurvePage::jsonToNodes(const QJsonArray& array)
{
    Nodes nodes;
    for (const QJsonValue& element : array) {
        const QJsonArray pair = element.toArray();
        if (pair.size() == 2 && pair.at(0).isDouble() && pair.at(1).isDouble())
            nodes << qMakePair(pair.at(0).toDouble(), pair.at(1).toDouble());
    }
    return nodes;
}

void CharacteristicsCurvePage::loadFromController()
{
    loadCurves(serviceData(CurveKey));
}

void CharacteristicsCurvePage::loadCurves(const QJsonValue& value)
{
    const QJsonObject record = value.toObject();
    if (!record.contains(QLatin1String(curves[Power].nodeKey)))
        return;
    for (int tab = 0; tab < TabCount; ++tab)
        loadCurve(tab, record);
}

void CharacteristicsCurvePage::loadCurve(int tab, const QJsonObject& record)
{
    const int count = record.value(QLatin1String(curves[tab].nodeKey)).toInt();
    // An index that the box has not clears it.
    nodeBox(tab)->setCurrentIndex(std::max(count, 1) - LeastNodes);
    const QJsonValue stored = record.value(QLatin1String(curves[tab].dataKey));
    if (stored.isArray())
        rebuildNodeTable(table(tab), count, jsonToNodes(stored.toArray()));
}

void CharacteristicsCurvePage::refreshPortHeaders()
{
    const QJsonValue value = serviceData(IoKey);
    if (!value.isObject())
        return;
    const QJsonObject mapping = value.toObject();
    for (int tab = 0; tab < TabCount; ++tab) {
        const bool configured = isConfigured(curves[tab], mapping);
        const QString port = mapping.value(QLatin1String(curves[tab].portKey)).toString();
        ((*ui).*curves[tab].page)->setEnabled(configured);
        headerItem(table(tab), Output)->setText(configured ? port : tr("Not configured"));
    }
}

// A port that is missing is not null: its tab can be used, under an empty header.
bool CharacteristicsCurvePage::isConfigured(const Curve& curve, const QJsonObject& mapping)
{
    return mapping.value(QLatin1String(curve.enabledKey)).toBool() &&
           !mapping.value(QLatin1String(curve.portKey)).isNull();
}

bool CharacteristicsCurvePage::isSignalConfigured(int tab)
{
    return isConfigured(curves[tab], serviceData(IoKey).toObject());
}

void CharacteristicsCurvePage::updateAccess()
{
    if (!Host::mayOperate()) {
        setEnabled(false);
        return;
    }
    setEnabled(true);
    ui->tabWidget->setEnabled(true);
    const bool editable = isEditable();
    for (int tab = 0; tab < TabCount; ++tab) {
        const bool configured = isSignalConfigured(tab);
        ((*ui).*curves[tab].page)->setEnabled(configured);
        if (configured)
            setEditable(tab, editable);
    }
}

void CharacteristicsCurvePage::setEditable(int tab, bool editable)
{
    const Curve& curve = curves[tab];
    chart(tab)->setEnabled(true);
    table(tab)->setEnabled(true);
    table(tab)->setEditTriggers(editable ? QAbstractItemView::DoubleClicked |
                                               QAbstractItemView::SelectedClicked |
                                               QAbstractItemView::EditKeyPressed
                                         : QAbstractItemView::NoEditTriggers);
    setEditorsEnabled(table(tab), editable);
    nodeBox(tab)->setEnabled(editable);
    for (QPushButton* button : curve.buttons(*ui))
        button->setEnabled(editable);
}

bool CharacteristicsCurvePage::validateNodes(const QTableWidget* table)
{
    if (table->rowCount() < LeastNodes) {
        Host::tellWarning(tr("Validation failed,The table requires at least two rows of data!"));
        return false;
    }
    for (int row = 1; row < table->rowCount(); ++row) {
        bool isComplete = false;
        if (rises(table, row, &isComplete))
            continue;
        if (isComplete) {
            Host::tellWarning(tr("The data in line %1 must be greater than the data in row %2!")
                                  .arg(row + 1)
                                  .arg(row));
        }
        return false;
    }
    return true;
}

QJsonObject CharacteristicsCurvePage::curveRecord(int tab) const
{
    QJsonArray pairs;
    const Nodes nodes = readNodes(table(tab));
    for (const QPair<double, double>& node : nodes)
        pairs.append(QJsonArray{node.first, node.second});
    return {{QLatin1String(curves[tab].nodeKey), nodeBox(tab)->currentIndex() + LeastNodes},
            {QLatin1String(curves[tab].dataKey), pairs}};
}

// The last element counts, also one that holds no line.
void CharacteristicsCurvePage::readComputeReply(const QJsonArray& reply, double& intercept,
                                                double& slope)
{
    for (const QJsonValue& element : reply) {
        const QJsonObject line = element.toObject()
                                     .value(Host::pluginName())
                                     .toObject()
                                     .value(QLatin1String(ComputeCommand))
                                     .toObject();
        intercept = line.value(QLatin1String("intercept")).toDouble();
        slope = line.value(QLatin1String("slope")).toDouble();
    }
}

void CharacteristicsCurvePage::updateChart(const QTableWidget* table, CustomChart* chart,
                                           double slope, double intercept)
{
    const QTableWidgetItem* port = table->horizontalHeaderItem(Output);
    const Nodes nodes = readNodes(table);
    Axis x{0, 10, 2};
    Axis y{0, 5, 1};
    for (const QPair<double, double>& node : nodes) {
        reach(y, node.second);
        if (node.second < y.first)
            y.first = truncatedToInt(node.second - 1);
        reach(x, node.first);
    }
    chart->setAxes(QString(), x.step, x.first, x.last, QString(), y.step, y.first, y.last);
    chart->setPoints(nodes);
    chart->setLine(slope, intercept);
    chart->setTitles(port ? port->text() : QString(), yTitleOf(chart));
    chart->update();
}

void CharacteristicsCurvePage::computeCurve(int tab)
{
    if (validateNodes(table(tab)))
        computeLine(tab);
}

void CharacteristicsCurvePage::computeLine(int tab)
{
    double intercept = 0;
    double slope = 0;
    readComputeReply(CommandReply::send(this, QLatin1String(ComputeCommand), curveRecord(tab)),
                     intercept, slope);
    updateChart(table(tab), chart(tab), slope, intercept);
}

// What the fit gives does not stop the save.
void CharacteristicsCurvePage::save(int tab)
{
    if (!validateNodes(table(tab)))
        return;
    computeLine(tab);
    const QString command = QLatin1String(curves[tab].saveCommand);
    checkSaveResult(CommandReply::send(this, command, curveRecord(tab)), command);
}

void CharacteristicsCurvePage::checkSaveResult(const QJsonArray& reply, const QString& command)
{
    CommandReply::reportStrict(
        reply, command,
        {tr("Saved successfully"), tr("Save failed. Please check the parameter configuration."),
         QLatin1String("CharacteristicsCurvePage::checkSaveResult failed. "),
         QLatin1String("CharacteristicsCurvePage::checkSaveResult failed. not found ")});
}

void CharacteristicsCurvePage::cancel(int tab)
{
    loadFromController();
    if (chart(tab)->isComputed())
        computeCurve(tab);
    Host::tellSuccess(tr("Cancel successful"));
}

void CharacteristicsCurvePage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    loadFromController();
    refreshPortHeaders();
    UiScale::applyFonts(this, 10);
    arrangeTables();
    for (int tab = 0; tab < TabCount; ++tab) {
        if (chart(tab)->isComputed())
            computeCurve(tab);
    }
    updateAccess();
}

void CharacteristicsCurvePage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    for (int tab = 0; tab < TabCount; ++tab)
        arrangeColumns(table(tab));
}

void CharacteristicsCurvePage::arrangeTables()
{
    const int height = UiScale::rowHeight(this);
    for (int tab = 0; tab < TabCount; ++tab) {
        for (int row = 0; row < table(tab)->rowCount(); ++row)
            table(tab)->setRowHeight(row, height);
    }
    for (int tab = 0; tab < TabCount; ++tab)
        arrangeColumns(table(tab));
}

void CharacteristicsCurvePage::applyPageStyle()
{
    UiScale::setStyleSheet(this, tabStyleSheet() + QLatin1String(PageSheet));
    ui->tabWidget->setStyleSheet(QString());
    arrangeTables();
    for (int tab = 0; tab < TabCount; ++tab)
        UiScale::fixComboPopupBelow(nodeBox(tab), 10);
}

void CharacteristicsCurvePage::onComputePowerChart() {}
void CharacteristicsCurvePage::onComputeDutyCycleChart() {}
void CharacteristicsCurvePage::onComputeFrequencyChart() {}
void CharacteristicsCurvePage::refreshPowerCmb(int) {}
void CharacteristicsCurvePage::refreshDutyCycleCmb(int) {}
void CharacteristicsCurvePage::refreshFrequencyCmb(int) {}
