#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QPair>
#include <QPointer>
#include <QWidget>

#include <memory>

class EnableButton;
class QTableWidget;
class WeldSettingPage;

namespace Ui {
class WeldParameterPage;
}

/// The process schedules, thirty, and the matching records of parameters, ten: a list of each and a
/// view of the one that is open.
///
/// Holds no copy of the records: they are read from the controller each time that they are shown.
/// There is no cancel: what is left without a save is lost.
class WeldParameterPage : public QWidget
{
    Q_OBJECT

public:
    /// `setting` is kept and not used: what a schedule shows depends on its own switches alone.
    explicit WeldParameterPage(WeldSettingPage* setting, QWidget* parent = nullptr);
    ~WeldParameterPage() override;

    // The schedules.

    /// Fills the list from the controller. A schedule that was never saved leaves its row as it is.
    void setTableProcessData();
    /// Fills the detail view with the record of the key, or with the defaults where there is none.
    void loadProcessData(const QString& key);
    void resetProcessDefaults();
    /// The command that stores the detail view, { "set_weld_param_list_config": { key: record } }.
    QJsonObject createProcessDataJson() const;
    /// Shows the rows of wire, retraction and compensation that the switches ask for.
    void updateWireRows();
    void updateRampRows();

    // The matching records.

    /// Fills the list from the controller; a record that cannot be read leaves its row as it is.
    void setTableMatchData();
    void initMatchingTable();
    /// Makes data row i, from 1, which stands in row i + 1 of the table.
    void addMatchingRow(QTableWidget* table, int i, int speed, int power, int frequency, int duty);
    static QWidget* makeHeaderCell(const QString& text, QTableWidget* table);
    /// Makes the switch cell of the column, or sizes the switch that is there.
    void ensureEnableCell(int column);
    static EnableButton* findEnableButton(const QTableWidget* table, int column);
    bool hasMatchingHeader() const;
    /// Fills the table with the record of the key. Without a record the table keeps its values.
    void loadMatchData(const QString& key);
    /// Fills the table from the record of the key; false when no value was found, though an empty
    /// list of rows is none.
    static bool parseMatchParamToTable(const QJsonObject& processData, const QString& powerDataKey,
                                       QTableWidget* table, int startRow, int startColumn,
                                       int maxRows, int maxColumns);
    /// Whether the values rise from row to row; tells the operator the first that do not.
    bool validateMatchingTableParams() const;
    /// The command that stores the table, { "set_weld_param_match_config": { key: record } }; empty
    /// without a key.
    QJsonObject createMatchDataJson() const;

    /// Tells the operator what the controller answered to a save.
    void checkSaveResult(const QJsonArray& reply, const QString& command);
    /// The visual pass; called when the host renders the plugin.
    void applyPageStyle();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void connectWidgets();
    void connectSwitches();
    void setListColumns();

    void openSelected();
    bool openSchedule();
    bool openMatching();
    void goBack();
    void save();
    void send(const char* command, const QJsonObject& body);
    void fillCurrentList();
    void updateButtons(int view);
    void clearEditFocusLater();
    void clearEditFocus();

    void showJobRow();
    void showFillRows(bool shown);
    void showRetractionRows(bool shown);

    // The look.
    void refreshConfigStyle();
    void styleTabs();
    void arrangeConfigLayouts();
    void arrangeEndTab();
    void setClickFocus();
    void styleConfigFields();
    void styleConfigNumbers();
    void styleConfigHeader();
    int compactHeight();

    std::unique_ptr<Ui::WeldParameterPage> ui;
    qint32 currentRecord = 1; ///< number of the record that was opened last
    QPointer<WeldSettingPage> settingPage;
    QPair<double, double> styledFor; ///< screen scale and font zoom of the detail view's style
};
