#include "LaserWeldPage.h"

#include "ui_LaserWeldPage.h"

LaserWeldPage::LaserWeldPage(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::LaserWeldPage)
{
    ui->setupUi(this);
}

LaserWeldPage::~LaserWeldPage() = default;

void LaserWeldPage::renderPages() {}
