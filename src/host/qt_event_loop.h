#pragma once

// The event loop of the program on Qt's. Each wait pumps it, the main wait of a program included,
// so that the observers run at every depth. A loop of Qt's own (exec) runs no observers.

#include <QObject>
#include <deque>
#include <functional>

#include "platform/event_loop.h"

namespace kestrane {

class QtEventLoop : public EventLoop {
  public:
    void Pump() override;
    void Post(std::function<void()> action) override;
    void AfterEvents(std::function<void()> observer) override;
    [[noreturn]] void Exit(int status) override;

  private:
    QObject context_;  // what is posted dies with it
    std::deque<std::function<void()>> observers_;
};

}  // namespace kestrane
