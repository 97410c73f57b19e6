#include "EnableButton.h"
#include "EventCount.h"
#include "ScriptedHost.h"
#include "TestCase.h"
#include "UiScale.h"
#include "WeldioLayout.h"
#include "WeldioPage.h"
#include "WeldioRow.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFontMetrics>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QTranslator>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <memory>
#include <numeric>
#include <vector>

namespace {

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromUtf8(text, int(size));
}

using Widths = std::array<int, 5>;

enum Column { Number, Name, Type, Assign, Enable };

constexpr int LayoutDelay = 16; // milliseconds

// %1 %2: padding of a header section, %3: the sheet of the boxes.
const QString TableSheet =
    R"(QTableWidget{gridline-color:#e8e8e8;border:none;background:transparent;font:400 9pt "Microsoft YaHei UI";}QTableWidget::item{padding:0px 2px;border:none;}QTableWidget::item:selected{background:transparent;color:#202020;}QTableWidget QHeaderView{background:#f5f5f5;border:none;}QTableWidget QHeaderView::section{background:#f5f5f5;color:#202020;border:none;border-bottom:1px solid #c8c8c8;border-right:1px solid #e8e8e8;padding:%1px %2px;font:400 9pt "Microsoft YaHei UI";}QTableWidget QHeaderView::section:last{border-right:none;}%3)"_s;

// %1: height, %2: radius, %3: arrow's width and 2, %4: the clause of the height, %5: arrow's width.
const QString BoxSheet =
    R"(QComboBox{background:#ffffff;color:#202020;border:2px solid #E4E4E4;border-radius:%2px;padding:0px %3px 0px 6px;combobox-popup:0;font:400 9pt "Microsoft YaHei UI";%4}QComboBox::drop-down{subcontrol-origin:padding;subcontrol-position:top right;width:%5px;border:none;}QComboBox::down-arrow{image:url(:/qelLaserWelding/png/arrow/down_arrow_white.png);padding:5px;}QComboBox:disabled{background:#f5f5f5;color:#A3A4A4;border:2px solid #E4E4E4;}QComboBox:focus{outline:none;}QComboBox QAbstractItemView{background:#ffffff;border:2px solid #E4E4E4;outline:0;selection-background-color:#007cf9;selection-color:#ffffff;}QComboBox QAbstractItemView::item{min-height:%1px;padding:2px 8px;}QComboBox QAbstractItemView::item:selected{background:#007cf9;color:#ffffff;})"_s;

// %1: height.
const QString BiasSheet =
    R"(QComboBox{background:#ffffff;color:#202020;border:1px solid #E4E4E4;border-radius:4px;padding:0px 16px 0px 4px;combobox-popup:0;font:400 9pt "Microsoft YaHei UI";min-height:%1px;max-height:%1px;}QComboBox::drop-down{subcontrol-origin:padding;subcontrol-position:top right;width:14px;border:none;}QComboBox::down-arrow{image:url(:/qelLaserWelding/png/arrow/down_arrow_white.png);width:10px;height:10px;}QComboBox:disabled{background:#f5f5f5;color:#A3A4A4;border:1px solid #E4E4E4;}QComboBox:focus{outline:none;}QComboBox QAbstractItemView{background:#ffffff;border:1px solid #E4E4E4;outline:0;selection-background-color:#007cf9;selection-color:#ffffff;}QComboBox QAbstractItemView::item{min-height:%1px;padding:2px 6px;}QComboBox QAbstractItemView::item:selected{background:#007cf9;color:#ffffff;})"_s;

const QString CellSheet = "background:transparent;border:none;border-bottom:1px solid #e8e8e8;"_s;
const QString CellSheetWithEdge = CellSheet + "border-right:1px solid #e8e8e8;"_s;
const QString LabelSheet = "background:transparent;border:none;"_s;

/// What a Chinese pendant shows.
const QHash<QString, QString>& chinese()
{
    static const QHash<QString, QString> texts{
        {"NO."_s, "序号"_s},
        {"Name"_s, "名称"_s},
        {"Type"_s, "类型"_s},
        {"Assign"_s, "端口分配"_s},
        {"ENB/DIS"_s, "启用/禁用"_s},
        {"I/O output"_s, "I/O 输出"_s},
        {"I/O Input"_s, "I/O 输入"_s},
        {"Save"_s, "保存"_s},
        {"Cancel"_s, "取消"_s},
        {"Laser on"_s, "激光开启"_s},
        {"Power"_s, "功率"_s},
        {"Frequency"_s, "频率"_s},
        {"Duty"_s, "占空比"_s},
        {"Guide laser"_s, "指示红光"_s},
        {"Assist Gas"_s, "保护气体"_s},
        {"Wire speed"_s, "送丝速度"_s},
        {"Wire feed on"_s, "送丝开启"_s},
        {"Wire back feed"_s, "回抽方向"_s},
        {"Manual feed on"_s, "手动送丝"_s},
        {"Manual feed BWD"_s, "手动回抽"_s},
        {"Adhesion Detection Enable"_s, "粘丝检测使能"_s},
        {"Descent signal"_s, "下降信号"_s},
        {"Swing JOB"_s, "摆动工艺号"_s},
        {"Process JOB"_s, "焊接工艺号"_s},
        {"Laser power"_s, "激光功率反馈"_s},
        {"Laser feedback"_s, "出光反馈"_s},
        {"Laser alarm"_s, "激光器报警"_s},
        {"Gas detect"_s, "气体检测"_s},
        {"Wire speed feedback"_s, "送丝速度反馈"_s},
        {"Wire feedback"_s, "送丝反馈"_s},
        {"Wire feeder alarm"_s, "送丝机报警"_s},
        {"Adhesion Detection Feedback"_s, "粘丝检测反馈信号"_s},
        {"Welder Ready"_s, "焊机准备就绪"_s},
    };
    return texts;
}

/// Every text is looked up in `texts`; counts how often the last header was asked for.
class Captions : public QTranslator
{
public:
    explicit Captions(const QHash<QString, QString>& translated)
        : texts(translated)
    {
        QCoreApplication::installTranslator(this);
    }

    QString translate(const char* context, const char* text, const char*, int) const override
    {
        if (qstrcmp(context, "WeldioPage") != 0)
            return {};
        if (qstrcmp(text, "ENB/DIS") == 0)
            ++headers;
        return texts.value(QString::fromUtf8(text));
    }
    bool isEmpty() const override { return false; }

    mutable int headers = 0;

private:
    QHash<QString, QString> texts;
};

/// Turns the event loop until the layouts that have been asked for are done.
bool settle()
{
    bool isLater = false;
    QTimer::singleShot(LayoutDelay + 1, qApp, [&] { isLater = true; });
    return QTest::qWaitFor([&] { return isLater; });
}

QStringList ports(const QString& kind, int count)
{
    QStringList names;
    for (int number = 1; number <= count; ++number)
        names << kind + QString::number(number);
    return names;
}

/// The page on a host with ports, registers and a record.
struct PageOnHost
{
    explicit PageOnHost(const QHash<QString, QString>& texts = {})
        : captions(texts)
    {
        for (const char* kind : {"DO", "DI", "AO", "AI", "GO", "GI"})
            host.portNames.insert(QString::fromLatin1(kind), ports(QString::fromLatin1(kind), 32));
        host.registerValue = QJsonArray{QJsonObject{
            {"name"_s, "Counter"_s}, {"len"_s, 16}, {"type"_s, "int32"_s}, {"rw"_s, "wr"_s}}};
        host.service.insert("weld_io_config"_s, QJsonObject{{"laser_enable_port"_s, "DO1"_s},
                                                            {"power_port"_s, "AO1"_s},
                                                            {"power_enabled"_s, true},
                                                            {"process_job_type"_s, 2},
                                                            {"process_job_port"_s, "Counter"_s},
                                                            {"process_job_bias"_s, 11},
                                                            {"process_job_enabled"_s, true}});
    }

    void make()
    {
        page.reset(new WeldioPage(nullptr));
        page->applyPageStyle();
        output = child<QTableWidget>(page.get(), "tableWidget_output");
        input = child<QTableWidget>(page.get(), "tableWidget_input");
        tabs = child<QTabWidget>(page.get(), "tabWidget_io");
    }
    bool show(const QSize& size)
    {
        make();
        page->resize(size);
        page->show();
        return settle();
    }
    bool resize(const QSize& size)
    {
        page->resize(size);
        return settle();
    }
    /// Makes the viewport of the shown table as large as that.
    bool resizeViewport(QTableWidget* table, const QSize& size)
    {
        const QSize bars(0, table->horizontalScrollBar()->isVisible()
                                ? table->horizontalScrollBar()->height()
                                : 0);
        return resize(page->size() + size - table->viewport()->size() - bars);
    }
    bool showTab(int index)
    {
        tabs->setCurrentIndex(index);
        return settle();
    }
    QComboBox* box(const char* name) const { return child<QComboBox>(page.get(), name); }

    Captions captions;
    ScriptedHost host;
    std::unique_ptr<WeldioPage> page;
    QTableWidget* output = nullptr;
    QTableWidget* input = nullptr;
    QTabWidget* tabs = nullptr;
};

Widths widthsOf(const QTableWidget* table)
{
    Widths widths;
    for (std::size_t column = 0; column < widths.size(); ++column)
        widths[column] = table->columnWidth(int(column));
    return widths;
}

int sum(const Widths& widths)
{
    return std::accumulate(widths.begin(), widths.end(), 0);
}

QByteArray shown(const Widths& widths)
{
    QByteArray text;
    for (const int width : widths)
        text += QByteArray::number(width) + ' ';
    return text;
}

int advance(const QFont& font, const QString& text)
{
    return QFontMetrics(font).horizontalAdvance(text);
}

/// The widest text of the widgets below the table whose name ends so.
template<typename Widget, typename Width>
int widest(const QTableWidget* table, const char* suffix, Width width)
{
    int result = 0;
    const auto all = table->findChildren<Widget*>();
    for (Widget* each : all) {
        if (each->objectName().endsWith(QLatin1String(suffix)))
            result = std::max(result, width(each));
    }
    return result;
}

int widestItem(const QComboBox* box, const QFont& font)
{
    int result = 0;
    for (int index = 0; index < box->count(); ++index)
        result = std::max(result, advance(font, box->itemText(index)));
    return result;
}

int biasWidth(QWidget* page)
{
    return std::max(advance(UiScale::font(9, page), "88"_s) + 24, 48);
}

/// The widths that the texts of the table need.
Widths neededWidths(QWidget* page, const QTableWidget* table)
{
    const QFont font = UiScale::font(9, page);
    const QFont boxFont = UiScale::font(10, page);
    const auto header = [&](int column) {
        return advance(font, table->horizontalHeaderItem(column)->text()) + 14;
    };
    const int caption = widest<QLabel>(table, "_name", [&](const QLabel* label) {
        return std::max(advance(font, label->text()), advance(label->font(), label->text()));
    });
    const int kind = widest<QComboBox>(
        table, "_type", [&](const QComboBox* box) { return widestItem(box, boxFont); });
    const int port = widest<QComboBox>(table, "_port",
                                       [&](const QComboBox* box) { return widestItem(box, font); });
    const int bias = biasWidth(page);
    return {std::max({header(Number), 44, advance(font, "15"_s) + 14}),
            std::max({header(Name), 120, caption + 14}),
            std::max({header(Type), 84, 40 + std::max(kind, advance(boxFont, "REG"_s)), 92}),
            std::max({header(Assign), 96, port > 0 ? bias + port + 36 : 0, 96 + bias}),
            std::max({header(Enable), 72, 60})};
}

Widths withRest(Widths widths, int room)
{
    const int rest = std::max(0, room - sum(widths));
    const int forNames = std::min(rest / 4, 64);
    widths[Name] += forNames;
    widths[Assign] += rest - forNames;
    return widths;
}

QString boxSheet(int height, int arrow, bool fixed)
{
    const QString clause =
        (fixed ? "min-height:%1px;max-height:%1px;"_s : "min-height:%1px;"_s).arg(height);
    return QString(BoxSheet).arg(height).arg(6).arg(arrow + 2).arg(clause).arg(arrow);
}

QString scaled(const QString& sheet, QWidget* page)
{
    return UiScale::styleSheet(sheet, page);
}

int rowsBottom(const QTableWidget* table)
{
    return table->verticalHeader()->length();
}

template<typename Widget>
std::vector<Widget*> named(const QWidget* root, const char* suffix)
{
    std::vector<Widget*> found;
    const auto all = root->findChildren<Widget*>();
    for (Widget* each : all) {
        if (each->objectName().endsWith(QLatin1String(suffix)))
            found.push_back(each);
    }
    return found;
}

/// Pixels that a box has for its text.
int textRoom(const QComboBox* box)
{
    QStyleOptionComboBox option;
    option.initFrom(box);
    const QStyle* style = box->style();
    return style->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box)
        .width();
}

/// A table that stands on a page without the form's layouts.
struct LooseTable
{
    explicit LooseTable(int rowCount = 2)
        : table(rowCount, 5, &parent)
    {
        for (int number = 0; number < rowCount; ++number) {
            WeldioRow row;
            row.typeBox = cell<QComboBox>(number, Type, "_type");
            row.portBox = cell<QComboBox>(number, Assign, "_port");
            row.biasBox = new QComboBox(row.portBox->parentWidget());
            row.nameLabel = new QLabel("signal"_s);
            table.setCellWidget(number, Name, row.nameLabel);
            row.enableSwitch = new EnableButton(table.viewport());
            table.setCellWidget(number, Enable, row.enableSwitch);
            rows << row;
        }
    }

    template<typename Widget>
    Widget* cell(int row, int column, const char* name)
    {
        auto* holder = new QWidget;
        auto* widget = new Widget(holder);
        widget->setObjectName(QString::fromLatin1(name));
        table.setCellWidget(row, column, holder);
        return widget;
    }

    QWidget parent;
    QTableWidget table;
    QVector<WeldioRow> rows;
    WeldioLayout layout{&parent, {{&table, &rows}}};
};

const QSize Large(1024, 768);

} // namespace

class TestWeldioLayout : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    // When it is laid out.
    void layoutComesLater();
    void resizesCostOnePass();
    void passesAreCounted_data();
    void passesAreCounted();
    void resizeKeepsTheStyle();
    void unchangedPassSetsNoSheet_data();
    void unchangedPassSetsNoSheet();

    // The settings.
    void sheets();
    void tableSettings_data();
    void tableSettings();
    void headerTexts_data();
    void headerTexts();
    void alignmentIsCleared();
    void pageStyle();
    void tabSheet_data();
    void tabSheet();

    // The columns.
    void columnsFollowTheTexts_data();
    void columnsFollowTheTexts();
    void restIsShared_data();
    void restIsShared();
    void narrowViewportTakesTheParent_data();
    void narrowViewportTakesTheParent();

    // The rows.
    void rowHeights_data();
    void rowHeights();
    void lowViewportTakesTheParent_data();
    void lowViewportTakesTheParent();
    void emptyTableIsLeftAlone();
    void cells();
    void labels();
    void boxes_data();
    void boxes();
    void biasIsPaintedAgain();
    void spoiltRowsAreMended();
    void switches();

    // What it comes to.
    void fits_data();
    void fits();
    void textsAreNotCut_data();
    void textsAreNotCut();
    void scrollBarBelowTakesItsRoomAtOnce();
    void linesOfCellsLieOnTheGrid();
    void paneHasItsCorners_data();
    void paneHasItsCorners();
    void popups_data();
    void popups();
    void longRegisterHasRoomForItsNumbers();

private:
    PageOnHost& sharedPage(bool isChinese = false);

    std::unique_ptr<PageOnHost> shared; ///< large and shown; for the rows of one test
    QByteArray sharedBy;
    bool isSharedChinese = false;
};

// As the pendant does: the plugin's font belongs to its maker.
void TestWeldioLayout::initTestCase()
{
    QFont::insertSubstitution("Microsoft YaHei UI"_s, "Noto Sans CJK SC"_s);
}

void TestWeldioLayout::init()
{
    TestCase::init();
    if (sharedBy != QTest::currentTestFunction())
        shared.reset();
}

void TestWeldioLayout::cleanupTestCase()
{
    shared.reset();
}

// A page is costly to make.
PageOnHost& TestWeldioLayout::sharedPage(bool isChinese)
{
    if (!shared || isSharedChinese != isChinese) {
        shared.reset(); // first, or its translator would be asked as well
        shared.reset(new PageOnHost(isChinese ? chinese() : QHash<QString, QString>()));
        if (!shared->show(Large))
            qFatal("the page is not laid out");
    }
    isSharedChinese = isChinese;
    sharedBy = QTest::currentTestFunction();
    return *shared;
}

void TestWeldioLayout::layoutComesLater()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    const Widths before = widthsOf(t.output);
    QElapsedTimer timer;
    timer.start();
    t.page->resize(800, 600);
    QCOMPARE(shown(widthsOf(t.output)), shown(before));
    QTRY_VERIFY(widthsOf(t.output) != before);
    QVERIFY2(timer.elapsed() >= LayoutDelay - 1, qPrintable(QString::number(timer.elapsed())));
}

void TestWeldioLayout::resizesCostOnePass()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    t.captions.headers = 0;
    QVERIFY(t.resize({900, 700}));
    const int once = t.captions.headers;
    QVERIFY(once > 0);

    t.captions.headers = 0;
    for (const int width : {901, 950, 1000, 910, 902})
        t.page->resize(width, 700);
    QCOMPARE(t.captions.headers, 0);
    QVERIFY(settle());
    QCOMPARE(t.captions.headers, once);
}

void TestWeldioLayout::passesAreCounted_data()
{
    QTest::addColumn<int>("causes");
    QTest::newRow("tab") << 1;
    QTest::newRow("resize, tab") << 2;
    QTest::newRow("resize, tab, show") << 3;
}

void TestWeldioLayout::passesAreCounted()
{
    QFETCH(int, causes);
    PageOnHost& t = sharedPage();
    t.captions.headers = 0;
    QVERIFY(t.resize(t.page->size() + QSize(1, 0)));
    const int once = t.captions.headers;

    t.captions.headers = 0;
    if (causes > 1)
        t.page->resize(t.page->size() + QSize(1, 0));
    t.tabs->setCurrentIndex(1 - t.tabs->currentIndex());
    if (causes > 2) {
        t.page->hide();
        t.page->show();
    }
    QCOMPARE(t.captions.headers, 0);
    QVERIFY(settle());
    QCOMPARE(t.captions.headers, once);
}

void TestWeldioLayout::resizeKeepsTheStyle()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    const auto spoil = [&] {
        t.output->setFocusPolicy(Qt::StrongFocus);
        t.output->setStyleSheet(QString());
        t.output->verticalHeader()->show();
    };
    const auto isStyled = [&] {
        return t.output->focusPolicy() == Qt::NoFocus && !t.output->styleSheet().isEmpty() &&
               t.output->verticalHeader()->isHidden();
    };
    spoil();
    QVERIFY(t.resize({900, 700}));
    QVERIFY(t.output->styleSheet().isEmpty());
    QCOMPARE(t.output->focusPolicy(), Qt::StrongFocus);
    QVERIFY(!t.output->verticalHeader()->isHidden());

    QVERIFY(t.showTab(1));
    QVERIFY(isStyled());

    spoil();
    t.page->hide();
    t.page->show();
    QVERIFY(settle());
    QVERIFY(isStyled());

    // It is asked for once: the next resize is a mere resize.
    spoil();
    QVERIFY(t.resize({800, 700}));
    QVERIFY(!isStyled());
}

void TestWeldioLayout::unchangedPassSetsNoSheet_data()
{
    QTest::addColumn<bool>("isFull");
    QTest::newRow("resize") << false;
    QTest::newRow("show") << true;
}

void TestWeldioLayout::unchangedPassSetsNoSheet()
{
    QFETCH(bool, isFull);
    PageOnHost& t = sharedPage();
    QVERIFY(t.showTab(1));
    QVERIFY(t.showTab(0));
    EventCount changes(QEvent::StyleChange);
    t.captions.headers = 0;
    if (isFull) {
        t.page->hide();
        t.page->show();
        QVERIFY(settle());
    } else {
        QVERIFY(t.resize({1000, 768}));
    }
    QVERIFY(t.captions.headers > 0);
    QCOMPARE(changes.count, 0);
}

void TestWeldioLayout::sheets()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    QWidget* page = t.page.get();
    const int text = QFontMetrics(UiScale::font(10, page)).height();
    const QString sheet =
        QString(TableSheet).arg(4).arg(8).arg(boxSheet(std::max(20, text + 2), 22, true));
    QCOMPARE(t.output->styleSheet(), scaled(sheet, page));
    QCOMPARE(t.input->styleSheet(), scaled(sheet, page));
}

// What each pass sets; spoilt before it.
void TestWeldioLayout::tableSettings_data()
{
    QTest::addColumn<bool>("ofHeader");
    QTest::addColumn<QVariant>("spoilt");
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<bool>("byResize");
    const auto row = [](const char* name, bool ofHeader, int spoilt, int expected, bool byResize) {
        QTest::newRow(name) << ofHeader << QVariant(spoilt) << QVariant(expected) << byResize;
    };
    row("frameShape", false, QFrame::Box, QFrame::NoFrame, false);
    row("selectionMode", false, QAbstractItemView::MultiSelection, QAbstractItemView::NoSelection,
        false);
    row("focusPolicy", false, Qt::StrongFocus, Qt::NoFocus, false);
    row("verticalScrollBarPolicy", false, Qt::ScrollBarAsNeeded, Qt::ScrollBarAlwaysOff, true);
    row("horizontalScrollBarPolicy", false, Qt::ScrollBarAlwaysOff, Qt::ScrollBarAsNeeded, true);
    row("minimumWidth", false, 200, 0, true);
    row("minimumHeight", false, 100, 0, true);
    row("maximumWidth", false, 5000, QWIDGETSIZE_MAX, true);
    row("highlightSections", true, 1, 0, true);
    row("minimumSectionSize", true, 10, 28, true);
    row("stretchLastSection", true, 1, 0, true);
    row("defaultAlignment", true, Qt::AlignRight, Qt::AlignLeft | Qt::AlignVCenter, true);
}

void TestWeldioLayout::tableSettings()
{
    QFETCH(bool, ofHeader);
    QFETCH(QVariant, spoilt);
    QFETCH(QVariant, expected);
    QFETCH(bool, byResize);
    const auto part = [&](QTableWidget* table) -> QWidget* {
        return ofHeader ? static_cast<QWidget*>(table->horizontalHeader()) : table;
    };
    PageOnHost& t = sharedPage();
    for (QTableWidget* table : {t.output, t.input}) {
        QWidget* object = part(table);
        QCOMPARE(object->property(QTest::currentDataTag()).toInt(), expected.toInt());
        QVERIFY(object->setProperty(QTest::currentDataTag(), spoilt));
    }
    // Of both tables at once, whichever is shown.
    QVERIFY(t.resize(t.page->size() + QSize(1, 0)));
    const int afterResize = (byResize ? expected : spoilt).toInt();
    for (QTableWidget* table : {t.output, t.input}) {
        const QWidget* object = part(table);
        QCOMPARE(object->property(QTest::currentDataTag()).toInt(), afterResize);
    }
    QVERIFY(t.showTab(1 - t.tabs->currentIndex()));
    const QWidget* object = part(t.output);
    QCOMPARE(object->property(QTest::currentDataTag()).toInt(), expected.toInt());
}

void TestWeldioLayout::headerTexts_data()
{
    QTest::addColumn<bool>("isChinese");
    QTest::newRow("English") << false;
    QTest::newRow("Chinese") << true;
}

void TestWeldioLayout::headerTexts()
{
    QFETCH(bool, isChinese);
    PageOnHost t(isChinese ? chinese() : QHash<QString, QString>());
    QVERIFY(t.show(Large));
    const char* const texts[] = {"NO.", "Name", "Type", "Assign", "ENB/DIS"};
    t.output->setHorizontalHeaderLabels({"a"_s, "b"_s, "c"_s, "d"_s, "e"_s});
    t.output->horizontalHeader()->setFont(QFont("Serif"_s, 20));
    t.output->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (int column = 0; column < 5; ++column)
        t.output->horizontalHeader()->setSectionResizeMode(column, QHeaderView::Interactive);
    QVERIFY(t.resize({900, 700}));

    const QFont font = UiScale::font(9, t.page.get());
    for (const QTableWidget* table : {t.output, t.input}) {
        const QHeaderView* header = table->horizontalHeader();
        for (int column = 0; column < 5; ++column) {
            const QString text = QString::fromLatin1(texts[column]);
            QCOMPARE(table->horizontalHeaderItem(column)->text(),
                     isChinese ? chinese().value(text) : text);
            QCOMPARE(header->sectionResizeMode(column), QHeaderView::Fixed);
        }
        QCOMPARE(header->font().family(), font.family());
        QCOMPARE(header->font().pointSize(), font.pointSize());
        const int height = std::max(QFontMetrics(font).height() + 9, 24);
        QCOMPARE(header->minimumHeight(), height);
        QCOMPARE(header->maximumHeight(), height);
        QCOMPARE(table->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    }
}

void TestWeldioLayout::alignmentIsCleared()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    QLayout* layout = t.output->parentWidget()->layout();
    layout->setAlignment(t.output, Qt::AlignCenter);
    QVERIFY(t.resize({900, 700}));
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment());
}

void TestWeldioLayout::pageStyle()
{
    PageOnHost t;
    t.make();
    t.tabs->setDocumentMode(true);
    t.page->applyPageStyle();
    QVERIFY(!t.tabs->documentMode());
    QVERIFY(t.page->styleSheet().contains("QLineEdit"_s));
    QVERIFY(t.output->styleSheet().contains("gridline-color"_s));
    t.page->show();
    const QFont font = UiScale::font(9, t.page.get());
    const auto all = t.page->findChildren<QComboBox*>();
    QCOMPARE(all.size(), 72);
    for (const QComboBox* box : all) {
        QCOMPARE(box->font().family(), font.family());
        QCOMPARE(box->font().pointSize(), font.pointSize());
    }
    // On a page that is on show it takes effect at once.
    all.first()->setFont(UiScale::font(20, t.page.get()));
    t.page->applyPageStyle();
    QCOMPARE(all.first()->font().pointSize(), font.pointSize());
}

// The rules in the order in which they stand.
void TestWeldioLayout::tabSheet_data()
{
    QTest::addColumn<QString>("rule");
    QTest::newRow("pane") << "QTabWidget::pane{border:1px solid #d0d0d0;border-radius:8px;"
                             "background:#ffffff;margin-top:4px;}";
    QTest::newRow("tab") << "QTabBar::tab{background:#d3dce6;color:#374860;border-bottom:none;"
                            "border-top-left-radius:6px;border-top-right-radius:6px;"
                            "padding:6px 12px;margin-right:1px;min-width:120px;min-height:32px;"
                            "font:400 10pt \"Microsoft YaHei UI\";}";
    QTest::newRow("selected") << "QTabBar::tab:selected{background:#224d75;color:#ffffff;}";
}

void TestWeldioLayout::tabSheet()
{
    QFETCH(QString, rule);
    PageOnHost t;
    t.make();
    const QString expected = scaled(rule, t.page.get());
    QVERIFY2(t.tabs->styleSheet().contains(expected), qPrintable(t.tabs->styleSheet()));
}

void TestWeldioLayout::columnsFollowTheTexts_data()
{
    using Texts = QHash<QString, QString>;
    QTest::addColumn<Texts>("texts");
    QTest::addColumn<QString>("port");
    const QString longText = "A text that is far longer than any"_s;
    QTest::newRow("English") << Texts() << "DO1";
    QTest::newRow("Chinese") << chinese() << "DO1";
    QTest::newRow("no ports") << Texts() << "";
    QTest::newRow("long port") << Texts() << "Station 4, cabinet 2, output 1";
    QTest::newRow("long caption") << Texts{{"Power"_s, longText + longText}} << "DO1";
    QTest::newRow("short captions") << Texts{{"Adhesion Detection Enable"_s, "A"_s}} << "DO1";
    for (const char* header : {"NO.", "Name", "Type", "Assign", "ENB/DIS"}) {
        QTest::addRow("long header %s", header)
            << Texts{{QString::fromLatin1(header), longText + longText}} << "DO1";
    }
}

void TestWeldioLayout::columnsFollowTheTexts()
{
    using Texts = QHash<QString, QString>;
    QFETCH(Texts, texts);
    QFETCH(QString, port);
    PageOnHost t(texts);
    t.host.portNames.insert("DO"_s, port.isEmpty() ? QStringList() : QStringList{port});
    if (port.isEmpty())
        t.host.portNames.clear();
    QVERIFY(t.show({300, 500})); // no room beyond what is needed
    for (QTableWidget* table : {t.output, t.input}) {
        QVERIFY(t.showTab(table == t.input ? 1 : 0));
        const Widths needed = neededWidths(t.page.get(), table);
        QVERIFY(sum(needed) >= table->viewport()->width());
        QCOMPARE(shown(widthsOf(table)), shown(needed));
    }
}

void TestWeldioLayout::restIsShared_data()
{
    QTest::addColumn<int>("rest");
    for (const int rest : {-20, 0, 1, 3, 4, 7, 100, 255, 256, 257, 1000})
        QTest::addRow("%d", rest) << rest;
}

void TestWeldioLayout::restIsShared()
{
    QFETCH(int, rest);
    PageOnHost& t = sharedPage();
    const Widths needed = neededWidths(t.page.get(), t.output);
    QVERIFY(t.resizeViewport(t.output, {sum(needed) + rest, 400}));
    QCOMPARE(t.output->viewport()->width(), sum(needed) + rest);
    QCOMPARE(shown(widthsOf(t.output)), shown(withRest(needed, sum(needed) + rest)));
    QCOMPARE(t.output->horizontalScrollBar()->maximum() > 0, rest < 0);
}

void TestWeldioLayout::narrowViewportTakesTheParent_data()
{
    QTest::addColumn<int>("viewport");
    QTest::addColumn<bool>("hasLayout");
    QTest::addColumn<int>("room");
    QTest::newRow("80") << 80 << true << 80;
    QTest::newRow("79, layout") << 79 << true << 900 - 5 - 11;
    QTest::newRow("79, no layout") << 79 << false << 900 - 8;
}

void TestWeldioLayout::narrowViewportTakesTheParent()
{
    QFETCH(int, viewport);
    QFETCH(bool, hasLayout);
    QFETCH(int, room);
    LooseTable t;
    if (hasLayout)
        (new QVBoxLayout(&t.parent))->setContentsMargins(5, 7, 11, 13);
    t.parent.resize(900, 400);
    t.table.setFrameStyle(QFrame::NoFrame);
    t.table.verticalHeader()->hide();
    t.table.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    t.table.resize(viewport, 200);
    t.parent.show();
    QCOMPARE(t.table.viewport()->width(), viewport);
    t.layout.arrangeTables();
    const Widths needed = neededWidths(&t.parent, &t.table);
    QCOMPARE(shown(widthsOf(&t.table)), shown(withRest(needed, room)));
}

void TestWeldioLayout::rowHeights_data()
{
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("height");
    QTest::newRow("below 15 a row") << 224 << 0;
    QTest::newRow("15 a row") << 225 << 20;
    QTest::newRow("below 20 a row") << 299 << 20;
    QTest::newRow("20 a row") << 300 << 20;
    QTest::newRow("not quite 21") << 314 << 20;
    QTest::newRow("21 a row") << 315 << 21;
    QTest::newRow("24 a row") << 374 << 24;
    QTest::newRow("not quite 28") << 419 << 27;
    QTest::newRow("28 a row") << 420 << 28;
    QTest::newRow("more") << 500 << 28;
}

void TestWeldioLayout::rowHeights()
{
    QFETCH(int, room);
    QFETCH(int, height);
    PageOnHost& t = sharedPage();
    QVERIFY(t.resizeViewport(t.output, {900, 345}));
    QCOMPARE(t.output->rowHeight(0), 23);
    QVERIFY(t.resizeViewport(t.output, {900, room}));
    QCOMPARE(t.output->viewport()->height(), room);
    const int expected = height == 0 ? 23 : height;
    for (int row = 0; row < t.output->rowCount(); ++row)
        QCOMPARE(t.output->rowHeight(row), expected);
    QCOMPARE(t.box("comboBox_power_port")->height(), std::max(expected - 8, 16));
}

void TestWeldioLayout::lowViewportTakesTheParent_data()
{
    QTest::addColumn<int>("viewport");
    QTest::addColumn<bool>("hasLayout");
    QTest::addColumn<int>("parent"); // beyond the header
    QTest::addColumn<int>("height");
    QTest::newRow("32") << 32 << true << 200 << 20;
    QTest::newRow("31, layout") << 31 << true << 70 << 25;
    QTest::newRow("31, no layout") << 31 << false << 50 << 25;
    QTest::newRow("31, no room at all") << 31 << true << 0 << 0;
}

void TestWeldioLayout::lowViewportTakesTheParent()
{
    QFETCH(int, viewport);
    QFETCH(bool, hasLayout);
    QFETCH(int, parent);
    QFETCH(int, height);
    LooseTable t;
    if (hasLayout)
        (new QVBoxLayout(&t.parent))->setContentsMargins(5, 7, 11, 13);
    t.parent.resize(900, 400);
    t.table.resize(900, 300);
    t.parent.show();
    t.layout.styleTables();
    for (int row = 0; row < 2; ++row)
        t.table.setRowHeight(row, 22);
    const int header = t.table.horizontalHeader()->height();
    t.parent.resize(900, parent + header);
    t.table.resize(900, viewport + header);
    QCOMPARE(t.table.viewport()->height(), viewport);
    t.layout.arrangeTables();
    QCOMPARE(t.table.rowHeight(0), height == 0 ? 22 : height);
}

void TestWeldioLayout::emptyTableIsLeftAlone()
{
    LooseTable t(0);
    t.parent.resize(900, 400);
    t.table.setMinimumHeight(50);
    t.layout.styleTables();
    QCOMPARE(t.table.minimumHeight(), 50);
}

void TestWeldioLayout::cells()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    QVERIFY(t.showTab(1));
    for (const QTableWidget* table : {t.output, t.input}) {
        for (int row = 0; row < table->rowCount(); ++row) {
            for (const Column column : {Name, Type, Assign, Enable}) {
                const QWidget* cell = table->cellWidget(row, column);
                if (!cell)
                    continue;
                QCOMPARE(cell->minimumHeight(), 28);
                QCOMPARE(cell->maximumHeight(), 28);
                if (column == Name)
                    continue;
                QVERIFY(cell->testAttribute(Qt::WA_StyledBackground));
                QCOMPARE(cell->styleSheet(), column == Enable ? CellSheet : CellSheetWithEdge);
            }
        }
    }
    QVERIFY(!t.output->cellWidget(0, Enable));
}

void TestWeldioLayout::labels()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    const auto all = named<QLabel>(t.page.get(), "_name");
    QCOMPARE(all.size(), std::size_t(24));
    for (QLabel* label : all) {
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignCenter);
        label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        label->setMaximumHeight(10);
    }
    QVERIFY(t.showTab(1));
    for (const QLabel* label : all) {
        QVERIFY(!label->wordWrap());
        QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(label->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
        QCOMPARE(label->minimumHeight(), 28);
        QCOMPARE(label->maximumHeight(), 28);
        QCOMPARE(label->styleSheet(), LabelSheet);
    }
}

void TestWeldioLayout::boxes_data()
{
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("height");
    QTest::newRow("28") << 500 << 20;
    QTest::newRow("25") << 380 << 17;
    QTest::newRow("20") << 300 << 16;
}

void TestWeldioLayout::boxes()
{
    QFETCH(int, room);
    QFETCH(int, height);
    PageOnHost& t = sharedPage();
    QVERIFY(t.resizeViewport(t.output, {900, room}));
    QWidget* page = t.page.get();
    const QString sheet = scaled(boxSheet(std::max(height - 4, 14), 22, false), page);
    const auto isFixed = [](const QWidget* box, int fixed) {
        return box->minimumHeight() == fixed && box->maximumHeight() == fixed;
    };
    const int typeWidth = std::max(t.output->columnWidth(Type) - 8, 76);
    for (const QComboBox* box : named<QComboBox>(t.output, "_type")) {
        QCOMPARE(box->styleSheet(), sheet);
        QVERIFY(isFixed(box, height));
        QCOMPARE(box->minimumWidth(), typeWidth);
        QCOMPARE(box->maximumWidth(), typeWidth);
    }
    for (const QComboBox* box : named<QComboBox>(t.output, "_port")) {
        QCOMPARE(box->styleSheet(), sheet);
        QVERIFY(isFixed(box, height));
        QCOMPARE(box->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
        QCOMPARE(int(box->sizeAdjustPolicy()), 2); // AdjustToMinimumContentsLength
        QCOMPARE(box->minimumWidth(), 0);
        QCOMPARE(box->maximumWidth(), QWIDGETSIZE_MAX);
    }
    for (const QComboBox* box : named<QComboBox>(t.output, "_bias")) {
        QCOMPARE(box->styleSheet(), scaled(QString(BiasSheet).arg(height), page));
        QVERIFY(isFixed(box, height));
        QCOMPARE(box->minimumWidth(), biasWidth(page));
        QCOMPARE(box->maximumWidth(), biasWidth(page));
        QCOMPARE(box->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    }
    QCOMPARE(t.box("comboBox_process_job_bias")->height(), height);
}

void TestWeldioLayout::biasIsPaintedAgain()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    QComboBox* bias = t.box("comboBox_process_job_bias");
    QVERIFY(bias->isVisible());
    QCOMPARE(bias->currentText(), "12"_s);
    QSignalSpy changes(bias, QOverload<int>::of(&QComboBox::currentIndexChanged));
    QVERIFY(t.resize({900, 700}));
    QCOMPARE(bias->currentText(), "12"_s);
    QCOMPARE(changes.count(), 0);
}

// A resize puts right what stands in the rows.
void TestWeldioLayout::spoiltRowsAreMended()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    QComboBox* type = t.box("comboBox_power_type");
    QComboBox* port = t.box("comboBox_power_port");
    QComboBox* bias = t.box("comboBox_process_job_bias");
    for (QComboBox* box : {type, port, bias}) {
        box->setFixedSize(30, 50);
        box->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
        box->setMaxVisibleItems(3);
        box->view()->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        box->view()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    }
    port->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    t.output->setRowHeight(3, 60);
    QVERIFY(t.resize({1000, 768}));
    for (const QComboBox* box : {type, port, bias}) {
        QCOMPARE(box->maxVisibleItems(), 10);
        QCOMPARE(box->height(), 20);
        QCOMPARE(box->view()->verticalScrollMode(), QAbstractItemView::ScrollPerItem);
        QCOMPARE(box->view()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    }
    QCOMPARE(type->width(), t.output->columnWidth(Type) - 8);
    QCOMPARE(bias->width(), biasWidth(t.page.get()));
    QCOMPARE(int(port->sizeAdjustPolicy()), 2);
    QTRY_VERIFY(port->width() > 100);
    QCOMPARE(t.output->rowHeight(3), 28);
}

void TestWeldioLayout::switches()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    const auto all = t.page->findChildren<EnableButton*>();
    QCOMPARE(all.size(), 22);
    for (EnableButton* each : all)
        each->setFixedSize(10, 10);
    QVERIFY(t.resize({1000, 768}));
    for (const EnableButton* each : named<EnableButton>(t.output, "_enabled"))
        QCOMPARE(each->size(), QSize(50, 24));
}

// Pages alone, and pages within a pendant's window of that size.
void TestWeldioLayout::fits_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("isChinese");
    const QSize sizes[] = {{640, 480},  {800, 600}, {1024, 768}, {1920, 1080}, {404, 414},
                           {628, 582},  {522, 517}, {748, 549},  {1439, 894},  {1342, 829},
                           {1243, 762}, {293, 294}, {522, 402}};
    for (const bool isChinese : {false, true}) {
        for (const QSize& size : sizes) {
            QTest::addRow("%s %dx%d", isChinese ? "Chinese" : "English", size.width(),
                          size.height())
                << size << isChinese;
        }
    }
}

void TestWeldioLayout::fits()
{
    QFETCH(QSize, size);
    QFETCH(bool, isChinese);
    PageOnHost& t = sharedPage(isChinese);
    QVERIFY(t.resize(size));
    for (QTableWidget* table : {t.output, t.input}) {
        QVERIFY(t.showTab(table == t.input ? 1 : 0));
        const QSize room = table->viewport()->size();
        const int rows = table->rowCount();
        QVERIFY(!table->verticalScrollBar()->isVisible());
        const int height = table->rowHeight(0);
        QVERIFY2(height >= 20 && height <= 28, qPrintable(QString::number(height)));
        if (room.height() >= 20 * rows)
            QVERIFY2(rowsBottom(table) <= room.height(), qPrintable(QString::number(height)));
        else if (room.height() >= 15 * rows)
            QCOMPARE(height, 20);
        const Widths widths = widthsOf(table);
        const Widths needed = neededWidths(t.page.get(), table);
        QCOMPARE(shown(widths), shown(withRest(needed, room.width())));
        QCOMPARE(table->horizontalScrollBar()->isVisible(), sum(needed) > room.width());
        if (size.width() >= 1024 && size.height() >= 762)
            QVERIFY(room.height() >= 20 * rows && sum(widths) == room.width());
    }
}

void TestWeldioLayout::textsAreNotCut_data()
{
    headerTexts_data();
}

void TestWeldioLayout::textsAreNotCut()
{
    QFETCH(bool, isChinese);
    PageOnHost t(isChinese ? chinese() : QHash<QString, QString>());
    QVERIFY(t.show({300, 600})); // the columns are as narrow as they get
    for (QTableWidget* table : {t.output, t.input}) {
        QVERIFY(t.showTab(table == t.input ? 1 : 0));
        for (const QLabel* label : named<QLabel>(table, "_name"))
            QVERIFY2(label->contentsRect().width() >= advance(label->font(), label->text()),
                     qPrintable(label->text()));
        for (const QComboBox* box : named<QComboBox>(table, "_port")) {
            if (box->objectName().startsWith("comboBox_process_job"_s))
                continue; // a bias beside it takes more than its share
            QVERIFY2(textRoom(box) >= widestItem(box, box->font()), qPrintable(box->objectName()));
        }
        // "REG" is wider than its room on screens of more dots.
        for (const QComboBox* box : named<QComboBox>(table, "_type")) {
            const bool fits = textRoom(box) >= widestItem(box, box->font());
            QVERIFY2(fits || UiScale::screenScale(t.page.get()) > 1.0, "REG");
        }
        for (const Column column : {Name, Type, Assign}) {
            const QString text = table->horizontalHeaderItem(column)->text();
            QVERIFY2(table->columnWidth(column) - 2 * 8 - 1 >=
                         advance(table->horizontalHeader()->font(), text),
                     qPrintable(text));
        }
    }
    const QLabel* highest = child<QLabel>(t.page.get(), "label_power_name");
    QVERIFY(highest->height() >= QFontMetrics(highest->font()).tightBoundingRect("Ag"_s).height());
}

void TestWeldioLayout::scrollBarBelowTakesItsRoomAtOnce()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    const int needed = sum(neededWidths(t.page.get(), t.output));
    QVERIFY(t.resizeViewport(t.output, {needed + 50, 380}));
    QVERIFY(!t.output->horizontalScrollBar()->isVisible());
    QCOMPARE(t.output->rowHeight(0), 25);
    QVERIFY(t.resizeViewport(t.output, {needed - 50, 380}));
    QVERIFY(t.output->horizontalScrollBar()->isVisible());
    QCOMPARE(t.output->rowHeight(0), t.output->viewport()->height() / 15);
}

void TestWeldioLayout::linesOfCellsLieOnTheGrid()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    for (const Column column : {Type, Assign, Enable}) {
        const QRect cell = t.output->cellWidget(1, column)->geometry();
        QCOMPARE(cell.left(), t.output->columnViewportPosition(column));
        QCOMPARE(cell.width(), t.output->columnWidth(column));
        QCOMPARE(cell.top(), t.output->rowViewportPosition(1));
        QCOMPARE(cell.height(), t.output->rowHeight(1));
    }
    // One line between two cells, with none beside it.
    const QImage image = t.output->viewport()->grab().toImage();
    const int edge = t.output->columnViewportPosition(Assign) - 1;
    const int y = t.output->rowViewportPosition(1) + 2;
    QCOMPARE(image.pixelColor(edge, y), QColor("#e8e8e8"_s));
    for (const int beside : {edge - 3, edge - 2, edge - 1, edge + 1, edge + 2})
        QVERIFY2(image.pixelColor(beside, y) != QColor("#e8e8e8"_s),
                 qPrintable(QString::number(beside - edge)));
}

// On a ground as white as the pane, as on the main page, and on a grey one.
void TestWeldioLayout::paneHasItsCorners_data()
{
    QTest::addColumn<QString>("ground");
    QTest::newRow("white") << "background:#ffffff;";
    QTest::newRow("grey") << "";
}

void TestWeldioLayout::paneHasItsCorners()
{
    QFETCH(QString, ground);
    PageOnHost t;
    QWidget holder;
    holder.setStyleSheet(ground);
    t.make();
    t.page->setParent(&holder);
    t.page->resize(Large);
    holder.resize(Large);
    holder.show();
    QVERIFY(settle());
    const QRect pane = t.output->parentWidget()->parentWidget()->geometry().adjusted(-1, -1, 1, 1);
    const QImage image = t.tabs->grab().toImage();
    const QColor line("#d0d0d0"_s);
    const QPoint halfway(pane.left(), pane.center().y());
    QCOMPARE(image.pixelColor(halfway), line);
    QCOMPARE(image.pixelColor(halfway + QPoint(1, 0)), QColor(Qt::white));
    QCOMPARE(image.pixelColor(pane.topLeft() + QPoint(2, 2)).lightness() < 240, true);
    QVERIFY(image.pixelColor(pane.topLeft()) != line);
    t.page.reset();
}

void TestWeldioLayout::popups_data()
{
    QTest::addColumn<int>("frame");
    QTest::newRow("comboBox_power_type") << 2;
    QTest::newRow("comboBox_power_port") << 2;
    QTest::newRow("comboBox_process_job_bias") << 1;
}

void TestWeldioLayout::popups()
{
    QFETCH(int, frame);
    PageOnHost t;
    QVERIFY(t.show(Large));
    QComboBox* box = t.box(QTest::currentDataTag());
    QVERIFY(box->isEnabled());
    box->showPopup();
    QAbstractItemView* view = box->view();
    QTRY_VERIFY(view->isVisible());
    QCOMPARE(view->contentsMargins(), QMargins(frame, frame, frame, frame));
    QCOMPARE(view->viewport()->geometry().topLeft(), QPoint(frame, frame));
    QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(view->verticalScrollBar()->isVisible(), box->count() > 10);
    const int visibleRows =
        view->viewport()->height() / view->visualRect(view->currentIndex()).height();
    QCOMPARE(visibleRows, std::min(10, box->count()));
    box->hidePopup();
}

void TestWeldioLayout::longRegisterHasRoomForItsNumbers()
{
    PageOnHost t;
    QVERIFY(t.show(Large));
    QComboBox* bias = t.box("comboBox_process_job_bias");
    QCOMPARE(bias->count(), 16);
    bias->showPopup();
    const QAbstractItemView* view = bias->view();
    QTRY_VERIFY(view->isVisible());
    const int padding = 2 * 6;
    QVERIFY(view->viewport()->width() >= advance(bias->font(), "16"_s) + padding);
    bias->hidePopup();
}

LASERWELD_TEST_MAIN(TestWeldioLayout)
#include "tst_weldiolayout.moc"
