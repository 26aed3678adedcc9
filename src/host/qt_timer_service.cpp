#include "host/qt_timer_service.h"

#include <QTimer>
#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

namespace kestrane {
namespace {

class QtTimer : public RepeatingTimer {
  public:
    explicit QtTimer(std::function<void()> tick)
        : tick_(std::make_shared<std::function<void()>>(std::move(tick))) {
        // A coarse timer drifts by 5 %, too much for a poll.
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Fire(); });
    }

    void Start(std::chrono::milliseconds interval) override {
        constexpr std::chrono::milliseconds kShortest{1};
        constexpr std::chrono::milliseconds kLongest{std::numeric_limits<int>::max()};
        interval_ = std::clamp(interval, kShortest, kLongest);
        due_ = Clock::now() + interval_;
        timer_.start(interval_);
    }

    void Stop() override { timer_.stop(); }

  private:
    using Clock = std::chrono::steady_clock;

    // The next tick is due an interval after this one was due, not after it came: a late tick does
    // not make all later ones late. Ticks that were missed as a whole are left out.
    void Fire() {
        const Clock::time_point now = Clock::now();
        due_ += interval_;
        if (due_ <= now) due_ = now + interval_;
        timer_.start(std::chrono::ceil<std::chrono::milliseconds>(due_ - now));
        // The tick may delete this timer: nothing of it is used from here on.
        const auto tick = tick_;
        (*tick)();
    }

    QTimer timer_;
    std::chrono::milliseconds interval_{0};
    Clock::time_point due_;
    std::shared_ptr<std::function<void()>> tick_;
};

}  // namespace

std::unique_ptr<RepeatingTimer> QtTimerService::NewTimer(std::function<void()> tick) {
    return std::make_unique<QtTimer>(std::move(tick));
}

}  // namespace kestrane
