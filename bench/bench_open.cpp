// From the load of the plugin's library to the first painted frame of its main page, beside the
// time in which QUiLoader builds and shows the same forms with the same style sheets, and plain
// code the rows of their signal tables.
//
// Each round is a process of its own, as a second load in the same process would find everything
// warm. What both need of the desktop (fonts, the style, a first window) is made before the clock
// starts.

#include "PageBench.h"
#include "Ratio.h"
#include "Resident.h"
#include "StyleHelpers.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLayout>
#include <QLibrary>
#include <QProcess>
#include <QScrollArea>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QUiLoader>

#include <cstdlib>
#include <initializer_list>
#include <utility>

using PageBench::CellHost;
using PageBench::showUntilPainted;

namespace {

constexpr int Rounds = 15;
constexpr double Limit = 0.5;
constexpr QSize PageSize(1024, 700);

// The peer ------------------------------------------------------------------------------------

class FormLoader : public QUiLoader
{
public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        QWidget* widget = nullptr;
        if (className == QLatin1String("EnableButton")) {
            widget = new QWidget(parent);
            widget->setFixedSize(50, 24);
        } else if (className == QLatin1String("StackedWidgetFit")) {
            widget = new QStackedWidget(parent);
        } else {
            return QUiLoader::createWidget(className, parent, name);
        }
        widget->setObjectName(name);
        return widget;
    }

    QWidget* form(const char* path, QWidget* parent)
    {
        QFile file(QLatin1String(SOURCE_FOLDER "/") + QLatin1String(path));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", path);
        return load(&file, parent);
    }
};

template<typename Widget = QWidget>
Widget* named(const QWidget* root, const char* name)
{
    return root->findChild<Widget*>(QLatin1String(name));
}

/// The sheet that the helper gives to a widget of that kind.
template<typename Widget>
QString sheetOf(void (*helper)(QWidget*))
{
    Widget widget;
    helper(&widget);
    return widget.styleSheet();
}

void hideUnused(const QWidget* page)
{
    for (const char* name :
         {"pushButton_Retraction", "pushButton_WireSticking", "comboBox_feedback_di",
          "comboBox_detection_do", "comboBox_laser_comm_type", "comboBox_wire_feed_type",
          "comboBox_wire_feeder_comm_type", "label_21", "label_25", "label_Method", "label_6",
          "label_7"})
        named(page, name)->hide();
}

/// The texts of the sheets; made before the clock starts.
struct Sheets
{
    QString white = QLatin1String("QWidget{background-color:white;}");
    QString title = QLatin1String("QLabel#lblTitle{font:bold 16px;min-height:30px;}");
    QString scrollBars = QLatin1String("QScrollBar::handle:hover{background:#b0b0b0;}");
    QString button = QLatin1String(
        "QToolButton {height: 30px;padding: 0px 6px;background-color: rgb(235, 235, 235);border: "
        "none;border-radius: 3px;font: 17px;color: black;}QToolButton:hover {background: rgb(99, "
        "99, 99);background-color: rgb(135, 161, 174);}QToolButton:pressed {background: "
        "#636363;}QToolButton:checked {background: #8a0121;color: white;}");
    QString page = sheetOf<QWidget>(applyBaseStyle);
    QString frame = sheetOf<QFrame>(applyConfigFrameStyle);
    QString tabs = tabStyleSheet();
    QString table = QLatin1String(
        "QTableWidget{background:#ffffff;gridline-color:#d0d0d0;border:none;color:#202020;"
        "selection-background-color:#0078D4;selection-color:#ffffff;font:400 10pt \"Microsoft "
        "YaHei "
        "UI\";}QTableWidget QHeaderView::section{background:#224d75;color:#ffffff;padding:4px;}");
    QString group = QLatin1String("QGroupBox{background:#ffffff;border:none;}");
    QString panel = QLatin1String("QFrame{background:#f8f9fa;border:1px solid #d6d6d6;}"
                                  "QFrame QLabel{background:transparent;}");
    QString number = QLatin1String(
        "QSpinBox,QDoubleSpinBox{border:1px solid #c8c8c8;border-radius:4px;background:#ffffff;"
        "color:#202020;padding:0px 2px 0px 4px;font:400 10pt \"Microsoft YaHei UI\";}");
    QString box = comboStyleSheet(nullptr, 22, 6, 22, true);
};

void setSheets(const QWidget* page, std::initializer_list<const char*> names, const QString& sheet)
{
    for (const char* name : names)
        named(page, name)->setStyleSheet(sheet);
}

void styleSchedules(QWidget* page, const Sheets& sheets)
{
    page->setStyleSheet(sheets.page);
    setSheets(page, {"tabWidget", "tabWidget_config"}, sheets.tabs);
    setSheets(page, {"tableWidget", "tableWidget_2", "tableWidget_matching"}, sheets.table);
    setSheets(page, {"groupBox", "groupBox_2", "groupBox_3"}, sheets.group);
    setSheets(page,
              {"frame_config_header", "frame", "frame_16", "frame_2", "frame_3", "frame_17",
               "frame_19", "frame_20", "frame_wire_stick_row"},
              sheets.panel);
    const QWidget* details = named(page, "page_config");
    const auto numbers = details->findChildren<QSpinBox*>();
    for (QSpinBox* each : numbers)
        each->setStyleSheet(sheets.number);
    const auto boxes = details->findChildren<QComboBox*>();
    for (QComboBox* each : boxes)
        each->setStyleSheet(sheets.box);
}

// From the top down, which is the cheapest order: no widget is styled twice.
void styleForms(QWidget* main, QWidget* setting, const Sheets& sheets)
{
    main->setStyleSheet(sheets.scrollBars);
    named(main, "wgtContent")->setStyleSheet(sheets.white);
    named(main, "wgtTitle")->setStyleSheet(sheets.white);
    named(main, "lblTitle")->setStyleSheet(sheets.title);
    setting->setStyleSheet(sheets.page);
    setSheets(setting, {"frame_5", "frame", "frame_2", "frame_3", "frame_4", "frame_WireSticking"},
              sheets.frame);
    named(main, "WeldioPage")->setStyleSheet(sheets.page);
    named(main, "CharacteristicsCurvePage")->setStyleSheet(sheets.tabs + sheets.table + sheets.box);
    styleSchedules(named(main, "WeldParameterPage"), sheets);
}

QWidget* inCell(std::initializer_list<QWidget*> widgets)
{
    auto* cell = new QWidget;
    auto* row = new QHBoxLayout(cell);
    for (QWidget* each : widgets)
        row->addWidget(each);
    return cell;
}

/// The navigation is no part of a form, and yet it is in the picture of both.
void addNavigation(QWidget* main, const QString& sheet)
{
    QWidget* column = named(main, "wgtNav");
    const std::pair<const char*, const char*> entries[] = {
        {"Weld Setup", "DeviceSetting"},        {"Weld I/O", "IO"},
        {"Char. Curve", "CharacteristicCurve"}, {"Weld Data", "ProcessSetting"},
        {"Laser Tracking", "WeaveFunction"},
    };
    for (const auto& [text, icon] : entries) {
        auto* button = new QToolButton(column);
        button->setText(QLatin1String(text));
        button->setCheckable(true);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setMinimumHeight(42);
        button->setIcon(QIcon(QLatin1String(SOURCE_FOLDER "/resources/png/meanlist/LaserWeld") +
                              QLatin1String(icon) + QLatin1String(".png")));
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        column->layout()->addWidget(button);
        button->setStyleSheet(sheet);
    }
}

/// The rows of the signal tables are no part of a form either: a caption, three boxes and a switch
/// in each.
void addSignalRows(QTableWidget* table, int rows)
{
    table->setRowCount(rows);
    for (int row = 0; row < rows; ++row) {
        table->setCellWidget(row, 1, new QLabel(QLatin1String("Signal")));
        auto* type = new QComboBox;
        type->addItems({QLatin1String("DO"), QLatin1String("REG")});
        table->setCellWidget(row, 2, inCell({type}));
        table->setCellWidget(row, 3, inCell({new QComboBox, new QComboBox}));
        auto* toggle = new QWidget;
        toggle->setFixedSize(50, 24);
        table->setCellWidget(row, 4, inCell({toggle}));
    }
}

void openWithLoader(const Sheets& sheets)
{
    FormLoader loader;
    QWidget* main = loader.form("frame/LaserWeldPage.ui", nullptr);
    auto* stack = named<QStackedWidget>(main, "stackedWidget");
    QWidget* setting = loader.form("pages/WeldSettingPage.ui", main);
    hideUnused(setting);
    stack->addWidget(setting);
    for (const char* page : {"pages/WeldioPage.ui", "pages/CharacteristicsCurvePage.ui",
                             "pages/WeldParameterPage.ui", "pages/LaserTrackingPage.ui"})
        stack->addWidget(loader.form(page, main));
    addSignalRows(named<QTableWidget>(main, "tableWidget_output"), 15);
    addSignalRows(named<QTableWidget>(main, "tableWidget_input"), 9);
    addNavigation(main, sheets.button);
    styleForms(main, setting, sheets);
    stack->setCurrentWidget(setting);
    main->resize(PageSize);
    showUntilPainted(main);
}

// Ours ----------------------------------------------------------------------------------------

/// A backend must outlive the page, so both live until the process ends.
void openPlugin(CellHost& host)
{
    QLibrary library(QLatin1String(PLUGIN_FILE));
    if (!library.load())
        qFatal("%s", qPrintable(library.errorString()));
    qelplugin::PluginBase* plugin =
        qelplugin::createPlugin(QLatin1String("qelLaserWelding"), QCoreApplication::instance());
    plugin->init();
    plugin->afterInit();
    plugin->render();
    host.center->resize(PageSize);
    showUntilPainted(host.center);
}

// Both ----------------------------------------------------------------------------------------

void warmDesktop()
{
    const QString family = QLatin1String("Microsoft YaHei UI");
    QFont::insertSubstitution(family, QLatin1String("Noto Sans CJK SC"));
    QWidget window;
    auto* text = new QLabel(QLatin1String("Warm 0123456789"), &window);
    new QSpinBox(&window);
    for (const QFont::Weight weight : {QFont::Normal, QFont::DemiBold, QFont::Bold}) {
        for (int points : {9, 10, 12}) {
            text->setFont(QFont(family, points, weight));
            text->setText(text->text() + QLatin1String(" and more"));
            showUntilPainted(&window);
            window.hide();
        }
    }
}

/// One round: prints microseconds and KiB.
int runRound(bool ours)
{
    CellHost host;
    warmDesktop();
    const Sheets sheets;
    const double before = residentKiB();
    const double taken = Ratio::microseconds([&] {
        if (ours)
            openPlugin(host);
        else
            openWithLoader(sheets);
    });
    std::printf("%.1f %.0f\n", taken, residentKiB() - before);
    std::fflush(stdout);
    std::_Exit(0);
}

struct Round
{
    double microseconds = 1e300;
    double kibibytes = 0;
};

Round startRound(const char* side, const QString& folder)
{
    QProcess process;
    process.setWorkingDirectory(folder); // the log goes there
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String(side)});
    process.waitForFinished(60000);
    const QList<QByteArray> lines = process.readAllStandardOutput().trimmed().split('\n');
    const QList<QByteArray> fields = lines.last().split(' ');
    if (fields.size() != 2)
        qFatal("a round of %s gave nothing", side);
    return {fields.at(0).toDouble(), fields.at(1).toDouble()};
}

void keepLeast(Round& least, const Round& round)
{
    if (round.microseconds < least.microseconds)
        least = round;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc > 1)
        return runRound(qstrcmp(argv[1], "ours") == 0);
    const QTemporaryDir folder;
    Round ours;
    Round peer;
    for (int round = 0; round < Rounds; ++round) {
        keepLeast(ours, startRound("ours", folder.path()));
        keepLeast(peer, startRound("peer", folder.path()));
    }
    const bool holds = Ratio::report("library load to first frame / QUiLoader",
                                     {ours.microseconds, peer.microseconds}, Limit);
    Ratio::note("memory that the load adds / QUiLoader", {ours.kibibytes, peer.kibibytes}, "KiB");
    return holds ? 0 : 1;
}
