#include "Hand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QTabBar>
#include <QThread>
#include <QToolButton>

#include <algorithm>

namespace pendant {

namespace {

constexpr int PollMilliseconds = 10;
constexpr int ScrollAttempts = 3;

void sendMouse(QWidget* widget, QEvent::Type type, const QPoint& place)
{
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, place, widget->window()->mapFromGlobal(widget->mapToGlobal(place)),
                      widget->mapToGlobal(place), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void sendClick(QWidget* widget, const QPoint& place)
{
    sendMouse(widget, QEvent::MouseButtonPress, place);
    sendMouse(widget, QEvent::MouseButtonRelease, place);
}

void sendKey(QWidget* widget, int key, const QString& text,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(widget, &event);
    }
}

// The list of a box is a window of its own. It takes a release for the end of the press that opened
// it until the mouse has moved by more than a little.
void clickInPopup(QAbstractItemView* list, const QModelIndex& index)
{
    sendMouse(list->viewport(), QEvent::MouseMove, list->viewport()->rect().topRight());
    // The second time among the arrows that the first time has brought up.
    for (int time = 0; time < 2; ++time) {
        list->scrollTo(index);
        QApplication::processEvents();
    }
    const QPoint place = list->visualRect(index).center();
    sendMouse(list->viewport(), QEvent::MouseMove, place);
    sendClick(list->viewport(), place);
}

// In what is in view of it. A check box may be wider than what it shows, and takes a click on that
// alone.
QPoint placeOn(const QWidget* widget)
{
    QRect touched = widget->rect();
    if (qobject_cast<const QCheckBox*>(widget))
        touched.setWidth(qMin(touched.width(), widget->sizeHint().width()));
    const QRect inView = touched & widget->visibleRegion().boundingRect();
    return (inView.isEmpty() ? touched : inView).center();
}

// Where the bar is too narrow for its tabs.
QToolButton* scrollArrow(const QTabBar* tabs, bool toTheLeft)
{
    return tabs->findChild<QToolButton*>(toTheLeft ? QStringLiteral("ScrollLeftButton")
                                                   : QStringLiteral("ScrollRightButton"));
}

// A page may be longer than its view, and the view hardly higher than the widget.
void scrollAreasTo(QWidget* widget)
{
    for (QWidget* each = widget->parentWidget(); each; each = each->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(each))
            area->ensureWidgetVisible(widget, 0, 0);
        if (auto* view = qobject_cast<QAbstractItemView*>(each))
            view->scrollTo(view->indexAt(widget->mapTo(view->viewport(), QPoint())));
    }
}

// An area within another is laid out after it, and again where its scroll bars come or go.
void scrollTo(QWidget* widget)
{
    for (int time = 0; time < ScrollAttempts; ++time) {
        QApplication::processEvents();
        scrollAreasTo(widget);
    }
}

} // namespace

Hand::Hand(QWidget& pendantWindow)
    : window(pendantWindow)
{}

bool Hand::refuse(const QString& reason)
{
    trouble = reason;
    return false;
}

QWidget* Hand::find(const QString& name)
{
    QWidget* found = &window;
    const QStringList path = name.split(QLatin1Char('/'));
    for (const QString& each : path)
        found = found ? findWithin(found, each) : nullptr;
    return found;
}

QWidget* Hand::findWithin(QWidget* parent, const QString& name)
{
    const auto all = parent->findChildren<QWidget*>(name);
    if (all.isEmpty()) {
        refuse(QStringLiteral("there is no \"%1\"").arg(name));
        return nullptr;
    }
    const auto shown = std::find_if(all.begin(), all.end(), std::mem_fn(&QWidget::isVisible));
    return shown == all.end() ? all.first() : *shown;
}

QWidget* Hand::findTool(const QString& text)
{
    const auto tools = window.findChildren<QToolButton*>();
    for (QToolButton* each : tools) {
        if (each->text() == text)
            return each;
    }
    refuse(QStringLiteral("there is no button \"%1\"").arg(text));
    return nullptr;
}

// In view, and with nothing over the place.
bool Hand::reach(QWidget* widget, const QPoint& place)
{
    trouble.clear();
    const QString name =
        widget->objectName().isEmpty() ? widget->accessibleName() : widget->objectName();
    if (!widget->isVisible())
        return refuse(QStringLiteral("\"%1\" is hidden").arg(name));
    const QWidget* top = window.childAt(widget->mapTo(&window, place));
    if (top != widget && !widget->isAncestorOf(top))
        return refuse(QStringLiteral("\"%1\" is covered or out of view").arg(name));
    return true;
}

bool Hand::press(QWidget* widget)
{
    if (!widget)
        return false;
    scrollTo(widget);
    QApplication::processEvents();
    const QPoint place = placeOn(widget);
    if (!reach(widget, place))
        return false;
    sendMouse(widget, QEvent::MouseButtonPress, place);
    return true;
}

bool Hand::release(QWidget* widget)
{
    if (!widget)
        return false;
    sendMouse(widget, QEvent::MouseButtonRelease, placeOn(widget));
    return true;
}

bool Hand::click(QWidget* widget)
{
    return press(widget) && release(widget);
}

bool Hand::click(QAbstractItemView* view, const QModelIndex& index)
{
    if (!view)
        return false;
    if (!index.isValid())
        return refuse(QStringLiteral("\"%1\" has no such row").arg(view->objectName()));
    view->scrollTo(index);
    QApplication::processEvents();
    const QPoint place = view->visualRect(index).intersected(view->viewport()->rect()).center();
    if (!reach(view->viewport(), place))
        return false;
    sendClick(view->viewport(), place);
    return true;
}

// A tab that lies under the arrows of its bar, or beyond, is brought out with them.
bool Hand::bringOut(QTabBar* tabs, int index)
{
    for (int presses = 0; presses < tabs->count(); ++presses) {
        const QRect tab = tabs->tabRect(index);
        if (reach(tabs, tab.center()))
            return true;
        QToolButton* arrow = scrollArrow(tabs, tab.left() < 0);
        if (!arrow || !arrow->isVisible() || !arrow->isEnabled() || !click(arrow))
            break;
        QApplication::processEvents();
    }
    return reach(tabs, tabs->tabRect(index).center());
}

bool Hand::click(QTabBar* tabs, const QString& text)
{
    if (!tabs)
        return false;
    for (int index = 0; index < tabs->count(); ++index) {
        if (tabs->tabText(index) != text)
            continue;
        if (!bringOut(tabs, index))
            return false;
        sendClick(tabs, tabs->tabRect(index).center());
        return tabs->currentIndex() == index ||
               refuse(QStringLiteral("the tab \"%1\" does not open").arg(text));
    }
    return refuse(QStringLiteral("there is no tab \"%1\"").arg(text));
}

bool Hand::choose(QComboBox* box, const QString& entry)
{
    if (!box)
        return false;
    const int row = box->findText(entry);
    if (row < 0)
        return refuse(QStringLiteral("\"%1\" does not offer %2").arg(box->objectName(), entry));
    if (!click(box))
        return false;
    QAbstractItemView* list = box->view();
    if (!list->isVisible())
        return refuse(QStringLiteral("\"%1\" does not open").arg(box->objectName()));
    clickInPopup(list, box->model()->index(row, box->modelColumn(), box->rootModelIndex()));
    return (waitFor([&] { return !list->isVisible(); }) && box->currentIndex() == row) ||
           refuse(QStringLiteral("\"%1\" does not take %2").arg(box->objectName(), entry));
}

bool Hand::enter(QWidget* field, const QString& text)
{
    if (!click(field))
        return false;
    sendKey(field, Qt::Key_A, QString(), Qt::ControlModifier);
    for (const QChar sign : text)
        sendKey(field, sign == QLatin1Char('\n') ? int(Qt::Key_Return) : sign.toUpper().unicode(),
                QString(sign));
    return true;
}

bool Hand::waitFor(const std::function<bool()>& condition, int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > milliseconds)
            return false;
        QApplication::processEvents();
        QThread::msleep(PollMilliseconds);
    }
    return true;
}

} // namespace pendant
