#pragma once

// A peer with memory by board and address, which a test can fill and look at. Any reply can be
// given by the text of its command: address, code and arguments, without marks and doubling.

#include <map>
#include <string>
#include <utility>

#include "link/frame.h"
#include "support/scripted_peer.h"
#include "text/text.h"

namespace kestrane {

// The text inside a frame.
inline std::string TextOfFrame(std::string_view frame) {
    std::string text(frame.substr(2, frame.size() - 4));
    RemoveEscapes(text);
    text.pop_back();
    return text;
}

// The frame around a text.
inline std::string Framed(std::string text) {
    AddEscapesAndChecksum(text);
    return FrameOf(text);
}

class MemoryPeer : public ScriptedPeer {
  public:
    explicit MemoryPeer(FakeSocket& socket)
        : ScriptedPeer(socket, [this](std::string_view frame) { return ReplyTo(frame); }) {}

    // What follows the echo of this command.
    void Answer(const std::string& command, std::string data) {
        answers_[command] = std::move(data);
    }
    // The whole reply to this command, byte for byte; "" is silence.
    void ReplyRaw(const std::string& command, std::string reply) {
        raw_[command] = std::move(reply);
    }

    // Blocks by board and address.
    std::map<std::pair<int, int>, std::string> memory;

  private:
    std::string ReplyTo(std::string_view frame) {
        const std::string text = TextOfFrame(frame);
        if (const auto raw = raw_.find(text); raw != raw_.end()) return raw->second;
        if (const auto answer = answers_.find(text); answer != answers_.end()) {
            return Framed(text + answer->second);
        }
        const std::pair place{ByteAt(text, 1), ByteAt(text, 3) * 256 + ByteAt(text, 4)};
        if (ByteAt(text, 2) == kWriteMemory) memory[place] = Mid(text, 6);
        if (ByteAt(text, 2) != kReadMemory) return Framed(text);
        const auto count = static_cast<std::size_t>(ByteAt(text, 5));
        return Framed(text + PadRight(memory[place], count));
    }

    std::map<std::string, std::string> answers_;
    std::map<std::string, std::string> raw_;
};

}  // namespace kestrane
