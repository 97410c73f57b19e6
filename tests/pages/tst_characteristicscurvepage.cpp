#include "CharacteristicsCurvePage.h"
#include "CustomChart.h"
#include "LogFolder.h"
#include "PolishWatch.h"
#include "ScriptedHost.h"
#include "TestCase.h"
#include "UiScale.h"
#include "WeldSettingPage.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>

#include <memory>

namespace {

using Page = CharacteristicsCurvePage;
using Nodes = Page::Nodes;

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromLatin1(text, int(size));
}

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// One tab as the operator and the controller know it.
struct Curve
{
    const char* page;
    const char* caption;
    const char* nodeBox;
    const char* table;
    const char* chart;
    const char* compute;
    const char* cancel;
    const char* save;
    const char* header;
    int least, most; ///< of the process value
    const char* yTitle;
    const char* nodeKey;
    const char* dataKey;
    const char* saveCommand;
    const char* enabledKey;
    const char* portKey;
};

constexpr Curve Curves[] = {
    {"laserpower", "Laser Power", "comboBox_node", "tableWidget_laserpower", "Chart_laserpower",
     "pushButton_compute", "pushButton_cancel", "pushButton_Save_laserpower", "Power(W)", 0, 65535,
     "Power W", "laser_power_node", "power_nodes_data", "set_weld_curve_power_config",
     "power_enabled", "power_port"},
    {"feedspeed", "Feeding Speed", "comboBox_node_2", "tableWidget_feedspeed", "Chart_feedspeed",
     "pushButton_compute_5", "pushButton_cancel_5", "pushButton_Save_speed", " Feed Speed(mm/s)", 0,
     65535, "Feedspeed mm/s", "laser_feed_node", "feed_nodes_data", "set_weld_curve_feed_config",
     "wire_speed_enabled", "wire_speed_port"},
    {"frequency", "PWM Frequency", "comboBox_node_3", "tableWidget_frequency", "Chart_frequency",
     "pushButton_compute_2", "pushButton_cancel_2", "pushButton_Save_frequency", "Frequency(Hz)", 0,
     65535, "Frequency Hz", "laser_frequency_node", "frequency_nodes_data",
     "set_weld_curve_frequency_config", "frequency_enabled", "frequency_port"},
    {"dutycycle", "PWM Duty Cycle", "comboBox_node_4", "tableWidget_dutycycle", "Chart_dutycycle",
     "pushButton_compute_3", "pushButton_cancel_3", "pushButton_Save_dutycycle", "DutyCycle(%)", 1,
     100, "Dutycycle %", "laser_dutycycle_node", "dutycycle_nodes_data",
     "set_weld_curve_dutycycle_config", "duty_cycle_enabled", "duty_cycle_port"},
};

const QString CurveKey = "weld_curve_config"_s;
const QString IoKey = "weld_io_config"_s;
const QString ComputeCommand = "compute_curve_config"_s;
const QString Saved = "0: Saved successfully"_s;
const QString NotSaved = "2: Save failed. Please check the parameter configuration."_s;
const QString Cancelled = "0: Cancel successful"_s;
const QString TooFew = "1: Validation failed,The table requires at least two rows of data!"_s;

QString notRising(int row)
{
    return "1: The data in line %1 must be greater than the data in row %2!"_s.arg(row).arg(row -
                                                                                            1);
}

QJsonArray pairs(const Nodes& nodes)
{
    QJsonArray array;
    for (const auto& node : nodes)
        array.append(QJsonArray{node.first, node.second});
    return array;
}

/// Three nodes for each of the curves, other ones on each tab.
Nodes storedNodes(int tab)
{
    return {{0.5 + tab, 10.0 + tab}, {2.25 + tab, 20.0 + tab}, {4.75 + tab, 40.0 + tab}};
}

QJsonObject record()
{
    QJsonObject values;
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        values.insert(text(Curves[tab].nodeKey), 3);
        values.insert(text(Curves[tab].dataKey), pairs(storedNodes(tab)));
    }
    return values;
}

QJsonObject mapping()
{
    QJsonObject values;
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        values.insert(text(Curves[tab].enabledKey), true);
        values.insert(text(Curves[tab].portKey), "AO%1"_s.arg(tab + 1));
    }
    return values;
}

QJsonObject with(QJsonObject object, const char* key, const QJsonValue& value)
{
    object.insert(text(key), value);
    return object;
}

QJsonObject without(QJsonObject object, const char* key)
{
    object.remove(text(key));
    return object;
}

QJsonArray lineReply(const QJsonValue& slope, const QJsonValue& intercept)
{
    const QJsonObject line{{"slope"_s, slope}, {"intercept"_s, intercept}};
    return {QJsonObject{{"qelLaserWelding"_s, QJsonObject{{ComputeCommand, line}}}}};
}

/// The page on a host that knows the curves and the mapping, with a log of its own.
struct PageOnHost
{
    PageOnHost()
    {
        host.service.insert(CurveKey, record());
        host.service.insert(IoKey, mapping());
        host.replies.insert(ComputeCommand, lineReply(8.5, 1.25));
    }

    QTableWidget* table(int tab) { return child<QTableWidget>(&page, Curves[tab].table); }
    QComboBox* nodeBox(int tab) { return child<QComboBox>(&page, Curves[tab].nodeBox); }
    CustomChart* chart(int tab) { return child<CustomChart>(&page, Curves[tab].chart); }
    Nodes nodes(int tab) { return Page::readNodes(table(tab)); }
    QDoubleSpinBox* output(int tab, int row)
    {
        return qobject_cast<QDoubleSpinBox*>(table(tab)->cellWidget(row, 1));
    }
    QSpinBox* process(int tab, int row)
    {
        return qobject_cast<QSpinBox*>(table(tab)->cellWidget(row, 2));
    }
    void click(const char* name) { child<QPushButton>(&page, name)->click(); }
    bool isFree(const char* name)
    {
        return !child<QWidget>(&page, name)->testAttribute(Qt::WA_ForceDisabled);
    }
    void switchMain(bool on)
    {
        setting->loadConfig(QJsonObject{{"laser_main_enable"_s, on}});
        QCOMPARE(setting->isMainEnabled(), on);
    }
    void show()
    {
        page.show();
        host.forgetCalls();
    }
    QStringList sent()
    {
        QStringList names;
        for (const auto& command : qAsConst(host.commands))
            names += command.data.keys();
        return names;
    }

    ScriptedHost host;
    LogFolder folder;
    ConsoleCapture console;
    std::unique_ptr<WeldSettingPage> setting = std::make_unique<WeldSettingPage>(nullptr);
    Page page{setting.get()};
};

/// A table with the columns of the page's, free for its rows.
struct FreeTable
{
    FreeTable() { table.setHorizontalHeaderItem(1, new QTableWidgetItem("AO1"_s)); }

    void addEditors(double x, int y)
    {
        const int row = table.rowCount();
        table.insertRow(row);
        auto* output = new QDoubleSpinBox;
        output->setRange(-1e9, 1e9);
        output->setValue(x);
        auto* process = new QSpinBox;
        process->setRange(-1000000000, 2000000000);
        process->setValue(y);
        table.setCellWidget(row, 1, output);
        table.setCellWidget(row, 2, process);
    }
    void addTexts(const QString& x, const QString& y)
    {
        const int row = table.rowCount();
        table.insertRow(row);
        table.setItem(row, 1, new QTableWidgetItem(x));
        table.setItem(row, 2, new QTableWidgetItem(y));
    }

    QTableWidget table{0, 3};
};

/// Counts how often a widget is painted.
class PaintCount : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

QImage picture(QWidget* chart)
{
    chart->resize(380, 259);
    QImage image(chart->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    chart->render(&image, {}, {}, {});
    return image;
}

void addTabs()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < Page::TabCount; ++tab)
        QTest::newRow(Curves[tab].page) << tab;
}

} // namespace

class TestCharacteristicsCurvePage : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // The form.
    void tabs_data() { addTabs(); }
    void tabs();
    void tables_data() { addTabs(); }
    void tables();
    void tabPolishesWhatItShows();
    void captionsBreak();
    void startsWithTwoRows_data() { addTabs(); }
    void startsWithTwoRows();
    void slotsOfTheClass();
    void computeButtonsCallTheEmptySlots();

    // The rows.
    void nodeNumberMakesTheRowsAnew_data() { addTabs(); }
    void nodeNumberMakesTheRowsAnew();
    void rowsAreMade_data();
    void rowsAreMade();
    void rangeGoesByTheNameOfTheTable_data();
    void rangeGoesByTheNameOfTheTable();
    void fractionsOfProcessValuesAreCut();
    void columnRuleNeedsThreeColumns();
    void rowsAreLockedByTheMainSwitch();
    void columns();
    void widthOfTheNumbers_data();
    void widthOfTheNumbers();
    void narrowViewportCountsAsItsTable();

    // Nodes.
    void jsonBecomesNodes_data();
    void jsonBecomesNodes();
    void nodesAreRead();
    void load();
    void nothingButAnObjectIsLoaded_data();
    void nothingButAnObjectIsLoaded();
    void oddNodeNumbers_data();
    void oddNodeNumbers();
    void oddData_data();
    void oddData();
    void fewerPairsThanNodes();

    // Validation, compute, save, cancel.
    void validation_data();
    void validation();
    void validationNeedsTwoRows();
    void validationNeedsEditors();
    void computeSendsTheCurve_data() { addTabs(); }
    void computeSendsTheCurve();
    void computeReplies_data();
    void computeReplies();
    void axes_data();
    void axes();
    void steps_data();
    void steps();
    void titles_data();
    void titles();
    void portIsTheXTitle();
    void aLevelLineIsNotDrawn();
    void computeRepaintsTheChart();
    void sendsTheNumberOfTheBox();
    void save_data() { addTabs(); }
    void save();
    void saveReportsReply_data();
    void saveReportsReply();
    void saveGoesOnWithoutALine();
    void refusedNodesAreNotSent_data();
    void refusedNodesAreNotSent();
    void cancelReloadsAll_data() { addTabs(); }
    void cancelReloadsAll();
    void cancelComputesWhatWasComputed();

    // Mapping and access.
    void mappingIsShown_data();
    void mappingIsShown();
    void mappingThatIsNoObject();
    void headerItemIsMade();
    void access_data();
    void access();
    void unmappedTabIsLeftAsItWas();
    void settingPageMayGo();

    // Showing and the look.
    void showAsksTheHostInOrder();
    void showComputesWhatWasComputed();
    void showDiscardsEdits();
    void showSetsFontsAndRows();
    void styleIsSetOnce();
    void popupsShowAllNumbers();
    void buttonsFit_data();
    void buttonsFit();
};

void TestCharacteristicsCurvePage::tabs()
{
    QFETCH(int, tab);
    PageOnHost t;
    const Curve& curve = Curves[tab];
    QCOMPARE(t.page.objectName(), "CharacteristicsCurvePage"_s);
    QCOMPARE(t.page.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QVERIFY(t.host.commands.isEmpty());
    auto* all = child<QTabWidget>(&t.page, "tabWidget");
    QCOMPARE(all->count(), 4);
    QCOMPARE(all->currentIndex(), 0);
    QWidget* page = all->widget(tab);
    QCOMPARE(page->objectName(), text(curve.page));
    QCOMPARE(all->tabText(tab), text(curve.caption));
    auto* grid = qobject_cast<QGridLayout*>(page->layout());
    QCOMPARE(grid->columnStretch(0), 4);
    QCOMPARE(grid->columnStretch(1), 5);
    auto* right = qobject_cast<QVBoxLayout*>(grid->itemAtPosition(0, 1)->layout());
    QCOMPARE(right->itemAt(0)->widget(), child<CustomChart>(page, curve.chart));
    QCOMPARE(right->stretch(0), 6);
    QCOMPARE(right->stretch(1), 1);
    QLayout* row = right->itemAt(1)->layout();
    QCOMPARE(row->contentsMargins(), QMargins(50, 20, 50, 20));
    const char* const names[] = {curve.compute, curve.cancel, curve.save};
    const char* const captions[] = {"Compute", "Cancel", "Save"};
    for (int i = 0; i < 3; ++i) {
        auto* button = qobject_cast<QPushButton*>(row->itemAt(i)->widget());
        QCOMPARE(button->objectName(), text(names[i]));
        QCOMPARE(button->text(), text(captions[i]));
    }
}

void TestCharacteristicsCurvePage::tables()
{
    QFETCH(int, tab);
    PageOnHost t;
    QWidget* page = child<QWidget>(&t.page, Curves[tab].page);
    QLayout* left = qobject_cast<QGridLayout*>(page->layout())->itemAtPosition(0, 0)->layout();
    QLayout* row = left->itemAt(0)->layout();
    QCOMPARE(qobject_cast<QLabel*>(row->itemAt(0)->widget())->text(), "Node Number:"_s);
    QCOMPARE(row->itemAt(1)->widget(), t.nodeBox(tab));
    QCOMPARE(left->itemAt(1)->widget(), t.table(tab));
    QCOMPARE(t.nodeBox(tab)->count(), 9);
    for (int index = 0; index < 9; ++index)
        QCOMPARE(t.nodeBox(tab)->itemText(index), QString::number(index + 2));
    const QTableWidget* table = t.table(tab);
    QCOMPARE(table->columnCount(), 3);
    QVERIFY(table->verticalHeader()->isHidden());
    QCOMPARE(table->horizontalHeader()->minimumSectionSize(), 30);
    QCOMPARE(table->horizontalHeader()->defaultSectionSize(), 120);
    QCOMPARE(table->horizontalHeaderItem(0)->text(), "Node"_s);
    QCOMPARE(table->horizontalHeaderItem(1)->text(), "GO/AO/Reg"_s);
    QCOMPARE(table->horizontalHeaderItem(2)->text(), text(Curves[tab].header));
}

void TestCharacteristicsCurvePage::tabPolishesWhatItShows()
{
    PageOnHost t;
    t.page.applyPageStyle();
    t.show();
    QCoreApplication::processEvents();
    for (const int tab : {1, 2, 3, 0, 1}) {
        const PolishWatch watch;
        child<QTabWidget>(&t.page, "tabWidget")->setCurrentIndex(tab);
        QCoreApplication::processEvents();
        QVERIFY(watch.polished.size() <= shownWidgets(&t.page));
    }
}

void TestCharacteristicsCurvePage::captionsBreak()
{
    PageOnHost t;
    t.page.applyPageStyle();
    t.page.resize(700, 500);
    t.show();
    const QHeaderView* header = t.table(0)->horizontalHeader();
    QCoreApplication::processEvents();
    const int oneLine = header->height();
    t.table(0)->horizontalHeaderItem(1)->setText("a port with quite a long name"_s);
    QTRY_VERIFY(header->height() > oneLine);
}

void TestCharacteristicsCurvePage::startsWithTwoRows()
{
    QFETCH(int, tab);
    PageOnHost t;
    const double least = Curves[tab].least;
    QCOMPARE(t.nodes(tab), (Nodes{{0, least}, {0, least}}));
    QCOMPARE(t.nodeBox(tab)->currentIndex(), 0);
    QVERIFY(!t.chart(tab)->isComputed());
}

void TestCharacteristicsCurvePage::slotsOfTheClass()
{
    const QMetaObject& meta = Page::staticMetaObject;
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << QString::fromLatin1(meta.method(i).methodSignature());
    QCOMPARE(names, (QStringList{"onComputePowerChart()"_s, "onComputeDutyCycleChart()"_s,
                                 "onComputeFrequencyChart()"_s, "refreshPowerCmb(int)"_s,
                                 "refreshDutyCycleCmb(int)"_s, "refreshFrequencyCmb(int)"_s}));
    PageOnHost t;
    t.show();
    const Nodes before = t.nodes(0);
    t.page.onComputePowerChart();
    t.page.onComputeDutyCycleChart();
    t.page.onComputeFrequencyChart();
    t.page.refreshPowerCmb(5);
    t.page.refreshDutyCycleCmb(5);
    t.page.refreshFrequencyCmb(5);
    QVERIFY(t.host.calls.isEmpty());
    QCOMPARE(t.nodes(0), before);
}

void TestCharacteristicsCurvePage::computeButtonsCallTheEmptySlots()
{
    PageOnHost t;
    struct Connection
    {
        const char* button;
        void (Page::*slot)();
    };
    const Connection connections[] = {{"pushButton_compute", &Page::onComputePowerChart},
                                      {"pushButton_compute_2", &Page::onComputeFrequencyChart},
                                      {"pushButton_compute_3", &Page::onComputeDutyCycleChart}};
    for (const Connection& each : connections) {
        auto* button = child<QPushButton>(&t.page, each.button);
        QVERIFY(disconnect(button, &QPushButton::clicked, &t.page, each.slot));
        QVERIFY(!disconnect(button, &QPushButton::clicked, &t.page, each.slot));
    }
}

void TestCharacteristicsCurvePage::nodeNumberMakesTheRowsAnew()
{
    QFETCH(int, tab);
    PageOnHost t;
    t.show();
    QCOMPARE(t.nodes(tab), storedNodes(tab));
    const double least = Curves[tab].least;
    for (const int index : {3, 0, 8}) {
        t.nodeBox(tab)->setCurrentIndex(index);
        QCOMPARE(t.table(tab)->rowCount(), index + 2);
        const auto nodes = t.nodes(tab);
        for (const auto& node : nodes)
            QCOMPARE(node, qMakePair(0.0, least));
    }
    for (int other = 0; other < Page::TabCount; ++other) {
        if (other != tab)
            QCOMPARE(t.nodes(other), storedNodes(other));
    }
    t.click(Curves[tab].compute);
    QCOMPARE(t.host.messageTexts(), QStringList{notRising(2)});
    QVERIFY(t.host.commands.isEmpty());
}

void TestCharacteristicsCurvePage::rowsAreMade_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("rows");
    for (const int count : {0, 1, 2, 10, 11})
        QTest::addRow("%d", count) << count << count;
    QTest::newRow("negative") << -3 << 0;
    QTest::newRow("beyond all bounds") << 2147483647 << 200;
}

void TestCharacteristicsCurvePage::rowsAreMade()
{
    QFETCH(int, count);
    QFETCH(int, rows);
    PageOnHost t;
    t.page.rebuildNodeTable(t.table(0), count, {{1.25, 7}, {2.5, 9}, {65535.99, 65535}});
    QCOMPARE(t.table(0)->rowCount(), rows);
    for (int row = 0; row < rows; ++row) {
        const QTableWidgetItem* item = t.table(0)->item(row, 0);
        QCOMPARE(item->text(), QString::number(row + 1));
        QCOMPARE(item->textAlignment(), int(Qt::AlignCenter));
        QCOMPARE(int(item->flags()), int(Qt::ItemIsEnabled));
        QCOMPARE(t.table(0)->rowHeight(row), UiScale::rowHeight(&t.page));
        if (row > 2)
            QCOMPARE(t.nodes(0).at(row), qMakePair(0.0, 0.0));
    }
    const Nodes given{{1.25, 7}, {2.5, 9}, {65535.99, 65535}};
    QCOMPARE(t.nodes(0).mid(0, 3), given.mid(0, rows));
}

void TestCharacteristicsCurvePage::rangeGoesByTheNameOfTheTable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    for (const Curve& curve : Curves)
        QTest::newRow(curve.table) << text(curve.table) << curve.least << curve.most;
    QTest::newRow("tableWidget_power") << "tableWidget_power"_s << 0 << 6000;
    QTest::newRow("another") << "another"_s << 0 << 65535;
}

void TestCharacteristicsCurvePage::rangeGoesByTheNameOfTheTable()
{
    QFETCH(QString, name);
    QFETCH(int, least);
    QFETCH(int, most);
    PageOnHost t;
    FreeTable free;
    free.table.setObjectName(name);
    t.page.rebuildNodeTable(&free.table, 1, {});
    const auto* output = qobject_cast<QDoubleSpinBox*>(free.table.cellWidget(0, 1));
    QCOMPARE(output->minimum(), 0.0);
    QCOMPARE(output->maximum(), 65535.99);
    QCOMPARE(output->decimals(), 2);
    QCOMPARE(output->singleStep(), 0.01);
    const auto* process = qobject_cast<QSpinBox*>(free.table.cellWidget(0, 2));
    QCOMPARE(process->minimum(), least);
    QCOMPARE(process->maximum(), most);
    for (const QAbstractSpinBox* each : {static_cast<const QAbstractSpinBox*>(output),
                                         static_cast<const QAbstractSpinBox*>(process)}) {
        QCOMPARE(each->buttonSymbols(), QAbstractSpinBox::NoButtons);
        QCOMPARE(each->minimumWidth(), 0);
        QCOMPARE(each->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(each->font().pointSize(), UiScale::pointSize(10, &t.page));
    }
}

void TestCharacteristicsCurvePage::fractionsOfProcessValuesAreCut()
{
    PageOnHost t;
    t.page.rebuildNodeTable(t.table(0), 2, {{1, 10.7}, {2, 99.5}});
    QCOMPARE(t.nodes(0), (Nodes{{1, 10}, {2, 99}}));
}

void TestCharacteristicsCurvePage::columnRuleNeedsThreeColumns()
{
    PageOnHost t;
    QTableWidget table(0, 2);
    t.page.rebuildNodeTable(&table, 2, {});
    QCOMPARE(table.rowCount(), 2);
    QCOMPARE(table.horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(table.horizontalHeader()->sectionResizeMode(0), QHeaderView::Interactive);
}

void TestCharacteristicsCurvePage::rowsAreLockedByTheMainSwitch()
{
    PageOnHost t;
    for (const bool on : {true, false}) {
        t.switchMain(on);
        t.page.rebuildNodeTable(t.table(1), 3, {});
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(t.output(1, row)->isEnabledTo(t.table(1)), !on);
            QCOMPARE(t.process(1, row)->isEnabledTo(t.table(1)), !on);
        }
    }
}

void TestCharacteristicsCurvePage::columns()
{
    PageOnHost t;
    QTableWidget* table = t.table(2);
    const QHeaderView* header = table->horizontalHeader();
    const auto spoil = [&] {
        table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        table->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        table->horizontalHeader()->setStretchLastSection(true);
        table->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
        table->item(0, 0)->setTextAlignment(Qt::AlignLeft);
        t.output(2, 0)->setMinimumWidth(70);
        t.process(2, 0)->setMaximumWidth(70);
        t.process(2, 0)->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    };
    const auto verify = [&] {
        QCOMPARE(table->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(table->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
        QVERIFY(!header->stretchLastSection());
        QCOMPARE(header->sectionResizeMode(0), QHeaderView::Fixed);
        QCOMPARE(header->sectionResizeMode(1), QHeaderView::Stretch);
        QCOMPARE(header->sectionResizeMode(2), QHeaderView::Stretch);
        QCOMPARE(table->item(0, 0)->textAlignment(), int(Qt::AlignCenter));
        QCOMPARE(t.output(2, 0)->minimumWidth(), 0);
        QCOMPARE(t.process(2, 0)->maximumWidth(), QWIDGETSIZE_MAX);
        QCOMPARE(t.process(2, 0)->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(t.process(2, 0)->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    };
    verify();
    t.page.resize(700, 500);
    t.page.show();
    spoil();
    t.page.resize(900, 600);
    verify();
    spoil();
    t.page.hide();
    t.page.show();
    verify();
    spoil();
    t.page.applyPageStyle();
    verify();
}

void TestCharacteristicsCurvePage::widthOfTheNumbers_data()
{
    QTest::addColumn<QString>("header");
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("tableWidth");
    const QString wide(40, QLatin1Char('W'));
    QTest::newRow("least") << "1"_s
                           << "1"_s << 600;
    QTest::newRow("header") << "Number"_s
                            << "1"_s << 600;
    QTest::newRow("item") << "1"_s
                          << "123456789"_s << 600;
    QTest::newRow("short item") << "1"_s
                                << "1234"_s << 600;
    QTest::newRow("a fifth of a wide table") << wide << "1"_s << 800;
    QTest::newRow("never below 72") << "1"_s << wide << 200;
    QTest::newRow("a table without room") << wide << "1"_s << 60;
}

void TestCharacteristicsCurvePage::widthOfTheNumbers()
{
    QFETCH(QString, header);
    QFETCH(QString, item);
    QFETCH(int, tableWidth);
    PageOnHost t;
    FreeTable free;
    free.table.resize(tableWidth, 300);
    free.table.show();
    free.table.setHorizontalHeaderItem(0, new QTableWidgetItem(header));
    t.page.rebuildNodeTable(&free.table, 2, {});
    free.table.item(1, 0)->setText(item);
    const auto advance = [](const QFont& font, const QString& caption) {
        return QFontMetrics(font).horizontalAdvance(caption);
    };
    const int viewport = free.table.viewport()->width();
    const int room = viewport < 80 ? free.table.width() : viewport;
    const int needed = std::max(
        {44, advance(free.table.horizontalHeader()->font(), header) + 20,
         std::max(advance(free.table.font(), item), advance(free.table.font(), "2"_s)) + 16});
    // The rule runs once more over the text that has changed.
    t.page.rebuildNodeTable(&free.table, 0, {});
    free.table.insertRow(0);
    free.table.setItem(0, 0, new QTableWidgetItem(item));
    t.page.rebuildNodeTable(&free.table, 1, {});
    const int plain = std::max(44, advance(free.table.horizontalHeader()->font(), header) + 20);
    QCOMPARE(free.table.columnWidth(0), std::min(plain, std::max(72, room / 5)));
    // The page's own tables keep their items.
    QTableWidget* table = t.table(0);
    table->setHorizontalHeaderItem(0, new QTableWidgetItem(header));
    table->item(1, 0)->setText(item);
    table->setFont(free.table.font());
    table->horizontalHeader()->setFont(free.table.horizontalHeader()->font());
    table->resize(tableWidth, 300);
    const int ownViewport = table->viewport()->width();
    const int ownRoom = ownViewport < 80 ? table->width() : ownViewport;
    QResizeEvent resized(t.page.size(), t.page.size());
    QCoreApplication::sendEvent(&t.page, &resized);
    QCOMPARE(table->columnWidth(0), std::min(needed, std::max(72, ownRoom / 5)));
}

void TestCharacteristicsCurvePage::narrowViewportCountsAsItsTable()
{
    PageOnHost t;
    FreeTable free;
    free.table.setHorizontalHeaderItem(0, new QTableWidgetItem(QString(40, QLatin1Char('W'))));
    free.table.verticalHeader()->setFixedWidth(450);
    free.table.resize(500, 300);
    free.table.show();
    QVERIFY(free.table.viewport()->width() < 80);
    t.page.rebuildNodeTable(&free.table, 1, {});
    QCOMPARE(free.table.columnWidth(0), 100);
}

void TestCharacteristicsCurvePage::jsonBecomesNodes_data()
{
    QTest::addColumn<QJsonArray>("array");
    QTest::addColumn<Nodes>("nodes");
    const QJsonArray good{1.5, 2};
    const Nodes one{{1.5, 2}};
    QTest::newRow("nothing") << QJsonArray() << Nodes();
    QTest::newRow("one") << QJsonArray{good} << one;
    const QPair<const char*, QJsonValue> odd[] = {
        {"null", QJsonValue()},
        {"bool", true},
        {"number", 7},
        {"text", "1,2"_s},
        {"object", QJsonObject{{"x"_s, 1}, {"y"_s, 2}}},
        {"empty", QJsonArray()},
        {"one number", QJsonArray{1}},
        {"three numbers", QJsonArray{1, 2, 3}},
        {"text first", QJsonArray{"1"_s, 2}},
        {"text second", QJsonArray{1, "2"_s}},
        {"null second", QJsonArray{1, QJsonValue()}},
        {"bool first", QJsonArray{true, 2}},
        {"nested", QJsonArray{QJsonArray{1, 2}}},
    };
    for (const auto& each : odd)
        QTest::newRow(each.first) << QJsonArray{each.second, good} << one;
}

void TestCharacteristicsCurvePage::jsonBecomesNodes()
{
    QFETCH(QJsonArray, array);
    QFETCH(Nodes, nodes);
    QCOMPARE(Page::jsonToNodes(array), nodes);
}

void TestCharacteristicsCurvePage::nodesAreRead()
{
    FreeTable free;
    free.addEditors(1.25, 7);
    free.addTexts("2.5"_s, "-9e1"_s);
    free.addTexts("x"_s, "1"_s);
    free.addTexts("1"_s, QString());
    free.table.insertRow(4);
    free.addEditors(3.5, 8);
    delete free.table.cellWidget(5, 1);
    free.table.setItem(5, 1, new QTableWidgetItem("4"_s));
    free.table.setItem(5, 2, new QTableWidgetItem("5"_s));
    QCOMPARE(Page::readNodes(&free.table), (Nodes{{1.25, 7}, {2.5, -90}, {4, 5}}));
}

void TestCharacteristicsCurvePage::load()
{
    PageOnHost t;
    t.page.loadCurves(record());
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        QCOMPARE(t.nodeBox(tab)->currentText(), "3"_s);
        QCOMPARE(t.nodes(tab), storedNodes(tab));
    }
}

void TestCharacteristicsCurvePage::nothingButAnObjectIsLoaded_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("bool") << QJsonValue(true);
    QTest::newRow("number") << QJsonValue(3);
    QTest::newRow("text") << QJsonValue("laser_power_node"_s);
    QTest::newRow("array") << QJsonValue(QJsonArray{record()});
    QTest::newRow("empty") << QJsonValue(QJsonObject());
    QTest::newRow("no power curve") << QJsonValue(without(record(), "laser_power_node"));
}

void TestCharacteristicsCurvePage::nothingButAnObjectIsLoaded()
{
    QFETCH(QJsonValue, value);
    PageOnHost t;
    t.show();
    t.output(1, 1)->setValue(99);
    t.page.loadCurves(value);
    QCOMPARE(t.nodes(0), storedNodes(0));
    QCOMPARE(t.output(1, 1)->value(), 99.0);
}

void TestCharacteristicsCurvePage::oddNodeNumbers_data()
{
    QTest::addColumn<QJsonValue>("number");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("rows");
    QTest::newRow("2") << QJsonValue(2) << 0 << 2;
    QTest::newRow("10") << QJsonValue(10) << 8 << 10;
    QTest::newRow("1") << QJsonValue(1) << -1 << 1;
    QTest::newRow("0") << QJsonValue(0) << -1 << 0;
    QTest::newRow("-7") << QJsonValue(-7) << -1 << 0;
    QTest::newRow("11") << QJsonValue(11) << -1 << 11;
    QTest::newRow("far below") << QJsonValue(-2147483647 - 1) << -1 << 0;
    QTest::newRow("far above") << QJsonValue(1000000000) << -1 << 200;
    QTest::newRow("fraction") << QJsonValue(3.5) << -1 << 0;
    QTest::newRow("no int") << QJsonValue(1e300) << -1 << 0;
    QTest::newRow("null") << QJsonValue() << -1 << 0;
    QTest::newRow("bool") << QJsonValue(true) << -1 << 0;
    QTest::newRow("text") << QJsonValue("3"_s) << -1 << 0;
    QTest::newRow("array") << QJsonValue(QJsonArray{3}) << -1 << 0;
    QTest::newRow("object") << QJsonValue(QJsonObject()) << -1 << 0;
}

void TestCharacteristicsCurvePage::oddNodeNumbers()
{
    QFETCH(QJsonValue, number);
    QFETCH(int, index);
    QFETCH(int, rows);
    PageOnHost t;
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        t.page.loadCurves(with(record(), Curves[tab].nodeKey, number));
        QCOMPARE(t.nodeBox(tab)->currentIndex(), index);
        QCOMPARE(t.table(tab)->rowCount(), rows);
    }
}

void TestCharacteristicsCurvePage::oddData_data()
{
    QTest::addColumn<QJsonValue>("data");
    QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("bool") << QJsonValue(true);
    QTest::newRow("number") << QJsonValue(1.5);
    QTest::newRow("text") << QJsonValue("[[1,2]]"_s);
    QTest::newRow("object") << QJsonValue(QJsonObject{{"0"_s, QJsonArray{1, 2}}});
}

// The table stands as the box has left it: anew for another number, else as it was.
void TestCharacteristicsCurvePage::oddData()
{
    QFETCH(QJsonValue, data);
    PageOnHost t;
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        t.page.loadCurves(record());
        QJsonObject values = with(record(), Curves[tab].dataKey, data);
        t.page.loadCurves(values);
        QCOMPARE(t.nodes(tab), storedNodes(tab));
        values.insert(text(Curves[tab].nodeKey), 4);
        t.page.loadCurves(values);
        const auto fresh = qMakePair(0.0, double(Curves[tab].least));
        QCOMPARE(t.nodes(tab), (Nodes{fresh, fresh, fresh, fresh}));
    }
}

void TestCharacteristicsCurvePage::fewerPairsThanNodes()
{
    PageOnHost t;
    QJsonObject values = with(record(), "laser_power_node", 5);
    values.insert("power_nodes_data"_s, QJsonArray{QJsonArray{1, 10}, QJsonArray{2, 20, 3},
                                                   QJsonArray{3, 30}, QJsonArray{4, 40}});
    t.host.service.insert(CurveKey, values);
    t.show();
    QCOMPARE(t.nodes(0), (Nodes{{1, 10}, {3, 30}, {4, 40}, {0, 0}, {0, 0}}));
    QVERIFY(!Page::validateNodes(t.table(0)));
    QCOMPARE(t.host.messageTexts(), QStringList{notRising(4)});
    t.output(0, 3)->setValue(5);
    t.process(0, 3)->setValue(50);
    t.output(0, 4)->setValue(6);
    t.process(0, 4)->setValue(60);
    QVERIFY(Page::validateNodes(t.table(0)));
}

void TestCharacteristicsCurvePage::validation_data()
{
    QTest::addColumn<Nodes>("nodes");
    QTest::addColumn<int>("line");
    const auto row = [](const char* name, const Nodes& nodes, int line) {
        QTest::newRow(name) << nodes << line;
    };
    row("rising", {{0, 0}, {1, 1}, {2, 2}}, 0);
    row("rising by the least", {{1, 1}, {1.01, 2}}, 0);
    row("equal outputs", {{1, 1}, {1, 2}}, 2);
    row("equal process values", {{1, 1}, {2, 1}}, 2);
    row("falling output", {{2, 1}, {1, 2}}, 2);
    row("falling process value", {{1, 2}, {2, 1}}, 2);
    row("last row", {{1, 1}, {2, 2}, {3, 3}, {4, 3}}, 4);
    row("first fault ends it", {{1, 1}, {2, 2}, {2, 3}, {4, 4}, {3, 5}}, 3);
    row("all the same", {{0, 0}, {0, 0}, {0, 0}}, 2);
}

void TestCharacteristicsCurvePage::validation()
{
    QFETCH(Nodes, nodes);
    QFETCH(int, line);
    PageOnHost t;
    t.page.rebuildNodeTable(t.table(0), nodes.size(), nodes);
    QCOMPARE(Page::validateNodes(t.table(0)), line == 0);
    QCOMPARE(t.host.messageTexts(), line == 0 ? QStringList() : QStringList{notRising(line)});
    if (line > 0)
        QCOMPARE(t.host.lastArguments("ThrowLog"_s).at(0).toString(), "qelLaserWelding"_s);
}

void TestCharacteristicsCurvePage::validationNeedsTwoRows()
{
    PageOnHost t;
    for (const int rows : {0, 1}) {
        t.host.forgetCalls();
        t.page.rebuildNodeTable(t.table(0), rows, {});
        QVERIFY(!Page::validateNodes(t.table(0)));
        QCOMPARE(t.host.messageTexts(), QStringList{TooFew});
    }
}

void TestCharacteristicsCurvePage::validationNeedsEditors()
{
    PageOnHost t;
    for (const int row : {0, 1}) {
        for (const int column : {1, 2}) {
            t.page.rebuildNodeTable(t.table(0), 2, {{1, 1}, {2, 2}});
            t.table(0)->removeCellWidget(row, column);
            QVERIFY(!Page::validateNodes(t.table(0)));
        }
    }
    QVERIFY(t.host.messages.isEmpty());
}

void TestCharacteristicsCurvePage::computeSendsTheCurve()
{
    QFETCH(int, tab);
    PageOnHost t;
    const Curve& curve = Curves[tab];
    t.show();
    t.output(tab, 0)->setValue(0.25);
    t.click(curve.compute);
    QCOMPARE(t.sent(), QStringList{ComputeCommand});
    Nodes nodes = storedNodes(tab);
    nodes[0].first = 0.25;
    const QJsonObject object{{text(curve.nodeKey), 3}, {text(curve.dataKey), pairs(nodes)}};
    QCOMPARE(t.host.commands.first().data, (QJsonObject{{ComputeCommand, object}}));
    QCOMPARE(t.host.commands.first().plugin, "qelLaserWelding"_s);
    QVERIFY(t.host.messages.isEmpty());
    for (int each = 0; each < Page::TabCount; ++each)
        QCOMPARE(t.chart(each)->isComputed(), each == tab);
}

void TestCharacteristicsCurvePage::computeReplies_data()
{
    QTest::addColumn<QJsonArray>("reply");
    QTest::addColumn<double>("intercept");
    QTest::addColumn<double>("slope");
    const double untouched = -77;
    QTest::newRow("line") << lineReply(2.5, -1) << -1.0 << 2.5;
    QTest::newRow("empty") << QJsonArray() << untouched << untouched;
    QTest::newRow("texts") << lineReply("2"_s, "3"_s) << 0.0 << 0.0;
    QTest::newRow("null and bool") << lineReply(QJsonValue(), true) << 0.0 << 0.0;
    QTest::newRow("no objects") << QJsonArray{1, "x"_s, QJsonArray(), QJsonValue()} << 0.0 << 0.0;
    QTest::newRow("another plugin")
        << QJsonArray{QJsonObject{{"qelOther"_s, QJsonObject()}}} << 0.0 << 0.0;
    QTest::newRow("another command")
        << ScriptedHost::reply("set_weld_io_config"_s, 0) << 0.0 << 0.0;
    QTest::newRow("no line") << ScriptedHost::reply(ComputeCommand, 0) << 0.0 << 0.0;
    QTest::newRow("command is no object")
        << QJsonArray{QJsonObject{{"qelLaserWelding"_s, QJsonObject{{ComputeCommand, 5}}}}} << 0.0
        << 0.0;
    QJsonArray two = lineReply(2, 1);
    two.append(lineReply(4, 3).first());
    QTest::newRow("last one counts") << two << 3.0 << 4.0;
    two.append(QJsonObject());
    QTest::newRow("also an empty last one") << two << 0.0 << 0.0;
}

void TestCharacteristicsCurvePage::computeReplies()
{
    QFETCH(QJsonArray, reply);
    QFETCH(double, intercept);
    QFETCH(double, slope);
    double readIntercept = -77;
    double readSlope = -77;
    Page::readComputeReply(reply, readIntercept, readSlope);
    QCOMPARE(readIntercept, intercept);
    QCOMPARE(readSlope, slope);
    // The chart shows 0 and 0 for an empty reply.
    PageOnHost t;
    t.show();
    t.host.replies.insert(ComputeCommand, reply);
    t.click("pushButton_compute");
    QVERIFY(t.chart(0)->isComputed());
    QVERIFY(t.host.messages.isEmpty());
    CustomChart expected;
    expected.setAxes({}, 2, 0, 10, {}, 12, 0, 41);
    expected.setPoints(storedNodes(0));
    expected.setLine(slope == -77 ? 0 : slope, intercept == -77 ? 0 : intercept);
    expected.setTitles("AO1"_s, "Power W"_s);
    expected.setFont(t.chart(0)->font());
    expected.setPalette(t.chart(0)->palette());
    QCOMPARE(picture(t.chart(0)), picture(&expected));
}

void TestCharacteristicsCurvePage::axes_data()
{
    QTest::addColumn<Nodes>("nodes");
    QTest::addColumn<int>("xMax");
    QTest::addColumn<int>("xStep");
    QTest::addColumn<int>("yMin");
    QTest::addColumn<int>("yMax");
    QTest::addColumn<int>("yStep");
    const auto row = [](const char* name, const Nodes& nodes, QVector<int> axes) {
        QTest::newRow(name) << nodes << axes[0] << axes[1] << axes[2] << axes[3] << axes[4];
    };
    row("none", {}, {10, 2, 0, 5, 1});
    row("within", {{10, 5}, {0, 0}}, {10, 2, 0, 5, 1});
    row("just beyond", {{10.01, 6}}, {11, 6, 0, 7, 1});
    row("fraction is cut", {{11.99, 5}}, {12, 6, 0, 5, 1});
    row("power", {{9.3, 5900}}, {10, 2, 0, 5901, 1400});
    row("largest", {{65535.99, 65535}}, {65536, 16000, 0, 65536, 16000});
    row("below", {{1, -3}}, {10, 2, -4, 5, 1});
    row("left of 0", {{-8, 1}}, {10, 2, 0, 5, 1});
    row("only what exceeds", {{50, 80}, {20, 30}}, {51, 14, 0, 81, 20});
    row("each in turn", {{20, 30}, {50, 80}}, {51, 14, 0, 81, 20});
}

void TestCharacteristicsCurvePage::axes()
{
    QFETCH(Nodes, nodes);
    QFETCH(int, xMax);
    QFETCH(int, xStep);
    QFETCH(int, yMin);
    QFETCH(int, yMax);
    QFETCH(int, yStep);
    FreeTable free;
    for (const auto& node : nodes)
        free.addEditors(node.first, int(node.second));
    CustomChart chart;
    chart.setObjectName("Chart_frequency"_s);
    Page::updateChart(&free.table, &chart, 1.5, 0.5);
    QVERIFY(chart.isComputed());
    CustomChart expected;
    expected.setAxes({}, xStep, 0, xMax, {}, yStep, yMin, yMax);
    expected.setPoints(nodes);
    expected.setLine(1.5, 0.5);
    expected.setTitles("AO1"_s, "Frequency Hz"_s);
    QCOMPARE(picture(&chart), picture(&expected));
}

void TestCharacteristicsCurvePage::steps_data()
{
    QTest::addColumn<int>("largest");
    QTest::addColumn<int>("step");
    // Of (M rounded up to p, and p more) a fifth, p being the power of ten within M.
    const QPair<int, int> rows[] = {
        {7, 1},        {8, 1},        {9, 2},         {10, 4},         {11, 6},
        {20, 6},       {21, 8},       {91, 22},       {99, 22},        {100, 40},
        {101, 60},     {999, 220},    {1000, 400},    {1201, 600},     {9999, 2200},
        {10000, 4000}, {10001, 6000}, {65536, 16000}, {100000, 40000}, {2000000000, 600000000}};
    for (const auto& row : rows)
        QTest::addRow("%d", row.first) << row.first << row.second;
}

void TestCharacteristicsCurvePage::steps()
{
    QFETCH(int, largest);
    QFETCH(int, step);
    FreeTable free;
    free.addEditors(0, largest - 1);
    CustomChart chart;
    Page::updateChart(&free.table, &chart, 0, 0);
    CustomChart expected;
    expected.setAxes({}, 2, 0, 10, {}, step, 0, largest);
    expected.setPoints({{0, double(largest - 1)}});
    expected.setLine(0, 0);
    expected.setTitles("AO1"_s, {});
    QCOMPARE(picture(&chart), picture(&expected));
}

void TestCharacteristicsCurvePage::titles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    for (const Curve& curve : Curves)
        QTest::newRow(curve.chart) << text(curve.chart) << text(curve.yTitle);
    QTest::newRow("another") << "Chart_power"_s << QString();
}

void TestCharacteristicsCurvePage::titles()
{
    QFETCH(QString, name);
    QFETCH(QString, title);
    FreeTable free;
    CustomChart chart;
    chart.setObjectName(name);
    CustomChart expected;
    expected.setAxes({}, 2, 0, 10, {}, 1, 0, 5);
    Page::updateChart(&free.table, &chart, 0, 0);
    expected.setTitles("AO1"_s, title);
    QCOMPARE(picture(&chart), picture(&expected));
    // No header, no title.
    free.table.setHorizontalHeaderItem(1, nullptr);
    Page::updateChart(&free.table, &chart, 0, 0);
    expected.setTitles(QString(), title);
    QCOMPARE(picture(&chart), picture(&expected));
}

void TestCharacteristicsCurvePage::portIsTheXTitle()
{
    PageOnHost t;
    t.show();
    t.click("pushButton_compute");
    const QImage before = picture(t.chart(0));
    t.host.service.insert(IoKey, with(mapping(), "power_port", "GO7"_s));
    t.page.refreshPortHeaders();
    QCOMPARE(picture(t.chart(0)), before);
    t.click("pushButton_compute");
    QVERIFY(picture(t.chart(0)) != before);
}

void TestCharacteristicsCurvePage::computeRepaintsTheChart()
{
    PageOnHost t;
    t.show();
    QVERIFY(QTest::qWaitForWindowExposed(&t.page));
    PaintCount paints;
    t.chart(0)->installEventFilter(&paints);
    // Paints at once what waits for it, so that no turn of the event loop comes between.
    const auto paintWhatWaits = [&t] {
        QEvent request(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&t.page, &request);
    };
    paintWhatWaits();
    paints.count = 0;
    paintWhatWaits();
    QCOMPARE(paints.count, 0);
    Page::updateChart(t.table(0), t.chart(0), 8.5, 1.25);
    paintWhatWaits();
    QCOMPARE(paints.count, 1);
}

// The box knows no number of eleven and is cleared by it; the rows are there.
void TestCharacteristicsCurvePage::sendsTheNumberOfTheBox()
{
    PageOnHost t;
    Nodes nodes;
    for (int number = 1; number <= 11; ++number)
        nodes << qMakePair(double(number), double(10 * number));
    t.host.service.insert(
        CurveKey, with(with(record(), "laser_power_node", 11), "power_nodes_data", pairs(nodes)));
    t.show();
    t.click(Curves[0].compute);
    const QJsonObject sent = t.host.commands.first().data.value(ComputeCommand).toObject();
    QCOMPARE(sent.value("laser_power_node"_s), QJsonValue(1));
    QCOMPARE(sent.value("power_nodes_data"_s), QJsonValue(pairs(nodes)));
}

void TestCharacteristicsCurvePage::aLevelLineIsNotDrawn()
{
    PageOnHost t;
    t.host.replies.insert(ComputeCommand, lineReply(0, 20));
    t.show();
    t.click(Curves[0].compute);
    QVERIFY(t.chart(0)->isComputed());
    CustomChart nodesOnly;
    nodesOnly.setAxes(QString(), 2, 0, 10, QString(), 12, 0, 41);
    nodesOnly.setPoints(storedNodes(0));
    nodesOnly.setTitles("AO1"_s, text(Curves[0].yTitle));
    QCOMPARE(picture(t.chart(0)), picture(&nodesOnly));
}

void TestCharacteristicsCurvePage::save()
{
    QFETCH(int, tab);
    PageOnHost t;
    const Curve& curve = Curves[tab];
    t.show();
    t.process(tab, 2)->setValue(50);
    bool wasComputed = false;
    t.host.onCommand = [&](const ScriptedHost::Command& command) {
        if (command.data.contains(text(curve.saveCommand)))
            wasComputed = t.chart(tab)->isComputed();
    };
    t.click(curve.save);
    QCOMPARE(t.sent(), (QStringList{ComputeCommand, text(curve.saveCommand)}));
    Nodes nodes = storedNodes(tab);
    nodes[2].second = 50;
    const QJsonObject object{{text(curve.nodeKey), 3}, {text(curve.dataKey), pairs(nodes)}};
    QCOMPARE(t.host.commands.at(0).data, (QJsonObject{{ComputeCommand, object}}));
    QCOMPARE(t.host.commands.at(1).data, (QJsonObject{{text(curve.saveCommand), object}}));
    QVERIFY(wasComputed);
    QCOMPARE(t.host.messageTexts(), QStringList{Saved});
    QVERIFY(LogFolder::texts().isEmpty());
}

void TestCharacteristicsCurvePage::saveReportsReply_data()
{
    QTest::addColumn<QJsonArray>("reply");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QString>("log");
    const QString command = "set_weld_curve_power_config"_s;
    const QString failed = "CharacteristicsCurvePage::checkSaveResult failed. "_s;
    const QString none = failed + "not found "_s + command + " Result"_s;
    const auto row = [&](const char* name, const QJsonValue& result) -> QTestData& {
        return QTest::newRow(name) << ScriptedHost::reply(command, result);
    };
    row("stored", 0) << QStringList{Saved} << QString();
    row("text", "7"_s) << QStringList{Saved} << QString();
    row("refused", 7) << QStringList{NotSaved} << failed + command + " Result:7"_s;
    row("negative", -2) << QStringList{NotSaved} << failed + command + " Result:-2"_s;
    QTest::newRow("nothing") << QJsonArray() << QStringList() << none;
    QTest::newRow("another plugin")
        << ScriptedHost::reply(command, 0, "qelOther"_s) << QStringList() << none;
    QTest::newRow("another command")
        << ScriptedHost::reply(ComputeCommand, 0) << QStringList() << none;
    QTest::newRow("no objects") << QJsonArray{1, "x"_s} << QStringList() << none;
}

void TestCharacteristicsCurvePage::saveReportsReply()
{
    QFETCH(QJsonArray, reply);
    QFETCH(QStringList, messages);
    QFETCH(QString, log);
    PageOnHost t;
    t.show();
    t.host.replies.insert("set_weld_curve_power_config"_s, reply);
    t.click("pushButton_Save_laserpower");
    QCOMPARE(t.host.messageTexts(), messages);
    // How the items of a line are parted is the log stream's affair.
    QString line = LogFolder::texts().join(QLatin1Char('\n'));
    QCOMPARE(line.remove(QLatin1Char(' ')), log.remove(QLatin1Char(' ')));
    QCOMPARE(t.nodes(0), storedNodes(0));
}

void TestCharacteristicsCurvePage::saveGoesOnWithoutALine()
{
    PageOnHost t;
    t.show();
    t.host.replies.insert(ComputeCommand, {});
    t.click("pushButton_Save_speed");
    QCOMPARE(t.sent().size(), 2);
    QCOMPARE(t.host.messageTexts(), QStringList{Saved});
}

void TestCharacteristicsCurvePage::refusedNodesAreNotSent_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("saves");
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        QTest::addRow("compute %s", Curves[tab].page) << tab << false;
        QTest::addRow("save %s", Curves[tab].page) << tab << true;
    }
}

void TestCharacteristicsCurvePage::refusedNodesAreNotSent()
{
    QFETCH(int, tab);
    QFETCH(bool, saves);
    PageOnHost t;
    t.show();
    t.output(tab, 2)->setValue(t.output(tab, 1)->value());
    t.click(saves ? Curves[tab].save : Curves[tab].compute);
    QVERIFY(t.host.commands.isEmpty());
    QCOMPARE(t.host.messageTexts(), QStringList{notRising(3)});
    QVERIFY(!t.chart(tab)->isComputed());
}

void TestCharacteristicsCurvePage::cancelReloadsAll()
{
    QFETCH(int, tab);
    PageOnHost t;
    t.show();
    for (int each = 0; each < Page::TabCount; ++each)
        t.nodeBox(each)->setCurrentIndex(5);
    t.host.forgetCalls();
    t.click(Curves[tab].cancel);
    for (int each = 0; each < Page::TabCount; ++each)
        QCOMPARE(t.nodes(each), storedNodes(each));
    QVERIFY(t.host.commands.isEmpty());
    QVERIFY(!t.chart(tab)->isComputed());
    QCOMPARE(t.host.messageTexts(), QStringList{Cancelled});
}

void TestCharacteristicsCurvePage::cancelComputesWhatWasComputed()
{
    PageOnHost t;
    t.show();
    t.click(Curves[1].compute);
    t.click(Curves[2].compute);
    t.host.forgetCalls();
    t.click(Curves[2].cancel);
    QCOMPARE(t.host.commands.size(), 1);
    QVERIFY(t.host.commands.first()
                .data.value(ComputeCommand)
                .toObject()
                .contains("laser_frequency_node"_s));
    QCOMPARE(t.host.messageTexts(), QStringList{Cancelled});
    // What cannot be computed is told first.
    t.host.forgetCalls();
    t.host.service.insert(CurveKey, with(record(), "laser_frequency_node", 4));
    t.click(Curves[2].cancel);
    QCOMPARE(t.host.messageTexts(), (QStringList{notRising(4), Cancelled}));
}

void TestCharacteristicsCurvePage::mappingIsShown_data()
{
    QTest::addColumn<QJsonValue>("enabled");
    QTest::addColumn<QJsonValue>("port");
    QTest::addColumn<bool>("configured");
    QTest::addColumn<QString>("header");
    const QJsonValue missing(QJsonValue::Undefined);
    const QString none = "Not configured"_s;
    QTest::newRow("mapped") << QJsonValue(true) << QJsonValue("GO1"_s) << true << "GO1"_s;
    QTest::newRow("off") << QJsonValue(false) << QJsonValue("GO1"_s) << false << none;
    QTest::newRow("null port") << QJsonValue(true) << QJsonValue() << false << none;
    QTest::newRow("no port") << QJsonValue(true) << missing << true << QString();
    QTest::newRow("empty port") << QJsonValue(true) << QJsonValue(""_s) << true << QString();
    QTest::newRow("number port") << QJsonValue(true) << QJsonValue(4) << true << QString();
    QTest::newRow("no switch") << missing << QJsonValue("GO1"_s) << false << none;
    QTest::newRow("switch is a number") << QJsonValue(1) << QJsonValue("GO1"_s) << false << none;
    QTest::newRow("switch is a text")
        << QJsonValue("true"_s) << QJsonValue("GO1"_s) << false << none;
    QTest::newRow("switch is null") << QJsonValue() << QJsonValue("GO1"_s) << false << none;
}

void TestCharacteristicsCurvePage::mappingIsShown()
{
    QFETCH(QJsonValue, enabled);
    QFETCH(QJsonValue, port);
    QFETCH(bool, configured);
    QFETCH(QString, header);
    PageOnHost t;
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        const Curve& curve = Curves[tab];
        // A value of no type takes the key out.
        t.host.service.insert(
            IoKey, with(with(mapping(), curve.enabledKey, enabled), curve.portKey, port));
        t.page.refreshPortHeaders();
        QCOMPARE(t.isFree(curve.page), configured);
        QCOMPARE(t.table(tab)->horizontalHeaderItem(1)->text(), header);
        QCOMPARE(Page::isSignalConfigured(tab), configured);
        QVERIFY(child<QTabWidget>(&t.page, "tabWidget")->isTabVisible(tab));
        for (int other = 0; other < Page::TabCount; ++other)
            QVERIFY(other == tab || t.isFree(Curves[other].page));
    }
}

void TestCharacteristicsCurvePage::mappingThatIsNoObject()
{
    PageOnHost t;
    t.show();
    for (const QJsonValue& odd :
         {QJsonValue(), QJsonValue(QJsonValue::Undefined), QJsonValue(1), QJsonValue(true),
          QJsonValue("x"_s), QJsonValue(QJsonArray{mapping()})}) {
        t.host.service.insert(IoKey, mapping());
        t.page.refreshPortHeaders();
        t.host.service.insert(IoKey, odd);
        t.page.refreshPortHeaders();
        for (int tab = 0; tab < Page::TabCount; ++tab) {
            QVERIFY(t.isFree(Curves[tab].page));
            QCOMPARE(t.table(tab)->horizontalHeaderItem(1)->text(), "AO%1"_s.arg(tab + 1));
        }
        t.page.updateAccess();
        for (const Curve& curve : Curves)
            QVERIFY(!t.isFree(curve.page));
    }
}

void TestCharacteristicsCurvePage::headerItemIsMade()
{
    PageOnHost t;
    delete t.table(0)->takeHorizontalHeaderItem(1);
    t.page.refreshPortHeaders();
    QCOMPARE(t.table(0)->horizontalHeaderItem(1)->text(), "AO1"_s);
}

void TestCharacteristicsCurvePage::access_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("mainOn");
    for (int level = 0; level <= 4; ++level) {
        QTest::addRow("level %d", level) << level << false;
        QTest::addRow("level %d, main switch on", level) << level << true;
    }
}

void TestCharacteristicsCurvePage::access()
{
    QFETCH(int, level);
    QFETCH(bool, mainOn);
    PageOnHost t;
    t.show();
    t.host.level = level;
    t.switchMain(mainOn);
    child<QTabWidget>(&t.page, "tabWidget")->setEnabled(level < 3);
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        for (QWidget* each : std::initializer_list<QWidget*>{t.chart(tab), t.table(tab)})
            each->setEnabled(false);
    }
    t.page.updateAccess();
    QCOMPARE(t.page.isEnabled(), level >= 3);
    if (level < 3)
        return;
    QVERIFY(t.isFree("tabWidget"));
    const auto triggers = QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                          QAbstractItemView::EditKeyPressed;
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        const Curve& curve = Curves[tab];
        for (const char* free : {curve.page, curve.chart, curve.table})
            QVERIFY(t.isFree(free));
        QCOMPARE(t.table(tab)->editTriggers(), mainOn ? QAbstractItemView::NoEditTriggers
                                                      : QAbstractItemView::EditTriggers(triggers));
        for (const char* name : {curve.nodeBox, curve.compute, curve.cancel, curve.save})
            QCOMPARE(t.isFree(name), !mainOn);
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(t.output(tab, row)->isEnabled(), !mainOn);
            QCOMPARE(t.process(tab, row)->isEnabled(), !mainOn);
        }
    }
}

void TestCharacteristicsCurvePage::unmappedTabIsLeftAsItWas()
{
    PageOnHost t;
    t.host.service.insert(IoKey, with(mapping(), "frequency_enabled", false));
    t.show();
    QVERIFY(!t.isFree("frequency"));
    t.switchMain(true);
    t.page.updateAccess();
    QVERIFY(!t.isFree("frequency") && t.isFree("comboBox_node_3"));
    QVERIFY(t.isFree("dutycycle") && !t.isFree("comboBox_node_4"));
}

void TestCharacteristicsCurvePage::settingPageMayGo()
{
    PageOnHost t;
    t.show();
    t.switchMain(true);
    t.setting.reset();
    t.page.updateAccess();
    QVERIFY(t.isFree("pushButton_compute"));
    t.nodeBox(0)->setCurrentIndex(4);
    QVERIFY(t.output(0, 4)->isEnabled());
}

void TestCharacteristicsCurvePage::showAsksTheHostInOrder()
{
    PageOnHost t;
    t.host.forgetCalls();
    t.page.show();
    QStringList asked;
    for (const auto& call : qAsConst(t.host.calls)) {
        if (call.name != "getNodeData"_s) // the zoom of fonts and heights
            asked << call.name + QLatin1Char(' ') + call.arguments.at(0).toString();
    }
    const QString curves = "getQelServiceData weld_curve_config"_s;
    const QString io = "getQelServiceData weld_io_config"_s;
    QCOMPARE(asked, (QStringList{curves, io, "getUserOperateLevel "_s, io, io, io, io}));
}

void TestCharacteristicsCurvePage::showComputesWhatWasComputed()
{
    PageOnHost t;
    t.show();
    for (const int tab : {3, 0, 2})
        t.click(Curves[tab].compute);
    t.page.hide();
    t.host.forgetCalls();
    t.page.show();
    QStringList keys;
    for (const auto& command : qAsConst(t.host.commands))
        keys << command.data.value(ComputeCommand).toObject().keys().join(QLatin1Char(' '));
    QCOMPARE(t.host.commands.size(), 3);
    const int order[] = {0, 2, 3};
    for (int i = 0; i < 3; ++i)
        QVERIFY(keys.at(i).contains(text(Curves[order[i]].nodeKey)));
    // The user's level is asked for at the end.
    const QStringList names = t.host.callNames();
    QVERIFY(names.indexOf("getUserOperateLevel"_s) > names.lastIndexOf("commandCustomData"_s));
}

void TestCharacteristicsCurvePage::showDiscardsEdits()
{
    PageOnHost t;
    t.show();
    t.output(3, 0)->setValue(0.01);
    t.nodeBox(1)->setCurrentIndex(7);
    t.page.hide();
    t.page.show();
    for (int tab = 0; tab < Page::TabCount; ++tab)
        QCOMPARE(t.nodes(tab), storedNodes(tab));
}

void TestCharacteristicsCurvePage::showSetsFontsAndRows()
{
    PageOnHost t;
    t.host.service.insert(CurveKey, QJsonValue()); // the rows are those of the start
    for (int tab = 0; tab < Page::TabCount; ++tab)
        t.table(tab)->setRowHeight(1, 77);
    QFont other = t.nodeBox(0)->font();
    other.setPointSize(23);
    t.nodeBox(0)->setFont(other);
    t.page.show();
    QCOMPARE(t.nodeBox(0)->font().pointSize(), UiScale::pointSize(10, &t.page));
    for (int tab = 0; tab < Page::TabCount; ++tab)
        QCOMPARE(t.table(tab)->rowHeight(1), UiScale::rowHeight(&t.page));
}

void TestCharacteristicsCurvePage::styleIsSetOnce()
{
    PageOnHost t;
    auto* tabs = child<QTabWidget>(&t.page, "tabWidget");
    tabs->setStyleSheet("QTabBar{color:red}"_s);
    t.table(2)->setRowHeight(0, 77);
    t.page.applyPageStyle();
    QVERIFY(!t.page.styleSheet().isEmpty());
    QVERIFY(tabs->styleSheet().isEmpty());
    QCOMPARE(t.table(2)->rowHeight(0), UiScale::rowHeight(&t.page));
    const auto boxes = t.page.findChildren<QComboBox*>();
    QCOMPARE(boxes.size(), 4);
    for (const QComboBox* box : boxes) {
        QVERIFY(box->property("comboPopupFixerBelow").toBool());
        QCOMPARE(box->property("comboPopupFixerHeight"), QVariant());
    }
    t.page.show();
    // A second time it is there already: nothing is polished again.
    struct : QObject
    {
        bool eventFilter(QObject*, QEvent* event) override
        {
            changes += event->type() == QEvent::StyleChange;
            return false;
        }
        int changes = 0;
    } watcher;
    t.page.installEventFilter(&watcher);
    t.page.applyPageStyle();
    QCOMPARE(watcher.changes, 0);
}

void TestCharacteristicsCurvePage::popupsShowAllNumbers()
{
    PageOnHost t;
    t.page.applyPageStyle();
    t.show();
    QVERIFY(QTest::qWaitForWindowExposed(&t.page));
    QComboBox* box = t.nodeBox(0);
    box->showPopup();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QVERIFY(box->view()->viewport()->height() >= box->count() * box->view()->sizeHintForRow(0));
    box->hidePopup();
}

void TestCharacteristicsCurvePage::buttonsFit_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("wide");
    QTest::newRow("wide") << QSize(800, 560) << true;
    QTest::newRow("less") << QSize(640, 580) << false;
    QTest::newRow("narrow") << QSize(440, 400) << false;
}

// On a narrow page the margins give way before the texts do.
void TestCharacteristicsCurvePage::buttonsFit()
{
    QFETCH(QSize, size);
    QFETCH(bool, wide);
    PageOnHost t;
    t.page.applyPageStyle();
    t.page.resize(size);
    t.page.show();
    auto* tabs = child<QTabWidget>(&t.page, "tabWidget");
    for (int tab = 0; tab < Page::TabCount; ++tab) {
        tabs->setCurrentIndex(tab);
        QCoreApplication::processEvents();
        QRect before;
        for (const char* name : {Curves[tab].compute, Curves[tab].cancel, Curves[tab].save}) {
            const auto* button = child<QPushButton>(&t.page, name);
            const int needed = button->fontMetrics().horizontalAdvance(button->text());
            QVERIFY(button->width() >= needed);
            QVERIFY(before.isNull() || before.right() < button->x());
            before = button->geometry();
        }
        const int left = child<QPushButton>(&t.page, Curves[tab].compute)->x() - t.chart(tab)->x();
        QCOMPARE(left == 50, wide);
    }
}

LASERWELD_TEST_MAIN(TestCharacteristicsCurvePage)
#include "tst_characteristicscurvepage.moc"
