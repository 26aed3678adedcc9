#include "settings/blocks.h"

#include <cmath>

#include "settings/quad.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kOff = 0xFF;
constexpr int kHighestByte = 0xFF;
constexpr int kDefaultOledTens = 12;
constexpr long kHighestPort = 65535;
constexpr int kArpReset = 0x80;

const std::string kErased8(8, '\xFF');
const std::string kErased16(16, '\xFF');

MaybeByte AsByte(long value) {
    if (value < 0 || value > kHighestByte) return {};
    return static_cast<int>(value);
}

}  // namespace

std::optional<std::string> QuadAt(const std::string& block, std::size_t offset) {
    const std::string bytes = Mid(block, offset + 1, 4);
    if (bytes.size() < 4) return {};
    return QuadText(bytes);
}

MaybeByte TrimmedByteAt(const std::string& block, std::size_t offset) {
    const int byte = ByteAt(Trim(Mid(block, offset + 1, 1)), 1);
    if (byte < 0) return {};
    return byte;
}

std::optional<int> PortAt(const std::string& block, int index) {
    const std::size_t offset = kPortOffsets[index];
    const int high = ByteAt(block, offset + 1);
    const int low = ByteAt(block, offset + 2);
    if (high < 0 || low < 0) return {};
    return high * 256 + low;
}

std::optional<std::string> PortBytes(const std::string& text) {
    const long port = IntegerValue(text);
    if (port < 0 || port > kHighestPort) return {};
    return Bytes({static_cast<int>(port / 256), static_cast<int>(port % 256)});
}

std::string OledTimeoutText(int stored) {
    if (stored == kOff) return "0";
    return std::to_string((stored == 0 ? kDefaultOledTens : stored) * 10);
}

std::string ForceDisconnectText(int stored) {
    return stored == kOff ? "0" : std::to_string(stored * 10);
}

MaybeByte TimeoutByte(const std::string& text) {
    const double seconds = Val(text);
    if (seconds == 0) return kOff;
    return AsByte(RoundHalfEven(seconds / 10));
}

MaybeByte AttackLimitByte(const std::string& text) {
    const long limit = IntegerValue(text);
    return limit == 0 ? MaybeByte(kOff) : AsByte(limit);
}

// The index is a division, not a shift: a byte whose low four bits are just 8 rounds to even.
Arp DecodeArp(int stored) {
    Arp arp;
    arp.repeat = static_cast<int>(RoundHalfEven(stored / 16.0)) & 7;
    for (std::size_t i = 0; i < arp.sends.size(); ++i) arp.sends[i] = (stored >> i & 1) != 0;
    arp.reset = (stored & kArpReset) != 0;
    return arp;
}

MaybeByte EncodeArp(const Arp& arp) {
    int value = arp.repeat * 16 + (arp.reset ? kArpReset : 0);
    for (std::size_t i = 0; i < arp.sends.size(); ++i) value += arp.sends[i] ? 1 << i : 0;
    return AsByte(value);
}

bool IsDefaultCommunity(const std::string& start) { return start == kErased8; }

std::string JoinCommunity(const std::string& start, const std::string& rest) {
    std::string text = start + (rest == kErased16 ? std::string(1, '\0') : rest);
    return text.substr(0, text.find('\0'));
}

CommunityPieces SplitCommunity(const std::string& text) {
    return {PadRight(Mid(text, 1, kCommunityStart), kCommunityStart, '\0'),
            PadRight(Mid(text, kCommunityStart + 1, kBlockSize), kBlockSize, '\0')};
}

std::string SysContactText(const std::string& block) {
    const std::string text = Trim(block);
    if (text == kErased16) return {};
    return text.substr(0, text.find('\0'));
}

bool KeyIsHidden(const std::string& key_text) { return key_text == std::string(32, '0'); }

}  // namespace kestrane
