#include "WeldSettingPage.h"

#include "ui_WeldSettingPage.h"

WeldSettingPage::WeldSettingPage(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::WeldSettingPage)
{
    ui->setupUi(this);
}

WeldSettingPage::~WeldSettingPage() = default;

bool WeldSettingPage::isMainEnabled() const
{
    return false;
}

void WeldSettingPage::applyPageStyle() {}
