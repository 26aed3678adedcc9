#include "support/unit_peer.h"

#include <algorithm>

namespace kestrane {

UnitPeer::UnitPeer(FakeSocket& socket, VirtualTime& time, const unit::UnitOptions& options)
    : socket_(socket), time_(time), line_(socket), unit_(options) {
    socket_.Attach(this);
}

void UnitPeer::OnConnect() {
    const auto found = std::find(ports_.begin(), ports_.end(), socket_.port());
    control_port_ = found == ports_.end() ? 1 : static_cast<int>(found - ports_.begin()) + 1;
    unit_.ForgetPartialFrame(control_port_);
}

void UnitPeer::OnBytes(std::string_view bytes) {
    line_.Send(unit_.Receive(control_port_, bytes, time_.Now()));
    if (unit_.TakeEthernetReset()) socket_.CloseByPeer(line_.latency());
}

}  // namespace kestrane
