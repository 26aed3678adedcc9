#pragma once

// Virtual time: one schedule of actions, ordered by due time and, at the same time, by the order
// in which they were added. The clock moves only when an action runs or when it is told to.

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace kestrane {

class VirtualTime {
  public:
    using Milliseconds = std::chrono::milliseconds;
    using Action = std::function<void()>;
    // Due time and running number; names one action for Cancel.
    using Ticket = std::pair<Milliseconds, std::uint64_t>;

    Milliseconds Now() const { return now_; }

    // Throws std::logic_error for a time that has passed.
    Ticket At(Milliseconds time, Action action);
    Ticket After(Milliseconds delay, Action action) { return At(now_ + delay, std::move(action)); }

    // Does nothing for an action that has run or was cancelled.
    void Cancel(const Ticket& ticket) { schedule_.erase(ticket); }

    // When the next action is due; nothing if there is none.
    std::optional<Milliseconds> NextDue() const;

    // Moves the clock to the next action and runs it. False if there is none.
    bool RunNext();

    // Moves the clock alone. Throws std::logic_error for a time that has passed or that an action
    // would be skipped by.
    void AdvanceTo(Milliseconds time);

  private:
    Milliseconds now_{0};
    std::uint64_t next_number_ = 0;
    std::map<Ticket, Action> schedule_;
};

}  // namespace kestrane
