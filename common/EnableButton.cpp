#include "EnableButton.h"
EnableButton::EnableButton(QWidget* parent)
    : QWidget(parent)
    , animation(nullptr)
{}
EnableButton::~EnableButton() = default;
void EnableButton::setChecked(bool on, bool)
{
    checked = on;
}
QSize EnableButton::sizeHint() const
{
    return {50, 24};
}
QSize EnableButton::minimumSizeHint() const
{
    return {50, 24};
}
void EnableButton::moveSlider(QVariant, bool) {}
void EnableButton::mousePressEvent(QMouseEvent*) {}
void EnableButton::paintEvent(QPaintEvent*) {}
