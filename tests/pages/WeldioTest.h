#pragma once

#include "EnableButton.h"
#include "LogFolder.h"
#include "ScriptedHost.h"
#include "TestCase.h"
#include "WeldSettingPage.h"
#include "WeldioPage.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTranslator>

#include <memory>

/// What the tests of the weld I/O page share: the signals as they are to be, a small cell, and the
/// page on it.
namespace WeldioTest {

inline QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromLatin1(text, int(size));
}

inline QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// One signal as the operator and the record know it.
struct Signal
{
    const char* key;
    const char* caption;
    const char* enabledKey;
    int typeCode;
    bool digital, hasSwitch, portRequired, portCounted;
};

constexpr int OutputCount = 15;

constexpr Signal Signals[] = {
    {"laser_enable", "Laser on", nullptr, 1, true, false, true, true},
    {"power", "Power", "power_enabled", 0, false, true, false, false},
    {"frequency", "Frequency", "frequency_enabled", 0, false, true, false, false},
    {"duty_cycle", "Duty", "duty_cycle_enabled", 0, false, true, false, false},
    {"red_light", "Guide laser", "red_light_enabled", 1, true, true, false, false},
    {"gas_protect", "Assist Gas", nullptr, 1, true, false, true, true},
    {"wire_speed", "Wire speed", "wire_speed_enabled", 0, false, true, false, false},
    {"wire_feed", "Wire feed on", "wire_feed_enabled", 1, true, true, false, false},
    {"retract_direction", "Wire back feed", "retract_direction_enabled", 1, true, true, false,
     false},
    {"manual_wire_feed", "Manual feed on", "manual_wire_feed_enabled", 1, true, true, false, false},
    {"manual_retract", "Manual feed BWD", "manual_retract_enabled", 1, true, true, false, false},
    {"adhesion_detection_en", "Adhesion Detection Enable", "adhesion_detection_enabled", 1, true,
     true, false, false},
    {"descent_signal", "Descent signal", "descent_signal_enabled", 1, true, true, false, false},
    {"swing_job", "Swing JOB", "swing_job_enabled", 2, true, true, false, false},
    {"process_job", "Process JOB", "process_job_enabled", 2, true, true, false, false},
    {"power_feedback", "Laser power", "power_feedback_enabled", 3, false, true, false, false},
    {"light_feedback", "Laser feedback", "light_feedback_enabled", 4, true, true, false, false},
    {"laser_alarm", "Laser alarm", "laser_alarm_enabled", 4, true, true, false, false},
    {"shield_gas_feedback", "Gas detect", "shield_gas_feedback_enabled", 4, true, true, false,
     false},
    {"wire_speed_feedback", "Wire speed feedback", "wire_speed_feedback_enabled", 3, false, true,
     false, false},
    {"wire_feed_feedback", "Wire feedback", "wire_feed_feedback_enabled", 4, true, true, false,
     false},
    {"wire_feeder_alarm", "Wire feeder alarm", "wire_feeder_alarm_enabled", 4, true, true, false,
     false},
    {"adhesion_detection_feedback", "Adhesion Detection Feedback",
     "adhesion_detection_feedback_enabled", 4, true, true, false, false},
    {"external_alarm", "Welder Ready", "external_alarm_enabled", 4, true, true, false, false},
};

inline bool isOutput(const Signal& signal)
{
    return &signal - Signals < OutputCount;
}

inline const Signal& signalOf(const QString& key)
{
    for (const Signal& each : Signals) {
        if (key == text(each.key))
            return each;
    }
    qFatal("no signal %s", qPrintable(key));
}

/// What a type box of a code offers, and the calls by which the page asks for the ports of each.
struct Kind
{
    const char* item;
    const char* call;
    int times;
};

inline QVector<Kind> kinds(int typeCode)
{
    const Kind reg{"REG", "getRegisterValue", 1};
    const Kind numeric{"REG", "getRegisterValue", 2};
    const auto io = [](const char* item, const char* call) { return Kind{item, call, 1}; };
    switch (typeCode) {
    case 0:
        return {io("AO", "getIOByType AO"), io("GO", "getIOByType GO"), numeric};
    case 1:
        return {io("DO", "getIOByType DO"), reg};
    case 2:
        return {io("GO", "getIOByType GO"), reg};
    case 3:
        return {io("AI", "getIOByType AI"), io("GI", "getIOByType GI"), numeric};
    default:
        return {io("DI", "getIOByType DI"), reg};
    }
}

/// The register of the cell that fits the signals of a type code, 4 long.
inline QString registerOf(int typeCode)
{
    const char* const names[] = {"WN1", "WB1", "WI1", "RN1", "RB1"};
    return text(names[typeCode]);
}

inline QJsonObject registerRecord(const char* name, const char* type, const char* access,
                                  const QJsonValue& length)
{
    return {
        {"name"_s, text(name)}, {"type"_s, text(type)}, {"rw"_s, text(access)}, {"len"_s, length}};
}

inline QJsonArray cellRegisters()
{
    return {registerRecord("WB1", "bool", "w", 4),    registerRecord("WB2", "bool", "rw", 1),
            registerRecord("WI1", "int", "w", 4),     registerRecord("WI2", "int16", "w", 2),
            registerRecord("WN1", "float", "w", 4),   registerRecord("RN1", "double", "r", 4),
            registerRecord("RI1", "word", "read", 2), registerRecord("RB1", "bit", "r", 4),
            registerRecord("RB2", "bit", "ro", 1)};
}

/// The registers without those named, as after a change at the controller.
inline QJsonArray registersWithout(const QStringList& names)
{
    QJsonArray rest;
    const QJsonArray all = cellRegisters();
    for (const QJsonValue& each : all) {
        if (!names.contains(each.toObject().value("name"_s).toString()))
            rest.append(each);
    }
    return rest;
}

inline void furnish(ScriptedHost& host)
{
    for (const char* kind : {"DO", "DI", "AO", "AI", "GO", "GI"}) {
        QStringList names;
        for (const int number : {10, 2, 1})
            names << text(kind) + QString::number(number);
        host.portNames.insert(text(kind), names);
    }
    host.registerValue = cellRegisters();
}

/// Ports of a kind as the page is to offer them.
inline QStringList offered(const char* kind)
{
    const QString name = text(kind);
    return {QString(), name + "1"_s, name + "2"_s, name + "10"_s};
}

/// A record that can be saved: the two outputs that need a port have one, all else is off.
inline QJsonObject plainRecord()
{
    QJsonObject record;
    for (const Signal& signal : Signals) {
        const QString key = text(signal.key);
        record.insert(key + "_type"_s, 0);
        record.insert(key + "_port"_s, QString());
        record.insert(key + "_bias"_s, 0);
        if (signal.enabledKey)
            record.insert(text(signal.enabledKey), false);
    }
    record.insert("laser_enable_port"_s, "DO1"_s);
    record.insert("gas_protect_port"_s, "DO2"_s);
    return record;
}

/// Every signal on the third place of a register, and switched on.
inline QJsonObject registerRecordOfAll()
{
    QJsonObject record;
    for (const Signal& signal : Signals) {
        const QString key = text(signal.key);
        record.insert(key + "_type"_s, 2);
        record.insert(key + "_port"_s, registerOf(signal.typeCode));
        record.insert(key + "_bias"_s, 2);
        if (signal.enabledKey)
            record.insert(text(signal.enabledKey), true);
    }
    return record;
}

/// Another value at some keys.
inline QJsonObject with(QJsonObject record, const QJsonObject& values)
{
    for (auto each = values.constBegin(); each != values.constEnd(); ++each)
        record.insert(each.key(), each.value());
    return record;
}

inline QStringList itemTexts(const QComboBox* box)
{
    QStringList texts;
    for (int index = 0; index < box->count(); ++index)
        texts << box->itemText(index);
    return texts;
}

/// Stands for the Chinese texts: each is the English one in Chinese brackets.
inline QString chinese(const char* english)
{
    return QString::fromUtf8("\u3010%1\u3011").arg(text(english));
}

/// Translates the texts of the weld I/O page. In place while it lives.
class ChineseTranslator : public QTranslator
{
public:
    ChineseTranslator() { QCoreApplication::installTranslator(this); }
    ~ChineseTranslator() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* sourceText, const char*, int) const override
    {
        return qstrcmp(context, "WeldioPage") == 0 ? chinese(sourceText) : QString();
    }

private:
    Q_DISABLE_COPY(ChineseTranslator)
};

/// The page on a cell, with a log of its own.
struct PageOnCell
{
    explicit PageOnCell(const QJsonValue& record = plainRecord())
    {
        furnish(host);
        host.service.insert("weld_io_config"_s, record);
        page = std::make_unique<WeldioPage>(setting.get());
    }

    static QByteArray named(const char* pattern, const QString& key)
    {
        return text(pattern).arg(key).toLatin1();
    }
    QComboBox* type(const QString& key) const
    {
        return child<QComboBox>(page.get(), named("comboBox_%1_type", key).constData());
    }
    QComboBox* port(const QString& key) const
    {
        return child<QComboBox>(page.get(), named("comboBox_%1_port", key).constData());
    }
    QComboBox* bias(const QString& key) const
    {
        return child<QComboBox>(page.get(), named("comboBox_%1_bias", key).constData());
    }
    QLabel* label(const QString& key) const
    {
        return child<QLabel>(page.get(), named("label_%1_name", key).constData());
    }
    EnableButton* onSwitch(const QString& key) const
    {
        const bool isOther = key == "adhesion_detection_en"_s;
        const QString stem = isOther ? "adhesion_detection"_s : key;
        return child<EnableButton>(page.get(), named("pushButton_%1_enabled", stem).constData());
    }
    QTableWidget* table(bool output) const
    {
        return child<QTableWidget>(page.get(), output ? "tableWidget_output" : "tableWidget_input");
    }
    void press(const QString& key) const { QTest::mouseClick(onSwitch(key), Qt::LeftButton); }
    void assign(const QString& key, const QString& port_) const
    {
        port(key)->setCurrentText(port_);
        QCOMPARE(port(key)->currentText(), port_);
    }
    /// The state of a widget by itself, whatever its parents are.
    static bool isFree(const QWidget* widget)
    {
        return !widget->testAttribute(Qt::WA_ForceDisabled);
    }

    /// Shows the page, and forgets what it asked for that.
    void show()
    {
        page->show();
        host.forgetCalls();
    }
    void clickSave() const { child<QPushButton>(page.get(), "pushButton_Save")->click(); }
    void clickCancel() const { child<QPushButton>(page.get(), "pushButton_Cancel")->click(); }
    /// As the switch is when laser welding was started.
    void setMainSwitch(bool on) const
    {
        setting->loadConfig(QJsonObject{{"laser_main_enable"_s, on}});
    }
    /// The record that the page would save.
    QJsonObject form() const
    {
        return page->toSaveCommand().value("set_weld_io_config"_s).toObject();
    }
    /// The calls so far with what they asked for, as "getIOByType DO".
    QStringList asked() const
    {
        QStringList calls;
        for (const ScriptedHost::Call& call : host.calls) {
            const QString argument = call.arguments.at(0).toString();
            calls << (argument.isEmpty() ? call.name : call.name + " "_s + argument);
        }
        return calls;
    }

    ScriptedHost host;
    LogFolder folder;
    ConsoleCapture console;
    std::unique_ptr<WeldSettingPage> setting = std::make_unique<WeldSettingPage>(nullptr);
    std::unique_ptr<WeldioPage> page;
};

} // namespace WeldioTest
