#pragma once

// The services of one tool among many in one process: as HostServices, but what happens to them
// comes as events of the tool's own fiber. A QCoreApplication must exist first.

#include "host/curl_http_reader.h"
#include "host/disk.h"
#include "host/fiber_loop.h"
#include "host/qt_services.h"
#include "host/qt_tcp_client.h"
#include "host/qt_timer_service.h"
#include "platform/lane.h"

namespace kestrane {

// Ticks that come while one is waiting to be handled are left out.
class FiberTimerService : public TimerService {
  public:
    explicit FiberTimerService(FiberLoop& loop) : loop_(loop) {}
    std::unique_ptr<RepeatingTimer> NewTimer(std::function<void()> tick) override;

  private:
    FiberLoop& loop_;
    QtTimerService timers_;
};

class FiberHttpReader : public HttpReader {
  public:
    explicit FiberHttpReader(FiberLoop& loop) : loop_(loop) {}
    ~FiberHttpReader() override { Cancel(); }
    void Start(const std::string& url, bool bypass_cache, Events events) override;
    void Cancel() override;

  private:
    FiberLoop& loop_;
    CurlHttpReader reader_;
    // Of the fetch under way; what a cancelled one has posted finds it gone.
    std::shared_ptr<Events> events_;
};

class FiberServices : public Lane {
  public:
    // A unit that floods the line costs each tick of its reader no more than this.
    static constexpr std::size_t kMostUnread = std::size_t{64} << 10;

    FiberServices();
    FiberServices(const FiberServices&) = delete;
    FiberServices& operator=(const FiberServices&) = delete;

    Platform With(MessageBoxes& boxes, FileDialogs& files, Sound& sound) override {
        return {loop, timers, tcpsend, http, boxes, files, clock, random, sound, disk};
    }
    void Start(std::function<int()> task, std::function<void(int)> on_end) override {
        loop.Start(std::move(task), std::move(on_end));
    }
    void Cut(int status) override {
        loop.Post([this, status] { loop.Exit(status); });
    }

    FiberLoop loop;
    FiberTimerService timers{loop};
    QtTcpClient tcpsend{kMostUnread};
    FiberHttpReader http{loop};
    QtClock clock;
    QtRandom random;
    Disk disk;
};

}  // namespace kestrane
