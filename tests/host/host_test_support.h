#pragma once

// Pumping with a guard, and the far end of loopback connections.

#include <gtest/gtest.h>

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/host_services.h"

namespace kestrane {

// Pumps until the condition holds. False after half a minute, which only a fault reaches.
inline bool PumpUntil(EventLoop& loop, const std::function<bool()>& condition) {
    bool expired = false;
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, &guard, [&] { expired = true; });
    guard.start(30'000);
    while (!condition()) {
        if (expired) return false;
        loop.Pump();
    }
    return true;
}

// Timers tick inside their tick, in waits below it too, and may be stopped, started anew or deleted
// there.
inline void CheckTimers(EventLoop& loop, TimerService& timers) {
    using std::chrono::milliseconds;
    int depth = 0;
    const auto nested = timers.NewTimer([&] {
        ++depth;
        EXPECT_TRUE(PumpUntil(loop, [&] { return depth >= 5; }));
    });
    nested->Start(milliseconds(1));
    EXPECT_TRUE(PumpUntil(loop, [&] { return depth >= 5; }));
    nested->Stop();
    int stops = 0;
    std::unique_ptr<RepeatingTimer> stopped;
    stopped = timers.NewTimer([&] {
        ++stops;
        stopped->Stop();
    });
    int restarts = 0;
    std::unique_ptr<RepeatingTimer> restarted;
    restarted = timers.NewTimer([&] {
        ++restarts;
        restarted->Start(milliseconds(2));
    });
    bool deleted = false;
    std::unique_ptr<RepeatingTimer> deleting;
    deleting = timers.NewTimer([&, kept = std::string(100, 'x')] {
        deleting.reset();
        deleted = kept.size() == 100;
    });
    for (RepeatingTimer* timer : {stopped.get(), restarted.get(), deleting.get()}) {
        timer->Start(milliseconds(1));
    }
    EXPECT_TRUE(PumpUntil(loop, [&] { return restarts >= 10 && deleted && stops > 0; }));
    EXPECT_EQ(stops, 1);
    EXPECT_LE(depth, 5);
}

// A server on a free port of 127.0.0.1 that keeps what it accepts and receives.
class LoopbackServer {
  public:
    // Called with the whole of what a connection has received so far.
    using OnBytes = std::function<void(QTcpSocket& socket, const std::string& received)>;

    explicit LoopbackServer(OnBytes on_bytes = nullptr) : on_bytes_(std::move(on_bytes)) {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { Accept(); });
    }

    int port() const { return server_.serverPort(); }
    std::size_t count() const { return sockets_.size(); }
    QTcpSocket& socket(std::size_t i) { return *sockets_.at(i); }
    const std::string& received(std::size_t i) const { return *received_.at(i); }
    void StopListening() { server_.close(); }

  private:
    void Accept() {
        while (QTcpSocket* socket = server_.nextPendingConnection()) {
            auto received = std::make_shared<std::string>();
            sockets_.push_back(socket);
            received_.push_back(received);
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, received] {
                *received += socket->readAll().toStdString();
                if (on_bytes_) on_bytes_(*socket, *received);
            });
        }
    }

    OnBytes on_bytes_;
    std::vector<QTcpSocket*> sockets_;
    std::vector<std::shared_ptr<std::string>> received_;
    QTcpServer server_;  // owns the sockets
};

}  // namespace kestrane
