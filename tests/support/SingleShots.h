#pragma once

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QTimer>
#include <QTimerEvent>
#include <QVector>
#include <QWidget>

/// The single shots that are pending on this thread, and a way to let them expire without waiting
/// for the clock. Those of QTimer::singleShot() are objects of the event dispatcher, those of
/// ownedSingleShot() are below the widget that started them.
namespace SingleShots {

struct Shot
{
    QObject* object;
    QAbstractEventDispatcher::TimerInfo timer;
};

inline QObjectList candidates()
{
    QObjectList found;
    const QObjectList all = QAbstractEventDispatcher::instance()->children();
    for (QObject* each : all) {
        if (each->inherits("QSingleShotTimer"))
            found << each;
    }
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        const auto timers = window->findChildren<QTimer*>();
        for (QTimer* each : timers) {
            if (each->isSingleShot())
                found << each;
        }
    }
    return found;
}

inline QVector<Shot> pending()
{
    QVector<Shot> shots;
    const QObjectList all = candidates();
    for (QObject* each : all) {
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(each);
        for (const auto& timer : timers)
            shots.append({each, timer});
    }
    return shots;
}

/// Lets those expire that are pending now. Returns how many.
inline int expire()
{
    const QVector<Shot> shots = pending();
    for (const Shot& shot : shots) {
        QTimerEvent event(shot.timer.timerId);
        QCoreApplication::sendEvent(shot.object, &event);
    }
    return shots.size();
}

/// Lets shots expire until none starts another. Returns how many there were.
inline int expireAll()
{
    int total = 0;
    for (int count = expire(); count > 0; count = expire())
        total += count;
    return total;
}

/// Takes away those that are pending, as if they had never been started.
inline void forget()
{
    const QVector<Shot> shots = pending();
    for (const Shot& shot : shots)
        delete shot.object;
}

} // namespace SingleShots
