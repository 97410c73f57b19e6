#pragma once

#include <QWidget>

#include <vector>

class QAbstractButton;
class QBoxLayout;
class QDoubleSpinBox;
class QPushButton;
class QTableWidget;

namespace pendant {

class Controller;
struct SignalState;
struct WeldSignal;

/// The process signals at the controller's terminals: where each is mapped and what is there now.
/// An input is set by hand.
class IoMonitor : public QWidget
{
    Q_OBJECT

public:
    /// The controller must outlive the monitor.
    explicit IoMonitor(Controller& controller, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// A signal's line. One of `toggle` and `number` is set for an input, none for an output.
    struct Row
    {
        QTableWidget* table;
        int index;
        QPushButton* toggle;
        QDoubleSpinBox* number;
    };

    QTableWidget* addTable(const char* name);
    QAbstractButton* addChoice(const char* name, const QString& caption, QTableWidget* table);
    Row addRow(const WeldSignal& signal);
    void addInput(Row& row, const WeldSignal& signal);
    void refresh();
    void showState(const Row& row, const SignalState& state);
    static void showInput(const Row& row, const SignalState& state);

    Controller& machine;
    QBoxLayout* halves;  ///< the choice beside the tables, or above them where it is narrow
    QBoxLayout* choices; ///< "Outputs" and "Inputs"
    QTableWidget* outputs;
    QTableWidget* inputs;
    std::vector<Row> rows; ///< in the controller's order
};

} // namespace pendant
