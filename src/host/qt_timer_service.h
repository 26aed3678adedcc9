#pragma once

// Repeating timers on QTimer. A QTimer doesn't fire inside its own slot; armed afresh as the first
// thing in the slot, it does.

#include <functional>
#include <memory>

#include "platform/timer_service.h"

namespace kestrane {

class QtTimerService : public TimerService {
  public:
    // The tick may start, stop or delete its own timer.
    std::unique_ptr<RepeatingTimer> NewTimer(std::function<void()> tick) override;
};

}  // namespace kestrane
