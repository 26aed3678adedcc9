#pragma once

// One exchange with a demo unit in one line: the command text goes in as a frame, the reply comes
// back as a text, without marks, doubling and checksum.

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"
#include "unit/unit.h"

namespace kestrane::unit {

constexpr int kPortA = 1;
constexpr int kPortB = 2;
constexpr int kPortC = 3;
constexpr int kRelayByte = 0xFA;
constexpr int kDisplayByte = 0xFB;

// The text of the reply; "silence" where there is none.
inline std::string AskText(Unit& unit, int port, std::string_view text, int at_ms = 1000) {
    const std::string frames = unit.Receive(port, EncodeFrame(text), Milliseconds{at_ms});
    if (frames.empty()) return "silence";
    FrameParser parser;
    const std::vector<std::string> replies = parser.Feed(frames);
    return replies.size() == 1 ? replies[0] : "not one frame";
}

inline std::string Ask(Unit& unit, int port, std::initializer_list<int> text, int at_ms = 1000) {
    return AskText(unit, port, Bytes(text), at_ms);
}

// What the reply holds behind the echo; the reply itself, for the message, if it is no echo.
inline std::string DataOf(Unit& unit, int port, std::initializer_list<int> text, int at_ms = 1000) {
    const std::string command = Bytes(text);
    const std::string reply = AskText(unit, port, command, at_ms);
    return reply.compare(0, command.size(), command) == 0 ? reply.substr(command.size())
                                                          : "no echo: " + HexText(reply);
}

inline std::string Refusal(int address, int code, int reason = 0x16) {
    return Bytes({address, code, reason});
}

}  // namespace kestrane::unit
