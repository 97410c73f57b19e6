#include "StyleHelpers.h"

#include "UiScale.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStyle>
#include <QTabWidget>

#include <algorithm>

namespace {

const char ComboSheet[] =
    R"(QComboBox{background:#ffffff;color:#202020;border:2px solid #E4E4E4;border-radius:%2px;)"
    R"(padding:0px %3px 0px 6px;combobox-popup:0;font:400 9pt "Microsoft YaHei UI";%4})"
    R"(QComboBox::drop-down{subcontrol-origin:padding;subcontrol-position:top right;width:%5px;)"
    R"(border:none;})"
    R"(QComboBox::down-arrow{image:url(:/qelLaserWelding/png/arrow/down_arrow_white.png);)"
    R"(padding:5px;})"
    R"(QComboBox:disabled{background:#f5f5f5;color:#A3A4A4;border:2px solid #E4E4E4;})"
    R"(QComboBox:focus{outline:none;})"
    R"(QComboBox QAbstractItemView{background:#ffffff;border:2px solid #E4E4E4;outline:0;)"
    R"(selection-background-color:#007cf9;selection-color:#ffffff;})"
    R"(QComboBox QAbstractItemView::item{min-height:%1px;padding:2px 8px;})"
    R"(QComboBox QAbstractItemView::item:selected{background:#007cf9;color:#ffffff;})";

// The content, square as it is, would cover the round corners of the pane, or draw a frame within
// the pane's; so would an area in which it scrolls.
const char TabSheet[] =
    R"(QTabWidget::pane{border:1px solid #d0d0d0;border-radius:8px;background:#ffffff;)"
    R"(margin-top:4px;})"
    R"(QTabBar::tab{background:#d3dce6;color:#374860;border-bottom:none;)"
    R"(border-top-left-radius:6px;border-top-right-radius:6px;padding:6px 12px;margin-right:1px;)"
    R"(min-width:120px;min-height:32px;font:400 10pt "Microsoft YaHei UI";})"
    R"(QTabBar::tab:selected{background:#224d75;color:#ffffff;})"
    R"(QTabWidget>QStackedWidget,QTabWidget>QStackedWidget>QWidget,QTabWidget QScrollArea,)"
    R"(QTabWidget QScrollArea>QWidget>QWidget{background:transparent;border:none;})";

const char FrameSheet[] =
    R"(QFrame{border:1px solid #c8c8c8;border-radius:8px;})"
    R"(QFrame QLabel[type="title"]{border:none;font:600 10pt "Microsoft YaHei UI";})"
    R"(QFrame QLabel{border:none;font:400 10pt "Microsoft YaHei UI";})"
    R"(%1)"
    R"(QFrame QSpinBox,QFrame QDoubleSpinBox{font:400 10pt "Microsoft YaHei UI";min-height:%2px;)"
    R"(border:1px solid #c8c8c8;border-radius:4px;padding:2px 4px;})"
    R"(QFrame QSpinBox::up-button,QFrame QSpinBox::down-button,)"
    R"(QFrame QDoubleSpinBox::up-button,QFrame QDoubleSpinBox::down-button{width:10px;)"
    R"(border:none;})";

// In the sheet of every page and in the one of the main page.
#define LASERWELD_SCROLL_BAR_RULES                                                                 \
    R"(QScrollBar:vertical,QScrollBar:horizontal{background:#f5f5f5;border:1px solid #c8c8c8;)"    \
    R"(border-radius:6px;margin:0px;min-width:30px;min-height:8px;})"                              \
    R"(QScrollBar::handle:vertical,QScrollBar::handle:horizontal{background:#c8c8c8;)"             \
    R"(border-radius:10px;min-width:30px;min-height:8px;})"                                        \
    R"(QScrollBar::handle:hover{background:#b0b0b0;})"                                             \
    R"(QScrollBar::add-line,QScrollBar::sub-line{border:none;background:none;width:0px;)"          \
    R"(height:0px;})"

// A label is a frame: its rule comes behind, or one that stands in no frame would get the border.
// A popup's row needs a border rule, be it none, for its padding to show, and a rule of its own for
// the selection to be flat.
const char BaseSheet[] =
    R"(QFrame{border:1px solid #c8c8c8;border-radius:8px;})"
    R"(QLabel,QFrame QLabel{border:none;font:400 10pt "Microsoft YaHei UI";})"
    R"(QFrame QLabel[type="title"]{border:none;font:600 10pt "Microsoft YaHei UI";})"
    R"(QComboBox{font:400 9pt "Microsoft YaHei UI";padding:0px 32px 0px 6px;)"
    R"(border:2px solid #E4E4E4;border-radius:10px;combobox-popup:0;background:#ffffff;)"
    R"(color:#202020;min-height:36px;})"
    R"(QComboBox::drop-down{subcontrol-origin:padding;subcontrol-position:top right;width:30px;)"
    R"(border:none;})"
    R"(QComboBox::down-arrow{image:url(:/qelLaserWelding/png/arrow/down_arrow_white.png);)"
    R"(padding:5px;})"
    R"(QComboBox QAbstractItemView{border:2px solid #E4E4E4;outline:0;)"
    R"(selection-background-color:#007cf9;selection-color:#ffffff;})"
    R"(QComboBox QAbstractItemView::item{min-height:36px;padding:2px 8px;border:none;})"
    R"(QComboBox QAbstractItemView::item:selected{background:#007cf9;color:#ffffff;})"
    R"(QFrame QSpinBox,QFrame QDoubleSpinBox{font:400 10pt "Microsoft YaHei UI";)"
    R"(border:1px solid;border-radius:4px;padding:2px 4px;})"
    R"(QFrame QSpinBox::up-button,QFrame QSpinBox::down-button,)"
    R"(QFrame QDoubleSpinBox::up-button,QFrame QDoubleSpinBox::down-button{width:10px;)"
    R"(border:none;})"
    R"(QFrame QStackedWidget{border:none;})"
    R"(QPushButton{background:#224d75;color:#ffffff;min-width:72px;min-height:36px;border:none;)"
    R"(border-radius:6px;padding:0px 6px;font-size:16px;icon-size:16px;})"
    R"(QPushButton:focus{outline:none;})"
    R"(QPushButton:hover{background:#8AB6F0;})"
    R"(QPushButton:pressed{background:#D9E6F2;})"
    R"(QPushButton:disabled{background:#cccccc;color:#A3A4A4;})" LASERWELD_SCROLL_BAR_RULES
    R"(QLineEdit{background:#f5f5f5;border:1px solid #d0d0d0;border-radius:6px;padding:4px 6px;)"
    R"(color:#202020;})"
    R"(QLineEdit:hover,QLineEdit:focus{border-color:#0078d4;background:#ffffff;})";

/// The widgets that the tab sheet takes ground and border from.
bool isTabContent(const QWidget* widget)
{
    const QObject* parent = widget->parent();
    return qobject_cast<const QStackedWidget*>(widget) ||
           qobject_cast<const QScrollArea*>(widget) ||
           qobject_cast<const QStackedWidget*>(parent) ||
           (parent && qobject_cast<const QScrollArea*>(parent->parent()));
}

} // namespace

QString tabStyleSheet()
{
    return QLatin1String(TabSheet);
}

void applyTabStyle(QTabWidget* tabs)
{
    const QString before = tabs->styleSheet();
    UiScale::setStyleSheet(tabs, tabStyleSheet());
    if (tabs->styleSheet() == before || tabs->testAttribute(Qt::WA_WState_Polished))
        return;
    // Qt shows the first tab to itself while the form is made, and so polishes what is in it with
    // the rules of that moment.
    const auto widgets = tabs->findChildren<QWidget*>();
    for (QWidget* each : widgets) {
        if (isTabContent(each) && each->testAttribute(Qt::WA_WState_Polished))
            each->style()->polish(each);
    }
}

QString scrollBarStyleSheet()
{
    return QLatin1String(LASERWELD_SCROLL_BAR_RULES);
}

QString comboStyleSheet(QWidget*, int height, int radius, int arrowWidth, bool fixedHeight)
{
    if (arrowWidth < 1)
        arrowWidth = 30;
    if (radius < 1)
        radius = 10;
    const QLatin1String clause(fixedHeight ? "min-height:%1px;max-height:%1px;"
                                           : "min-height:%1px;");
    return QString(QLatin1String(ComboSheet))
        .arg(height)
        .arg(radius)
        .arg(arrowWidth + 2)
        .arg(QString(clause).arg(height))
        .arg(arrowWidth);
}

void applyConfigFrameStyle(QWidget* frame)
{
    if (!frame)
        return;
    const int textHeight = QFontMetrics(UiScale::font(10, frame)).height();
    const int height = std::max(textHeight + UiScale::pixels(4, frame), 22);
    const QString combo = comboStyleSheet(frame, height, UiScale::pixels(6, frame),
                                          std::max(18, UiScale::pixels(22, frame)), true);
    UiScale::setStyleSheet(frame, QString(QLatin1String(FrameSheet)).arg(combo).arg(height));
    const auto boxes = frame->findChildren<QComboBox*>();
    for (QComboBox* each : boxes)
        UiScale::styleComboRows(each);
}

void applyBaseSheet(QWidget* widget)
{
    UiScale::setStyleSheet(widget, QLatin1String(BaseSheet));
}

void applyBaseStyle(QWidget* widget)
{
    if (!widget)
        return;
    applyBaseSheet(widget);
    const auto boxes = widget->findChildren<QComboBox*>();
    for (QComboBox* each : boxes)
        UiScale::tuneComboPopup(each, 10);
}
