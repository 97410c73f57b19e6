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

inline QVector<Shot> pending(const QObject* owner = nullptr)
{
    auto* dispatcher = QAbstractEventDispatcher::instance();
    QObjectList all = dispatcher->children();
    if (owner)
        all += owner->children();
    QVector<Shot> shots;
    for (QObject* each : qAsConst(all)) {
        const auto* timer = qobject_cast<const QTimer*>(each);
        if (!each->inherits("QSingleShotTimer") && !(timer && timer->isSingleShot()))
            continue;
        const auto timers = dispatcher->registeredTimers(each);
        for (const auto& running : timers)
            shots.append({each, running});
    }
    return shots;
}

/// Lets those expire that are pending now. Returns how many.
inline int expire(const QObject* owner = nullptr)
{
    const QVector<Shot> shots = pending(owner);
    for (const Shot& shot : shots) {
        QTimerEvent event(shot.timer.timerId);
        QCoreApplication::sendEvent(shot.object, &event);
    }
    return shots.size();
}

/// Lets shots expire until none starts another. Returns how many there were.
inline int expireAll(const QObject* owner = nullptr)
{
    int total = 0;
    for (int count = expire(owner); count > 0; count = expire(owner))
        total += count;
    return total;
}

} // namespace SingleShots
