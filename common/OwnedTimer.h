#pragma once

#include <QTimer>

/// QTimer::singleShot() whose timer goes with its owner.
///
/// Qt's own shot outlives the object that it would call, and with it a piece of code of the library
/// that started it; it must not expire after that library was unloaded. `milliseconds` is 0 or
/// more.
template<typename Owner, typename Slot>
void ownedSingleShot(int milliseconds, Owner* owner, Slot slot)
{
    auto* timer = new QTimer(owner);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, owner, slot);
    QObject::connect(timer, &QTimer::timeout, timer, &QObject::deleteLater);
    timer->start(milliseconds);
}
