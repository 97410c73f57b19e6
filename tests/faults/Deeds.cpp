#include "Deeds.h"

#include "CustomChart.h"
#include "EnableButton.h"
#include "FaultBench.h"
#include "TestCase.h"

#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>

#include <functional>

namespace {

// Entries of the navigation.
enum Entry { Setup, WeldIo, Curves, WeldData };

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromUtf8(text, int(size));
}

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QJsonValue status(const FaultBench& bench, const char* key)
{
    return bench.record("laser_weld_data").toObject().value(text(key));
}

/// With the main switch on, the pages are locked.
void stopWelding(FaultBench& bench)
{
    QJsonObject record = bench.record("weld_setting_config").toObject();
    const QString key = "laser_main_enable"_s;
    if (!record.value(key).toBool())
        return;
    record.insert(key, false);
    bench.command("set_weld_setting_config", record);
    bench.reopen(Setup);
}

/// What a save is to change: one number, on its page and in its record.
struct SavedNumber
{
    Entry entry;
    std::function<void(QWidget* page)> openView; ///< of the page
    std::function<int(QWidget* page)> shown;
    std::function<void(QWidget* page, int value)> enter;
    const char* button;
    const char* record;
    std::function<int(const QJsonObject& record)> held;
};

class Save : public Deed
{
public:
    explicit Save(SavedNumber what)
        : number(std::move(what))
    {}

    void prepare(FaultBench& bench) override
    {
        stopWelding(bench);
        open(bench);
        before = stored(bench);
        entered = before % 2 == 0 ? before + 1 : before - 1;
        number.enter(bench.currentPage(), entered);
    }

    void act(FaultBench& bench) override
    {
        child<QPushButton>(bench.currentPage(), number.button)->click();
    }

    QString shown(FaultBench& bench) override
    {
        const int value = number.shown(bench.currentPage());
        const QString numbers = value == entered ? "as entered"_s : "not as entered"_s;
        const bool isReadAgain = bench.backend.read.contains(text(number.record));
        return isReadAgain ? numbers + ", read again"_s : numbers;
    }

    QString held(FaultBench& bench) override
    {
        const int value = stored(bench);
        return value == entered ? "new record"_s : value == before ? "old record"_s : "neither"_s;
    }

    bool showsTruth(FaultBench& bench) override
    {
        open(bench);
        return number.shown(bench.currentPage()) == stored(bench);
    }

private:
    void open(FaultBench& bench) const
    {
        QWidget* page = bench.reopen(number.entry);
        if (number.openView)
            number.openView(page);
    }
    int stored(const FaultBench& bench) const
    {
        return number.held(bench.record(number.record).toObject());
    }

    SavedNumber number;
    int before = 0;
    int entered = 0;
};

/// A number in a field of its own.
std::unique_ptr<Save> saveOfField(Entry entry, const char* field, const char* button,
                                  const char* record,
                                  std::function<int(const QJsonObject& record)> held)
{
    return std::make_unique<Save>(SavedNumber{
        entry,
        {},
        [field](QWidget* page) { return child<QSpinBox>(page, field)->value(); },
        [field](QWidget* page, int value) { child<QSpinBox>(page, field)->setValue(value); },
        button,
        record,
        std::move(held)});
}

QSpinBox* cell(QWidget* page, const char* table, int row, int column)
{
    return qobject_cast<QSpinBox*>(child<QTableWidget>(page, table)->cellWidget(row, column));
}

/// A number in a table.
std::unique_ptr<Save> saveOfCell(Entry entry, const std::function<void(QWidget*)>& openView,
                                 const char* table, int row, int column, const char* button,
                                 const char* record,
                                 std::function<int(const QJsonObject& record)> held)
{
    return std::make_unique<Save>(SavedNumber{
        entry, openView, [=](QWidget* page) { return cell(page, table, row, column)->value(); },
        [=](QWidget* page, int value) { cell(page, table, row, column)->setValue(value); }, button,
        record, std::move(held)});
}

/// Opens the first record of a list of "Weld Data".
void openRecord(QWidget* page, int tab, const char* table)
{
    if (child<QStackedWidget>(page, "stackedWidget")->currentIndex() != 0)
        child<QPushButton>(page, "pushButton_back")->click();
    child<QTabWidget>(page, "tabWidget")->setCurrentIndex(tab);
    child<QTableWidget>(page, table)->selectRow(0);
    child<QPushButton>(page, "pushButton_Config")->click();
}

std::unique_ptr<Save> setupSave()
{
    return saveOfField(
        Setup, "spinBox_laser_power", "pushButton_save", "weld_setting_config",
        [](const QJsonObject& record) { return record.value("laser_power"_s).toInt(); });
}

std::unique_ptr<Save> scheduleSave()
{
    auto save = std::make_unique<Save>(SavedNumber{
        WeldData, [](QWidget* page) { openRecord(page, 0, "tableWidget"); },
        [](QWidget* page) {
            return child<QSpinBox>(page, "doubleSpinBox_laser_power_weld_3")->value();
        },
        [](QWidget* page, int value) {
            child<QSpinBox>(page, "doubleSpinBox_laser_power_weld_3")->setValue(value);
        },
        "pushButton_save", "weld_param_config",
        [](const QJsonObject& record) {
            return record.value("LsData1"_s).toObject().value("laser_power_weld"_s).toInt();
        }});
    return save;
}

std::unique_ptr<Save> matchingSave()
{
    return saveOfCell(
        WeldData, [](QWidget* page) { openRecord(page, 1, "tableWidget_2"); },
        "tableWidget_matching", 2, 2, "pushButton_save", "weld_param_match",
        [](const QJsonObject& record) {
            const QJsonObject first = record.value("PowerData1"_s).toObject();
            return first.value("power_data"_s).toArray().at(0).toArray().at(1).toInt();
        });
}

struct Curve
{
    const char* name;
    const char* table;
    const char* button;
    const char* nodesKey;
    const char* command;
};

constexpr Curve AllCurves[] = {
    {"laser power", "tableWidget_laserpower", "pushButton_Save_laserpower", "power_nodes_data",
     "set_weld_curve_power_config"},
    {"feeding speed", "tableWidget_feedspeed", "pushButton_Save_speed", "feed_nodes_data",
     "set_weld_curve_feed_config"},
    {"frequency", "tableWidget_frequency", "pushButton_Save_frequency", "frequency_nodes_data",
     "set_weld_curve_frequency_config"},
    {"duty cycle", "tableWidget_dutycycle", "pushButton_Save_dutycycle", "dutycycle_nodes_data",
     "set_weld_curve_dutycycle_config"},
};

std::unique_ptr<Save> curveSave(const Curve& curve)
{
    const QString nodes = text(curve.nodesKey);
    return saveOfCell(Curves, {}, curve.table, 1, 2, curve.button, "weld_curve_config",
                      [nodes](const QJsonObject& record) {
                          return record.value(nodes).toArray().at(1).toArray().at(1).toInt();
                      });
}

/// The switch of a signal.
std::unique_ptr<Save> ioSave()
{
    const auto button = [](QWidget* page) {
        return child<EnableButton>(page, "pushButton_red_light_enabled");
    };
    return std::make_unique<Save>(
        SavedNumber{WeldIo,
                    {},
                    [button](QWidget* page) { return button(page)->isChecked() ? 1 : 0; },
                    [button](QWidget* page, int value) { button(page)->setChecked(value != 0); },
                    "pushButton_Save",
                    "weld_io_config",
                    [](const QJsonObject& record) {
                        return record.value("red_light_enabled"_s).toBool() ? 1 : 0;
                    }});
}

/// "Compute" of the first curve.
class Compute : public Deed
{
public:
    void prepare(FaultBench& bench) override
    {
        stopWelding(bench);
        bench.reopen(Curves);
        act(bench);
        withLine = picture(bench);
    }

    void act(FaultBench& bench) override
    {
        child<QPushButton>(bench.currentPage(), "pushButton_compute")->click();
    }

    QString shown(FaultBench& bench) override
    {
        const QImage seen = picture(bench);
        if (seen == withLine)
            return "dots and their line"_s;
        chart(bench)->setLine(0, 0);
        return seen == picture(bench) ? "dots without a line"_s : "dots and a wrong line"_s;
    }

    QString held(FaultBench&) override { return "as before"_s; }
    bool showsTruth(FaultBench& bench) override
    {
        bench.reopen(Curves); // computes again
        return picture(bench) == withLine;
    }

private:
    static CustomChart* chart(const FaultBench& bench)
    {
        return child<CustomChart>(bench.currentPage(), "Chart_laserpower");
    }
    static QImage picture(const FaultBench& bench) { return chart(bench)->grab().toImage(); }

    QImage withLine;
};

/// The main switch of "Weld Setup".
class MainSwitch : public Deed
{
public:
    explicit MainSwitch(bool on)
        : isOn(on)
    {}

    void prepare(FaultBench& bench) override
    {
        bench.command("set_weld_enable", isOn ? "FALSE"_s : "TRUE"_s);
        QJsonObject record = bench.record("weld_setting_config").toObject();
        record.insert("laser_main_enable"_s, !isOn);
        bench.command("set_weld_setting_config", record);
        bench.reopen(Setup);
    }

    void act(FaultBench& bench) override { QTest::mouseClick(button(bench), Qt::LeftButton); }

    QString shown(FaultBench& bench) override
    {
        const bool isFree = child<QWidget>(bench.currentPage(), "frame")->isEnabled();
        return (button(bench)->isChecked() ? "switch on"_s : "switch off"_s) +
               (isFree ? ", fields free"_s : ", fields locked"_s);
    }

    QString held(FaultBench& bench) override
    {
        const bool isWelding = status(bench, "weld_enable_status").toBool();
        return (isWelding ? "welding on"_s : "welding off"_s) +
               (isStoredOn(bench) ? ", record on"_s : ", record off"_s);
    }

    bool showsTruth(FaultBench& bench) override
    {
        bench.reopen(Setup);
        return button(bench)->isChecked() == isStoredOn(bench);
    }

private:
    static EnableButton* button(const FaultBench& bench)
    {
        return child<EnableButton>(bench.currentPage(), "pushButton_main_enable");
    }
    static bool isStoredOn(const FaultBench& bench)
    {
        return bench.record("weld_setting_config").toObject().value("laser_main_enable"_s).toBool();
    }

    bool isOn;
};

/// A hardware key that puts a status of the controller.
class KeyStroke : public Deed
{
public:
    /// `label` of the key; `pressed` and what comes of it at the controller.
    KeyStroke(const char* label, bool isPress, const char* statusKey, bool becomes)
        : key(text(label))
        , pressed(isPress)
        , statusName(statusKey)
        , target(becomes)
    {}

    // The wire does not go both ways.
    void prepare(FaultBench& bench) override
    {
        bench.command("set_weld_feed_wire", false);
        bench.command("set_weld_retract_wire", false);
        bench.command(command.toLatin1().constData(), !target);
        bench.backend.tellConnection();
    }

    void act(FaultBench& bench) override { bench.turnKey(key, pressed); }
    QString shown(FaultBench&) override { return "–"_s; }
    QString held(FaultBench& bench) override
    {
        return status(bench, statusName).toBool() == target ? "as wanted"_s : "as before"_s;
    }
    bool showsTruth(FaultBench&) override { return true; }

private:
    QString key;
    bool pressed;

protected:
    const char* statusName;
    bool target;
};

/// The work mode, which the indicator shows.
class WorkMode : public KeyStroke
{
public:
    explicit WorkMode(bool toVirtual)
        : KeyStroke("Work mode", true, "virtual_welding_status", toVirtual)
    {}

    QString shown(FaultBench& bench) override
    {
        return bench.indicatesVirtual() == target ? "the new mode"_s : "the old mode"_s;
    }

    // Read when the connection comes up.
    bool showsTruth(FaultBench& bench) override
    {
        bench.backend.tellConnection();
        return bench.indicatesVirtual() == status(bench, statusName).toBool();
    }
};

class DeedList
{
public:
    Deed& add(const char* group, const QString& name, const char* command,
              std::unique_ptr<Deed> deed)
    {
        deed->group = text(group);
        deed->name = name;
        deed->command = text(command);
        deeds.push_back(std::move(deed));
        return *deeds.back();
    }

    void addSave(const QString& name, const char* command, const char* page,
                 std::unique_ptr<Deed> deed)
    {
        add("Saves", name, command, std::move(deed)).words = {{"PAGE"_s, text(page)}};
    }

    void addKey(const QString& name, const char* command, const char* action, const char* logged,
                std::unique_ptr<Deed> deed)
    {
        add("Wire and gas", name, command, std::move(deed)).words = {{"ACTION"_s, text(action)},
                                                                     {"action"_s, text(logged)}};
    }

    void addSaves();
    void addKeys();
    void addOthers();

    std::vector<std::unique_ptr<Deed>> deeds;
};

void DeedList::addSaves()
{
    addSave("“Weld Setup”, “Save”"_s, "set_weld_setting_config", "WeldSettingPage", setupSave());
    addSave("“Weld Data”, “Save” of a schedule"_s, "set_weld_param_list_config",
            "WeldParameterPage", scheduleSave());
    addSave("“Weld Data”, “Save” of a matching record"_s, "set_weld_param_match_config",
            "WeldParameterPage", matchingSave());
    for (const Curve& curve : AllCurves)
        addSave("“Char. Curve”, “Save” of the %1"_s.arg(text(curve.name)), curve.command,
                "CharacteristicsCurvePage", curveSave(curve));
    add("Mapping", "“Weld I/O”, “Save”"_s, "set_weld_io_config", ioSave());
}

void DeedList::addKeys()
{
    const auto wire = [](const char* label, bool press, const char* statusKey) {
        return std::make_unique<KeyStroke>(label, press, statusKey, press);
    };
    for (const bool press : {true, false})
        addKey(press ? "“Wiring”, press"_s : "“Wiring”, release"_s, "set_weld_feed_wire",
               "Feed wire", "feed_wire", wire("Wiring", press, "weld_feed_wire_status"));
    for (const bool press : {true, false})
        addKey(press ? "“Retract Wire”, press"_s : "“Retract Wire”, release"_s,
               "set_weld_retract_wire", "Retract wire", "retract_wire",
               wire("Retract Wire", press, "weld_retract_wire_status"));
    addKey("“ProtectGas”, press"_s, "set_weld_manual_gas", "Open gas", "open gas",
           std::make_unique<KeyStroke>("ProtectGas", true, "weld_gas_status", true));
    for (const bool on : {true, false})
        add("Red light", on ? "“Red Light”, press: on"_s : "“Red Light”, press: off"_s,
            "set_weld_red_light",
            std::make_unique<KeyStroke>("Red Light", true, "weld_redlight_status", on));
    for (const bool on : {true, false})
        add("Work mode", on ? "“Work mode”, press: to virtual"_s : "“Work mode”, press: to real"_s,
            "set_virtual_welding", std::make_unique<WorkMode>(on))
            .words = {{"MODE"_s, on ? "VirtualWelding"_s : "RealWdlding"_s}};
}

void DeedList::addOthers()
{
    add("Start", "main switch on"_s, "set_weld_enable", std::make_unique<MainSwitch>(true));
    add("Save behind a start", "main switch on, the save behind it"_s, "set_weld_setting_config",
        std::make_unique<MainSwitch>(true));
    add("Stop", "main switch off"_s, "set_weld_enable", std::make_unique<MainSwitch>(false));
    add("Compute", "“Char. Curve”, “Compute”"_s, "compute_curve_config",
        std::make_unique<Compute>());
}

} // namespace

std::vector<std::unique_ptr<Deed>> allDeeds()
{
    DeedList list;
    list.addSaves();
    list.addKeys();
    list.addOthers();
    return std::move(list.deeds);
}
