#include "Stage.h"

#include "EnableButton.h"
#include "LaserWeldPage.h"
#include "PluginSheet.h"
#include "TestCase.h"
#include "rlregistry.h"

#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromUtf8(text, int(size));
}

/// What is left to a page in the pendant's window, whose own bars grow with the screen until they
/// would leave too little.
struct Place
{
    QSize window, at96, above;
};

constexpr Place Places[] = {
    {{800, 600}, {624, 483}, {624, 483}},
    {{1024, 768}, {816, 651}, {784, 609}},
    {{1280, 800}, {1072, 683}, {1020, 628}},
};
/// An editor stands in the lower half of the program editor.
constexpr QSize EditorPlace(600, 200);

QSize placeIn(const QSize& window)
{
    for (const Place& each : Places) {
        if (each.window == window)
            return QGuiApplication::primaryScreen()->logicalDotsPerInch() > 96 ? each.above
                                                                               : each.at96;
    }
    qFatal("no place in a window of this size");
}

// Pages lay themselves out behind events, and the weld I/O page behind a timer of 16 ms: one that
// is started later and runs longer comes behind it.
void settle()
{
    QEventLoop loop;
    QTimer::singleShot(20, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    QApplication::sendPostedEvents();
}

QJsonObject registerRecord(const char* name, const char* type, const char* access)
{
    return {{"name"_s, QString::fromLatin1(name)},
            {"type"_s, QString::fromLatin1(type)},
            {"rw"_s, QString::fromLatin1(access)},
            {"len"_s, 4}};
}

/// Every other signal on a register, all switched on.
QJsonObject ioRecord()
{
    QJsonObject record;
    const char* const keys[] = {"laser_enable",
                                "power",
                                "frequency",
                                "duty_cycle",
                                "red_light",
                                "gas_protect",
                                "wire_speed",
                                "wire_feed",
                                "retract_direction",
                                "manual_wire_feed",
                                "manual_retract",
                                "adhesion_detection_en",
                                "descent_signal",
                                "swing_job",
                                "process_job",
                                "power_feedback",
                                "light_feedback",
                                "laser_alarm",
                                "shield_gas_feedback",
                                "wire_speed_feedback",
                                "wire_feed_feedback",
                                "wire_feeder_alarm",
                                "adhesion_detection_feedback",
                                "external_alarm"};
    const QStringList analog = {"power"_s, "frequency"_s, "duty_cycle"_s, "wire_speed"_s};
    for (const char* each : keys) {
        const QString key = QString::fromLatin1(each);
        const bool isAnalog = analog.contains(key);
        record.insert(key + "_type"_s, isAnalog ? 0 : 2);
        record.insert(key + "_port"_s, isAnalog ? "AO1"_s : "WB1"_s);
        record.insert(key + "_bias"_s, 2);
        record.insert(key + "_enabled"_s, true);
    }
    record.insert("adhesion_detection_enabled"_s, true);
    return record;
}

QJsonObject curveRecord()
{
    QJsonArray nodes;
    for (int node = 0; node < 10; ++node)
        nodes.append(QJsonArray{node * 10, node * 9});
    QJsonObject record;
    for (const char* each : {"power", "feed", "frequency", "dutycycle"}) {
        const QString key = QString::fromLatin1(each);
        record.insert("laser_"_s + key + "_node"_s, nodes.size());
        record.insert(key + "_nodes_data"_s, nodes);
    }
    return record;
}

QJsonObject scheduleRecord()
{
    QJsonObject record{{"LsDataID"_s, "LsData1"_s}, {"work_mode"_s, 1}, {"Tips"_s, "fillet"_s}};
    for (const char* key : {"wire_feed_enable_start", "wire_feed_enable_end",
                            "wire_stick_enable_end", "wire_retraction_end", "wire_fill_com_end"})
        record.insert(QString::fromLatin1(key), true);
    return record;
}

void clickAll(QWidget* root, const char* name)
{
    const auto buttons = root->findChildren<QPushButton*>(QString::fromLatin1(name));
    for (QPushButton* each : buttons)
        each->click();
}

/// Chooses the last entries: those that bring further fields.
void chooseLast(QWidget* root)
{
    const auto boxes = root->findChildren<QComboBox*>();
    for (QComboBox* each : boxes) {
        if (!each->isEditable() && each->count() > 1)
            each->setCurrentIndex(each->count() - 1);
    }
}

} // namespace

Stage::Stage(const QSize& window, const QString& catalogue)
    : sizeName(QString::number(window.width()))
    , place(placeIn(window))
    , area(new QScrollArea)
{
    if (!catalogue.isEmpty()) {
        if (!translator.load(catalogue))
            qFatal("no catalogue %s", qPrintable(catalogue));
        QCoreApplication::installTranslator(&translator);
    }
    plugin = std::make_unique<PluginOnHost>();
    furnish();
    auto& pluginBase = plugin->asHostSees();
    pluginBase.init();
    pluginBase.afterInit();
    pluginBase.render();
    page = qobject_cast<LaserWeldPage*>(plugin->host.centerWidget);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(page);
    area->resize(place);
    area->show();
    settle();
}

Stage::~Stage()
{
    area.reset();
    plugin.reset();
    qelplugin::RlRegistry::instance().clear();
    QCoreApplication::removeTranslator(&translator);
}

void Stage::furnish()
{
    ScriptedHost& host = plugin->host;
    for (const char* kind : {"DO", "DI", "AO", "AI", "GO", "GI"}) {
        QStringList names;
        for (int number = 1; number < 33; ++number)
            names << QString::fromLatin1(kind) + QString::number(number);
        host.portNames.insert(QString::fromLatin1(kind), names);
    }
    host.registerValue =
        QJsonArray{registerRecord("WB1", "bool", "w"), registerRecord("WI1", "int", "w"),
                   registerRecord("WN1", "float", "w"), registerRecord("RN1", "double", "r"),
                   registerRecord("RB1", "bit", "r")};
    host.service.insert("weld_setting_config"_s, QJsonObject{{"feeder_enable"_s, true}});
    host.service.insert("weld_io_config"_s, ioRecord());
    host.service.insert("weld_curve_config"_s, curveRecord());
    host.service.insert("weld_param_config"_s, QJsonObject{{"LsData1"_s, scheduleRecord()}});
    host.service.insert("weld_param_match"_s, QJsonObject());
    host.toolNames = QStringList{"tool0"_s, "tool_head"_s};
    host.workObjectNames = QStringList{"wobj0"_s, "wobj_table"_s};
    host.speedNames = QStringList{"v100"_s, "v1000"_s};
    host.zoneNames = QStringList{"fine"_s, "z10"_s};
    host.points = QStringList{"p1"_s, "p2"_s};
    host.tool = "tool0"_s;
    host.workObject = "wobj0"_s;
}

QVector<Finding> Stage::examineAll()
{
    look("navigation"_s, child<QWidget>(page, "wgtNav"));
    openSetup();
    openWeldIo();
    openCurves();
    openWeldData();
    openTracking();
    openEditors();
    return findings;
}

QWidget* Stage::openPage(int entry)
{
    child<QWidget>(page, "wgtNav")->findChildren<QToolButton*>().at(entry)->click();
    settle();
    return child<QStackedWidget>(page, "stackedWidget")->currentWidget();
}

void Stage::look(const QString& view, QWidget* root)
{
    settle();
    const QString folder = qEnvironmentVariable("LEGIBILITY_PICTURES");
    if (!folder.isEmpty()) {
        const QString language = translator.isEmpty() ? "en"_s : "zh"_s;
        root->window()->grab().save(
            QStringLiteral("%1/%2-%3-%4-%5.png")
                .arg(folder, QString(view).replace(QLatin1Char('/'), QLatin1Char('-')), language)
                .arg(root->logicalDpiX())
                .arg(sizeName));
    }
    findings += examine(view, root);
}

void Stage::openSetup()
{
    QWidget* setup = openPage(0);
    look("title"_s, child<QWidget>(page, "wgtTitle"));
    look("setup"_s, setup);
}

void Stage::openWeldIo()
{
    QWidget* io = openPage(1);
    look("io/output"_s, io);
    child<QTabWidget>(io, "tabWidget_io")->setCurrentIndex(1);
    look("io/input"_s, io);
}

void Stage::openCurves()
{
    QWidget* curves = openPage(2);
    auto* tabs = child<QTabWidget>(curves, "tabWidget");
    const QStringList names = {"power"_s, "feed"_s, "frequency"_s, "duty"_s};
    for (int tab = 0; tab < names.size(); ++tab) {
        tabs->setCurrentIndex(tab);
        look("curve/"_s + names.at(tab), curves);
    }
}

void Stage::openWeldData()
{
    QWidget* data = openPage(3);
    auto* lists = child<QTabWidget>(data, "tabWidget");
    look("data/schedules"_s, data);
    child<QTableWidget>(data, "tableWidget")->selectRow(0);
    child<QPushButton>(data, "pushButton_Config")->click();
    auto* tabs = child<QTabWidget>(data, "tabWidget_config");
    const QStringList names = {"start"_s, "weld"_s, "end"_s};
    for (int tab = 0; tab < names.size(); ++tab) {
        tabs->setCurrentIndex(tab);
        look("schedule/"_s + names.at(tab), data);
    }
    child<QPushButton>(data, "pushButton_back")->click();
    lists->setCurrentIndex(1);
    look("data/matching"_s, data);
    child<QTableWidget>(data, "tableWidget_2")->selectRow(0);
    child<QPushButton>(data, "pushButton_Config")->click();
    look("matching"_s, data);
}

void Stage::openTracking()
{
    look("tracking"_s, openPage(4));
}

void Stage::openEditors()
{
    const auto& instructions = qelplugin::RlRegistry::instance().instructions;
    for (const qelplugin::RlInstruction& each : instructions) {
        if (each.insertEditor)
            openEditor("insert/"_s + each.key, each.insertEditor());
        if (each.propertyEditor)
            openEditor("property/"_s + each.key, each.propertyEditor());
    }
}

void Stage::openEditor(const QString& view, QWidget* editor)
{
    QScrollArea placeOfEditor;
    auto* ground = new QWidget; // as the pendant's program editor has it
    ground->setStyleSheet(pendant::PluginSheet::ofPlugin("qelLaserWelding"_s));
    (new QVBoxLayout(ground))->addWidget(editor);
    ground->layout()->setContentsMargins(0, 0, 0, 0);
    placeOfEditor.setWidgetResizable(true);
    placeOfEditor.setWidget(ground);
    placeOfEditor.resize(EditorPlace);
    placeOfEditor.show();
    look(view, editor);
    chooseLast(editor);
    clickAll(editor, "btnReltool");
    look(view, editor);
}
