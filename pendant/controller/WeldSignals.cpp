#include "WeldSignals.h"

#include <algorithm>

namespace pendant {

const std::vector<WeldSignal>& weldSignals()
{
    using Kind = SignalKind;
    static const std::vector<WeldSignal> all{
        {"laser_enable", "Laser on", nullptr, Kind::Digital, true, "DO1"},
        {"power", "Power", "power_enabled", Kind::Analogue, true, "AO1"},
        {"frequency", "Frequency", "frequency_enabled", Kind::Analogue, true, "AO2"},
        {"duty_cycle", "Duty", "duty_cycle_enabled", Kind::Analogue, true, "AO3"},
        {"red_light", "Guide laser", "red_light_enabled", Kind::Digital, true, "DO2"},
        {"gas_protect", "Assist Gas", nullptr, Kind::Digital, true, "DO3"},
        {"wire_speed", "Wire speed", "wire_speed_enabled", Kind::Analogue, true, "AO4"},
        {"wire_feed", "Wire feed on", "wire_feed_enabled", Kind::Digital, true, "DO4"},
        {"retract_direction", "Wire back feed", "retract_direction_enabled", Kind::Digital, true,
         "DO5"},
        {"manual_wire_feed", "Manual feed on", "manual_wire_feed_enabled", Kind::Digital, true,
         "DO6"},
        {"manual_retract", "Manual feed BWD", "manual_retract_enabled", Kind::Digital, true, "DO7"},
        {"adhesion_detection_en", "Adhesion Detection Enable", "adhesion_detection_enabled",
         Kind::Digital, true, ""},
        {"descent_signal", "Descent signal", "descent_signal_enabled", Kind::Digital, true, ""},
        {"swing_job", "Swing JOB", "swing_job_enabled", Kind::Group, true, "GO1"},
        {"process_job", "Process JOB", "process_job_enabled", Kind::Group, true, ""},
        {"power_feedback", "Laser power", "power_feedback_enabled", Kind::Analogue, false, "AI1"},
        {"light_feedback", "Laser feedback", "light_feedback_enabled", Kind::Digital, false, "DI1"},
        {"laser_alarm", "Laser alarm", "laser_alarm_enabled", Kind::Digital, false, "DI2"},
        {"shield_gas_feedback", "Gas detect", "shield_gas_feedback_enabled", Kind::Digital, false,
         "DI3"},
        {"wire_speed_feedback", "Wire speed feedback", "wire_speed_feedback_enabled",
         Kind::Analogue, false, "AI2"},
        {"wire_feed_feedback", "Wire feedback", "wire_feed_feedback_enabled", Kind::Digital, false,
         "DI4"},
        {"wire_feeder_alarm", "Wire feeder alarm", "wire_feeder_alarm_enabled", Kind::Digital,
         false, "DI5"},
        {"adhesion_detection_feedback", "Adhesion Detection Feedback",
         "adhesion_detection_feedback_enabled", Kind::Digital, false, ""},
        {"external_alarm", "Welder Ready", "external_alarm_enabled", Kind::Digital, false, "DI6"},
    };
    return all;
}

const WeldSignal* findWeldSignal(const QString& key)
{
    const auto& all = weldSignals();
    const auto found = std::find_if(all.begin(), all.end(), [&](const WeldSignal& signal) {
        return QLatin1String(signal.key) == key;
    });
    return found != all.end() ? &*found : nullptr;
}

Mapping mappingOf(const WeldSignal& signal, const QJsonObject& record)
{
    return {record.value(signal.typeKey()).toInt(), record.value(signal.portKey()).toString(),
            record.value(signal.biasKey()).toInt(),
            !signal.switchKey || record.value(QLatin1String(signal.switchKey)).toBool()};
}

QString placeOf(const WeldSignal& signal, int type)
{
    const char direction = signal.isOutput ? 'O' : 'I';
    const auto port = [&](char letter) {
        return QLatin1Char(letter) + QString(QLatin1Char(direction));
    };
    if (type == RegisterType)
        return RegisterPlace;
    if (signal.kind == SignalKind::Analogue)
        return type == 0 ? port('A') : type == 1 ? port('G') : QString();
    if (type != 0)
        return {};
    return port(signal.kind == SignalKind::Digital ? 'D' : 'G');
}

} // namespace pendant
