#include "SetUpPointWidget.h"

#include "ui_SetUpPointWidget.h"

SetUpPointWidget::SetUpPointWidget(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::SetUpPointWidget)
{
    ui->setupUi(this);
}

SetUpPointWidget::~SetUpPointWidget() = default;
void SetUpPointWidget::setIndex(int index)
{
    m_index = index;
}
void SetUpPointWidget::setLabelText(const QString&) {}
QString SetUpPointWidget::pointText() const
{
    return {};
}
void SetUpPointWidget::setPointText(const QString&) {}
void SetUpPointWidget::addPointIfMissing(const QString&, const QString&) {}
void SetUpPointWidget::refreshPointList() {}
