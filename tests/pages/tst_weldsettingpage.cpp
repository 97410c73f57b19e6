#include "EnableButton.h"
#include "EventCount.h"
#include "LogFolder.h"
#include "ScriptedHost.h"
#include "TestCase.h"
#include "UiScale.h"
#include "WeldSettingPage.h"

#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>

#include <limits>
#include <vector>

namespace {

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromLatin1(text, int(size));
}

enum class Reading { Whole, Truncated };

/// One number of the form and of the record.
struct Field
{
    const char* name;
    const char* key;
    const char* frame;
    const char* caption;
    const char* unit;
    Reading reading;
    int low, high, preset;
};

const Field Fields[] = {
    {"spinBox_laser_power", "laser_power", "frame", "Laser power", "W", Reading::Truncated, 0, 9999,
     3000},
    {"spinBox_feedback_delay", "feedback_delay", "frame", "Laser detect time", "ms",
     Reading::Truncated, 0, 2000, 1000},
    {"spinBox_laser_check_out_time", "laser_check_out_time", "frame", "Laser check out time", "ms",
     Reading::Whole, 0, 500, 200},
    {"spinBox_pre_gas_time", "pre_gas_time", "frame_3", "Gas on advance time", "ms", Reading::Whole,
     0, 2000, 300},
    {"spinBox_delay_off_time", "delay_off_time", "frame_3", "Gas off delay time", "ms",
     Reading::Whole, 0, 2000, 300},
    {"spinBox_detection_delay", "detection_delay", "frame_3", "Gas detect  time", "ms",
     Reading::Whole, 0, 2000, 300},
    {"spinBox_manual_gas_time", "manual_gas_time", "frame_3", "Gas purge time", "ms",
     Reading::Whole, 1000, 10000, 5000},
    {"doubleSpinBox_retraction_distance", "retraction_distance", "frame_4", "Overlap Distance",
     "mm", Reading::Truncated, 0, 50, 5},
    {"doubleSpinBox_retraction_speed", "retraction_speed", "frame_4", "Return speed", "mm/s",
     Reading::Truncated, 0, 100, 20},
    {"doubleSpinBox_max_feed_speed", "max_feed_speed", "frame_2", "Max. speed", "mm/s",
     Reading::Truncated, 0, 1000, 200},
    {"doubleSpinBox_manual_feed_speed", "manual_feed_speed", "frame_2", "Manual feed forward speed",
     "mm/s", Reading::Truncated, 0, 500, 10},
    {"doubleSpinBox_manual_retract_speed", "manual_retract_speed", "frame_2",
     "Manual feed backward speed", "mm/s", Reading::Truncated, 0, 500, 10},
    {"spinBox_wire_feedback_detection", "wire_feedback_detection", "frame_2",
     "Wire feed check time", "ms", Reading::Whole, 0, 2000, 1000},
    {"spinBox_detection_time", "detection_time", "frame_WireSticking", "Detect duration", "ms",
     Reading::Whole, 100, 1000, 200},
};

const char* const ConfigFrames[] = {"frame", "frame_2", "frame_3", "frame_4", "frame_WireSticking"};

const char* const FeederFields[] = {
    "comboBox_wire_feeder_comm_type",     "comboBox_wire_feed_type",
    "doubleSpinBox_max_feed_speed",       "doubleSpinBox_manual_feed_speed",
    "doubleSpinBox_manual_retract_speed", "spinBox_wire_feedback_detection"};

const char* const RestartFields[] = {"doubleSpinBox_retraction_distance",
                                     "doubleSpinBox_retraction_speed"};

const QString ConfigKey = "weld_setting_config"_s;
const QString SaveCommand = "set_weld_setting_config"_s;
const QString EnableCommand = "set_weld_enable"_s;

const QString TooEarly = "2: The detected time of the light output is later than the light output "
                         "inspection time; saving failed!"_s;
const QString Powered = "2: Do not modify while powered on!"_s;
const QString NotStarted = "2: Laser weld startup faild!"_s;
const QString Saved = "0: Saved successfully"_s;
const QString NotSaved = "2: Save failed. Please check the parameter configuration."_s;

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// A record whose every number lies inside of its field.
QJsonObject record()
{
    QJsonObject values{{"laser_main_enable"_s, false},
                       {"feeder_enable"_s, true},
                       {"laser_comm_type"_s, 1},
                       {"wire_feeder_comm_type"_s, 2}};
    for (const Field& field : Fields)
        values.insert(text(field.key), (field.low + field.high) / 2);
    return values;
}

QJsonObject with(const char* key, const QJsonValue& value, QJsonObject values = record())
{
    values.insert(text(key), value);
    return values;
}

/// The page on a host that knows a record, with a log of its own.
struct PageOnHost
{
    PageOnHost() { host.service.insert(ConfigKey, record()); }

    EnableButton* mainSwitch() { return child<EnableButton>(&page, "pushButton_main_enable"); }
    int value(const char* name) { return child<QSpinBox>(&page, name)->value(); }
    void setValue(const char* name, int number) { child<QSpinBox>(&page, name)->setValue(number); }
    bool isEnabled(const char* name)
    {
        return !child<QWidget>(&page, name)->testAttribute(Qt::WA_ForceDisabled);
    }
    void press(const char* name) { QTest::mouseClick(child<QWidget>(&page, name), Qt::LeftButton); }
    /// What the page is when nothing has been noted yet.
    void show()
    {
        page.show();
        host.forgetCalls();
    }
    /// The state in which the operator may edit, or may not.
    bool isEditable()
    {
        bool all = isEnabled("pushButton_cancel") && isEnabled("pushButton_save");
        for (const char* frame : ConfigFrames)
            all = all && isEnabled(frame);
        return all;
    }
    bool isLocked()
    {
        bool any = isEnabled("pushButton_cancel") || isEnabled("pushButton_save");
        for (const char* frame : ConfigFrames)
            any = any || isEnabled(frame);
        return !any;
    }

    ScriptedHost host;
    LogFolder folder;
    ConsoleCapture console;
    WeldSettingPage page{nullptr};
};

template<typename Widget>
std::vector<Widget*> all(const QWidget& root)
{
    const auto found = root.findChildren<Widget*>();
    return {found.begin(), found.end()};
}

QStringList itemTexts(const QComboBox* box)
{
    QStringList texts;
    for (int index = 0; index < box->count(); ++index)
        texts << box->itemText(index);
    return texts;
}

} // namespace

class TestWeldSettingPage : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // The form.
    void formIsTitledAndSized();
    void framesStandInTheirColumns_data();
    void framesStandInTheirColumns();
    void titles_data();
    void titles();
    void numberFields_data();
    void numberFields();
    void choices_data();
    void choices();
    void unusedFieldsAreNeverShown();
    void buttons();
    void tabOrder();
    void metaObject();

    // The record.
    void numbersAreRead_data();
    void numbersAreRead();
    void switchesAreRead_data();
    void switchesAreRead();
    void nothingButAnObjectIsLoaded_data();
    void nothingButAnObjectIsLoaded();
    void emptyRecordReadsAsLeast();
    void loadSetsWhatTheRecordDoesNotHold();
    void saveCommandHoldsTheForm();
    void loadedRecordIsSavedAgain();

    // Showing.
    void showAsksTheHostInOrder();
    void showFillsThePorts();
    void showReloads();
    void showLocksByMainSwitch_data();
    void showLocksByMainSwitch();
    void showEnablesByLevel_data();
    void showEnablesByLevel();
    void showEnablesFeederFields_data();
    void showEnablesFeederFields();
    void showFreesRestartFields();

    // Saving and cancelling.
    void timesAreValidated_data();
    void timesAreValidated();
    void saveReportsReply_data();
    void saveReportsReply();
    void saveSendsTheRecordOnce();
    void saveStopsAtTheTimes();
    void cancelReloads();
    void lockedPageCannotSave();

    // The main switch.
    void startAndStop();
    void stopReadsNoReply();
    void poweredRobotRefuses_data();
    void poweredRobotRefuses();
    void startStopsAtTheTimes();
    void startNeedsAcceptance_data();
    void startNeedsAcceptance();
    void startByCallAlone();
    void switchPauses();
    void stoppedSwitchComesBackFromTheRecord();

    // The other slots.
    void planSlots_data();
    void planSlots();
    void wireStickingKeepsItsTime();
    void switchesDriveTheirFields_data();
    void switchesDriveTheirFields();
    void diagnosis();

    // The look.
    void stylesAreSet();
    void switchesAreSized_data();
    void switchesAreSized();
    void labelsAndFieldsArePolished();
    void layoutIsRelaxed();
    void narrowPageStacksItsColumns();
    void nothingIsCutOff_data();
    void nothingIsCutOff();
    void secondShowChangesNothing();
    void goesWhileASwitchSlides();
};

void TestWeldSettingPage::formIsTitledAndSized()
{
    PageOnHost t;
    QCOMPARE(t.page.objectName(), "WeldSettingPage"_s);
    QCOMPARE(t.page.windowTitle(), "Form"_s);
    QCOMPARE(t.page.size(), QSize(613, 487));
    QVERIFY(t.host.calls.isEmpty());
    QVERIFY(!t.page.isMainEnabled());
    QCOMPARE(child<QLabel>(&t.page, "label_main_enable")->text(), "Enable:"_s);
}

void TestWeldSettingPage::framesStandInTheirColumns_data()
{
    QTest::addColumn<QString>("parent");
    QTest::newRow("frame_5") << "WeldSettingPage";
    QTest::newRow("frame") << "widget_3";
    QTest::newRow("frame_3") << "widget_3";
    QTest::newRow("frame_4") << "widget_3";
    QTest::newRow("frame_2") << "widget_2";
    QTest::newRow("frame_WireSticking") << "widget_2";
}

void TestWeldSettingPage::framesStandInTheirColumns()
{
    QFETCH(QString, parent);
    PageOnHost t;
    auto* frame = child<QFrame>(&t.page, QTest::currentDataTag());
    QCOMPARE(frame->parentWidget()->objectName(), parent);
    QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
    QCOMPARE(frame->frameShadow(), QFrame::Raised);
    if (auto* grid = qobject_cast<QGridLayout*>(frame->layout())) {
        QCOMPARE(grid->columnStretch(0), 5);
        QCOMPARE(grid->columnStretch(1), 2);
        QCOMPARE(grid->columnStretch(2), 1);
    }
}

void TestWeldSettingPage::titles_data()
{
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QString>("title");
    QTest::newRow("label") << "frame"
                           << "Laser unit";
    QTest::newRow("label_11") << "frame_3"
                              << "Assist Gas";
    QTest::newRow("label_16") << "frame_4"
                              << "Restart function";
    QTest::newRow("label_5") << "frame_2"
                             << "Wire Feeder";
    QTest::newRow("label_19") << "frame_WireSticking"
                              << "Wire stick detect function";
}

void TestWeldSettingPage::titles()
{
    QFETCH(QString, frame);
    QFETCH(QString, title);
    PageOnHost t;
    auto* label = child<QLabel>(&t.page, QTest::currentDataTag());
    QCOMPARE(label->text(), title);
    QCOMPARE(label->parentWidget()->objectName(), frame);
    QCOMPARE(label->property("type"), QVariant("title"_s));
    t.page.applyPageStyle();
    t.page.show();
    QVERIFY(label->font().weight() > QFont::Normal);
    QVERIFY(child<QLabel>(&t.page, "label_laser_power")->font().weight() == QFont::Normal);
}

void TestWeldSettingPage::numberFields_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(Fields)); ++row)
        QTest::newRow(Fields[row].name) << row;
}

void TestWeldSettingPage::numberFields()
{
    QFETCH(int, row);
    const Field& field = Fields[row];
    PageOnHost t;
    auto* box = child<QSpinBox>(&t.page, field.name);
    QCOMPARE(box->parentWidget()->objectName(), text(field.frame));
    QCOMPARE(box->minimum(), field.low);
    QCOMPARE(box->maximum(), field.high);
    QCOMPARE(box->value(), field.preset);
    QCOMPARE(box->singleStep(), 1);
    QCOMPARE(box->buttonSymbols(), QAbstractSpinBox::NoButtons);

    auto* grid = qobject_cast<QGridLayout*>(box->parentWidget()->layout());
    int line = 0, column = 0, lines = 0, columns = 0;
    grid->getItemPosition(grid->indexOf(box), &line, &column, &lines, &columns);
    QCOMPARE(column, 1);
    auto* caption = qobject_cast<QLabel*>(grid->itemAtPosition(line, 0)->widget());
    auto* unit = qobject_cast<QLabel*>(grid->itemAtPosition(line, 2)->widget());
    QCOMPARE(caption->text(), text(field.caption));
    QCOMPARE(unit->text(), text(field.unit));
    QCOMPARE(unit->objectName(), caption->objectName() + "_unit"_s);
}

void TestWeldSettingPage::choices_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("captionText");
    QTest::addColumn<QStringList>("items");
    QTest::newRow("comboBox_laser_comm_type")
        << "label_Method"
        << "Communication mode" << QStringList{"Analogue"_s, "Bus"_s};
    QTest::newRow("comboBox_wire_feeder_comm_type")
        << "label_6"
        << "Communication mode" << QStringList{"Analogue"_s, "Bus"_s, "ProcessID"_s};
    QTest::newRow("comboBox_wire_feed_type")
        << "label_7"
        << "Feeding mode"
        << QStringList{"Wire Feeding + Retraction"_s, "Wire Feeding + Direction"_s};
    QTest::newRow("comboBox_detection_do") << "label_21"
                                           << "Trigger signal | DO" << QStringList();
    QTest::newRow("comboBox_feedback_di") << "label_25"
                                          << "Wire stick FBK| DI" << QStringList();
}

void TestWeldSettingPage::choices()
{
    QFETCH(QString, caption);
    QFETCH(QString, captionText);
    QFETCH(QStringList, items);
    PageOnHost t;
    auto* box = child<QComboBox>(&t.page, QTest::currentDataTag());
    QCOMPARE(itemTexts(box), items);
    QCOMPARE(box->currentIndex(), items.isEmpty() ? -1 : 0);
    auto* label = t.page.findChild<QLabel*>(caption);
    QVERIFY(label);
    QCOMPARE(label->text(), captionText);
    QCOMPARE(label->parentWidget(), box->parentWidget());
}

void TestWeldSettingPage::unusedFieldsAreNeverShown()
{
    PageOnHost t;
    t.page.applyPageStyle();
    t.page.show();
    QStringList hidden;
    const auto widgets = t.page.findChildren<QWidget*>();
    for (const QWidget* each : widgets) {
        if (each->isHidden() && !each->isWindow() && !each->objectName().startsWith("qt_"_s) &&
            !each->objectName().isEmpty())
            hidden << each->objectName();
    }
    hidden.sort();
    QStringList expected{"pushButton_Retraction"_s,
                         "pushButton_WireSticking"_s,
                         "comboBox_feedback_di"_s,
                         "comboBox_detection_do"_s,
                         "comboBox_laser_comm_type"_s,
                         "comboBox_wire_feed_type"_s,
                         "label_21"_s,
                         "label_25"_s,
                         "label_Method"_s,
                         "label_6"_s,
                         "label_7"_s,
                         "comboBox_wire_feeder_comm_type"_s};
    expected.sort();
    QCOMPARE(hidden, expected);
}

void TestWeldSettingPage::buttons()
{
    PageOnHost t;
    for (const char* name : {"pushButton_cancel", "pushButton_save"}) {
        auto* button = child<QPushButton>(&t.page, name);
        QCOMPARE(button->property("normal"), QVariant(true));
        QCOMPARE(button->parentWidget()->objectName(), "widget_2"_s);
    }
    QCOMPARE(child<QPushButton>(&t.page, "pushButton_cancel")->text(), "Cancel"_s);
    QCOMPARE(child<QPushButton>(&t.page, "pushButton_save")->text(), "Save"_s);
}

void TestWeldSettingPage::tabOrder()
{
    PageOnHost t;
    t.page.show();
    QWidget* current = child<QWidget>(&t.page, Fields[0].name);
    QStringList order{current->objectName()};
    for (int step = 0; step < 400 && order.size() < 16; ++step) {
        current = current->nextInFocusChain();
        const bool isStop = qobject_cast<QSpinBox*>(current) || qobject_cast<QPushButton*>(current);
        if (isStop && current->isVisible())
            order << current->objectName();
    }
    QStringList expected;
    for (const Field& field : Fields)
        expected << text(field.name);
    expected << "pushButton_cancel"_s
             << "pushButton_save"_s;
    QCOMPARE(order, expected);
}

void TestWeldSettingPage::metaObject()
{
    const QMetaObject& meta = WeldSettingPage::staticMetaObject;
    QStringList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        methods << (method.methodType() == QMetaMethod::Signal ? "signal "_s : "slot "_s) +
                       QString::fromLatin1(method.methodSignature());
    }
    const QStringList expected{
        "signal setMainEnable(bool)"_s,           "slot onSwitchMain(bool)"_s,
        "slot setRetractionPlanStatus(bool)"_s,   "slot setFeederPlanStatus(bool)"_s,
        "slot setWireStickingPlanStatus(bool)"_s, "slot buttontest()"_s};
    QCOMPARE(methods, expected);
}

void TestWeldSettingPage::numbersAreRead_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<int>("expected");
    for (int row = 0; row < int(std::size(Fields)); ++row) {
        const Field& field = Fields[row];
        const auto add = [&](const char* what, const QJsonValue& value, int expected) {
            QTest::addRow("%s: %s", field.key, what) << row << value << expected;
        };
        const int middle = (field.low + field.high) / 2;
        const int fraction = field.reading == Reading::Truncated ? middle : field.low;
        add("whole", middle, middle);
        add("fraction", middle + 0.7, fraction);
        add("least", field.low, field.low);
        add("greatest", field.high, field.high);
        add("below", field.low - 1, field.low);
        add("above", field.high + 1, field.high);
        add("beyond an int", 1e300, field.reading == Reading::Truncated ? field.high : field.low);
        add("far below an int", -1e300, field.low);
        add("infinite", std::numeric_limits<double>::infinity(),
            field.reading == Reading::Truncated ? field.high : field.low);
        add("no number", std::numeric_limits<double>::quiet_NaN(), field.low);
        add("text", QString::number(middle), field.low);
        add("bool", true, field.low);
        add("null", QJsonValue(), field.low);
        add("array", QJsonArray{middle}, field.low);
        add("object", QJsonObject{{"value"_s, middle}}, field.low);
        add("missing", QJsonValue(QJsonValue::Undefined), field.low);
    }
}

void TestWeldSettingPage::numbersAreRead()
{
    QFETCH(int, row);
    QFETCH(QJsonValue, value);
    QFETCH(int, expected);
    PageOnHost t;
    t.page.loadConfig(with(Fields[row].key, value)); // an undefined value removes the key
    QCOMPARE(t.value(Fields[row].name), expected);
    for (const Field& other : Fields) {
        if (&other != &Fields[row])
            QCOMPARE(t.value(other.name), (other.low + other.high) / 2);
    }
}

void TestWeldSettingPage::switchesAreRead_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<bool>("expected");
    const char* const switches[][2] = {{"laser_main_enable", "pushButton_main_enable"},
                                       {"feeder_enable", "pushButton_Feeder"}};
    for (const auto& [key, name] : switches) {
        const auto add = [&, key = key, name = name](const char* what, const QJsonValue& value,
                                                     bool expected) {
            QTest::addRow("%s: %s", key, what) << text(key) << text(name) << value << expected;
        };
        add("true", true, true);
        add("false", false, false);
        add("number", 1, false);
        add("text", "true"_s, false);
        add("null", QJsonValue(), false);
        add("array", QJsonArray{true}, false);
        add("object", QJsonObject(), false);
        add("missing", QJsonValue(QJsonValue::Undefined), false);
    }
}

void TestWeldSettingPage::switchesAreRead()
{
    QFETCH(QString, key);
    QFETCH(QString, name);
    QFETCH(QJsonValue, value);
    QFETCH(bool, expected);
    PageOnHost t;
    auto* button = t.page.findChild<EnableButton*>(name);
    button->setChecked(!expected);
    const QSignalSpy pressed(button, &EnableButton::enabled);
    t.page.loadConfig(with(key.toLatin1().constData(), value));
    QCOMPARE(button->isChecked(), expected);
    QCOMPARE(pressed.count(), 0);
    QVERIFY(t.host.calls.isEmpty());
}

void TestWeldSettingPage::nothingButAnObjectIsLoaded_data()
{
    QTest::addColumn<QJsonValue>("config");
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("bool") << QJsonValue(true);
    QTest::newRow("number") << QJsonValue(17);
    QTest::newRow("text") << QJsonValue("{}"_s);
    QTest::newRow("array") << QJsonValue(QJsonArray{record()});
}

void TestWeldSettingPage::nothingButAnObjectIsLoaded()
{
    QFETCH(QJsonValue, config);
    PageOnHost t;
    t.mainSwitch()->setChecked(true);
    t.page.loadConfig(config);
    for (const Field& field : Fields)
        QCOMPARE(t.value(field.name), field.preset);
    QVERIFY(t.page.isMainEnabled());
    QVERIFY(!child<EnableButton>(&t.page, "pushButton_Retraction")->isChecked());
}

void TestWeldSettingPage::emptyRecordReadsAsLeast()
{
    PageOnHost t;
    t.mainSwitch()->setChecked(true);
    t.page.loadConfig(QJsonObject());
    for (const Field& field : Fields)
        QCOMPARE(t.value(field.name), field.low);
    QVERIFY(!t.page.isMainEnabled());
}

void TestWeldSettingPage::loadSetsWhatTheRecordDoesNotHold()
{
    PageOnHost t;
    auto* laser = child<QComboBox>(&t.page, "comboBox_laser_comm_type");
    auto* feeder = child<QComboBox>(&t.page, "comboBox_wire_feeder_comm_type");
    auto* feeding = child<QComboBox>(&t.page, "comboBox_wire_feed_type");
    laser->setCurrentIndex(1);
    feeder->setCurrentIndex(2);
    feeding->setCurrentIndex(1);
    t.page.loadConfig(record());
    QCOMPARE(laser->currentIndex(), 0);
    QCOMPARE(feeder->currentIndex(), 0);
    QCOMPARE(feeding->currentIndex(), 1);
    QVERIFY(child<EnableButton>(&t.page, "pushButton_Retraction")->isChecked());
    QVERIFY(!child<EnableButton>(&t.page, "pushButton_WireSticking")->isChecked());
}

void TestWeldSettingPage::saveCommandHoldsTheForm()
{
    PageOnHost t;
    t.mainSwitch()->setChecked(true);
    child<QComboBox>(&t.page, "comboBox_laser_comm_type")->setCurrentIndex(1);
    child<QComboBox>(&t.page, "comboBox_wire_feeder_comm_type")->setCurrentIndex(2);
    QJsonObject expected{{"laser_main_enable"_s, true},
                         {"feeder_enable"_s, false},
                         {"laser_comm_type"_s, 0},
                         {"wire_feeder_comm_type"_s, 0}};
    int number = 101;
    for (const Field& field : Fields) {
        t.setValue(field.name, number);
        expected.insert(text(field.key), qBound(field.low, number, field.high));
        ++number;
    }
    QCOMPARE(expected.size(), 18);
    QCOMPARE(t.page.toSaveCommand(), (QJsonObject{{SaveCommand, expected}}));
}

void TestWeldSettingPage::loadedRecordIsSavedAgain()
{
    PageOnHost t;
    t.page.loadConfig(record());
    const QJsonObject expected = with("wire_feeder_comm_type", 0, with("laser_comm_type", 0));
    QCOMPARE(t.page.toSaveCommand().value(SaveCommand).toObject(), expected);
}

void TestWeldSettingPage::showAsksTheHostInOrder()
{
    PageOnHost t;
    for (int show = 0; show < 2; ++show) {
        t.host.forgetCalls();
        t.page.show();
        const QStringList expected{"getIOByType"_s, "getIOByType"_s, "getQelServiceData"_s,
                                   "getUserOperateLevel"_s, "getNodeData"_s};
        QCOMPARE(t.host.callNames(), expected);
        QCOMPARE(t.host.calls.at(0).arguments, QJsonArray{"DO"_s});
        QCOMPARE(t.host.calls.at(1).arguments, QJsonArray{"DI"_s});
        QCOMPARE(t.host.calls.at(2).arguments, QJsonArray{ConfigKey});
        QVERIFY(t.host.messages.isEmpty());
        t.page.hide();
    }
}

void TestWeldSettingPage::showFillsThePorts()
{
    PageOnHost t;
    auto* outputs = child<QComboBox>(&t.page, "comboBox_detection_do");
    auto* inputs = child<QComboBox>(&t.page, "comboBox_feedback_di");
    const QStringList lists[][2] = {
        {{"DO10"_s, "DO2"_s, "DO1"_s}, {""_s, "DO1"_s, "DO2"_s, "DO10"_s}},
        {{"DO10"_s, "DO2"_s, "DO1"_s}, {""_s, "DO1"_s, "DO2"_s, "DO10"_s}}, // the same again
        {{"DO3"_s, "DO1"_s}, {""_s, "DO1"_s, "DO3"_s}},
        {{}, {""_s}},
    };
    for (const auto& [ports, items] : lists) {
        t.host.portNames.insert("DO"_s, ports);
        t.host.portNames.insert("DI"_s, QStringList(ports).replaceInStrings("DO"_s, "DI"_s));
        t.page.show();
        QCOMPARE(itemTexts(outputs), items);
        QCOMPARE(itemTexts(inputs), QStringList(items).replaceInStrings("DO"_s, "DI"_s));
        QVERIFY(!outputs->itemData(0).isValid());
        QCOMPARE(outputs->currentIndex(), 0);
        QCOMPARE(inputs->currentIndex(), 0);
        outputs->setCurrentIndex(outputs->count() - 1);
        t.page.hide();
    }
}

void TestWeldSettingPage::showReloads()
{
    PageOnHost t;
    t.page.show();
    QCOMPARE(t.value("spinBox_laser_power"), 4999);
    t.setValue("spinBox_laser_power", 17);
    t.page.hide();
    t.page.show();
    QCOMPARE(t.value("spinBox_laser_power"), 4999);
    t.page.hide();
    t.host.service.insert(ConfigKey, with("laser_power", 2500.7));
    t.page.show();
    QCOMPARE(t.value("spinBox_laser_power"), 2500);
}

void TestWeldSettingPage::showLocksByMainSwitch_data()
{
    QTest::addColumn<bool>("isOn");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestWeldSettingPage::showLocksByMainSwitch()
{
    QFETCH(bool, isOn);
    PageOnHost t;
    t.host.service.insert(ConfigKey, with("laser_main_enable", isOn));
    t.page.show();
    QCOMPARE(t.page.isMainEnabled(), isOn);
    QCOMPARE(t.isLocked(), isOn);
    QCOMPARE(t.isEditable(), !isOn);
    QVERIFY(t.mainSwitch()->isEnabled());
    // The lock goes with the record.
    t.page.hide();
    t.host.service.insert(ConfigKey, with("laser_main_enable", !isOn));
    t.page.show();
    QCOMPARE(t.isEditable(), isOn);
}

void TestWeldSettingPage::showEnablesByLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("expected");
    QTest::newRow("0") << 0 << false;
    QTest::newRow("2") << 2 << false;
    QTest::newRow("3") << 3 << true;
    QTest::newRow("4") << 4 << true;
}

void TestWeldSettingPage::showEnablesByLevel()
{
    QFETCH(int, level);
    QFETCH(bool, expected);
    PageOnHost t;
    t.host.level = level;
    t.page.show();
    QCOMPARE(t.page.isEnabled(), expected);
    QCOMPARE(t.mainSwitch()->isEnabled(), expected);
    QCOMPARE(child<QWidget>(&t.page, "spinBox_laser_power")->isEnabled(), expected);
    QCOMPARE(t.value("spinBox_laser_power"), 4999);
    QVERIFY(t.isEditable()); // the level acts on the page as a whole
    t.page.hide();
    t.host.level = 3;
    t.page.show();
    QVERIFY(t.page.isEnabled());
}

void TestWeldSettingPage::showEnablesFeederFields_data()
{
    showLocksByMainSwitch_data();
}

void TestWeldSettingPage::showEnablesFeederFields()
{
    QFETCH(bool, isOn);
    PageOnHost t;
    t.page.setFeederPlanStatus(!isOn);
    t.host.service.insert(ConfigKey, with("feeder_enable", isOn));
    t.page.show();
    for (const char* name : FeederFields)
        QCOMPARE(t.isEnabled(name), isOn);
}

void TestWeldSettingPage::showFreesRestartFields()
{
    PageOnHost t;
    t.page.setRetractionPlanStatus(false);
    t.page.show();
    for (const char* name : RestartFields)
        QVERIFY(t.isEnabled(name));
}

void TestWeldSettingPage::timesAreValidated_data()
{
    QTest::addColumn<int>("detected");
    QTest::addColumn<int>("checked");
    QTest::addColumn<bool>("expected");
    QTest::newRow("later") << 201 << 200 << true;
    QTest::newRow("equal") << 200 << 200 << true;
    QTest::newRow("earlier") << 199 << 200 << false;
    QTest::newRow("both none") << 0 << 0 << true;
    QTest::newRow("far") << 0 << 500 << false;
}

void TestWeldSettingPage::timesAreValidated()
{
    QFETCH(int, detected);
    QFETCH(int, checked);
    QFETCH(bool, expected);
    PageOnHost t;
    t.setValue("spinBox_feedback_delay", detected);
    t.setValue("spinBox_laser_check_out_time", checked);
    QCOMPARE(t.page.validateTimes(), expected);
    QCOMPARE(t.host.messageTexts(), expected ? QStringList() : QStringList{TooEarly});
}

void TestWeldSettingPage::saveReportsReply_data()
{
    QTest::addColumn<QJsonArray>("reply");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QStringList>("log");
    const QString failed =
        "WeldSettingPage::checkSaveResult failed. %1set_weld_setting_config Result%2"_s;
    const QStringList notFound{failed.arg("not found "_s, QString())};
    const auto add = [&](const char* what, const QJsonValue& result, const QStringList& messages,
                         const QStringList& log) {
        QTest::newRow(what) << ScriptedHost::reply(SaveCommand, result) << messages << log;
    };
    add("stored", 0, {Saved}, {});
    add("text of 0", "0"_s, {Saved}, {});
    add("text of 7", "7"_s, {Saved}, {}); // no text is a number here
    add("bool", true, {Saved}, {});
    add("refused", 7, {NotSaved}, {failed.arg(QString(), ":7"_s)});
    add("negative", -1, {NotSaved}, {failed.arg(QString(), ":-1"_s)});
    QTest::newRow("nothing") << QJsonArray() << QStringList() << notFound;
    QTest::newRow("another plugin")
        << ScriptedHost::reply(SaveCommand, 0, "qelOther"_s) << QStringList() << notFound;
    QTest::newRow("another command")
        << ScriptedHost::reply("set_weld_io_config"_s, 0) << QStringList() << notFound;
    QTest::newRow("no objects") << QJsonArray{1, "x"_s, QJsonArray()} << QStringList() << notFound;
    QJsonArray second = ScriptedHost::reply(SaveCommand, 0, "qelOther"_s);
    second.append(ScriptedHost::reply(SaveCommand, 5).first());
    QTest::newRow("second element")
        << second << QStringList{NotSaved} << QStringList{failed.arg(QString(), ":5"_s)};
}

void TestWeldSettingPage::saveReportsReply()
{
    QFETCH(QJsonArray, reply);
    QFETCH(QStringList, messages);
    QFETCH(QStringList, log);
    PageOnHost t;
    t.host.replies.insert(SaveCommand, reply);
    t.show();
    t.setValue("spinBox_laser_power", 17);
    t.press("pushButton_save");
    QCOMPARE(t.host.messageTexts(), messages);
    // How the items of a line are parted is the log stream's affair.
    QStringList lines = LogFolder::texts();
    for (QStringList* each : {&lines, &log})
        each->replaceInStrings(" "_s, QString());
    QCOMPARE(lines, log);
    QCOMPARE(t.value("spinBox_laser_power"), 17);
    QVERIFY(t.isEditable());
}

void TestWeldSettingPage::saveSendsTheRecordOnce()
{
    PageOnHost t;
    t.show();
    t.press("pushButton_save");
    QCOMPARE(t.host.callNames(), (QStringList{"commandCustomData"_s, "ThrowLog"_s}));
    const ScriptedHost::Command& command = t.host.commands.first();
    QCOMPARE(command.sender, &t.page);
    QCOMPARE(command.plugin, "qelLaserWelding"_s);
    QCOMPARE(command.data, t.page.toSaveCommand());
    QVERIFY(!command.isText);
}

void TestWeldSettingPage::saveStopsAtTheTimes()
{
    PageOnHost t;
    t.show();
    t.setValue("spinBox_feedback_delay", 199);
    t.setValue("spinBox_laser_check_out_time", 200);
    t.press("pushButton_save");
    QVERIFY(t.host.commands.isEmpty());
    QCOMPARE(t.host.messageTexts(), QStringList{TooEarly});
}

void TestWeldSettingPage::cancelReloads()
{
    PageOnHost t;
    t.show();
    t.setValue("spinBox_laser_power", 17);
    t.press("pushButton_cancel");
    QCOMPARE(t.value("spinBox_laser_power"), 4999);
    QCOMPARE(t.host.callNames(), (QStringList{"getQelServiceData"_s, "ThrowLog"_s}));
    QCOMPARE(t.host.lastArguments("getQelServiceData"_s), QJsonArray{ConfigKey});
    QCOMPARE(t.host.messageTexts(), QStringList{"0: Cancel successful"_s});
}

void TestWeldSettingPage::lockedPageCannotSave()
{
    PageOnHost t;
    t.host.service.insert(ConfigKey, with("laser_main_enable", true));
    t.show();
    t.press("pushButton_save");
    t.press("pushButton_cancel");
    QVERIFY(t.host.calls.isEmpty());
}

void TestWeldSettingPage::startAndStop()
{
    PageOnHost t;
    t.show();
    const QSignalSpy announced(&t.page, &WeldSettingPage::setMainEnable);
    t.press("pushButton_main_enable");
    QCOMPARE(t.host.callNames(), (QStringList{"getRobotEleStatus"_s, "getQelServiceData"_s,
                                              "commandCustomData"_s, "commandCustomData"_s}));
    QCOMPARE(t.host.calls.at(1).arguments, QJsonArray{"weld_io_config"_s});
    QCOMPARE(t.host.calls.at(2).arguments,
             (QJsonArray{"qelLaserWelding"_s, EnableCommand, "TRUE"_s}));
    QCOMPARE(t.host.commands.at(0).sender, &t.page);
    QVERIFY(t.page.isMainEnabled());
    QVERIFY(t.isLocked());
    // The record that follows holds the switch and what the form shows.
    QCOMPARE(t.host.commands.at(1).data, t.page.toSaveCommand());
    QVERIFY(t.host.commands.at(1).data[SaveCommand]["laser_main_enable"_s].toBool());

    t.host.forgetCalls();
    t.press("pushButton_main_enable");
    QCOMPARE(t.host.callNames(), (QStringList{"getRobotEleStatus"_s, "commandCustomData"_s}));
    QCOMPARE(t.host.calls.at(1).arguments,
             (QJsonArray{"qelLaserWelding"_s, EnableCommand, "FALSE"_s}));
    QVERIFY(!t.page.isMainEnabled());
    QVERIFY(t.isEditable());
    QVERIFY(t.host.messages.isEmpty());
    QCOMPARE(announced.count(), 0);
}

void TestWeldSettingPage::stopReadsNoReply()
{
    PageOnHost t;
    t.host.service.insert(ConfigKey, with("laser_main_enable", true));
    t.host.replies.insert(EnableCommand, ScriptedHost::reply(EnableCommand, false));
    t.show();
    t.press("pushButton_main_enable");
    QVERIFY(!t.page.isMainEnabled());
    QVERIFY(t.isEditable());
    QVERIFY(t.host.messages.isEmpty());
    QVERIFY(LogFolder::texts().isEmpty());
}

void TestWeldSettingPage::poweredRobotRefuses_data()
{
    showLocksByMainSwitch_data();
}

void TestWeldSettingPage::poweredRobotRefuses()
{
    QFETCH(bool, isOn);
    PageOnHost t;
    t.host.powered = true;
    t.host.service.insert(ConfigKey, with("laser_main_enable", !isOn));
    t.show();
    t.press("pushButton_main_enable");
    QCOMPARE(t.page.isMainEnabled(), !isOn);
    QCOMPARE(t.isLocked(), !isOn);
    QCOMPARE(t.host.callNames(), (QStringList{"getRobotEleStatus"_s, "ThrowLog"_s}));
    QCOMPARE(t.host.messageTexts(), QStringList{Powered});
}

void TestWeldSettingPage::startStopsAtTheTimes()
{
    PageOnHost t;
    t.show();
    t.setValue("spinBox_feedback_delay", 0);
    t.press("pushButton_main_enable");
    QCOMPARE(t.host.callNames(), (QStringList{"getRobotEleStatus"_s, "ThrowLog"_s}));
    QCOMPARE(t.host.messageTexts(), QStringList{TooEarly});
    QVERIFY(!t.page.isMainEnabled());
    QVERIFY(t.isEditable());
}

void TestWeldSettingPage::startNeedsAcceptance_data()
{
    QTest::addColumn<QJsonArray>("reply");
    QTest::addColumn<bool>("starts");
    const auto add = [](const char* what, const QJsonValue& result, bool starts) {
        QTest::newRow(what) << ScriptedHost::reply(EnableCommand, result) << starts;
    };
    add("true", true, true);
    add("false", false, false);
    add("1", 1, false);
    add("0", 0, false);
    add("text", "true"_s, false);
    add("null", QJsonValue(), false);
    QTest::newRow("nothing") << QJsonArray() << false;
    QTest::newRow("another plugin")
        << ScriptedHost::reply(EnableCommand, true, "qelOther"_s) << false;
    QTest::newRow("another command") << ScriptedHost::reply(SaveCommand, true) << false;
    QTest::newRow("no object") << QJsonArray{true} << false;
    QJsonArray second{QJsonObject()};
    second.append(ScriptedHost::reply(EnableCommand, true).first());
    QTest::newRow("second element") << second << false;
}

void TestWeldSettingPage::startNeedsAcceptance()
{
    QFETCH(QJsonArray, reply);
    QFETCH(bool, starts);
    PageOnHost t;
    t.host.replies.insert(EnableCommand, reply);
    t.show();
    t.press("pushButton_main_enable");
    QCOMPARE(t.page.isMainEnabled(), starts);
    QCOMPARE(t.isLocked(), starts);
    QCOMPARE(t.host.commands.size(), starts ? 2 : 1);
    QCOMPARE(t.host.messageTexts(), starts ? QStringList() : QStringList{NotStarted});
}

void TestWeldSettingPage::startByCallAlone()
{
    // The reply to the record that follows a start is not read, whatever it says.
    PageOnHost t;
    t.host.replies.insert(SaveCommand, ScriptedHost::reply(SaveCommand, 5));
    t.show();
    QVERIFY(QMetaObject::invokeMethod(&t.page, "onSwitchMain", Q_ARG(bool, true)));
    QVERIFY(t.page.isMainEnabled());
    QVERIFY(t.host.commands.at(1).data[SaveCommand]["laser_main_enable"_s].toBool());
    QVERIFY(t.host.messages.isEmpty());
    QVERIFY(LogFolder::texts().isEmpty());
}

void TestWeldSettingPage::switchPauses()
{
    PageOnHost t;
    t.show();
    qint64 beforeCommand = 0;
    QElapsedTimer clock;
    t.host.onCommand = [&](const ScriptedHost::Command& command) {
        if (command.isText)
            beforeCommand = clock.elapsed();
    };
    clock.start();
    t.page.onSwitchMain(true);
    QVERIFY(beforeCommand >= 300);
    QVERIFY(clock.elapsed() - beforeCommand >= 300);
}

void TestWeldSettingPage::stoppedSwitchComesBackFromTheRecord()
{
    PageOnHost t;
    t.host.service.insert(ConfigKey, with("laser_main_enable", true));
    t.show();
    t.press("pushButton_main_enable");
    QVERIFY(!t.page.isMainEnabled());
    t.page.hide();
    t.page.show();
    QVERIFY(t.page.isMainEnabled());
    QVERIFY(t.isLocked());
}

void TestWeldSettingPage::planSlots_data()
{
    QTest::addColumn<QStringList>("fields");
    QStringList restart;
    for (const char* name : RestartFields)
        restart << text(name);
    QStringList feeder;
    for (const char* name : FeederFields)
        feeder << text(name);
    QTest::newRow("setRetractionPlanStatus") << restart;
    QTest::newRow("setFeederPlanStatus") << feeder;
    QTest::newRow("setWireStickingPlanStatus")
        << QStringList{"comboBox_detection_do"_s, "comboBox_feedback_di"_s};
}

void TestWeldSettingPage::planSlots()
{
    QFETCH(QStringList, fields);
    PageOnHost t;
    for (const bool isOn : {false, true}) {
        QVERIFY(QMetaObject::invokeMethod(&t.page, QTest::currentDataTag(), Q_ARG(bool, isOn)));
        QStringList changed;
        for (const QString& name : fields) {
            if (t.isEnabled(name.toLatin1().constData()) == isOn)
                changed << name;
        }
        QCOMPARE(changed, fields);
        QVERIFY(t.isEnabled("spinBox_laser_power"));
    }
}

void TestWeldSettingPage::wireStickingKeepsItsTime()
{
    PageOnHost t;
    for (const bool isOn : {false, true}) {
        child<QWidget>(&t.page, "spinBox_detection_time")->setEnabled(false);
        t.page.setWireStickingPlanStatus(isOn);
        QVERIFY(t.isEnabled("spinBox_detection_time"));
    }
}

void TestWeldSettingPage::switchesDriveTheirFields_data()
{
    QTest::addColumn<QString>("field");
    QTest::newRow("pushButton_Retraction") << "doubleSpinBox_retraction_speed";
    QTest::newRow("pushButton_Feeder") << "doubleSpinBox_max_feed_speed";
}

void TestWeldSettingPage::switchesDriveTheirFields()
{
    QFETCH(QString, field);
    PageOnHost t;
    t.show();
    auto* button = child<EnableButton>(&t.page, QTest::currentDataTag());
    for (int press = 0; press < 2; ++press) {
        const bool isOn = !button->isChecked();
        t.press(QTest::currentDataTag());
        QCOMPARE(button->isChecked(), isOn);
        QCOMPARE(t.isEnabled(field.toLatin1().constData()), isOn);
    }
    QVERIFY(t.host.calls.isEmpty());
}

void TestWeldSettingPage::diagnosis()
{
    PageOnHost t;
    t.host.replies.insert(SaveCommand, ScriptedHost::reply(SaveCommand, 5));
    QVERIFY(QMetaObject::invokeMethod(&t.page, "buttontest"));
    QCOMPARE(t.host.count("getRegisterHash"_s), 1);
    QCOMPARE(t.host.commands.size(), 1);
    QCOMPARE(t.host.commands.first().data, t.page.toSaveCommand());
    QCOMPARE(t.host.messageTexts(), QStringList{"1: 123123"_s});
    QVERIFY(LogFolder::texts().isEmpty());
}

void TestWeldSettingPage::stylesAreSet()
{
    PageOnHost t;
    t.page.applyPageStyle();
    QVERIFY(t.page.styleSheet().contains("QPushButton{background:#224d75"_s));
    QFrame frame;
    for (const char* name :
         {"frame_5", "frame", "frame_2", "frame_3", "frame_4", "frame_WireSticking"})
        QVERIFY(child<QFrame>(&t.page, name)
                    ->styleSheet()
                    .startsWith("QFrame{border:1px solid #c8c8c8"_s));
    for (const QComboBox* box : all<QComboBox>(t.page))
        QCOMPARE(box->maxVisibleItems(), 10);
    // A style that is set again changes nothing.
    EventCount restyled(QEvent::StyleChange);
    t.page.applyPageStyle();
    QCOMPARE(restyled.count, 0);
}

void TestWeldSettingPage::switchesAreSized_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<QSize>("size"); // on a screen of 96 dpi
    QTest::newRow("1") << 1.0 << QSize(45, 24);
    QTest::newRow("0.75") << 0.75 << QSize(44, 18);
    QTest::newRow("2") << 2.0 << QSize(91, 48);
}

void TestWeldSettingPage::switchesAreSized()
{
    QFETCH(double, zoom);
    QFETCH(QSize, size);
    PageOnHost t;
    t.host.nodes.insert(QStringLiteral("qeltheme.fontzoom"), zoom);
    if (UiScale::screenScale(&t.page) != 1.0) {
        size.setHeight(UiScale::scaledPixels(24, &t.page));
        size.setWidth(qMax(int(size.height() * 1.9), 44));
    }
    for (int show = 0; show < 2; ++show) {
        t.page.applyPageStyle();
        t.page.resize(900, 800);
        t.page.show();
        QTRY_COMPARE(t.mainSwitch()->size(), size.expandedTo(QSize(50, 24)));
        QTRY_COMPARE(child<QWidget>(&t.page, "pushButton_Feeder")->size(), size);
        for (const EnableButton* each : all<EnableButton>(t.page))
            QCOMPARE(each->maximumSize(), size);
        t.page.hide();
    }
}

void TestWeldSettingPage::labelsAndFieldsArePolished()
{
    PageOnHost t;
    t.page.applyPageStyle();
    t.page.show();
    for (const QLabel* label : all<QLabel>(t.page)) {
        const bool isUnit = label->objectName().endsWith("_unit"_s);
        QCOMPARE(label->wordWrap(), !isUnit);
        QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(label->minimumWidth(), isUnit ? 40 : 0);
        if (isUnit)
            continue;
        QCOMPARE(label->minimumHeight(), 0);
        QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    }
    const QFont font = UiScale::font(10, &t.page);
    const int height = qMax(QFontMetrics(font).height() + 4, 22);
    for (const Field& field : Fields) {
        auto* box = child<QSpinBox>(&t.page, field.name);
        QCOMPARE(box->minimumWidth(), 120);
        QCOMPARE(box->maximumWidth(), 120);
        QCOMPARE(box->width(), 120);
        QCOMPARE(box->minimumHeight(), height);
        QCOMPARE(box->font().family(), font.family());
        QCOMPARE(box->font().pointSize(), font.pointSize());
    }
}

// And stands them beside each other again.
void TestWeldSettingPage::narrowPageStacksItsColumns()
{
    QWidget window; // a page that is a window is never narrower than its columns
    PageOnHost t;
    t.page.setParent(&window);
    window.resize(900, 800);
    t.page.applyPageStyle();
    auto* left = child<QWidget>(&t.page, "widget_3");
    auto* right = child<QWidget>(&t.page, "widget_2");
    t.page.resize(900, 800);
    window.show();
    t.page.show();
    QTRY_VERIFY(left->geometry().right() < right->x());
    t.page.resize(380, 800);
    QTRY_VERIFY(left->geometry().bottom() < right->y());
    QVERIFY(left->minimumSizeHint().width() <= left->width());
    QVERIFY(right->minimumSizeHint().width() <= right->width());
    t.page.resize(900, 800);
    QTRY_VERIFY(left->geometry().right() < right->x());
    QCOMPARE(left->y(), right->y());
}

void TestWeldSettingPage::layoutIsRelaxed()
{
    PageOnHost t; // the constructor relaxes
    QCOMPARE(t.page.minimumSize(), QSize(0, 0));
    QCOMPARE(t.page.maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    QCOMPARE(t.page.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    auto* grid = qobject_cast<QGridLayout*>(t.page.layout());
    QCOMPARE(grid->alignment(), Qt::AlignTop);
    for (const int index : {0, 1}) {
        QCOMPARE(grid->rowStretch(index), 0);
        QCOMPARE(grid->columnStretch(index), 1);
    }
    const QSizePolicy content(QSizePolicy::Expanding, QSizePolicy::Minimum);
    for (const char* name : {"widget_2", "widget_3"}) {
        auto* column = child<QWidget>(&t.page, name);
        QCOMPARE(column->sizePolicy(), content);
        auto* layout = qobject_cast<QBoxLayout*>(column->layout());
        QCOMPARE(layout->alignment(), Qt::AlignTop);
        for (int index = 0; index < layout->count(); ++index)
            QCOMPARE(layout->stretch(index), 0);
    }
    for (const char* name : ConfigFrames) {
        auto* frame = child<QFrame>(&t.page, name);
        QCOMPARE(frame->sizePolicy(), content);
        QCOMPARE(frame->minimumSize(), QSize(0, 0));
    }
    auto* header = child<QFrame>(&t.page, "frame_5");
    QCOMPARE(header->sizePolicy(), content);
    QVERIFY(header->minimumHeight() >= 32);
    QCOMPARE(header->layout()->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QVERIFY(t.mainSwitch()->minimumWidth() >= 50);
    int spacers = 0;
    for (const QLayout* layout : all<QLayout>(t.page)) {
        if (const auto* box = qobject_cast<const QBoxLayout*>(layout))
            QCOMPARE(box->spacing(), 4);
        if (const auto* each = qobject_cast<const QGridLayout*>(layout)) {
            QCOMPARE(each->verticalSpacing(), 6);
            QCOMPARE(each->horizontalSpacing(), 4);
        }
        for (int index = 0; index < layout->count(); ++index) {
            const QSpacerItem* spacer = layout->itemAt(index)->spacerItem();
            if (!spacer)
                continue;
            ++spacers;
            QCOMPARE(spacer->sizeHint(), QSize(0, 20));
            QCOMPARE(spacer->sizePolicy(), content);
        }
    }
    QCOMPARE(spacers, 2);
}

void TestWeldSettingPage::nothingIsCutOff_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("roomy") << QSize(1000, 900);
    QTest::newRow("usual") << QSize(800, 700);
    QTest::newRow("narrow, the captions wrap") << QSize(560, 900);
}

void TestWeldSettingPage::nothingIsCutOff()
{
    QFETCH(QSize, size);
    PageOnHost t;
    t.page.applyPageStyle();
    t.page.resize(size);
    t.page.show();
    QCoreApplication::processEvents();
    for (const QLabel* label : all<QLabel>(t.page)) {
        if (label->isHidden())
            continue;
        const QString name = label->objectName();
        if (label->wordWrap())
            QVERIFY2(label->height() >= label->heightForWidth(label->width()), qPrintable(name));
        else
            QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(name));
    }
    // The fields stand in line, and no row is left for what is hidden.
    QSet<int> left;
    for (const char* name :
         {"spinBox_laser_power", "spinBox_pre_gas_time", "doubleSpinBox_retraction_speed"})
        left.insert(child<QWidget>(&t.page, name)->mapTo(&t.page, QPoint()).x());
    QCOMPARE(left.size(), 1);
    auto* first = child<QWidget>(&t.page, "label");
    auto* power = child<QWidget>(&t.page, "spinBox_laser_power");
    QVERIFY(power->y() - (first->y() + first->height()) <= 16);
    // The frames keep to the top.
    auto* wires = child<QWidget>(&t.page, "frame_WireSticking");
    auto* feeder = child<QWidget>(&t.page, "frame_2");
    QCOMPARE(wires->y(), feeder->y() + feeder->height() + 4);
    QCOMPARE(feeder->y(), 0);
}

void TestWeldSettingPage::secondShowChangesNothing()
{
    PageOnHost t;
    t.host.service.insert(ConfigKey, with("feeder_enable", false)); // nothing slides
    t.host.level = 2;                                               // no field has a cursor
    t.page.applyPageStyle();
    t.page.resize(800, 700);
    t.page.show();
    QCoreApplication::processEvents();
    const QImage before = t.page.grab().toImage();
    t.page.hide();
    EventCount restyled(QEvent::StyleChange);
    EventCount polished(QEvent::Polish);
    EventCount refonted(QEvent::FontChange);
    EventCount resized(QEvent::Resize);
    t.page.show();
    QCoreApplication::processEvents();
    QCOMPARE(restyled.count, 0);
    QCOMPARE(polished.count, 0);
    QCOMPARE(refonted.count, 0);
    QCOMPARE(resized.count, 0);
    QCOMPARE(t.page.grab().toImage(), before);
}

void TestWeldSettingPage::goesWhileASwitchSlides()
{
    ScriptedHost host;
    host.service.insert(ConfigKey, with("feeder_enable", true));
    const LogFolder folder;
    auto page = std::make_unique<WeldSettingPage>(nullptr);
    page->show();
    QTest::mouseClick(child<QWidget>(page.get(), "pushButton_Feeder"), Qt::LeftButton);
    page.reset();
    QCoreApplication::processEvents();
}

LASERWELD_TEST_MAIN(TestWeldSettingPage)
#include "tst_weldsettingpage.moc"
