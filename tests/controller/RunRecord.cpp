#include "RunRecord.h"

#include "RecordSchema.h"
#include "WeldCurves.h"
#include "WeldDataSamples.h"
#include "WeldParameterCheck.h"
#include "WeldSignals.h"

using pendant::weldSignals;

namespace {

struct RunField
{
    const char* key;
    int least;
    int most;
};

// The first two carry the number, the others the same number again in their ranges.
constexpr int powers = 10000;

constexpr RunField runFields[] = {
    {"laser_comm_type", 0, 1},
    {"pre_gas_time", 0, 2000},
    {"delay_off_time", 0, 1999},
    {"detection_delay", 0, 1998},
    {"manual_gas_time", 1000, 10000},
    {"retraction_distance", 0, 50},
    {"retraction_speed", 0, 100},
    {"detection_time", 100, 1000},
    {"wire_feeder_comm_type", 0, 2},
    {"max_feed_speed", 0, 1000},
    {"manual_feed_speed", 0, 500},
    {"manual_retract_speed", 0, 499},
    {"wire_feedback_detection", 0, 1997},
    {"laser_check_out_time", 0, 498},
};

// The first three ports carry the number in this base, the others the number again.
constexpr int ports = 128;

// In this base the speed and the power of a matching record carry the number, and the output and
// the value of a node.
constexpr int speeds = 250;
constexpr int outputs = 6000;

int portOf(int signal, int run)
{
    constexpr int divisors[] = {1, ports, ports * ports};
    return signal < 3 ? run / divisors[signal] % ports : (run + signal) % ports;
}

} // namespace

QJsonObject runRecord(int run)
{
    QJsonObject record{
        {QStringLiteral("laser_power"), run % powers},
        {QStringLiteral("feedback_delay"), run / powers},
        {QStringLiteral("laser_main_enable"), run % 2 == 0},
        {QStringLiteral("feeder_enable"), run % 2 != 0},
    };
    for (const RunField& field : runFields)
        record.insert(QLatin1String(field.key), field.least + run % (field.most - field.least + 1));
    return record;
}

int runOf(const QJsonObject& record)
{
    const int run = record.value(QLatin1String("laser_power")).toInt(-1) +
                    powers * record.value(QLatin1String("feedback_delay")).toInt(-1);
    return run >= 0 && record == runRecord(run) ? run : -1;
}

QJsonObject runMapping(int run)
{
    QJsonObject record;
    int index = 0;
    for (const pendant::WeldSignal& signal : weldSignals()) {
        const QString port = placeOf(signal, 0) + QString::number(portOf(index++, run) + 1);
        record.insert(signal.typeKey(), 0);
        record.insert(signal.portKey(), port);
        record.insert(signal.biasKey(), 0);
        if (signal.switchKey)
            record.insert(QLatin1String(signal.switchKey), (run + index) % 2 == 0);
    }
    return record;
}

int runOfMapping(const QJsonObject& record)
{
    int run = 0;
    for (int index = 2; index >= 0; --index) {
        const QString key = weldSignals().at(static_cast<size_t>(index)).portKey();
        run = run * ports + record.value(key).toString().midRef(2).toInt() - 1;
    }
    return run >= 0 && record == runMapping(run) ? run : -1;
}

QJsonObject runSchedule(int run)
{
    const QString key = pendant::scheduleKey(7);
    QJsonObject record;
    for (const pendant::Field& field : pendant::scheduleSchema().fields()) {
        const int span = static_cast<int>(field.most - field.least) + 1;
        const QJsonValue value = field.kind == pendant::FieldKind::Switch
                                     ? QJsonValue(run % 2 == 0)
                                     : QJsonValue(field.least + run % span);
        record.insert(QString::fromStdString(field.key), value);
    }
    record.insert(QStringLiteral("LsDataID"), key);
    record.insert(QStringLiteral("Tips"), QString::number(run));
    return {{key, record}};
}

int runOfSchedule(const QJsonObject& schedules)
{
    const QString key = pendant::scheduleKey(7);
    const QJsonObject record = schedules.value(key).toObject();
    const int run = record.value(QLatin1String("Tips")).toString().toInt();
    return listed(key, record) == runSchedule(run) ? run : -1;
}

QJsonObject runMatching(int run)
{
    const QString key = pendant::matchingKey(2);
    const int speed = run % speeds;
    const int power = run / speeds;
    QJsonArray rows;
    for (int row = 0; row < 4; ++row)
        rows.append(QJsonArray{row * speeds + speed, row * 2500 + power, 10 + row + run % 9000,
                               row + run % 90});
    QJsonObject record = sampleMatching(key);
    record.insert(QStringLiteral("power_data"), rows);
    return {{key, record}};
}

int runOfMatching(const QJsonObject& records)
{
    const QString key = pendant::matchingKey(2);
    const QJsonObject record = records.value(key).toObject();
    const QJsonValue first = record.value(QLatin1String("power_data"))[0];
    const int run = first[0].toInt() + speeds * first[1].toInt();
    return listed(key, record) == runMatching(run) ? run : -1;
}

QJsonObject runCurve(int run)
{
    QJsonArray nodes;
    for (int row = 0; row < 2 + run % 9; ++row)
        nodes.append(QJsonArray{row * outputs + run % outputs, row * outputs + run / outputs});
    return curveRecord(pendant::weldCurves()[0], nodes);
}

int runOfCurve(const QJsonObject& curves)
{
    const pendant::WeldCurve& power = pendant::weldCurves()[0];
    const QJsonArray nodes = curves.value(QLatin1String(power.nodesKey)).toArray();
    const int run = nodes.at(0)[0].toInt() + outputs * nodes.at(0)[1].toInt();
    const QJsonObject curve = curveRecord(power, nodes);
    const bool isCounted = curves.value(QLatin1String(power.numberKey)) == nodes.size();
    return isCounted && curve == runCurve(run) ? run : -1;
}

QByteArray runProgram(int run)
{
    const int lines = 1 + run % 600;
    return ("LaserOn(\"LsData1\"); //" + QByteArray::number(run) + '\n').repeated(lines);
}

int runOf(const QByteArray& program)
{
    bool isNumber = false;
    const QByteArray line = program.left(program.indexOf('\n'));
    const int run = line.mid(line.indexOf("//") + 2).toInt(&isNumber);
    return isNumber && program == runProgram(run) ? run : -1;
}
