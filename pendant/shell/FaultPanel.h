#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QAbstractButton;
class QCheckBox;
class QGridLayout;
class QLabel;
class QSpinBox;

namespace pendant {

class Controller;
struct FaultRow;
struct Faults;

/// What a tester can turn: the connection, the robot's power, the work mode at the controller, and
/// each fault. Shows what the controller holds; a turn takes effect at once.
class FaultPanel : public QWidget
{
    Q_OBJECT

public:
    /// The controller must outlive the panel.
    explicit FaultPanel(Controller& controller, QWidget* parent = nullptr);

Q_SIGNALS:
    /// A fault was turned.
    void faultsChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// One switch of the cell: how it is read and turned.
    struct Switch
    {
        QCheckBox* box;
        std::function<bool()> read;
    };

    QCheckBox* addSwitch(const char* name, const QString& caption, std::function<bool()> read,
                         const std::function<void(bool)>& turn);
    void addFault(const FaultRow& row);
    void addFlag(const FaultRow& row);
    void addNumber(const FaultRow& row);
    void addChoice(const FaultRow& row);
    QLabel* captionOf(const FaultRow& row, QWidget* field);
    void place(QWidget* widget, QWidget* field = nullptr);
    void turn(const std::function<void(Faults&)>& change);
    void load();

    Controller& machine;
    QGridLayout* grid;
    std::vector<Switch> switches;
    std::vector<std::function<void(const Faults&)>> loaders;
    int placed = 0;
};

} // namespace pendant
