#include "Hand.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QThread>
#include <QToolButton>

#include <algorithm>

namespace pendant {

namespace {

constexpr int PollMilliseconds = 10;

void sendMouse(QWidget* widget, QEvent::Type type, Qt::MouseButtons held)
{
    const QPoint local = widget->rect().center();
    QMouseEvent event(type, local, widget->window()->mapFromGlobal(widget->mapToGlobal(local)),
                      widget->mapToGlobal(local), Qt::LeftButton, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void sendKey(QWidget* widget, int key, const QString& text,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(widget, &event);
    }
}

// A page may be longer than its view.
void scrollTo(QWidget* widget)
{
    for (QWidget* each = widget->parentWidget(); each; each = each->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(each))
            area->ensureWidgetVisible(widget);
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
    const auto all = window.findChildren<QWidget*>(name);
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

// In view, and with nothing over its centre.
bool Hand::reach(QWidget* widget)
{
    if (!widget)
        return false;
    trouble.clear();
    scrollTo(widget);
    QApplication::processEvents();
    const QString name =
        widget->objectName().isEmpty() ? widget->accessibleName() : widget->objectName();
    if (!widget->isVisible())
        return refuse(QStringLiteral("\"%1\" is hidden").arg(name));
    const QWidget* top = window.childAt(widget->mapTo(&window, widget->rect().center()));
    if (top != widget && !widget->isAncestorOf(top))
        return refuse(QStringLiteral("\"%1\" is covered or out of view").arg(name));
    return true;
}

bool Hand::press(QWidget* widget)
{
    if (!reach(widget))
        return false;
    sendMouse(widget, QEvent::MouseButtonPress, Qt::LeftButton);
    return true;
}

bool Hand::release(QWidget* widget)
{
    if (!widget)
        return false;
    sendMouse(widget, QEvent::MouseButtonRelease, Qt::NoButton);
    return true;
}

bool Hand::click(QWidget* widget)
{
    return press(widget) && release(widget);
}

bool Hand::enter(QWidget* field, int number)
{
    if (!click(field))
        return false;
    sendKey(field, Qt::Key_A, QString(), Qt::ControlModifier);
    const QString digits = QString::number(number);
    for (const QChar digit : digits)
        sendKey(field, digit.unicode(), QString(digit));
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
