#include "Hand.h"
#include "TestCase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabBar>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

using pendant::Hand;

namespace {

constexpr int Rows = 100;

QStringList numbered(const char* text)
{
    QStringList all;
    for (int number = 0; number < Rows; ++number)
        all << QLatin1String(text) + QString::number(number);
    return all;
}

/// A window with one of each widget that the hand can touch.
struct Desk
{
    QWidget window;
    QVBoxLayout column{&window};
    QPushButton* button = add<QPushButton>("button");
    QToolButton* tool = add<QToolButton>("tool");
    QSpinBox* digits = add<QSpinBox>("number");
    QLineEdit* text = add<QLineEdit>("text");
    QComboBox* box = add<QComboBox>("box");
    QComboBox* editable = add<QComboBox>("editable");
    QListWidget* list = add<QListWidget>("list");
    Hand hand{window};

    Desk()
    {
        window.resize(400, 500);
        tool->setText(QStringLiteral("Tool"));
        digits->setRange(-1000, 1000);
        box->addItems(numbered("entry "));
        editable->setEditable(true);
        editable->addItems(numbered("name"));
        list->addItems(numbered("row "));
        window.show();
    }
    template<typename Widget>
    Widget* add(const char* name)
    {
        auto* widget = new Widget(&window);
        widget->setObjectName(QLatin1String(name));
        column.addWidget(widget);
        return widget;
    }
    QModelIndex at(int row) const { return list->model()->index(row, 0); }
};

} // namespace

class TestHand : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void clicks();
    void clicksNothing();
    void clicksWhatCannotBeReached_data();
    void clicksWhatCannotBeReached();
    void clicksAWideCheckBox();
    void scrollsTo();
    void scrollsInALowView();
    void clicksRows_data();
    void clicksRows();
    void refusesRows();
    void clicksTabs();
    void clicksTabsOutOfView();
    void scrollsATable();
    void entersReturn();
    void chooses_data();
    void chooses();
    void refusesEntries();
    void chosenBoxStaysShut();
    void enters_data();
    void enters();
    void finds();
    void findsTheVisibleOne();
    void findsWithin();
};

void TestHand::clicks()
{
    Desk desk;
    const QSignalSpy buttonClicked(desk.button, &QPushButton::clicked);
    const QSignalSpy toolClicked(desk.tool, &QToolButton::clicked);
    QVERIFY(desk.hand.click(desk.button));
    QVERIFY(desk.hand.click(desk.hand.findTool(QStringLiteral("Tool"))));
    QCOMPARE(buttonClicked.size(), 1);
    QCOMPARE(toolClicked.size(), 1);
    QVERIFY(desk.hand.press(desk.button));
    QVERIFY(desk.button->isDown());
    QVERIFY(desk.hand.release(desk.button));
    QVERIFY(!desk.button->isDown());
    QCOMPARE(desk.hand.complaint(), QString());
}

void TestHand::clicksNothing()
{
    Desk desk;
    QVERIFY(!desk.hand.click(nullptr));
    QVERIFY(!desk.hand.click(nullptr, desk.at(0)));
    QVERIFY(!desk.hand.release(nullptr));
    QVERIFY(!desk.hand.choose(nullptr, QStringLiteral("entry 1")));
    QVERIFY(!desk.hand.enter(nullptr, QStringLiteral("1")));
}

void TestHand::clicksWhatCannotBeReached_data()
{
    QTest::addColumn<bool>("isHidden");
    QTest::addColumn<QString>("complaint");
    QTest::newRow("hidden") << true << QStringLiteral("\"button\" is hidden");
    QTest::newRow("covered") << false << QStringLiteral("\"button\" is covered or out of view");
}

void TestHand::clicksWhatCannotBeReached()
{
    QFETCH(bool, isHidden);
    QFETCH(QString, complaint);
    Desk desk;
    QWidget cover(&desk.window);
    cover.resize(desk.window.size());
    cover.show();
    desk.button->setVisible(!isHidden);
    const QSignalSpy clicked(desk.button, &QPushButton::clicked);
    QVERIFY(!desk.hand.click(desk.button));
    QCOMPARE(desk.hand.complaint(), complaint);
    QCOMPARE(clicked.size(), 0);
}

// It takes a click on what it shows only.
void TestHand::clicksAWideCheckBox()
{
    Desk desk;
    auto* box = desk.add<QCheckBox>("check");
    box->setText(QStringLiteral("On"));
    QCoreApplication::processEvents();
    QVERIFY(box->width() > 3 * box->sizeHint().width());
    QVERIFY2(desk.hand.click(box), qPrintable(desk.hand.complaint()));
    QVERIFY(box->isChecked());
}

// The view is lower than the button.
void TestHand::scrollsInALowView()
{
    Desk desk;
    auto* area = desk.add<QScrollArea>("area");
    auto* content = new QWidget;
    content->resize(2000, 2000);
    QPushButton large(content);
    large.setGeometry(1000, 1000, 900, 90);
    area->setFixedHeight(60);
    area->setWidget(content);
    const QSignalSpy clicked(&large, &QPushButton::clicked);
    QVERIFY2(desk.hand.click(&large), qPrintable(desk.hand.complaint()));
    QCOMPARE(clicked.size(), 1);
}

void TestHand::scrollsTo()
{
    Desk desk;
    auto* area = desk.add<QScrollArea>("area");
    auto* content = new QWidget;
    content->resize(100, 2000);
    QPushButton far(content);
    far.move(0, 1900);
    area->setFixedHeight(100);
    area->setWidget(content);
    area->show();
    const QSignalSpy clicked(&far, &QPushButton::clicked);
    QVERIFY2(desk.hand.click(&far), qPrintable(desk.hand.complaint()));
    QCOMPARE(clicked.size(), 1);
}

void TestHand::clicksRows_data()
{
    QTest::addColumn<int>("row");
    for (const int row : {0, 1, Rows / 2, Rows - 1})
        QTest::addRow("row %d", row) << row;
}

void TestHand::clicksRows()
{
    QFETCH(int, row);
    Desk desk;
    const QSignalSpy clicked(desk.list, &QListWidget::clicked);
    QVERIFY2(desk.hand.click(desk.list, desk.at(row)), qPrintable(desk.hand.complaint()));
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(desk.list->currentRow(), row);
}

void TestHand::refusesRows()
{
    Desk desk;
    QVERIFY(!desk.hand.click(desk.list, QModelIndex()));
    QCOMPARE(desk.hand.complaint(), QStringLiteral("\"list\" has no such row"));
    desk.list->hide();
    QVERIFY(!desk.hand.click(desk.list, desk.at(0)));
    QVERIFY(desk.hand.complaint().endsWith(QStringLiteral("is hidden")));
}

void TestHand::clicksTabs()
{
    Desk desk;
    auto* tabs = desk.add<QTabBar>("tabs");
    tabs->addTab(QStringLiteral("One"));
    tabs->addTab(QStringLiteral("Two"));
    QCoreApplication::processEvents();
    QVERIFY(desk.hand.click(tabs, QStringLiteral("Two")));
    QCOMPARE(tabs->currentIndex(), 1);
    QVERIFY(!desk.hand.click(tabs, QStringLiteral("Three")));
    QCOMPARE(desk.hand.complaint(), QStringLiteral("there is no tab \"Three\""));
    tabs->setTabEnabled(0, false);
    QVERIFY(!desk.hand.click(tabs, QStringLiteral("One")));
    QVERIFY(!desk.hand.click(static_cast<QTabBar*>(nullptr), QStringLiteral("One")));
    tabs->hide();
    QVERIFY(!desk.hand.click(tabs, QStringLiteral("One")));
}

// With the arrows of the bar.
void TestHand::clicksTabsOutOfView()
{
    Desk desk;
    auto* tabs = desk.add<QTabBar>("tabs");
    const QStringList all = numbered("a tab of some width ");
    for (int index = 0; index < 9; ++index)
        tabs->addTab(all.at(index));
    QCoreApplication::processEvents();
    for (const int index : {8, 0, 4, 3, 5}) {
        QVERIFY2(desk.hand.click(tabs, all.at(index)), qPrintable(desk.hand.complaint()));
        QCOMPARE(tabs->currentIndex(), index);
    }
    tabs->setUsesScrollButtons(false);
    tabs->setFixedWidth(50);
    QVERIFY(!desk.hand.click(tabs, all.at(8)));
    QVERIFY(desk.hand.complaint().endsWith(QStringLiteral("is covered or out of view")));
}

void TestHand::scrollsATable()
{
    Desk desk;
    auto* table = desk.add<QTableWidget>("table");
    table->setRowCount(Rows);
    table->setColumnCount(1);
    auto* button = new QPushButton;
    table->setCellWidget(Rows - 1, 0, button);
    QCoreApplication::processEvents();
    const QSignalSpy clicked(button, &QPushButton::clicked);
    QVERIFY2(desk.hand.click(button), qPrintable(desk.hand.complaint()));
    QCOMPARE(clicked.size(), 1);
}

void TestHand::entersReturn()
{
    Desk desk;
    desk.digits->setKeyboardTracking(false);
    QVERIFY(desk.hand.enter(desk.digits, QStringLiteral("12")));
    QVERIFY(desk.hand.enter(desk.digits, QStringLiteral("34\n")));
    QCOMPARE(desk.digits->value(), 34);
}

void TestHand::chooses_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("next") << 0 << 1;
    QTest::newRow("the same") << 3 << 3;
    QTest::newRow("far down") << 0 << Rows - 1;
    QTest::newRow("far up") << Rows - 1 << 0;
}

void TestHand::chooses()
{
    QFETCH(int, from);
    QFETCH(int, to);
    Desk desk;
    desk.box->setCurrentIndex(from);
    const QSignalSpy activated(desk.box, qOverload<int>(&QComboBox::activated));
    QVERIFY2(desk.hand.choose(desk.box, QStringLiteral("entry %1").arg(to)),
             qPrintable(desk.hand.complaint()));
    QCOMPARE(desk.box->currentIndex(), to);
    QCOMPARE(activated.size(), 1);
}

void TestHand::refusesEntries()
{
    Desk desk;
    QVERIFY(!desk.hand.choose(desk.box, QStringLiteral("none")));
    QCOMPARE(desk.hand.complaint(), QStringLiteral("\"box\" does not offer none"));
}

void TestHand::chosenBoxStaysShut()
{
    Desk desk;
    desk.box->setEnabled(false);
    QVERIFY(!desk.hand.choose(desk.box, QStringLiteral("entry 1")));
    QCOMPARE(desk.hand.complaint(), QStringLiteral("\"box\" does not open"));
    QCOMPARE(desk.box->currentIndex(), 0);
}

void TestHand::enters_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("number") << QStringLiteral("number") << QStringLiteral("-250");
    QTest::newRow("text") << QStringLiteral("text") << QStringLiteral("Seam_2 a");
    QTest::newRow("name") << QStringLiteral("editable") << QStringLiteral("ring1");
}

// Twice: what was there before is replaced.
void TestHand::enters()
{
    QFETCH(QString, field);
    QFETCH(QString, text);
    Desk desk;
    QWidget* widget = desk.hand.find(field);
    for (const QString& each : {QStringLiteral("17"), text})
        QVERIFY2(desk.hand.enter(widget, each), qPrintable(desk.hand.complaint()));
    const char* property = qobject_cast<QComboBox*>(widget) ? "currentText" : "text";
    QCOMPARE(widget->property(property).toString(), text);
}

void TestHand::finds()
{
    Desk desk;
    QCOMPARE(desk.hand.find(QStringLiteral("text")), desk.text);
    QVERIFY(!desk.hand.find(QStringLiteral("nowhere")));
    QCOMPARE(desk.hand.complaint(), QStringLiteral("there is no \"nowhere\""));
    QVERIFY(!desk.hand.findTool(QStringLiteral("Nothing")));
    QCOMPARE(desk.hand.complaint(), QStringLiteral("there is no button \"Nothing\""));
}

void TestHand::findsTheVisibleOne()
{
    Desk desk;
    auto* second = desk.add<QPushButton>("button");
    second->show();
    desk.button->hide();
    QCOMPARE(desk.hand.find(QStringLiteral("button")), second);
    second->hide();
    QCOMPARE(desk.hand.find(QStringLiteral("button")), desk.button);
}

void TestHand::findsWithin()
{
    Desk desk;
    QList<QWidget*> inner;
    for (const char* name : {"first", "second"}) {
        inner << new QLineEdit(desk.add<QGroupBox>(name));
        inner.last()->setObjectName(QStringLiteral("inner"));
    }
    QCOMPARE(desk.hand.find(QStringLiteral("second/inner")), inner.last());
    QCOMPARE(desk.hand.find(QStringLiteral("first/inner")), inner.first());
    QVERIFY(!desk.hand.find(QStringLiteral("third/inner")));
    QCOMPARE(desk.hand.complaint(), QStringLiteral("there is no \"third\""));
    QVERIFY(!desk.hand.find(QStringLiteral("first/outer")));
    QCOMPARE(desk.hand.complaint(), QStringLiteral("there is no \"outer\""));
}

LASERWELD_TEST_MAIN(TestHand)
#include "tst_hand.moc"
