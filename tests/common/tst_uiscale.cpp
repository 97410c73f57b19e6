#include "UiScale.h"

#include "ScriptedHost.h"
#include "TestCase.h"

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>
#include <QWindow>

#include <cmath>
#include <limits>
#include <memory>

namespace {

/// What the sizes are on a screen. The program is run once for each of them.
struct Screen
{
    int dpi;
    double scale, softened;
    int tenPoints, ninePoints;
    int thirtyFive;          ///< 35 pixels at zoom 1
    int twentyAtOneAndAHalf; ///< 20 pixels at zoom 1.5
};

constexpr Screen Screens[] = {
    {48, 0.75, 0.75, 10, 9, 26, 23},
    {96, 1.0, 1.0, 10, 9, 35, 30},
    {100, 100 / 96.0, 196 / 192.0, 10, 9, 36, 31},
    {144, 1.5, 1.25, 8, 8, 44, 38},
    {192, 2.0, 1.5, 8, 7, 53, 45},
    {288, 3.0, 2.0, 7, 6, 70, 60},
    {400, 3.0, 2.0, 7, 6, 70, 60},
};

Screen screen()
{
    const int dpi = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchX());
    for (const Screen& each : Screens) {
        if (each.dpi == dpi)
            return each;
    }
    qFatal("no row for a screen of %d dpi", dpi);
}

double scaleWithoutScreen = 0.0;

const QString ZoomKey = QStringLiteral("qeltheme.fontzoom");

int childrenOf(const QObject* parent)
{
    return parent->findChildren<QObject*>(QString(), Qt::FindDirectChildrenOnly).count();
}

void show(QWidget& widget)
{
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
}

/// A combo box with a popup that opens as a list under it.
struct Combo
{
    explicit Combo(int items)
    {
        window.setStyleSheet(QStringLiteral("QComboBox{combobox-popup:0;}"));
        window.resize(200, 60);
        box = new QComboBox(&window);
        box->resize(150, 30);
        for (int item = 0; item < items; ++item)
            box->addItem(QString::number(item));
    }
    QWidget* popup() const { return box->view()->window(); }
    int heightOf(int rows) const
    {
        return rows * box->view()->sizeHintForRow(0) + 2 * box->view()->frameWidth();
    }
    /// As opened by a style that leaves more room than the rows need.
    void openWith(int height)
    {
        show(window);
        // What shows the view is what the fixer goes by.
        popup()->hide();
        popup()->resize(120, height);
        popup()->show();
    }

    QWidget window;
    QComboBox* box;
};

} // namespace

class TestUiScale : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void scaleOfTheScreen();
    void scaleOfAnyWidget();
    void fontZoom_data();
    void fontZoom();
    void zoomIsReadAfresh();
    void pointSize();
    void pointSizeIgnoresTheZoom();
    void pixels();
    void scaledPixels();
    void heights();
    void font();
    void applyFonts();
    void expand();
    void setsASheetOnlyOnce();

    void sheets_data();
    void sheets();
    void sheetOfTheScreen();

    void contentWidth();
    void contentWidthOfAnUnsizedFont();
    void tuning();
    void tuningOfAnotherView();
    void rowsAreDrawnByTheSheet();
    void sheetOfAnUnshownWidgetReachesThePopup_data();
    void sheetOfAnUnshownWidgetReachesThePopup();

    void fixerIsInstalledOnce();
    void popupGetsTheHeightOfItsRows_data();
    void popupGetsTheHeightOfItsRows();
    void slightlyTooHighStays();
    void tooLowStays();
    void popupMovesBelow_data();
    void popupMovesBelow();
    void popupIsFixedOnceMore();
    void otherViewsAreLeftAlone();
    void fixerOutlivesNothing();

    void relaxesAPage();
    void relaxesFrames_data();
    void relaxesFrames();
    void sparesTheHeader();
    void relaxesNothing();

private:
    std::unique_ptr<ScriptedHost> host;
};

void TestUiScale::init()
{
    TestCase::init();
    host = std::make_unique<ScriptedHost>();
}

void TestUiScale::cleanup()
{
    host.reset();
    TestCase::cleanup();
}

void TestUiScale::scaleOfTheScreen()
{
    QCOMPARE(UiScale::screenScale(nullptr), screen().scale);
    QCOMPARE(scaleWithoutScreen, 1.0);
}

void TestUiScale::scaleOfAnyWidget()
{
    QWidget window;
    auto* child = new QWidget(&window);
    QCOMPARE(UiScale::screenScale(child), screen().scale);
    show(window);
    QVERIFY(window.windowHandle() && !child->windowHandle());
    QCOMPARE(UiScale::screenScale(child), screen().scale);
    window.windowHandle()->setScreen(nullptr);
    QCOMPARE(UiScale::screenScale(child), screen().scale);
}

void TestUiScale::fontZoom_data()
{
    QTest::addColumn<QJsonValue>("node");
    QTest::addColumn<double>("zoom");
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined) << 1.0;
    QTest::newRow("null") << QJsonValue() << 1.0;
    QTest::newRow("number") << QJsonValue(1.25) << 1.25;
    QTest::newRow("lowest") << QJsonValue(0.75) << 0.75;
    QTest::newRow("highest") << QJsonValue(3.0) << 3.0;
    QTest::newRow("below") << QJsonValue(0.74) << 1.0;
    QTest::newRow("above") << QJsonValue(3.01) << 1.0;
    QTest::newRow("far above is not the limit") << QJsonValue(5.0) << 1.0;
    QTest::newRow("negative") << QJsonValue(-2) << 1.0;
    QTest::newRow("no number") << QJsonValue(std::numeric_limits<double>::quiet_NaN()) << 1.0;
    QTest::newRow("text") << QJsonValue(QStringLiteral("2")) << 1.0;
    QTest::newRow("bool") << QJsonValue(true) << 1.0;
    QTest::newRow("object") << QJsonValue(QJsonObject{{QStringLiteral("a"), 2}}) << 1.0;
    QTest::newRow("array") << QJsonValue(QJsonArray{2}) << 1.0;
}

void TestUiScale::fontZoom()
{
    QFETCH(QJsonValue, node);
    QFETCH(double, zoom);
    host->nodes[ZoomKey] = node;
    QCOMPARE(UiScale::fontZoom(), zoom);
    QCOMPARE(host->lastArguments(QStringLiteral("getNodeData")), QJsonArray{ZoomKey});
}

void TestUiScale::zoomIsReadAfresh()
{
    host->nodes[ZoomKey] = 2.0;
    QCOMPARE(UiScale::fontZoom(), 2.0);
    host->nodes[ZoomKey] = 1.5;
    QCOMPARE(UiScale::fontZoom(), 1.5);
    QCOMPARE(host->count(QStringLiteral("getNodeData")), 2);
}

void TestUiScale::pointSize()
{
    QCOMPARE(UiScale::pointSize(10, nullptr), screen().tenPoints);
    QCOMPARE(UiScale::pointSize(9, nullptr), screen().ninePoints);
    QCOMPARE(UiScale::pointSize(1, nullptr), 1);
    QCOMPARE(UiScale::pointSize(0, nullptr), 0);
    QCOMPARE(UiScale::pointSize(-1, nullptr), -1);
}

void TestUiScale::pointSizeIgnoresTheZoom()
{
    host->nodes[ZoomKey] = 3.0;
    QCOMPARE(UiScale::pointSize(10, nullptr), screen().tenPoints);
    QCOMPARE(host->count(QStringLiteral("getNodeData")), 0);
}

void TestUiScale::pixels()
{
    host->nodes[ZoomKey] = 2.0;
    QCOMPARE(UiScale::pixels(40, nullptr), 40);
    QCOMPARE(UiScale::pixels(1, nullptr), 1);
    QCOMPARE(UiScale::pixels(0, nullptr), 1);
    QCOMPARE(UiScale::pixels(-7, nullptr), 1);
}

void TestUiScale::scaledPixels()
{
    QCOMPARE(UiScale::scaledPixels(35, nullptr), screen().thirtyFive);
    QCOMPARE(UiScale::rowHeight(nullptr), screen().thirtyFive);
    QCOMPARE(UiScale::scaledPixels(0, nullptr), 1);
    QCOMPARE(UiScale::scaledPixels(-20, nullptr), 1);
    host->nodes[ZoomKey] = 1.5;
    QCOMPARE(UiScale::scaledPixels(20, nullptr), screen().twentyAtOneAndAHalf);
    host->nodes[ZoomKey] = 3.0;
    const int most = std::numeric_limits<int>::max();
    QCOMPARE(UiScale::scaledPixels(most, nullptr), most);
    QCOMPARE(UiScale::scaledPixels(std::numeric_limits<int>::min(), nullptr), 1);
}

void TestUiScale::heights()
{
    const int text = QFontMetrics(UiScale::font(10, nullptr)).height();
    const double factor = screen().softened;
    QCOMPARE(UiScale::controlHeight(nullptr), qMax(qRound(28.0 * factor), text + 8));
    host->nodes[ZoomKey] = 3.0;
    QCOMPARE(UiScale::controlHeight(nullptr), qRound(3.0 * factor * 28.0));
    host->nodes[ZoomKey] = 0.75;
    QCOMPARE(UiScale::controlHeight(nullptr), qMax(qRound(0.75 * factor * 28.0), text + 8));

    const int cap = QFontMetrics(UiScale::font(9, nullptr)).height() + 2;
    QCOMPARE(UiScale::fieldHeightCap(nullptr), qBound(20, cap, 26));
}

void TestUiScale::font()
{
    const QFont font = UiScale::font(10, nullptr);
    QCOMPARE(font.family(), QStringLiteral("Microsoft YaHei UI"));
    QCOMPARE(font.pointSize(), screen().tenPoints);
    QCOMPARE(font.weight(), int(QFont::Normal));
}

void TestUiScale::applyFonts()
{
    QWidget page;
    auto* frame = new QWidget(&page);
    const QList<QWidget*> fields{new QSpinBox(frame), new QDoubleSpinBox(&page),
                                 new QComboBox(frame)};
    auto* label = new QLabel(&page);
    const QFont before = label->font();
    UiScale::applyFonts(&page, 9);
    for (const QWidget* each : fields) {
        QCOMPARE(each->font().family(), QStringLiteral("Microsoft YaHei UI"));
        QCOMPARE(each->font().pointSize(), screen().ninePoints);
    }
    QCOMPARE(label->font(), before);
    UiScale::applyFonts(nullptr, 9);
}

void TestUiScale::expand()
{
    QWidget widget;
    UiScale::expand(&widget);
    QCOMPARE(widget.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    UiScale::expand(nullptr);
}

void TestUiScale::setsASheetOnlyOnce()
{
    struct Changes : QObject
    {
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override
        {
            count += event->type() == QEvent::StyleChange ? 1 : 0;
            return false;
        }
    } changes;
    QWidget widget;
    widget.ensurePolished();
    widget.installEventFilter(&changes);
    const QString css = QStringLiteral("QLabel{font:10pt;}");
    UiScale::setStyleSheet(&widget, css);
    QCOMPARE(widget.styleSheet(), UiScale::styleSheet(css, &widget));
    const int once = changes.count;
    QVERIFY(once > 0);
    UiScale::setStyleSheet(&widget, css);
    QCOMPARE(changes.count, once);
    UiScale::setStyleSheet(nullptr, css);
}

void TestUiScale::sheets_data()
{
    QTest::addColumn<QString>("css");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("scaled");
    const auto row = [](const char* name, const char* css, double factor, const char* scaled) {
        QTest::newRow(name) << QString::fromUtf8(css) << factor << QString::fromUtf8(scaled);
    };
    row("empty", "", 0.5, "");
    row("factor 1", "font:10pt", 1.0, "font:10pt");
    row("nearly 1", "font:1000pt", 1.0009, "font:1000pt");
    row("just not 1", "font:1000pt", 1.0011, "font:1001pt");
    row("just below 1", "font:1000pt", 0.9985, "font:999pt");
    row("10pt at 1.5", "font:400 10pt \"A B\";", 1.25 / 1.5, "font:400 8pt \"A B\";");
    row("9pt at 1.5", "font:400 9pt", 1.25 / 1.5, "font:400 8pt");
    row("10pt at 2", "font:400 10pt", 0.75, "font:400 8pt");
    row("10pt at 3", "font:400 10pt", 2.0 / 3.0, "font:400 7pt");
    row("growing number", "a:9pt;b:9pt", 2.0, "a:18pt;b:18pt");
    row("number of more digits at once", "99pt99pt", 2.0, "198pt198pt");
    row("at least 1", "1pt 0pt", 0.1, "1pt 1pt");
    row("no word boundary", "a12ptb 7.5pt", 2.0, "a24ptb 7.10pt");
    row("case of pt counts", "10PT 10Pt", 2.0, "10PT 10Pt");
    row("blank before pt", "10 pt", 2.0, "10 pt");
    row("font pixels", "font-size:16px", 0.75, "font-size:12px");
    row("font pixels, blanks and case", "FONT-size : 16PX;", 0.75, "FONT-size : 12PX;");
    row("font pixels over lines", "font-size\n:\t16px", 0.75, "font-size\n:\t12px");
    row("other pixels", "min-height:16px;font: 17px;width:30px", 0.75,
        "min-height:16px;font: 17px;width:30px");
    row("both", "font-size:16px;font:10pt", 0.5, "font-size:8px;font:5pt");
    row("too large to convert", "99999999999pt", 2.0, "1pt");
    row("largest", "2147483647pt", 2.0, "2147483647pt");
    row("negative factor", "10pt", -2.0, "1pt");
    row("factor is no number", "10pt", std::numeric_limits<double>::quiet_NaN(), "1pt");
    row("infinite factor", "10pt", std::numeric_limits<double>::infinity(), "2147483647pt");
    row("other digits", "\xD9\xA1\xD9\xA0pt", 2.0, "\xD9\xA1\xD9\xA0pt");
}

void TestUiScale::sheets()
{
    QFETCH(QString, css);
    QFETCH(double, factor);
    QFETCH(QString, scaled);
    QCOMPARE(UiScale::scaleStyleSheet(css, factor), scaled);
}

void TestUiScale::sheetOfTheScreen()
{
    host->nodes[ZoomKey] = 3.0;
    const QString css = QStringLiteral("font:%1pt;font:%2pt;width:10px");
    QCOMPARE(UiScale::styleSheet(css.arg(10).arg(9), nullptr),
             css.arg(screen().tenPoints).arg(screen().ninePoints));
}

void TestUiScale::contentWidth()
{
    QCOMPARE(UiScale::comboContentWidth(nullptr, nullptr), 80);
    QComboBox box;
    QCOMPARE(UiScale::comboContentWidth(&box, nullptr), 24);
    const auto widthOf = [&](const char* text) {
        return QFontMetrics(box.font()).horizontalAdvance(QString::fromLatin1(text)) + 24;
    };
    box.addItems({QStringLiteral("i"), QStringLiteral("the widest"), QStringLiteral("ii")});
    QCOMPARE(UiScale::comboContentWidth(&box, nullptr), widthOf("the widest"));
    box.setFont(QFont(QStringLiteral("DejaVu Sans"), 30));
    QCOMPARE(UiScale::comboContentWidth(&box, nullptr), widthOf("the widest"));

    QComboBox editable;
    editable.setEditable(true);
    editable.addItem(QString());
    editable.setEditText(QStringLiteral("typed"));
    QCOMPARE(UiScale::comboContentWidth(&editable, nullptr),
             QFontMetrics(editable.font()).horizontalAdvance(QStringLiteral("typed")) + 24);
}

void TestUiScale::contentWidthOfAnUnsizedFont()
{
    QComboBox box;
    QFont pixels(QStringLiteral("DejaVu Sans"));
    pixels.setPixelSize(40);
    box.setFont(pixels);
    box.addItem(QStringLiteral("text"));
    QCOMPARE(UiScale::comboContentWidth(&box, nullptr),
             QFontMetrics(box.font()).horizontalAdvance(QStringLiteral("text")) + 24);
}

void TestUiScale::tuning()
{
    QComboBox box;
    box.view()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    box.view()->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    box.view()->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    auto* list = qobject_cast<QListView*>(box.view());
    list->setSpacing(3);
    UiScale::tuneComboPopup(&box, 7);
    QCOMPARE(box.maxVisibleItems(), 7);
    QVERIFY(list->uniformItemSizes());
    QCOMPARE(list->spacing(), 0);
    QCOMPARE(list->verticalScrollMode(), QAbstractItemView::ScrollPerItem);
    QCOMPARE(list->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(list->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    UiScale::tuneComboPopup(nullptr, 7);
}

void TestUiScale::tuningOfAnotherView()
{
    QComboBox box;
    auto* table = new QTableView;
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    box.setView(table);
    UiScale::tuneComboPopup(&box, 10);
    QCOMPARE(table->verticalScrollMode(), QAbstractItemView::ScrollPerItem);
    QCOMPARE(table->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

void TestUiScale::rowsAreDrawnByTheSheet()
{
    Combo combo(3);
    UiScale::setStyleSheet(
        &combo.window,
        QStringLiteral("QComboBox{combobox-popup:0;}"
                       "QComboBox QAbstractItemView::item{min-height:153px;padding:2px 8px;}"));
    UiScale::tuneComboPopup(combo.box, 10);
    show(combo.window);
    combo.box->showPopup();
    QCOMPARE(combo.box->view()->sizeHintForRow(0), 157);

    auto* own = new QStyledItemDelegate(combo.box);
    combo.box->setItemDelegate(own);
    UiScale::tuneComboPopup(combo.box, 10);
    QCOMPARE(combo.box->itemDelegate(), own);
}

void TestUiScale::sheetOfAnUnshownWidgetReachesThePopup_data()
{
    QTest::addColumn<bool>("viewFirst");
    QTest::newRow("list made between the sheets") << true;
    QTest::newRow("list made after the sheets") << false;
}

// The popup's list keeps the rules of the moment in which it was made.
void TestUiScale::sheetOfAnUnshownWidgetReachesThePopup()
{
    QFETCH(bool, viewFirst);
    QWidget page;
    auto* frame = new QFrame(&page);
    auto* box = new QComboBox(frame);
    box->addItem(QStringLiteral("item"));
    const QString css = QStringLiteral("QComboBox QAbstractItemView::item{min-height:%1px;}");
    UiScale::setStyleSheet(&page, css.arg(36));
    if (viewFirst)
        UiScale::tuneComboPopup(box, 10);
    UiScale::setStyleSheet(frame, QStringLiteral("QComboBox{combobox-popup:0;}") + css.arg(161));
    if (!viewFirst)
        UiScale::tuneComboPopup(box, 10);
    show(page);
    box->showPopup();
    QCOMPARE(box->view()->sizeHintForRow(0), 161);
}

void TestUiScale::fixerIsInstalledOnce()
{
    QComboBox box;
    const int before = childrenOf(box.view());
    UiScale::fixComboPopupHeight(&box, 10);
    UiScale::fixComboPopupHeight(&box, 5);
    QCOMPARE(childrenOf(box.view()), before + 1);
    QCOMPARE(box.property("comboPopupFixerHeight"), QVariant(true));
    QVERIFY(!box.property("comboPopupFixerBelow").isValid());
    UiScale::fixComboPopupBelow(&box, 10);
    UiScale::fixComboPopupBelow(&box, 10);
    QCOMPARE(childrenOf(box.view()), before + 2);
    QCOMPARE(box.property("comboPopupFixerBelow"), QVariant(true));
    UiScale::fixComboPopupBelow(nullptr, 10);
    UiScale::fixComboPopupHeight(nullptr, 10);
}

void TestUiScale::popupGetsTheHeightOfItsRows_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("maxRows");
    QTest::addColumn<int>("rows");
    QTest::newRow("fewer items than rows") << 3 << 10 << 3;
    QTest::newRow("more items than rows") << 30 << 4 << 4;
    QTest::newRow("no rows: 10") << 30 << 0 << 10;
    QTest::newRow("negative rows: 10") << 30 << -3 << 10;
}

void TestUiScale::popupGetsTheHeightOfItsRows()
{
    QFETCH(int, items);
    QFETCH(int, maxRows);
    QFETCH(int, rows);
    Combo combo(items);
    UiScale::fixComboPopupHeight(combo.box, maxRows);
    combo.openWith(combo.heightOf(rows) + 100);
    QCOMPARE(combo.popup()->height(), combo.heightOf(rows));
    QCOMPARE(combo.popup()->minimumHeight(), combo.heightOf(rows));
    QCOMPARE(combo.popup()->maximumHeight(), combo.heightOf(rows));
    QCOMPARE(combo.box->view()->minimumHeight(), 0);
    QCOMPARE(combo.box->view()->maximumHeight(), combo.heightOf(rows));
}

void TestUiScale::slightlyTooHighStays()
{
    Combo combo(3);
    UiScale::fixComboPopupHeight(combo.box, 10);
    combo.openWith(combo.heightOf(3) + 4);
    QCOMPARE(combo.popup()->height(), combo.heightOf(3) + 4);
    combo.openWith(combo.heightOf(3) + 5);
    QCOMPARE(combo.popup()->height(), combo.heightOf(3));
}

void TestUiScale::tooLowStays()
{
    Combo combo(10);
    UiScale::fixComboPopupHeight(combo.box, 10);
    const int low = combo.heightOf(10) - 40;
    combo.openWith(low);
    QCOMPARE(combo.popup()->height(), low);
}

void TestUiScale::popupMovesBelow_data()
{
    QTest::addColumn<bool>("below");
    QTest::addColumn<int>("extra");
    QTest::newRow("below, of another height") << true << 100;
    QTest::newRow("below, height stays") << true << 0;
    QTest::newRow("height only") << false << 100;
}

void TestUiScale::popupMovesBelow()
{
    QFETCH(bool, below);
    QFETCH(int, extra);
    Combo combo(3);
    if (below)
        UiScale::fixComboPopupBelow(combo.box, 10);
    else
        UiScale::fixComboPopupHeight(combo.box, 10);
    combo.popup()->move(7, 333);
    combo.openWith(combo.heightOf(3) + extra);
    const QPoint under = combo.box->mapToGlobal(QPoint(0, combo.box->height()));
    QCOMPARE(combo.popup()->pos() == under, below);
    QCOMPARE(combo.popup()->height(), combo.heightOf(3));
}

void TestUiScale::popupIsFixedOnceMore()
{
    Combo combo(3);
    UiScale::fixComboPopupBelow(combo.box, 10);
    combo.openWith(300);
    combo.popup()->move(1, 2);
    combo.popup()->setMaximumHeight(500);
    combo.popup()->resize(120, 400);
    QTRY_COMPARE(combo.popup()->pos(), combo.box->mapToGlobal(QPoint(0, combo.box->height())));
    QCOMPARE(combo.popup()->height(), combo.heightOf(3));
}

void TestUiScale::otherViewsAreLeftAlone()
{
    Combo empty(0);
    UiScale::fixComboPopupBelow(empty.box, 10);
    empty.popup()->move(3, 4);
    empty.openWith(300);
    QApplication::processEvents();
    QCOMPARE(empty.popup()->height(), 300);
    QVERIFY(empty.popup()->pos() != empty.box->mapToGlobal(QPoint(0, empty.box->height())));

    // A view that stands in the window of its box is no popup.
    Combo inPlace(3);
    UiScale::fixComboPopupBelow(inPlace.box, 10);
    inPlace.box->view()->setParent(&inPlace.window);
    inPlace.window.resize(200, 400);
    inPlace.window.move(20, 30);
    show(inPlace.window);
    inPlace.box->view()->show();
    QApplication::processEvents();
    QCOMPARE(inPlace.window.height(), 400);
    QCOMPARE(inPlace.window.pos(), QPoint(20, 30));
}

void TestUiScale::fixerOutlivesNothing()
{
    auto combo = std::make_unique<Combo>(3);
    UiScale::fixComboPopupBelow(combo->box, 10);
    combo->openWith(300);
    combo.reset(); // a second run is pending
    QApplication::processEvents();

    Combo other(3);
    UiScale::fixComboPopupBelow(other.box, 10);
    other.openWith(300);
    other.box->setView(new QListView); // deletes the view and the filter with it
    QApplication::processEvents();
}

void TestUiScale::relaxesAPage()
{
    QWidget page;
    auto* grid = new QGridLayout(&page);
    auto* inner = new QGridLayout;
    grid->addLayout(inner, 0, 0);
    auto* group = new QGroupBox(&page);
    auto* label = new QLabel(QStringLiteral("caption"), group);
    auto* unit = new QLabel(QStringLiteral("mm"), group);
    unit->setProperty("type", QStringLiteral("unit"));
    for (QLabel* each : {label, unit}) {
        each->setWordWrap(true);
        each->setAlignment(Qt::AlignRight | Qt::AlignTop);
        each->setMinimumSize(50, 60);
        each->setMaximumWidth(70);
    }
    auto* spin = new QSpinBox(group);
    auto* real = new QDoubleSpinBox(group);
    auto* combo = new QComboBox(group);
    auto* edit = new QLineEdit(group);
    for (QWidget* each : std::initializer_list<QWidget*>{spin, real, combo, edit}) {
        each->setMinimumHeight(15);
        each->setMaximumHeight(99);
    }
    const int cap = UiScale::fieldHeightCap(&page);

    UiScale::relaxPageLimits(&page, &page);

    const QSizePolicy expanding(QSizePolicy::Expanding, QSizePolicy::Expanding);
    QCOMPARE(page.sizePolicy(), expanding);
    for (const QLabel* each : {label, unit}) {
        QVERIFY(!each->wordWrap());
        QCOMPARE(each->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(each->minimumHeight(), 0);
    }
    QCOMPARE(label->minimumWidth(), 0);
    QCOMPARE(label->maximumWidth(), 16777215);
    QCOMPARE(unit->minimumWidth(), 50);
    QCOMPARE(unit->maximumWidth(), 70);
    for (const QWidget* each : std::initializer_list<QWidget*>{spin, combo, edit}) {
        QCOMPARE(each->minimumHeight(), 0);
        QCOMPARE(each->maximumHeight(), cap);
    }
    QCOMPARE(real->minimumHeight(), 15);
    QCOMPARE(real->maximumHeight(), 99);
    QCOMPARE(edit->minimumWidth(), 140);
    QCOMPARE(edit->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred));
    const QSizePolicy low(QSizePolicy::Expanding, QSizePolicy::Minimum);
    QCOMPARE(group->sizePolicy().horizontalPolicy(), low.horizontalPolicy());
    QCOMPARE(group->sizePolicy().verticalPolicy(), low.verticalPolicy());
    // Labels are frames.
    QCOMPARE(label->maximumHeight(), 16777215);
    QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    for (const QGridLayout* each : {grid, inner}) {
        QCOMPARE(each->verticalSpacing(), 4);
        QCOMPARE(each->horizontalSpacing(), 6);
    }
}

void TestUiScale::relaxesFrames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("horizontal");
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("after");
    for (const char* name :
         {"frame", "frame_16", "frame_2", "frame_3", "frame_17", "frame_19", "frame_20"}) {
        QTest::newRow(name) << QString::fromLatin1(name) << int(QSizePolicy::Minimum) << 399
                            << 16777215;
    }
    const int expanding = QSizePolicy::Expanding;
    QTest::newRow("other name") << QStringLiteral("frame_1") << expanding << 1 << 16777215;
    QTest::newRow("no name") << QString() << expanding << 400 << 400;
    QTest::newRow("limit 0") << QStringLiteral("frame_21") << expanding << 0 << 0;
}

void TestUiScale::relaxesFrames()
{
    QFETCH(QString, name);
    QFETCH(int, horizontal);
    QFETCH(int, limit);
    QFETCH(int, after);
    QWidget page;
    auto* frame = new QFrame(new QWidget(&page));
    frame->setObjectName(name);
    frame->setMaximumHeight(limit);
    UiScale::relaxPageLimits(&page, nullptr);
    QCOMPARE(int(frame->sizePolicy().horizontalPolicy()), horizontal);
    QCOMPARE(frame->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(frame->maximumHeight(), after);
}

void TestUiScale::sparesTheHeader()
{
    QWidget page;
    auto* header = new QFrame(&page);
    header->setObjectName(QStringLiteral("frame_config_header"));
    auto* frame = new QFrame(header);
    auto* label = new QLabel(QStringLiteral("caption"), frame);
    label->setWordWrap(true);
    const QList<QWidget*> all{
        header, frame, label, new QSpinBox(frame), new QComboBox(frame), new QLineEdit(frame)};
    for (QWidget* each : all) {
        each->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        each->setFixedHeight(33);
    }
    UiScale::relaxPageLimits(&page, nullptr);

    QVERIFY(label->wordWrap());
    for (QWidget* each : all)
        QCOMPARE(each->minimumHeight(), 33);
    for (QWidget* each : {all[0], all[3], all[4], all[5]}) {
        QCOMPARE(each->maximumHeight(), 33);
        QCOMPARE(each->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    }
    // A frame goes by its own name only.
    QCOMPARE(frame->maximumHeight(), 16777215);
    QCOMPARE(label->maximumHeight(), 16777215);
}

void TestUiScale::relaxesNothing()
{
    QWidget widget;
    UiScale::relaxPageLimits(nullptr, &widget);
    QCOMPARE(widget.sizePolicy(), QWidget().sizePolicy());
}

int main(int argc, char** argv)
{
    scaleWithoutScreen = UiScale::screenScale(nullptr);
    QApplication application(argc, argv);
    TestUiScale test;
    return TestCase::run(&test, argc, argv);
}

#include "tst_uiscale.moc"
