#include "TourChapters.h"

#include "Controller.h"
#include "MainWindow.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QSpinBox>
#include <QTabBar>
#include <QTableWidget>

#include <algorithm>
#include <functional>

namespace pendant {

namespace {

// Contexts of the pages' texts.
constexpr const char* DataPage = "WeldParameterPage";
constexpr const char* CurvePage = "CharacteristicsCurvePage";

constexpr const char* Saved = "Saved successfully";
constexpr const char* Schedule = "LsData7";
constexpr const char* Matching = "PowerData2";
constexpr const char* NothingSelected = "Please select a row of data in the table first";
constexpr const char* EqualSpeeds =
    "Speed parameter validation failed between row %1 and row %2. Row %1 value must be less than "
    "row %2.";
constexpr const char* EqualPowers =
    "Power parameter validation failed between row %1 and row %2. Row %1 value must be less than "
    "row %2.";

// Tabs, by what they show.
constexpr const char* Schedules = "Process schedule";
constexpr const char* MatchingTab = "Parameter matching";
constexpr const char* Starting = "Starting process";
constexpr const char* Welding = "Welding process";
constexpr const char* Ending = "Ending process";
constexpr const char* PowerTab = "Laser Power";
constexpr const char* FrequencyTab = "PWM Frequency";

constexpr const char* PowerTable = "tableWidget_laserpower";
constexpr const char* PowerChart = "Chart_laserpower";

/// A number that is put into a field, and where the record has it.
struct Entry
{
    const char* field;
    const char* key;
    int value;
};

constexpr Entry StartWire[] = {
    {"doubleSpinBox_feeding_speed_start", "feeding_speed_start", 25},
    {"spinBox_wire_feed_time_start", "wire_feed_time_start", 150},
};

constexpr Entry Seam[] = {
    {"doubleSpinBox_welding_speed_3", "welding_speed", 14},
    {"doubleSpinBox_feeding_speed_run", "feeding_speed_run", 22},
    {"doubleSpinBox_laser_power_weld_3", "laser_power_weld", 1850},
};

constexpr Entry Retraction[] = {
    {"doubleSpinBox_wire_retract_end", "wire_retract_end", 45},
    {"spinBox_wire_retract_time_end", "wire_retract_time_end", 220},
};

constexpr Entry Compensation[] = {
    {"spinBox_fill_delay_time_end", "fill_delay_time_end", 60},
    {"doubleSpinBox_fill_wire_speed_end", "fill_wire_speed_end", 35},
    {"spinBox_fill_wire_time_end", "fill_wire_time_end", 180},
};

constexpr const char* Comment = "Fillet with wire";

/// A matching record that rises in all columns.
constexpr int MatchingRows[][4] = {
    {8, 500, 250, 30}, {16, 1100, 500, 50}, {32, 1900, 750, 70}, {64, 2900, 1000, 90}};

/// Output and laser power, as measured.
struct MeasuredNode
{
    double output;
    int power;
};

constexpr MeasuredNode Measured[] = {
    {512.25, 380}, {1024.5, 790}, {2048, 1540}, {3072.75, 2390}, {4095, 3010}};
constexpr int MeasuredCount = static_cast<int>(std::size(Measured));

QTableWidget* table(TourStage& stage, const char* name)
{
    return qobject_cast<QTableWidget*>(stage.widget(latin(name)));
}

bool openTab(TourStage& stage, const char* tabs, const QString& tab)
{
    const QString bar = latin(tabs) + latin("/qt_tabwidget_tabbar");
    return stage.hand().click(qobject_cast<QTabBar*>(stage.widget(bar)), tab);
}

bool enter(TourStage& stage, QWidget* field, int number)
{
    return field && stage.hand().enter(field, QString::number(number)) &&
           stage.expect(field->property("value").toInt() == number,
                        QStringLiteral("\"%1\" shows %2, not %3")
                            .arg(field->objectName())
                            .arg(field->property("value").toInt())
                            .arg(number));
}

template<std::size_t Count>
bool enterAll(TourStage& stage, const Entry (&entries)[Count])
{
    return std::all_of(std::begin(entries), std::end(entries), [&](const Entry& each) {
        return enter(stage, stage.widget(latin(each.field)), each.value);
    });
}

template<std::size_t Count>
bool expectHeld(TourStage& stage, const Entry (&entries)[Count])
{
    const QString record = latin("weld_param_config.") + latin(Schedule);
    return std::all_of(std::begin(entries), std::end(entries), [&](const Entry& each) {
        const QJsonValue value = stage.record(record).toObject().value(latin(each.key));
        return stage.expect(value == each.value,
                            QStringLiteral("the controller holds %1 for \"%2\"")
                                .arg(value.toDouble())
                                .arg(latin(each.key)));
    });
}

bool expectText(TourStage& stage, const char* widget, const char* text)
{
    const QWidget* there = stage.widget(latin(widget));
    return there && stage.expect(there->property("text").toString() == latin(text),
                                 QStringLiteral("\"%1\" shows \"%2\"")
                                     .arg(latin(widget), there->property("text").toString()));
}

bool expectVisible(TourStage& stage, const char* name, bool visible)
{
    const QWidget* there = stage.widget(latin(name));
    return there && stage.expect(there->isVisible() == visible,
                                 QStringLiteral("\"%1\" is %2")
                                     .arg(latin(name), latin(visible ? "hidden" : "visible")));
}

bool expectCells(TourStage& stage, const char* name, int row, const QStringList& texts)
{
    const QTableWidget* list = table(stage, name);
    for (int column = 1; list && column <= texts.size(); ++column) {
        const QTableWidgetItem* cell = list->item(row, column);
        const QString text = cell ? cell->text() : QString();
        if (text != texts.at(column - 1))
            return stage.fail(QStringLiteral("row %1 of the list shows \"%2\", not \"%3\"")
                                  .arg(row + 1)
                                  .arg(text, texts.at(column - 1)));
    }
    return list != nullptr;
}

bool selectRow(TourStage& stage, const char* list, int row)
{
    QTableWidget* rows = table(stage, list);
    return rows && stage.hand().click(rows, rows->model()->index(row, 1));
}

bool press(TourStage& stage, const char* button, int level, const QString& message)
{
    return stage.clickName(latin(button)) && stage.expectMessage(level, message);
}

// A switch is on when the row below it is on show.
bool turnOn(TourStage& stage, const char* name, const char* row)
{
    const QWidget* below = stage.widget(latin(row));
    if (below && below->isVisible() && !stage.clickName(latin(name)))
        return false;
    return expectVisible(stage, row, false) && stage.clickName(latin(name)) &&
           expectVisible(stage, row, true);
}

// ---------------------------------------------------------------- schedules

bool openData(TourStage& stage)
{
    const QJsonObject first = stage.record(latin("weld_param_config.LsData1")).toObject();
    const auto number = [&](const char* key) {
        return QString::number(first.value(latin(key)).toInt());
    };
    return stage.logIn(TourStage::OperatorLevel) && stage.clickTool("Weld Data") &&
           openTab(stage, "tabWidget", shown(DataPage, Schedules)) &&
           expectCells(stage, "tableWidget", 0,
                       {number("welding_speed"), number("laser_power_weld"),
                        number("feeding_speed_run"), first.value(latin("Tips")).toString()});
}

bool openNothing(TourStage& stage)
{
    return press(stage, "pushButton_Config", TourStage::Warning, shown(DataPage, NothingSelected)) &&
           expectVisible(stage, "tableWidget", true);
}

bool openSchedule(TourStage& stage)
{
    return selectRow(stage, "tableWidget", 6) && stage.clickName(latin("pushButton_Config")) &&
           expectText(stage, "label_ID", Schedule) && stage.expectNoMessage();
}

bool feedWire(TourStage& stage)
{
    return openTab(stage, "tabWidget_config", shown(DataPage, Starting)) &&
           turnOn(stage, "pushButton_wire_feed_enable_start",
                  "doubleSpinBox_feeding_speed_start") &&
           enterAll(stage, StartWire) &&
           stage.hand().choose(
               qobject_cast<QComboBox*>(stage.widget(latin("comboBox_wire_mode_start"))),
               shown(DataPage, "Delay"));
}

bool setSeam(TourStage& stage)
{
    return openTab(stage, "tabWidget_config", shown(DataPage, Welding)) && enterAll(stage, Seam) &&
           stage.hand().enter(stage.widget(latin("frame_config_header/lineEdit")), latin(Comment));
}

bool endFollows(TourStage& stage)
{
    return openTab(stage, "tabWidget_config", shown(DataPage, Ending)) &&
           expectVisible(stage, "doubleSpinBox_wire_speed_end", true) &&
           expectVisible(stage, "pushButton_wire_stick_enable_end", true) &&
           expectVisible(stage, "frame_19", true);
}

bool setRetraction(TourStage& stage)
{
    return turnOn(stage, "pushButton_wire_retraction_end", "doubleSpinBox_wire_retract_end") &&
           enterAll(stage, Retraction) && expectVisible(stage, "frame_20", true);
}

bool setCompensation(TourStage& stage)
{
    return turnOn(stage, "pushButton_wire_fill_com_end", "spinBox_fill_delay_time_end") &&
           enterAll(stage, Compensation);
}

bool saveSchedule(TourStage& stage)
{
    return press(stage, "pushButton_save", TourStage::Information, shown(DataPage, Saved)) &&
           expectHeld(stage, StartWire) && expectHeld(stage, Seam) &&
           expectHeld(stage, Retraction) && expectHeld(stage, Compensation);
}

bool readList(TourStage& stage)
{
    return stage.clickName(latin("pushButton_back")) &&
           expectCells(stage, "tableWidget", 6,
                       {QString::number(Seam[0].value), QString::number(Seam[2].value),
                        QString::number(Seam[1].value), latin(Comment)});
}

// ---------------------------------------------------------------- matching

QWidget* matchingCell(TourStage& stage, int row, int column)
{
    const QTableWidget* cells = table(stage, "tableWidget_matching");
    return cells ? cells->cellWidget(row + 2, column + 1) : nullptr;
}

bool enterCell(TourStage& stage, int row, int column, int number)
{
    return enter(stage, matchingCell(stage, row, column), number);
}

// From the last row up, so that each number can be seen to be greater than those above it.
bool enterMatching(TourStage& stage)
{
    for (int row = 3; row >= 0; --row) {
        for (int column = 0; column < 4; ++column) {
            if (!enterCell(stage, row, column, MatchingRows[row][column]))
                return false;
        }
    }
    return true;
}

bool openMatching(TourStage& stage)
{
    return openTab(stage, "tabWidget", shown(DataPage, MatchingTab)) && selectRow(stage, "tableWidget_2", 1) &&
           stage.clickName(latin("pushButton_Config")) &&
           expectText(stage, "label_ProcessID", Matching) && enterMatching(stage);
}

bool refusePowers(TourStage& stage)
{
    return enterCell(stage, 2, 1, MatchingRows[1][1]) &&
           press(stage, "pushButton_save", TourStage::Warning, shown(DataPage, EqualPowers).arg(2).arg(3));
}

bool refuseSpeeds(TourStage& stage)
{
    return enterCell(stage, 1, 0, MatchingRows[0][0]) &&
           press(stage, "pushButton_save", TourStage::Warning, shown(DataPage, EqualSpeeds).arg(1).arg(2));
}

QJsonArray matchingTable()
{
    QJsonArray rows;
    for (const auto& [speed, power, frequency, duty] : MatchingRows)
        rows.append(QJsonArray{speed, power, frequency, duty});
    return rows;
}

bool saveMatching(TourStage& stage)
{
    const QString record = latin("weld_param_match.") + latin(Matching);
    return enterMatching(stage) && press(stage, "pushButton_save", TourStage::Information, shown(DataPage, Saved)) &&
           stage.expect(stage.record(record + latin(".power_data")) == matchingTable(),
                        latin("the controller does not hold the matching record"));
}

bool readMatchingList(TourStage& stage)
{
    return stage.clickName(latin("pushButton_back")) &&
           expectCells(stage, "tableWidget_2", 1,
                       {latin("64"), latin("2900"), latin("1000"), latin("90")}) &&
           openTab(stage, "tabWidget", shown(DataPage, Schedules));
}

// ---------------------------------------------------------------- curves

bool turnFrequency(TourStage& stage)
{
    return stage.clickTool("Weld I/O") && openTab(stage, "tabWidget_io", shown("WeldioPage", "I/O output")) &&
           stage.clickName(latin("pushButton_frequency_enabled")) &&
           press(stage, "pushButton_Save", TourStage::Information, shown("WeldioPage", Saved)) &&
           stage.clickTool("Char. Curve");
}

bool expectTab(TourStage& stage, const char* tab, const char* name, const QString& header)
{
    const QTableWidget* nodes = table(stage, name);
    const bool isMapped = header != shown(CurvePage, "Not configured");
    return openTab(stage, "tabWidget", shown(CurvePage, tab)) && nodes &&
           stage.expect(nodes->isEnabled() == isMapped,
                        QStringLiteral("the tab \"%1\" is %2")
                            .arg(latin(tab), latin(isMapped ? "locked" : "free"))) &&
           stage.expect(nodes->horizontalHeaderItem(1)->text() == header,
                        QStringLiteral("the tab \"%1\" shows the port \"%2\"")
                            .arg(latin(tab), nodes->horizontalHeaderItem(1)->text()));
}

QString portOf(TourStage& stage, const char* signal)
{
    return stage.record(QStringLiteral("weld_io_config.%1_port").arg(latin(signal))).toString();
}

bool tabsFollowMapping(TourStage& stage)
{
    return turnFrequency(stage) && expectTab(stage, PowerTab, PowerTable, portOf(stage, "power")) &&
           expectTab(stage, "Feeding Speed", "tableWidget_feedspeed",
                     portOf(stage, "wire_speed")) &&
           expectTab(stage, "PWM Duty Cycle", "tableWidget_dutycycle",
                     portOf(stage, "duty_cycle")) &&
           expectTab(stage, FrequencyTab, "tableWidget_frequency", shown(CurvePage, "Not configured"));
}

bool mappedAgain(TourStage& stage)
{
    return turnFrequency(stage) &&
           expectTab(stage, FrequencyTab, "tableWidget_frequency", portOf(stage, "frequency"));
}

QWidget* nodeField(TourStage& stage, int row, int column)
{
    const QTableWidget* nodes = table(stage, PowerTable);
    return nodes ? nodes->cellWidget(row, column) : nullptr;
}

bool enterOutput(TourStage& stage, int row, double output)
{
    QWidget* field = nodeField(stage, row, 1);
    if (!field)
        return stage.fail(QStringLiteral("there is no node %1").arg(row + 1));
    QLocale locale = field->locale();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return stage.hand().enter(field, locale.toString(output, 'f', 2)) &&
           stage.expect(field->property("value").toDouble() == output,
                        QStringLiteral("the output of node %1 is %2")
                            .arg(row + 1)
                            .arg(field->property("value").toDouble()));
}

bool enterNodes(TourStage& stage)
{
    for (int row = 0; row < MeasuredCount; ++row) {
        if (!enterOutput(stage, row, Measured[row].output) ||
            !enter(stage, nodeField(stage, row, 2), Measured[row].power))
            return false;
    }
    return true;
}

bool chooseNumber(TourStage& stage, int nodes)
{
    return stage.hand().choose(qobject_cast<QComboBox*>(stage.widget(latin("comboBox_node"))),
                               QString::number(nodes)) &&
           stage.expect(table(stage, PowerTable)->rowCount() == nodes,
                        latin("the table has another number of nodes"));
}

bool measure(TourStage& stage)
{
    return openTab(stage, "tabWidget", shown(CurvePage, PowerTab)) && chooseNumber(stage, MeasuredCount) &&
           enterNodes(stage);
}

QImage pictureOf(TourStage& stage, const char* name)
{
    QWidget* there = stage.widget(latin(name));
    return there ? there->grab().toImage() : QImage();
}

bool compute(TourStage& stage)
{
    const QImage before = pictureOf(stage, PowerChart);
    return stage.clickName(latin("pushButton_compute")) && stage.expectNoMessage() &&
           stage.expect(Hand::waitFor([&] { return pictureOf(stage, PowerChart) != before; }),
                        latin("the chart shows nothing new"));
}

QString notRising(int row)
{
    return shown(CurvePage, "The data in line %1 must be greater than the data in row %2!")
        .arg(row)
        .arg(row - 1);
}

bool refuseNodes(TourStage& stage)
{
    return enterOutput(stage, 2, Measured[1].output) &&
           press(stage, "pushButton_Save_laserpower", TourStage::Warning,
                 notRising(3));
}

bool saveCurve(TourStage& stage)
{
    QJsonArray nodes;
    for (const MeasuredNode& each : Measured)
        nodes.append(QJsonArray{each.output, each.power});
    return enterOutput(stage, 2, Measured[2].output) &&
           press(stage, "pushButton_Save_laserpower", TourStage::Information,
                 shown(CurvePage, Saved)) &&
           stage.expect(stage.record(latin("weld_curve_config.power_nodes_data")) == nodes,
                        latin("the controller does not hold the nodes"));
}

bool changeNumber(TourStage& stage)
{
    return chooseNumber(stage, 7) &&
           press(stage, "pushButton_compute", TourStage::Warning,
                 notRising(2));
}

bool cancelCurve(TourStage& stage)
{
    return press(stage, "pushButton_cancel", TourStage::Information, shown(CurvePage, "Cancel successful")) &&
           stage.expect(table(stage, PowerTable)->rowCount() == MeasuredCount &&
                            nodeField(stage, 2, 1)->property("value") == Measured[2].output,
                        latin("the table does not show what was saved"));
}

// ---------------------------------------------------------------- tracking

constexpr int Patience = 20000; // milliseconds
constexpr int Attempts = 25;    // of the page to find the other plugin, 200 ms apart
/// So many of them before the page is opened that the rest lasts until the plugin comes.
constexpr int EnoughAttempts = 14;
constexpr const char* Pending = "embed pending";
constexpr const char* Embedded = "embedded into";

/// Lines with the text in the plugin's log, with what was rotated.
int logLines(const char* text)
{
    int lines = 0;
    const QDir folder(latin("log/qelplugin/qelLaserWelding"));
    const QFileInfoList files = folder.entryInfoList(QDir::Files);
    for (const QFileInfo& each : files) {
        QFile file(each.filePath());
        if (file.open(QIODevice::ReadOnly))
            lines += file.readAll().count(text);
    }
    return lines;
}

bool awaitLines(TourStage& stage, const char* text, int lines)
{
    return stage.expect(Hand::waitFor([&] { return logLines(text) >= lines; }, Patience),
                        QStringLiteral("the log holds %1 lines \"%2\", not %3")
                            .arg(logLines(text))
                            .arg(latin(text))
                            .arg(lines));
}

// The page is opened while the plugin is still missing. The start makes it look every 200 ms, the
// opening twice as often besides, and all attempts count together: opened right after the start it
// would have given up before the plugin comes. On a slow machine the plugin is there before.
bool trackingComesLate(TourStage& stage)
{
    const int before = logLines(Pending);
    const int embedded = logLines(Embedded);
    const auto isTime = [&] {
        return logLines(Pending) >= before + EnoughAttempts || logLines(Embedded) > embedded;
    };
    return stage.openAgain(3) && stage.logIn(TourStage::OperatorLevel) &&
           stage.expect(Hand::waitFor(isTime, Patience),
                        latin("the page does not look for the other plugin")) &&
           stage.clickTool("Laser Tracking") &&
           stage.expect(Hand::waitFor(
                            [&] {
                                const auto* seam =
                                    stage.window().findChild<QWidget*>(latin("seamTracking"));
                                return seam && seam->isVisible();
                            },
                            Patience),
                        latin("the page of the other plugin does not appear")) &&
           stage.clickName(latin("LaserTrackingPage/button_sensor"));
}

bool isBlank(const QWidget& page)
{
    const auto all = page.findChildren<QWidget*>();
    return std::none_of(all.begin(), all.end(), std::mem_fn(&QWidget::isVisible));
}

bool trackingNeverComes(TourStage& stage)
{
    const int pending = logLines(Pending);
    const int failed = logLines("embed failed;");
    if (!stage.openAgain(-1) || !stage.logIn(TourStage::OperatorLevel) ||
        !awaitLines(stage, "embed failed;", failed + 1))
        return false;
    const int attempts = logLines(Pending) - pending;
    const QWidget* page = stage.widget(latin("LaserTrackingPage"));
    return stage.expect(attempts == Attempts,
                        QStringLiteral("the log holds %1 attempts").arg(attempts)) &&
           stage.clickTool("Laser Tracking") && page &&
           stage.expect(page->isVisible() && isBlank(*page), latin("the page is not blank"));
}

bool trackingIsThere(TourStage& stage)
{
    return stage.openAgain(0) && stage.logIn(TourStage::OperatorLevel) &&
           stage.clickTool("Laser Tracking") && expectVisible(stage, "seamTracking", true);
}

} // namespace

TourChapter weldDataChapter()
{
    return {
        step("data-list", "\"Weld Data\" lists the schedules", openData),
        step("data-none", "\"Detailed\" asks for a row first", openNothing),
        step("data-schedule", "Schedule 7 opens", openSchedule),
        step("data-wire", "Wire feed is switched on, its rows appear", feedWire),
        step("data-seam", "Speed, wire and power of the seam, and a comment", setSeam),
        step("data-end", "The end of the seam has wire feed on as well", endFollows),
        step("data-retract", "The wire is retracted at the end", setRetraction),
        step("data-compensation", "And compensated", setCompensation),
        step("data-saved", "\"Save\": the controller holds schedule 7", saveSchedule),
        step("data-list-again", "\"Back\": the list shows it", readList),
        step("matching-open", "Matching record 2 opens", openMatching),
        step("matching-powers", "Equal powers are refused, the rows are named", refusePowers),
        step("matching-speeds", "Of equal speeds and powers the first rows are told", refuseSpeeds),
        step("matching-saved", "Mended: the controller holds the record", saveMatching),
        step("matching-list", "The list shows its last row", readMatchingList),
        step("curve-mapping", "\"Char. Curve\": a tab without a port is locked", tabsFollowMapping),
        step("curve-nodes", "Five measured nodes", measure),
        step("curve-computed", "\"Compute\": the nodes and the line through them", compute),
        step("curve-refused", "Nodes that do not rise are refused", refuseNodes),
        step("curve-saved", "\"Save\": the controller holds the nodes", saveCurve),
        step("curve-number", "Another number of nodes begins anew", changeNumber),
        step("curve-cancelled", "\"Cancel\" shows again what was saved", cancelCurve),
        step("curve-mapped", "With its port back the tab is free", mappedAgain),
        step("tracking-late", "\"Laser Tracking\": the plugin comes three seconds late",
             trackingComesLate),
        step("tracking-never", "Without it the page stays blank, as the log says",
             trackingNeverComes),
        step("tracking-now", "Started with it the page is there at once", trackingIsThere),
    };
}

} // namespace pendant
