#include "DefaultCell.h"

#include "Controller.h"
#include "Points.h"
#include "RecordKeys.h"
#include "WeldCurves.h"
#include "WeldDevice.h"
#include "WeldParameterCheck.h"
#include "WeldSignals.h"

#include <initializer_list>
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

QJsonObject defaultWeldIo()
{
    QJsonObject record;
    for (const WeldSignal& signal : weldSignals()) {
        const QString port = QLatin1String(signal.usualPort);
        record.insert(signal.typeKey(), 0);
        record.insert(signal.portKey(), port);
        record.insert(signal.biasKey(), 0);
        if (signal.switchKey)
            record.insert(QLatin1String(signal.switchKey), !port.isEmpty());
    }
    return record;
}

/// What a schedule has of its own; the rest is usual.
struct Schedule
{
    const char* comment;
    int power; ///< W
    int speed; ///< mm/s
    int wire;  ///< mm/s; 0: without wire
};

constexpr Schedule schedules[] = {
    {"Lap seam, 1 mm", 1200, 20, 0},  {"Lap seam, 2 mm", 2200, 15, 0},
    {"Fillet, 2 mm", 2000, 12, 14},   {"Butt seam, gap 0.3 mm", 1600, 18, 20},
    {"Spot for tacking", 900, 40, 0},
};

/// The numbers that are the same in all schedules.
const QJsonObject& usualSchedule()
{
    static const QJsonObject record{
        {QStringLiteral("laser_power_start"), 600},
        {QStringLiteral("frequency_start"), 500},
        {QStringLiteral("duty_cycle_start"), 100},
        {QStringLiteral("ramp_mode_start"), 2},
        {QStringLiteral("ramp_value_start"), 200},
        {QStringLiteral("delay_time_start"), 50},
        {QStringLiteral("frequency_weld"), 500},
        {QStringLiteral("duty_cycle_weld"), 80},
        {QStringLiteral("laser_power_end"), 600},
        {QStringLiteral("frequency_end"), 1000},
        {QStringLiteral("duty_cycle_end"), 100},
        {QStringLiteral("ramp_mode_end"), 2},
        {QStringLiteral("ramp_value_end"), 200},
        {QStringLiteral("delay_time_end"), 100},
        {QStringLiteral("laser_off_mode"), 1},
        {QStringLiteral("wire_mode_start"), 0},
        {QStringLiteral("wire_feed_time_start"), 100},
        {QStringLiteral("wire_mode_end"), 0},
        {QStringLiteral("wire_feed_time_end"), 100},
        {QStringLiteral("wire_retract_end"), 30},
        {QStringLiteral("wire_retract_time_end"), 100},
        {QStringLiteral("wire_fill_com_end"), false},
        {QStringLiteral("fill_delay_time_end"), 50},
        {QStringLiteral("fill_wire_speed_end"), 30},
        {QStringLiteral("fill_wire_time_end"), 100},
        {QStringLiteral("work_mode"), 0},
        {QStringLiteral("swing_job"), 0},
        {QStringLiteral("process_job"), 0},
    };
    return record;
}

QJsonObject scheduleRecord(const QString& key, const Schedule& schedule)
{
    QJsonObject record = usualSchedule();
    record.insert(QStringLiteral("LsDataID"), key);
    record.insert(QStringLiteral("Tips"), QLatin1String(schedule.comment));
    record.insert(QStringLiteral("laser_power_weld"), schedule.power);
    record.insert(QStringLiteral("welding_speed"), schedule.speed);
    for (const char* speed : {"feeding_speed_start", "feeding_speed_run", "wire_speed_end"})
        record.insert(QLatin1String(speed), schedule.wire);
    for (const char* wired : {"wire_feed_enable_start", "wire_feed_enable_end",
                              "wire_stick_enable_end", "wire_retraction_end"})
        record.insert(QLatin1String(wired), schedule.wire > 0);
    return record;
}

QJsonObject defaultSchedules()
{
    QJsonObject records;
    int number = 0;
    for (const Schedule& schedule : schedules) {
        const QString key = scheduleKey(++number);
        records.insert(key, scheduleRecord(key, schedule));
    }
    return records;
}

QJsonArray numbers(std::initializer_list<double> list)
{
    QJsonArray array;
    for (double each : list)
        array.append(each);
    return array;
}

QJsonObject defaultMatching()
{
    // Power, frequency and duty cycle that take part.
    const bool switches[][3] = {{true, false, false}, {true, true, true}, {false, false, false}};
    QJsonObject records;
    int number = 0;
    for (const auto& [power, frequency, duty] : switches) {
        const QString key = matchingKey(++number);
        records.insert(
            key, QJsonObject{
                     {QStringLiteral("PowerDataID"), key},
                     {QStringLiteral("power_enable"), power},
                     {QStringLiteral("frequency_enable"), frequency},
                     {QStringLiteral("dutycycle_enable"), duty},
                     {QStringLiteral("power_data"),
                      QJsonArray{numbers({5, 600, 200, 40}), numbers({15, 1200, 400, 60}),
                                 numbers({30, 1900, 700, 80}), numbers({60, 2800, 1000, 100})}}});
    }
    return records;
}

/// As measured: nearly on a line.
QJsonObject defaultCurves()
{
    const QJsonArray nodes[] = {
        {numbers({1, 560}), numbers({3, 1810}), numbers({5, 2990}), numbers({7, 4230}),
         numbers({10, 6000})},
        {numbers({0, 0}), numbers({5, 98}), numbers({10, 200})},
        {numbers({0, 0}), numbers({10, 5000})},
        {numbers({0.1, 1}), numbers({2.5, 26}), numbers({5, 49}), numbers({10, 100})},
    };
    QJsonObject record;
    const QJsonArray* curveNodes = nodes;
    for (const WeldCurve& curve : weldCurves()) {
        record.insert(QLatin1String(curve.numberKey), curveNodes->size());
        record.insert(QLatin1String(curve.nodesKey), *curveNodes++);
    }
    return record;
}

constexpr const char* tools[] = {"tool0", "laser_torch", "laser_torch_wire", "gripper", "probe"};
constexpr const char* workObjects[] = {"wobj0", "fixture_a", "fixture_b", "positioner", "tray"};
// The number is the speed in mm/s, and the radius of the zone in mm.
constexpr const char* speeds[] = {"v5",   "v10",  "v20",  "v30",  "v40",  "v50",
                                  "v60",  "v80",  "v100", "v150", "v200", "v300",
                                  "v400", "v500", "v600", "v800", "v1000"};
constexpr const char* zones[] = {"fine", "z1",  "z5",  "z10", "z15", "z20",
                                 "z30",  "z40", "z50", "z60", "z80", "z100"};
/// Those that the example programs name.
constexpr const char* points[] = {"home", "p1", "p2", "p3", "p4", "p5"};

template<std::size_t N>
QJsonArray nameList(const char* const (&names)[N])
{
    QJsonArray list;
    for (const char* name : names)
        list.append(QLatin1String(name));
    return list;
}

QJsonArray defaultPoints()
{
    QJsonArray list;
    for (const char* name : points)
        list = withPoint(
            list, {QLatin1String(name), QLatin1String(tools[0]), QLatin1String(workObjects[0])});
    return list;
}

const char* const seamProgram =
    R"(// Lap seam on fixture A: a straight part, an arc and the way back.
// The points p1 to p3 lie on the seam, p4 and p5 on the ring behind it.

LsParaMatch("PowerData1");
LsMoveL(p1, v100, fine, tool0, wobj0);

// Weld the seam with a change of the schedule on the way.
LaserOn("LsData1");
LsMoveL(p2, v20, z1, tool0, wobj0);
LsParaSet("LsData1");
LsMoveC(p3, p4, v20, fine, tool0, wobj0);
LaserOff();

// Free the wire, then leave the seam upwards.
LsWireBwd(50,1000);
LsMoveL(Offs(p4,0,0,100), v200, z10, tool0, wobj0);
LsParaMatchOff();
)";

const char* const ringProgram = R"(// Full circle around a pipe, held by a spot weld first.

LsMoveL(p4, v100, fine, tool0, wobj0);
LaserOn("LsData1", 300);
LaserOff();

LsWireFwd(50,1000);
LaserOn("LsData1");
LsMoveCF(p4, p5, 360, "RotAxis", v10, fine, tool0, wobj0);
LaserOff();

LsMoveL(RelTool(p4,0,0,-50,0,0,0), v200, z10, tool0, wobj0); // clear of the pipe
LsMoveL(home, v500, fine, tool0, wobj0);
)";

} // namespace

QStringList portKinds()
{
    return {QStringLiteral("AI"), QStringLiteral("AO"), QStringLiteral("DI"),
            QStringLiteral("DO"), QStringLiteral("GI"), QStringLiteral("GO")};
}

Programs defaultPrograms()
{
    return {{QStringLiteral("example_ring"), ringProgram},
            {QStringLiteral("example_seam"), seamProgram}};
}

Records defaultRecords(const CellSize& size)
{
    return {
        {keys::ports, defaultPorts(size.ports)},
        {keys::registers, defaultRegisters(size.registers)},
        {keys::weldSetting, defaultWeldSetting()},
        {keys::weldIo, defaultWeldIo()},
        {keys::weldData, WeldDevice::storedData({})},
        {keys::weldSchedules, defaultSchedules()},
        {keys::weldMatching, defaultMatching()},
        {keys::weldCurves, defaultCurves()},
        {keys::tools, nameList(tools)},
        {keys::workObjects, nameList(workObjects)},
        {keys::speeds, nameList(speeds)},
        {keys::zones, nameList(zones)},
        {keys::points, defaultPoints()},
        {keys::selection, QJsonObject{{keys::tool, QLatin1String(tools[1])},
                                      {keys::workObject, QLatin1String(workObjects[0])}}},
    };
}

} // namespace pendant
