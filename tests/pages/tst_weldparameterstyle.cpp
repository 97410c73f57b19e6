#include "CaptionText.h"
#include "PolishWatch.h"
#include "ScheduleTest.h"
#include "StyleHelpers.h"
#include "UiScale.h"

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QScrollArea>
#include <QScrollBar>

using namespace ScheduleTest;

namespace {

const char* const Frames[] = {"frame",    "frame_16", "frame_2",  "frame_3",
                              "frame_17", "frame_19", "frame_20", "frame_wire_stick_row"};

/// Counts the style sheets that are set on the page or below it.
class SheetWatch : public QObject
{
public:
    explicit SheetWatch(QWidget* page)
    {
        page->installEventFilter(this);
        const auto widgets = page->findChildren<QWidget*>();
        for (QWidget* each : widgets)
            each->installEventFilter(this);
    }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::StyleChange)
            changed << object->objectName();
        return false;
    }
    QStringList changed;
};

/// The page as it is after its style was applied and the schedule 7 opened.
struct StyledPage : PageOnHost
{
    StyledPage()
        : PageOnHost(seven(fullRecord()))
    {
        page->resize(820, 560);
        page->applyPageStyle();
        page->show();
        open(7);
    }
};

/// A page that is smaller than a schedule, about what a window of 800 by 600 leaves.
constexpr QSize SmallPage(440, 400);

constexpr QRgb Arrow = 0xff374860;

int pixelsOf(const QImage& image, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == colour ? 1 : 0;
    }
    return count;
}

QMargins marginsOf(const QLayout* layout)
{
    return layout->contentsMargins();
}

} // namespace

class TestWeldParameterStyle : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void detailsAreStyledBeforeTheyAreOpened();
    void laterPassesSetNoSheet();
    void switchPolishesWhatItShows();
    void smallWindowScrolls_data();
    void smallWindowScrolls();
    void stepButtonsAreSeen();
    void listHeadersBreak_data();
    void listHeadersBreak();
    void sheetsHaveTheColours_data();
    void sheetsHaveTheColours();
    void tabs();
    void focusByClick();
    void configLayouts();
    void gridColumns();
    void endTabKeepsToTheTop();
    void compactFields();
    void switches();
    void header();
    void zoomChangesTheHeader();
    void fourDigitsAreReadable();
};

void TestWeldParameterStyle::detailsAreStyledBeforeTheyAreOpened()
{
    const PageOnHost t(PageOnHost::seven(fullRecord()));
    t.page->applyPageStyle();
    const auto boxes = t.find<QWidget>("page_config")->findChildren<QComboBox*>();
    QVERIFY(!boxes.isEmpty());
    for (const QComboBox* box : boxes) {
        QVERIFY2(!box->styleSheet().isEmpty(), qPrintable(box->objectName()));
        QCOMPARE(box->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    }
    QCOMPARE(t.find<QFrame>("frame_wire_stick_row")->maximumHeight(), 36);
}

void TestWeldParameterStyle::laterPassesSetNoSheet()
{
    const StyledPage t;
    const SheetWatch watch(t.page.get());
    for (const int tab : {1, 2, 0})
        t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(tab);
    t.click("pushButton_back");
    t.open(7);
    t.page->hide();
    t.page->show();
    t.page->applyPageStyle();
    QCOMPARE(watch.changed, QStringList());
}

void TestWeldParameterStyle::switchPolishesWhatItShows()
{
    const StyledPage t;
    QCoreApplication::processEvents();
    const auto expectShown = [&t](const char* name, auto change) {
        const PolishWatch watch;
        change();
        QCoreApplication::processEvents();
        QVERIFY2(watch.polished.size() <= shownWidgets(t.page.get()), name);
    };
    for (const int tab : {1, 2, 0, 1, 2})
        expectShown("schedule",
                    [&] { t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(tab); });
    expectShown("back", [&] { t.click("pushButton_back"); });
    for (const int tab : {1, 0, 1})
        expectShown("list", [&] { t.find<QTabWidget>("tabWidget")->setCurrentIndex(tab); });
    t.find<QTableWidget>("tableWidget_2")->setCurrentCell(1, 0);
    expectShown("matching", [&] { t.click("pushButton_Config"); });
}

void TestWeldParameterStyle::smallWindowScrolls_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QByteArray>("area");
    QTest::newRow("start") << 0 << QByteArray("scrollArea_start");
    QTest::newRow("weld") << 1 << QByteArray("scrollArea_weld");
    QTest::newRow("end") << 2 << QByteArray("scrollArea_end");
}

// Nothing is squeezed and nothing lies on its neighbour: the tab scrolls instead.
void TestWeldParameterStyle::smallWindowScrolls()
{
    QFETCH(int, tab);
    QFETCH(QByteArray, area);
    const StyledPage t;
    QCoreApplication::processEvents(); // the layout of the opened view
    t.page->resize(SmallPage);
    t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(tab);
    QCoreApplication::processEvents();
    QCOMPARE(t.page->size(), SmallPage);
    const auto fields = t.find<QScrollArea>(area.constData())->findChildren<QWidget*>();
    for (const QWidget* each : fields) {
        const bool isField = qobject_cast<const QLabel*>(each) ||
                             qobject_cast<const QAbstractSpinBox*>(each) ||
                             qobject_cast<const EnableButton*>(each);
        if (!isField || !each->isVisible())
            continue;
        const QSize least = each->minimumSizeHint();
        QVERIFY2(
            each->width() >= least.width(),
            qPrintable(
                "%1: %2 of %3"_s.arg(each->objectName()).arg(each->width()).arg(least.width())));
        QVERIFY2(each->height() >= std::min(least.height(), each->maximumHeight()),
                 qPrintable(each->objectName()));
        for (const QWidget* other : fields) {
            if (other != each && other->parent() == each->parent() && other->isVisible())
                QVERIFY2(!other->geometry().intersects(each->geometry()),
                         qPrintable(each->objectName() + " "_s + other->objectName()));
        }
    }
}

// Qt draws no arrows beside a border of the sheet.
void TestWeldParameterStyle::stepButtonsAreSeen()
{
    const StyledPage t;
    t.find<QComboBox>("comboBox_work_mode")->setCurrentIndex(1);
    t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(1);
    QCoreApplication::processEvents();
    for (const char* name : {"spinBox_swing_job", "spinBox_process_job"}) {
        auto* box = t.find<QSpinBox>(name);
        box->setValue(5);
        const QImage image = box->grab().toImage();
        const int half = image.height() / 2;
        const QRect up(image.width() - 24, 0, 24, half);
        QVERIFY2(pixelsOf(image.copy(up), Arrow) >= 12, name);
        QVERIFY2(pixelsOf(image.copy(up.translated(0, half)), Arrow) >= 12, name);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() - 10, 4));
        QCOMPARE(box->value(), 6);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() - 10, box->height() - 4));
        QCOMPARE(box->value(), 5);
    }
}

void TestWeldParameterStyle::listHeadersBreak_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("schedules") << 0 << QByteArray("tableWidget");
    QTest::newRow("matching") << 1 << QByteArray("tableWidget_2");
}

void TestWeldParameterStyle::listHeadersBreak()
{
    QFETCH(int, tab);
    QFETCH(QByteArray, name);
    const StyledPage t;
    t.click("pushButton_back");
    t.find<QTabWidget>("tabWidget")->setCurrentIndex(tab);
    const auto* table = t.find<QTableWidget>(name.constData());
    const QHeaderView* header = table->horizontalHeader();
    t.page->resize(SmallPage.width(), t.page->height());
    QTRY_VERIFY(header->height() > 2 * header->fontMetrics().lineSpacing());
    QVERIFY(!table->horizontalScrollBar()->isVisible());
    QCOMPARE(header->length(), table->viewport()->width());
    for (int column = 0; column < table->columnCount(); ++column) {
        const QString caption = table->horizontalHeaderItem(column)->text();
        QTRY_VERIFY(header->height() > CaptionText::height(CaptionText::drawn(caption),
                                                           UiScale::font(10, t.page.get()),
                                                           header->sectionSize(column) - 10));
    }
    t.page->resize(2000, t.page->height());
    QTRY_VERIFY(header->height() < 2 * header->fontMetrics().lineSpacing());
}

void TestWeldParameterStyle::sheetsHaveTheColours_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QStringList>("parts");
    const QStringList table{"#d0d0d0"_s, "#224d75"_s, "#0078D4"_s};
    for (const char* name : {"tableWidget", "tableWidget_2", "tableWidget_matching"})
        QTest::newRow(name) << QByteArray(name) << table;
    const QStringList tab{"#d3dce6"_s, "#374860"_s,           "min-width:120px"_s,
                          "#224d75"_s, "min-height:32px"_s,   "#d0d0d0"_s,
                          "#ffffff"_s, "border-radius:8px;"_s};
    for (const char* name : {"tabWidget", "tabWidget_config"})
        QTest::newRow(name) << QByteArray(name) << tab;
    for (const char* name : Frames)
        QTest::newRow(name) << QByteArray(name)
                            << QStringList{"#f8f9fa"_s, "1px solid #d6d6d6"_s,
                                           "border-radius:6px"_s};
    QTest::newRow("header") << QByteArray("frame_config_header")
                            << QStringList{"#f0f4f8"_s,           "#c5d0dc"_s,
                                           "border-radius:8px"_s, "#c8c8c8"_s,
                                           "border-radius:6px"_s, "#0078d4"_s};
    QTest::newRow("number") << QByteArray("spinBox_swing_job")
                            << QStringList{"1px solid #c8c8c8"_s, "border-radius:4px"_s,
                                           "#ffffff"_s, "#202020"_s, "padding:0px 2px 0px 4px"_s};
}

void TestWeldParameterStyle::sheetsHaveTheColours()
{
    QFETCH(QByteArray, name);
    QFETCH(QStringList, parts);
    const StyledPage t;
    const QString sheet = t.find<QWidget>(name.constData())->styleSheet();
    for (const QString& part : qAsConst(parts))
        QVERIFY2(sheet.contains(part), qPrintable(part + " in "_s + sheet));
}

void TestWeldParameterStyle::tabs()
{
    const StyledPage t;
    QVERIFY(!t.find<QTabWidget>("tabWidget_config")->documentMode());
}

void TestWeldParameterStyle::focusByClick()
{
    const StyledPage t;
    for (const char* name : {"lineEdit", "spinBox_swing_job", "comboBox_work_mode",
                             "doubleSpinBox_laser_power_weld_3"})
        QCOMPARE(t.find<QWidget>(name)->focusPolicy(), Qt::ClickFocus);
}

void TestWeldParameterStyle::configLayouts()
{
    const StyledPage t;
    auto* grid = t.find<QGridLayout>("gridLayout_9");
    QCOMPARE(marginsOf(grid), QMargins());
    QCOMPARE(grid->horizontalSpacing(), 6);
    QCOMPARE(grid->verticalSpacing(), 8);
    QCOMPARE(grid->columnStretch(0), 1);
    QCOMPARE(grid->rowStretch(0), 0);
    QCOMPARE(grid->rowStretch(1), 1);
    auto* row = t.find<QHBoxLayout>("horizontalLayout_8");
    QCOMPARE(marginsOf(row), QMargins(12, 8, 12, 8));
    QCOMPARE(row->spacing(), 12);
    const char* const tabNames[] = {"tab_config_start", "tab_config_weld", "tab_config_end"};
    const char* const groupNames[] = {"groupBox", "groupBox_2", "groupBox_3"};
    for (int index = 0; index < 3; ++index) {
        const QLayout* tab = t.find<QWidget>(tabNames[index])->layout();
        QCOMPARE(tab->spacing(), 6);
        QCOMPARE(marginsOf(tab), QMargins(2, 0, 2, 0));
        const auto* group = t.find<QGroupBox>(groupNames[index]);
        QCOMPARE(group->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
        QCOMPARE(marginsOf(group->layout()), QMargins(6, 6, 6, 6));
        QCOMPARE(group->layout()->spacing(), 4);
    }
}

void TestWeldParameterStyle::gridColumns()
{
    const StyledPage t;
    for (const char* name : Frames) {
        auto* grid = qobject_cast<QGridLayout*>(t.find<QFrame>(name)->layout());
        if (!grid)
            continue;
        QCOMPARE(grid->columnStretch(0), 0);
        QCOMPARE(grid->columnStretch(1), 0);
        QCOMPARE(grid->columnStretch(2), 1);
    }
}

void TestWeldParameterStyle::endTabKeepsToTheTop()
{
    const StyledPage t;
    t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(2);
    QCoreApplication::processEvents();
    QCOMPARE(t.find<QFrame>("frame_3")->y(), t.find<QFrame>("frame_19")->y());
    for (const char* name : {"frame_3", "frame_17", "frame_19", "frame_20"}) {
        const auto* frame = t.find<QFrame>(name);
        QCOMPARE(frame->height(), frame->sizeHint().height());
    }
    for (const char* name : {"horizontalLayout_wire_stick", "horizontalLayout_wire_retraction",
                             "horizontalLayout_wire_fill_com"}) {
        auto* row = t.find<QHBoxLayout>(name);
        for (int index = 0; index < row->count(); ++index)
            QCOMPARE(row->stretch(index), 1);
    }
}

void TestWeldParameterStyle::compactFields()
{
    const StyledPage t;
    const int height = std::max(QFontMetrics(UiScale::font(10, t.page.get())).height() + 2, 20);
    const QString fixed = "min-height:%1px;max-height:%1px"_s.arg(height);
    for (const Number& each : Numbers)
        QVERIFY2(t.number(each)->styleSheet().contains(fixed), each.key);
    const QSpinBox* shown = t.number(Numbers[0]);
    QCOMPARE(shown->minimumHeight(), height + 2); // with the border
    t.page->applyPageStyle();
    QCOMPARE(shown->minimumHeight(), height + 2);
    QCOMPARE(shown->maximumHeight(), height + 2);
    for (const Choice& each : Choices) {
        const QComboBox* box = t.choice(each);
        const int border = box->testAttribute(Qt::WA_WState_Polished) ? 4 : 0;
        QCOMPARE(box->minimumHeight(), height + border);
        QCOMPARE(box->maximumHeight(), height + border);
        QCOMPARE(box->maxVisibleItems(), 10);
        QCOMPARE(box->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(
            box->styleSheet(),
            UiScale::styleSheet(comboStyleSheet(t.page.get(), height, 6, 22, true), t.page.get()));
        QVERIFY(box->property("comboPopupFixerHeight").toBool());
    }
}

void TestWeldParameterStyle::switches()
{
    const StyledPage t;
    for (int index = 0; index < SwitchCount; ++index)
        QCOMPARE(t.toggle(index)->size(), QSize(50, 24));
    const auto* row = t.find<QFrame>("frame_wire_stick_row");
    QCOMPARE(row->minimumHeight(), 36);
    QCOMPARE(row->maximumHeight(), 36);
    QCOMPARE(row->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
}

void TestWeldParameterStyle::header()
{
    const StyledPage t;
    const int height = UiScale::controlHeight(t.page.get());
    const auto* frame = t.find<QFrame>("frame_config_header");
    QCOMPARE(frame->height(), height + 16);
    auto* grid = t.find<QGridLayout>("gridLayout_9");
    QCOMPARE(grid->rowMinimumHeight(0), height + 16);
    QVERIFY(grid->itemAtPosition(0, 0)->alignment() & Qt::AlignTop);
    const struct
    {
        const char* name;
        int points, weight;
    } fonts[] = {{"label", 11, 63}, {"label_ID", 13, 75}, {"label_3", 11, 63}};
    for (const auto& each : fonts) {
        const auto* label = t.find<QLabel>(each.name);
        QCOMPARE(label->font().pointSize(), UiScale::pointSize(each.points, t.page.get()));
        QCOMPARE(label->font().weight(), each.weight);
        QCOMPARE(label->height(), height);
    }
    QCOMPARE(t.comment()->minimumWidth(), 140);
    QCOMPARE(t.comment()->font().pointSize(), UiScale::pointSize(11, t.page.get()));
    const auto* mode = t.find<QComboBox>("comboBox_modetype");
    QCOMPARE(mode->minimumHeight(), height + 4); // with the border
    QCOMPARE(mode->maximumHeight(), height + 4);
}

// A pass is left out only while nothing has changed on which it depends.
void TestWeldParameterStyle::zoomChangesTheHeader()
{
    StyledPage t;
    const int before = t.find<QFrame>("frame_config_header")->height();
    t.host.nodes.insert("qeltheme.fontzoom"_s, 2.0);
    t.click("pushButton_back");
    t.open(7);
    QCoreApplication::processEvents();
    const int height = UiScale::controlHeight(t.page.get());
    QVERIFY(height + 16 > before);
    QCOMPARE(t.find<QFrame>("frame_config_header")->height(), height + 16);
    QCOMPARE(t.find<QComboBox>("comboBox_modetype")->maximumHeight(), height + 4);
}

void TestWeldParameterStyle::fourDigitsAreReadable()
{
    const StyledPage t;
    for (int tab = 0; tab < 3; ++tab) {
        t.find<QTabWidget>("tabWidget_config")->setCurrentIndex(tab);
        QCoreApplication::processEvents();
        for (const Number& each : Numbers) {
            const QSpinBox* editor = t.number(each);
            if (editor->isVisible())
                QVERIFY2(editor->width() >= editor->fontMetrics().horizontalAdvance("9999"_s) + 8,
                         each.key);
        }
    }
}

LASERWELD_TEST_MAIN(TestWeldParameterStyle)
#include "tst_weldparameterstyle.moc"
