#pragma once

#include "support/ManualClock.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace tavrel::testing {

/// Lets everything happen that is due in this thread's event loop.
inline void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Waits for real work of other threads; whether the condition came to hold within a time that no sound work
/// needs. `meanwhile` is called between two looks.
template <typename Condition, typename Meanwhile>
[[nodiscard]] bool waitUntil(Condition condition, Meanwhile meanwhile) {
    constexpr qint64 limit = 20'000;  // milliseconds
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > limit) return false;
        settle();
        meanwhile();
        QThread::msleep(1);
    }
    return true;
}

template <typename Condition>
[[nodiscard]] bool waitUntil(Condition condition) {
    return waitUntil(condition, [] {});
}

/// The same where stepped time has to go on as well.
template <typename Condition>
[[nodiscard]] bool waitUntil(Condition condition, ManualClock& clock) {
    return waitUntil(condition, [&clock] { clock.advance(0.05); });
}

}  // namespace tavrel::testing
