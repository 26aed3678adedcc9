#pragma once

// Waiting for Qt's events with a guard that only a fault reaches.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <functional>

namespace kestrane {

// Handles events until it is so; false after half a minute.
inline bool WaitUntil(const std::function<bool()>& so) {
    QElapsedTimer clock;
    clock.start();
    while (!so()) {
        if (clock.elapsed() > 30'000) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    return true;
}

}  // namespace kestrane
