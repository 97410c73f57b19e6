#include "ScheduleTest.h"
#include "UiScale.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

using namespace ScheduleTest;

namespace {

/// Keeps what is written to the debug log while it is there; there is one at a time.
class DebugLines
{
public:
    DebugLines()
    {
        current = this;
        before = qInstallMessageHandler(keep);
    }
    ~DebugLines() { qInstallMessageHandler(before); }
    DebugLines(const DebugLines&) = delete;
    DebugLines& operator=(const DebugLines&) = delete;

    QStringList written;

private:
    static void keep(QtMsgType type, const QMessageLogContext& context, const QString& line)
    {
        if (type == QtDebugMsg)
            current->written << line;
        else
            current->before(type, context, line);
    }

    static DebugLines* current;
    QtMessageHandler before;
};

DebugLines* DebugLines::current = nullptr;

/// A column of values of the table.
struct Column
{
    int column;
    const char* caption;
    const char* listCaption;
    int low, high;
    const char* enableKey;
    const char* name;
};

constexpr Column Columns[] = {
    {1, "Welding Speed (mm/s)", "Speed (mm/s)", 0, 1000, nullptr, "Speed"},
    {2, "Power (W)", "Laser Power (W)", 0, 10000, "power_enable", "Power"},
    {3, "Frequency (Hz)", "Frequency (Hz)", 10, 10000, "frequency_enable", "Frequency"},
    {4, "Duty Cycle (%)", "Duty Cycle (%)", 0, 100, "dutycycle_enable", "Duty Cycle"},
};
/// The order in which a pair of rows is checked.
constexpr int CheckOrder[] = {2, 3, 4, 1};
constexpr int SwitchColumns[] = {2, 3, 4};

/// The values of a row: speed, power, frequency, duty cycle.
struct Row
{
    int values[4];
    int& operator[](int index) { return values[index]; }
    int operator[](int index) const { return values[index]; }
    bool operator==(const Row& other) const
    {
        return std::equal(std::begin(values), std::end(values), std::begin(other.values));
    }
};

/// The four rows of a record.
struct Values
{
    Row rows[4];
    Row& operator[](int index) { return rows[index]; }
    const Row& operator[](int index) const { return rows[index]; }
    bool operator==(const Values& other) const
    {
        return std::equal(std::begin(rows), std::end(rows), std::begin(other.rows));
    }
};

constexpr Values Defaults{
    {{10, 100, 100, 10}, {20, 200, 200, 20}, {30, 300, 300, 30}, {40, 400, 400, 40}}};
constexpr Values Stored{
    {{11, 1001, 51, 21}, {12, 1002, 52, 22}, {13, 1003, 53, 23}, {14, 1004, 54, 24}}};

QJsonArray row(int speed, int power, int frequency, int duty)
{
    return {speed, power, frequency, duty};
}

QJsonArray rowsOf(const Values& values)
{
    QJsonArray rows;
    for (const Row& each : values.rows)
        rows.append(row(each[0], each[1], each[2], each[3]));
    return rows;
}

QJsonObject recordOf(const QJsonValue& rows, bool power = true, bool frequency = false,
                     bool duty = true)
{
    return {{"power_enable"_s, power},
            {"frequency_enable"_s, frequency},
            {"dutycycle_enable"_s, duty},
            {"power_data"_s, rows}};
}

QJsonObject storedRecord()
{
    return recordOf(rowsOf(Stored));
}

QString keyOf(int number)
{
    return "PowerData"_s + QString::number(number);
}

/// Each kind of JSON value.
QVector<QPair<const char*, QJsonValue>> kinds()
{
    return {
        {"null", QJsonValue()}, {"true", true},           {"number", 7},
        {"text", "text"_s},     {"array", QJsonArray{1}}, {"object", QJsonObject{{"a"_s, 1}}},
    };
}

QString refusal(const char* name, int earlier)
{
    return "%1 parameter validation failed between row %2 and row %3. Row %2 value must be less "
           "than row %3."_s.arg(text(name))
               .arg(earlier)
               .arg(earlier + 1);
}

/// The page on a host that holds matching records.
struct MatchingPage : PageOnHost
{
    explicit MatchingPage(const QJsonObject& records = QJsonObject())
    {
        store(records);
        find<QTabWidget>("tabWidget")->setCurrentIndex(1);
        host.forgetCalls();
    }

    void store(const QJsonValue& records) { host.service.insert("weld_param_match"_s, records); }
    QTableWidget* records() const { return find<QTableWidget>("tableWidget_2"); }
    QTableWidget* table() const { return find<QTableWidget>("tableWidget_matching"); }
    QLabel* keyLabel() const { return find<QLabel>("label_ProcessID"); }
    QSpinBox* editor(int tableRow, int column) const
    {
        return qobject_cast<QSpinBox*>(table()->cellWidget(tableRow, column));
    }
    EnableButton* toggleOf(int column) const
    {
        return WeldParameterPage::findEnableButton(table(), column);
    }
    void openMatching(int number) const
    {
        records()->selectRow(number - 1);
        click("pushButton_Config");
    }
    QStringList listed(int number) const
    {
        QStringList texts;
        for (int column = 1; column < 5; ++column) {
            const QTableWidgetItem* item = records()->item(number - 1, column);
            texts << (item ? item->text() : "(none)"_s);
        }
        return texts;
    }
    Values values() const
    {
        Values shown{};
        for (int index = 0; index < 4; ++index) {
            for (const Column& each : Columns)
                shown[index][each.column - 1] = editor(index + 2, each.column)->value();
        }
        return shown;
    }
    void enter(const Values& entered) const
    {
        for (int index = 0; index < 4; ++index) {
            for (const Column& each : Columns)
                editor(index + 2, each.column)->setValue(entered[index][each.column - 1]);
        }
    }
    /// Power, frequency and duty cycle.
    QList<bool> switches() const
    {
        QList<bool> states;
        for (const int column : SwitchColumns)
            states << toggleOf(column)->isChecked();
        return states;
    }
    void setSwitches(bool power, bool frequency, bool duty) const
    {
        toggleOf(2)->setChecked(power);
        toggleOf(3)->setChecked(frequency);
        toggleOf(4)->setChecked(duty);
    }
    QJsonObject savedRecord() const
    {
        return page->createMatchDataJson()
            .value("set_weld_param_match_config"_s)
            .toObject()
            .value(keyLabel()->text())
            .toObject();
    }
    int reads() const { return asked().count("getQelServiceData weld_param_match"_s); }
};

QStringList nothingListed()
{
    return {"(none)"_s, "(none)"_s, "(none)"_s, "(none)"_s};
}

QStringList storedListed()
{
    return {"14"_s, "1004"_s, "54"_s, "24"_s};
}

/// A table of the page's form with editors, for what is parsed into it.
struct ParseTarget
{
    MatchingPage t;
    bool parse(const QJsonObject& data, const QString& key = "PowerData1"_s, int startRow = 2,
               int startColumn = 1, int maxRows = 4, int maxColumns = 4) const
    {
        return WeldParameterPage::parseMatchParamToTable(data, key, t.table(), startRow,
                                                         startColumn, maxRows, maxColumns);
    }
};

} // namespace

class TestWeldMatching : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // The list.
    void listIsOfTheForm();
    void listShowsTheFourthRowOfEachRecord();
    void listCellsAreCentred();
    void listReadsWholeNumbers_data();
    void listReadsWholeNumbers();
    void listSkips_data();
    void listSkips();
    void listWithoutRecords_data();
    void listWithoutRecords();
    void listIsReadWhenItIsShown();

    // The table.
    void tableIsOfTheForm();
    void tellsTheRecordInLargeType();
    void headerCellsAre_data();
    void headerCellsAre();
    void switchCellsAre_data();
    void switchCellsAre();
    void editorsAre_data();
    void editorsAre();
    void rowsAreNumbered();
    void rowsFollowTheZoom_data();
    void rowsFollowTheZoom();
    void aSwitchIsMadeOnce();
    void headerIsThereOrNot();
    void aRowIsAddedToAnyTable();
    void spansAreCleared();
    void initTakesFrameAndHeader();

    // Opening.
    void opensTheSelectedRecord_data();
    void opensTheSelectedRecord();
    void opensNothingWithoutARow();
    void loadsARecord();
    void firstOpenOfAMissingRecordShowsDefaults();
    void aMissingRecordKeepsWhatWasShown();
    void loadsNothingFrom_data();
    void loadsNothingFrom();
    void anEmptyKeyLoadsNothing();
    void makesAMissingHeader_data();
    void makesAMissingHeader();
    void aLoadRebuildsTheTable();
    void readsEachKindOfSwitch_data();
    void readsEachKindOfSwitch();
    void readsEachKindOfValue_data();
    void readsEachKindOfValue();
    void readsRows_data();
    void readsRows();
    void showingThePageLoadsAgain();

    // Parsing.
    void parseRefuses_data();
    void parseRefuses();
    void parseRefusesNoTable();
    void parseRefusesAPlace_data();
    void parseRefusesAPlace();
    void parseGrowsTheTable();
    void parsePassesOverSwitchesThatAreNot();
    void parseConfinesRowsAndColumns();
    void parseStartsAtAnyCell();

    // Validation and saving.
    void refusesNeighbours_data();
    void refusesNeighbours();
    void refusesTheFirstOfTwoFaults_data();
    void refusesTheFirstOfTwoFaults();
    void aColumnThatIsOffIsNotChecked_data();
    void aColumnThatIsOffIsNotChecked();
    void aMissingSwitchCountsAsOn();
    void refusesATableWithFewRows();
    void refusesMissingEditors_data();
    void refusesMissingEditors();
    void sendsTheRecord();
    void tellsTheResult_data();
    void tellsTheResult();
    void savesWhatTheItemsHold();
    void savesATableThatLacksCells();
    void savesNothingUnderNoKey();
    void savedRecordLoadsAgain();
};

void TestWeldMatching::listIsOfTheForm()
{
    const MatchingPage t;
    QTableWidget* list = t.records();
    QCOMPARE(list->rowCount(), 10);
    QCOMPARE(list->columnCount(), 5);
    QCOMPARE(list->horizontalHeaderItem(0)->text(), "No."_s);
    for (const Column& each : Columns)
        QCOMPARE(list->horizontalHeaderItem(each.column)->text(), text(each.listCaption));
    for (int number = 1; number <= 10; ++number)
        QCOMPARE(list->item(number - 1, 0)->text(), QString::number(number));
    QCOMPARE(list->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(list->selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(list->selectionBehavior(), QAbstractItemView::SelectRows);
    QVERIFY(list->verticalHeader()->isHidden());
    QCOMPARE(list->columnWidth(0), 60);
    QCOMPARE(list->horizontalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    for (int column = 1; column < 5; ++column)
        QCOMPARE(list->horizontalHeader()->sectionResizeMode(column), QHeaderView::Stretch);
}

void TestWeldMatching::listShowsTheFourthRowOfEachRecord()
{
    QJsonObject records;
    for (int number = 1; number <= 11; ++number) {
        Values values = Stored;
        values[3] = {number, 100 + number, 200 + number, 50 + number};
        records.insert(keyOf(number), recordOf(rowsOf(values)));
    }
    const MatchingPage t(records);
    for (int number = 1; number <= 10; ++number)
        QCOMPARE(t.listed(number),
                 QStringList({QString::number(number), QString::number(100 + number),
                              QString::number(200 + number), QString::number(50 + number)}));
    QCOMPARE(t.records()->rowCount(), 10);
}

void TestWeldMatching::listCellsAreCentred()
{
    MatchingPage t({{keyOf(2), storedRecord()}});
    QTableWidgetItem* item = t.records()->item(1, 1);
    QCOMPARE(item->textAlignment(), int(Qt::AlignCenter));
    // The item stays, and only its text is another.
    item->setTextAlignment(Qt::AlignLeft);
    t.store(QJsonObject{{keyOf(2), recordOf(rowsOf(Defaults))}});
    t.page->setTableMatchData();
    QCOMPARE(t.records()->item(1, 1), item);
    QCOMPARE(item->text(), "40"_s);
    QCOMPARE(item->textAlignment(), int(Qt::AlignLeft));
}

void TestWeldMatching::listReadsWholeNumbers_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("whole") << QJsonValue(12.0) << "12"_s;
    QTest::newRow("negative") << QJsonValue(-7) << "-7"_s;
    QTest::newRow("beyond the editor") << QJsonValue(20000) << "20000"_s;
    QTest::newRow("fraction") << QJsonValue(3.5) << "0"_s;
    QTest::newRow("beyond an int") << QJsonValue(1e10) << "0"_s;
    QTest::newRow("text") << QJsonValue("12"_s) << "0"_s;
    QTest::newRow("bool") << QJsonValue(true) << "0"_s;
    QTest::newRow("null") << QJsonValue() << "0"_s;
    QTest::newRow("array") << QJsonValue(QJsonArray{12}) << "0"_s;
    QTest::newRow("object") << QJsonValue(QJsonObject{{"a"_s, 12}}) << "0"_s;
}

void TestWeldMatching::listReadsWholeNumbers()
{
    QFETCH(const QJsonValue, value);
    QFETCH(const QString, shown);
    for (int index = 0; index < 4; ++index) {
        QJsonArray listed = row(1, 2, 3, 4);
        listed.replace(index, value);
        const MatchingPage t({{keyOf(1), recordOf(QJsonArray{0, 0, 0, listed})}});
        QStringList expected{"1"_s, "2"_s, "3"_s, "4"_s};
        expected[index] = shown;
        QCOMPARE(t.listed(1), expected);
    }
}

void TestWeldMatching::listSkips_data()
{
    QTest::addColumn<QJsonValue>("record");
    QTest::addColumn<QString>("warning");
    const QString start = "setTableMatchData: \"PowerData1\" "_s;
    const auto everyKind = kinds();
    for (const auto& kind : everyKind) {
        if (kind.second.isObject())
            continue;
        QTest::addRow("a record that is %s", kind.first)
            << kind.second << start + "is not an object"_s;
        if (!kind.second.isArray())
            QTest::addRow("rows that are %s", kind.first)
                << QJsonValue(recordOf(kind.second)) << start + "power_data is not an array"_s;
    }
    QTest::newRow("rows that are an object")
        << QJsonValue(recordOf(QJsonObject{{"a"_s, 1}})) << start + "power_data is not an array"_s;
    QTest::newRow("an empty record")
        << QJsonValue(QJsonObject()) << start + "does not contain power_data"_s;
    QTest::newRow("no rows") << QJsonValue(recordOf(QJsonArray()))
                             << start + "power_data array is empty"_s;
    // These are passed over without a word.
    const QJsonArray four = row(1, 2, 3, 4);
    QTest::newRow("three rows") << QJsonValue(recordOf(QJsonArray{four, four, four})) << QString();
    QTest::newRow("a fourth row that is none")
        << QJsonValue(recordOf(QJsonArray{four, four, four, 4})) << QString();
    QTest::newRow("a fourth row of three values")
        << QJsonValue(recordOf(QJsonArray{four, four, four, QJsonArray{1, 2, 3}})) << QString();
}

// The row keeps what it showed, and the next record is listed.
void TestWeldMatching::listSkips()
{
    QFETCH(const QJsonValue, record);
    QFETCH(const QString, warning);
    MatchingPage t({{keyOf(1), storedRecord()}});
    QCOMPARE(t.listed(1), storedListed());
    QCOMPARE(t.listed(2), nothingListed());
    t.store(QJsonObject{{keyOf(1), record}, {keyOf(2), storedRecord()}});
    if (!warning.isEmpty())
        expectWarning(warning);
    t.page->setTableMatchData();
    QCOMPARE(t.listed(1), storedListed());
    QCOMPARE(t.listed(2), storedListed());
    QVERIFY(t.host.messages.isEmpty());
}

void TestWeldMatching::listWithoutRecords_data()
{
    QTest::addColumn<QJsonValue>("records");
    const auto everyKind = kinds();
    for (const auto& kind : everyKind) {
        if (!kind.second.isObject())
            QTest::newRow(kind.first) << kind.second;
    }
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined);
}

void TestWeldMatching::listWithoutRecords()
{
    QFETCH(const QJsonValue, records);
    MatchingPage t({{keyOf(3), storedRecord()}});
    t.store(records);
    expectWarning("setTableMatchData: weld_param_match is not an object or not found"_s);
    t.page->setTableMatchData();
    QCOMPARE(t.listed(3), storedListed());
    // A record that is not there is none of which to speak.
    t.store(QJsonObject{{"PowerData"_s, 1}, {"PowerData0"_s, 1}, {"PowerData11"_s, 1}});
    t.page->setTableMatchData();
    QCOMPARE(t.listed(3), storedListed());
}

void TestWeldMatching::listIsReadWhenItIsShown()
{
    const MatchingPage t({{keyOf(1), storedRecord()}});
    auto* tabs = t.find<QTabWidget>("tabWidget");
    tabs->setCurrentIndex(0);
    QCOMPARE(t.reads(), 0);
    tabs->setCurrentIndex(1);
    QCOMPARE(t.reads(), 1);
    t.page->show();
    QCOMPARE(t.reads(), 2);
    t.openMatching(1);
    QCOMPARE(t.reads(), 3);
    t.click("pushButton_back");
    QCOMPARE(t.reads(), 4);
    QCOMPARE(t.stack()->currentIndex(), 0);
}

void TestWeldMatching::tableIsOfTheForm()
{
    const MatchingPage t;
    QTableWidget* table = t.table();
    QCOMPARE(table->rowCount(), 6);
    QCOMPARE(table->columnCount(), 5);
    QVERIFY(table->horizontalHeader()->isHidden());
    QVERIFY(table->verticalHeader()->isHidden());
    QVERIFY(!table->horizontalHeader()->highlightSections());
    QCOMPARE(table->frameShape(), QFrame::NoFrame);
    QCOMPARE(table->columnWidth(0), 60);
    QCOMPARE(table->horizontalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    for (int column = 1; column < 5; ++column)
        QCOMPARE(table->horizontalHeader()->sectionResizeMode(column), QHeaderView::Stretch);
    for (int tableRow = 0; tableRow < 6; ++tableRow)
        QCOMPARE(table->rowHeight(tableRow), tableRow < 2 ? 38 : 35);
    QCOMPARE(t.find<QLabel>("label_58")->text(), "Process Number"_s);
    QCOMPARE(t.keyLabel()->text(), "ProcessData1"_s);
    for (const char* label : {"label_58", "label_ProcessID"})
        QCOMPARE(t.find<QLabel>(label)->font().pointSize(), 15);
    QCOMPARE(t.find<QHBoxLayout>("horizontalLayout_5")->count(), 2);
    QCOMPARE(t.stack()->indexOf(t.find<QWidget>("page_chart")), 2);
}

// The page's sheet has a font for all labels.
void TestWeldMatching::tellsTheRecordInLargeType()
{
    const MatchingPage t;
    t.page->applyPageStyle();
    t.page->show();
    for (const char* label : {"label_58", "label_ProcessID"}) {
        t.find<QLabel>(label)->ensurePolished();
        QCOMPARE(t.find<QLabel>(label)->font().pointSize(), 15);
    }
}

void TestWeldMatching::headerCellsAre_data()
{
    QTest::addColumn<int>("tableRow");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("caption");
    QTest::newRow("number") << 0 << 0 << "No."_s;
    QTest::newRow("enable") << 0 << 1 << "Enable"_s;
    QTest::newRow("empty") << 1 << 0 << QString();
    for (const Column& each : Columns)
        QTest::newRow(each.name) << 1 << each.column << text(each.caption);
}

void TestWeldMatching::headerCellsAre()
{
    QFETCH(const int, tableRow);
    QFETCH(const int, column);
    QFETCH(const QString, caption);
    const MatchingPage t;
    auto* label = qobject_cast<QLabel*>(t.table()->cellWidget(tableRow, column));
    QVERIFY(label);
    QCOMPARE(label->text(), caption);
    QCOMPARE(label->alignment(), Qt::AlignCenter);
    for (const char* part :
         {"border:none", "background:transparent", "400 10pt \"Segoe UI\"", "color:#202020"})
        QVERIFY2(label->styleSheet().contains(text(part)), part);
    label->ensurePolished();
    QCOMPARE(label->font().family(), "Segoe UI"_s);
    QCOMPARE(label->font().pointSize(), 10);
    QCOMPARE(label->font().weight(), int(QFont::Normal));
    QVERIFY(t.table()->isAncestorOf(label));
}

void TestWeldMatching::switchCellsAre_data()
{
    QTest::addColumn<int>("column");
    for (const int column : SwitchColumns)
        QTest::addRow("%d", column) << column;
}

void TestWeldMatching::switchCellsAre()
{
    QFETCH(const int, column);
    const MatchingPage t;
    const QWidget* cell = t.table()->cellWidget(0, column);
    QVERIFY(cell);
    QCOMPARE(cell->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QVERIFY(cell->styleSheet().contains("background:transparent"_s));
    const auto* halfway = qobject_cast<QVBoxLayout*>(cell->layout());
    QVERIFY(halfway);
    QCOMPARE(halfway->contentsMargins(), QMargins(2, 2, 2, 2));
    QCOMPARE(halfway->spacing(), 0);
    QCOMPARE(halfway->count(), 3);
    QVERIFY(halfway->itemAt(0)->spacerItem() && halfway->itemAt(2)->spacerItem());
    const auto* line = qobject_cast<QHBoxLayout*>(halfway->itemAt(1)->layout());
    QVERIFY(line);
    QCOMPARE(line->contentsMargins(), QMargins());
    QCOMPARE(line->spacing(), 0);
    QCOMPARE(line->count(), 3);
    QVERIFY(line->itemAt(0)->spacerItem() && line->itemAt(2)->spacerItem());
    const EnableButton* button = t.toggleOf(column);
    QCOMPARE(line->itemAt(1)->widget(), button);
    QCOMPARE(button->minimumSize(), QSize(50, 24));
    QCOMPARE(button->maximumSize(), QSize(50, 24));
    QVERIFY(!button->isChecked());
}

void TestWeldMatching::editorsAre_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("dataRow");
    for (int index = 0; index < 4; ++index) {
        for (int dataRow = 1; dataRow <= 4; ++dataRow)
            QTest::addRow("%s, row %d", Columns[index].name, dataRow) << index << dataRow;
    }
}

void TestWeldMatching::editorsAre()
{
    QFETCH(const int, index);
    QFETCH(const int, dataRow);
    const MatchingPage t;
    const Column& column = Columns[index];
    const QSpinBox* editor = t.editor(dataRow + 1, column.column);
    QVERIFY(editor);
    QCOMPARE(editor->minimum(), column.low);
    QCOMPARE(editor->maximum(), column.high);
    QCOMPARE(editor->value(), Defaults[dataRow - 1][index]);
    QCOMPARE(editor->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QCOMPARE(editor->alignment(), Qt::AlignCenter);
    QCOMPARE(editor->font().family(), UiScale::font(10, t.page.get()).family());
    QCOMPARE(editor->font().pointSize(), 10);
    QCOMPARE(editor->styleSheet(), "QSpinBox { border: none; background: transparent; }"_s);
}

void TestWeldMatching::rowsAreNumbered()
{
    const MatchingPage t;
    for (int dataRow = 1; dataRow <= 4; ++dataRow) {
        const QTableWidgetItem* item = t.table()->item(dataRow + 1, 0);
        QVERIFY(item);
        QCOMPARE(item->text(), QString::number(dataRow));
        QCOMPARE(item->textAlignment(), int(Qt::AlignCenter));
        QCOMPARE(item->flags(), QTableWidgetItem().flags() & ~Qt::ItemIsEditable);
    }
}

void TestWeldMatching::rowsFollowTheZoom_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("height");
    QTest::newRow("three quarters") << 0.75 << 26;
    QTest::newRow("one") << 1.0 << 35;
    QTest::newRow("two") << 2.0 << 70;
}

void TestWeldMatching::rowsFollowTheZoom()
{
    QFETCH(const double, zoom);
    QFETCH(const int, height);
    MatchingPage t({{keyOf(1), storedRecord()}});
    t.host.nodes.insert("qeltheme.fontzoom"_s, zoom);
    t.openMatching(1);
    for (int tableRow = 0; tableRow < 6; ++tableRow)
        QCOMPARE(t.table()->rowHeight(tableRow), tableRow < 2 ? 38 : height);
    QCOMPARE(t.table()->columnWidth(0), 60);
}

void TestWeldMatching::aSwitchIsMadeOnce()
{
    const MatchingPage t;
    EnableButton* button = t.toggleOf(3);
    button->setFixedSize(10, 10);
    button->setChecked(true);
    t.page->ensureEnableCell(3);
    QCOMPARE(t.toggleOf(3), button);
    QCOMPARE(button->minimumSize(), QSize(50, 24));
    QVERIFY(button->isChecked());
}

void TestWeldMatching::headerIsThereOrNot()
{
    const MatchingPage t;
    QVERIFY(t.page->hasMatchingHeader());
    for (const int column : {-1, 0, 1, 5, 100})
        QVERIFY(!t.toggleOf(column));
    for (const int column : SwitchColumns) {
        QVERIFY(t.toggleOf(column));
        t.table()->removeCellWidget(0, column);
        QVERIFY(!t.page->hasMatchingHeader());
        QVERIFY(!t.toggleOf(column));
        t.page->ensureEnableCell(column);
        QVERIFY(t.page->hasMatchingHeader());
    }
    t.table()->setRowCount(0);
    QVERIFY(!t.page->hasMatchingHeader());
}

void TestWeldMatching::aRowIsAddedToAnyTable()
{
    const MatchingPage t;
    QTableWidget table(0, 5);
    t.page->addMatchingRow(&table, 2, 1, 2, 3, 4);
    QCOMPARE(table.rowCount(), 4);
    QCOMPARE(table.item(3, 0)->text(), "2"_s);
    const int values[] = {1, 2, 10, 4}; // the frequency is confined
    for (const Column& each : Columns)
        QCOMPARE(qobject_cast<QSpinBox*>(table.cellWidget(3, each.column))->value(),
                 values[each.column - 1]);
    QVERIFY(!table.cellWidget(2, 1));
    t.page->addMatchingRow(&table, 1, 1, 2, 3, 4);
    QCOMPARE(table.rowCount(), 4);
    QCOMPARE(table.item(2, 0)->text(), "1"_s);
}

void TestWeldMatching::spansAreCleared()
{
    const MatchingPage t({{keyOf(1), storedRecord()}});
    t.table()->setSpan(0, 0, 2, 2);
    t.openMatching(1);
    for (int tableRow = 0; tableRow < 6; ++tableRow) {
        for (int column = 0; column < 5; ++column) {
            QCOMPARE(t.table()->rowSpan(tableRow, column), 1);
            QCOMPARE(t.table()->columnSpan(tableRow, column), 1);
        }
    }
}

void TestWeldMatching::initTakesFrameAndHeader()
{
    const MatchingPage t;
    QTableWidget* table = t.table();
    QHeaderView* header = table->horizontalHeader();
    table->setFrameShape(QFrame::Box);
    table->setSpan(2, 1, 2, 2);
    header->show();
    header->setHighlightSections(true);
    header->setSectionResizeMode(QHeaderView::Interactive);
    table->setColumnWidth(0, 99);
    t.page->initMatchingTable();
    QCOMPARE(table->frameShape(), QFrame::NoFrame);
    QVERIFY(header->isHidden());
    QVERIFY(!header->highlightSections());
    QCOMPARE(table->rowSpan(2, 1), 1);
    QCOMPARE(table->columnSpan(2, 1), 1);
    QCOMPARE(table->columnWidth(0), 60);
    QCOMPARE(header->sectionResizeMode(0), QHeaderView::Fixed);
    for (int column = 1; column < 5; ++column)
        QCOMPARE(header->sectionResizeMode(column), QHeaderView::Stretch);
}

void TestWeldMatching::opensTheSelectedRecord_data()
{
    QTest::addColumn<int>("number");
    for (int number = 1; number <= 10; ++number)
        QTest::addRow("%d", number) << number;
}

void TestWeldMatching::opensTheSelectedRecord()
{
    QFETCH(const int, number);
    const MatchingPage t({{keyOf(number), storedRecord()}});
    t.page->show();
    t.openMatching(number);
    QCOMPARE(t.stack()->currentIndex(), 2);
    QCOMPARE(t.keyLabel()->text(), keyOf(number));
    QCOMPARE(t.values(), Stored);
    QCOMPARE(t.switches(), QList<bool>({true, false, true}));
    QVERIFY(t.host.messages.isEmpty());
    QVERIFY(t.find<QPushButton>("pushButton_Config")->isHidden());
    QVERIFY(t.find<QPushButton>("pushButton_save")->isVisible());
    QVERIFY(t.find<QPushButton>("pushButton_back")->isVisible());
}

void TestWeldMatching::opensNothingWithoutARow()
{
    const MatchingPage t({{keyOf(1), storedRecord()}});
    t.click("pushButton_Config");
    QCOMPARE(t.stack()->currentIndex(), 0);
    QCOMPARE(t.keyLabel()->text(), "ProcessData1"_s);
    QCOMPARE(t.host.messageTexts(),
             QStringList("1: Please select a row of data in the table first"_s));
}

void TestWeldMatching::loadsARecord()
{
    const MatchingPage t({{keyOf(1), recordOf(rowsOf(Stored), false, true, false)}});
    t.page->loadMatchData(keyOf(1));
    QCOMPARE(t.values(), Stored);
    QCOMPARE(t.switches(), QList<bool>({false, true, false}));
    QCOMPARE(t.table()->rowCount(), 6);
    // The key is the opener's to show.
    QCOMPARE(t.keyLabel()->text(), "ProcessData1"_s);
    QVERIFY(t.host.messages.isEmpty());
}

void TestWeldMatching::firstOpenOfAMissingRecordShowsDefaults()
{
    const MatchingPage t({{keyOf(1), storedRecord()}});
    QTest::ignoreMessage(QtDebugMsg, "has No value  \"PowerData2\"");
    t.openMatching(2);
    QCOMPARE(t.values(), Defaults);
    QCOMPARE(t.switches(), QList<bool>({false, false, false}));
    QCOMPARE(t.stack()->currentIndex(), 2);
}

void TestWeldMatching::aMissingRecordKeepsWhatWasShown()
{
    const MatchingPage t({{keyOf(1), storedRecord()}});
    t.openMatching(1);
    t.click("pushButton_back");
    const QSpinBox* editor = t.editor(2, 1);
    QTest::ignoreMessage(QtDebugMsg, "has No value  \"PowerData2\"");
    t.openMatching(2);
    QCOMPARE(t.editor(2, 1), editor);
    QCOMPARE(t.keyLabel()->text(), keyOf(2));
    QCOMPARE(t.values(), Stored);
    t.click("pushButton_save");
    QJsonObject stored = storedRecord();
    stored.insert("PowerDataID"_s, keyOf(2));
    QCOMPARE(t.host.commands.size(), 1);
    QCOMPARE(t.host.commands.first().data,
             QJsonObject({{"set_weld_param_match_config"_s, QJsonObject{{keyOf(2), stored}}}}));
}

void TestWeldMatching::loadsNothingFrom_data()
{
    listWithoutRecords_data();
}

void TestWeldMatching::loadsNothingFrom()
{
    QFETCH(const QJsonValue, records);
    MatchingPage t({{keyOf(1), storedRecord()}});
    t.openMatching(1);
    t.store(records);
    QTest::ignoreMessage(QtDebugMsg, "has No value  \"PowerData1\"");
    t.page->loadMatchData(keyOf(1));
    QCOMPARE(t.values(), Stored);
    QCOMPARE(t.switches(), QList<bool>({true, false, true}));
}

void TestWeldMatching::anEmptyKeyLoadsNothing()
{
    const MatchingPage t({{QString(), storedRecord()}});
    const QSpinBox* editor = t.editor(2, 1);
    {
        const DebugLines lines;
        t.page->loadMatchData(QString());
        QCOMPARE(lines.written, QStringList());
    }
    QCOMPARE(t.reads(), 0);
    QCOMPARE(t.editor(2, 1), editor);
    QCOMPARE(t.values(), Defaults);
}

void TestWeldMatching::makesAMissingHeader_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("empty key") << QString();
    QTest::newRow("missing key") << keyOf(5);
}

void TestWeldMatching::makesAMissingHeader()
{
    QFETCH(const QString, key);
    const MatchingPage t;
    t.table()->setRowCount(0);
    t.page->loadMatchData(key);
    QVERIFY(t.page->hasMatchingHeader());
    QCOMPARE(t.table()->rowCount(), 6);
    QCOMPARE(t.values(), Defaults);
}

void TestWeldMatching::aLoadRebuildsTheTable()
{
    const MatchingPage t({{keyOf(1), storedRecord()}});
    t.page->show();
    const QPointer<QSpinBox> editor = t.editor(2, 1);
    const QPointer<EnableButton> button = t.toggleOf(2);
    t.table()->setRowCount(9);
    t.openMatching(1);
    QTRY_VERIFY(!editor && !button);
    QCOMPARE(t.table()->rowCount(), 6);
    QCOMPARE(t.page->findChildren<QSpinBox*>(QString()).count(),
             16 + t.find<QWidget>("page_config")->findChildren<QSpinBox*>().count());
}

void TestWeldMatching::readsEachKindOfSwitch_data()
{
    QTest::addColumn<QJsonValue>("value");
    const auto everyKind = kinds();
    for (const auto& kind : everyKind)
        QTest::newRow(kind.first) << kind.second;
    QTest::newRow("false") << QJsonValue(false);
    QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined);
}

void TestWeldMatching::readsEachKindOfSwitch()
{
    QFETCH(const QJsonValue, value);
    for (const Column& each : Columns) {
        if (!each.enableKey)
            continue;
        MatchingPage t({{keyOf(1), with(storedRecord(), each.enableKey, value)}});
        t.setSwitches(true, true, true);
        t.openMatching(1);
        QCOMPARE(t.toggleOf(each.column)->isChecked(), value == QJsonValue(true));
        QCOMPARE(t.values(), Stored);
    }
}

void TestWeldMatching::readsEachKindOfValue_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<int>("read"); // before it is confined
    QTest::newRow("whole") << QJsonValue(60.0) << 60;
    QTest::newRow("zero") << QJsonValue(0) << 0;
    QTest::newRow("negative") << QJsonValue(-5) << -5;
    QTest::newRow("large") << QJsonValue(20000) << 20000;
    QTest::newRow("least int") << QJsonValue(-2147483648.0) << -2147483647 - 1;
    QTest::newRow("fraction") << QJsonValue(60.5) << 0;
    QTest::newRow("beyond an int") << QJsonValue(1e10) << 0;
    QTest::newRow("huge") << QJsonValue(1e300) << 0;
    const auto everyKind = kinds();
    for (const auto& kind : everyKind) {
        if (!kind.second.isDouble())
            QTest::newRow(kind.first) << kind.second << 0;
    }
}

void TestWeldMatching::readsEachKindOfValue()
{
    QFETCH(const QJsonValue, value);
    QFETCH(const int, read);
    for (const Column& each : Columns) {
        const int at = each.column - 1;
        for (int dataRow = 0; dataRow < 4; ++dataRow) {
            QJsonArray rows = rowsOf(Stored);
            QJsonArray changed = rows.at(dataRow).toArray();
            changed.replace(at, value);
            rows.replace(dataRow, changed);
            const MatchingPage t({{keyOf(1), recordOf(rows)}});
            t.page->loadMatchData(keyOf(1));
            Values expected = Stored;
            expected[dataRow][at] = qBound(each.low, read, each.high);
            QCOMPARE(t.values(), expected);
        }
    }
}

void TestWeldMatching::readsRows_data()
{
    QTest::addColumn<QJsonValue>("record");
    QTest::addColumn<QStringList>("warnings");
    QTest::addColumn<int>("rows"); // of those stored; the others are defaults
    const QJsonArray all = rowsOf(Stored);
    const QString start = "parseMatchParamToTable: "_s;
    const QString none = start + "No valid data found in 'power_data' array"_s;
    QJsonArray three = all;
    three.removeLast();
    QTest::newRow("three rows") << QJsonValue(recordOf(three)) << QStringList() << 3;
    QJsonArray six = all;
    six.append(row(1, 2, 3, 4));
    six.append(7);
    QTest::newRow("six rows") << QJsonValue(recordOf(six)) << QStringList() << 4;
    QJsonArray longer;
    for (const QJsonValue& each : all) {
        QJsonArray values = each.toArray();
        values.append(99);
        values.append("more"_s);
        longer.append(values);
    }
    QTest::newRow("six values") << QJsonValue(recordOf(longer)) << QStringList() << 4;
    QTest::newRow("no rows") << QJsonValue(recordOf(QJsonArray()))
                             << QStringList(start + "'power_data' array is empty"_s) << 0;
    QTest::newRow("no data") << QJsonValue(with(recordOf(0), "power_data",
                                                QJsonValue(QJsonValue::Undefined)))
                             << QStringList(start + "'power_data' field not found"_s) << 0;
    QTest::newRow("rows of no values")
        << QJsonValue(recordOf(QJsonArray{QJsonArray()})) << QStringList(none) << 0;
    QTest::newRow("no arrays")
        << QJsonValue(recordOf(QJsonArray{1, "a"_s, QJsonValue(), QJsonObject(), true}))
        << QStringList({start + "'power_data' element 0 is not an array"_s,
                        start + "'power_data' element 1 is not an array"_s,
                        start + "'power_data' element 2 is not an array"_s,
                        start + "'power_data' element 3 is not an array"_s, none})
        << 0;
    QJsonArray lastIsEmpty = three;
    lastIsEmpty.append(QJsonArray());
    QTest::newRow("a last row of no values")
        << QJsonValue(recordOf(lastIsEmpty)) << QStringList() << 3;
    QJsonArray broken = three;
    broken.append("row"_s);
    QTest::newRow("one that is no array")
        << QJsonValue(recordOf(broken))
        << QStringList(start + "'power_data' element 3 is not an array"_s) << 3;
    const auto everyKind = kinds();
    for (const auto& kind : everyKind) {
        if (!kind.second.isArray())
            QTest::addRow("rows that are %s", kind.first)
                << QJsonValue(recordOf(kind.second))
                << QStringList(start + "'power_data' is not an array"_s) << 0;
    }
}

// The switches are loaded in any case.
void TestWeldMatching::readsRows()
{
    QFETCH(const QJsonValue, record);
    QFETCH(const QStringList, warnings);
    QFETCH(const int, rows);
    MatchingPage t;
    t.store(QJsonObject{{keyOf(1), record}});
    for (const QString& each : warnings)
        expectWarning(each);
    t.page->loadMatchData(keyOf(1));
    Values expected = Defaults;
    std::copy_n(Stored.rows, rows, expected.rows);
    QCOMPARE(t.values(), expected);
    QCOMPARE(t.switches(), QList<bool>({true, false, true}));
    QCOMPARE(t.table()->rowCount(), 6);
    QCOMPARE(t.table()->columnCount(), 5);
}

void TestWeldMatching::showingThePageLoadsAgain()
{
    const MatchingPage t({{keyOf(4), storedRecord()}});
    t.page->show();
    t.openMatching(4);
    t.enter(Defaults);
    t.setSwitches(false, true, false);
    t.page->hide();
    t.page->show();
    QCOMPARE(t.values(), Stored);
    QCOMPARE(t.switches(), QList<bool>({true, false, true}));
    QCOMPARE(t.stack()->currentIndex(), 2);
}

void TestWeldMatching::parseRefuses_data()
{
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("warning");
    const QJsonObject all{{keyOf(1), storedRecord()}};
    const QString start = "parseMatchParamToTable: "_s;
    QTest::newRow("no data") << QJsonObject() << keyOf(1) << start + "Process data is empty"_s;
    QTest::newRow("neither") << QJsonObject() << QString() << start + "Process data is empty"_s;
    QTest::newRow("no key") << all << QString() << start + "PowerData parameter is empty"_s;
    QTest::newRow("another key") << all << keyOf(2)
                                 << start + "PowerData \"PowerData2\" not found"_s;
    const auto everyKind = kinds();
    for (const auto& kind : everyKind) {
        if (!kind.second.isObject())
            QTest::addRow("a record that is %s", kind.first)
                << QJsonObject{{keyOf(1), kind.second}} << keyOf(1)
                << start + "PowerData \"PowerData1\" value is not a JSON object"_s;
    }
}

void TestWeldMatching::parseRefuses()
{
    QFETCH(const QJsonObject, data);
    QFETCH(const QString, key);
    QFETCH(const QString, warning);
    const ParseTarget target;
    target.t.setSwitches(true, true, true);
    expectWarning(warning);
    QVERIFY(!target.parse(data, key));
    QCOMPARE(target.t.values(), Defaults);
    QCOMPARE(target.t.switches(), QList<bool>({true, true, true}));
}

void TestWeldMatching::parseRefusesNoTable()
{
    const QJsonObject all{{keyOf(1), storedRecord()}};
    expectWarning("parseMatchParamToTable: TableWidget pointer is null"_s);
    QVERIFY(!WeldParameterPage::parseMatchParamToTable(all, keyOf(1), nullptr, -1, 1, 4, 4));
}

void TestWeldMatching::parseRefusesAPlace_data()
{
    QTest::addColumn<int>("startRow");
    QTest::addColumn<int>("startColumn");
    QTest::addColumn<int>("maxRows");
    QTest::addColumn<int>("maxColumns");
    QTest::newRow("row") << -1 << 1 << 4 << 4;
    QTest::newRow("column") << 2 << -1 << 4 << 4;
    QTest::newRow("rows") << 2 << 1 << 0 << 4;
    QTest::newRow("columns") << 2 << 1 << 4 << 0;
}

void TestWeldMatching::parseRefusesAPlace()
{
    QFETCH(const int, startRow);
    QFETCH(const int, startColumn);
    QFETCH(const int, maxRows);
    QFETCH(const int, maxColumns);
    const ParseTarget target;
    expectWarning("parseMatchParamToTable: Invalid position or size parameters"_s);
    QVERIFY(!target.parse({{keyOf(2), 1}}, keyOf(1), startRow, startColumn, maxRows, maxColumns));
}

void TestWeldMatching::parseGrowsTheTable()
{
    const QJsonObject all{{keyOf(1), storedRecord()}};
    QTableWidget table;
    const QString missing = "parseMatchParamToTable: missing spinbox at %1 %2"_s;
    for (int tableRow = 3; tableRow < 5; ++tableRow) {
        for (int column = 2; column < 5; ++column)
            expectWarning(missing.arg(tableRow).arg(column));
    }
    expectWarning("parseMatchParamToTable: No valid data found in 'power_data' array"_s);
    QVERIFY(!WeldParameterPage::parseMatchParamToTable(all, keyOf(1), &table, 3, 2, 2, 3));
    QCOMPARE(table.rowCount(), 5);
    QCOMPARE(table.columnCount(), 5);
}

void TestWeldMatching::parsePassesOverSwitchesThatAreNot()
{
    const ParseTarget target;
    target.t.table()->removeCellWidget(0, 2);
    target.t.table()->removeCellWidget(3, 4);
    expectWarning("parseMatchParamToTable: missing spinbox at 3 4"_s);
    QVERIFY(target.parse({{keyOf(1), storedRecord()}}));
    QVERIFY(!target.t.toggleOf(2));
    QVERIFY(!target.t.toggleOf(3)->isChecked());
    QVERIFY(target.t.toggleOf(4)->isChecked());
    QCOMPARE(target.t.editor(5, 4)->value(), 24);
}

void TestWeldMatching::parseConfinesRowsAndColumns()
{
    const QJsonObject all{{keyOf(1), storedRecord()}};
    const ParseTarget some;
    QVERIFY(some.parse(all, keyOf(1), 3, 2, 2, 2));
    Values expected = Defaults;
    expected[1] = {20, 11, 1001, 20};
    expected[2] = {30, 12, 1002, 30};
    QCOMPARE(some.t.values(), expected);
    // There are no more than four columns of values.
    const ParseTarget many;
    QVERIFY(many.parse(all, keyOf(1), 2, 1, 100, 100));
    QCOMPARE(many.t.values(), Stored);
    QCOMPARE(many.t.table()->rowCount(), 6);
    QCOMPARE(many.t.table()->columnCount(), 5);
    // An empty list of rows is no failure.
    expectWarning("parseMatchParamToTable: 'power_data' array is empty"_s);
    QVERIFY(many.parse({{keyOf(1), recordOf(QJsonArray(), false, true, false)}}));
    QCOMPARE(many.t.values(), Stored);
    QCOMPARE(many.t.switches(), QList<bool>({false, true, false}));
}

void TestWeldMatching::parseStartsAtAnyCell()
{
    QTableWidget table(1, 1);
    auto* editor = new QSpinBox;
    table.setCellWidget(0, 0, editor);
    QVERIFY(WeldParameterPage::parseMatchParamToTable({{keyOf(1), storedRecord()}}, keyOf(1),
                                                      &table, 0, 0, 1, 1));
    QCOMPARE(editor->value(), Stored.rows[0][0]);
}

void TestWeldMatching::refusesNeighbours_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("earlier");
    QTest::addColumn<int>("excess");
    for (const Column& each : Columns) {
        for (int earlier = 1; earlier <= 3; ++earlier) {
            QTest::addRow("%s, rows %d and %d, equal", each.name, earlier, earlier + 1)
                << each.column << earlier << 0;
            QTest::addRow("%s, rows %d and %d, falling", each.name, earlier, earlier + 1)
                << each.column << earlier << 3;
        }
    }
}

void TestWeldMatching::refusesNeighbours()
{
    QFETCH(const int, column);
    QFETCH(const int, earlier);
    QFETCH(const int, excess);
    const MatchingPage t({{keyOf(1), storedRecord()}});
    t.openMatching(1);
    t.enter(Defaults);
    t.setSwitches(true, true, true);
    const QSpinBox* later = t.editor(earlier + 2, column);
    t.editor(earlier + 1, column)->setValue(later->value() + excess);
    const char* name = Columns[column - 1].name;
    expectWarning(
        "validateMatchingTableParams: %1 validation failed at data row %2 . Previous: %3  Current: %4"_s
            .arg(text(name))
            .arg(earlier + 1)
            .arg(later->value() + excess)
            .arg(later->value()));
    t.click("pushButton_save");
    QCOMPARE(t.host.messageTexts(), QStringList("1: "_s + refusal(name, earlier)));
    QVERIFY(t.host.commands.isEmpty());
    QCOMPARE(t.stack()->currentIndex(), 2);
}

void TestWeldMatching::refusesTheFirstOfTwoFaults_data()
{
    QTest::addColumn<int>("mask"); // of power, frequency, duty cycle
    for (int mask = 0; mask < 8; ++mask)
        QTest::addRow("%d%d%d", mask & 1, mask >> 1 & 1, mask >> 2 & 1) << mask;
}

// All pairs of faults, in the order in which they are looked for.
void TestWeldMatching::refusesTheFirstOfTwoFaults()
{
    QFETCH(const int, mask);
    struct Fault
    {
        int earlier, column;
        bool isOff;
    };
    QVector<Fault> faults;
    for (int earlier = 1; earlier <= 3; ++earlier) {
        for (const int column : CheckOrder)
            faults << Fault{earlier, column, column > 1 && !(mask >> (column - 2) & 1)};
    }
    MatchingPage t;
    t.setSwitches(mask & 1, mask & 2, mask & 4);
    for (int first = 0; first < faults.size(); ++first) {
        for (int second = first; second < faults.size(); ++second) {
            // Each column rises but for its faults.
            Values values = Defaults;
            for (int dataRow = 1; dataRow < 4; ++dataRow) {
                for (const Column& each : Columns) {
                    const auto isAt = [&](const Fault& fault) {
                        return fault.earlier == dataRow && fault.column == each.column;
                    };
                    const int at = each.column - 1;
                    values[dataRow][at] = values[dataRow - 1][at] +
                                          (isAt(faults[first]) || isAt(faults[second]) ? 0 : 10);
                }
            }
            t.enter(values);
            t.host.forgetCalls();
            const Fault& told = faults[first].isOff ? faults[second] : faults[first];
            if (!told.isOff)
                expectWarning(QRegularExpression(
                    "^validateMatchingTableParams: %1 validation failed at data row %2 "_s
                        .arg(text(Columns[told.column - 1].name))
                        .arg(told.earlier + 1)));
            QCOMPARE(t.page->validateMatchingTableParams(), told.isOff);
            QCOMPARE(t.host.messageTexts(),
                     told.isOff ? QStringList()
                                : QStringList("1: "_s + refusal(Columns[told.column - 1].name,
                                                                told.earlier)));
        }
    }
}

void TestWeldMatching::aColumnThatIsOffIsNotChecked_data()
{
    switchCellsAre_data();
}

void TestWeldMatching::aColumnThatIsOffIsNotChecked()
{
    QFETCH(const int, column);
    const MatchingPage t;
    t.setSwitches(true, true, true);
    t.toggleOf(column)->setChecked(false);
    for (int dataRow = 0; dataRow < 4; ++dataRow)
        t.editor(dataRow + 2, column)->setValue(90 - dataRow);
    QVERIFY(t.page->validateMatchingTableParams());
    QVERIFY(t.host.messages.isEmpty());
}

void TestWeldMatching::aMissingSwitchCountsAsOn()
{
    const MatchingPage t;
    t.table()->removeCellWidget(0, 2);
    QVERIFY(t.page->validateMatchingTableParams());
    t.editor(3, 2)->setValue(100);
    expectWarning(QRegularExpression("Power validation failed"_s));
    QVERIFY(!t.page->validateMatchingTableParams());
}

void TestWeldMatching::refusesATableWithFewRows()
{
    const MatchingPage t;
    t.table()->setRowCount(5);
    expectWarning("validateMatchingTableParams: table does not have enough rows"_s);
    QVERIFY(!t.page->validateMatchingTableParams());
    QVERIFY(t.host.messages.isEmpty());
}

void TestWeldMatching::refusesMissingEditors_data()
{
    QTest::addColumn<int>("tableRow");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("told");
    for (int tableRow = 2; tableRow <= 5; ++tableRow) {
        for (int column = 1; column <= 4; ++column)
            QTest::addRow("%d, %d", tableRow, column)
                << tableRow << column << std::max(tableRow - 1, 2);
    }
}

// Whatever is wrong behind it, and whether the column is on or off.
void TestWeldMatching::refusesMissingEditors()
{
    QFETCH(const int, tableRow);
    QFETCH(const int, column);
    QFETCH(const int, told);
    const MatchingPage t;
    t.table()->removeCellWidget(tableRow, column);
    expectWarning(
        "validateMatchingTableParams: missing spinbox widgets at data row %1"_s.arg(told));
    QVERIFY(!t.page->validateMatchingTableParams());
    QVERIFY(t.host.messages.isEmpty());
}

void TestWeldMatching::sendsTheRecord()
{
    const MatchingPage t({{keyOf(10), storedRecord()}});
    t.openMatching(10);
    t.setSwitches(false, true, false);
    t.editor(5, 1)->setValue(1000);
    t.click("pushButton_save");
    QCOMPARE(t.host.commands.size(), 1);
    const ScriptedHost::Command& command = t.host.commands.first();
    QCOMPARE(command.sender, t.page.get());
    QCOMPARE(command.plugin, "qelLaserWelding"_s);
    QVERIFY(!command.isText);
    Values values = Stored;
    values[3][0] = 1000;
    QJsonObject record = recordOf(rowsOf(values), false, true, false);
    record.insert("PowerDataID"_s, keyOf(10));
    QCOMPARE(command.data,
             QJsonObject({{"set_weld_param_match_config"_s, QJsonObject{{keyOf(10), record}}}}));
}

void TestWeldMatching::tellsTheResult_data()
{
    QTest::addColumn<QJsonArray>("reply");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QStringList>("lines");
    const QString command = "set_weld_param_match_config"_s;
    const QString start = "WeldParameterPage::checkSaveResult failed. "_s;
    QTest::newRow("saved") << ScriptedHost::reply(command, 0)
                           << QStringList("0: Saved successfully"_s) << QStringList();
    QTest::newRow("refused") << ScriptedHost::reply(command, -3)
                             << QStringList(
                                    "2: Save failed. Please check the parameter configuration."_s)
                             << QStringList(start + " "_s + command + "  Result: -3"_s);
    QTest::newRow("of another command")
        << ScriptedHost::reply("set_weld_param_list_config"_s, 0) << QStringList()
        << QStringList(start + "not found  "_s + command + "  Result"_s);
    QTest::newRow("none") << QJsonArray() << QStringList()
                          << QStringList(start + "not found  "_s + command + "  Result"_s);
}

void TestWeldMatching::tellsTheResult()
{
    QFETCH(const QJsonArray, reply);
    QFETCH(const QStringList, messages);
    QFETCH(const QStringList, lines);
    MatchingPage t({{keyOf(1), storedRecord()}});
    t.host.replies.insert("set_weld_param_match_config"_s, reply);
    t.openMatching(1);
    t.click("pushButton_save");
    QCOMPARE(t.host.messageTexts(), messages);
    QCOMPARE(LogFolder::texts(), lines);
    // The view stays, and so do the values.
    QCOMPARE(t.stack()->currentIndex(), 2);
    QCOMPARE(t.values(), Stored);
}

void TestWeldMatching::savesWhatTheItemsHold()
{
    const MatchingPage t;
    QTableWidget* table = t.table();
    // A row of items, one of a single number, one of none, and one with no cell at all.
    table->setRowCount(10);
    for (int tableRow = 6; tableRow < 9; ++tableRow) {
        for (int column = 1; column < 5; ++column)
            table->setItem(tableRow, column, new QTableWidgetItem("text"_s));
    }
    for (int column = 1; column < 5; ++column)
        table->item(6, column)->setText(QString::number(column + 0.5));
    table->item(7, 3)->setText("-2"_s);
    const QJsonArray rows = t.savedRecord().value("power_data"_s).toArray();
    QJsonArray expected = rowsOf(Defaults);
    expected.append(QJsonArray{1.5, 2.5, 3.5, 4.5});
    expected.append(QJsonArray{0, 0, -2, 0});
    QCOMPARE(rows, expected);
}

void TestWeldMatching::savesATableThatLacksCells()
{
    const MatchingPage t;
    t.setSwitches(true, true, true);
    t.table()->removeCellWidget(0, 3);
    t.table()->removeCellWidget(2, 1);
    t.table()->setColumnCount(4);
    for (int column = 1; column < 4; ++column)
        t.table()->removeCellWidget(4, column);
    QJsonObject expected =
        recordOf(QJsonArray{row(0, 100, 100, 0), row(20, 200, 200, 0), row(40, 400, 400, 0)}, true,
                 false, false);
    expected.insert("PowerDataID"_s, "ProcessData1"_s);
    QCOMPARE(t.savedRecord(), expected);
    t.table()->setRowCount(0);
    expected = recordOf(QJsonArray(), false, false, false);
    expected.insert("PowerDataID"_s, "ProcessData1"_s);
    QCOMPARE(t.savedRecord(), expected);
}

void TestWeldMatching::savesNothingUnderNoKey()
{
    const MatchingPage t;
    t.stack()->setCurrentIndex(2);
    t.keyLabel()->clear();
    expectWarning("createMatchDataJson: PowerDataID is empty"_s);
    t.click("pushButton_save");
    QCOMPARE(t.host.commands.size(), 1);
    QCOMPARE(t.host.commands.first().data, QJsonObject());
}

void TestWeldMatching::savedRecordLoadsAgain()
{
    MatchingPage t({{keyOf(2), storedRecord()}});
    t.openMatching(2);
    t.enter(Defaults);
    t.setSwitches(false, true, true);
    t.click("pushButton_save");
    t.store(t.host.commands.first().data.value("set_weld_param_match_config"_s));
    t.click("pushButton_back");
    QCOMPARE(t.listed(2), QStringList({"40"_s, "400"_s, "400"_s, "40"_s}));
    t.enter(Stored);
    t.openMatching(2);
    QCOMPARE(t.values(), Defaults);
    QCOMPARE(t.switches(), QList<bool>({false, true, true}));
}

LASERWELD_TEST_MAIN(TestWeldMatching)
#include "tst_weldmatching.moc"
