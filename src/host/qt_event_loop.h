#pragma once

// The event loop of the program on Qt's. Each wait pumps it, the main wait of a program included,
// so that the observers run at every depth. A loop of Qt's own (exec) runs no observers. A
// QCoreApplication must exist first.

#include <QObject>
#include <cstdint>
#include <deque>
#include <functional>

#include "platform/event_loop.h"

namespace kestrane {

class QtEventLoop : public EventLoop {
  public:
    QtEventLoop();

    void Pump() override;
    void Post(std::function<void()> action) override;
    void AfterEvents(std::function<void()> observer) override;
    [[noreturn]] void Exit(int status) override;

  private:
    // Sees each event of the program before it is handled, and lets all pass.
    class Counter : public QObject {
      public:
        bool eventFilter(QObject* watched, QEvent* event) override;
        std::uint64_t count = 0;
    };

    Counter events_;
    QObject context_;  // what is posted dies with it
    std::deque<std::function<void()>> observers_;
};

}  // namespace kestrane
