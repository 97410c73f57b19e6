#include "LaserTrackingPage.h"

#include "ui_LaserTrackingPage.h"

LaserTrackingPage::LaserTrackingPage(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::LaserTrackingPage)
{
    ui->setupUi(this);
}

LaserTrackingPage::~LaserTrackingPage() = default;

void LaserTrackingPage::embedTrackingWidget() {}
