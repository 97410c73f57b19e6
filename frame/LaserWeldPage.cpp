#include "LaserWeldPage.h"

#include "CharacteristicsCurvePage.h"
#include "LaserTrackingPage.h"
#include "Log.h"
#include "StyleHelpers.h"
#include "UiScale.h"
#include "WeldParameterPage.h"
#include "WeldSettingPage.h"
#include "WeldioPage.h"
#include "ui_LaserWeldPage.h"

#include <QFileInfo>
#include <QIcon>
#include <QToolButton>

namespace {

constexpr char WhiteSheet[] = "QWidget{background-color:white;}";
constexpr char TitleSheet[] = "QLabel#lblTitle{font:bold 16px;min-height:30px;}";
constexpr char ButtonSheet[] =
    "QToolButton {height: 30px;padding: 0px 6px;background-color: rgb(235, 235, 235);border: "
    "none;border-radius: 3px;font: 17px;color: black;}QToolButton:hover {background: rgb(99, 99, "
    "99);background-color: rgb(135, 161, 174);}QToolButton:pressed {background: "
    "#636363;}QToolButton:checked {background: #8a0121;color: white;}";

QString picture(const char* name)
{
    return QLatin1String(":/png/meanlist/") + QLatin1String(name) + QLatin1String(".png");
}

} // namespace

LaserWeldPage::LaserWeldPage(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::LaserWeldPage)
{
    LOGI(LogTag::Plugin) << "LaserWeldPage::LaserWeldPage" << 17;
    // A widget that is made under a parent with a sheet takes the style over at its birth; one that
    // gets it later is styled anew with all that is below it. So the sheets come first, from the
    // top down, and renderPages() finds them in place.
    UiScale::setStyleSheet(this, scrollBarStyleSheet());
    ui->setupUi(this);
    arrangeForm();
    styleForm();
    createPages();
    addPages();
    trackingPageIndex = ui->stackedWidget->indexOf(trackingPage);
    connect(ui->stackedWidget, &QStackedWidget::currentChanged, this, [this](int index) {
        if (index != trackingPageIndex || !trackingPage)
            return;
        trackingPage->embedTrackingWidget();
        ui->stackedWidget->recomputeSize();
    });
    ui->stackedWidget->recomputeSize();
}

LaserWeldPage::~LaserWeldPage() = default;

void LaserWeldPage::arrangeForm()
{
    for (QWidget* each : std::initializer_list<QWidget*>{ui->stackedWidget, ui->scrollArea,
                                                         ui->scrollArea->widget(), ui->wgtContent})
        UiScale::expand(each);
    ui->gridLayout->setRowStretch(0, 1);
    ui->verticalLayout->setStretch(0, 1);
    connect(ui->stackedWidget, &QStackedWidget::currentChanged, this,
            [this] { ui->stackedWidget->recomputeSize(); });
    ui->verticalLayout_2->setStretch(0, 0);
    ui->verticalLayout_2->setStretch(1, 1);
    ui->verticalLayout_4->setAlignment(Qt::AlignTop);
    ui->verticalLayout_4->setSpacing(0);
    ui->verticalLayout_4->setContentsMargins(0, 0, 0, 0);
}

void LaserWeldPage::createPages()
{
    QWidget* parent = ui->stackedWidget;
    weldSettingPage = new WeldSettingPage(parent);
    weldioPage = new WeldioPage(weldSettingPage, parent);
    curvePage = new CharacteristicsCurvePage(weldSettingPage, parent);
    weldParameterPage = new WeldParameterPage(weldSettingPage, parent);
    trackingPage = new LaserTrackingPage(parent);
}

void LaserWeldPage::addPages()
{
    addPage(tr("Weld Setup"), tr("Parmeter Setting"), weldSettingPage,
            picture("LaserWeldDeviceSetting"));
    addPage(tr("Weld I/O"), tr("Soldering I/O"), weldioPage, picture("LaserWeldIO"));
    addPage(tr("Char. Curve"), tr("Characteristic curves"), curvePage,
            picture("LaserWeldCharacteristicCurve"));
    addPage(tr("Weld Data"), tr("Welding Parameters"), weldParameterPage,
            picture("LaserWeldProcessSetting"));
    addPage(tr("Laser Tracking"), tr("Laser Tracking"), trackingPage,
            picture("LaserWeldWeaveFunction"));
}

void LaserWeldPage::styleForm()
{
    UiScale::setStyleSheet(ui->wgtContent, QLatin1String(WhiteSheet));
    UiScale::setStyleSheet(ui->wgtTitle, QLatin1String(WhiteSheet));
    UiScale::setStyleSheet(ui->lblTitle, QLatin1String(TitleSheet));
}

void LaserWeldPage::addPage(const QString& buttonText, const QString& title, QWidget* page,
                            const QString& iconPath)
{
    if (!page)
        return;
    const int index = ui->stackedWidget->addWidget(page);
    QToolButton* button = addButton(buttonText, iconPath, index);
    connect(button, &QToolButton::clicked, this,
            [this, button, title, index] { openPage(button, title, index); });
    // Never so with the form's own pages in the stack: the first show selects.
    if (ui->stackedWidget->count() == 1)
        button->click();
}

QToolButton* LaserWeldPage::addButton(const QString& text, const QString& iconPath, int index)
{
    auto* button = new QToolButton(ui->wgtNav);
    button->setObjectName(QString(QLatin1String("toolButton_page_%1")).arg(index));
    button->setText(text);
    button->setCheckable(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setMinimumHeight(42);
    button->setProperty("pageIndex", index);
    if (!iconPath.isEmpty() && QFileInfo::exists(iconPath))
        button->setIcon(QIcon(iconPath));
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    UiScale::setStyleSheet(button, QLatin1String(ButtonSheet));
    ui->verticalLayout_4->addWidget(button);
    return button;
}

// A click of the current button has unchecked it, so all are set anew.
void LaserWeldPage::openPage(QToolButton* button, const QString& title, int index)
{
    if (sender() == button)
        currentButton = button;
    ui->stackedWidget->setCurrentIndex(index);
    ui->lblTitle->setText(title);
    const auto buttons = navigationButtons();
    for (QToolButton* each : buttons)
        each->setChecked(each == button);
}

QList<QToolButton*> LaserWeldPage::navigationButtons() const
{
    return ui->wgtNav->findChildren<QToolButton*>();
}

void LaserWeldPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!currentButton)
        currentButton = navigationButtons().value(0);
    if (currentButton)
        currentButton->click();
    ui->stackedWidget->recomputeSize();
}

void LaserWeldPage::renderPages()
{
    UiScale::setStyleSheet(this, scrollBarStyleSheet());
    weldSettingPage->applyPageStyle();
    weldioPage->applyPageStyle();
    curvePage->applyPageStyle();
    weldParameterPage->applyPageStyle();
    trackingPage->embedTrackingWidget();
    ui->stackedWidget->recomputeSize();
}

void LaserWeldPage::setPageStatus(bool enable)
{
    weldioPage->setEnabled(!enable);
    curvePage->setEnabled(!enable);
    weldParameterPage->setEnabled(!enable);
    weldSettingPage->setConfigEditable(!enable);
}
