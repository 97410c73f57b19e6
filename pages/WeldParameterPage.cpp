#include "WeldParameterPage.h"

#include "WeldSettingPage.h"
#include "ui_WeldParameterPage.h"

WeldParameterPage::WeldParameterPage(WeldSettingPage* setting, QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::WeldParameterPage)
    , settingPage(setting)
{
    ui->setupUi(this);
}

WeldParameterPage::~WeldParameterPage() = default;

void WeldParameterPage::applyPageStyle() {}
