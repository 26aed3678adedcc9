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
        timer_.start(std::clamp(interval, kShortest, kLongest));
    }

    void Stop() override { timer_.stop(); }

  private:
    void Fire() {
        timer_.start();
        // The tick may delete this timer: nothing of it is used from here on.
        const auto tick = tick_;
        (*tick)();
    }

    QTimer timer_;
    std::shared_ptr<std::function<void()>> tick_;
};

}  // namespace

std::unique_ptr<RepeatingTimer> QtTimerService::NewTimer(std::function<void()> tick) {
    return std::make_unique<QtTimer>(std::move(tick));
}

}  // namespace kestrane
