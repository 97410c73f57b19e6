#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QPair>
#include <QPointer>
#include <QWidget>

#include <memory>

class CustomChart;
class QAbstractSpinBox;
class QComboBox;
class QTableWidget;
class WeldSettingPage;

namespace Ui {
class CharacteristicsCurvePage;
}

/// How the controller turns a process value into what it writes to an output: measured nodes for
/// each of four values, and the line that the controller fits through them.
///
/// Holds no copy of the curves: they are read from the controller at each show. A tab can be used
/// when its signal is mapped, and edited while the main switch is off.
class CharacteristicsCurvePage : public QWidget
{
    Q_OBJECT

public:
    /// Output value and process value of each node.
    using Nodes = QList<QPair<double, double>>;

    /// The tabs, by index.
    enum Tab { Power, Feed, Frequency, DutyCycle };
    static constexpr int TabCount = 4;

    /// `settingPage` tells the state of the main switch; it may go before this page does.
    explicit CharacteristicsCurvePage(WeldSettingPage* settingPage, QWidget* parent = nullptr);
    ~CharacteristicsCurvePage() override;

    /// Makes the rows of a table anew: `count` of them, with 0 and 0 behind the end of the nodes.
    void rebuildNodeTable(QTableWidget* table, int count, const Nodes& nodes);
    /// The nodes of a table, in row order; a row that holds no two numbers is left out.
    static Nodes readNodes(const QTableWidget* table);
    /// The elements that are arrays of exactly two numbers.
    static Nodes jsonToNodes(const QJsonArray& array);
    /// Fills the four tabs from a record "weld_curve_config". Anything but an object with the power
    /// curve's number of nodes is ignored.
    void loadCurves(const QJsonValue& value);
    /// Shows what each signal is mapped to, and disables the tabs of those that are not.
    void refreshPortHeaders();
    /// Whether the tab's signal is mapped and switched on, as the controller says at this moment.
    static bool isSignalConfigured(int tab);
    /// Frees or locks the page for the user, the mapping and the state of the main switch.
    void updateAccess();
    /// Whether there are two nodes and both of their values rise; tells the operator when not.
    static bool validateNodes(const QTableWidget* table);
    /// The line in the reply to a compute command; both are left alone when the reply is empty.
    static void readComputeReply(const QJsonArray& reply, double& intercept, double& slope);
    /// Shows nodes and line; the axes grow to hold all nodes.
    static void updateChart(const QTableWidget* table, CustomChart* chart, double slope,
                            double intercept);
    /// Lets the controller fit the line and shows it.
    void computeCurve(int tab);
    /// Tells the operator what the controller answered to the save.
    void checkSaveResult(const QJsonArray& reply, const QString& command);
    /// The visual pass; called when the host renders the plugin.
    void applyPageStyle();

public Q_SLOTS:
    // Kept for what was once connected to them; they do nothing.
    void onComputePowerChart();
    void onComputeDutyCycleChart();
    void onComputeFrequencyChart();
    void refreshPowerCmb(int index);
    void refreshDutyCycleCmb(int index);
    void refreshFrequencyCmb(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Curve;
    static const Curve curves[TabCount];
    static bool isConfigured(const Curve& curve, const QJsonObject& mapping);

    void connectTab(int tab);
    void letButtonsShrink(int tab);
    void fitButtons(int tab);
    void addNodeRow(QTableWidget* table, int number, double x, double y);
    QWidget* newOutputEditor(double value);
    QWidget* newProcessEditor(const QTableWidget* table, double value);
    void prepareEditor(QAbstractSpinBox* editor);
    void arrangeColumns(QTableWidget* table);
    void loadCurve(int tab, const QJsonObject& record);
    void loadFromController();
    QJsonObject curveRecord(int tab) const;
    void computeLine(int tab);
    void save(int tab);
    void cancel(int tab);
    void setEditable(int tab, bool editable);
    bool isEditable() const;
    void arrangeTables();

    QComboBox* nodeBox(int tab) const;
    QTableWidget* table(int tab) const;
    CustomChart* chart(int tab) const;

    std::unique_ptr<Ui::CharacteristicsCurvePage> ui;
    QPointer<WeldSettingPage> weldSettingPage;
};
