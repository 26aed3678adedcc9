#include "cli/fleet.h"

#include <utility>

#include "cli/call.h"

namespace kestrane {
namespace {

// 1 over 2 over 3 over 0.
int Badness(int status) {
    switch (status) {
        case kExitDone:
            return 0;
        case kExitDifferences:
            return 1;
        case kExitUsage:
            return 2;
        default:
            return 3;
    }
}

}  // namespace

Fleet::Fleet(std::size_t count, const FleetPlan& plan, std::function<void(std::size_t)> begin)
    : count_(count), plan_(plan), begin_(std::move(begin)) {}

void Fleet::Ended(int status) {
    --running_;
    ++ended_;
    if (status != kExitDone && status != kExitDifferences) ++failures_;
    if (Badness(status) > Badness(worst_)) worst_ = status;
    BeginMore();
}

void Fleet::CutOff() {
    --running_;
    ++cut_off_;
}

bool Fleet::MayBegin() const {
    if (stopped_ || begun_ == count_) return false;
    if (plan_.most_failures && failures_ > *plan_.most_failures) return false;
    if (begun_ < plan_.first) return true;
    return plan_.first == 0 || failures_ == 0 || begun_ > plan_.first;
}

void Fleet::BeginMore() {
    while (running_ < plan_.parallel && MayBegin()) {
        const bool trial_runs = begun_ == plan_.first && ended_ < plan_.first;
        if (trial_runs) return;
        ++running_;
        begin_(begun_++);
    }
}

int Fleet::ExitStatus() const { return NotBegun() > 0 ? int{kExitUnit} : worst_; }

}  // namespace kestrane
