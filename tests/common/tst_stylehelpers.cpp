#include "StyleHelpers.h"

#include "ScriptedHost.h"
#include "TestCase.h"
#include "UiScale.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>

namespace {

/// A combo box's sheet as it is to stand, with the height clause first.
QString comboText(const QString& clause, int height, int radius, int padding, int arrow)
{
    return QStringLiteral(
               "QComboBox{background:#ffffff;color:#202020;border:2px solid #E4E4E4;border-radius:"
               "%2px;padding:0px %3px 0px 6px;combobox-popup:0;font:400 9pt \"Microsoft YaHei "
               "UI\";%4}QComboBox::drop-down{subcontrol-origin:padding;subcontrol-position:top "
               "right;width:%5px;border:none;}QComboBox::down-arrow{image:url(:/qelLaserWelding/"
               "png/arrow/down_arrow_white.png);padding:5px;}QComboBox:disabled{background:#f5f5f5;"
               "color:#A3A4A4;border:2px solid #E4E4E4;}QComboBox:focus{outline:none;}QComboBox "
               "QAbstractItemView{background:#ffffff;border:2px solid "
               "#E4E4E4;outline:0;selection-background-color:#007cf9;selection-color:#ffffff;}"
               "QComboBox QAbstractItemView::item{min-height:%1px;padding:2px 8px;}QComboBox "
               "QAbstractItemView::item:selected{background:#007cf9;color:#ffffff;}")
        .arg(height)
        .arg(radius)
        .arg(padding)
        .arg(clause)
        .arg(arrow);
}

/// A page with one frame, as the configuration pages have them.
struct Page
{
    Page()
        : frame(new QFrame(&widget))
        , grid(new QGridLayout(frame))
    {
        widget.resize(500, 420);
        auto* outer = new QGridLayout(&widget);
        outer->addWidget(frame, 0, 0);
        outer->addWidget(loose = new QLabel(QStringLiteral("loose"), &widget), 1, 0);
        title = add(new QLabel(QStringLiteral("Title"), frame));
        title->setProperty("type", QStringLiteral("title"));
        label = add(new QLabel(QStringLiteral("Label"), frame));
        spin = add(new QSpinBox(frame));
        real = add(new QDoubleSpinBox(frame));
        combo = add(new QComboBox(frame));
        combo->addItems({QStringLiteral("one"), QStringLiteral("two")});
        edit = add(new QLineEdit(frame));
        button = add(new QPushButton(QStringLiteral("Save"), frame));
    }
    template<typename Widget>
    Widget* add(Widget* field)
    {
        grid->addWidget(field);
        return field;
    }
    void show()
    {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
    }

    QWidget widget;
    QFrame* frame;
    QGridLayout* grid;
    QLabel *loose, *title, *label;
    QSpinBox* spin;
    QDoubleSpinBox* real;
    QComboBox* combo;
    QLineEdit* edit;
    QPushButton* button;
};

/// Colour in the middle of the left edge.
QColor edge(QWidget* widget, int inset = 0)
{
    return widget->grab().toImage().pixelColor(inset, widget->height() / 2);
}

QColor rightEdge(QWidget* widget)
{
    return edge(widget, widget->width() - 1);
}

QColor inside(QWidget* widget)
{
    return widget->grab().toImage().pixelColor(widget->width() - 4, widget->height() / 2);
}

QColor ground(const QWidget* widget)
{
    return widget->palette().color(QPalette::Window);
}

constexpr QRgb Line = 0xffc8c8c8;

} // namespace

class TestStyleHelpers : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void comboSheet_data();
    void comboSheet();
    void frameSheet();
    void framesWithoutAnyFrame();
    void frameIsSeen();
    void frameRulesReachThePopup();
    void baseSheetGoesThroughTheScale();
    void baseSheetTunesTheCombos();
    void baseSheetIsSeen();
    void buttonStatesAreSeen_data();
    void buttonStatesAreSeen();
    void lineEditStatesAreSeen();
    void popupOfThePageIsSeen();
};

void TestStyleHelpers::comboSheet_data()
{
    QTest::addColumn<int>("radius");
    QTest::addColumn<int>("arrow");
    QTest::addColumn<bool>("fixedHeight");
    QTest::addColumn<QString>("sheet");
    const QString fixed = QStringLiteral("min-height:28px;max-height:28px;");
    const QString least = QStringLiteral("min-height:28px;");
    QTest::newRow("fixed") << 6 << 22 << true << comboText(fixed, 28, 6, 24, 22);
    QTest::newRow("at least") << 6 << 22 << false << comboText(least, 28, 6, 24, 22);
    QTest::newRow("no radius") << 0 << 22 << false << comboText(least, 28, 10, 24, 22);
    QTest::newRow("no arrow") << 6 << 0 << false << comboText(least, 28, 6, 32, 30);
    QTest::newRow("negative") << -1 << -1 << false << comboText(least, 28, 10, 32, 30);
    QTest::newRow("ones") << 1 << 1 << true << comboText(fixed, 28, 1, 3, 1);
}

void TestStyleHelpers::comboSheet()
{
    QFETCH(int, radius);
    QFETCH(int, arrow);
    QFETCH(bool, fixedHeight);
    QFETCH(QString, sheet);
    QCOMPARE(comboStyleSheet(nullptr, 28, radius, arrow, fixedHeight), sheet);
}

void TestStyleHelpers::frameSheet()
{
    QFrame frame;
    applyConfigFrameStyle(&frame);
    const int text =
        QFontMetrics(QFont(QStringLiteral("Microsoft YaHei UI"), UiScale::pointSize(10, &frame)))
            .height();
    const int height = std::max(text + 4, 22);
    const QString expected =
        QStringLiteral(
            "QFrame{border:1px solid #c8c8c8;border-radius:8px;}QFrame "
            "QLabel[type=\"title\"]{border:none;font:600 10pt \"Microsoft YaHei UI\";}QFrame "
            "QLabel{border:none;font:400 10pt \"Microsoft YaHei UI\";}%1QFrame QSpinBox,QFrame "
            "QDoubleSpinBox{font:400 10pt \"Microsoft YaHei UI\";min-height:%2px;border:1px solid "
            "#c8c8c8;border-radius:4px;padding:2px 4px;}QFrame QSpinBox::up-button,QFrame "
            "QSpinBox::down-button,QFrame QDoubleSpinBox::up-button,QFrame "
            "QDoubleSpinBox::down-button{width:10px;border:none;}")
            .arg(comboStyleSheet(&frame, height, 6, 22, true))
            .arg(height);
    QCOMPARE(frame.styleSheet(), UiScale::styleSheet(expected, &frame));
}

void TestStyleHelpers::framesWithoutAnyFrame()
{
    applyConfigFrameStyle(nullptr);
    applyBaseStyle(nullptr);
}

void TestStyleHelpers::frameIsSeen()
{
    Page page;
    applyBaseStyle(&page.widget);
    applyConfigFrameStyle(page.frame);
    page.show();
    QCOMPARE(edge(page.frame), QColor(Line));
    QCOMPARE(edge(page.spin), QColor(Line));
    QCOMPARE(edge(page.real), QColor(Line));
    QCOMPARE(edge(page.combo), QColor(0xe4e4e4));
    QCOMPARE(rightEdge(page.label), ground(page.label));
    QCOMPARE(page.title->font().weight(), int(QFont::Bold));
    QCOMPARE(page.label->font().weight(), int(QFont::Normal));
    for (const QWidget* each :
         std::initializer_list<QWidget*>{page.title, page.label, page.spin, page.real})
        QCOMPARE(each->font().pointSize(), UiScale::pointSize(10, nullptr));
    QCOMPARE(page.combo->font().pointSize(), UiScale::pointSize(9, nullptr));
    page.combo->setEnabled(false);
    QCOMPARE(page.combo->grab().toImage().pixelColor(page.combo->width() / 2, 4), QColor(0xf5f5f5));
}

void TestStyleHelpers::frameRulesReachThePopup()
{
    Page page;
    applyBaseStyle(&page.widget);
    applyConfigFrameStyle(page.frame);
    page.show();
    page.combo->showPopup();
    const int text = QFontMetrics(UiScale::font(10, nullptr)).height();
    QCOMPARE(page.combo->view()->sizeHintForRow(0), std::max(text + 4, 22) + 4);
}

void TestStyleHelpers::baseSheetGoesThroughTheScale()
{
    Page page;
    applyBaseStyle(&page.widget);
    const QString sheet = page.widget.styleSheet();
    QCOMPARE(sheet.count(QStringLiteral("10pt")), UiScale::pointSize(10, nullptr) == 10 ? 3 : 0);
    QVERIFY(sheet.contains(QStringLiteral("400 %1pt").arg(UiScale::pointSize(9, nullptr))));
    QCOMPARE(sheet.count(QLatin1Char('{')), sheet.count(QLatin1Char('}')));
}

void TestStyleHelpers::baseSheetTunesTheCombos()
{
    Page page;
    page.combo->setMaxVisibleItems(3);
    applyBaseStyle(&page.widget);
    QCOMPARE(page.combo->maxVisibleItems(), 10);
    QCOMPARE(page.combo->view()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

void TestStyleHelpers::baseSheetIsSeen()
{
    Page page;
    applyBaseStyle(&page.widget);
    page.show();
    QCOMPARE(edge(page.frame), QColor(Line));
    for (QLabel* each : {page.loose, page.label, page.title})
        QCOMPARE(rightEdge(each), ground(each));
    QCOMPARE(page.title->font().weight(), int(QFont::Bold));
    QCOMPARE(page.label->font().weight(), int(QFont::Normal));
    QCOMPARE(page.loose->font().pointSize(), UiScale::pointSize(10, nullptr));
    QCOMPARE(edge(page.combo), QColor(0xe4e4e4));
    QCOMPARE(page.combo->height(), 36 + 4);
    QVERIFY(edge(page.spin) != edge(page.spin, 1));
    QCOMPARE(inside(page.button), QColor(0x224d75));
    QVERIFY(page.button->height() >= 36);
    QVERIFY(page.button->minimumSizeHint().width() >= 72);
}

void TestStyleHelpers::buttonStatesAreSeen_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("colour");
    QTest::newRow("normal") << QStringLiteral("normal") << QStringLiteral("#224d75");
    QTest::newRow("hover") << QStringLiteral("hover") << QStringLiteral("#8AB6F0");
    QTest::newRow("pressed") << QStringLiteral("pressed") << QStringLiteral("#D9E6F2");
    QTest::newRow("disabled") << QStringLiteral("disabled") << QStringLiteral("#cccccc");
}

void TestStyleHelpers::buttonStatesAreSeen()
{
    QFETCH(QString, state);
    QFETCH(QString, colour);
    Page page;
    applyBaseStyle(&page.widget);
    page.show();
    if (state == QLatin1String("hover"))
        QTest::mouseMove(page.button);
    page.button->setDown(state == QLatin1String("pressed"));
    page.button->setDisabled(state == QLatin1String("disabled"));
    QTRY_COMPARE(inside(page.button), QColor(colour));
}

void TestStyleHelpers::lineEditStatesAreSeen()
{
    Page page;
    applyBaseStyle(&page.widget);
    page.show();
    page.button->setFocus();
    QCOMPARE(edge(page.edit), QColor(0xd0d0d0));
    QCOMPARE(inside(page.edit), QColor(0xf5f5f5));
    page.edit->setAttribute(Qt::WA_UnderMouse);
    QCOMPARE(edge(page.edit), QColor(0x0078d4));
    QCOMPARE(inside(page.edit), QColor(0xffffff));
    page.edit->setAttribute(Qt::WA_UnderMouse, false);
    page.widget.activateWindow();
    page.edit->setFocus();
    QTRY_VERIFY(page.edit->hasFocus());
    QCOMPARE(edge(page.edit), QColor(0x0078d4));
}

void TestStyleHelpers::popupOfThePageIsSeen()
{
    Page page;
    applyBaseStyle(&page.widget);
    page.show();
    page.combo->showPopup();
    QAbstractItemView* view = page.combo->view();
    QCOMPARE(view->sizeHintForRow(0), 36 + 4);
    QCOMPARE(edge(view), QColor(0xe4e4e4));
    const QImage rows = view->viewport()->grab().toImage();
    const QRect selected = view->visualRect(page.combo->model()->index(0, 0));
    QCOMPARE(rows.pixelColor(selected.right() - 2, selected.center().y()), QColor(0x007cf9));
    // The padding: nothing of the text in the first 8 pixels.
    const QRect other = view->visualRect(page.combo->model()->index(1, 0));
    const QImage left = rows.copy(other.left(), other.top(), 8, other.height());
    QImage blank = left;
    blank.fill(rows.pixelColor(other.right() - 2, other.center().y()));
    QCOMPARE(left, blank);
}

LASERWELD_TEST_MAIN(TestStyleHelpers)
#include "tst_stylehelpers.moc"
