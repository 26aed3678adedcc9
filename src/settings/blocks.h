#pragma once

// The layouts of the settings blocks on the display board, each with its conversions side by
// side: what the read takes out of 16 bytes and what the write puts together. Offsets count from
// 0. A conversion that has no value (a byte that trims to nothing, a number that fits no byte)
// gives nothing, and the operation stops there.

#include <array>
#include <optional>
#include <string>

#include "link/frame.h"

namespace kestrane {

using MaybeByte = std::optional<int>;

namespace address {
inline constexpr int kNetbiosName = 0x0010;
inline constexpr int kAddresses = 0x0020;
inline constexpr int kPorts = 0x0030;
inline constexpr int kUnitLocation = 0x0040;
inline constexpr int kUnitName = 0x0050;
inline constexpr int kSysContact = 0x01E0;
inline constexpr int kRetired1 = 0x0280;
inline constexpr int kRetired2 = 0x0290;
inline constexpr int kSalt = 0x02A0;
inline constexpr int kControlLevel = 0x02C0;
inline constexpr int kAdminLevel = 0x02D0;
inline constexpr int kLimits = 0x02E0;
inline constexpr int kChaskey[] = {0x02F0, 0x0300, 0x0310};
inline constexpr int kCommunityRest = 0x0320;
}  // namespace address

// The text of an address field, or nothing if the block ends before it.
std::optional<std::string> QuadAt(const std::string& block, std::size_t offset);

// One byte passed through the blank trim of the text fields, so that 0x20 gives nothing.
MaybeByte TrimmedByteAt(const std::string& block, std::size_t offset);

// Block 0x0020
//   0 IP address | 4 subnet mask | 8 default gateway | 12 primary DNS
inline constexpr std::size_t kAddressOffsets[] = {0, 4, 8, 12};

// Block 0x0030
//   0 secondary DNS | 4 time server | 8 port C | 10 port B | 12 port A | 14 OLED | 15 flags
inline constexpr std::size_t kSecondaryDnsOffset = 0;
inline constexpr std::size_t kTimeServerOffset = 4;
inline constexpr std::size_t kPortOffsets[] = {12, 10, 8};  // by index, in reverse order
inline constexpr std::size_t kOledOffset = 14;
inline constexpr std::size_t kFlagsOffset = 15;

// The flags of block 0x0030; bits 6 and 7 are written as 0.
struct OptionFlags {
    static constexpr int kDhcp = 0x01;
    static constexpr int kPortEnable[] = {0x02, 0x04, 0x08};
    static constexpr int kArmButtons = 0x10;
    static constexpr int kHideIp = 0x20;
};

std::optional<int> PortAt(const std::string& block, int index);
// High byte first; nothing for a number above 65535.
std::optional<std::string> PortBytes(const std::string& text);

// Timeouts are stored in tens of seconds, 0xFF for off. An OLED timeout of 0 was never programmed
// and counts as 12; a force disconnect of 0 has no such default.
std::string OledTimeoutText(int stored);
std::string ForceDisconnectText(int stored);
MaybeByte TimeoutByte(const std::string& text);

// Block 0x02E0
//   0 community start | 8 force disconnect | 9 limit A | 10 limit B | 11 limit C | 12 ARP
//   13 count C | 14 count B | 15 count A
inline constexpr std::size_t kCommunityStart = 8;  // characters of the community in this block
inline constexpr std::size_t kForceDisconnectOffset = 8;
inline constexpr std::size_t kAttackLimitOffsets[] = {9, 10, 11};
inline constexpr std::size_t kArpOffset = 12;
inline constexpr std::size_t kKeyCounterOffsets[] = {15, 14, 13};  // in reverse order too
// The write stops before the key counters, so that they survive it.
inline constexpr int kLimitsWritten = 13;

MaybeByte AttackLimitByte(const std::string& text);

struct Arp {
    int repeat = 0;  // index of the repeat interval, -1 for none selected
    std::array<bool, 3> sends{};
    bool reset = false;
};
Arp DecodeArp(int stored);
MaybeByte EncodeArp(const Arp& arp);

// The community: 8 characters in block 0x02E0, 16 in block 0x0320, ended by the first 0x00.
// Erased memory in the first part stands for "public", and the second is then not read at all.
bool IsDefaultCommunity(const std::string& start);
std::string JoinCommunity(const std::string& start, const std::string& rest);
struct CommunityPieces {
    std::string start;  // 8 bytes
    std::string rest;   // 16 bytes
};
CommunityPieces SplitCommunity(const std::string& text);

// Blanks trimmed; erased memory is empty; cut before the first 0x00.
std::string SysContactText(const std::string& block);

// 32 hexadecimal digits; a stored key is not given back and reads as zeros.
bool KeyIsHidden(const std::string& key_text);

}  // namespace kestrane
