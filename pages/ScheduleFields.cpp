#include "ScheduleFields.h"

namespace {

using Form = ScheduleField::Form;
using Rule = ScheduleField::Rule;

ScheduleField number(const char* key, QSpinBox* Form::*editor, int reset)
{
    return {key, editor, nullptr, nullptr, nullptr, reset, Rule::Plain};
}

ScheduleField choice(const char* key, QComboBox* Form::*editor, int reset, Rule rule = Rule::Plain)
{
    return {key, nullptr, editor, nullptr, nullptr, reset, rule};
}

ScheduleField toggle(const char* key, EnableButton* Form::*editor)
{
    return {key, nullptr, nullptr, editor, nullptr, 0, Rule::Plain};
}

ScheduleField text(const char* key, QLineEdit* Form::*editor)
{
    return {key, nullptr, nullptr, nullptr, editor, 0, Rule::Plain};
}

} // namespace

const QVector<ScheduleField>& scheduleFields()
{
    static const QVector<ScheduleField> fields{
        text("Tips", &Form::lineEdit),
        number("laser_power_start", &Form::doubleSpinBox_laser_power_start_2, 600),
        number("frequency_start", &Form::doubleSpinBox_frequency_start_2, 500),
        number("duty_cycle_start", &Form::doubleSpinBox_duty_cycle_start_2, 100),
        choice("ramp_mode_start", &Form::comboBox_ramp_mode_start, 2, Rule::Ramp),
        number("ramp_value_start", &Form::spinBox_ramp_value_start, 200),
        number("delay_time_start", &Form::spinBox_delay_time_start_2, 0),
        number("welding_speed", &Form::doubleSpinBox_welding_speed_3, 20),
        number("laser_power_weld", &Form::doubleSpinBox_laser_power_weld_3, 1200),
        number("frequency_weld", &Form::doubleSpinBox_frequency_weld_3, 500),
        number("duty_cycle_weld", &Form::doubleSpinBox_duty_cycle_weld_2, 80),
        number("laser_power_end", &Form::doubleSpinBox_laser_power_end_2, 600),
        number("frequency_end", &Form::doubleSpinBox_frequency_end_2, 1000),
        number("duty_cycle_end", &Form::doubleSpinBox_duty_cycle_end_2, 100),
        choice("ramp_mode_end", &Form::comboBox_ramp_mode_end, 2, Rule::Ramp),
        number("ramp_value_end", &Form::spinBox_ramp_value_end, 200),
        number("delay_time_end", &Form::spinBox_delay_time_end_2, 100),
        choice("laser_off_mode", &Form::comboBox_laser_off_mode, 1, Rule::ZeroFirst),
        toggle("wire_feed_enable_start", &Form::pushButton_wire_feed_enable_start),
        number("feeding_speed_start", &Form::doubleSpinBox_feeding_speed_start, 10),
        choice("wire_mode_start", &Form::comboBox_wire_mode_start, 0),
        number("wire_feed_time_start", &Form::spinBox_wire_feed_time_start, 100),
        number("feeding_speed_run", &Form::doubleSpinBox_feeding_speed_run, 15),
        toggle("wire_feed_enable_end", &Form::pushButton_wire_feed_enable_end),
        number("wire_speed_end", &Form::doubleSpinBox_wire_speed_end, 10),
        choice("wire_mode_end", &Form::comboBox_wire_mode_end, 0),
        number("wire_feed_time_end", &Form::spinBox_wire_feed_time_end, 100),
        toggle("wire_stick_enable_end", &Form::pushButton_wire_stick_enable_end),
        toggle("wire_retraction_end", &Form::pushButton_wire_retraction_end),
        number("wire_retract_end", &Form::doubleSpinBox_wire_retract_end, 30),
        number("wire_retract_time_end", &Form::spinBox_wire_retract_time_end, 100),
        toggle("wire_fill_com_end", &Form::pushButton_wire_fill_com_end),
        number("fill_delay_time_end", &Form::spinBox_fill_delay_time_end, 50),
        number("fill_wire_speed_end", &Form::doubleSpinBox_fill_wire_speed_end, 30),
        number("fill_wire_time_end", &Form::spinBox_fill_wire_time_end, 100),
        choice("work_mode", &Form::comboBox_work_mode, 0, Rule::OneSecond),
        number("swing_job", &Form::spinBox_swing_job, 0),
        number("process_job", &Form::spinBox_process_job, 0),
    };
    return fields;
}
