#include "CharacteristicsCurvePage.h"

#include "WeldSettingPage.h"
#include "ui_CharacteristicsCurvePage.h"

CharacteristicsCurvePage::CharacteristicsCurvePage(WeldSettingPage* setting, QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::CharacteristicsCurvePage)
    , settingPage(setting)
{
    ui->setupUi(this);
}

CharacteristicsCurvePage::~CharacteristicsCurvePage() = default;

void CharacteristicsCurvePage::applyPageStyle() {}
