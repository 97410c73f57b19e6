#include "UiScale.h"

#include <QWidget>

namespace UiScale {
QString styleSheet(const QString& css, QWidget*)
{
    return css;
}
void setStyleSheet(QWidget* widget, const QString& css, QWidget* scaleOf)
{
    const QString sheet = styleSheet(css, scaleOf ? scaleOf : widget);
    if (widget->styleSheet() != sheet)
        widget->setStyleSheet(sheet);
}
} // namespace UiScale
