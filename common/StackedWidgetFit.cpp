#include "StackedWidgetFit.h"

#include <QLayout>
#include <QScrollArea>

#include <algorithm>

namespace {

bool isFitted(const QWidget* page)
{
    if (!page)
        return false;
    const QSizePolicy::Policy policy = page->sizePolicy().verticalPolicy();
    return policy == QSizePolicy::Fixed || policy == QSizePolicy::Minimum;
}

int contentHeight(QWidget* page, int width)
{
    width = std::max(width, 1);
    if (!page)
        return 0;
    page->ensurePolished();
    if (page->hasHeightForWidth()) {
        const int height = page->heightForWidth(width);
        if (height > 0)
            return height;
    }
    QLayout* layout = page->layout();
    if (!layout)
        return 0;
    const int height = layout->totalHeightForWidth(width);
    if (height > 0)
        return height;
    const QSize before = page->size();
    page->resize(width, 0);
    layout->activate();
    const int minimum = layout->totalMinimumSize().height();
    page->resize(before);
    return minimum;
}

void placeFitted(QWidget* page, QSize room)
{
    const int width = std::max(room.width(), 1);
    const int content = contentHeight(page, width);
    if (content >= 1)
        page->setGeometry(0, 0, width, std::min(std::max(room.height(), 1), content));
}

} // namespace

StackedWidgetFit::StackedWidgetFit(QWidget* parent)
    : QStackedWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(this, &QStackedWidget::currentChanged, this, &StackedWidgetFit::recomputeSize);
}

QSize StackedWidgetFit::sizeHint() const
{
    return {0, 0};
}

QSize StackedWidgetFit::minimumSizeHint() const
{
    QWidget* page = currentWidget();
    const int content = isFitted(page) ? contentHeight(page, width()) : 0;
    return {0, content > height() ? content : 0};
}

void StackedWidgetFit::recomputeSize()
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumHeight(0);
    setMaximumHeight(QWIDGETSIZE_MAX);
    QWidget* page = currentWidget();
    if (!isFitted(page)) {
        if (page)
            page->setGeometry(rect());
        updateGeometry();
        return;
    }
    updateGeometry();
    placeFitted(page, size());
    for (QWidget* above = parentWidget(); above; above = above->parentWidget()) {
        above->updateGeometry();
        if (qobject_cast<QScrollArea*>(above))
            break;
    }
}

void StackedWidgetFit::resizeEvent(QResizeEvent* event)
{
    QStackedWidget::resizeEvent(event);
    QWidget* page = currentWidget();
    if (isFitted(page)) {
        placeFitted(page, size());
        updateGeometry();
    } else if (page) {
        page->setGeometry(rect());
    }
}
