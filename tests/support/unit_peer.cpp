#include "support/unit_peer.h"

namespace kestrane {

UnitPeer::UnitPeer(FakeSocket& socket, VirtualTime& time, const unit::UnitOptions& options)
    : socket_(socket), time_(time), line_(socket), unit_(options) {
    socket_.Attach(this);
}

void UnitPeer::OnConnect() {
    const int port = socket_.port() - 1242;
    control_port_ = port >= 1 && port <= 3 ? port : 1;
    unit_.ForgetPartialFrame(control_port_);
}

void UnitPeer::OnBytes(std::string_view bytes) {
    line_.Send(unit_.Receive(control_port_, bytes, time_.Now()));
    if (unit_.TakeEthernetReset()) socket_.CloseByPeer(line_.latency());
}

}  // namespace kestrane
