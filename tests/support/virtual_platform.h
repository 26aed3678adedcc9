#pragma once

// The whole platform on virtual time. Pump runs the next due event and moves the clock to it; a
// wait with nothing left to happen throws at once, so that a test fails instead of hanging.

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>

#include "platform/platform.h"
#include "support/fake_http.h"
#include "support/fake_socket.h"
#include "support/recording_services.h"
#include "support/virtual_time.h"

namespace kestrane {

// A wait that can't end: no event is scheduled any more.
struct NothingLeftToHappen : std::runtime_error {
    NothingLeftToHappen() : runtime_error("a wait with nothing left to happen") {}
};

// A wait that does not end although events come, or waits nested without bound.
struct LimitReached : std::runtime_error {
    using runtime_error::runtime_error;
};

// What Exit throws in the place of ending the process.
struct ProgramEnded {
    int status;
};

class VirtualLoop : public EventLoop {
  public:
    using Milliseconds = std::chrono::milliseconds;

    explicit VirtualLoop(VirtualTime& time) : time_(time) {}

    void Pump() override;
    void Post(std::function<void()> action) override;
    void AfterEvents(std::function<void()> observer) override;
    [[noreturn]] void Exit(int status) override;

    // Runs all events of this stretch of time; the clock stands at its end after it, or later if a
    // wait inside went beyond.
    void RunFor(Milliseconds duration);
    // Pumps until the condition holds; false if it does not within this time.
    bool RunUntil(const std::function<bool()>& condition, Milliseconds within);

    // Pumps running inside pumps: now, and the most there were.
    int pump_depth() const { return depth_; }
    int max_pump_depth() const { return max_depth_; }
    std::optional<int> exit_status() const { return exit_status_; }

    // Beyond it LimitReached is thrown, and beyond 500 pumps inside each other. It counts from the
    // present event on.
    void set_event_limit(std::uint64_t events) { event_limit_ = events_ + events; }
    // How many events a pump handles beyond its first; asked anew at each.
    void set_several(std::function<int()> several) { several_ = std::move(several); }

  private:
    VirtualTime& time_;
    std::deque<std::function<void()>> observers_;
    std::function<int()> several_;
    int depth_ = 0;
    int max_depth_ = 0;
    std::uint64_t events_ = 0;
    std::uint64_t event_limit_ = 2'000'000;
    std::optional<int> exit_status_;
};

class VirtualTimers : public TimerService {
  public:
    explicit VirtualTimers(VirtualTime& time) : time_(time) {}

    std::unique_ptr<RepeatingTimer> NewTimer(std::function<void()> tick) override;

  private:
    VirtualTime& time_;
};

// Owns all of it. Peers and the tool under test must end before it.
class VirtualPlatform {
  public:
    using Milliseconds = std::chrono::milliseconds;

    VirtualPlatform() = default;
    VirtualPlatform(const VirtualPlatform&) = delete;
    VirtualPlatform& operator=(const VirtualPlatform&) = delete;

    Platform platform() {
        return {loop, timers, tcpsend, http, boxes, files, clock, random, sound, disk};
    }

    void Pump() { loop.Pump(); }
    void RunFor(Milliseconds duration) { loop.RunFor(duration); }
    Milliseconds Now() const { return time.Now(); }
    int max_pump_depth() const { return loop.max_pump_depth(); }

    VirtualTime time;
    VirtualLoop loop{time};
    VirtualTimers timers{time};
    FakeSocket tcpsend{time};
    FakeHttp http{time};
    RecordingBoxes boxes;
    ScriptedFiles files;
    VirtualClock clock{time};
    SeededRandom random;
    CountingSound sound;
    MemoryDisk disk;
};

}  // namespace kestrane
