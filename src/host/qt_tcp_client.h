#pragma once

// The polled TCP client on one QTcpSocket, kept for life. Qt tells of a close by the peer in one
// burst that no poll would see, so its signals are latched here and the state numbers come from
// the latches and the bytes left unread. No slot pumps events or calls out.

#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QTcpSocket>
#include <cstdint>
#include <string>

#include "platform/tcp_client.h"

class QHostInfo;

namespace kestrane {

class QtTcpClient : public TcpClient {
  public:
    // Bytes that arrive while so many are unread are lost, unless another number is given.
    static constexpr std::size_t kMostUnread = std::size_t{4} << 20;
    // A Send while the peer has left so many bytes untaken is dropped as a whole.
    static constexpr qint64 kMostUnsent = qint64{1} << 20;
    // Milliseconds that a Close waits at most for a peer that does not take the last frames.
    static constexpr int kLongestFarewell = 200;

    explicit QtTcpClient(std::size_t most_unread = kMostUnread);
    ~QtTcpClient() override;
    QtTcpClient(const QtTcpClient&) = delete;
    QtTcpClient& operator=(const QtTcpClient&) = delete;

    // The host is a name or an IPv4 or IPv6 address, the latter with or without brackets. The
    // addresses of a name are tried one after another. A reset by the peer can't be told from a
    // close and shows as kPeerClosing.
    void Connect(const std::string& host, int port) override;
    void Close() override;
    SocketState State() const override;
    std::size_t BytesWaiting() const override { return unread_.size() - read_position_; }
    std::string Read(std::size_t count) override;
    void Send(std::string_view bytes) override;

  private:
    void SendTheRest();
    void OnResolved(const QHostInfo& info);
    void ConnectToNext();
    void OnConnected();
    void OnError(QAbstractSocket::SocketError error);
    void OnDisconnected();
    void TakeIncoming();

    // Runs the member as an event of its own, if this connection still stands then.
    void Later(void (QtTcpClient::*step)());

    std::size_t most_unread_;
    QObject context_;
    QTcpSocket socket_;
    std::uint64_t connection_ = 0;  // changes at each Connect and Close
    int lookup_ = -1;
    QList<QHostAddress> addresses_;  // not tried yet
    quint16 port_ = 0;

    SocketState phase_ = SocketState::kClosed;  // how far the connection came, 0 and 4 to 7
    bool peer_closed_ = false;
    bool error_ = false;

    std::string unread_;
    std::size_t read_position_ = 0;
};

}  // namespace kestrane
