#include "LaserTrackingPage.h"

#include "Log.h"
#include "OwnedTimer.h"
#include "StackedWidgetFit.h"
#include "UiScale.h"
#include "ui_LaserTrackingPage.h"

#include <qelplugin.h>

namespace {

constexpr char Sibling[] = "qelLaserSeamTracking";

constexpr int MostRetries = 25;
constexpr int RetryPause = 200; // milliseconds

void removeFromLayout(QWidget* widget)
{
    QWidget* parent = widget->parentWidget();
    if (parent && parent->layout())
        parent->layout()->removeWidget(widget);
}

StackedWidgetFit* stackAround(const QWidget* page)
{
    for (QWidget* each = page->parentWidget(); each; each = each->parentWidget()) {
        if (auto* stack = qobject_cast<StackedWidgetFit*>(each))
            return stack;
    }
    return nullptr;
}

} // namespace

LaserTrackingPage::LaserTrackingPage(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::LaserTrackingPage)
{
    ui->setupUi(this);
    UiScale::expand(this);
}

LaserTrackingPage::~LaserTrackingPage() = default;

void LaserTrackingPage::embedTrackingWidget()
{
    QWidget* widget = trackingWidget;
    int code = 0;
    if (!widget)
        code = qelplugin::GetPluginNoUniqueWidget(QLatin1String(Sibling), widget);
    if (!widget) {
        askAgain(code);
        return;
    }
    if (!trackingWidget)
        embedRetries = 0;
    trackingWidget = widget;
    takeWidget();
    LOGI(LogTag::Plugin) << Sibling << " embedded into LaserTrackingPage";
}

// Each call that finds nothing starts a chain of its own; all of them count together.
void LaserTrackingPage::askAgain(int code)
{
    if (embedRetries >= MostRetries) {
        LOGE(LogTag::Plugin) << Sibling << " embed failed;";
        return;
    }
    ++embedRetries;
    LOGW(LogTag::Plugin) << Sibling << " embed pending, ret=" << code << " retry=" << embedRetries;
    ownedSingleShot(RetryPause, this, &LaserTrackingPage::embedTrackingWidget);
}

void LaserTrackingPage::takeWidget()
{
    if (trackingWidget->parentWidget() != this) {
        removeFromLayout(trackingWidget);
        trackingWidget->setParent(this);
        ui->verticalLayout->addWidget(trackingWidget);
    }
    trackingWidget->setWindowFlags(Qt::WindowFlags());
    UiScale::expand(trackingWidget);
    trackingWidget->show();
    if (StackedWidgetFit* stack = stackAround(this))
        stack->recomputeSize();
}

void LaserTrackingPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    embedTrackingWidget();
}
