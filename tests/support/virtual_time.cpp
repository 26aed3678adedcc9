#include "support/virtual_time.h"

#include <stdexcept>

namespace kestrane {

VirtualTime::Ticket VirtualTime::At(Milliseconds time, Action action) {
    if (time < now_) throw std::logic_error("an action was scheduled in the past");
    Ticket ticket{time, next_number_++};
    schedule_.emplace(ticket, std::move(action));
    return ticket;
}

std::optional<VirtualTime::Milliseconds> VirtualTime::NextDue() const {
    if (schedule_.empty()) return std::nullopt;
    return schedule_.begin()->first.first;
}

bool VirtualTime::RunNext() {
    if (schedule_.empty()) return false;
    auto next = schedule_.extract(schedule_.begin());
    now_ = next.key().first;
    next.mapped()();
    return true;
}

void VirtualTime::AdvanceTo(Milliseconds time) {
    if (time < now_) throw std::logic_error("virtual time went back");
    if (auto due = NextDue(); due && *due < time) throw std::logic_error("an action was skipped");
    now_ = time;
}

}  // namespace kestrane
