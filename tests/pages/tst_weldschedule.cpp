#include "ScheduleTest.h"

#include <QGridLayout>
#include <QJsonDocument>

using namespace ScheduleTest;

namespace {

QList<const char*> retractionRows()
{
    return {"label_86", "doubleSpinBox_wire_retract_end", "label_87",
            "spinBox_wire_retract_time_end"};
}
QList<const char*> fillRows()
{
    return {"label_89", "spinBox_fill_delay_time_end",
            "label_90", "doubleSpinBox_fill_wire_speed_end",
            "label_91", "spinBox_fill_wire_time_end"};
}
QList<const char*> wireRows()
{
    return {"label_75",
            "doubleSpinBox_feeding_speed_start",
            "comboBox_wire_mode_start",
            "label_76",
            "spinBox_wire_feed_time_start",
            "label_81",
            "doubleSpinBox_wire_speed_end",
            "comboBox_wire_mode_end",
            "label_82",
            "spinBox_wire_feed_time_end",
            "label_85",
            "pushButton_wire_stick_enable_end",
            "frame_19"};
}
QList<const char*> jobRow()
{
    return {"label_process_job", "spinBox_process_job"};
}
// Whatever the switches are.
QList<const char*> alwaysShown()
{
    return {"label_59",
            "pushButton_wire_feed_enable_start",
            "label_80",
            "pushButton_wire_feed_enable_end",
            "frame_wire_stick_row",
            "doubleSpinBox_feeding_speed_run",
            "comboBox_laser_off_mode",
            "comboBox_work_mode",
            "spinBox_swing_job",
            "spinBox_ramp_value_start",
            "label_73",
            "spinBox_ramp_value_end",
            "label_74"};
}
QList<const char*> neverShown()
{
    return {"label_2",  "comboBox_modetype",     "label_8", "comboBox_ramp_mode_start",
            "label_20", "comboBox_ramp_mode_end"};
}

/// The five switches, told by the rules and not by the page.
struct State
{
    explicit State(int bits)
    {
        for (int index = 0; index < SwitchCount; ++index)
            on[index] = (bits >> index & 1) != 0;
    }
    // The end's switch of the feed decides, and what needs wire goes off with it.
    void settle()
    {
        on[FeedStart] = on[FeedEnd];
        for (const int index : {Stick, Retraction, Compensation})
            on[index] = on[index] && on[FeedEnd];
    }
    void press(int index)
    {
        on[index] = !on[index];
        if (index == FeedStart)
            on[FeedEnd] = on[FeedStart];
        if (index == Retraction && !on[Retraction])
            on[Compensation] = false;
        settle();
    }
    bool operator==(const State& other) const
    {
        return std::equal(std::begin(on), std::end(on), std::begin(other.on));
    }
    QJsonObject record() const
    {
        QJsonObject values = fullRecord();
        for (int index = 0; index < SwitchCount; ++index)
            values.insert(text(Switches[index].key), on[index]);
        return values;
    }
    bool on[SwitchCount];
};

QVector<QJsonValue> valuesOfEachType()
{
    return {QJsonValue(QJsonValue::Undefined),
            QJsonValue(QJsonValue::Null),
            true,
            false,
            "12"_s,
            QString(),
            QJsonArray{3},
            QJsonObject{{"a"_s, 3}},
            0,
            1,
            2,
            42,
            1.5,
            -1,
            -40000,
            10000,
            150,
            2147483647,
            -2147483647 - 1,
            3e9,
            -1e300};
}

} // namespace

class TestWeldSchedule : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void choices_data();
    void choices();
    void switches_data();
    void switches();
    void resets_data();
    void resets();
    void eachNumberOfEachType_data();
    void eachNumberOfEachType();
    void eachChoiceOfEachType_data();
    void eachChoiceOfEachType();
    void eachSwitchOfEachType();
    void commentOfEachType();
    void recordOfEachType();
    void savedKeys();
    void recordComesBack();
    void laserOffMode_data();
    void laserOffMode();
    void workMode_data();
    void workMode();
    void rampIsOneOfTime();
    void rampRowsFollowTheMode();
    void jobsAreConfined_data();
    void jobsAreConfined();
    void hiddenJobIsSaved();
    void statesLoaded_data();
    void statesLoaded();
    void statesClicked_data();
    void statesClicked();
    void differingFeedsFollowTheEnd();
    void retractionWithoutFeedIsSavedOff();
    void compensationOutlivesLoadedRetraction();
    void unitsStay();
    void switchSetByCodeRunsNothing();
};

namespace {

void compareState(const PageOnHost& t, const State& state)
{
    const bool feeds = state.on[FeedEnd];
    const bool retracts = state.on[Retraction];
    for (int index = 0; index < SwitchCount; ++index) {
        QVERIFY2(t.toggle(index)->isChecked() == state.on[index], Switches[index].key);
        QCOMPARE(t.saved().value(text(Switches[index].key)), QJsonValue(state.on[index]));
    }
    QVERIFY(t.areShown(wireRows(), feeds));
    QVERIFY(t.areShown(retractionRows(), retracts));
    QVERIFY(t.areShown({"frame_20"}, retracts));
    QVERIFY(t.areShown(fillRows(), state.on[Compensation]));
    QVERIFY(t.areShown(alwaysShown(), true));
    QVERIFY(t.areShown(neverShown(), false));
}

template<typename Field, std::size_t size>
void addRows(const Field (&fields)[size])
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Field& each : fields)
        QTest::newRow(each.key) << index++;
}

/// The label at the place of the frame's grid.
QLabel* labelAt(const PageOnHost& t, const char* frame, int row, int column)
{
    auto* grid = qobject_cast<QGridLayout*>(t.find<QFrame>(frame)->layout());
    QLayoutItem* item = grid->itemAtPosition(row, column);
    return item ? qobject_cast<QLabel*>(item->widget()) : nullptr;
}

/// Whether the editor stands in column 1 of the row, alone or beside another.
bool standsIn(const PageOnHost& t, const char* frame, int row, QWidget* editor)
{
    auto* grid = qobject_cast<QGridLayout*>(t.find<QFrame>(frame)->layout());
    QLayoutItem* item = grid->itemAtPosition(row, 1);
    return item->widget() == editor || (item->layout() && item->layout()->indexOf(editor) >= 0);
}

} // namespace

void TestWeldSchedule::numbers_data()
{
    addRows(Numbers);
}

void TestWeldSchedule::numbers()
{
    QFETCH(int, index);
    const Number& field = Numbers[index];
    const PageOnHost t;
    QSpinBox* editor = t.number(field);
    QCOMPARE(editor->minimum(), field.low);
    QCOMPARE(editor->maximum(), field.high);
    QCOMPARE(editor->value(), field.form);
    QCOMPARE(editor->buttonSymbols(),
             field.unit ? QAbstractSpinBox::NoButtons : QAbstractSpinBox::UpDownArrows);
    QVERIFY(standsIn(t, field.frame, field.row, editor));
    QCOMPARE(labelAt(t, field.frame, field.row, 0)->text(), text(field.caption));
    const QLabel* unit = labelAt(t, field.frame, field.row, 2);
    QCOMPARE(unit != nullptr, field.unit != nullptr);
    if (unit) {
        QCOMPARE(unit->text(), text(field.unit));
        QCOMPARE(unit->property("type").toString(), "unit"_s);
    }
}

void TestWeldSchedule::choices_data()
{
    addRows(Choices);
}

void TestWeldSchedule::choices()
{
    QFETCH(int, index);
    const Choice& field = Choices[index];
    const PageOnHost t;
    QComboBox* box = t.choice(field);
    QStringList items;
    for (int item = 0; item < box->count(); ++item)
        items << box->itemText(item);
    QCOMPARE(items.join(QLatin1Char(',')), text(field.items));
    QCOMPARE(box->property("formCombo"), QVariant(true));
    QVERIFY(standsIn(t, field.frame, field.row, box));
    QCOMPARE(labelAt(t, field.frame, field.row, 0)->text(), text(field.caption));
}

void TestWeldSchedule::switches_data()
{
    addRows(Switches);
}

void TestWeldSchedule::switches()
{
    QFETCH(int, index);
    const PageOnHost t;
    const auto* frame = t.find<QFrame>(Switches[index].frame);
    QVERIFY(frame->isAncestorOf(t.toggle(index)));
    QVERIFY(!t.toggle(index)->isChecked());
    const auto labels = frame->findChildren<QLabel*>();
    const auto captions = std::count_if(labels.begin(), labels.end(), [index](const QLabel* each) {
        return each->text() == text(Switches[index].caption);
    });
    QCOMPARE(int(captions), 1);
}

void TestWeldSchedule::resets_data()
{
    QTest::addColumn<QJsonValue>("records");
    QTest::newRow("nothing on the controller") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("null") << QJsonValue(QJsonValue::Null);
    QTest::newRow("a text") << QJsonValue("LsData7"_s);
    QTest::newRow("a list") << QJsonValue(QJsonArray{fullRecord()});
    QTest::newRow("no record") << QJsonValue(QJsonObject());
    QTest::newRow("another record") << QJsonValue(QJsonObject{{"LsData70"_s, fullRecord()}});
}

void TestWeldSchedule::resets()
{
    QFETCH(QJsonValue, records);
    const PageOnHost t(records);
    t.scramble();
    t.open(7);
    for (const Number& each : Numbers)
        QVERIFY2(t.number(each)->value() == each.reset, each.key);
    for (const Choice& each : Choices)
        QVERIFY2(t.choice(each)->currentIndex() == each.reset, each.key);
    QCOMPARE(t.comment()->text(), QString());
    compareState(t, State(0));
    QVERIFY(t.areShown(jobRow(), false));
    QVERIFY(t.host.messages.isEmpty());
}

void TestWeldSchedule::eachNumberOfEachType_data()
{
    addRows(Numbers);
}

// What is no whole number reads as 0, and the editor takes the nearest of its range.
void TestWeldSchedule::eachNumberOfEachType()
{
    QFETCH(int, index);
    const Number& field = Numbers[index];
    PageOnHost t;
    const auto values = valuesOfEachType();
    for (const QJsonValue& value : values) {
        t.scramble();
        t.host.service.insert("weld_param_config"_s,
                              PageOnHost::seven(with(fullRecord(), field.key, value)));
        t.open(7);
        const int expected = std::clamp(value.toInt(), field.low, field.high);
        QCOMPARE(t.number(field)->value(), expected);
        QCOMPARE(t.saved(), with(fullRecord(), field.key, expected));
        t.click("pushButton_back");
    }
}

void TestWeldSchedule::eachChoiceOfEachType_data()
{
    addRows(Choices);
}

void TestWeldSchedule::eachChoiceOfEachType()
{
    QFETCH(int, index);
    const Choice& field = Choices[index];
    PageOnHost t;
    const auto values = valuesOfEachType();
    for (const QJsonValue& value : values) {
        t.scramble();
        t.host.service.insert("weld_param_config"_s,
                              PageOnHost::seven(with(fullRecord(), field.key, value)));
        t.open(7);
        int expected = value.toInt();
        if (field.reset == 2)
            expected = 2;
        else if (text(field.key) == "laser_off_mode"_s)
            expected = value.isUndefined() || expected != 0 ? 1 : 0;
        else if (text(field.key) == "work_mode"_s)
            expected = expected == 1 ? 1 : 0;
        else if (expected < 0 || expected > 1)
            expected = -1; // a box has no such entry
        QCOMPARE(t.choice(field)->currentIndex(), expected);
        QCOMPARE(t.saved(), with(fullRecord(), field.key, expected));
        t.click("pushButton_back");
    }
}

void TestWeldSchedule::eachSwitchOfEachType()
{
    PageOnHost t;
    const auto values = valuesOfEachType();
    for (const Switch& field : Switches) {
        for (const QJsonValue& value : values) {
            const QJsonObject record = with(fullRecord(), field.key, value);
            t.host.service.insert("weld_param_config"_s, PageOnHost::seven(record));
            t.open(7);
            State state(0);
            for (int index = 0; index < SwitchCount; ++index)
                state.on[index] = record.value(text(Switches[index].key)).toBool();
            state.settle();
            for (int index = 0; index < SwitchCount; ++index)
                QVERIFY2(t.toggle(index)->isChecked() == state.on[index], field.key);
            t.click("pushButton_back");
        }
    }
}

void TestWeldSchedule::commentOfEachType()
{
    PageOnHost t;
    const auto values = valuesOfEachType();
    for (const QJsonValue& value : values) {
        t.scramble();
        t.host.service.insert("weld_param_config"_s,
                              PageOnHost::seven(with(fullRecord(), "Tips", value)));
        t.open(7);
        QCOMPARE(t.comment()->text(), value.toString());
        QCOMPARE(t.saved().value("Tips"_s), QJsonValue(value.toString()));
        t.click("pushButton_back");
    }
}

// A record that is there and holds nothing is not one that was never saved.
void TestWeldSchedule::recordOfEachType()
{
    PageOnHost t;
    const auto values = valuesOfEachType();
    for (const QJsonValue& value : values) {
        if (value.isUndefined())
            continue;
        t.scramble();
        t.host.service.insert("weld_param_config"_s, PageOnHost::seven(value));
        t.open(7);
        for (const Number& each : Numbers)
            QVERIFY2(t.number(each)->value() == each.low, each.key);
        QCOMPARE(t.choice(Choices[4])->currentIndex(), 1); // of the laser's end
        QCOMPARE(t.choice(Choices[5])->currentIndex(), 0); // of the work
        compareState(t, State(0));
        t.click("pushButton_back");
    }
}

void TestWeldSchedule::savedKeys()
{
    const PageOnHost t;
    t.open(30);
    t.comment()->setText("last"_s);
    const QJsonObject body = t.page->createProcessDataJson();
    QCOMPARE(body.keys(), QStringList{"set_weld_param_list_config"_s});
    const QJsonObject all = body.value("set_weld_param_list_config"_s).toObject();
    QCOMPARE(all.keys(), QStringList{"LsData30"_s});
    const QJsonObject record = all.value("LsData30"_s).toObject();
    QCOMPARE(record.size(), 39);
    QCOMPARE(record.value("LsDataID"_s), QJsonValue("LsData30"_s));
    QCOMPARE(record.value("Tips"_s), QJsonValue("last"_s));
    for (const Number& each : Numbers)
        QVERIFY2(record.value(text(each.key)) == QJsonValue(each.reset), each.key);
    for (const Choice& each : Choices)
        QVERIFY2(record.value(text(each.key)) == QJsonValue(each.reset), each.key);
    for (const Switch& each : Switches)
        QVERIFY2(record.value(text(each.key)) == QJsonValue(false), each.key);
}

void TestWeldSchedule::recordComesBack()
{
    const PageOnHost t(PageOnHost::seven(fullRecord()));
    t.open(7);
    QCOMPARE(t.saved(), fullRecord());
    // Also what the operator sets.
    t.scramble();
    for (const Number& each : Numbers)
        QVERIFY2(t.saved().value(text(each.key)) == QJsonValue(t.number(each)->value()), each.key);
    QCOMPARE(t.saved().value("Tips"_s), QJsonValue("scrambled"_s));
}

void TestWeldSchedule::laserOffMode_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined) << "Delay"_s;
    QTest::newRow("0") << QJsonValue(0) << "Advance"_s;
    QTest::newRow("1") << QJsonValue(1) << "Delay"_s;
    QTest::newRow("2") << QJsonValue(2) << "Delay"_s;
    QTest::newRow("-1") << QJsonValue(-1) << "Delay"_s;
}

void TestWeldSchedule::laserOffMode()
{
    QFETCH(QJsonValue, value);
    QFETCH(QString, shown);
    const PageOnHost t(PageOnHost::seven(with(fullRecord(), "laser_off_mode", value)));
    t.open(7);
    QCOMPARE(t.find<QComboBox>("comboBox_laser_off_mode")->currentText(), shown);
}

void TestWeldSchedule::workMode_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<bool>("isJob");
    QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined) << false;
    QTest::newRow("0") << QJsonValue(0) << false;
    QTest::newRow("1") << QJsonValue(1) << true;
    QTest::newRow("2") << QJsonValue(2) << false;
    QTest::newRow("true") << QJsonValue(true) << false;
}

void TestWeldSchedule::workMode()
{
    QFETCH(QJsonValue, value);
    QFETCH(bool, isJob);
    const PageOnHost t(PageOnHost::seven(with(fullRecord(), "work_mode", value)));
    auto* mode = t.find<QComboBox>("comboBox_work_mode");
    mode->setCurrentIndex(isJob ? 0 : 1);
    t.open(7);
    QCOMPARE(mode->currentText(), isJob ? "JOB"_s : "Continuous"_s);
    QVERIFY(t.areShown(jobRow(), isJob));
    QVERIFY(t.isShown("spinBox_swing_job"));
    mode->setCurrentIndex(isJob ? 0 : 1);
    QVERIFY(t.areShown(jobRow(), !isJob));
    QVERIFY(t.isShown("spinBox_swing_job"));
}

void TestWeldSchedule::rampIsOneOfTime()
{
    QJsonObject record = with(fullRecord(), "ramp_mode_start", 1);
    const PageOnHost t(PageOnHost::seven(with(record, "ramp_mode_end", 0)));
    t.open(7);
    auto* start = t.find<QComboBox>("comboBox_ramp_mode_start");
    auto* end = t.find<QComboBox>("comboBox_ramp_mode_end");
    QCOMPARE(start->currentIndex(), 2);
    QCOMPARE(end->currentIndex(), 2);
    start->setCurrentIndex(0);
    end->setCurrentIndex(1);
    QCOMPARE(t.saved().value("ramp_mode_start"_s), QJsonValue(2));
    QCOMPARE(t.saved().value("ramp_mode_end"_s), QJsonValue(2));
}

void TestWeldSchedule::rampRowsFollowTheMode()
{
    const PageOnHost t(PageOnHost::seven(fullRecord()));
    t.open(7);
    auto* start = t.find<QComboBox>("comboBox_ramp_mode_start");
    auto* end = t.find<QComboBox>("comboBox_ramp_mode_end");
    start->setCurrentIndex(0);
    t.page->updateRampRows();
    QVERIFY(t.areShown({"spinBox_ramp_value_start", "label_73"}, false));
    QVERIFY(t.areShown({"spinBox_ramp_value_end", "label_74"}, true));
    start->setCurrentIndex(1);
    end->setCurrentIndex(0);
    t.page->updateRampRows();
    QVERIFY(t.areShown({"spinBox_ramp_value_start", "label_73"}, true));
    QVERIFY(t.areShown({"spinBox_ramp_value_end", "label_74"}, false));
    t.page->loadProcessData("LsData7"_s);
    QVERIFY(t.areShown({"spinBox_ramp_value_end", "label_74"}, true));
    start->setCurrentIndex(0);
    t.page->updateRampRows();
    t.page->resetProcessDefaults();
    QVERIFY(t.areShown({"spinBox_ramp_value_start", "label_73"}, true));
}

void TestWeldSchedule::jobsAreConfined_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<int>("shown");
    QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined) << 0;
    QTest::newRow("-1") << QJsonValue(-1) << 0;
    QTest::newRow("0") << QJsonValue(0) << 0;
    QTest::newRow("57") << QJsonValue(57) << 57;
    QTest::newRow("99") << QJsonValue(99) << 99;
    QTest::newRow("100") << QJsonValue(100) << 99;
    QTest::newRow("150") << QJsonValue(150) << 99;
}

void TestWeldSchedule::jobsAreConfined()
{
    QFETCH(QJsonValue, value);
    QFETCH(int, shown);
    for (const char* key : {"swing_job", "process_job"}) {
        const PageOnHost t(PageOnHost::seven(with(fullRecord(), key, value)));
        t.open(7);
        QCOMPARE(t.find<QSpinBox>(("spinBox_" + QByteArray(key)).constData())->value(), shown);
        QCOMPARE(t.saved().value(text(key)), QJsonValue(shown));
    }
}

void TestWeldSchedule::hiddenJobIsSaved()
{
    QJsonObject record = with(fullRecord(), "work_mode", 0);
    const PageOnHost t(PageOnHost::seven(with(record, "process_job", 12)));
    t.open(7);
    QVERIFY(t.areShown(jobRow(), false));
    QCOMPARE(t.saved().value("process_job"_s), QJsonValue(12));
}

void TestWeldSchedule::statesLoaded_data()
{
    QTest::addColumn<int>("bits");
    for (int bits = 0; bits < 1 << SwitchCount; ++bits)
        QTest::newRow(QByteArray::number(bits, 2).rightJustified(SwitchCount, '0').constData())
            << bits;
}

void TestWeldSchedule::statesLoaded()
{
    QFETCH(int, bits);
    State state(bits);
    const PageOnHost t(PageOnHost::seven(state.record()));
    t.page->show();
    t.open(7);
    state.settle();
    compareState(t, state);
}

void TestWeldSchedule::statesClicked_data()
{
    statesLoaded_data();
}

// From each state to which a record leads, each switch that the operator can reach.
void TestWeldSchedule::statesClicked()
{
    QFETCH(int, bits);
    const PageOnHost t(PageOnHost::seven(State(bits).record()));
    t.page->show();
    for (int index = 0; index < SwitchCount; ++index) {
        State state(bits);
        state.settle();
        t.open(7);
        const char* const pages[] = {"tab_config_start", "tab_config_end"};
        t.find<QTabWidget>("tabWidget_config")
            ->setCurrentWidget(t.find<QWidget>(pages[index == FeedStart ? 0 : 1]));
        if (!t.toggle(index)->isVisible())
            continue;
        t.press(index);
        state.press(index);
        compareState(t, state);
        // And back, which does not bring back what went off with it.
        t.press(index);
        state.press(index);
        compareState(t, state);
        t.click("pushButton_back");
    }
}

void TestWeldSchedule::differingFeedsFollowTheEnd()
{
    for (const bool end : {false, true}) {
        QJsonObject record = with(fullRecord(), "wire_feed_enable_start", !end);
        const PageOnHost t(PageOnHost::seven(with(record, "wire_feed_enable_end", end)));
        t.open(7);
        QCOMPARE(t.toggle(FeedStart)->isChecked(), end);
        QCOMPARE(t.saved().value("wire_feed_enable_start"_s), QJsonValue(end));
        QCOMPARE(t.saved().value("wire_feed_enable_end"_s), QJsonValue(end));
    }
}

void TestWeldSchedule::retractionWithoutFeedIsSavedOff()
{
    State state(1 << Retraction);
    const PageOnHost t(PageOnHost::seven(state.record()));
    t.open(7);
    QVERIFY(!t.toggle(Retraction)->isChecked());
    QCOMPARE(t.saved().value("wire_retraction_end"_s), QJsonValue(false));
}

// Only a press that turns retraction off, or the feed, takes compensation with it.
void TestWeldSchedule::compensationOutlivesLoadedRetraction()
{
    State state(1 << FeedStart | 1 << FeedEnd | 1 << Compensation);
    const PageOnHost t(PageOnHost::seven(state.record()));
    t.open(7);
    QVERIFY(!t.isShown("frame_20"));
    QVERIFY(t.toggle(Compensation)->isChecked());
    QCOMPARE(t.saved().value("wire_fill_com_end"_s), QJsonValue(true));
    t.press(Retraction);
    QVERIFY(t.isShown("frame_20"));
    QVERIFY(t.areShown(fillRows(), true));
    t.press(Retraction);
    QVERIFY(!t.toggle(Compensation)->isChecked());
}

void TestWeldSchedule::unitsStay()
{
    const PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->show();
    t.open(7);
    t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(2);
    for (const bool on : {true, false}) {
        QCOMPARE(t.toggle(Compensation)->isChecked(), on);
        for (const Number& each : Numbers) {
            if (text(each.frame) == "frame_20"_s)
                QVERIFY(labelAt(t, each.frame, each.row, 2)->isVisible());
        }
        t.press(Compensation);
    }
}

void TestWeldSchedule::switchSetByCodeRunsNothing()
{
    const PageOnHost t(PageOnHost::seven(State(0).record()));
    t.open(7);
    t.toggle(FeedStart)->setChecked(true);
    QVERIFY(!t.toggle(FeedEnd)->isChecked());
    QVERIFY(t.areShown(wireRows(), false));
}

LASERWELD_TEST_MAIN(TestWeldSchedule)
#include "tst_weldschedule.moc"
