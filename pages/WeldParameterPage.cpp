#include "WeldParameterPage.h"

#include "CommandReply.h"
#include "Host.h"
#include "OwnedTimer.h"
#include "StyleHelpers.h"
#include "UiScale.h"
#include "WeldSettingPage.h"
#include "WrappedHeader.h"
#include "ui_WeldParameterPage.h"

namespace {

constexpr char ScheduleCommand[] = "set_weld_param_list_config";
constexpr char MatchCommand[] = "set_weld_param_match_config";

// Views of the stack.
enum View { Lists, Schedule, Matching };
// Tabs of the lists.
enum ListTab { ScheduleList, MatchingList };

void stretchColumns(QTableWidget* table, int firstWidth)
{
    constexpr int leastWidth = 24; // Qt takes the font's widest character, a Chinese word
    WrappedHeader::install(table);
    QHeaderView* header = table->horizontalHeader();
    header->setMinimumSectionSize(leastWidth);
    header->setDefaultSectionSize(leastWidth); // below which Qt does not shrink the last section
    header->setSectionResizeMode(QHeaderView::Stretch);
    header->setSectionResizeMode(0, QHeaderView::Fixed);
    header->setStretchLastSection(true);
    header->setHighlightSections(false); // or a selected row makes all of them bold
    table->setColumnWidth(0, firstWidth);
}

QString keyOf(const char* prefix, int number)
{
    return QLatin1String(prefix) + QString::number(number);
}

} // namespace

WeldParameterPage::WeldParameterPage(WeldSettingPage* setting, QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::WeldParameterPage)
    , settingPage(setting)
{
    ui->setupUi(this);
    setFocusPolicy(Qt::StrongFocus);
    UiScale::expand(this);
    arrangeEndTab();
    setListColumns();
    initMatchingTable();
    connectWidgets();
    connectSwitches();
    showJobRow();
    if (ui->stackedWidget->currentIndex() == Lists) {
        ui->pushButton_back->hide();
        ui->pushButton_save->hide();
    }
    // The mode of a schedule is that of its switches, and a ramp is one of time.
    for (QWidget* each : std::initializer_list<QWidget*>{ui->label_2, ui->comboBox_modetype,
                                                         ui->label_20, ui->comboBox_ramp_mode_end,
                                                         ui->label_8, ui->comboBox_ramp_mode_start})
        each->hide();
    ui->tableWidget_matching->setFrameShape(QFrame::NoFrame);
}

WeldParameterPage::~WeldParameterPage() = default;

void WeldParameterPage::setListColumns()
{
    stretchColumns(ui->tableWidget, 80);
    stretchColumns(ui->tableWidget_2, 60);
}

void WeldParameterPage::connectWidgets()
{
    connect(ui->pushButton_back, &QPushButton::clicked, this, &WeldParameterPage::goBack);
    connect(ui->stackedWidget, &QStackedWidget::currentChanged, this,
            &WeldParameterPage::updateButtons);
    connect(ui->tabWidget_config, &QTabWidget::currentChanged, this, [this] {
        if (ui->stackedWidget->currentIndex() == Schedule)
            refreshConfigStyle();
    });
    connect(ui->tabWidget, &QTabWidget::currentChanged, this, &WeldParameterPage::fillCurrentList);
    connect(ui->pushButton_save, &QPushButton::clicked, this, &WeldParameterPage::save);
    connect(ui->pushButton_Config, &QPushButton::clicked, this, &WeldParameterPage::openSelected);
}

void WeldParameterPage::fillCurrentList()
{
    if (ui->tabWidget->currentIndex() == ScheduleList)
        setTableProcessData();
    else if (ui->tabWidget->currentIndex() == MatchingList)
        setTableMatchData();
}

void WeldParameterPage::openSelected()
{
    const int tab = ui->tabWidget->currentIndex();
    if ((tab == ScheduleList && openSchedule()) || (tab == MatchingList && openMatching()))
        return;
    Host::tellWarning(tr("Please select a row of data in the table first"));
}

bool WeldParameterPage::openSchedule()
{
    const int row = ui->tableWidget->currentRow();
    if (row < 0)
        return false;
    currentRecord = row + 1;
    ui->label_ID->setText(keyOf("LsData", currentRecord));
    loadProcessData(ui->label_ID->text());
    ui->stackedWidget->setCurrentIndex(Schedule);
    refreshConfigStyle();
    clearEditFocusLater();
    return true;
}

bool WeldParameterPage::openMatching()
{
    const int row = ui->tableWidget_2->currentRow();
    if (row < 0)
        return false;
    currentRecord = row + 1;
    ui->label_ProcessID->setText(keyOf("PowerData", currentRecord));
    loadMatchData(ui->label_ProcessID->text());
    ui->stackedWidget->setCurrentIndex(Matching);
    clearEditFocusLater();
    return true;
}

void WeldParameterPage::goBack()
{
    ui->stackedWidget->setCurrentIndex(Lists);
    fillCurrentList();
}

// The editors' ranges are all the validation of a schedule.
void WeldParameterPage::save()
{
    switch (ui->stackedWidget->currentIndex()) {
    case Schedule:
        send(ScheduleCommand, createProcessDataJson());
        break;
    case Matching:
        if (validateMatchingTableParams())
            send(MatchCommand, createMatchDataJson());
        break;
    default:
        break;
    }
}

void WeldParameterPage::send(const char* command, const QJsonObject& body)
{
    checkSaveResult(CommandReply::sendBody(this, body), QLatin1String(command));
}

void WeldParameterPage::checkSaveResult(const QJsonArray& reply, const QString& command)
{
    CommandReply::reportStrict(
        reply, command,
        {tr("Saved successfully"), tr("Save failed. Please check the parameter configuration."),
         QLatin1String("WeldParameterPage::checkSaveResult failed. "),
         QLatin1String("WeldParameterPage::checkSaveResult failed. not found ")});
}

void WeldParameterPage::updateButtons(int view)
{
    const bool isList = view == Lists;
    ui->pushButton_Config->setVisible(isList);
    ui->pushButton_back->setVisible(!isList);
    ui->pushButton_save->setVisible(!isList);
    if (view == Schedule) {
        refreshConfigStyle();
        applyTabStyle(ui->tabWidget_config);
    }
    clearEditFocusLater();
}

// The focus moves after the view has changed.
void WeldParameterPage::clearEditFocusLater()
{
    ownedSingleShot(0, this, &WeldParameterPage::clearEditFocus);
}

void WeldParameterPage::clearEditFocus()
{
    QWidget* focus = focusWidget();
    if (!focus || !isAncestorOf(focus))
        return;
    if (qobject_cast<QLineEdit*>(focus) || qobject_cast<QAbstractSpinBox*>(focus) ||
        qobject_cast<QComboBox*>(focus))
        setFocus(Qt::OtherFocusReason);
}

void WeldParameterPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    switch (ui->stackedWidget->currentIndex()) {
    case Lists:
        fillCurrentList();
        break;
    case Schedule:
        refreshConfigStyle();
        loadProcessData(ui->label_ID->text());
        updateRampRows();
        break;
    case Matching:
        loadMatchData(ui->label_ProcessID->text());
        break;
    default:
        break;
    }
    UiScale::applyFonts(this, 10);
    setEnabled(Host::mayOperate());
    clearEditFocusLater();
}
