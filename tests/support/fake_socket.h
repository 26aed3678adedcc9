#pragma once

// The client socket of the virtual platform, with the other end in the hand of a Peer or of the
// test. What the peer does to one connection never reaches a later one, and keeps its order, as on
// a real line: a delivery is never overtaken by a later delivery, close or reset.

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/tcp_client.h"
#include "support/virtual_time.h"

namespace kestrane {

// The far end of the line. It answers by the controls of FakeSocket.
class Peer {
  public:
    virtual ~Peer() = default;
    virtual void OnConnect() {}
    // The bytes of one Send.
    virtual void OnBytes(std::string_view bytes) = 0;
};

class FakeSocket : public TcpClient {
  public:
    using Milliseconds = std::chrono::milliseconds;

    struct SentFrame {
        Milliseconds time;
        int connection;  // counts from 1
        std::string bytes;
    };

    explicit FakeSocket(VirtualTime& time) : time_(time) {}

    void Connect(const std::string& host, int port) override;
    void Close() override;
    SocketState State() const override;
    std::size_t BytesWaiting() const override { return unread_.size() - read_position_; }
    std::string Read(std::size_t count) override;
    void Send(std::string_view bytes) override;

    // The peer is not owned; null takes it away.
    void Attach(Peer* peer) { peer_ = peer; }

    // How a Connect goes: the answer comes after the delay. The default is to accept after 1 ms.
    enum class ConnectAnswer { kAccept, kRefuse, kNone };
    void set_connect_answer(ConnectAnswer answer) { connect_answer_ = answer; }
    void set_connect_delay(Milliseconds delay) { connect_delay_ = delay; }

    // What the peer does to the present connection, at once or after a delay; nothing happens to a
    // connection that has ended by then. A reset shows as kError, its unread bytes stay.
    void Deliver(std::string bytes, Milliseconds delay = Milliseconds{0});
    void CloseByPeer(Milliseconds delay = Milliseconds{0});
    void ResetByPeer(Milliseconds delay = Milliseconds{0});

    // Shows this state whatever the connection does; nothing ends that.
    void ForceState(std::optional<SocketState> state) { forced_state_ = state; }

    const std::string& host() const { return host_; }
    int port() const { return port_; }
    // How many Connect calls there were; the number of the present connection.
    int connections() const { return connection_; }

    // Every Send on a live connection, oldest first.
    const std::vector<SentFrame>& frames() const { return frames_; }
    std::vector<std::string> sent() const;
    void ClearSent() { frames_.clear(); }

  private:
    // Runs `action` for the present connection only, behind all that was asked for before.
    void InOrder(Milliseconds delay, VirtualTime::Action action);
    void AnswerConnect();

    VirtualTime& time_;
    Peer* peer_ = nullptr;
    ConnectAnswer connect_answer_ = ConnectAnswer::kAccept;
    Milliseconds connect_delay_{1};
    std::optional<SocketState> forced_state_;

    int connection_ = 0;
    SocketState link_ = SocketState::kClosed;
    std::deque<VirtualTime::Ticket> pending_;  // in the order in which they run
    Milliseconds last_due_{0};
    std::string host_;
    int port_ = 0;
    std::string unread_;
    std::size_t read_position_ = 0;

    std::vector<SentFrame> frames_;
};

}  // namespace kestrane
