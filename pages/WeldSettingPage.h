#pragma once

#include <QFont>
#include <QJsonArray>
#include <QJsonObject>
#include <QWidget>

#include <memory>

namespace Ui {
class WeldSettingPage;
}

/// Settings of the laser unit, the gas, the restart and the wire feeder, under the main switch that
/// starts and stops laser welding.
///
/// Holds no copy of the record: it is read from the controller at each show, and what was edited
/// and not saved is lost with the next one. Locked while the main switch is on, and disabled as a
/// whole for a user who may not operate.
class WeldSettingPage : public QWidget
{
    Q_OBJECT

public:
    explicit WeldSettingPage(QWidget* parent = nullptr);
    ~WeldSettingPage() override;

    /// State of the main switch. While it is on the other pages are locked.
    bool isMainEnabled() const;

    /// Fills the form from a record "weld_setting_config". Anything but an object is ignored; a
    /// missing or unusable value reads as 0 or false, and a field takes the nearest of its range.
    void loadConfig(const QJsonValue& config);
    /// The command that stores the form's values, { "set_weld_setting_config": record }.
    QJsonObject toSaveCommand() const;
    /// Whether the laser is detected no earlier than its light is checked; tells the operator when
    /// it is not.
    bool validateTimes();
    /// Locks or frees the five frames of the configuration and the two buttons.
    void setConfigEditable(bool editable);
    /// The visual pass; called when the host renders the plugin.
    void applyPageStyle();
    /// Tells the operator what the controller answered to the save.
    void checkSaveResult(const QJsonArray& reply, const QString& command);

Q_SIGNALS:
    void setMainEnable(bool isEnabled);

public Q_SLOTS:
    /// Starts or stops laser welding on the controller after a click of the main switch, and sets
    /// the switch to what holds then. Blocks for 300 to 600 ms besides the controller's answers.
    void onSwitchMain(bool isOn);
    void setRetractionPlanStatus(bool isOn);
    void setFeederPlanStatus(bool isOn);
    /// The time of the detection stays enabled, whatever `isOn` says.
    void setWireStickingPlanStatus(bool isOn);
    /// For a diagnosis at the machine; nothing calls it.
    void buttontest();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void connectFields();
    void hideUnusedFields();
    void save();
    void cancel();
    void loadFromController();
    QJsonObject formRecord() const;
    QJsonArray sendSaveCommand();
    void startWelding();
    bool requestStart();
    void stopWelding();

    void polishFields();
    void polishSwitches();
    void arrangeColumns();
    void relaxLayout();
    void relaxHeader();
    void relaxColumns();

    std::unique_ptr<Ui::WeldSettingPage> ui;
    QFont fieldFont; ///< given to the fields last
    bool columnsAreStacked = false;
};
