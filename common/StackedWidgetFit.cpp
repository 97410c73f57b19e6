#include "StackedWidgetFit.h"
StackedWidgetFit::StackedWidgetFit(QWidget* parent)
    : QStackedWidget(parent)
{}
QSize StackedWidgetFit::sizeHint() const
{
    return {0, 0};
}
QSize StackedWidgetFit::minimumSizeHint() const
{
    return {0, 0};
}
void StackedWidgetFit::recomputeSize() {}
void StackedWidgetFit::resizeEvent(QResizeEvent* event)
{
    QStackedWidget::resizeEvent(event);
}
