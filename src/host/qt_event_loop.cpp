#include "host/qt_event_loop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <utility>

namespace kestrane {

QtEventLoop::QtEventLoop() { QCoreApplication::instance()->installEventFilter(&events_); }

bool QtEventLoop::Counter::eventFilter(QObject*, QEvent*) {
    ++count;
    return false;
}

void QtEventLoop::Pump() {
    // Qt handles posted events in batches. When one of a batch pumps, a waiting processEvents
    // would sleep with the rest of the batch pending, so these are handled first, and only if
    // there were none may it sleep.
    const std::uint64_t before = events_.count;
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents(events_.count == before
                                        ? QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents
                                        : QEventLoop::AllEvents);
    // An observer may add others, or pump.
    for (std::size_t i = 0; i < observers_.size(); ++i) observers_[i]();
}

void QtEventLoop::Post(std::function<void()> action) {
    QMetaObject::invokeMethod(&context_, std::move(action), Qt::QueuedConnection);
}

void QtEventLoop::AfterEvents(std::function<void()> observer) {
    observers_.push_back(std::move(observer));
}

void QtEventLoop::Exit(int status) {
    // Not quit(), which waits below this one would go on after, and not exit(), which would take
    // apart objects that are in use further down the stack.
    std::cout.flush();
    std::fflush(nullptr);
    std::quick_exit(status);
}

}  // namespace kestrane
