#include "CharacteristicsCurvePage.h"
#include "LaserTrackingPage.h"
#include "LaserWeldPage.h"
#include "LogFolder.h"
#include "ScriptedHost.h"
#include "StackedWidgetFit.h"
#include "TestCase.h"
#include "UiScale.h"
#include "WeldParameterPage.h"
#include "WeldSettingPage.h"
#include "WeldioPage.h"

#include <QApplication>
#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QSignalSpy>
#include <QToolButton>

#include <memory>

namespace {

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromLatin1(text, int(size));
}

struct Entry
{
    int index;
    const char* button;
    const char* title;
    const char* icon;
    const char* page;
    const char* windowTitle;
    const char* read; ///< what the page asks of the host when it is opened
};

const Entry Entries[] = {
    {2, "Weld Setup", "Parmeter Setting", "LaserWeldDeviceSetting", "WeldSettingPage", "Form",
     "getQelServiceData weld_setting_config"},
    {3, "Weld I/O", "Soldering I/O", "LaserWeldIO", "WeldioPage", "Form",
     "getQelServiceData weld_io_config"},
    {4, "Char. Curve", "Characteristic curves", "LaserWeldCharacteristicCurve",
     "CharacteristicsCurvePage", "Form", "getQelServiceData weld_curve_config"},
    {5, "Weld Data", "Welding Parameters", "LaserWeldProcessSetting", "WeldParameterPage", "",
     "getQelServiceData weld_param_config"},
    {6, "Laser Tracking", "Laser Tracking", "LaserWeldWeaveFunction", "LaserTrackingPage", "Form",
     "GetPluginNoUniqueWidget qelLaserSeamTracking"},
};

const QString ButtonSheet =
    "QToolButton {height: 30px;padding: 0px 6px;background-color: rgb(235, 235, 235);border: "
    "none;border-radius: 3px;font: 17px;color: black;}QToolButton:hover {background: rgb(99, 99, "
    "99);background-color: rgb(135, 161, 174);}QToolButton:pressed {background: "
    "#636363;}QToolButton:checked {background: #8a0121;color: white;}"_s;
const QString WhiteSheet = "QWidget{background-color:white;}"_s;
const QString TitleSheet = "QLabel#lblTitle{font:bold 16px;min-height:30px;}"_s;

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// The main page on a host, with a log of its own.
struct MainOnHost
{
    QToolButton* button(int row) { return buttons().at(row); }
    QList<QToolButton*> buttons()
    {
        return child<QWidget>(&page, "wgtNav")->findChildren<QToolButton*>();
    }
    QString title() { return child<QLabel>(&page, "lblTitle")->text(); }
    StackedWidgetFit* stack() { return child<StackedWidgetFit>(&page, "stackedWidget"); }
    /// Positions of the buttons that are checked.
    QList<int> checked()
    {
        QList<int> rows;
        for (int row = 0; row < buttons().size(); ++row) {
            if (button(row)->isChecked())
                rows << row;
        }
        return rows;
    }
    template<typename Widget>
    Widget* only()
    {
        const auto all = page.findChildren<Widget*>();
        return all.size() == 1 ? all.first() : nullptr;
    }

    /// What the host was asked so far, but for the zoom of its screen, on which all sizes depend.
    QStringList asked() const
    {
        QStringList calls;
        for (const ScriptedHost::Call& call : host.calls) {
            if (call.name != "getNodeData"_s)
                calls << call.name + QLatin1Char(' ') + call.arguments.at(0).toString();
        }
        return calls;
    }

    ScriptedHost host;
    LogFolder folder;
    ConsoleCapture console;
    LaserWeldPage page;
};

} // namespace

class TestLaserWeldPage : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void constructionIsLogged();
    void formIsTitledAndSized();
    void formIsLaidOut();
    void stackHoldsSevenPages();
    void pages_data();
    void pages();
    void openedPageReads_data();
    void openedPageReads();
    void buttons_data();
    void buttons();
    void buttonsStandInTheColumn();
    void stylesAreSet();
    void metaObject();

    void nothingIsSelectedBeforeTheFirstShow();
    void firstShowSelectsTheFirst();
    void clickOpensPage_data();
    void clickOpensPage();
    void clickOfTheCurrentKeepsIt();
    void laterShowReturnsToTheLast();
    void showSetsTitleAnew();
    void disabledButtonOpensNothing();
    void stackIsFittedAfterEachChange();

    void renderStylesThePages();
    void renderAsksTheHostForLittle();
    void renderedLabelsHaveOneSize_data();
    void renderedLabelsHaveOneSize();
    void lock_data();
    void lock();
    void goesInAnyOrder();
    void pageOutlivesSetting();
    void isPaintedWhole();
};

void TestLaserWeldPage::constructionIsLogged()
{
    const MainOnHost t;
    const QStringList lines = LogFolder::texts();
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines.first().contains("LaserWeldPage::LaserWeldPage"_s));
    QVERIFY(lines.first().contains("17"_s));
    QCOMPARE(t.asked(), QStringList());
}

void TestLaserWeldPage::formIsTitledAndSized()
{
    const MainOnHost t;
    QCOMPARE(t.page.objectName(), "LaserWeldPage"_s);
    QCOMPARE(t.page.windowTitle(), "Form"_s);
    QCOMPARE(t.page.size(), QSize(766, 379));
    QVERIFY(!t.page.parentWidget());
}

void TestLaserWeldPage::formIsLaidOut()
{
    MainOnHost t;
    auto* row = qobject_cast<QHBoxLayout*>(t.page.layout());
    QCOMPARE(row->spacing(), 6);
    QCOMPARE(row->contentsMargins(), QMargins(6, 6, 0, 0));
    QCOMPARE(row->stretch(0), 1);
    QCOMPARE(row->stretch(1), 6);
    QCOMPARE(row->itemAt(0)->widget(), child<QWidget>(&t.page, "wgtNav"));
    auto* column = qobject_cast<QVBoxLayout*>(row->itemAt(1)->layout());
    QCOMPARE(column->objectName(), "verticalLayout_2"_s);
    QCOMPARE(column->stretch(0), 0);
    QCOMPARE(column->stretch(1), 1);
    auto* titleRow = child<QHBoxLayout>(&t.page, "horizontalLayout_2");
    QCOMPARE(titleRow->contentsMargins(), QMargins(20, 6, 9, 3));
    const QSpacerItem* spacer = titleRow->itemAt(1)->spacerItem();
    QCOMPARE(spacer->sizeHint(), QSize(40, 20));
    QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
    QCOMPARE(child<QLabel>(&t.page, "lblTitle")->alignment(), Qt::AlignCenter);
    auto* area = child<QScrollArea>(&t.page, "scrollArea");
    QCOMPARE(area->frameShape(), QFrame::NoFrame);
    QVERIFY(area->widgetResizable());
    QCOMPARE(area->widget()->objectName(), "scrollAreaWidgetContents"_s);
    auto* grid = qobject_cast<QGridLayout*>(area->widget()->layout());
    QCOMPARE(grid->verticalSpacing(), 0);
    QCOMPARE(grid->contentsMargins(), QMargins());
    QCOMPARE(grid->rowStretch(0), 1);
    auto* content = child<QWidget>(&t.page, "wgtContent");
    QCOMPARE(grid->itemAtPosition(0, 0)->widget(), content);
    auto* inner = qobject_cast<QVBoxLayout*>(content->layout());
    QCOMPARE(inner->itemAt(0)->widget(), t.stack());
    QCOMPARE(inner->stretch(0), 1);
    const QSizePolicy expanding(QSizePolicy::Expanding, QSizePolicy::Expanding);
    for (const QWidget* each :
         std::initializer_list<const QWidget*>{t.stack(), area, area->widget(), content})
        QCOMPARE(each->sizePolicy(), expanding);
}

void TestLaserWeldPage::stackHoldsSevenPages()
{
    MainOnHost t;
    QCOMPARE(t.stack()->count(), 7);
    QCOMPARE(t.stack()->widget(0)->objectName(), "page"_s);
    QCOMPARE(t.stack()->widget(1)->objectName(), "page_2"_s);
}

void TestLaserWeldPage::pages_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(Entries)); ++row)
        QTest::newRow(Entries[row].page) << row;
}

void TestLaserWeldPage::pages()
{
    QFETCH(int, row);
    const Entry& entry = Entries[row];
    MainOnHost t;
    const QWidget* page = t.stack()->widget(entry.index);
    QCOMPARE(page->metaObject()->className(), entry.page);
    QCOMPARE(page->objectName(), text(entry.page));
    QCOMPARE(page->windowTitle(), text(entry.windowTitle));
    QCOMPARE(page->parentWidget(), t.stack());
    QVERIFY(page->isHidden());
}

void TestLaserWeldPage::openedPageReads_data()
{
    pages_data();
}

void TestLaserWeldPage::openedPageReads()
{
    QFETCH(int, row);
    MainOnHost t;
    t.page.show();
    t.button(row == 0 ? 4 : 0)->click();
    t.host.forgetCalls();
    t.button(row)->click();
    QVERIFY(t.asked().contains(text(Entries[row].read)));
}

void TestLaserWeldPage::buttons_data()
{
    pages_data();
}

void TestLaserWeldPage::buttons()
{
    QFETCH(int, row);
    const Entry& entry = Entries[row];
    MainOnHost t;
    QToolButton* button = t.button(row);
    QCOMPARE(button->text(), text(entry.button));
    QVERIFY(button->isCheckable());
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QCOMPARE(button->minimumHeight(), 42);
    QCOMPARE(button->property("pageIndex"), QVariant(entry.index));
    QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(button->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    const QSize whole(200, 200);
    const QPixmap picture(":/png/meanlist/"_s + text(entry.icon) + ".png"_s);
    QCOMPARE(picture.size(), whole);
    QCOMPARE(button->icon().pixmap(whole).toImage(), picture.toImage());
}

void TestLaserWeldPage::buttonsStandInTheColumn()
{
    MainOnHost t;
    auto* layout = qobject_cast<QVBoxLayout*>(child<QWidget>(&t.page, "wgtNav")->layout());
    QCOMPARE(layout->objectName(), "verticalLayout_4"_s);
    QCOMPARE(layout->alignment(), Qt::AlignTop);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 5);
    for (int row = 0; row < 5; ++row)
        QCOMPARE(qobject_cast<QToolButton*>(layout->itemAt(row)->widget())->text(),
                 text(Entries[row].button));
}

void TestLaserWeldPage::stylesAreSet()
{
    MainOnHost t;
    QCOMPARE(child<QWidget>(&t.page, "wgtContent")->styleSheet(), WhiteSheet);
    QCOMPARE(child<QWidget>(&t.page, "wgtTitle")->styleSheet(), WhiteSheet);
    QCOMPARE(child<QWidget>(&t.page, "lblTitle")->styleSheet(), TitleSheet);
    QVERIFY(child<QWidget>(&t.page, "wgtNav")->styleSheet().isEmpty());
    QVERIFY(child<QWidget>(&t.page, "wgtNav")->isEnabled());
    const auto buttons = t.buttons();
    for (const QToolButton* each : buttons)
        QCOMPARE(each->styleSheet(), ButtonSheet);
}

void TestLaserWeldPage::metaObject()
{
    const QMetaObject& meta = LaserWeldPage::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod method = meta.method(meta.methodOffset());
    QCOMPARE(method.methodSignature(), QByteArray("setPageStatus(bool)"));
    QCOMPARE(method.methodType(), QMetaMethod::Slot);
    QCOMPARE(method.access(), QMetaMethod::Public);
}

void TestLaserWeldPage::nothingIsSelectedBeforeTheFirstShow()
{
    MainOnHost t;
    QCOMPARE(t.stack()->currentIndex(), 0);
    QCOMPARE(t.title(), "Title"_s);
    QVERIFY(t.checked().isEmpty());
    t.page.renderPages();
    QCOMPARE(t.stack()->currentIndex(), 0);
    QCOMPARE(t.title(), "Title"_s);
    QVERIFY(t.checked().isEmpty());
}

void TestLaserWeldPage::firstShowSelectsTheFirst()
{
    MainOnHost t;
    t.page.show();
    QCOMPARE(t.stack()->currentIndex(), 2);
    QCOMPARE(t.title(), "Parmeter Setting"_s);
    QCOMPARE(t.checked(), QList<int>{0});
    QVERIFY(t.only<WeldSettingPage>()->isVisible());
}

void TestLaserWeldPage::clickOpensPage_data()
{
    pages_data();
}

void TestLaserWeldPage::clickOpensPage()
{
    QFETCH(int, row);
    MainOnHost t;
    t.page.show();
    t.button(row == 0 ? 4 : 0)->click();
    QTest::mouseClick(t.button(row), Qt::LeftButton);
    QCOMPARE(t.stack()->currentIndex(), Entries[row].index);
    QCOMPARE(t.title(), text(Entries[row].title));
    QCOMPARE(t.checked(), QList<int>{row});
    for (const Entry& entry : Entries)
        QCOMPARE(t.stack()->widget(entry.index)->isVisible(), &entry == &Entries[row]);
}

void TestLaserWeldPage::clickOfTheCurrentKeepsIt()
{
    MainOnHost t;
    t.page.show();
    const QSignalSpy changed(t.stack(), &QStackedWidget::currentChanged);
    t.button(0)->click();
    t.button(0)->click();
    QCOMPARE(t.checked(), QList<int>{0});
    QCOMPARE(t.stack()->currentIndex(), 2);
    QCOMPARE(changed.count(), 0);
}

void TestLaserWeldPage::laterShowReturnsToTheLast()
{
    MainOnHost t;
    t.page.show();
    t.button(4)->click();
    t.page.hide();
    const QSignalSpy changed(t.stack(), &QStackedWidget::currentChanged);
    t.page.show();
    QCOMPARE(t.stack()->currentIndex(), 6);
    QCOMPARE(t.checked(), QList<int>{4});
    QCOMPARE(changed.count(), 0); // so the sibling's widget is not embedded anew
    // Also when somebody else has turned the stack meanwhile.
    t.page.hide();
    t.stack()->setCurrentIndex(1);
    t.page.show();
    QCOMPARE(t.stack()->currentIndex(), 6);
}

void TestLaserWeldPage::showSetsTitleAnew()
{
    MainOnHost t;
    t.page.show();
    t.button(1)->click();
    t.page.hide();
    child<QLabel>(&t.page, "lblTitle")->setText("other"_s);
    t.button(1)->setChecked(false);
    t.button(3)->setChecked(true);
    t.page.show();
    QCOMPARE(t.title(), "Soldering I/O"_s);
    QCOMPARE(t.checked(), QList<int>{1});
}

void TestLaserWeldPage::disabledButtonOpensNothing()
{
    MainOnHost t;
    t.page.show();
    t.button(2)->setEnabled(false);
    QTest::mouseClick(t.button(2), Qt::LeftButton);
    QCOMPARE(t.stack()->currentIndex(), 2);
    QCOMPARE(t.checked(), QList<int>{0});
}

void TestLaserWeldPage::stackIsFittedAfterEachChange()
{
    MainOnHost t;
    t.page.resize(900, 700);
    t.page.show();
    for (int row = 4; row >= 0; --row) {
        t.button(row)->click();
        QCoreApplication::processEvents();
        QCOMPARE(t.stack()->currentWidget()->geometry(), t.stack()->rect());
    }
}

void TestLaserWeldPage::renderStylesThePages()
{
    MainOnHost t;
    QVERIFY(t.only<WeldSettingPage>()->styleSheet().isEmpty());
    t.page.renderPages();
    const QString bars = t.page.styleSheet().remove(QLatin1Char(' '));
    const QStringList rules{
        "QScrollBar:vertical,QScrollBar:horizontal{background:#f5f5f5;border:1pxsolid#c8c8c8;"
        "border-"
        "radius:6px;margin:0px;min-width:30px;min-height:8px;}"_s,
        "QScrollBar::handle:vertical,QScrollBar::handle:horizontal{background:#c8c8c8;border-"
        "radius:"
        "10px;min-width:30px;min-height:8px;}"_s,
        "QScrollBar::handle:hover{background:#b0b0b0;}"_s,
        "QScrollBar::add-line,QScrollBar::sub-line{border:none;background:none;width:0px;height:"
        "0px;"
        "}"_s,
    };
    QCOMPARE(bars, rules.join(QString()));
    QVERIFY(!t.only<WeldSettingPage>()->styleSheet().isEmpty());
    const QString first = t.page.styleSheet();
    t.page.renderPages(); // a second time changes nothing
    QCOMPARE(t.page.styleSheet(), first);
}

void TestLaserWeldPage::renderAsksTheHostForLittle()
{
    MainOnHost t;
    t.page.renderPages();
    // No record is read before a page is shown.
    QCOMPARE(t.asked(), QStringList{"GetPluginNoUniqueWidget qelLaserSeamTracking"_s});
}

void TestLaserWeldPage::renderedLabelsHaveOneSize_data()
{
    QTest::addColumn<bool>("isShownFirst");
    QTest::newRow("rendered, then shown") << false;
    QTest::newRow("shown, then rendered") << true;
}

// A label that was polished too early would keep the application's font.
void TestLaserWeldPage::renderedLabelsHaveOneSize()
{
    QFETCH(bool, isShownFirst);
    MainOnHost t;
    QFont other = QApplication::font();
    other.setPointSize(17);
    t.page.setFont(other);
    if (isShownFirst)
        t.page.show();
    t.page.renderPages();
    t.page.show();
    const int size = UiScale::pointSize(10, &t.page);
    const auto labels = t.only<WeldSettingPage>()->findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (label->isVisible())
            QVERIFY2(label->font().pointSize() == size, qPrintable(label->objectName()));
    }
}

void TestLaserWeldPage::lock_data()
{
    QTest::addColumn<bool>("isLocked");
    QTest::newRow("locked") << true;
    QTest::newRow("free") << false;
}

void TestLaserWeldPage::lock()
{
    QFETCH(bool, isLocked);
    MainOnHost t;
    t.page.setPageStatus(!isLocked);
    QVERIFY(QMetaObject::invokeMethod(&t.page, "setPageStatus", Q_ARG(bool, isLocked)));
    QCOMPARE(t.only<WeldioPage>()->isEnabled(), !isLocked);
    QCOMPARE(t.only<CharacteristicsCurvePage>()->isEnabled(), !isLocked);
    QCOMPARE(t.only<WeldParameterPage>()->isEnabled(), !isLocked);
    QVERIFY(t.only<LaserTrackingPage>()->isEnabled());
    auto* setting = t.only<WeldSettingPage>();
    QVERIFY(setting->isEnabled());
    for (const char* name : {"frame", "frame_2", "frame_3", "frame_4", "frame_WireSticking",
                             "pushButton_cancel", "pushButton_save"})
        QCOMPARE(child<QWidget>(setting, name)->isEnabled(), !isLocked);
    QVERIFY(child<QWidget>(setting, "pushButton_main_enable")->isEnabled());
    QVERIFY(child<QWidget>(setting, "frame_5")->isEnabled());
    QCOMPARE(t.asked(), QStringList());
}

void TestLaserWeldPage::goesInAnyOrder()
{
    const ScriptedHost host;
    const LogFolder folder;
    for (const bool isShown : {false, true}) {
        auto page = std::make_unique<LaserWeldPage>();
        page->renderPages();
        if (isShown)
            page->show();
        page.reset(); // also with what is posted to it
        QCoreApplication::processEvents();
    }
}

// The later pages hold a guarded pointer to the first.
void TestLaserWeldPage::pageOutlivesSetting()
{
    auto setting = std::make_unique<WeldSettingPage>(nullptr);
    WeldioPage io(setting.get());
    CharacteristicsCurvePage curve(setting.get());
    WeldParameterPage parameter(setting.get());
    LaserTrackingPage tracking;
    setting.reset();
    io.applyPageStyle();
    curve.applyPageStyle();
    parameter.applyPageStyle();
    tracking.embedTrackingWidget();
    for (QWidget* each : std::initializer_list<QWidget*>{&io, &curve, &parameter, &tracking}) {
        each->show();
        QCOMPARE(each->objectName(), text(each->metaObject()->className()));
    }
}

// Title and contents stand on white, the current button on its own colour.
void TestLaserWeldPage::isPaintedWhole()
{
    MainOnHost t;
    t.page.renderPages();
    t.page.resize(1000, 700);
    t.page.show();
    QCoreApplication::processEvents();
    const QImage image = t.page.grab().toImage();
    const auto colourAt = [&](const QWidget* widget, QPoint point) {
        return QColor(image.pixel(widget->mapTo(&t.page, point))).name();
    };
    auto* title = child<QWidget>(&t.page, "wgtTitle");
    QCOMPARE(colourAt(title, QPoint(2, 2)), "#ffffff"_s);
    QCOMPARE(colourAt(title, QPoint(title->width() - 2, title->height() - 2)), "#ffffff"_s);
    auto* content = child<QWidget>(&t.page, "wgtContent");
    QCOMPARE(colourAt(content, QPoint(content->width() - 2, content->height() - 2)), "#ffffff"_s);
    auto* setting = t.only<WeldSettingPage>();
    QCOMPARE(colourAt(setting, QPoint(setting->width() / 2, setting->height() - 2)), "#ffffff"_s);
    const QPoint corner(t.button(0)->width() - 6, 6);
    QCOMPARE(colourAt(t.button(0), corner), "#8a0121"_s);
    QCOMPARE(colourAt(t.button(1), corner), "#ebebeb"_s);
    QCOMPARE(child<QLabel>(&t.page, "lblTitle")->font().pixelSize(), 16);
    QVERIFY(child<QLabel>(&t.page, "lblTitle")->font().bold());
    QVERIFY(child<QLabel>(&t.page, "lblTitle")->height() >= 30);
    const auto buttons = t.buttons();
    for (const QToolButton* each : buttons) {
        QCOMPARE(each->font().pixelSize(), 17);
        QVERIFY(each->height() >= 42);
        QVERIFY(each->width() >= each->sizeHint().width());
    }
}

LASERWELD_TEST_MAIN(TestLaserWeldPage)
#include "tst_laserweldpage.moc"
