#include "WeldioSignals.h"

#include "JsonCommon.h"

#include <QCoreApplication>

#include <iterator>

namespace {

/// The kinds of one type box and where their names come from.
struct Kinds
{
    using Source = QStringList (*)();

    const char* items[3];
    Source sources[3];
    int fallback; ///< kind of an index that is none of these
};

constexpr char Reg[] = "REG";

// By type code. Two kinds: all but the second read the ports. Three: all but the first two read
// the registers.
constexpr Kinds KindTable[] = {
    {{"AO", "GO", Reg},
     {&JsonCommon::aoList, &JsonCommon::goList, &JsonCommon::writableNumericRegisters},
     2},
    {{"DO", Reg}, {&JsonCommon::doList, &JsonCommon::writableBitRegisters}, 0},
    {{"GO", Reg}, {&JsonCommon::goList, &JsonCommon::writableIntRegisters}, 0},
    {{"AI", "GI", Reg},
     {&JsonCommon::aiList, &JsonCommon::giList, &JsonCommon::readableNumericRegisters},
     2},
    {{"DI", Reg}, {&JsonCommon::diList, &JsonCommon::readableBitRegisters}, 0},
};

constexpr qint32 Analogue = 0; // of an output
constexpr qint32 Digital = 1;
constexpr qint32 Group = 2;
constexpr qint32 AnalogueIn = 3;
constexpr qint32 DigitalIn = 4;

QStringList namesOf(const Kinds& kinds, int index)
{
    const bool isKind =
        index >= 0 && index < static_cast<int>(std::size(kinds.sources)) && kinds.sources[index];
    return kinds.sources[isKind ? index : kinds.fallback]();
}

PortSource sourceOf(qint32 typeCode)
{
    return [typeCode](int index) { return namesOf(KindTable[typeCode], index); };
}

/// A row of the tables below: what differs.
struct Signal
{
    const char* key;
    const char* caption;
    const char* enabledKey;
    qint32 typeCode;
};

// Without a switch the process cannot do without the signal.
constexpr Signal Outputs[] = {
    {"laser_enable", QT_TRANSLATE_NOOP("WeldioPage", "Laser on"), nullptr, Digital},
    {"power", QT_TRANSLATE_NOOP("WeldioPage", "Power"), "power_enabled", Analogue},
    {"frequency", QT_TRANSLATE_NOOP("WeldioPage", "Frequency"), "frequency_enabled", Analogue},
    {"duty_cycle", QT_TRANSLATE_NOOP("WeldioPage", "Duty"), "duty_cycle_enabled", Analogue},
    {"red_light", QT_TRANSLATE_NOOP("WeldioPage", "Guide laser"), "red_light_enabled", Digital},
    {"gas_protect", QT_TRANSLATE_NOOP("WeldioPage", "Assist Gas"), nullptr, Digital},
    {"wire_speed", QT_TRANSLATE_NOOP("WeldioPage", "Wire speed"), "wire_speed_enabled", Analogue},
    {"wire_feed", QT_TRANSLATE_NOOP("WeldioPage", "Wire feed on"), "wire_feed_enabled", Digital},
    {"retract_direction", QT_TRANSLATE_NOOP("WeldioPage", "Wire back feed"),
     "retract_direction_enabled", Digital},
    {"manual_wire_feed", QT_TRANSLATE_NOOP("WeldioPage", "Manual feed on"),
     "manual_wire_feed_enabled", Digital},
    {"manual_retract", QT_TRANSLATE_NOOP("WeldioPage", "Manual feed BWD"), "manual_retract_enabled",
     Digital},
    {"adhesion_detection_en", QT_TRANSLATE_NOOP("WeldioPage", "Adhesion Detection Enable"),
     "adhesion_detection_enabled", Digital},
    {"descent_signal", QT_TRANSLATE_NOOP("WeldioPage", "Descent signal"), "descent_signal_enabled",
     Digital},
    {"swing_job", QT_TRANSLATE_NOOP("WeldioPage", "Swing JOB"), "swing_job_enabled", Group},
    {"process_job", QT_TRANSLATE_NOOP("WeldioPage", "Process JOB"), "process_job_enabled", Group},
};

constexpr Signal Inputs[] = {
    {"power_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Laser power"), "power_feedback_enabled",
     AnalogueIn},
    {"light_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Laser feedback"), "light_feedback_enabled",
     DigitalIn},
    {"laser_alarm", QT_TRANSLATE_NOOP("WeldioPage", "Laser alarm"), "laser_alarm_enabled",
     DigitalIn},
    {"shield_gas_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Gas detect"),
     "shield_gas_feedback_enabled", DigitalIn},
    {"wire_speed_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Wire speed feedback"),
     "wire_speed_feedback_enabled", AnalogueIn},
    {"wire_feed_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Wire feedback"),
     "wire_feed_feedback_enabled", DigitalIn},
    {"wire_feeder_alarm", QT_TRANSLATE_NOOP("WeldioPage", "Wire feeder alarm"),
     "wire_feeder_alarm_enabled", DigitalIn},
    {"adhesion_detection_feedback", QT_TRANSLATE_NOOP("WeldioPage", "Adhesion Detection Feedback"),
     "adhesion_detection_feedback_enabled", DigitalIn},
    {"external_alarm", QT_TRANSLATE_NOOP("WeldioPage", "Welder Ready"), "external_alarm_enabled",
     DigitalIn},
};

template<std::size_t Size>
QVector<WeldioSignalDef> definitions(const Signal (&rows)[Size], bool isOutput)
{
    QVector<WeldioSignalDef> table;
    table.reserve(static_cast<int>(Size));
    for (const Signal& row : rows) {
        const bool isAnalogue = row.typeCode == Analogue || row.typeCode == AnalogueIn;
        const bool hasSwitch = row.enabledKey != nullptr;
        table.append({row.key, row.caption, row.enabledKey, row.typeCode, !isAnalogue, hasSwitch,
                      !hasSwitch, !hasSwitch, isOutput, sourceOf(row.typeCode)});
    }
    return table;
}

} // namespace

namespace WeldioSignals {

const QVector<WeldioSignalDef>& outputs()
{
    static const QVector<WeldioSignalDef> table = definitions(Outputs, true);
    return table;
}

const QVector<WeldioSignalDef>& inputs()
{
    static const QVector<WeldioSignalDef> table = definitions(Inputs, false);
    return table;
}

QStringList typeItems(qint32 typeCode)
{
    QStringList items;
    if (typeCode < 0 || typeCode >= static_cast<qint32>(std::size(KindTable)))
        return items;
    for (const char* item : KindTable[typeCode].items) {
        if (item)
            items << QLatin1String(item);
    }
    return items;
}

} // namespace WeldioSignals
