#pragma once

// The image of the unit's macro program: 512 bytes, of which the two bytes of address a stand at
// 2a (opcode) and 2a + 1 (second byte). Only addresses 0x10 to 0x7F are ever shown or transferred.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace kestrane {

class MacroMemory {
  public:
    static constexpr std::size_t kSize = 512;

    // The program as it is shown and transferred: index of its first byte, and one past its last.
    static constexpr std::size_t kProgramBegin = 32;
    static constexpr std::size_t kProgramEnd = 256;

    // 0 beyond the image.
    std::uint8_t Get(std::size_t index) const { return index < kSize ? bytes_[index] : 0; }

    // False, and nothing stored, beyond the image.
    bool Set(std::size_t index, std::uint8_t value) {
        if (index >= kSize) return false;
        bytes_[index] = value;
        return true;
    }

    std::uint8_t Opcode(std::uint8_t address) const { return Get(std::size_t{2} * address); }
    std::uint8_t SecondByte(std::uint8_t address) const {
        return Get(std::size_t{2} * address + 1);
    }

    std::span<const std::uint8_t, kSize> Bytes() const { return bytes_; }

    bool operator==(const MacroMemory&) const = default;

  private:
    std::array<std::uint8_t, kSize> bytes_{};
};

}  // namespace kestrane
