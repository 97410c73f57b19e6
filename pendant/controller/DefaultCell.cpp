#include "DefaultCell.h"

#include "Controller.h"
#include "RecordKeys.h"
#include "WeldDevice.h"

#include <iterator>

namespace pendant {
namespace {

// 19 types and 12 accesses have no common divisor: counting both up side by side meets every pair.
constexpr const char* registerTypes[] = {
    "bool",   "bit",   "int8", "uint8", "byte",   "int16", "uint16", "word",   "short", "int32",
    "uint32", "dword", "int",  "int64", "uint64", "long",  "float",  "double", "string"};
constexpr const char* registerAccesses[] = {"ro",   "rw",    "r",        "w",  "rd", "wr",
                                            "read", "write", "readonly", "wo", "wt", "rdwr"};
constexpr int registerLengths[] = {1, 1, 4, 1, 8};

template<typename T, std::size_t N>
T turn(const T (&list)[N], int index)
{
    return list[static_cast<std::size_t>(index) % N];
}

QJsonObject defaultPorts(int count)
{
    QJsonObject ports;
    const QStringList kinds = portKinds();
    for (const QString& kind : kinds) {
        QJsonArray names;
        for (int number = 1; number <= count; ++number)
            names.append(kind + QString::number(number));
        ports.insert(kind, names);
    }
    return ports;
}

QJsonArray defaultRegisters(int count)
{
    QJsonArray registers;
    for (int index = 0; index < count; ++index) {
        registers.append(QJsonObject{
            {QStringLiteral("name"), QStringLiteral("R%1").arg(index + 1)},
            {QStringLiteral("type"), QLatin1String(turn(registerTypes, index))},
            {QStringLiteral("rw"), QLatin1String(turn(registerAccesses, index))},
            {QStringLiteral("len"), turn(registerLengths, index)},
        });
    }
    return registers;
}

QJsonObject defaultWeldSetting()
{
    return {
        {QStringLiteral("laser_main_enable"), false},
        {QStringLiteral("laser_comm_type"), 0},
        {QStringLiteral("laser_power"), 3000},
        {QStringLiteral("feedback_delay"), 1000},
        {QStringLiteral("pre_gas_time"), 300},
        {QStringLiteral("delay_off_time"), 300},
        {QStringLiteral("detection_delay"), 300},
        {QStringLiteral("manual_gas_time"), 5000},
        {QStringLiteral("retraction_distance"), 5},
        {QStringLiteral("retraction_speed"), 20},
        {QStringLiteral("detection_time"), 200},
        {QStringLiteral("feeder_enable"), true},
        {QStringLiteral("wire_feeder_comm_type"), 0},
        {QStringLiteral("max_feed_speed"), 200},
        {QStringLiteral("manual_feed_speed"), 10},
        {QStringLiteral("manual_retract_speed"), 10},
        {QStringLiteral("wire_feedback_detection"), 1000},
        {QStringLiteral("laser_check_out_time"), 200},
    };
}

/// A signal of the weld process. The type is the index of the port's kind; without a port the
/// signal is switched off.
struct Signal
{
    const char* key;
    const char* switchKey; ///< null: the signal is always on
    const char* port;
};

constexpr Signal weldSignals[] = {
    {"laser_enable", nullptr, "DO1"},
    {"power", "power_enabled", "AO1"},
    {"frequency", "frequency_enabled", "AO2"},
    {"duty_cycle", "duty_cycle_enabled", "AO3"},
    {"red_light", "red_light_enabled", "DO2"},
    {"gas_protect", nullptr, "DO3"},
    {"wire_speed", "wire_speed_enabled", "AO4"},
    {"wire_feed", "wire_feed_enabled", "DO4"},
    {"retract_direction", "retract_direction_enabled", "DO5"},
    {"manual_wire_feed", "manual_wire_feed_enabled", "DO6"},
    {"manual_retract", "manual_retract_enabled", "DO7"},
    {"adhesion_detection_en", "adhesion_detection_enabled", ""},
    {"descent_signal", "descent_signal_enabled", ""},
    {"swing_job", "swing_job_enabled", "GO1"},
    {"process_job", "process_job_enabled", ""},
    {"power_feedback", "power_feedback_enabled", "AI1"},
    {"light_feedback", "light_feedback_enabled", "DI1"},
    {"laser_alarm", "laser_alarm_enabled", "DI2"},
    {"shield_gas_feedback", "shield_gas_feedback_enabled", "DI3"},
    {"wire_speed_feedback", "wire_speed_feedback_enabled", "AI2"},
    {"wire_feed_feedback", "wire_feed_feedback_enabled", "DI4"},
    {"wire_feeder_alarm", "wire_feeder_alarm_enabled", "DI5"},
    {"adhesion_detection_feedback", "adhesion_detection_feedback_enabled", ""},
    {"external_alarm", "external_alarm_enabled", "DI6"},
};

QJsonObject defaultWeldIo()
{
    QJsonObject record;
    for (const Signal& signal : weldSignals) {
        const QString key = QLatin1String(signal.key);
        const QString port = QLatin1String(signal.port);
        record.insert(key + QLatin1String("_type"), 0);
        record.insert(key + QLatin1String("_port"), port);
        record.insert(key + QLatin1String("_bias"), 0);
        if (signal.switchKey)
            record.insert(QLatin1String(signal.switchKey), !port.isEmpty());
    }
    return record;
}

} // namespace

QStringList portKinds()
{
    return {QStringLiteral("AI"), QStringLiteral("AO"), QStringLiteral("DI"),
            QStringLiteral("DO"), QStringLiteral("GI"), QStringLiteral("GO")};
}

Records defaultRecords(const CellSize& size)
{
    return {
        {keys::ports, defaultPorts(size.ports)},
        {keys::registers, defaultRegisters(size.registers)},
        {keys::weldSetting, defaultWeldSetting()},
        {keys::weldIo, defaultWeldIo()},
        {keys::weldData, WeldDevice::storedData({})},
    };
}

} // namespace pendant
