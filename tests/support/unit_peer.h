#pragma once

// The demo unit as the peer of a FakeSocket, on virtual time and without a socket. The port that
// the client connects to, 1243 to 1245, decides which control port it stands at; any other is A.

#include <string_view>

#include "support/fake_socket.h"
#include "support/scripted_peer.h"
#include "support/virtual_time.h"
#include "unit/unit.h"

namespace kestrane {

class UnitPeer : public Peer {
  public:
    // Attaches itself to the socket and takes itself off at its end.
    UnitPeer(FakeSocket& socket, VirtualTime& time, const unit::UnitOptions& options = {});
    ~UnitPeer() override { socket_.Attach(nullptr); }
    UnitPeer(const UnitPeer&) = delete;
    UnitPeer& operator=(const UnitPeer&) = delete;

    unit::Unit& unit() { return unit_; }
    ReplyLine& line() { return line_; }
    // 1 to 3 for the connection under way or the last one.
    int control_port() const { return control_port_; }

    void OnConnect() override;
    void OnBytes(std::string_view bytes) override;

  private:
    FakeSocket& socket_;
    VirtualTime& time_;
    ReplyLine line_;
    unit::Unit unit_;
    int control_port_ = 1;
};

}  // namespace kestrane
