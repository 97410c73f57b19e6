#include "IoMonitor.h"
#include "TestCase.h"
#include "TestCell.h"
#include "Theme.h"
#include "WeldIo.h"

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>

using namespace pendant;

namespace {

enum Column { Name, Place, Value };

/// A monitor on a new cell, with the mapping that a test makes.
struct Bench
{
    TestCell cell;
    IoMonitor monitor{*cell};

    Bench()
    {
        Theme::dress(&monitor);
        monitor.resize(600, 300);
        monitor.show();
    }
    void send(const char* command, const QJsonValue& payload)
    {
        const QString plugin = QStringLiteral("qelLaserWelding");
        cell->command(plugin, {{QString(QLatin1String(command)), payload}});
    }
    /// Changes fields of the mapping as the plugin's page does.
    void map(const QJsonObject& changes)
    {
        QJsonObject record = cell->serviceData(QStringLiteral("weld_io_config")).toObject();
        for (auto each = changes.begin(); each != changes.end(); ++each)
            record.insert(each.key(), each.value());
        send("set_weld_io_config", record);
        QCOMPARE(cell->serviceData(QStringLiteral("weld_io_config")).toObject(), record);
    }
    QTableWidgetItem* item(const char* key, Column column)
    {
        for (const char* name : {"table_outputs", "table_inputs"}) {
            auto* table = child<QTableWidget>(&monitor, name);
            for (int row = 0; row < table->rowCount(); ++row) {
                if (table->item(row, Name)->toolTip() == QLatin1String(key))
                    return table->item(row, column);
            }
        }
        qFatal("no row %s", key);
    }
    QString text(const char* key, Column column) { return item(key, column)->text(); }
    QPushButton* toggle(const char* name) { return child<QPushButton>(&monitor, name); }
    QDoubleSpinBox* number(const char* name) { return child<QDoubleSpinBox>(&monitor, name); }
    double value(const char* key)
    {
        const QVector<SignalState> all = cell->ioSignals();
        for (const SignalState& each : all) {
            if (QLatin1String(each.signal->key) == QLatin1String(key))
                return each.value;
        }
        return -1;
    }
};

} // namespace

class TestIoMonitor : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void allSignalsStandThere();
    void choiceOfTables();
    void commandsDriveOutputs_data();
    void commandsDriveOutputs();
    void wireSpeedIsShown();
    void gasEndsByItself();
    void placesFollowTheMapping_data();
    void placesFollowTheMapping();
    void goneIsTold();
    void inputByHand();
    void numberByHand();
    void wholeNumbers();
    void typedTextStays();
    void unmappedInputIsLocked();
    void hiddenCatchesUp();
    void fingersFind_data();
    void fingersFind();
};

void TestIoMonitor::allSignalsStandThere()
{
    Bench bench;
    QCOMPARE(child<QTableWidget>(&bench.monitor, "table_outputs")->rowCount(), 15);
    QCOMPARE(child<QTableWidget>(&bench.monitor, "table_inputs")->rowCount(), 9);
    QCOMPARE(bench.text("laser_enable", Name), QStringLiteral("Laser on"));
    QCOMPARE(bench.text("laser_enable", Place), QStringLiteral("DO1"));
    QCOMPARE(bench.text("laser_enable", Value), QStringLiteral("Off"));
    QCOMPARE(bench.text("power", Value), QStringLiteral("0"));
    QCOMPARE(bench.text("descent_signal", Place), QStringLiteral("none"));
    QCOMPARE(bench.text("descent_signal", Value), QString());
}

void TestIoMonitor::choiceOfTables()
{
    Bench bench;
    auto* outputs = child<QTableWidget>(&bench.monitor, "table_outputs");
    auto* inputs = child<QTableWidget>(&bench.monitor, "table_inputs");
    QVERIFY(outputs->isVisible() && !inputs->isVisible());
    bench.toggle("button_inputs")->click();
    QVERIFY(!outputs->isVisible() && inputs->isVisible());
    bench.toggle("button_outputs")->click();
    QVERIFY(outputs->isVisible() && !inputs->isVisible());
}

void TestIoMonitor::commandsDriveOutputs_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QJsonValue>("on");
    QTest::addColumn<QJsonValue>("off");
    QTest::addColumn<QByteArray>("key");
    const auto row = [](const char* command, const QJsonValue& on, const QJsonValue& off,
                        const char* key) {
        QTest::newRow(command) << QByteArray(command) << on << off << QByteArray(key);
    };
    row("set_weld_enable", QStringLiteral("TRUE"), QStringLiteral("FALSE"), "laser_enable");
    row("set_weld_red_light", true, false, "red_light");
    row("set_weld_manual_gas", true, false, "gas_protect");
    row("set_weld_feed_wire", true, false, "manual_wire_feed");
    row("set_weld_retract_wire", true, false, "manual_retract");
}

void TestIoMonitor::commandsDriveOutputs()
{
    QFETCH(QByteArray, command);
    QFETCH(QJsonValue, on);
    QFETCH(QJsonValue, off);
    QFETCH(QByteArray, key);
    Bench bench;
    bench.send(command.constData(), on);
    QCOMPARE(bench.text(key.constData(), Value), QStringLiteral("On"));
    bench.send(command.constData(), off);
    QCOMPARE(bench.text(key.constData(), Value), QStringLiteral("Off"));
}

void TestIoMonitor::wireSpeedIsShown()
{
    Bench bench;
    bench.map({{QStringLiteral("manual_wire_feed_enabled"), false}});
    bench.send("set_weld_feed_wire", true);
    QCOMPARE(bench.text("wire_feed", Value), QStringLiteral("On"));
    QCOMPARE(bench.text("wire_speed", Value), QStringLiteral("10"));
    QCOMPARE(bench.text("manual_wire_feed", Place), QStringLiteral("DO6 (off)"));
    QCOMPARE(bench.text("manual_wire_feed", Value), QStringLiteral("Off"));
}

void TestIoMonitor::gasEndsByItself()
{
    Bench bench;
    QJsonObject setting = bench.cell->serviceData(QStringLiteral("weld_setting_config")).toObject();
    setting.insert(QStringLiteral("manual_gas_time"), 1000);
    bench.send("set_weld_setting_config", setting);
    bench.send("set_weld_manual_gas", true);
    QCOMPARE(bench.text("gas_protect", Value), QStringLiteral("On"));
    QTRY_COMPARE(bench.text("gas_protect", Value), QStringLiteral("Off"));
}

void TestIoMonitor::placesFollowTheMapping_data()
{
    QTest::addColumn<QJsonObject>("changes");
    QTest::addColumn<QString>("place");
    const auto row = [](int type, const char* port, int bias, bool isOn, const char* place) {
        const QJsonObject changes{{QStringLiteral("red_light_type"), type},
                                  {QStringLiteral("red_light_port"), QLatin1String(port)},
                                  {QStringLiteral("red_light_bias"), bias},
                                  {QStringLiteral("red_light_enabled"), isOn}};
        QTest::newRow(place) << changes << QString(QLatin1String(place));
    };
    row(0, "DO77", 0, true, "DO77");
    row(0, "DO77", 0, false, "DO77 (off)");
    row(2, "R20", 7, true, "R20 [8]");
    row(2, "R20", 7, false, "R20 [8] (off)");
    row(2, "", 0, false, "none");
}

void TestIoMonitor::placesFollowTheMapping()
{
    QFETCH(QJsonObject, changes);
    QFETCH(QString, place);
    Bench bench;
    bench.map(changes);
    QCOMPARE(bench.text("red_light", Place), place);
}

void TestIoMonitor::goneIsTold()
{
    Bench bench;
    Faults faults;
    faults.firstPortGone = true;
    bench.cell->setFaults(faults);
    QCOMPARE(bench.text("laser_enable", Place), QStringLiteral("DO1 (unusable)"));
    QCOMPARE(bench.text("laser_enable", Value), QString());
    QVERIFY(bench.item("laser_enable", Place)->toolTip().contains(QLatin1String("is no port")));
    QVERIFY(!bench.toggle("input_light_feedback")->isEnabled());
    bench.cell->setFaults({});
    QCOMPARE(bench.text("laser_enable", Place), QStringLiteral("DO1"));
}

void TestIoMonitor::inputByHand()
{
    Bench bench;
    auto* toggle = bench.toggle("input_laser_alarm");
    QCOMPARE(toggle->text(), QStringLiteral("Off"));
    toggle->click();
    QCOMPARE(bench.value("laser_alarm"), 1.0);
    QCOMPARE(toggle->text(), QStringLiteral("On"));
    toggle->click();
    QCOMPARE(bench.value("laser_alarm"), 0.0);
    QCOMPARE(toggle->text(), QStringLiteral("Off"));
}

void TestIoMonitor::numberByHand()
{
    Bench bench;
    auto* number = bench.number("input_power_feedback");
    QCOMPARE(number->decimals(), 3);
    number->setValue(-12.125);
    QCOMPARE(bench.value("power_feedback"), -12.125);
    bench.cell->setInput(QStringLiteral("power_feedback"), 5);
    QCOMPARE(number->value(), 5.0);
}

void TestIoMonitor::wholeNumbers()
{
    Bench bench;
    bench.cell->setInput(QStringLiteral("power_feedback"), 2.5);
    bench.map({{QStringLiteral("power_feedback_type"), 1},
               {QStringLiteral("power_feedback_port"), QStringLiteral("GI4")}});
    auto* number = bench.number("input_power_feedback");
    QCOMPARE(number->decimals(), 0);
    QCOMPARE(number->value(), 0.0);
    number->setValue(7);
    QCOMPARE(bench.value("power_feedback"), 7.0);
}

// Not every key that is pressed is a value, and what happens meanwhile does not wipe it out.
void TestIoMonitor::typedTextStays()
{
    Bench bench;
    bench.toggle("button_inputs")->click();
    auto* number = bench.number("input_power_feedback");
    number->selectAll();
    QTest::keyClicks(number, QStringLiteral("12"));
    bench.send("set_weld_red_light", true);
    QTest::keyClicks(number, QStringLiteral("5"));
    QCOMPARE(bench.value("power_feedback"), 0.0);
    QTest::keyClick(number, Qt::Key_Return);
    QCOMPARE(bench.value("power_feedback"), 125.0);
}

void TestIoMonitor::unmappedInputIsLocked()
{
    Bench bench;
    QVERIFY(!bench.toggle("input_adhesion_detection_feedback")->isEnabled());
    bench.map({{QStringLiteral("adhesion_detection_feedback_port"), QStringLiteral("DI40")},
               {QStringLiteral("adhesion_detection_feedback_enabled"), true}});
    QVERIFY(bench.toggle("input_adhesion_detection_feedback")->isEnabled());
}

void TestIoMonitor::hiddenCatchesUp()
{
    Bench bench;
    bench.monitor.hide();
    bench.send("set_weld_red_light", true);
    bench.monitor.show();
    QCOMPARE(bench.text("red_light", Value), QStringLiteral("On"));
}

void TestIoMonitor::fingersFind_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("1024 x 768") << QSize(780, 300);
    QTest::newRow("800 x 600") << QSize(556, 300);
    QTest::newRow("narrow") << QSize(400, 300);
}

// Everything that is touched is at least as high as a finger needs, and no column is cut off.
void TestIoMonitor::fingersFind()
{
    QFETCH(QSize, size);
    Bench bench;
    bench.monitor.resize(size);
    bench.toggle("button_inputs")->click();
    QCoreApplication::processEvents();
    auto* table = child<QTableWidget>(&bench.monitor, "table_inputs");
    QTRY_COMPARE(table->horizontalScrollBar()->maximum(), 0);
    for (QWidget* each : {static_cast<QWidget*>(bench.toggle("input_laser_alarm")),
                          static_cast<QWidget*>(bench.number("input_power_feedback")),
                          static_cast<QWidget*>(bench.toggle("button_outputs"))}) {
        QVERIFY(each->height() >= Theme::px(36));
        QVERIFY2(each->width() >= each->minimumSizeHint().width(),
                 qPrintable(QStringLiteral("%1: %2 of %3")
                                .arg(each->objectName())
                                .arg(each->width())
                                .arg(each->minimumSizeHint().width())));
    }
    QCOMPARE(bench.monitor.size(), size);
}

LASERWELD_TEST_MAIN(TestIoMonitor)
#include "tst_iomonitor.moc"
