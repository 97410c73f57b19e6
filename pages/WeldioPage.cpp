#include "WeldioPage.h"

#include "WeldSettingPage.h"
#include "ui_WeldioPage.h"

WeldioPage::WeldioPage(WeldSettingPage* setting, QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::WeldioPage)
    , settingPage(setting)
{
    ui->setupUi(this);
}

WeldioPage::~WeldioPage() = default;

void WeldioPage::applyPageStyle() {}
