#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QSet>
#include <QWidget>

#include <algorithm>

/// The widgets that are polished, for the first time or again, while it lives.
class PolishWatch : public QObject
{
public:
    PolishWatch() { QCoreApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        const bool isPolish =
            event->type() == QEvent::Polish || event->type() == QEvent::StyleChange;
        if (isPolish && object->isWidgetType())
            polished << static_cast<QWidget*>(object);
        return false;
    }
    QSet<QWidget*> polished;
};

/// How many widgets below this one are on show.
inline int shownWidgets(const QWidget* root)
{
    const auto widgets = root->findChildren<QWidget*>();
    return static_cast<int>(std::count_if(widgets.begin(), widgets.end(),
                                          [](const QWidget* each) { return each->isVisible(); }));
}
