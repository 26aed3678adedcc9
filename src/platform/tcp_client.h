#pragma once

// A non-blocking TCP client that is polled: it has no events, only a state number and a buffer
// of the bytes that have arrived.

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrane {

enum class SocketState {
    kClosed = 0,
    kOpen = 1,
    kListening = 2,
    kConnectionPending = 3,
    kResolvingHost = 4,
    kHostResolved = 5,
    kConnecting = 6,
    kConnected = 7,
    kPeerClosing = 8,  // the peer has closed and no received byte is left unread
    kError = 9,
};

class TcpClient {
  public:
    virtual ~TcpClient() = default;

    // Starts a connection and returns at once; State() tells how it goes. A port outside 1 to
    // 65535 or a host that does not resolve ends in kError.
    virtual void Connect(const std::string& host, int port) = 0;

    // Drops the connection, or a connect under way, and every unread byte; State() is kClosed
    // when this returns. What was handed to Send before goes out first.
    virtual void Close() = 0;

    virtual SocketState State() const = 0;

    virtual std::size_t BytesWaiting() const = 0;

    // Takes up to `count` of the bytes waiting, oldest first.
    virtual std::string Read(std::size_t count) = 0;

    // Queues the bytes; never blocks. Without a connection they are dropped.
    virtual void Send(std::string_view bytes) = 0;
};

}  // namespace kestrane
