#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

/// Counts the events of one type for all widgets.
class EventCount : public QObject
{
public:
    explicit EventCount(QEvent::Type counted)
        : type(counted)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == type && object->isWidgetType())
            ++count;
        return false;
    }
    int count = 0;

private:
    QEvent::Type type;
};
