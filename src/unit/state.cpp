#include "unit/state.h"

#include <cstdint>

#include "text/text.h"

namespace kestrane::unit {
namespace {

constexpr std::string_view kMark = "KestraneUnit 01\n";
constexpr std::size_t kChecksumBytes = 4;
constexpr std::size_t kFileBytes = kMark.size() + 2 * kBoardBytes + kChecksumBytes;

// FNV-1a, 32 bits.
std::string Checksum(std::string_view bytes) {
    std::uint32_t hash = 2166136261u;
    for (char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    const auto byte = [hash](int shift) { return static_cast<int>(hash >> shift & 0xFF); };
    return Bytes({byte(24), byte(16), byte(8), byte(0)});
}

}  // namespace

std::string EncodeState(const Boards& boards) {
    std::string file(kMark);
    file += boards.relay.Read(0, kBoardBytes);
    file += boards.display.Read(0, kBoardBytes);
    return file + Checksum(file);
}

DecodedState DecodeState(std::string_view file) {
    if (file.substr(0, kMark.size()) != kMark) return {{}, "is not the state of a demo unit"};
    if (file.size() != kFileBytes) {
        return {{},
                "holds " + std::to_string(file.size()) + " bytes instead of " +
                    std::to_string(kFileBytes)};
    }
    const std::string_view body = file.substr(0, kFileBytes - kChecksumBytes);
    if (file.substr(body.size()) != Checksum(body)) return {{}, "is damaged: checksum differs"};
    Boards boards;
    boards.relay.Write(0, body.substr(kMark.size(), kBoardBytes));
    boards.display.Write(0, body.substr(kMark.size() + kBoardBytes));
    return {boards, {}};
}

}  // namespace kestrane::unit
