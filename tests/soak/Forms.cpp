#include "Forms.h"

#include "Failure.h"
#include "TourStage.h"
#include "WeldSignals.h"

#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPixmap>
#include <QTableWidget>

#include <iterator>

namespace soak::Forms {

namespace {

using pendant::WeldSignal;

/// Field of a schedule and the widget that shows it.
struct Field
{
    const char* key;
    const char* widget;
};

constexpr Field ScheduleNumbers[] = {
    {"laser_power_start", "doubleSpinBox_laser_power_start_2"},
    {"frequency_start", "doubleSpinBox_frequency_start_2"},
    {"duty_cycle_start", "doubleSpinBox_duty_cycle_start_2"},
    {"ramp_value_start", "spinBox_ramp_value_start"},
    {"delay_time_start", "spinBox_delay_time_start_2"},
    {"welding_speed", "doubleSpinBox_welding_speed_3"},
    {"laser_power_weld", "doubleSpinBox_laser_power_weld_3"},
    {"frequency_weld", "doubleSpinBox_frequency_weld_3"},
    {"duty_cycle_weld", "doubleSpinBox_duty_cycle_weld_2"},
    {"laser_power_end", "doubleSpinBox_laser_power_end_2"},
    {"frequency_end", "doubleSpinBox_frequency_end_2"},
    {"duty_cycle_end", "doubleSpinBox_duty_cycle_end_2"},
    {"ramp_value_end", "spinBox_ramp_value_end"},
    {"delay_time_end", "spinBox_delay_time_end_2"},
    {"feeding_speed_start", "doubleSpinBox_feeding_speed_start"},
    {"wire_feed_time_start", "spinBox_wire_feed_time_start"},
    {"feeding_speed_run", "doubleSpinBox_feeding_speed_run"},
    {"wire_speed_end", "doubleSpinBox_wire_speed_end"},
    {"wire_feed_time_end", "spinBox_wire_feed_time_end"},
    {"wire_retract_end", "doubleSpinBox_wire_retract_end"},
    {"wire_retract_time_end", "spinBox_wire_retract_time_end"},
    {"fill_delay_time_end", "spinBox_fill_delay_time_end"},
    {"fill_wire_speed_end", "doubleSpinBox_fill_wire_speed_end"},
    {"fill_wire_time_end", "spinBox_fill_wire_time_end"},
    {"swing_job", "spinBox_swing_job"},
    {"process_job", "spinBox_process_job"},
};

constexpr Field ScheduleSwitches[] = {
    {"wire_feed_enable_start", "pushButton_wire_feed_enable_start"},
    {"wire_feed_enable_end", "pushButton_wire_feed_enable_end"},
    {"wire_stick_enable_end", "pushButton_wire_stick_enable_end"},
    {"wire_retraction_end", "pushButton_wire_retraction_end"},
    {"wire_fill_com_end", "pushButton_wire_fill_com_end"},
};

constexpr Field ScheduleChoices[] = {
    {"laser_off_mode", "comboBox_laser_off_mode"},
    {"wire_mode_start", "comboBox_wire_mode_start"},
    {"wire_mode_end", "comboBox_wire_mode_end"},
    {"work_mode", "comboBox_work_mode"},
};

constexpr const char* SettingNumbers[] = {
    "laser_power",          "feedback_delay",          "pre_gas_time",
    "delay_off_time",       "detection_delay",         "manual_gas_time",
    "retraction_distance",  "retraction_speed",        "detection_time",
    "max_feed_speed",       "manual_feed_speed",       "manual_retract_speed",
    "laser_check_out_time", "wire_feedback_detection",
};

constexpr Curve Curves[CurveCount] = {
    {"Laser Power", "comboBox_node", "tableWidget_laserpower", "pushButton_compute",
     "pushButton_cancel", "pushButton_Save_laserpower", "laser_power_node", "power_nodes_data",
     "set_weld_curve_power_config"},
    {"Feeding Speed", "comboBox_node_2", "tableWidget_feedspeed", "pushButton_compute_5",
     "pushButton_cancel_5", "pushButton_Save_speed", "laser_feed_node", "feed_nodes_data",
     "set_weld_curve_feed_config"},
    {"PWM Frequency", "comboBox_node_3", "tableWidget_frequency", "pushButton_compute_2",
     "pushButton_cancel_2", "pushButton_Save_frequency", "laser_frequency_node",
     "frequency_nodes_data", "set_weld_curve_frequency_config"},
    {"PWM Duty Cycle", "comboBox_node_4", "tableWidget_dutycycle", "pushButton_compute_3",
     "pushButton_cancel_3", "pushButton_Save_dutycycle", "laser_dutycycle_node",
     "dutycycle_nodes_data", "set_weld_curve_dutycycle_config"},
};

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

QJsonValue number(QWidget* field)
{
    return QJsonValue::fromVariant(field->property("value"));
}

QString settingWidget(QWidget* page, const QString& key)
{
    const QString plain = QStringLiteral("spinBox_") + key;
    return page->findChild<QWidget*>(plain) ? plain : QStringLiteral("doubleSpinBox_") + key;
}

template<std::size_t Count>
QStringList widgetsOf(const Field (&fields)[Count])
{
    QStringList names;
    for (const Field& each : fields)
        names << latin(each.widget);
    return names;
}

void readSignal(QWidget* page, const WeldSignal& signal, QJsonObject* record)
{
    const QString key = latin(signal.key);
    const auto box = [&](const char* ending) {
        return within<QComboBox>(page, QStringLiteral("comboBox_%1_%2").arg(key, latin(ending)));
    };
    int type = 0;
    while (type < pendant::RegisterType && placeOf(signal, type) != box("type")->currentText())
        ++type;
    record->insert(signal.typeKey(), type);
    record->insert(signal.portKey(), box("port")->currentText());
    record->insert(signal.biasKey(), type == pendant::RegisterType && !box("bias")->isHidden()
                                         ? box("bias")->currentText().toInt() - 1
                                         : 0);
    if (signal.switchKey) {
        const QString name = QStringLiteral("pushButton_") + latin(signal.switchKey);
        record->insert(latin(signal.switchKey), isOn(within(page, name)));
    }
}

} // namespace

QWidget* within(QWidget* page, const QString& name)
{
    auto* found = page ? page->findChild<QWidget*>(name) : nullptr;
    demand(found, QStringLiteral("there is no \"%1\"").arg(name));
    return found;
}

// The thumb of a switch that is on is blue. It lies at the one end or the other, or slides.
bool isOn(QWidget* toggle)
{
    const QImage picture = toggle->grab().toImage();
    const int row = picture.height() / 2;
    for (int x = 0; x < picture.width(); ++x) {
        const QColor colour = picture.pixelColor(x, row);
        if (colour == QColor(26, 115, 232))
            return true;
    }
    return false;
}

QJsonObject setting(QWidget* page)
{
    QJsonObject record{{QStringLiteral("laser_comm_type"), 0},
                       {QStringLiteral("wire_feeder_comm_type"), 0}};
    record.insert(QStringLiteral("laser_main_enable"),
                  isOn(within(page, QStringLiteral("pushButton_main_enable"))));
    record.insert(QStringLiteral("feeder_enable"),
                  isOn(within(page, QStringLiteral("pushButton_Feeder"))));
    for (const char* key : SettingNumbers)
        record.insert(latin(key), number(within(page, settingWidget(page, latin(key)))));
    return record;
}

QJsonObject mapping(QWidget* page)
{
    QJsonObject record;
    for (const WeldSignal& signal : pendant::weldSignals())
        readSignal(page, signal, &record);
    return record;
}

QJsonObject schedule(QWidget* page)
{
    constexpr int byTime = 2;
    QJsonObject record{{QStringLiteral("ramp_mode_start"), byTime},
                       {QStringLiteral("ramp_mode_end"), byTime}};
    record.insert(QStringLiteral("LsDataID"),
                  within(page, QStringLiteral("label_ID"))->property("text").toString());
    auto* header = within(page, QStringLiteral("frame_config_header"));
    record.insert(QStringLiteral("Tips"),
                  within<QLineEdit>(header, QStringLiteral("lineEdit"))->text());
    for (const Field& field : ScheduleNumbers)
        record.insert(latin(field.key), number(within(page, latin(field.widget))));
    for (const Field& field : ScheduleSwitches)
        record.insert(latin(field.key), isOn(within(page, latin(field.widget))));
    for (const Field& field : ScheduleChoices)
        record.insert(latin(field.key),
                      within<QComboBox>(page, latin(field.widget))->currentIndex());
    return record;
}

// Two rows of headers, then four of numbers; the switches stand in the first.
QJsonObject matching(QWidget* page)
{
    constexpr const char* switches[] = {"power_enable", "frequency_enable", "dutycycle_enable"};
    auto* table = within<QTableWidget>(page, QStringLiteral("tableWidget_matching"));
    QJsonObject record;
    record.insert(QStringLiteral("PowerDataID"),
                  within(page, QStringLiteral("label_ProcessID"))->property("text").toString());
    for (int index = 0; index < 3; ++index) {
        const auto inCell = table->cellWidget(0, index + 2)->findChildren<QWidget*>();
        record.insert(latin(switches[index]), isOn(inCell.value(0)));
    }
    QJsonArray rows;
    for (int row = 2; row < 6; ++row) {
        QJsonArray values;
        for (int column = 1; column < 5; ++column)
            values.append(number(table->cellWidget(row, column)));
        rows.append(values);
    }
    record.insert(QStringLiteral("power_data"), rows);
    return record;
}

QStringList settingNumbers(QWidget* page)
{
    QStringList names;
    for (const char* key : SettingNumbers)
        names << settingWidget(page, latin(key));
    return names;
}

QStringList scheduleNumbers()
{
    return widgetsOf(ScheduleNumbers);
}

QStringList scheduleSwitches()
{
    return widgetsOf(ScheduleSwitches);
}

QStringList scheduleChoices()
{
    return widgetsOf(ScheduleChoices);
}

const Curve& curve(int index)
{
    return Curves[index];
}

QJsonObject curveRecord(QWidget* page, int index)
{
    constexpr int leastNodes = 2;
    auto* table = within<QTableWidget>(page, latin(Curves[index].table));
    auto* box = within<QComboBox>(page, latin(Curves[index].nodeBox));
    QJsonArray nodes;
    for (int row = 0; row < table->rowCount(); ++row)
        nodes.append(
            QJsonArray{number(table->cellWidget(row, 1)), number(table->cellWidget(row, 2))});
    return {{latin(Curves[index].nodeKey), box->currentIndex() + leastNodes},
            {latin(Curves[index].dataKey), nodes}};
}

QString complaint(const QJsonArray& nodes)
{
    constexpr const char* context = "CharacteristicsCurvePage";
    if (nodes.size() < 2)
        return pendant::shown(context,
                              "Validation failed,The table requires at least two rows of data!");
    for (int row = 1; row < nodes.size(); ++row) {
        for (int column = 0; column < 2; ++column) {
            if (nodes.at(row)[column].toDouble() <= nodes.at(row - 1)[column].toDouble())
                return pendant::shown(
                           context, "The data in line %1 must be greater than the data in row %2!")
                    .arg(row + 1)
                    .arg(row);
        }
    }
    return {};
}

} // namespace soak::Forms
