#pragma once

#include "EnableButton.h"
#include "LogFolder.h"
#include "ScriptedHost.h"
#include "TestCase.h"
#include "WeldParameterPage.h"
#include "WeldSettingPage.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>

#include <algorithm>
#include <memory>

/// What the tests of the schedules share: their fields as they are to be, and the page on a host.
namespace ScheduleTest {

inline QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromLatin1(text, int(size));
}

inline QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// A number of a schedule. Rows are those of its frame's grid.
struct Number
{
    const char* key;
    const char* editor;
    int low, high, form, reset;
    const char* frame;
    int row;
    const char* caption;
    const char* unit;
};

constexpr Number Numbers[] = {
    {"laser_power_start", "doubleSpinBox_laser_power_start_2", 0, 9999, 600, 600, "frame", 0,
     "Power", "W"},
    {"frequency_start", "doubleSpinBox_frequency_start_2", 1, 9999, 100, 500, "frame", 1,
     "Frequency", "Hz"},
    {"duty_cycle_start", "doubleSpinBox_duty_cycle_start_2", 1, 100, 100, 100, "frame", 2, "Duty",
     "%"},
    {"ramp_value_start", "spinBox_ramp_value_start", 0, 1000, 200, 200, "frame", 4, "Ramp up time",
     "ms"},
    {"delay_time_start", "spinBox_delay_time_start_2", 0, 2000, 50, 0, "frame", 5,
     "Motion delay time", "ms"},
    {"feeding_speed_start", "doubleSpinBox_feeding_speed_start", 0, 500, 10, 10, "frame_16", 1,
     "Wire feed speed", "mm/s"},
    {"wire_feed_time_start", "spinBox_wire_feed_time_start", 0, 1000, 100, 100, "frame_16", 4,
     "Wire feed time", "ms"},
    {"welding_speed", "doubleSpinBox_welding_speed_3", 1, 200, 20, 20, "frame_2", 3,
     "Welding speed", "mm/s"},
    {"feeding_speed_run", "doubleSpinBox_feeding_speed_run", 0, 500, 10, 15, "frame_2", 4,
     "Wire feed speed", "mm/s"},
    {"laser_power_weld", "doubleSpinBox_laser_power_weld_3", 0, 9999, 1200, 1200, "frame_2", 5,
     "Power", "W"},
    {"frequency_weld", "doubleSpinBox_frequency_weld_3", 1, 9999, 500, 500, "frame_2", 6,
     "Frequency", "Hz"},
    {"duty_cycle_weld", "doubleSpinBox_duty_cycle_weld_2", 1, 100, 80, 80, "frame_2", 7, "Duty",
     "%"},
    {"swing_job", "spinBox_swing_job", 0, 99, 0, 0, "frame_2", 8, "Swing JOB", nullptr},
    {"process_job", "spinBox_process_job", 0, 99, 0, 0, "frame_2", 9, "Process JOB", nullptr},
    {"laser_power_end", "doubleSpinBox_laser_power_end_2", 0, 9999, 600, 600, "frame_3", 0, "Power",
     "W"},
    {"frequency_end", "doubleSpinBox_frequency_end_2", 1, 9999, 1000, 1000, "frame_3", 1,
     "Frequency", "Hz"},
    {"duty_cycle_end", "doubleSpinBox_duty_cycle_end_2", 1, 100, 100, 100, "frame_3", 2, "Duty",
     "%"},
    {"ramp_value_end", "spinBox_ramp_value_end", 0, 1000, 200, 200, "frame_3", 4, "Ramp down time",
     "ms"},
    {"delay_time_end", "spinBox_delay_time_end_2", 0, 2000, 100, 100, "frame_3", 5,
     "Laser off time", "ms"},
    {"wire_speed_end", "doubleSpinBox_wire_speed_end", 0, 500, 10, 10, "frame_17", 1,
     "Wire feed speed", "mm/s"},
    {"wire_feed_time_end", "spinBox_wire_feed_time_end", 0, 1000, 100, 100, "frame_17", 4,
     "Wire close time", "ms"},
    {"wire_retract_end", "doubleSpinBox_wire_retract_end", 0, 200, 30, 30, "frame_19", 1,
     "Retrack speed", "mm/s"},
    {"wire_retract_time_end", "spinBox_wire_retract_time_end", 0, 1000, 100, 100, "frame_19", 2,
     "Retrack time", "ms"},
    {"fill_delay_time_end", "spinBox_fill_delay_time_end", 0, 1000, 50, 50, "frame_20", 1,
     "Delay time", "ms"},
    {"fill_wire_speed_end", "doubleSpinBox_fill_wire_speed_end", 0, 200, 30, 30, "frame_20", 2,
     "Wire feed speed", "mm/s"},
    {"fill_wire_time_end", "spinBox_fill_wire_time_end", 0, 1000, 100, 100, "frame_20", 3,
     "Feed time", "ms"},
};

/// A choice of a schedule.
struct Choice
{
    const char* key;
    const char* editor;
    const char* items; ///< with commas between them
    int reset, row;
    const char* frame;
    const char* caption;
};

constexpr Choice Choices[] = {
    {"ramp_mode_start", "comboBox_ramp_mode_start", "N,Speed,Time", 2, 3, "frame", "Ramp up mode"},
    {"ramp_mode_end", "comboBox_ramp_mode_end", "N,Speed,Time", 2, 3, "frame_3", "Ramp down mode"},
    {"wire_mode_start", "comboBox_wire_mode_start", "Advance,Delay", 0, 4, "frame_16",
     "Wire feed time"},
    {"wire_mode_end", "comboBox_wire_mode_end", "Advance,Delay", 0, 4, "frame_17",
     "Wire close time"},
    {"laser_off_mode", "comboBox_laser_off_mode", "Advance,Delay", 1, 5, "frame_3",
     "Laser off time"},
    {"work_mode", "comboBox_work_mode", "Continuous,JOB", 0, 2, "frame_2", "Work mode"},
};

/// A switch of a schedule.
struct Switch
{
    const char* key;
    const char* editor;
    const char* frame;
    const char* caption;
};

enum SwitchIndex { FeedStart, FeedEnd, Stick, Retraction, Compensation, SwitchCount };

constexpr Switch Switches[] = {
    {"wire_feed_enable_start", "pushButton_wire_feed_enable_start", "frame_16", "Wire feed enable"},
    {"wire_feed_enable_end", "pushButton_wire_feed_enable_end", "frame_17", "Wire enable"},
    {"wire_stick_enable_end", "pushButton_wire_stick_enable_end", "frame_wire_stick_row",
     "Wire stick detect"},
    {"wire_retraction_end", "pushButton_wire_retraction_end", "frame_19", "Wire retrack"},
    {"wire_fill_com_end", "pushButton_wire_fill_com_end", "frame_20", "Wire compensation"},
};

/// A record with no value that is a default and none that is out of its range.
inline QJsonObject fullRecord()
{
    QJsonObject record{{"LsDataID"_s, "LsData7"_s}, {"Tips"_s, "fillet, 3 mm"_s}};
    int step = 2;
    for (const Number& each : Numbers)
        record.insert(text(each.key), each.low + step++);
    for (const Choice& each : Choices)
        record.insert(text(each.key), each.reset == 2 ? 2 : 1 - each.reset);
    for (const Switch& each : Switches)
        record.insert(text(each.key), true);
    return record;
}

/// The record with another value at a key, or without the key for an undefined one.
inline QJsonObject with(QJsonObject record, const char* key, const QJsonValue& value)
{
    record.insert(text(key), value);
    return record;
}

/// The page on a host that holds records of schedules, with a log of its own.
struct PageOnHost
{
    explicit PageOnHost(const QJsonValue& records = QJsonObject())
    {
        host.service.insert("weld_param_config"_s, records);
        host.service.insert("weld_param_match"_s, QJsonObject());
        page = std::make_unique<WeldParameterPage>(setting.get());
    }
    /// A host that holds the record as number 7.
    static QJsonObject seven(const QJsonValue& record) { return {{"LsData7"_s, record}}; }

    template<typename Widget>
    Widget* find(const char* name) const
    {
        return child<Widget>(page.get(), name);
    }
    QSpinBox* number(const Number& each) const { return find<QSpinBox>(each.editor); }
    QComboBox* choice(const Choice& each) const { return find<QComboBox>(each.editor); }
    EnableButton* toggle(int index) const { return find<EnableButton>(Switches[index].editor); }
    QTableWidget* list() const { return find<QTableWidget>("tableWidget"); }
    QStackedWidget* stack() const { return find<QStackedWidget>("stackedWidget"); }
    QLineEdit* comment() const { return find<QLineEdit>("lineEdit"); }

    /// Whether a widget is on show wherever its parents are.
    bool isShown(const char* name) const
    {
        const auto* widget = find<QWidget>(name);
        return !(widget->isHidden() && widget->testAttribute(Qt::WA_WState_ExplicitShowHide));
    }
    bool areShown(const QList<const char*>& names, bool shown) const
    {
        for (const char* name : names) {
            if (isShown(name) != shown) {
                qCritical("%s is %s", name, shown ? "hidden" : "shown");
                return false;
            }
        }
        return true;
    }
    QString cell(int row, int column) const
    {
        const QTableWidgetItem* item = list()->item(row, column);
        return item ? item->text() : "(none)"_s;
    }
    void click(const char* button) const { find<QPushButton>(button)->click(); }
    void press(int index) const { QTest::mouseClick(toggle(index), Qt::LeftButton); }
    /// Selects the schedule of the number and opens it.
    void open(int number) const
    {
        list()->selectRow(number - 1);
        click("pushButton_Config");
    }
    /// The record that the page would save.
    QJsonObject saved() const
    {
        const QJsonObject all =
            page->createProcessDataJson().value("set_weld_param_list_config"_s).toObject();
        return all.value(find<QLabel>("label_ID")->text()).toObject();
    }
    /// No editor holds its default.
    void scramble() const
    {
        for (const Number& each : Numbers)
            number(each)->setValue(each.reset == each.low ? each.high : each.low);
        for (const Choice& each : Choices)
            choice(each)->setCurrentIndex(each.reset == 0 ? 1 : 0);
        for (int index = 0; index < SwitchCount; ++index)
            toggle(index)->setChecked(true);
        comment()->setText("scrambled"_s);
    }
    /// The calls so far with what they asked for, but for those for the zoom, on which all sizes
    /// depend.
    QStringList asked() const
    {
        QStringList calls;
        for (const ScriptedHost::Call& call : host.calls) {
            if (call.name == "getNodeData"_s)
                continue;
            const QString argument = call.arguments.at(0).toString();
            calls << (argument.isEmpty() ? call.name : call.name + QLatin1Char(' ') + argument);
        }
        return calls;
    }

    ScriptedHost host;
    LogFolder folder;
    ConsoleCapture console;
    std::unique_ptr<WeldSettingPage> setting = std::make_unique<WeldSettingPage>(nullptr);
    std::unique_ptr<WeldParameterPage> page;
};

} // namespace ScheduleTest
