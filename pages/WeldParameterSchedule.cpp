// The schedules of WeldParameterPage.

#include "EnableButton.h"
#include "RecordNames.h"
#include "ScheduleFields.h"
#include "WeldParameterPage.h"
#include "ui_WeldParameterPage.h"

#include <qelplugin.h>

namespace {

constexpr char ServiceKey[] = "weld_param_config";
constexpr char Command[] = "set_weld_param_list_config";
constexpr int TimeRamp = 2;

using Form = Ui_WeldParameterPage;
using Rule = ScheduleField::Rule;

/// Columns 1 to 4 of the list.
constexpr const char* ListedNumbers[] = {"welding_speed", "laser_power_weld", "feeding_speed_run"};
constexpr int CommentColumn = 4;

QJsonObject records()
{
    return qelplugin::qelPluginInterface().getQelServiceData(QLatin1String(ServiceKey)).toObject();
}

void setCell(QTableWidget* table, int row, int column, const QString& text)
{
    if (QTableWidgetItem* item = table->item(row, column))
        item->setText(text);
    else
        table->setItem(row, column, new QTableWidgetItem(text));
}

int choiceOf(const ScheduleField& field, const QJsonObject& record)
{
    const QJsonValue value = record.value(QLatin1String(field.key));
    switch (field.rule) {
    case Rule::Ramp:
        return TimeRamp;
    case Rule::ZeroFirst:
        return !value.isUndefined() && value.toInt() == 0 ? 0 : 1;
    case Rule::OneSecond:
        return value.toInt() == 1 ? 1 : 0;
    case Rule::Plain:
        break;
    }
    return value.toInt();
}

void loadField(const Form& form, const ScheduleField& field, const QJsonObject& record)
{
    const QJsonValue value = record.value(QLatin1String(field.key));
    if (field.spinBox)
        (form.*field.spinBox)->setValue(value.toInt());
    else if (field.comboBox)
        (form.*field.comboBox)->setCurrentIndex(choiceOf(field, record));
    else if (field.toggle)
        (form.*field.toggle)->setChecked(value.toBool());
    else
        (form.*field.text)->setText(value.toString());
}

void resetField(const Form& form, const ScheduleField& field)
{
    if (field.spinBox)
        (form.*field.spinBox)->setValue(field.reset);
    else if (field.comboBox)
        (form.*field.comboBox)->setCurrentIndex(field.reset);
    else if (field.toggle)
        (form.*field.toggle)->setChecked(false);
    else
        (form.*field.text)->clear();
}

QJsonValue fieldValue(const Form& form, const ScheduleField& field)
{
    if (field.rule == Rule::Ramp)
        return TimeRamp;
    if (field.spinBox)
        return (form.*field.spinBox)->value();
    if (field.comboBox)
        return (form.*field.comboBox)->currentIndex();
    if (field.toggle)
        return (form.*field.toggle)->isChecked();
    return (form.*field.text)->text();
}

void setVisibleAll(std::initializer_list<QWidget*> widgets, bool visible)
{
    for (QWidget* each : widgets)
        each->setVisible(visible);
}

} // namespace

void WeldParameterPage::setTableProcessData()
{
    const QJsonObject all = records();
    for (int row = 0; row < RecordNames::ScheduleCount; ++row) {
        const QString key = RecordNames::scheduleName(row + 1);
        if (!all.contains(key))
            continue;
        const QJsonObject record = all.value(key).toObject();
        int column = 1;
        for (const char* number : ListedNumbers)
            setCell(ui->tableWidget, row, column++,
                    QString::number(record.value(QLatin1String(number)).toInt()));
        setCell(ui->tableWidget, row, CommentColumn,
                record.value(QLatin1String("Tips")).toString());
    }
}

void WeldParameterPage::loadProcessData(const QString& key)
{
    const QJsonObject all = records();
    if (!all.contains(key)) {
        resetProcessDefaults();
        updateWireRows();
        updateRampRows();
        return;
    }
    const QJsonObject record = all.value(key).toObject();
    for (const ScheduleField& field : scheduleFields())
        loadField(*ui, field, record);
    updateWireRows();
    showJobRow();
    updateRampRows();
}

void WeldParameterPage::resetProcessDefaults()
{
    for (const ScheduleField& field : scheduleFields())
        resetField(*ui, field);
    updateRampRows();
    showJobRow();
}

QJsonObject WeldParameterPage::createProcessDataJson() const
{
    const QString key = ui->label_ID->text();
    QJsonObject record{{QLatin1String("LsDataID"), key}};
    for (const ScheduleField& field : scheduleFields())
        record.insert(QLatin1String(field.key), fieldValue(*ui, field));
    return {{QLatin1String(Command), QJsonObject{{key, record}}}};
}

void WeldParameterPage::connectSwitches()
{
    connect(ui->pushButton_wire_feed_enable_start, &EnableButton::enabled, this, [this](bool isOn) {
        ui->pushButton_wire_feed_enable_end->setChecked(isOn);
        updateWireRows();
    });
    connect(ui->pushButton_wire_feed_enable_end, &EnableButton::enabled, this, [this](bool isOn) {
        ui->pushButton_wire_feed_enable_start->setChecked(isOn);
        updateWireRows();
    });
    connect(ui->pushButton_wire_retraction_end, &EnableButton::enabled, this, [this](bool isOn) {
        showRetractionRows(isOn);
        ui->frame_20->setVisible(isOn);
        if (!isOn)
            ui->pushButton_wire_fill_com_end->setChecked(false);
        updateWireRows();
    });
    connect(ui->pushButton_wire_fill_com_end, &EnableButton::enabled, this, [this](bool isOn) {
        showFillRows(isOn);
        updateWireRows();
    });
    connect(ui->comboBox_work_mode, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &WeldParameterPage::showJobRow);
}

void WeldParameterPage::showJobRow()
{
    setVisibleAll({ui->label_process_job, ui->spinBox_process_job},
                  ui->comboBox_work_mode->currentIndex() == 1);
}

void WeldParameterPage::showFillRows(bool shown)
{
    setVisibleAll({ui->label_89, ui->spinBox_fill_delay_time_end, ui->label_90,
                   ui->doubleSpinBox_fill_wire_speed_end, ui->label_91,
                   ui->spinBox_fill_wire_time_end},
                  shown);
}

void WeldParameterPage::showRetractionRows(bool shown)
{
    setVisibleAll({ui->label_86, ui->doubleSpinBox_wire_retract_end, ui->label_87,
                   ui->spinBox_wire_retract_time_end},
                  shown);
}

// Without wire there is no retraction, no detection and no compensation, and they are switched off
// for good. The units stay as they are.
void WeldParameterPage::updateWireRows()
{
    const bool feeds = ui->pushButton_wire_feed_enable_end->isChecked();
    ui->pushButton_wire_feed_enable_start->setChecked(feeds);
    setVisibleAll({ui->label_81, ui->doubleSpinBox_wire_speed_end, ui->comboBox_wire_mode_end,
                   ui->label_82, ui->spinBox_wire_feed_time_end, ui->label_85,
                   ui->pushButton_wire_stick_enable_end, ui->label_75,
                   ui->doubleSpinBox_feeding_speed_start, ui->comboBox_wire_mode_start,
                   ui->label_76, ui->spinBox_wire_feed_time_start, ui->frame_19},
                  feeds);
    if (!feeds) {
        ui->pushButton_wire_retraction_end->setChecked(false);
        ui->pushButton_wire_stick_enable_end->setChecked(false);
        ui->pushButton_wire_fill_com_end->setChecked(false);
    }
    const bool retracts = feeds && ui->pushButton_wire_retraction_end->isChecked();
    showFillRows(feeds && ui->pushButton_wire_fill_com_end->isChecked());
    showRetractionRows(retracts);
    ui->frame_20->setVisible(retracts);
}

void WeldParameterPage::updateRampRows()
{
    setVisibleAll({ui->spinBox_ramp_value_start, ui->label_73},
                  ui->comboBox_ramp_mode_start->currentIndex() != 0);
    setVisibleAll({ui->spinBox_ramp_value_end, ui->label_74},
                  ui->comboBox_ramp_mode_end->currentIndex() != 0);
}
