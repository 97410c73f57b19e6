// The look of WeldParameterPage.

#include "EnableButton.h"
#include "StyleHelpers.h"
#include "UiScale.h"
#include "WeldParameterPage.h"
#include "ui_WeldParameterPage.h"

#include <algorithm>

namespace {

using Form = Ui_WeldParameterPage;

constexpr QSize SwitchSize(50, 24);
constexpr int SpareRow = 10; // of the frames' grids, below all others

constexpr QGroupBox* Form::*Groups[] = {&Form::groupBox, &Form::groupBox_2, &Form::groupBox_3};
/// A window too small for a tab scrolls it.
constexpr QScrollArea* Form::*Scrolls[] = {&Form::scrollArea_start, &Form::scrollArea_weld,
                                           &Form::scrollArea_end};
constexpr QTableWidget* Form::*Tables[] = {&Form::tableWidget, &Form::tableWidget_2,
                                           &Form::tableWidget_matching};

const char TableSheet[] =
    R"(QTableWidget{background:#ffffff;gridline-color:#d0d0d0;border:none;color:#202020;)"
    R"(selection-background-color:#0078D4;selection-color:#ffffff;)"
    R"(font:400 10pt "Microsoft YaHei UI";})"
    R"(QTableWidget::item:selected{background:#0078D4;color:#ffffff;})"
    R"(QTableWidget QHeaderView{border:none;})" // a frame like any other
    R"(QTableWidget QHeaderView::section{background:#224d75;color:#ffffff;border:none;)"
    R"(border-right:1px solid #d0d0d0;padding:4px;font:400 10pt "Microsoft YaHei UI";})";

// A label takes its font from the page's sheet unless a nearer one gives it another.
const char HeaderSheet[] =
    R"(QFrame#frame_config_header{background:#f0f4f8;border:1px solid #c5d0dc;border-radius:8px;})"
    R"(QLabel{border:none;background:transparent;font:400 11pt "Microsoft YaHei UI";})"
    R"(QLabel[type="title"]{font:504 11pt "Microsoft YaHei UI";})"
    R"(QLabel#label_ID{font:600 13pt "Microsoft YaHei UI";})"
    R"(QLineEdit{background:#ffffff;border:1px solid #c8c8c8;border-radius:6px;padding:0px 6px;)"
    R"(color:#202020;font:400 11pt "Microsoft YaHei UI";})"
    R"(QLineEdit:hover,QLineEdit:focus{border-color:#0078d4;})";

// The number of the matching record that is open.
const char RecordSheet[] =
    R"(QLabel{border:none;background:transparent;font:400 15pt "Microsoft YaHei UI";})";

const char SpinSheet[] =
    R"(QSpinBox,QDoubleSpinBox{border:1px solid #c8c8c8;border-radius:4px;background:#ffffff;)"
    R"(color:#202020;padding:0px 2px 0px 4px;min-height:%1px;max-height:%1px;)"
    R"(font:400 10pt "Microsoft YaHei UI";})"
    R"(QSpinBox:disabled,QDoubleSpinBox:disabled{background:#f5f5f5;color:#A3A4A4;})";

// A border takes Qt's own arrows away. These are wedges of a gradient that turns around the tip.
const char StepSheet[] =
    R"(QSpinBox::up-button,QSpinBox::down-button{subcontrol-origin:border;width:24px;border:none;)"
    R"(border-left:1px solid #c8c8c8;background:#eef2f6;})"
    R"(QSpinBox::up-button{subcontrol-position:top right;border-top-right-radius:4px;})"
    R"(QSpinBox::down-button{subcontrol-position:bottom right;border-bottom-right-radius:4px;})"
    R"(QSpinBox::up-button:pressed,QSpinBox::down-button:pressed{background:#D9E6F2;})"
    R"(QSpinBox::up-arrow,QSpinBox::down-arrow{width:9px;height:5px;})"
    R"(QSpinBox::up-arrow{background:qconicalgradient(cx:0.5,cy:0,angle:243.4,stop:0 #374860,)"
    R"(stop:0.147 #374860,stop:0.149 transparent,stop:1 transparent);})"
    R"(QSpinBox::down-arrow{background:qconicalgradient(cx:0.5,cy:1,angle:63.4,stop:0 #374860,)"
    R"(stop:0.147 #374860,stop:0.149 transparent,stop:1 transparent);})";

QFont weighted(QFont font, int weight)
{
    font.setWeight(weight);
    return font;
}

void setMargins(QLayout* layout, int left, int top, int right, int bottom)
{
    layout->setContentsMargins(left, top, right, bottom);
}

void setGridSpacing(QGridLayout* grid, int horizontal, int vertical)
{
    grid->setHorizontalSpacing(horizontal);
    grid->setVerticalSpacing(vertical);
}

void tighten(QLayout* layout, int margin, int spacing)
{
    setMargins(layout, margin, margin, margin, margin);
    if (auto* grid = qobject_cast<QGridLayout*>(layout))
        setGridSpacing(grid, spacing, spacing);
    else
        layout->setSpacing(spacing);
}

/// Fixes the height of a field as its sheet does: without the border until the sheet is in force,
/// and with it from then on. Qt does so itself only when the sheet changes.
void fixHeight(QWidget* field, const QString& sheet, int height, int border)
{
    const bool isInForce =
        field->testAttribute(Qt::WA_WState_Polished) && field->styleSheet() == sheet;
    field->setMinimumHeight(isInForce ? height + 2 * border : height);
    field->setMaximumHeight(isInForce ? height + 2 * border : height);
    UiScale::setScaledSheet(field, sheet);
}

void styleCombo(QComboBox* box, QWidget* page, int height, int radius, int arrowWidth)
{
    box->setMaxVisibleItems(10);
    box->setSizePolicy(box->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    const QString sheet = comboStyleSheet(page, height, radius, arrowWidth, true);
    fixHeight(box, UiScale::styleSheet(sheet, page), height, 2);
    UiScale::tuneComboPopup(box, 10);
    UiScale::fixComboPopupHeight(box, 10);
}

void stretchAll(QHBoxLayout* row)
{
    for (int index = 0; index < row->count(); ++index)
        row->setStretch(index, 1);
}

} // namespace

// The frames and the group boxes have theirs from the form: it holds no font, and what is in them
// need not be styled a second time.
void WeldParameterPage::applyPageStyle()
{
    applyBaseStyle(this);
    styleTabs();
    for (QTableWidget* Form::*table : Tables)
        UiScale::setStyleSheet((*ui).*table, QLatin1String(TableSheet), this);
    UiScale::setStyleSheet(ui->frame_config_header, QLatin1String(HeaderSheet), this);
    for (QLabel* each : {ui->label_58, ui->label_ProcessID})
        UiScale::setStyleSheet(each, QLatin1String(RecordSheet), this);
    styledFor = {};
    refreshConfigStyle();
    setClickFocus();
    UiScale::applyFonts(this, 10);
}

void WeldParameterPage::styleTabs()
{
    applyTabStyle(ui->tabWidget);
    ui->tabWidget_config->setDocumentMode(false);
    applyTabStyle(ui->tabWidget_config);
}

void WeldParameterPage::setClickFocus()
{
    const auto widgets = findChildren<QWidget*>();
    for (QWidget* each : widgets) {
        if (qobject_cast<QLineEdit*>(each) || qobject_cast<QSpinBox*>(each) ||
            qobject_cast<QDoubleSpinBox*>(each) || qobject_cast<QComboBox*>(each))
            each->setFocusPolicy(Qt::ClickFocus);
    }
}

// What the pass sets depends on the screen and the zoom alone, and Qt lays the view out anew for
// most of it: it is not done again while both stay.
void WeldParameterPage::refreshConfigStyle()
{
    const QPair<double, double> now(UiScale::screenScale(this), UiScale::fontZoom());
    if (styledFor == now)
        return;
    styledFor = now;
    UiScale::relaxPageLimits(ui->page_config, this);
    arrangeConfigLayouts();
    styleConfigFields();
    UiScale::applyFonts(this, 10);
    styleConfigNumbers();
    styleConfigHeader();
}

void WeldParameterPage::arrangeConfigLayouts()
{
    setMargins(ui->gridLayout_9, 0, 0, 0, 0);
    setGridSpacing(ui->gridLayout_9, 6, 8);
    ui->gridLayout_9->setColumnStretch(0, 1);
    setMargins(ui->horizontalLayout_8, 12, 8, 12, 8);
    ui->horizontalLayout_8->setSpacing(12);
    for (QVBoxLayout* each :
         {ui->verticalLayout_start, ui->verticalLayout_weld, ui->verticalLayout_end}) {
        each->setSpacing(6);
        setMargins(each, 2, 0, 2, 0);
    }
    for (QGroupBox* Form::*group : Groups)
        UiScale::expand((*ui).*group);
    for (QScrollArea* Form::*each : Scrolls) {
        QScrollArea* scroll = (*ui).*each;
        UiScale::expand(scroll);
        scroll->viewport()->setAutoFillBackground(false); // it has the pane's round corners
        scroll->widget()->setAutoFillBackground(false);   // or Qt paints all of it twice
    }
    for (QLayout* each : {ui->groupBox->layout(), ui->groupBox_2->layout(),
                          static_cast<QLayout*>(ui->gridLayout_8)})
        tighten(each, 6, 4);
    arrangeEndTab();
    const auto grids = ui->tabWidget_config->findChildren<QGridLayout*>();
    for (QGridLayout* grid : grids) {
        if (grid->columnCount() < 3)
            continue;
        for (int column = 0; column < 3; ++column)
            grid->setColumnStretch(column, column == 2 ? 1 : 0);
        grid->setRowStretch(SpareRow, 1); // the rows keep together
    }
}

// The frames keep to the top of their tab, side by side with equal spacing.
void WeldParameterPage::arrangeEndTab()
{
    for (QVBoxLayout* column : {ui->verticalLayout_end_left, ui->verticalLayout_end_right}) {
        column->setSpacing(4);
        for (int index = 0; index < column->count(); ++index)
            column->itemAt(index)->setAlignment(Qt::AlignTop);
        column->setAlignment(Qt::AlignTop);
    }
    ui->gridLayout_8->setAlignment(Qt::AlignTop);
    for (QHBoxLayout* row : {ui->horizontalLayout_wire_stick, ui->horizontalLayout_wire_retraction,
                             ui->horizontalLayout_wire_fill_com})
        stretchAll(row);
}

int WeldParameterPage::compactHeight()
{
    return std::max(QFontMetrics(UiScale::font(10, this)).height() + 2, 20);
}

void WeldParameterPage::styleConfigFields()
{
    const int headerHeight = UiScale::controlHeight(this);
    const bool isLow = headerHeight < 32;
    const auto boxes = ui->page_config->findChildren<QComboBox*>();
    for (QComboBox* box : boxes) {
        if (ui->frame_config_header->isAncestorOf(box)) {
            box->setFont(UiScale::font(11, this));
            styleCombo(box, this, headerHeight, isLow ? 6 : 10, isLow ? 22 : 30);
        } else {
            styleCombo(box, this, compactHeight(), 6, 22);
        }
    }
}

void WeldParameterPage::styleConfigNumbers()
{
    const QString sheet =
        UiScale::styleSheet(QString(QLatin1String(SpinSheet)).arg(compactHeight()), this);
    const QString stepSheet = sheet + UiScale::styleSheet(QLatin1String(StepSheet), this);
    const auto numbers = ui->tabWidget_config->findChildren<QAbstractSpinBox*>();
    const int sixDigits =
        QFontMetrics(UiScale::font(10, this)).horizontalAdvance(QLatin1Char('0')) * 6;
    for (QAbstractSpinBox* each : numbers) {
        each->setMinimumWidth(sixDigits + 8); // with padding and border
        const bool hasSteps = each->buttonSymbols() != QAbstractSpinBox::NoButtons;
        fixHeight(each, hasSteps ? stepSheet : sheet, compactHeight(), 1);
    }
    const auto switches = ui->page_config->findChildren<EnableButton*>();
    for (EnableButton* each : switches)
        each->setFixedSize(SwitchSize);
    QFrame* stick = ui->frame_wire_stick_row;
    stick->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    stick->setFixedHeight(12 + SwitchSize.height());
    QMargins margins = ui->horizontalLayout_wire_stick->contentsMargins();
    margins.setTop(5); // beside the border
    margins.setBottom(5);
    ui->horizontalLayout_wire_stick->setContentsMargins(margins);
}

void WeldParameterPage::styleConfigHeader()
{
    const int height = UiScale::controlHeight(this);
    QFrame* header = ui->frame_config_header;
    UiScale::setStyleSheet(header, QLatin1String(HeaderSheet), this);
    header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    header->setFixedHeight(height + 16);
    ui->gridLayout_9->setRowMinimumHeight(0, height + 16);
    ui->gridLayout_9->setAlignment(header, Qt::AlignTop);
    ui->gridLayout_9->setRowStretch(0, 0);
    ui->gridLayout_9->setRowStretch(1, 1);
    for (QHBoxLayout* group :
         {ui->horizontalLayout_sched, ui->horizontalLayout_mode, ui->horizontalLayout_comment})
        group->setSpacing(8);
    const QFont font = UiScale::font(11, this);
    const auto labels = header->findChildren<QLabel*>();
    for (QLabel* each : labels) {
        const bool isTitle = each->property("type").toString() == QLatin1String("title");
        each->setFont(isTitle ? weighted(font, 63) : font);
        each->setFixedHeight(height);
    }
    ui->label_ID->setFont(weighted(UiScale::font(13, this), 75));
    ui->lineEdit->setFont(font);
    ui->lineEdit->setMinimumWidth(140);
    ui->lineEdit->setFixedHeight(height);
    ui->horizontalLayout_8->setStretchFactor(ui->horizontalLayout_comment, 1);
    ui->horizontalLayout_comment->setStretchFactor(ui->lineEdit, 1);
}
