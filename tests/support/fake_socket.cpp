#include "support/fake_socket.h"

#include <algorithm>
#include <utility>

namespace kestrane {

void FakeSocket::Connect(const std::string& host, int port) {
    Close();
    ++connection_;
    host_ = host;
    port_ = port;
    if (port < 1 || port > 65535) {
        link_ = SocketState::kError;
        return;
    }
    link_ = SocketState::kConnecting;
    if (connect_answer_ != ConnectAnswer::kNone) {
        InOrder(connect_delay_, [this] { AnswerConnect(); });
    }
}

void FakeSocket::AnswerConnect() {
    if (connect_answer_ == ConnectAnswer::kRefuse) {
        link_ = SocketState::kError;
        return;
    }
    link_ = SocketState::kConnected;
    if (peer_) peer_->OnConnect();
}

void FakeSocket::Close() {
    for (const auto& ticket : pending_) time_.Cancel(ticket);
    pending_.clear();
    last_due_ = time_.Now();
    unread_.clear();
    read_position_ = 0;
    link_ = SocketState::kClosed;
}

SocketState FakeSocket::State() const {
    if (forced_state_) return *forced_state_;
    // A close by the peer shows only when all that came before it has been read.
    if (link_ == SocketState::kPeerClosing && BytesWaiting() > 0) return SocketState::kConnected;
    return link_;
}

std::string FakeSocket::Read(std::size_t count) {
    std::string taken = unread_.substr(read_position_, count);
    read_position_ += taken.size();
    if (read_position_ == unread_.size()) {
        unread_.clear();
        read_position_ = 0;
    }
    return taken;
}

void FakeSocket::Send(std::string_view bytes) {
    if (State() != SocketState::kConnected) return;
    frames_.push_back({time_.Now(), connection_, std::string(bytes)});
    if (link_ == SocketState::kConnected && peer_) peer_->OnBytes(bytes);
}

void FakeSocket::Deliver(std::string bytes, Milliseconds delay) {
    InOrder(delay, [this, bytes = std::move(bytes)] {
        if (link_ == SocketState::kConnected) unread_ += bytes;
    });
}

void FakeSocket::CloseByPeer(Milliseconds delay) {
    InOrder(delay, [this] {
        if (link_ == SocketState::kConnected) link_ = SocketState::kPeerClosing;
    });
}

void FakeSocket::ResetByPeer(Milliseconds delay) {
    InOrder(delay, [this] {
        if (link_ != SocketState::kClosed) link_ = SocketState::kError;
    });
}

std::vector<std::string> FakeSocket::sent() const {
    std::vector<std::string> all;
    for (const auto& frame : frames_) all.push_back(frame.bytes);
    return all;
}

void FakeSocket::InOrder(Milliseconds delay, VirtualTime::Action action) {
    last_due_ = std::max(time_.Now() + delay, last_due_);
    if (last_due_ == time_.Now() && pending_.empty()) {
        action();
        return;
    }
    pending_.push_back(time_.At(last_due_, [this, action = std::move(action)] {
        pending_.pop_front();
        action();
    }));
}

}  // namespace kestrane
