#include "support/scripted_peer.h"

#include <algorithm>
#include <utility>

namespace kestrane {

void ReplyLine::Send(std::string reply) {
    if (reply.empty()) return;
    Fault fault{Fault::Kind::kPass};
    if (!faults_.empty()) {
        fault = faults_.front();
        faults_.pop_front();
    }
    const std::size_t position = std::min(fault.position, reply.size());
    switch (fault.kind) {
        case Fault::Kind::kPass:
            break;
        case Fault::Kind::kDrop:
            return;
        case Fault::Kind::kGarble:
            if (position < reply.size()) reply[position] = static_cast<char>(~reply[position]);
            break;
        case Fault::Kind::kSplit:
            socket_.Deliver(reply.substr(0, position), latency_);
            socket_.Deliver(reply.substr(position), latency_ + fault.gap);
            return;
        case Fault::Kind::kCut:
            socket_.Deliver(reply.substr(0, position), latency_);
            socket_.CloseByPeer(latency_);
            return;
        case Fault::Kind::kShort:
            reply.resize(reply.size() - reply.size() / 3);
            break;
    }
    socket_.Deliver(std::move(reply), latency_);
}

void ReplyLine::PassNext(int count) {
    for (int i = 0; i < count; ++i) faults_.push_back({Fault::Kind::kPass});
}

void ReplyLine::DropNext(int count) {
    for (int i = 0; i < count; ++i) faults_.push_back({Fault::Kind::kDrop});
}

void ReplyLine::SplitNext(std::size_t position, Milliseconds gap) {
    faults_.push_back({Fault::Kind::kSplit, position, gap});
}

void ReplyLine::GarbleNext(std::size_t position) {
    faults_.push_back({Fault::Kind::kGarble, position});
}

void ReplyLine::CutNext(std::size_t position) { faults_.push_back({Fault::Kind::kCut, position}); }

void ReplyLine::CutShortNext() { faults_.push_back({Fault::Kind::kShort}); }

ScriptedPeer::ScriptedPeer(FakeSocket& socket, Answer answer)
    : socket_(socket), line_(socket), answer_(std::move(answer)) {
    socket_.Attach(this);
}

void ScriptedPeer::OnBytes(std::string_view bytes) {
    if (!script_.empty()) {
        std::string reply = std::move(script_.front());
        script_.pop_front();
        line_.Send(std::move(reply));
    } else if (answer_) {
        line_.Send(answer_(bytes));
    }
}

}  // namespace kestrane
