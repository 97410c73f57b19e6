#pragma once

#include "BoxModels.h"
#include "WeldioRow.h"

#include <QFont>
#include <QJsonArray>
#include <QJsonObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class QTableWidget;
class WeldioLayout;
class WeldSettingPage;

namespace Ui {
class WeldioPage;
}

/// Maps the process signals to ports and registers.
///
/// Holds no copy of the record: it is read from the controller at each show. What can be mapped is
/// fixed, see WeldioSignals. Locked while the main switch is on, and disabled as a whole for a user
/// who may not operate.
class WeldioPage : public QWidget
{
    Q_OBJECT

public:
    /// `settingPage` tells the state of the main switch; it may go before this page does.
    explicit WeldioPage(WeldSettingPage* settingPage, QWidget* parent = nullptr);
    ~WeldioPage() override;

    /// Fills the rows from a record "weld_io_config". Anything but an object is ignored. A missing
    /// or unusable value reads as 0, as an empty port or as off; a port that is not on offer leaves
    /// the selection.
    void loadConfig(const QJsonValue& config);
    /// The command that stores the rows, { "set_weld_io_config": record }.
    QJsonObject toSaveCommand() const;
    /// Tells the operator what the controller answered; true when it has stored the record.
    bool checkSaveResult(const QJsonArray& reply, const QString& command);
    /// Frees or locks the page for the user and the state of the main switch.
    void applyPermissions();
    /// The visual pass; called when the host renders the plugin.
    void applyPageStyle();

Q_SIGNALS:
    /// Nothing emits it: the other pages read the controller when they need the mapping.
    void settingChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    // The tables.
    void buildTable(QTableWidget* table, const QVector<WeldioSignalDef>& signalDefs,
                    QVector<WeldioRow>& rows);
    void buildRow(QTableWidget* table, int number, WeldioRow& row, const WeldioSignalDef& signal);
    void buildAssignCell(QTableWidget* table, int number, WeldioRow& row);
    void connectRows(const QVector<WeldioRow>& rows);
    void connectRow(const WeldioRow& row);
    std::vector<const WeldioRow*> allRows() const;

    // The record.
    void loadRow(const WeldioRow& row, const QJsonObject& record);
    void loadFromController();
    QJsonObject formRecord() const;
    void refillPorts();

    // Saving.
    void save();
    void cancel();
    bool isEditable() const;
    bool isConsistent() const;
    static bool checkRegisters(const QVector<WeldioRow>& rows);
    static bool checkRegister(const WeldioRow& row);
    static bool checkDuplicates(const QVector<WeldioRow>& rows);
    static bool hasGap(const QVector<WeldioRow>& rows);

    // The look.
    void spareMeasuring();
    void setSheets();
    void finishStyle();
    void applyBoxFonts();
    void requestLayout();
    void requestFullLayout();
    void runLayout();

    std::unique_ptr<Ui::WeldioPage> ui;
    std::unique_ptr<WeldioLayout> tableLayout;
    QPointer<WeldSettingPage> weldSettingPage;
    PortListModels portLists;
    QVector<WeldioRow> outputRows;
    QVector<WeldioRow> inputRows;
    WeldioRow* retractDirectionRow = nullptr; ///< one of outputRows
    bool layoutPending = false;               ///< the timer of the next layout runs
    bool fullRelayout = false;                ///< the next layout sets the style of the tables too
    bool styleWaits = false;                  ///< for the first show
    QFont boxFont;                            ///< given to the boxes last
};
