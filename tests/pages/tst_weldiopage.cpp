#include "UiScale.h"
#include "WeldioTest.h"

#include <QBoxLayout>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTabWidget>
#include <QTimer>

using namespace WeldioTest;

namespace {

/// The row of a signal in its table.
int rowOf(const Signal& signal)
{
    const int place = int(&signal - Signals);
    return isOutput(signal) ? place : place - OutputCount;
}

/// What a box at a kind asks the host for.
QStringList callsOf(const Signal& signal, int index)
{
    QStringList calls;
    const Kind kind = kinds(signal.typeCode).at(index);
    for (int time = 0; time < kind.times; ++time)
        calls << text(kind.call);
    return calls;
}

int registerIndex(const Signal& signal)
{
    return signal.digital ? 1 : 2;
}

/// What each row asks the host for, one after the other.
QStringList callsOfAll(bool atRegisters)
{
    QStringList calls;
    for (const Signal& signal : Signals)
        calls << callsOf(signal, atRegisters ? registerIndex(signal) : 0);
    return calls;
}

QStringList ownSignals(const QMetaObject& meta)
{
    QStringList names;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        if (meta.method(index).methodType() == QMetaMethod::Signal)
            names << QString::fromLatin1(meta.method(index).methodSignature());
    }
    return names;
}

/// Counts the paintings of a widget.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget* painted) { painted->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return false;
    }
    int count = 0;
};

/// Lets the timers of a layout fire.
bool waitForLayout()
{
    bool isOver = false;
    QTimer::singleShot(50, qApp, [&isOver] { isOver = true; });
    return QTest::qWaitFor([&isOver] { return isOver; });
}

} // namespace

class TestWeldioPage : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    // The form.
    void form();
    void tables_data();
    void tables();
    void buttons();
    void constructionAsksNothing();
    void metaObject();
    void textsInChinese();

    // The rows.
    void rowHasItsWidgets_data();
    void rowHasItsWidgets();
    void rowIsNumbered_data();
    void rowIsNumbered();
    void cellsAreCentred_data();
    void cellsAreCentred();
    void captionInChinese_data();
    void captionInChinese();

    // The connections.
    void switchFreesItsRow_data();
    void switchFreesItsRow();
    void typeRefillsThePorts_data();
    void typeRefillsThePorts();
    void typeResetsThePort();
    void typeRestartsNoOtherRow();
    void portKeepsTheBias();
    void portEmitsAsIfFilledAnew();
    void chosenBiasIsPaintedAnew();

    // Showing.
    void showAsksTheHostInOrder();
    void showLoadsWhatIsHeld();
    void showTakesNoRecord_data();
    void showTakesNoRecord();
    void portThatVanishedIsEmpty();
    void newPortsAreOffered();
    void lengthsAreReadAtEachShow();
    void registersThatAreNoArray();
    void popupsShowTenItems();
    void boxesHaveTheirFont();
    void onlyOneCaptionIsSetAnew();
    void showEmitsForThePorts();

    // Who may edit.
    void levels_data();
    void levels();
    void permissionsFreeTheWholeForm();
    void mainSwitchLocks_data();
    void mainSwitchLocks();
    void rowsAreFreedBySwitch_data();
    void rowsAreFreedBySwitch();

    // Cancelling.
    void cancelReloads();
    void cancelFreesNoRow();
    void cancelInChinese();

    // Its life.
    void outlivesTheSettingPage();
    void goesInAnyState_data();
    void goesInAnyState();
    void pagesStandAlone();
};

void TestWeldioPage::cleanup()
{
    RegisterLengths::read(QJsonArray());
    TestCase::cleanup();
}

void TestWeldioPage::form()
{
    const PageOnCell t;
    QCOMPARE(t.page->objectName(), "WeldioPage"_s);
    QCOMPARE(t.page->windowTitle(), "Form"_s);
    const QSizePolicy expanding(QSizePolicy::Expanding, QSizePolicy::Expanding);
    QCOMPARE(t.page->sizePolicy(), expanding);
    auto* main = qobject_cast<QVBoxLayout*>(t.page->layout());
    QCOMPARE(main->objectName(), "verticalLayout_main"_s);
    QCOMPARE(main->count(), 2);
    auto* tabs = child<QTabWidget>(t.page.get(), "tabWidget_io");
    QCOMPARE(main->itemAt(0)->widget(), tabs);
    QCOMPARE(main->stretch(0), 1);
    QCOMPARE(main->itemAt(1)->layout()->objectName(), "horizontalLayout"_s);
    QCOMPARE(main->stretch(1), 0);
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->currentIndex(), 0);
}

void TestWeldioPage::tables_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("rows");
    QTest::newRow("output") << 0 << "I/O output" << 15;
    QTest::newRow("input") << 1 << "I/O Input" << 9;
}

void TestWeldioPage::tables()
{
    QFETCH(int, tab);
    const PageOnCell t;
    const QString name = text(QTest::currentDataTag());
    auto* tabs = child<QTabWidget>(t.page.get(), "tabWidget_io");
    QTEST(tabs->tabText(tab), "caption");
    QCOMPARE(tabs->widget(tab)->objectName(), "tab_"_s + name);
    auto* layout = qobject_cast<QVBoxLayout*>(tabs->widget(tab)->layout());
    QCOMPARE(layout->objectName(), "verticalLayout_"_s + name);
    QCOMPARE(layout->contentsMargins(), QMargins(4, 4, 4, 4));
    const QTableWidget* table = t.table(tab == 0);
    QCOMPARE(layout->itemAt(0)->widget(), table);
    QCOMPARE(table->columnCount(), 5);
    QTEST(table->rowCount(), "rows");
    QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(!table->tabKeyNavigation());
    QVERIFY(table->showGrid());
}

void TestWeldioPage::buttons()
{
    const PageOnCell t;
    auto* row = child<QHBoxLayout>(t.page.get(), "horizontalLayout");
    QCOMPARE(row->count(), 3);
    QVERIFY(row->itemAt(0)->spacerItem());
    for (int place : {1, 2}) {
        const QString caption = place == 1 ? "Cancel"_s : "Save"_s;
        auto* button = qobject_cast<QPushButton*>(row->itemAt(place)->widget());
        QCOMPARE(button->objectName(), "pushButton_"_s + caption);
        QCOMPARE(button->text(), caption);
        QCOMPARE(button->property("normal"), QVariant(true));
    }
}

void TestWeldioPage::constructionAsksNothing()
{
    const PageOnCell t;
    QCOMPARE(t.asked(), QStringList());
    QCOMPARE(LogFolder::texts(), QStringList());
}

void TestWeldioPage::metaObject()
{
    QCOMPARE(ownSignals(WeldioPage::staticMetaObject), QStringList{"settingChanged()"_s});
    PageOnCell t;
    const QSignalSpy changed(t.page.get(), &WeldioPage::settingChanged);
    t.show();
    t.clickSave();
    t.clickCancel();
    QVERIFY(changed.isEmpty());
    QCOMPARE(t.host.commands.size(), 1);
}

void TestWeldioPage::textsInChinese()
{
    const ChineseTranslator translator;
    const PageOnCell t;
    auto* tabs = child<QTabWidget>(t.page.get(), "tabWidget_io");
    QCOMPARE(tabs->tabText(0), chinese("I/O output"));
    QCOMPARE(tabs->tabText(1), chinese("I/O Input"));
    QCOMPARE(child<QPushButton>(t.page.get(), "pushButton_Save")->text(), chinese("Save"));
    QCOMPARE(child<QPushButton>(t.page.get(), "pushButton_Cancel")->text(), chinese("Cancel"));
}

void TestWeldioPage::rowHasItsWidgets_data()
{
    QTest::addColumn<QString>("key");
    for (const Signal& signal : Signals)
        QTest::newRow(signal.key) << text(signal.key);
}

void TestWeldioPage::rowHasItsWidgets()
{
    QFETCH(QString, key);
    const Signal& signal = signalOf(key);
    const PageOnCell t;
    const QTableWidget* table = t.table(isOutput(signal));
    const auto cell = [&](int column) { return table->cellWidget(rowOf(signal), column); };
    QVERIFY(!cell(0));
    QCOMPARE(cell(1), t.label(key));
    QCOMPARE(t.label(key)->text(), text(signal.caption));
    QCOMPARE(t.type(key)->parentWidget(), cell(2));
    QStringList items;
    const auto offered = kinds(signal.typeCode);
    for (const Kind& kind : offered)
        items << text(kind.item);
    QCOMPARE(itemTexts(t.type(key)), items);
    QCOMPARE(t.type(key)->currentIndex(), 0);
    QCOMPARE(t.port(key)->parentWidget(), cell(3));
    QCOMPARE(t.bias(key)->parentWidget(), cell(3));
    QCOMPARE(t.port(key)->count(), 0);
    QCOMPARE(t.bias(key)->count(), 0);
    QVERIFY(!t.port(key)->isHidden());
    QVERIFY(t.bias(key)->isHidden());
    QVERIFY(!t.port(key)->isEditable());
    QCOMPARE(cell(4) != nullptr, signal.hasSwitch);
    if (signal.hasSwitch) {
        QCOMPARE(t.onSwitch(key)->parentWidget(), cell(4));
        QVERIFY(!t.onSwitch(key)->isChecked());
    }
}

void TestWeldioPage::rowIsNumbered_data()
{
    rowHasItsWidgets_data();
}

void TestWeldioPage::rowIsNumbered()
{
    QFETCH(QString, key);
    const Signal& signal = signalOf(key);
    const PageOnCell t;
    const QTableWidgetItem* item = t.table(isOutput(signal))->item(rowOf(signal), 0);
    QCOMPARE(item->text(), QString::number(rowOf(signal) + 1));
    QCOMPARE(item->textAlignment(), int(Qt::AlignCenter));
    QCOMPARE(item->flags(), Qt::ItemFlags(Qt::ItemIsEnabled));
}

void TestWeldioPage::cellsAreCentred_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("type") << 2 << 0 << QStringList{"comboBox_power_type"_s};
    QTest::newRow("assign") << 3 << 4
                            << QStringList{"comboBox_power_port"_s, "comboBox_power_bias"_s};
    QTest::newRow("switch") << 4 << 0 << QStringList{"pushButton_power_enabled"_s};
}

void TestWeldioPage::cellsAreCentred()
{
    QFETCH(int, column);
    QFETCH(int, spacing);
    QFETCH(QStringList, names);
    const PageOnCell t;
    const QWidget* cell = t.table(true)->cellWidget(1, column);
    const QSizePolicy expanding(QSizePolicy::Expanding, QSizePolicy::Expanding);
    QCOMPARE(cell->sizePolicy(), expanding);
    auto* column_ = qobject_cast<QVBoxLayout*>(cell->layout());
    QCOMPARE(column_->contentsMargins(), QMargins(2, 2, 2, 2));
    QCOMPARE(column_->spacing(), 0);
    QCOMPARE(column_->count(), 3);
    for (const int place : {0, 2}) {
        QVERIFY(column_->itemAt(place)->spacerItem());
        QCOMPARE(column_->itemAt(place)->expandingDirections(), Qt::Orientations(Qt::Vertical));
    }
    auto* row = qobject_cast<QHBoxLayout*>(column_->itemAt(1)->layout());
    QCOMPARE(row->contentsMargins(), QMargins());
    QCOMPARE(row->spacing(), spacing);
    QCOMPARE(row->count(), names.size());
    for (int place = 0; place < names.size(); ++place)
        QCOMPARE(row->itemAt(place)->widget()->objectName(), names.at(place));
}

void TestWeldioPage::captionInChinese_data()
{
    rowHasItsWidgets_data();
}

void TestWeldioPage::captionInChinese()
{
    QFETCH(QString, key);
    const ChineseTranslator translator;
    const PageOnCell t;
    QCOMPARE(t.label(key)->text(), chinese(signalOf(key).caption));
}

void TestWeldioPage::switchFreesItsRow_data()
{
    QTest::addColumn<QString>("key");
    for (const Signal& signal : Signals) {
        if (signal.hasSwitch)
            QTest::newRow(signal.key) << text(signal.key);
    }
}

void TestWeldioPage::switchFreesItsRow()
{
    QFETCH(QString, key);
    PageOnCell t;
    t.show();
    for (const bool isOn : {true, false}) {
        t.press(key);
        QCOMPARE(t.onSwitch(key)->isChecked(), isOn);
        for (const QWidget* each : std::initializer_list<const QWidget*>{t.label(key), t.type(key),
                                                                         t.port(key), t.bias(key)})
            QCOMPARE(PageOnCell::isFree(each), isOn);
    }
    QCOMPARE(t.asked(), QStringList());
}

void TestWeldioPage::typeRefillsThePorts_data()
{
    rowHasItsWidgets_data();
}

void TestWeldioPage::typeRefillsThePorts()
{
    QFETCH(QString, key);
    const Signal& signal = signalOf(key);
    PageOnCell t;
    t.show();
    const QVector<Kind> all = kinds(signal.typeCode);
    for (int index = all.size() - 1; index >= 0; --index) {
        t.host.forgetCalls();
        t.type(key)->setCurrentIndex(index);
        QCOMPARE(t.asked(), callsOf(signal, index));
        const QStringList items = itemTexts(t.port(key));
        if (index == registerIndex(signal))
            QVERIFY(items.contains(registerOf(signal.typeCode)));
        else
            QCOMPARE(items, offered(all.at(index).item));
        QCOMPARE(items.first(), QString());
        QVERIFY(!t.port(key)->itemData(0).isValid());
    }
}

void TestWeldioPage::typeResetsThePort()
{
    PageOnCell t;
    // A name that both kinds offer is reset too.
    t.host.portNames.insert("GO"_s, {"AO1"_s});
    t.show();
    t.assign("power"_s, "AO1"_s);
    t.type("power"_s)->setCurrentIndex(1);
    QCOMPARE(t.port("power"_s)->currentIndex(), 0);
    QCOMPARE(t.port("power"_s)->currentText(), QString());
    t.type("power"_s)->setCurrentIndex(2);
    QVERIFY(t.bias("power"_s)->isHidden());
    t.assign("power"_s, "WN1"_s);
    QVERIFY(!t.bias("power"_s)->isHidden());
    t.type("power"_s)->setCurrentIndex(0);
    QVERIFY(t.bias("power"_s)->isHidden());
    QCOMPARE(t.bias("power"_s)->count(), 1);
}

void TestWeldioPage::typeRestartsNoOtherRow()
{
    PageOnCell t(registerRecordOfAll());
    t.show();
    t.type("power"_s)->setCurrentIndex(0);
    QCOMPARE(t.form(),
             with(registerRecordOfAll(),
                  {{"power_type"_s, 0}, {"power_port"_s, QString()}, {"power_bias"_s, 0}}));
}

void TestWeldioPage::portKeepsTheBias()
{
    PageOnCell t(
        with(plainRecord(), {{"power_type"_s, 2}, {"power_port"_s, "WN1"_s}, {"power_bias"_s, 2}}));
    t.show();
    const QComboBox* bias = t.bias("power"_s);
    QCOMPARE(bias->currentText(), "3"_s);
    t.assign("power"_s, "WI1"_s);
    QCOMPARE(bias->currentText(), "3"_s);
    QCOMPARE(bias->count(), 4);
    t.assign("power"_s, "WI2"_s);
    QCOMPARE(bias->currentText(), "2"_s);
    QCOMPARE(bias->count(), 2);
    t.assign("power"_s, QString());
    QVERIFY(bias->isHidden());
    QCOMPARE(bias->count(), 1);
    t.assign("power"_s, "WI1"_s);
    QCOMPARE(bias->currentText(), "1"_s);
    QVERIFY(!bias->isHidden());
}

void TestWeldioPage::portEmitsAsIfFilledAnew()
{
    PageOnCell t;
    t.show();
    t.assign("power"_s, "AO2"_s);
    QList<int> indices;
    connect(t.port("power"_s), QOverload<int>::of(&QComboBox::currentIndexChanged), t.page.get(),
            [&](int index) { indices << index; });
    t.type("power"_s)->setCurrentIndex(1);
    QCOMPARE(indices, (QList<int>{-1, 0}));
}

void TestWeldioPage::chosenBiasIsPaintedAnew()
{
    PageOnCell t(with(registerRecordOfAll(), {{"power_bias"_s, 1}}));
    t.page->resize(1000, 700);
    t.show();
    QComboBox* bias = t.bias("power"_s);
    PaintCount paints(bias);
    do {
        paints.count = 0;
        QVERIFY(waitForLayout());
    } while (paints.count > 0);
    const QSignalSpy changed(bias, QOverload<int>::of(&QComboBox::currentIndexChanged));
    Q_EMIT bias->activated(1);
    QTRY_VERIFY(paints.count > 0);
    QCOMPARE(bias->currentIndex(), 1);
    QVERIFY(changed.isEmpty());
}

void TestWeldioPage::showAsksTheHostInOrder()
{
    PageOnCell t(registerRecordOfAll());
    const QStringList before{"getRegisterValue"_s, "getQelServiceData weld_io_config"_s};
    const QStringList after{"getUserOperateLevel"_s};
    t.page->show();
    QCOMPARE(t.asked(), before + callsOfAll(false) + callsOfAll(true) + after);
    t.page->hide();
    t.host.service.insert("weld_io_config"_s, plainRecord());
    t.host.forgetCalls();
    t.page->show();
    QCOMPARE(t.asked(), before + callsOfAll(true) + callsOfAll(false) + after);
    QVERIFY(t.host.messages.isEmpty());
    QVERIFY(t.host.commands.isEmpty());
}

void TestWeldioPage::showLoadsWhatIsHeld()
{
    PageOnCell t(registerRecordOfAll());
    t.show();
    QCOMPARE(t.form(), registerRecordOfAll());
    t.assign("power"_s, "WI1"_s);
    t.page->hide();
    t.page->show();
    QCOMPARE(t.form(), registerRecordOfAll());
}

void TestWeldioPage::showTakesNoRecord_data()
{
    QTest::addColumn<QJsonValue>("record");
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("text") << QJsonValue("{}"_s);
    QTest::newRow("array") << QJsonValue(QJsonArray{plainRecord()});
}

// The lists are filled all the same, and what was shown stays.
void TestWeldioPage::showTakesNoRecord()
{
    QFETCH(QJsonValue, record);
    PageOnCell t(record);
    t.page->show();
    QCOMPARE(t.asked(), QStringList({"getRegisterValue"_s, "getQelServiceData weld_io_config"_s}) +
                            callsOfAll(false) + QStringList{"getUserOperateLevel"_s});
    QCOMPARE(itemTexts(t.port("red_light"_s)), offered("DO"));
    t.assign("red_light"_s, "DO2"_s);
    t.page->hide();
    t.page->show();
    QCOMPARE(t.port("red_light"_s)->currentText(), "DO2"_s);
}

void TestWeldioPage::portThatVanishedIsEmpty()
{
    PageOnCell t(
        with(plainRecord(), {{"red_light_port"_s, "DO10"_s}, {"red_light_enabled"_s, true}}));
    t.show();
    QCOMPARE(t.port("red_light"_s)->currentText(), "DO10"_s);
    t.page->hide();
    t.host.portNames.insert("DO"_s, {"DO1"_s, "DO2"_s});
    t.show();
    QCOMPARE(t.port("red_light"_s)->currentIndex(), 0);
    QCOMPARE(itemTexts(t.port("red_light"_s)), (QStringList{QString(), "DO1"_s, "DO2"_s}));
    t.clickSave();
    QCOMPARE(t.host.messageTexts(),
             QStringList{"2: There is an empty port. Please check and reconfigure!"_s});
}

void TestWeldioPage::newPortsAreOffered()
{
    PageOnCell t;
    t.show();
    t.page->hide();
    t.host.portNames.insert("DO"_s, {"DO1"_s, "DO2"_s, "DO5"_s});
    t.host.service.insert("weld_io_config"_s, with(plainRecord(), {{"red_light_port"_s, "DO5"_s}}));
    t.show();
    QCOMPARE(t.port("red_light"_s)->currentText(), "DO5"_s);
}

void TestWeldioPage::lengthsAreReadAtEachShow()
{
    PageOnCell t(registerRecordOfAll());
    t.show();
    QCOMPARE(t.bias("power"_s)->count(), 4);
    QJsonArray registers = cellRegisters();
    registers.append(registerRecord("WN1", "float", "w", 2));
    t.host.registerValue = registers;
    QCOMPARE(t.bias("power"_s)->count(), 4);
    t.page->hide();
    t.show();
    QCOMPARE(t.bias("power"_s)->count(), 2);
    QCOMPARE(t.bias("power"_s)->currentText(), "2"_s);
    QCOMPARE(t.bias("frequency"_s)->count(), 2);
    QCOMPARE(t.bias("swing_job"_s)->count(), 4);
}

void TestWeldioPage::registersThatAreNoArray()
{
    PageOnCell t(with(plainRecord(), {{"red_light_type"_s, 2}, {"red_light_port"_s, "WB1"_s}}));
    t.show();
    QCOMPARE(t.bias("red_light"_s)->count(), 4);
    t.page->hide();
    t.host.registerValue = "none"_s;
    // Once for the list as it is shown, once for the record.
    for (int time = 0; time < 2; ++time)
        expectWarning(QRegularExpression("getRegisterValue is not an array"_s));
    t.show();
    QCOMPARE(itemTexts(t.port("red_light"_s)), QStringList{QString()});
    QVERIFY(t.bias("red_light"_s)->isHidden());
    QCOMPARE(RegisterLengths::of("WB1"_s), 1);
}

void TestWeldioPage::popupsShowTenItems()
{
    PageOnCell t;
    const auto boxes = t.page->findChildren<QComboBox*>();
    QCOMPARE(boxes.size(), 72);
    for (QComboBox* box : boxes)
        box->setMaxVisibleItems(3);
    t.show();
    for (const QComboBox* box : boxes)
        QCOMPARE(box->maxVisibleItems(), 10);
}

void TestWeldioPage::boxesHaveTheirFont()
{
    PageOnCell t;
    t.show();
    const QFont font = UiScale::font(9, t.page.get());
    const auto boxes = t.page->findChildren<QComboBox*>();
    for (const QComboBox* box : boxes) {
        QCOMPARE(box->font().family(), font.family());
        QCOMPARE(box->font().pointSize(), font.pointSize());
    }
}

void TestWeldioPage::onlyOneCaptionIsSetAnew()
{
    PageOnCell t;
    t.show();
    const ChineseTranslator translator;
    t.page->hide();
    t.show();
    for (const Signal& signal : Signals) {
        const bool isAnew = text(signal.key) == "retract_direction"_s;
        QCOMPARE(t.label(text(signal.key))->text(),
                 isAnew ? chinese("Wire back feed") : text(signal.caption));
    }
}

// The lists are filled without blocking, the record is loaded with it.
void TestWeldioPage::showEmitsForThePorts()
{
    PageOnCell t(with(plainRecord(), {{"power_port"_s, "AO2"_s}}));
    QList<int> ports, types;
    connect(t.port("power"_s), QOverload<int>::of(&QComboBox::currentIndexChanged), t.page.get(),
            [&](int index) { ports << index; });
    connect(t.type("power"_s), QOverload<int>::of(&QComboBox::currentIndexChanged), t.page.get(),
            [&](int index) { types << index; });
    t.show();
    QCOMPARE(ports, QList<int>{0});
    t.page->hide();
    t.show();
    QCOMPARE(ports, (QList<int>{0, -1, 0, 2}));
    QCOMPARE(types, QList<int>());
}

void TestWeldioPage::levels_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("isFree");
    QTest::newRow("-1") << -1 << false;
    QTest::newRow("0") << 0 << false;
    QTest::newRow("2") << 2 << false;
    QTest::newRow("3") << 3 << true;
    QTest::newRow("4") << 4 << true;
}

// The rows are not touched below the level.
void TestWeldioPage::levels()
{
    QFETCH(int, level);
    QFETCH(bool, isFree);
    PageOnCell t;
    t.show();
    t.host.level = level;
    t.setMainSwitch(true);
    t.page->applyPermissions();
    QCOMPARE(t.page->isEnabled(), isFree);
    QCOMPARE(t.asked(), QStringList{"getUserOperateLevel"_s});
    auto* save = child<QPushButton>(t.page.get(), "pushButton_Save");
    QCOMPARE(PageOnCell::isFree(save), !isFree);
    QCOMPARE(PageOnCell::isFree(t.port("laser_enable"_s)), !isFree);
    t.host.level = 3;
    t.setMainSwitch(false);
    t.page->hide();
    t.show();
    QVERIFY(t.page->isEnabled() && save->isEnabled());
}

void TestWeldioPage::permissionsFreeTheWholeForm()
{
    PageOnCell t;
    QVector<QWidget*> form{t.page.get(), t.table(true), t.table(false)};
    for (const char* name : {"tabWidget_io", "pushButton_Save", "pushButton_Cancel"})
        form << child<QWidget>(t.page.get(), name);
    for (QWidget* each : std::as_const(form))
        each->setEnabled(false);
    t.page->applyPermissions();
    for (const QWidget* each : std::as_const(form))
        QVERIFY(each->isEnabled());
}

void TestWeldioPage::mainSwitchLocks_data()
{
    QTest::addColumn<bool>("areSwitchesOn");
    QTest::newRow("switches on") << true;
    QTest::newRow("switches off") << false;
}

void TestWeldioPage::mainSwitchLocks()
{
    QFETCH(bool, areSwitchesOn);
    PageOnCell t(areSwitchesOn ? registerRecordOfAll() : plainRecord());
    t.setMainSwitch(true);
    t.show();
    QVERIFY(t.page->isEnabled());
    for (const char* name : {"pushButton_Save", "pushButton_Cancel"})
        QVERIFY(!child<QWidget>(t.page.get(), name)->isEnabled());
    for (const Signal& signal : Signals) {
        const QString key = text(signal.key);
        QVERIFY(t.label(key)->isEnabled());
        QVERIFY(!t.type(key)->isEnabled() && !t.port(key)->isEnabled());
        QVERIFY(!t.bias(key)->isEnabled());
        QVERIFY(!signal.hasSwitch || !t.onSwitch(key)->isEnabled());
    }
    t.setMainSwitch(false);
    t.page->applyPermissions();
    QVERIFY(child<QWidget>(t.page.get(), "pushButton_Save")->isEnabled());
    QVERIFY(t.port("laser_enable"_s)->isEnabled());
}

void TestWeldioPage::rowsAreFreedBySwitch_data()
{
    rowHasItsWidgets_data();
}

void TestWeldioPage::rowsAreFreedBySwitch()
{
    QFETCH(QString, key);
    const Signal& signal = signalOf(key);
    PageOnCell t(registerRecordOfAll());
    for (const bool isOn : {true, false}) {
        if (signal.enabledKey)
            t.host.service.insert("weld_io_config"_s,
                                  with(registerRecordOfAll(), {{text(signal.enabledKey), isOn}}));
        t.show();
        for (const QWidget* each : std::initializer_list<const QWidget*>{t.label(key), t.type(key),
                                                                         t.port(key), t.bias(key)})
            QCOMPARE(PageOnCell::isFree(each), isOn || !signal.hasSwitch);
        QVERIFY(!signal.hasSwitch || PageOnCell::isFree(t.onSwitch(key)));
        t.page->hide();
    }
}

void TestWeldioPage::cancelReloads()
{
    PageOnCell t(registerRecordOfAll());
    t.show();
    t.type("power"_s)->setCurrentIndex(0);
    t.press("swing_job"_s);
    t.host.forgetCalls();
    t.clickCancel();
    QCOMPARE(t.form(), registerRecordOfAll());
    QCOMPARE(t.host.messageTexts(), QStringList{"0: Cancel successful"_s});
    QCOMPARE(t.asked(), QStringList{"getQelServiceData weld_io_config"_s} + callsOfAll(true) +
                            QStringList{"ThrowLog qelLaserWelding"_s});
    t.host.service.remove("weld_io_config"_s);
    t.clickCancel();
    QCOMPARE(t.form(), registerRecordOfAll());
    QCOMPARE(t.host.messages.size(), 2);
}

// The rows stay as free as they were.
void TestWeldioPage::cancelFreesNoRow()
{
    PageOnCell t;
    t.show();
    t.press("power"_s);
    t.clickCancel();
    QVERIFY(!t.onSwitch("power"_s)->isChecked());
    QVERIFY(t.port("power"_s)->isEnabled());
    QCOMPARE(t.host.count("getUserOperateLevel"_s), 0);
}

void TestWeldioPage::cancelInChinese()
{
    const ChineseTranslator translator;
    PageOnCell t;
    t.show();
    t.clickCancel();
    QCOMPARE(t.host.messages.first().text, chinese("Cancel successful"));
}

void TestWeldioPage::outlivesTheSettingPage()
{
    PageOnCell t;
    t.setMainSwitch(true);
    t.show();
    QVERIFY(!t.port("laser_enable"_s)->isEnabled());
    t.setting.reset();
    t.page->applyPermissions();
    QVERIFY(t.port("laser_enable"_s)->isEnabled());
    t.clickSave();
    QCOMPARE(t.host.messageTexts(), QStringList{"0: Saved successfully"_s});
    const WeldioPage alone(nullptr);
    QVERIFY(alone.isEnabled());
}

void TestWeldioPage::goesInAnyState_data()
{
    QTest::addColumn<int>("step");
    QTest::newRow("never shown") << 0;
    QTest::newRow("a layout waits") << 1;
    QTest::newRow("after the layout") << 2;
    QTest::newRow("a switch slides") << 3;
    QTest::newRow("a popup is open") << 4;
    QTest::newRow("a resize waits") << 5;
}

void TestWeldioPage::goesInAnyState()
{
    QFETCH(int, step);
    PageOnCell t(registerRecordOfAll());
    if (step > 0)
        t.page->show();
    if (step > 1)
        QVERIFY(waitForLayout());
    if (step == 3)
        t.press("power"_s);
    if (step == 4)
        t.port("power"_s)->showPopup();
    if (step == 5)
        t.page->resize(900, 700);
    t.page.reset();
    QVERIFY(waitForLayout());
}

void TestWeldioPage::pagesStandAlone()
{
    PageOnCell t;
    t.show();
    auto other = std::make_unique<WeldioPage>(nullptr);
    other->loadConfig(registerRecordOfAll());
    other->show();
    QCOMPARE(t.form(), plainRecord());
    other.reset();
    QCOMPARE(t.form(), plainRecord());
    QCOMPARE(itemTexts(t.port("red_light"_s)), offered("DO"));
}

LASERWELD_TEST_MAIN(TestWeldioPage)
#include "tst_weldiopage.moc"
