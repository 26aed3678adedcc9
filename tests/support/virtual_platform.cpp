#include "support/virtual_platform.h"

#include <algorithm>
#include <utility>

namespace kestrane {
namespace {

class VirtualTimer : public RepeatingTimer {
  public:
    VirtualTimer(VirtualTime& time, std::function<void()> tick)
        : time_(time), tick_(std::make_shared<std::function<void()>>(std::move(tick))) {}
    ~VirtualTimer() override { Stop(); }

    void Start(std::chrono::milliseconds interval) override {
        if (interval.count() <= 0) throw std::logic_error("a timer's interval must be above 0");
        Stop();
        interval_ = interval;
        Arm();
    }

    void Stop() override {
        if (armed_) time_.Cancel(*armed_);
        armed_.reset();
    }

  private:
    void Arm() {
        armed_ = time_.After(interval_, [this] {
            Arm();
            // The handling may delete this timer: nothing of it is used from here on.
            auto tick = tick_;
            (*tick)();
        });
    }

    VirtualTime& time_;
    std::shared_ptr<std::function<void()>> tick_;
    std::chrono::milliseconds interval_{0};
    std::optional<VirtualTime::Ticket> armed_;
};

class Nesting {
  public:
    explicit Nesting(int& depth) : depth_(depth) { ++depth_; }
    ~Nesting() { --depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

  private:
    int& depth_;
};

}  // namespace

void VirtualLoop::Pump() {
    Nesting nesting(depth_);
    max_depth_ = std::max(max_depth_, depth_);
    if (depth_ > 500) throw LimitReached("waits are nested too deep");
    if (++events_ > event_limit_) throw LimitReached("too many events: a wait does not end");
    if (!time_.RunNext()) throw NothingLeftToHappen();
    // A real loop handles what has become due meanwhile as well.
    for (int more = several_ ? several_() : 0; more > 0 && time_.RunNext(); --more) ++events_;
    // An observer may add others, or pump.
    for (std::size_t i = 0; i < observers_.size(); ++i) observers_[i]();
}

void VirtualLoop::Post(std::function<void()> action) {
    time_.After(Milliseconds{0}, std::move(action));
}

void VirtualLoop::AfterEvents(std::function<void()> observer) {
    observers_.push_back(std::move(observer));
}

void VirtualLoop::Exit(int status) {
    exit_status_ = status;
    throw ProgramEnded{status};
}

void VirtualLoop::RunFor(Milliseconds duration) {
    RunUntil([] { return false; }, duration);
}

bool VirtualLoop::RunUntil(const std::function<bool()>& condition, Milliseconds within) {
    const Milliseconds end = time_.Now() + within;
    while (!condition()) {
        const auto due = time_.NextDue();
        if (!due || *due > end) {
            if (time_.Now() < end) time_.AdvanceTo(end);
            return condition();
        }
        Pump();
    }
    return true;
}

std::unique_ptr<RepeatingTimer> VirtualTimers::NewTimer(std::function<void()> tick) {
    return std::make_unique<VirtualTimer>(time_, std::move(tick));
}

}  // namespace kestrane
