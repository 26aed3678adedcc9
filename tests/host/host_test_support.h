#pragma once

// Pumping with a guard, and the far end of loopback connections.

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
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
