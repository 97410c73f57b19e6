#include "ScheduleTest.h"
#include "UiScale.h"

#include <QBoxLayout>
#include <QFocusEvent>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>

using namespace ScheduleTest;

namespace {

const QString Read = "getQelServiceData weld_param_config"_s;
const QString ReadMatch = "getQelServiceData weld_param_match"_s;
const QString Level = "getUserOperateLevel"_s;
const QString SelectRow = "1: Please select a row of data in the table first"_s;
const QString Saved = "0: Saved successfully"_s;
const QString NotSaved = "2: Save failed. Please check the parameter configuration."_s;
const QString Command = "set_weld_param_list_config"_s;

QJsonObject listed(const QJsonValue& speed, const QJsonValue& power, const QJsonValue& feed,
                   const QJsonValue& tips)
{
    return {{"welding_speed"_s, speed},
            {"laser_power_weld"_s, power},
            {"feeding_speed_run"_s, feed},
            {"Tips"_s, tips}};
}

QStringList headers(const QTableWidget* table)
{
    QStringList texts;
    for (int column = 0; column < table->columnCount(); ++column)
        texts << table->horizontalHeaderItem(column)->text();
    return texts;
}

QStringList tabTexts(const QTabWidget* tabs)
{
    QStringList texts;
    for (int index = 0; index < tabs->count(); ++index)
        texts << tabs->tabText(index);
    return texts;
}

/// The reason for which a widget got the focus last.
class FocusWatch : public QObject
{
public:
    explicit FocusWatch(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn)
            reason = static_cast<QFocusEvent*>(event)->reason();
        return false;
    }
    Qt::FocusReason reason = Qt::NoFocusReason;
};

/// Lets what was put off to the next turn of the event loop come.
void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

} // namespace

class TestWeldParameterPage : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void stackHoldsThreeViews();
    void tabs();
    void buttonRow();
    void listIsSetUp();
    void listColumns();
    void headerOfTheDetailView();
    void constructionAsksForNothing();
    void constructedPage();
    void endTabIsArrangedAtFirst();
    void metaObject();
    void pageOutlivesSetting();
    void goesWithTimersPending();

    void listIsFilled();
    void listCells_data();
    void listCells();
    void rowsAreNeverCleared();
    void itemsAreKept();
    void otherServiceDataKeepRows_data();
    void otherServiceDataKeepRows();

    void opensSelectedRow_data();
    void opensSelectedRow();
    void nothingSelected_data();
    void nothingSelected();
    void rowsOpenByTheButtonOnly();
    void buttonsFollowTheView();
    void backReadsTheList();
    void backToMatchingReadsThat();
    void tabOfTheListReads();
    void openingReadsAnew();

    void savesTheRecord();
    void saveDoesNotRefreshTheList();
    void saveOfTheListDoesNothing();
    void saveResults_data();
    void saveResults();

    void showReadsTheList();
    void showReadsMatching();
    void showSetsTheFonts();
    void showReloadsTheRecord();
    void showReloadsMatching();
    void permission_data();
    void permission();
    void editsLoseTheFocus_data();
    void editsLoseTheFocus();
    void otherFocusStays();
    void changeOfTheViewTakesTheFocus();

    void detailViewFollowsTheZoom_data();
    void detailViewFollowsTheZoom();
    void hiddenTabsSetNoStyle();
    void openingStylesTheTabs();
};

void TestWeldParameterPage::stackHoldsThreeViews()
{
    const PageOnHost t;
    QCOMPARE(t.stack()->count(), 3);
    const char* const names[] = {"page_main", "page_config", "page_chart"};
    for (int index = 0; index < 3; ++index)
        QCOMPARE(t.stack()->widget(index)->objectName(), text(names[index]));
    QCOMPARE(t.stack()->currentIndex(), 0);
    auto* column = qobject_cast<QVBoxLayout*>(t.page->layout());
    QCOMPARE(column->itemAt(0)->layout()->objectName(), "horizontalLayout_3"_s);
    QCOMPARE(column->itemAt(1)->widget(), t.stack());
    QVERIFY(t.page->windowTitle().isEmpty());
}

void TestWeldParameterPage::tabs()
{
    const PageOnHost t;
    auto* lists = t.find<QTabWidget>("tabWidget");
    QCOMPARE(tabTexts(lists), (QStringList{"Process schedule"_s, "Parameter matching"_s}));
    QCOMPARE(lists->widget(0)->objectName(), "tab"_s);
    QCOMPARE(lists->widget(1)->objectName(), "tab_2"_s);
    QCOMPARE(lists->currentIndex(), 0);
    QVERIFY(lists->widget(0)->isAncestorOf(t.list()));
    QVERIFY(lists->widget(1)->isAncestorOf(t.find<QTableWidget>("tableWidget_2")));
    auto* config = t.find<QTabWidget>("tabWidget_config");
    QCOMPARE(tabTexts(config),
             (QStringList{"Starting process"_s, "Welding process"_s, "Ending process"_s}));
    const char* const names[] = {"tab_config_start", "tab_config_weld", "tab_config_end"};
    const char* const groups[] = {"groupBox", "groupBox_2", "groupBox_3"};
    for (int index = 0; index < 3; ++index) {
        QCOMPARE(config->widget(index)->objectName(), text(names[index]));
        QVERIFY(config->widget(index)->isAncestorOf(t.find<QGroupBox>(groups[index])));
        QVERIFY(t.find<QGroupBox>(groups[index])->title().isEmpty());
    }
}

void TestWeldParameterPage::buttonRow()
{
    const PageOnHost t;
    auto* row = t.find<QHBoxLayout>("horizontalLayout_3");
    QCOMPARE(row->count(), 4);
    QVERIFY(row->itemAt(0)->spacerItem());
    const char* const names[] = {"pushButton_Config", "pushButton_back", "pushButton_save"};
    const char* const texts[] = {"Detailed", "Back", "Save"};
    for (int index = 0; index < 3; ++index) {
        auto* button = t.find<QPushButton>(names[index]);
        QCOMPARE(row->itemAt(index + 1)->widget(), button);
        QCOMPARE(button->text(), text(texts[index]));
        QCOMPARE(button->property("normal"), QVariant(true));
    }
}

void TestWeldParameterPage::listIsSetUp()
{
    const PageOnHost t;
    const QTableWidget* list = t.list();
    QCOMPARE(list->rowCount(), 30);
    QCOMPARE(headers(list), (QStringList{"NO."_s, "Weld speed (mm/s)"_s, "Laser power (W)"_s,
                                         "Wire feed speed (mm/s)"_s, "Comment"_s}));
    for (int row = 0; row < 30; ++row)
        QCOMPARE(t.cell(row, 0), QString::number(row + 1));
    QCOMPARE(list->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(list->selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(list->selectionBehavior(), QAbstractItemView::SelectRows);
    QVERIFY(list->verticalHeader()->isHidden());
    QVERIFY(!list->horizontalHeader()->isSortIndicatorShown());
    QVERIFY(!list->isSortingEnabled());
    QCOMPARE(list->currentRow(), -1);
}

void TestWeldParameterPage::listColumns()
{
    const PageOnHost t;
    const QHeaderView* header = t.list()->horizontalHeader();
    QCOMPARE(header->sectionResizeMode(0), QHeaderView::Fixed);
    QCOMPARE(header->sectionSize(0), 80);
    for (int column = 1; column < 5; ++column)
        QCOMPARE(header->sectionResizeMode(column), QHeaderView::Stretch);
    QVERIFY(header->stretchLastSection());
}

void TestWeldParameterPage::headerOfTheDetailView()
{
    const PageOnHost t;
    auto* grid = t.find<QGridLayout>("gridLayout_9");
    auto* header = t.find<QFrame>("frame_config_header");
    QCOMPARE(grid->itemAtPosition(0, 0)->widget(), header);
    QCOMPARE(grid->itemAtPosition(1, 0)->widget(), t.find<QTabWidget>("tabWidget_config"));
    auto* row = t.find<QHBoxLayout>("horizontalLayout_8");
    const char* const left[] = {"label", "label_2", "label_3"};
    const char* const right[] = {"label_ID", "comboBox_modetype", "lineEdit"};
    for (int group = 0; group < 3; ++group) {
        QVERIFY(row->itemAt(group)->layout()->indexOf(t.find<QWidget>(left[group])) >= 0);
        QVERIFY(row->itemAt(group)->layout()->indexOf(t.find<QWidget>(right[group])) >= 0);
    }
    QCOMPARE(t.find<QLabel>("label")->text(), "Sched"_s);
    QCOMPARE(t.find<QLabel>("label_2")->text(), "Weld Mode"_s);
    QCOMPARE(t.find<QLabel>("label_3")->text(), "Comment"_s);
    QCOMPARE(t.find<QLabel>("label")->property("type").toString(), "title"_s);
    QCOMPARE(t.find<QLabel>("label_3")->property("type").toString(), "title"_s);
    auto* mode = t.find<QComboBox>("comboBox_modetype");
    QCOMPARE(mode->count(), 2);
    QCOMPARE(mode->itemText(0), "Laser welding"_s);
    QCOMPARE(mode->itemText(1), "Laser welding with filler wire"_s);
    const auto boxes = t.page->findChildren<QComboBox*>();
    for (const QComboBox* each : boxes)
        QCOMPARE(each->property("formCombo"), QVariant(true));
}

void TestWeldParameterPage::constructionAsksForNothing()
{
    const PageOnHost t;
    QCOMPARE(t.asked(), QStringList());
    QVERIFY(LogFolder::texts().isEmpty());
}

void TestWeldParameterPage::constructedPage()
{
    const PageOnHost t;
    QCOMPARE(t.page->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(t.page->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QVERIFY(t.areShown({"pushButton_back", "pushButton_save", "label_process_job",
                        "spinBox_process_job", "label_2", "comboBox_modetype", "label_20",
                        "comboBox_ramp_mode_end", "label_8", "comboBox_ramp_mode_start"},
                       false));
    QVERIFY(t.areShown({"pushButton_Config", "spinBox_swing_job", "label_73", "label_74"}, true));
    QCOMPARE(t.find<QTableWidget>("tableWidget_matching")->frameShape(), QFrame::NoFrame);
}

void TestWeldParameterPage::endTabIsArrangedAtFirst()
{
    const PageOnHost t;
    for (const char* name : {"verticalLayout_end_left", "verticalLayout_end_right"}) {
        auto* column = t.find<QVBoxLayout>(name);
        for (int index = 0; index < column->count(); ++index)
            QVERIFY(column->itemAt(index)->alignment() & Qt::AlignTop);
    }
    for (const char* name : {"horizontalLayout_wire_stick", "horizontalLayout_wire_retraction",
                             "horizontalLayout_wire_fill_com"}) {
        auto* row = t.find<QHBoxLayout>(name);
        for (int index = 0; index < row->count(); ++index)
            QCOMPARE(row->stretch(index), 1);
    }
}

void TestWeldParameterPage::metaObject()
{
    const QMetaObject& meta = WeldParameterPage::staticMetaObject;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
        QVERIFY(meta.method(index).methodType() != QMetaMethod::Signal);
}

void TestWeldParameterPage::pageOutlivesSetting()
{
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.setting.reset();
    t.page->applyPageStyle();
    t.page->show();
    t.open(7);
    QCOMPARE(t.saved(), fullRecord());
    WeldParameterPage without(nullptr);
    without.show();
}

void TestWeldParameterPage::goesWithTimersPending()
{
    PageOnHost t;
    t.page->show();
    t.open(3);
    t.page.reset();
    settle();
}

void TestWeldParameterPage::listIsFilled()
{
    const PageOnHost t(QJsonObject{{"LsData1"_s, listed(12, 800, 3, "butt"_s)},
                                   {"LsData30"_s, listed(200, 9999, 500, QString())},
                                   {"LsData31"_s, listed(1, 1, 1, "no such row"_s)},
                                   {"LsData0"_s, listed(1, 1, 1, "no such row"_s)},
                                   {"LsData02"_s, listed(1, 1, 1, "another key"_s)}});
    t.page->setTableProcessData();
    const QStringList first{"1"_s, "12"_s, "800"_s, "3"_s, "butt"_s};
    const QStringList last{"30"_s, "200"_s, "9999"_s, "500"_s, QString()};
    for (int column = 0; column < 5; ++column) {
        QCOMPARE(t.cell(0, column), first.at(column));
        QCOMPARE(t.cell(29, column), last.at(column));
    }
    for (int row = 1; row < 29; ++row) {
        for (int column = 1; column < 5; ++column)
            QCOMPARE(t.cell(row, column), "(none)"_s);
    }
    QCOMPARE(t.list()->rowCount(), 30);
    QCOMPARE(t.asked(), QStringList{Read});
}

void TestWeldParameterPage::listCells_data()
{
    QTest::addColumn<QJsonValue>("record");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("comment");
    const auto all = [](const QJsonValue& value) {
        return QJsonValue(listed(value, value, value, value));
    };
    QTest::newRow("empty record") << QJsonValue(QJsonObject()) << "0"_s << QString();
    QTest::newRow("no record") << QJsonValue(12) << "0"_s << QString();
    QTest::newRow("null record") << QJsonValue(QJsonValue::Null) << "0"_s << QString();
    QTest::newRow("list of a record") << QJsonValue(QJsonArray{all(1)}) << "0"_s << QString();
    QTest::newRow("number") << all(17) << "17"_s << QString();
    QTest::newRow("beyond the editor's range") << all(-70000) << "-70000"_s << QString();
    QTest::newRow("fraction") << all(1.5) << "0"_s << QString();
    QTest::newRow("too large") << all(1e12) << "0"_s << QString();
    QTest::newRow("text") << all("17"_s) << "0"_s
                          << "17"_s;
    QTest::newRow("bool") << all(true) << "0"_s << QString();
    QTest::newRow("null") << all(QJsonValue::Null) << "0"_s << QString();
    QTest::newRow("list") << all(QJsonArray{1}) << "0"_s << QString();
    QTest::newRow("object") << all(QJsonObject{{"a"_s, 1}}) << "0"_s << QString();
}

void TestWeldParameterPage::listCells()
{
    QFETCH(QJsonValue, record);
    QFETCH(QString, number);
    QFETCH(QString, comment);
    const PageOnHost t(PageOnHost::seven(record));
    t.page->setTableProcessData();
    for (int column = 1; column < 4; ++column)
        QCOMPARE(t.cell(6, column), number);
    QCOMPARE(t.cell(6, 4), comment);
}

void TestWeldParameterPage::rowsAreNeverCleared()
{
    PageOnHost t(PageOnHost::seven(listed(1, 2, 3, "kept"_s)));
    t.page->setTableProcessData();
    t.host.service.insert("weld_param_config"_s, QJsonObject());
    t.page->setTableProcessData();
    QCOMPARE(t.cell(6, 2), "2"_s);
    QCOMPARE(t.cell(6, 4), "kept"_s);
}

void TestWeldParameterPage::itemsAreKept()
{
    PageOnHost t(PageOnHost::seven(listed(1, 2, 3, "before"_s)));
    t.page->setTableProcessData();
    const QTableWidgetItem* item = t.list()->item(6, 4);
    t.host.service.insert("weld_param_config"_s, PageOnHost::seven(listed(4, 5, 6, "after"_s)));
    t.page->setTableProcessData();
    QCOMPARE(t.list()->item(6, 4), item);
    QCOMPARE(item->text(), "after"_s);
    QCOMPARE(t.cell(6, 1), "4"_s);
}

void TestWeldParameterPage::otherServiceDataKeepRows_data()
{
    QTest::addColumn<QJsonValue>("data");
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined);
    QTest::newRow("null") << QJsonValue(QJsonValue::Null);
    QTest::newRow("number") << QJsonValue(7);
    QTest::newRow("text") << QJsonValue("LsData7"_s);
    QTest::newRow("list") << QJsonValue(QJsonArray{PageOnHost::seven(listed(9, 9, 9, "no"_s))});
}

void TestWeldParameterPage::otherServiceDataKeepRows()
{
    QFETCH(QJsonValue, data);
    PageOnHost t(PageOnHost::seven(listed(1, 2, 3, "kept"_s)));
    t.page->setTableProcessData();
    t.host.service.insert("weld_param_config"_s, data);
    t.page->setTableProcessData();
    QCOMPARE(t.cell(6, 4), "kept"_s);
    QVERIFY(t.host.messages.isEmpty());
}

void TestWeldParameterPage::opensSelectedRow_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {1, 2, 7, 29, 30})
        QTest::newRow(QByteArray::number(number).constData()) << number;
}

void TestWeldParameterPage::opensSelectedRow()
{
    QFETCH(int, number);
    const QString key = "LsData%1"_s.arg(number);
    PageOnHost t(QJsonObject{{key, fullRecord()}});
    t.page->show();
    t.host.forgetCalls();
    t.open(number);
    QCOMPARE(t.stack()->currentIndex(), 1);
    QCOMPARE(t.find<QLabel>("label_ID")->text(), key);
    QCOMPARE(t.comment()->text(), "fillet, 3 mm"_s);
    QCOMPARE(t.asked(), QStringList{Read});
}

void TestWeldParameterPage::nothingSelected_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("schedules") << 0;
    QTest::newRow("matching") << 1;
}

void TestWeldParameterPage::nothingSelected()
{
    QFETCH(int, tab);
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->show();
    // What is selected in the other list does not count.
    auto* other = tab == 0 ? t.find<QTableWidget>("tableWidget_2") : t.list();
    other->selectRow(2);
    t.find<QTabWidget>("tabWidget")->setCurrentIndex(tab);
    t.host.forgetCalls();
    t.click("pushButton_Config");
    QCOMPARE(t.host.messageTexts(), QStringList{SelectRow});
    QCOMPARE(t.host.calls.size(), 1);
    QCOMPARE(t.host.calls.first().arguments.at(0).toString(), "qelLaserWelding"_s);
    QCOMPARE(t.stack()->currentIndex(), 0);
    QCOMPARE(t.find<QLabel>("label_ID")->text(), "ID"_s);
    QVERIFY(t.areShown({"pushButton_back", "pushButton_save"}, false));
}

void TestWeldParameterPage::rowsOpenByTheButtonOnly()
{
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->resize(820, 560);
    t.page->show();
    t.host.forgetCalls();
    const QPoint place = t.list()->visualItemRect(t.list()->item(3, 0)).center();
    QTest::mouseClick(t.list()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(t.list()->viewport(), Qt::LeftButton, {}, place);
    QTest::keyClick(t.list(), Qt::Key_Return);
    QCOMPARE(t.list()->currentRow(), 3);
    QCOMPARE(t.stack()->currentIndex(), 0);
    QCOMPARE(t.asked(), QStringList());
}

void TestWeldParameterPage::buttonsFollowTheView()
{
    const PageOnHost t;
    t.page->show();
    for (const int view : {1, 0, 2, 1, 2, 0}) {
        t.stack()->setCurrentIndex(view);
        QVERIFY(t.areShown({"pushButton_Config"}, view == 0));
        QVERIFY(t.areShown({"pushButton_back", "pushButton_save"}, view != 0));
    }
}

void TestWeldParameterPage::backReadsTheList()
{
    PageOnHost t(PageOnHost::seven(listed(1, 2, 3, "before"_s)));
    t.page->show();
    t.open(7);
    t.host.service.insert("weld_param_config"_s, PageOnHost::seven(listed(4, 5, 6, "after"_s)));
    t.host.forgetCalls();
    t.click("pushButton_back");
    QCOMPARE(t.stack()->currentIndex(), 0);
    QCOMPARE(t.asked(), QStringList{Read});
    QCOMPARE(t.cell(6, 4), "after"_s);
    QCOMPARE(t.list()->currentRow(), 6);
}

void TestWeldParameterPage::backToMatchingReadsThat()
{
    PageOnHost t;
    t.page->show();
    t.find<QTabWidget>("tabWidget")->setCurrentIndex(1);
    t.find<QTableWidget>("tableWidget_2")->selectRow(1);
    t.click("pushButton_Config");
    QCOMPARE(t.stack()->currentIndex(), 2);
    QCOMPARE(t.find<QLabel>("label_ID")->text(), "ID"_s);
    t.host.forgetCalls();
    t.click("pushButton_back");
    QCOMPARE(t.stack()->currentIndex(), 0);
    QCOMPARE(t.asked(), QStringList{ReadMatch});
}

void TestWeldParameterPage::tabOfTheListReads()
{
    PageOnHost t;
    t.page->show();
    auto* tabs = t.find<QTabWidget>("tabWidget");
    t.host.forgetCalls();
    tabs->setCurrentIndex(1);
    QCOMPARE(t.asked(), QStringList{ReadMatch});
    t.host.forgetCalls();
    tabs->setCurrentIndex(0);
    QCOMPARE(t.asked(), QStringList{Read});
}

void TestWeldParameterPage::openingReadsAnew()
{
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->show();
    t.open(7);
    t.scramble();
    t.click("pushButton_back");
    t.open(7);
    QCOMPARE(t.saved(), fullRecord());
}

void TestWeldParameterPage::savesTheRecord()
{
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->show();
    t.open(7);
    t.comment()->setText("changed"_s);
    t.host.forgetCalls();
    t.click("pushButton_save");
    QCOMPARE(t.host.callNames(), (QStringList{"commandCustomData"_s, "ThrowLog"_s}));
    QCOMPARE(t.host.commands.size(), 1);
    const ScriptedHost::Command& sent = t.host.commands.first();
    QCOMPARE(sent.sender, static_cast<QObject*>(t.page.get()));
    QCOMPARE(sent.plugin, "qelLaserWelding"_s);
    QVERIFY(!sent.isText);
    QCOMPARE(sent.data,
             (QJsonObject{{Command, PageOnHost::seven(with(fullRecord(), "Tips", "changed"_s))}}));
    QCOMPARE(t.host.messageTexts(), QStringList{Saved});
    QCOMPARE(t.stack()->currentIndex(), 1);
    QCOMPARE(t.comment()->text(), "changed"_s);
}

void TestWeldParameterPage::saveDoesNotRefreshTheList()
{
    PageOnHost t(PageOnHost::seven(listed(1, 2, 3, "before"_s)));
    t.page->show();
    t.open(7);
    t.host.service.insert("weld_param_config"_s, PageOnHost::seven(listed(4, 5, 6, "after"_s)));
    t.click("pushButton_save");
    QCOMPARE(t.cell(6, 4), "before"_s);
}

void TestWeldParameterPage::saveOfTheListDoesNothing()
{
    PageOnHost t;
    t.page->show();
    t.host.forgetCalls();
    t.click("pushButton_save");
    QVERIFY(t.host.calls.isEmpty());
}

void TestWeldParameterPage::saveResults_data()
{
    QTest::addColumn<QJsonArray>("reply");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QStringList>("lines");
    const QStringList none;
    const auto failed = [](int code) {
        return QStringList{
            "WeldParameterPage::checkSaveResult failed.  set_weld_param_list_config  Result: %1"_s
                .arg(code)};
    };
    const QStringList notFound{"WeldParameterPage::checkSaveResult failed. not found  "
                               "set_weld_param_list_config  Result"_s};
    const auto reply = [](const QJsonValue& result) {
        return ScriptedHost::reply(Command, result);
    };
    QTest::newRow("0") << reply(0) << QStringList{Saved} << none;
    QTest::newRow("1") << reply(1) << QStringList{NotSaved} << failed(1);
    QTest::newRow("-7") << reply(-7) << QStringList{NotSaved} << failed(-7);
    QTest::newRow("true reads as 0") << reply(true) << QStringList{Saved} << none;
    QTest::newRow("a text reads as 0") << reply("5"_s) << QStringList{Saved} << none;
    QTest::newRow("null reads as 0") << reply(QJsonValue::Null) << QStringList{Saved} << none;
    QTest::newRow("empty reply") << QJsonArray() << none << notFound;
    QTest::newRow("another plugin")
        << ScriptedHost::reply(Command, 0, "other"_s) << none << notFound;
    QTest::newRow("another command")
        << ScriptedHost::reply("set_weld_param_match_config"_s, 0) << none << notFound;
    QJsonArray late = ScriptedHost::reply(Command, 0, "other"_s);
    late.append(17);
    late.append(reply(3).first());
    late.append(reply(0).first());
    QTest::newRow("the first answer counts") << late << QStringList{NotSaved} << failed(3);
    const QJsonObject noReturn{{"qelLaserWelding"_s, QJsonObject{{Command, QJsonObject()}}}};
    QTest::newRow("no result") << QJsonArray{noReturn} << none << notFound;
}

void TestWeldParameterPage::saveResults()
{
    QFETCH(QJsonArray, reply);
    QFETCH(QStringList, messages);
    QFETCH(QStringList, lines);
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->show();
    t.open(7);
    t.host.forgetCalls();
    t.host.replies.insert(Command, reply);
    t.click("pushButton_save");
    QCOMPARE(t.host.messageTexts(), messages);
    QCOMPARE(LogFolder::texts(), lines);
    const QStringList written = LogFolder::lines();
    for (const QString& line : written)
        QVERIFY(line.startsWith("[E|"_s));
    QCOMPARE(t.saved(), fullRecord());
}

void TestWeldParameterPage::showReadsTheList()
{
    const PageOnHost t(PageOnHost::seven(listed(1, 2, 3, "shown"_s)));
    t.page->show();
    QCOMPARE(t.asked(), (QStringList{Read, Level}));
    QCOMPARE(t.cell(6, 4), "shown"_s);
}

void TestWeldParameterPage::showReadsMatching()
{
    PageOnHost t;
    t.find<QTabWidget>("tabWidget")->setCurrentIndex(1);
    t.host.forgetCalls();
    t.page->show();
    QCOMPARE(t.asked(), (QStringList{ReadMatch, Level}));
}

void TestWeldParameterPage::showSetsTheFonts()
{
    PageOnHost t;
    QFont large = t.page->font();
    large.setPointSize(33);
    const QList<QWidget*> fields{t.number(Numbers[0]), t.choice(Choices[0])};
    for (QWidget* each : fields)
        each->setFont(large);
    t.page->show();
    for (const QWidget* each : fields)
        QCOMPARE(each->font().pointSize(), UiScale::pointSize(10, t.page.get()));
}

void TestWeldParameterPage::showReloadsTheRecord()
{
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->show();
    t.open(7);
    t.page->hide();
    t.scramble();
    t.host.forgetCalls();
    t.page->show();
    QCOMPARE(t.asked(), (QStringList{Read, Level}));
    QCOMPARE(t.stack()->currentIndex(), 1);
    QCOMPARE(t.find<QLabel>("label_ID")->text(), "LsData7"_s);
    QCOMPARE(t.saved(), fullRecord());
    QVERIFY(t.areShown({"spinBox_ramp_value_start", "spinBox_ramp_value_end"}, true));
}

void TestWeldParameterPage::showReloadsMatching()
{
    PageOnHost t;
    t.page->show();
    t.find<QTabWidget>("tabWidget")->setCurrentIndex(1);
    t.find<QTableWidget>("tableWidget_2")->selectRow(4);
    t.click("pushButton_Config");
    const QString id = t.find<QLabel>("label_ProcessID")->text();
    t.page->hide();
    t.host.forgetCalls();
    t.page->show();
    QCOMPARE(t.asked(), (QStringList{ReadMatch, Level}));
    QCOMPARE(t.stack()->currentIndex(), 2);
    QCOMPARE(t.find<QLabel>("label_ProcessID")->text(), id);
}

void TestWeldParameterPage::permission_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("isEnabled");
    QTest::newRow("none") << -1 << false;
    QTest::newRow("0") << 0 << false;
    QTest::newRow("2") << 2 << false;
    QTest::newRow("3") << 3 << true;
    QTest::newRow("9") << 9 << true;
}

void TestWeldParameterPage::permission()
{
    QFETCH(int, level);
    QFETCH(bool, isEnabled);
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->setEnabled(!isEnabled);
    t.host.level = level;
    t.page->show();
    QCOMPARE(t.page->isEnabled(), isEnabled);
    t.open(7); // a button that is disabled clicks nothing
    QCOMPARE(t.stack()->currentIndex(), isEnabled ? 1 : 0);
    QVERIFY(t.host.commands.isEmpty());
    t.host.level = isEnabled ? 2 : 3;
    t.page->hide();
    t.page->show();
    QCOMPARE(t.page->isEnabled(), !isEnabled);
}

void TestWeldParameterPage::editsLoseTheFocus_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"lineEdit", "doubleSpinBox_laser_power_start_2", "comboBox_work_mode"})
        QTest::newRow(name) << QByteArray(name);
}

// On a change of the view, on opening and on a show.
void TestWeldParameterPage::editsLoseTheFocus()
{
    QFETCH(QByteArray, name);
    PageOnHost t;
    t.page->show();
    t.page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(t.page.get()));
    t.open(7);
    settle();
    auto* edit = t.find<QWidget>(name.constData());
    for (int tab = 0; tab < 3 && !edit->isVisible(); ++tab)
        t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(tab);
    edit->setFocus();
    QCOMPARE(t.page->focusWidget(), edit);
    t.page->hide();
    t.page->show();
    settle();
    QVERIFY(t.page->focusWidget() != edit);
    edit->setFocus();
    t.open(7);
    settle();
    QCOMPARE(t.page->focusWidget(), t.page.get());
    edit->setFocus();
    t.click("pushButton_back");
    settle();
    QVERIFY(t.page->focusWidget() != edit);
}

void TestWeldParameterPage::otherFocusStays()
{
    PageOnHost t;
    t.page->show();
    t.page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(t.page.get()));
    settle();
    t.list()->setFocus();
    t.page->hide();
    t.page->show();
    settle();
    QCOMPARE(t.page->focusWidget(), static_cast<QWidget*>(t.list()));
}

// The stack gives the focus to the first field of the view, which keeps it for this turn only.
void TestWeldParameterPage::changeOfTheViewTakesTheFocus()
{
    PageOnHost t;
    t.page->show();
    t.page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(t.page.get()));
    settle();
    t.list()->setFocus();
    const FocusWatch watch(t.page.get());
    t.stack()->setCurrentIndex(1);
    QCOMPARE(t.page->focusWidget(), static_cast<QWidget*>(t.comment()));
    settle();
    QCOMPARE(t.page->focusWidget(), static_cast<QWidget*>(t.page.get()));
    QCOMPARE(watch.reason, Qt::OtherFocusReason);
}

void TestWeldParameterPage::detailViewFollowsTheZoom_data()
{
    QTest::addColumn<int>("way");
    int way = 0;
    for (const char* name : {"opening", "change of the view", "change of the tab", "show"})
        QTest::newRow(name) << way++;
}

void TestWeldParameterPage::detailViewFollowsTheZoom()
{
    QFETCH(int, way);
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->show();
    t.open(7);
    if (way == 0)
        t.click("pushButton_back");
    t.host.nodes.insert("qeltheme.fontzoom"_s, 2.0);
    if (way == 0) {
        t.open(7);
    } else if (way == 1) {
        t.stack()->setCurrentIndex(2);
        t.stack()->setCurrentIndex(1);
    } else if (way == 2) {
        t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(1);
    } else {
        t.page->hide();
        t.page->show();
    }
    QCOMPARE(t.find<QFrame>("frame_config_header")->maximumHeight(),
             UiScale::controlHeight(t.page.get()) + 16);
}

void TestWeldParameterPage::hiddenTabsSetNoStyle()
{
    PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->show();
    t.open(7);
    t.click("pushButton_back");
    const int height = t.find<QFrame>("frame_config_header")->maximumHeight();
    t.host.nodes.insert("qeltheme.fontzoom"_s, 2.0);
    t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(1);
    QCOMPARE(t.find<QFrame>("frame_config_header")->maximumHeight(), height);
}

void TestWeldParameterPage::openingStylesTheTabs()
{
    const PageOnHost t(PageOnHost::seven(fullRecord()));
    const auto* tabs = t.find<QTabWidget>("tabWidget_config");
    QVERIFY(tabs->styleSheet().isEmpty());
    t.page->show();
    t.open(7);
    const QString opened = tabs->styleSheet();
    QVERIFY(opened.contains("#224d75"_s));
    t.page->applyPageStyle();
    QCOMPARE(tabs->styleSheet(), opened);
}

LASERWELD_TEST_MAIN(TestWeldParameterPage)
#include "tst_weldparameterpage.moc"
