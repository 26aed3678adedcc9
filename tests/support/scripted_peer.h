#pragma once

// A peer that answers frames from a script or a function, over a line with latency and faults.
// The line is a part of its own, so that other peers can have the same faults.

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "support/fake_socket.h"

namespace kestrane {

// The way of replies back to the client.
class ReplyLine {
  public:
    using Milliseconds = std::chrono::milliseconds;

    explicit ReplyLine(FakeSocket& socket) : socket_(socket) {}

    // Sends a reply through the latency and the faults asked for. An empty one is silence and uses
    // up no fault.
    void Send(std::string reply);

    void set_latency(Milliseconds latency) { latency_ = latency; }
    Milliseconds latency() const { return latency_; }

    // What happens to the next replies, one fault for each reply in the order of these calls.
    // Positions count from 0.
    void PassNext(int count = 1);
    void DropNext(int count = 1);
    // Bytes before `position` arrive after the latency, the others `gap` later.
    void SplitNext(std::size_t position, Milliseconds gap = Milliseconds{1});
    // The byte at `position` arrives with all its bits turned; a reply without it is left whole.
    void GarbleNext(std::size_t position);
    // The bytes before `position` arrive, then the peer closes the connection.
    void CutNext(std::size_t position);
    // The last third of the reply does not arrive.
    void CutShortNext();

  private:
    struct Fault {
        enum class Kind { kPass, kDrop, kSplit, kGarble, kCut, kShort } kind;
        std::size_t position = 0;
        Milliseconds gap{0};
    };

    FakeSocket& socket_;
    Milliseconds latency_{1};
    std::deque<Fault> faults_;
};

class ScriptedPeer : public Peer {
  public:
    using Answer = std::function<std::string(std::string_view frame)>;

    // Attaches itself to the socket and takes itself off at its end.
    explicit ScriptedPeer(FakeSocket& socket, Answer answer = nullptr);
    ~ScriptedPeer() override { socket_.Attach(nullptr); }
    ScriptedPeer(const ScriptedPeer&) = delete;
    ScriptedPeer& operator=(const ScriptedPeer&) = delete;

    // Queues the answer to one frame; "" is silence. Queued answers come before the function's.
    void Reply(std::string reply) { script_.push_back(std::move(reply)); }
    void set_answer(Answer answer) { answer_ = std::move(answer); }

    ReplyLine& line() { return line_; }

    void OnBytes(std::string_view bytes) override;

  private:
    FakeSocket& socket_;
    ReplyLine line_;
    Answer answer_;
    std::deque<std::string> script_;
};

}  // namespace kestrane
