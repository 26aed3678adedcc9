#include "host/fiber_services.h"

#include <QNetworkProxy>
#include <utility>

namespace kestrane {
namespace {

class FiberTimer : public RepeatingTimer {
  public:
    FiberTimer(FiberLoop& loop, TimerService& timers, std::function<void()> tick)
        : state_(std::make_shared<State>(std::move(tick))),
          timer_(timers.NewTimer([&loop, state = state_] { PostTick(loop, state); })) {}
    ~FiberTimer() override { Stop(); }

    void Start(std::chrono::milliseconds interval) override {
        Stop();
        timer_->Start(interval);
    }
    void Stop() override {
        timer_->Stop();
        state_->waiting = 0;
    }

  private:
    struct State {
        explicit State(std::function<void()> what) : tick(std::move(what)) {}
        std::function<void()> tick;
        std::uint64_t ticks = 0;
        std::uint64_t waiting = 0;  // the tick that is posted and not handled, 0 for none
    };

    static void PostTick(FiberLoop& loop, const std::shared_ptr<State>& state) {
        if (state->waiting != 0) return;
        state->waiting = ++state->ticks;
        // The tick may delete its timer: the event holds what it needs.
        loop.Post([state, number = state->waiting] {
            if (state->waiting != number) return;
            state->waiting = 0;
            state->tick();
        });
    }

    std::shared_ptr<State> state_;
    std::unique_ptr<RepeatingTimer> timer_;
};

}  // namespace

std::unique_ptr<RepeatingTimer> FiberTimerService::NewTimer(std::function<void()> tick) {
    return std::make_unique<FiberTimer>(loop_, timers_, std::move(tick));
}

void FiberHttpReader::Start(const std::string& url, bool bypass_cache, Events events) {
    events_ = std::make_shared<Events>(std::move(events));
    const std::weak_ptr<Events> weak = events_;
    reader_.Start(url, bypass_cache,
                  {[this, weak](std::size_t bytes) {
                       loop_.Post([weak, bytes] {
                           if (const auto self = weak.lock()) self->progress(bytes);
                       });
                   },
                   [this, weak](const std::string& content) {
                       loop_.Post([weak, content] {
                           if (const auto self = weak.lock()) self->complete(content);
                       });
                   },
                   [this, weak](int error, const std::string& description) {
                       loop_.Post([weak, error, description] {
                           if (const auto self = weak.lock()) self->failed(error, description);
                       });
                   }});
}

void FiberHttpReader::Cancel() {
    events_.reset();
    reader_.Cancel();
}

// A unit and its server are always reached directly.
FiberServices::FiberServices() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }

}  // namespace kestrane
