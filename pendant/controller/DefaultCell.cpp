#include "DefaultCell.h"

#include "Controller.h"
#include "Points.h"
#include "RecordKeys.h"
#include "WeldDevice.h"
#include "WeldSignals.h"

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
