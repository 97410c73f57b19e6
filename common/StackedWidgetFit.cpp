#include "StackedWidgetFit.h"

#include <QEvent>
#include <QLayout>
#include <QPointer>
#include <QResizeEvent>
#include <QScrollArea>
#include <QVector>

#include <algorithm>

namespace {

/// The pages whose minimum is being taken, innermost last. Their sizes are not the real ones, and
/// what they ask for meanwhile must not start another measurement.
QVector<const QWidget*>& measuredPages()
{
    static QVector<const QWidget*> pages;
    return pages;
}

bool isMeasured(const QWidget* page)
{
    return measuredPages().contains(page);
}

bool isFitted(const QWidget* page)
{
    if (!page)
        return false;
    const QSizePolicy::Policy policy = page->sizePolicy().verticalPolicy();
    return policy == QSizePolicy::Fixed || policy == QSizePolicy::Minimum;
}

/// A stack on the fitted page of another one. That page gets its height from what stands on it, so
/// a hint that fell with the height would go up and down for ever.
bool isOnFittedPage(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (isFitted(widget) && qobject_cast<StackedWidgetFit*>(widget->parentWidget()))
            return true;
    }
    return false;
}

int minimumHeight(const QWidget* page)
{
    return page && page->layout() ? page->layout()->totalMinimumSize().height() : 0;
}

/// Takes the minimum at no height, since what stands on the page may ask for less the more it has.
int measuredMinimum(QWidget* page, int width)
{
    if (!page->layout() || isMeasured(page))
        return minimumHeight(page);
    const QPointer<QWidget> alive(page);
    const QSize before = page->size();
    measuredPages().append(page);
    page->resize(width, 0);
    if (alive && page->layout())
        page->layout()->activate();
    const int height = minimumHeight(alive);
    if (alive && before.isValid())
        page->resize(before);
    measuredPages().removeLast();
    return height;
}

int contentHeight(QWidget* page, int width)
{
    width = std::max(width, 1);
    if (!page)
        return 0;
    page->ensurePolished();
    const int ownHeight = page->hasHeightForWidth() ? page->heightForWidth(width) : 0;
    if (ownHeight > 0)
        return ownHeight;
    const QLayout* layout = page->layout();
    // A layout without a height for a width says -1, to which Qt would add the page's margins.
    const bool answers = layout && layout->heightForWidth(width) >= 0;
    const int layoutHeight = answers ? layout->totalHeightForWidth(width) : 0;
    return layoutHeight > 0 ? layoutHeight : measuredMinimum(page, width);
}

void placeFitted(QWidget* page, QSize room)
{
    const QPointer<QWidget> alive(page);
    const int width = std::max(room.width(), 1);
    const int content = contentHeight(page, width);
    if (alive && content >= 1)
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
    return {0, content > height() || isOnFittedPage(this) ? content : 0};
}

void StackedWidgetFit::recomputeSize()
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumHeight(0);
    setMaximumHeight(QWIDGETSIZE_MAX);
    if (!isFitted(currentWidget())) {
        placePage();
        updateGeometry();
        return;
    }
    updateGeometry();
    placePage();
    for (QWidget* above = parentWidget(); above; above = above->parentWidget()) {
        above->updateGeometry();
        if (qobject_cast<QScrollArea*>(above))
            break;
    }
}

void StackedWidgetFit::resizeEvent(QResizeEvent* event)
{
    QStackedWidget::resizeEvent(event);
    const bool fitted = placePage();
    const bool sameHint = isOnFittedPage(this) && event->oldSize().width() == width();
    if (fitted && !sameHint)
        updateGeometry();
}

bool StackedWidgetFit::event(QEvent* event)
{
    const bool handled = QStackedWidget::event(event);
    if (event->type() == QEvent::LayoutRequest)
        placePage();
    return handled;
}

/// Fits the current page or lets it fill. True for a fitted page.
bool StackedWidgetFit::placePage()
{
    QWidget* page = currentWidget();
    if (!page)
        return false;
    if (!isFitted(page)) {
        page->setGeometry(rect());
        return false;
    }
    placeFitted(page, size());
    return true;
}
