#pragma once

// The one event loop of the program. Every wait is `while (condition) loop.Pump();`, and anything
// may happen inside it: ticks, clicks, a disconnect, the end of the program.

#include <functional>

namespace kestrane {

class EventLoop {
  public:
    virtual ~EventLoop() = default;

    // Handles at least one event, or waits for one.
    virtual void Pump() = 0;

    // Runs `action` as an event of its own, soon, in the order of the calls.
    virtual void Post(std::function<void()> action) = 0;

    // Runs `observer` after each Pump has handled its events, also in nested waits.
    virtual void AfterEvents(std::function<void()> observer) = 0;

    // Ends the program at once with this exit status, from within any depth of waits. Sockets
    // are closed by the caller before. Does not return.
    [[noreturn]] virtual void Exit(int status) = 0;
};

}  // namespace kestrane
