#include "WeldSettingPage.h"

#include "CommandReply.h"
#include "Host.h"
#include "JsonCommon.h"
#include "Numbers.h"
#include "PageLayout.h"
#include "StyleHelpers.h"
#include "UiScale.h"
#include "ui_WeldSettingPage.h"

#include <qelplugin.h>

#include <QFontMetrics>
#include <QThread>

#include <algorithm>
#include <initializer_list>

namespace {

using Form = Ui_WeldSettingPage;

/// Milliseconds that the controller needs before and after it is told of the main switch.
constexpr unsigned long SwitchPause = 300;

constexpr char ConfigKey[] = "weld_setting_config";
constexpr char IoConfigKey[] = "weld_io_config";
constexpr char SaveCommand[] = "set_weld_setting_config";
constexpr char EnableCommand[] = "set_weld_enable";

/// How a number of the record becomes the whole number of its field.
enum class Reading {
    Whole,     ///< a fraction reads as 0
    Truncated, ///< a fraction is cut off
};

struct NumberField
{
    const char* key;
    QSpinBox* Form::*editor;
    Reading reading;
};

constexpr NumberField NumberFields[] = {
    {"laser_power", &Form::spinBox_laser_power, Reading::Truncated},
    {"feedback_delay", &Form::spinBox_feedback_delay, Reading::Truncated},
    {"pre_gas_time", &Form::spinBox_pre_gas_time, Reading::Whole},
    {"delay_off_time", &Form::spinBox_delay_off_time, Reading::Whole},
    {"detection_delay", &Form::spinBox_detection_delay, Reading::Whole},
    {"manual_gas_time", &Form::spinBox_manual_gas_time, Reading::Whole},
    {"retraction_distance", &Form::doubleSpinBox_retraction_distance, Reading::Truncated},
    {"retraction_speed", &Form::doubleSpinBox_retraction_speed, Reading::Truncated},
    {"detection_time", &Form::spinBox_detection_time, Reading::Whole},
    {"max_feed_speed", &Form::doubleSpinBox_max_feed_speed, Reading::Truncated},
    {"manual_feed_speed", &Form::doubleSpinBox_manual_feed_speed, Reading::Truncated},
    {"manual_retract_speed", &Form::doubleSpinBox_manual_retract_speed, Reading::Truncated},
    {"wire_feedback_detection", &Form::spinBox_wire_feedback_detection, Reading::Whole},
    {"laser_check_out_time", &Form::spinBox_laser_check_out_time, Reading::Whole},
};

struct SwitchField
{
    const char* key;
    EnableButton* Form::*editor;
};

constexpr SwitchField SwitchFields[] = {
    {"laser_main_enable", &Form::pushButton_main_enable},
    {"feeder_enable", &Form::pushButton_Feeder},
};

/// A choice that the controller no longer offers: its box shows the first entry and the record
/// carries 0, whatever the controller's record holds.
struct FixedChoice
{
    const char* key;
    QComboBox* Form::*editor;
};

constexpr FixedChoice FixedChoices[] = {
    {"laser_comm_type", &Form::comboBox_laser_comm_type},
    {"wire_feeder_comm_type", &Form::comboBox_wire_feeder_comm_type},
};

/// The header stands first; the others hold the configuration.
constexpr QFrame* Form::*Frames[] = {
    &Form::frame_5, &Form::frame,   &Form::frame_2,
    &Form::frame_3, &Form::frame_4, &Form::frame_WireSticking,
};

int wholeNumber(const QJsonValue& value, Reading reading)
{
    return reading == Reading::Truncated ? truncatedToInt(value.toDouble()) : value.toInt();
}

void setEnabledAll(std::initializer_list<QWidget*> widgets, bool enabled)
{
    for (QWidget* each : widgets)
        each->setEnabled(enabled);
}

QStringList listedPorts(const QComboBox* box)
{
    QStringList names;
    for (int index = 1; index < box->count(); ++index)
        names << box->itemText(index);
    return names;
}

/// An empty item without data, then the ports.
void fillPorts(QComboBox* box, const QStringList& ports)
{
    if (box->count() == 0 || listedPorts(box) != ports) {
        box->clear();
        box->addItem(QString(), QVariant());
        box->addItems(ports);
    }
    box->setCurrentIndex(0);
}

QSize switchSize(QWidget* page)
{
    const int height = UiScale::scaledPixels(24, page);
    return {std::max(static_cast<int>(height * 1.9), UiScale::pixels(44, page)), height};
}

int fieldHeight(QWidget* page)
{
    const int textHeight = QFontMetrics(UiScale::font(10, page)).height();
    return std::max(textHeight + UiScale::pixels(4, page), 22);
}

/// A label that is asked for its hint is polished. Before its frame has a sheet that must not be: a
/// sheet that is set on a frame which is not polished yet does not reach what is polished below it.
int hintHeight(const QFrame* frame, const QLabel* label)
{
    const bool isStyled = !frame->styleSheet().isEmpty();
    return isStyled ? label->sizeHint().height() : label->fontMetrics().height();
}

} // namespace

WeldSettingPage::WeldSettingPage(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::WeldSettingPage)
{
    ui->setupUi(this);
    connectFields();
    hideUnusedFields();
    relaxLayout();
}

WeldSettingPage::~WeldSettingPage() = default;

void WeldSettingPage::connectFields()
{
    connect(ui->pushButton_Retraction, &EnableButton::enabled, this,
            &WeldSettingPage::setRetractionPlanStatus);
    connect(ui->pushButton_Feeder, &EnableButton::enabled, this,
            &WeldSettingPage::setFeederPlanStatus);
    connect(ui->pushButton_save, &QPushButton::clicked, this, &WeldSettingPage::save);
    connect(ui->pushButton_cancel, &QPushButton::clicked, this, &WeldSettingPage::cancel);
    connect(ui->pushButton_main_enable, &EnableButton::enabled, this,
            &WeldSettingPage::onSwitchMain);
}

// The controller no longer knows these; they stay in the form for the texts of the catalogue.
void WeldSettingPage::hideUnusedFields()
{
    const std::initializer_list<QWidget*> unused = {
        ui->pushButton_Retraction,
        ui->pushButton_WireSticking,
        ui->comboBox_feedback_di,
        ui->comboBox_detection_do,
        ui->comboBox_laser_comm_type,
        ui->comboBox_wire_feed_type,
        ui->label_21,
        ui->label_25,
        ui->label_Method,
        ui->label_6,
        ui->label_7,
        ui->comboBox_wire_feeder_comm_type,
    };
    for (QWidget* each : unused)
        each->hide();
}

bool WeldSettingPage::isMainEnabled() const
{
    return ui->pushButton_main_enable->isChecked();
}

void WeldSettingPage::loadConfig(const QJsonValue& config)
{
    if (!config.isObject())
        return;
    const QJsonObject record = config.toObject();
    for (const SwitchField& field : SwitchFields)
        ((*ui).*field.editor)->setChecked(record.value(QLatin1String(field.key)).toBool());
    for (const FixedChoice& choice : FixedChoices)
        ((*ui).*choice.editor)->setCurrentIndex(0);
    for (const NumberField& field : NumberFields)
        ((*ui).*field.editor)
            ->setValue(wholeNumber(record.value(QLatin1String(field.key)), field.reading));
    ui->pushButton_Retraction->setChecked(true);
}

QJsonObject WeldSettingPage::formRecord() const
{
    QJsonObject record;
    for (const SwitchField& field : SwitchFields)
        record.insert(QLatin1String(field.key), ((*ui).*field.editor)->isChecked());
    for (const FixedChoice& choice : FixedChoices)
        record.insert(QLatin1String(choice.key), 0);
    for (const NumberField& field : NumberFields)
        record.insert(QLatin1String(field.key), ((*ui).*field.editor)->value());
    return record;
}

QJsonObject WeldSettingPage::toSaveCommand() const
{
    return {{QLatin1String(SaveCommand), formRecord()}};
}

bool WeldSettingPage::validateTimes()
{
    if (ui->spinBox_feedback_delay->value() >= ui->spinBox_laser_check_out_time->value())
        return true;
    Host::tellError(tr("The detected time of the light output is later than the light output "
                       "inspection time; saving failed!"));
    return false;
}

QJsonArray WeldSettingPage::sendSaveCommand()
{
    return CommandReply::send(this, QLatin1String(SaveCommand), formRecord());
}

void WeldSettingPage::save()
{
    if (validateTimes())
        checkSaveResult(sendSaveCommand(), QLatin1String(SaveCommand));
}

void WeldSettingPage::checkSaveResult(const QJsonArray& reply, const QString& command)
{
    CommandReply::reportStrict(
        reply, command,
        {tr("Saved successfully"), tr("Save failed. Please check the parameter configuration."),
         QLatin1String("WeldSettingPage::checkSaveResult failed. "),
         QLatin1String("WeldSettingPage::checkSaveResult failed. not found ")});
}

void WeldSettingPage::cancel()
{
    loadFromController();
    Host::tellSuccess(tr("Cancel successful"));
}

void WeldSettingPage::loadFromController()
{
    loadConfig(qelplugin::qelPluginInterface().getQelServiceData(QLatin1String(ConfigKey)));
}

void WeldSettingPage::onSwitchMain(bool isOn)
{
    QThread::msleep(SwitchPause);
    if (qelplugin::qelPluginInterface().getRobotEleStatus()) {
        Host::tellError(tr("Do not modify while powered on!"));
        ui->pushButton_main_enable->setChecked(!isOn);
    } else if (isOn) {
        startWelding();
    } else {
        stopWelding();
    }
}

void WeldSettingPage::startWelding()
{
    if (!validateTimes() || !requestStart()) {
        ui->pushButton_main_enable->setChecked(false);
        return;
    }
    setConfigEditable(false);
    ui->pushButton_main_enable->setChecked(true);
    // Now the controller's record holds the switch as well; its answer changes nothing here.
    sendSaveCommand();
}

bool WeldSettingPage::requestStart()
{
    // Read before each start; nothing of it is used.
    qelplugin::qelPluginInterface().getQelServiceData(QLatin1String(IoConfigKey)).toObject();
    const QJsonArray reply =
        CommandReply::sendText(this, QLatin1String(EnableCommand), QLatin1String("TRUE"));
    QThread::msleep(SwitchPause);
    if (CommandReply::firstElementAccepted(reply, QLatin1String(EnableCommand)))
        return true;
    Host::tellError(tr("Laser weld startup faild!"));
    return false;
}

// Nothing is saved: the controller's record keeps its switch until the next save.
void WeldSettingPage::stopWelding()
{
    CommandReply::sendText(this, QLatin1String(EnableCommand), QLatin1String("FALSE"));
    setConfigEditable(true);
    ui->pushButton_main_enable->setChecked(false);
}

void WeldSettingPage::setConfigEditable(bool editable)
{
    setEnabledAll({ui->frame, ui->frame_2, ui->frame_3, ui->frame_4, ui->frame_WireSticking,
                   ui->pushButton_cancel, ui->pushButton_save},
                  editable);
}

void WeldSettingPage::setRetractionPlanStatus(bool isOn)
{
    setEnabledAll({ui->doubleSpinBox_retraction_distance, ui->doubleSpinBox_retraction_speed},
                  isOn);
}

void WeldSettingPage::setFeederPlanStatus(bool isOn)
{
    setEnabledAll({ui->comboBox_wire_feeder_comm_type, ui->comboBox_wire_feed_type,
                   ui->doubleSpinBox_max_feed_speed, ui->doubleSpinBox_manual_feed_speed,
                   ui->doubleSpinBox_manual_retract_speed, ui->spinBox_wire_feedback_detection},
                  isOn);
}

void WeldSettingPage::setWireStickingPlanStatus(bool isOn)
{
    setEnabledAll({ui->spinBox_detection_time, ui->comboBox_detection_do, ui->comboBox_feedback_di},
                  isOn);
    ui->spinBox_detection_time->setEnabled(true);
}

void WeldSettingPage::buttontest()
{
    qelplugin::qelPluginInterface().getRegisterHash();
    sendSaveCommand();
    Host::tellWarning(QLatin1String("123123"));
}

void WeldSettingPage::showEvent(QShowEvent* event)
{
    fillPorts(ui->comboBox_detection_do, JsonCommon::doList());
    fillPorts(ui->comboBox_feedback_di, JsonCommon::diList());
    QWidget::showEvent(event);
    loadFromController();
    setRetractionPlanStatus(true);
    setFeederPlanStatus(ui->pushButton_Feeder->isChecked());
    setEnabled(Host::mayOperate());
    setConfigEditable(!isMainEnabled());
    polishFields();
    relaxLayout();
    arrangeColumns();
}

void WeldSettingPage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (isVisible()) // before, nothing is polished and no width is right
        arrangeColumns();
}

// Beside each other the columns would squeeze captions, fields and units into each other where the
// page is narrower than both; it scrolls downwards, but not to the side.
void WeldSettingPage::arrangeColumns()
{
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (!grid)
        return;
    const QMargins margins = grid->contentsMargins();
    const int needed = ui->widget_3->minimumSizeHint().width() +
                       ui->widget_2->minimumSizeHint().width() + grid->horizontalSpacing() +
                       margins.left() + margins.right();
    const bool isNarrow = width() < needed;
    if (isNarrow == columnsAreStacked)
        return;
    columnsAreStacked = isNarrow;
    const int span = isNarrow ? 2 : 1;
    grid->removeWidget(ui->widget_3);
    grid->removeWidget(ui->widget_2);
    grid->addWidget(ui->widget_3, 1, 0, 1, span);
    grid->addWidget(ui->widget_2, isNarrow ? 2 : 1, isNarrow ? 0 : 1, 1, span);
}

void WeldSettingPage::applyPageStyle()
{
    applyBaseStyle(this);
    for (QFrame* Form::*frame : Frames)
        applyConfigFrameStyle((*ui).*frame);
    polishFields();
    relaxLayout();
}

void WeldSettingPage::polishFields()
{
    // Qt lays a page out anew for each font that is set, also for the one that is there already.
    const QFont font = UiScale::font(10, this);
    if (font != fieldFont) {
        UiScale::applyFonts(this, 10);
        fieldFont = font;
    }
    polishSwitches();
    // All labels and fields of the page stand in the frames. Their columns stand in line, and no
    // unit is cut off on a dense screen.
    const int widestUnit = PageLayout::polishLabels(this, UiScale::pixels(40, this));
    PageLayout::polishFields(this, UiScale::pixels(120, this), fieldHeight(this));
    for (QFrame* Form::*frame : Frames)
        PageLayout::setUnitColumn((*ui).*frame, widestUnit);
}

void WeldSettingPage::polishSwitches()
{
    const QSize size = switchSize(this);
    const auto switches = findChildren<EnableButton*>();
    for (EnableButton* each : switches) {
        each->setMaximumSize(size);
        // The main switch is never smaller than a switch is made, its maximum notwithstanding.
        each->setMinimumSize(
            each == ui->pushButton_main_enable ? size.expandedTo(each->minimumSizeHint()) : size);
    }
}

void WeldSettingPage::relaxLayout()
{
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (!grid)
        return;
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    UiScale::expand(this);
    grid->setAlignment(Qt::AlignTop);
    PageLayout::clearRowStretch(grid, 1);
    PageLayout::shareColumns(grid, 1);
    PageLayout::relaxSpacers(this);
    PageLayout::setSpacings(this);
    relaxHeader();
    relaxColumns();
    grid->invalidate();
    updateGeometry();
}

void WeldSettingPage::relaxHeader()
{
    QLayout* row = ui->frame_5->layout();
    row->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    EnableButton* main = ui->pushButton_main_enable;
    main->setMinimumSize(main->minimumSize().expandedTo(main->minimumSizeHint()));
    const int content =
        std::max(hintHeight(ui->frame_5, ui->label_main_enable), main->minimumHeight());
    const QMargins margins = row->contentsMargins();
    const int edges = margins.top() + margins.bottom() + 2 * ui->frame_5->frameWidth();
    ui->frame_5->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    ui->frame_5->setMinimumHeight(std::max(content + edges, 32));
}

void WeldSettingPage::relaxColumns()
{
    for (QWidget* column : {ui->widget_3, ui->widget_2}) {
        column->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
        PageLayout::packToTop(column);
    }
    ui->horizontalLayout_buttons->setAlignment(Qt::AlignVCenter);
    PageLayout::clearRowStretch(ui->gridLayout_restart, 2);
    for (QFrame* Form::*frame : Frames) {
        if (frame != &Form::frame_5)
            PageLayout::releaseSize((*ui).*frame);
    }
}
