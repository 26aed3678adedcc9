#pragma once

// An event loop for one tool among many in one process. The tool's work runs on a stack of its own
// (a fiber); where it pumps with nothing to handle, the thread goes on with the others. So the
// logic waits as it always does, and nobody waits for anybody else. The thread itself runs Qt's
// loop, whose slots never run on a fiber: they post into the fiber's loop. All of it is one thread.

#include <QObject>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>

#include "platform/event_loop.h"

namespace kestrane {

class FiberLoop : public EventLoop {
  public:
    // Of address space; memory is taken as the stack is used.
    static constexpr std::size_t kStackBytes = std::size_t{1} << 20;

    FiberLoop();
    // A task that has not ended is unwound from the wait in which it stands.
    ~FiberLoop() override;
    FiberLoop(const FiberLoop&) = delete;
    FiberLoop& operator=(const FiberLoop&) = delete;

    // Begins `task` with an event of Qt's loop, once in the life of this object. Its result, or the
    // status given to Exit, goes to `on_end`, which runs outside of the fiber and may destroy this
    // object.
    void Start(std::function<int()> task, std::function<void(int status)> on_end);

    // Handles one event of this fiber; others run before it. Only to be called on the fiber.
    void Pump() override;
    void Post(std::function<void()> action) override;
    void AfterEvents(std::function<void()> observer) override;
    // Ends this fiber's task alone: unwinds its stack, so that what stands there is destroyed.
    [[noreturn]] void Exit(int status) override;

  private:
    class Stack;

    void Schedule();
    void Resume();

    std::function<void(int)> on_end_;
    std::unique_ptr<Stack> stack_;
    std::deque<std::function<void()>> events_;
    std::deque<std::function<void()>> observers_;
    bool scheduled_ = false;
    QObject context_;  // a resumption that is scheduled dies with it
};

}  // namespace kestrane
