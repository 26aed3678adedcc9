#pragma once

// The unit's side of the wire. One FrameParser belongs to one connection and keeps what it has
// seen of a frame, so that a frame may arrive split anywhere and several may arrive joined. It is
// strict: a frame that is malformed or fails its checksum is dropped without a word.
//
//   10 02 | address code arguments... checksum | 10 03
//
// Between the marks each byte 0x10 stands twice. The checksum is the low byte of the sum of
// address, code and arguments as they were before doubling.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrane::unit {

// The frame of a command or reply text (address, code, arguments or data).
std::string EncodeFrame(std::string_view text);

class FrameParser {
  public:
    // Takes the next bytes of the connection; returns the texts of the frames completed by them,
    // without marks, doubling and checksum.
    std::vector<std::string> Feed(std::string_view bytes);

  private:
    enum class State : std::uint8_t { kOutside, kOutsideAfterDle, kInside, kInsideAfterDle };

    void Take(char byte, std::vector<std::string>& texts);
    void Append(char byte);
    void Finish(std::vector<std::string>& texts);

    State state_ = State::kOutside;
    std::string text_;
};

}  // namespace kestrane::unit
