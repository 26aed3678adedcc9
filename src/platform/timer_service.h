#pragma once

// Repeating timers in milliseconds. A tick may come again while its own handling pumps events:
// the next one is armed before the handling runs.

#include <chrono>
#include <functional>
#include <memory>

namespace kestrane {

class RepeatingTimer {
  public:
    virtual ~RepeatingTimer() = default;

    // Ticks every `interval` (above 0) from now on. A running timer starts afresh.
    virtual void Start(std::chrono::milliseconds interval) = 0;
    virtual void Stop() = 0;
};

class TimerService {
  public:
    virtual ~TimerService() = default;

    virtual std::unique_ptr<RepeatingTimer> NewTimer(std::function<void()> tick) = 0;
};

}  // namespace kestrane
