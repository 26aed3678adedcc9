#pragma once

// The memory of one board, addressed by 16 bits, and the map of what the unit keeps where. What
// lies beyond the end reads as 0xFF, as unprogrammed memory does, and can't be written.
//
//   relay  0000 serial(4) id(1) version(3) .. 000A changeover(5) inlet(1)   display 0010 settings
//          0020 macro program, two bytes an instruction, to 00FF            0060 names, to 01DF
//          0200 committed sensors, 16 x 9 bytes                             0200 macro triggers
//          0300 sensor readings, 16 x 6 bytes                               02A0 web levels
//          03E0 privileges A, 03E2 B, 03E4 C                                03E0 the same

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kestrane::unit {

enum class Board : std::uint8_t { kRelay, kDisplay };

inline constexpr std::size_t kBoardBytes = 0x0400;

namespace relay {
inline constexpr std::size_t kSerial = 0x0000;
inline constexpr std::size_t kId = 0x0004;
inline constexpr std::size_t kVersion = 0x0005;
inline constexpr std::size_t kChangeover = 0x000A;  // off time main, backup, phase, delay, alarm
inline constexpr std::size_t kDefaultInlet = 0x000F;
inline constexpr std::size_t kMacro = 0x0020;
inline constexpr std::size_t kMacroEnd = 0x0100;
inline constexpr std::size_t kCommittedSensors = 0x0200;
inline constexpr std::size_t kCommittedSensorsEnd = 0x0290;
inline constexpr std::size_t kReadings = 0x0300;
}  // namespace relay

namespace display {
inline constexpr std::size_t kNetbiosName = 0x0010;
inline constexpr std::size_t kAddresses = 0x0020;
inline constexpr std::size_t kPorts = 0x0030;  // secondary DNS, time server, then ports C, B, A
inline constexpr std::size_t kLocation = 0x0040;
inline constexpr std::size_t kUnitName = 0x0050;
inline constexpr std::size_t kChannelNames = 0x0060;
inline constexpr std::size_t kSensorNames = 0x0160;
inline constexpr std::size_t kSysContact = 0x01E0;
inline constexpr std::size_t kTriggers = 0x0200;
inline constexpr std::size_t kTriggersEnd = 0x0280;
inline constexpr std::size_t kWebSalt = 0x02A0;
inline constexpr std::size_t kWebLevels = 0x02B0;
inline constexpr std::size_t kCommunity = 0x02E0;
inline constexpr std::size_t kKeys = 0x02F0;
inline constexpr std::size_t kKeysEnd = 0x0320;
inline constexpr std::size_t kCommunityRest = 0x0320;
}  // namespace display

// On both boards: two bytes for each control port, of which the first holds the rights.
inline constexpr std::size_t kPrivileges = 0x03E0;
inline constexpr std::size_t kPrivilegesEnd = 0x03E6;

class BoardMemory {
  public:
    BoardMemory() { bytes_.fill(0xFF); }

    std::uint8_t At(std::size_t address) const {
        return address < kBoardBytes ? bytes_[address] : std::uint8_t{0xFF};
    }
    void Set(std::size_t address, int value);  // keeps the low 8 bits of the value

    // Stays valid, and follows what is written.
    std::span<const std::uint8_t, kBoardBytes> Bytes() const { return bytes_; }

    std::string Read(std::size_t address, std::size_t count) const;
    void Write(std::size_t address, std::string_view data);

  private:
    std::array<std::uint8_t, kBoardBytes> bytes_;
};

struct Boards {
    BoardMemory relay;
    BoardMemory display;

    BoardMemory& Of(Board board) { return board == Board::kRelay ? relay : display; }
    const BoardMemory& Of(Board board) const { return board == Board::kRelay ? relay : display; }
};

}  // namespace kestrane::unit
