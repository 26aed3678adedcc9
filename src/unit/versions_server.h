#pragma once

// The versions page over HTTP. It answers a request as soon as its head has come and closes, so
// that nothing that a client sends or leaves unread can hold or grow it: Qt's own HTTP server keeps
// what a request says, without a limit, and calls sockets that are gone.

#include <QHostAddress>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <cstdint>
#include <string>

namespace kestrane::unit {

class VersionsServer : public QObject {
  public:
    static constexpr int kMostConnections = 16;

    VersionsServer();

    // Port 0 is any free port. An error in one line; empty once it listens.
    std::string Listen(const QHostAddress& host, std::uint16_t port);
    std::uint16_t Port() const { return server_.serverPort(); }
    void Close();

  private:
    void Accept();
    void MakeRoom();
    void Read(QTcpSocket& socket);

    QTcpServer server_;
};

}  // namespace kestrane::unit
