#pragma once

// Operations on 32-bit words for the hash engine. A word is a bit pattern: sums wrap, shifts
// bring in zeros. A shift count out of range is the one thing here that can fail.

#include <bit>
#include <cstdint>

namespace kestrane::modCommon {

// Throws std::overflow_error, the engine's "error 6". Out of line, so that the shifts stay small.
[[noreturn]] void FailWithOverflow();

// Counts 0 to 32; 32 shifts every bit out. Any other count fails with overflow.
constexpr std::uint32_t LShift(std::uint32_t value, int bits) {
    if (bits < 0 || bits > 32) FailWithOverflow();
    return bits == 32 ? 0 : value << bits;
}

constexpr std::uint32_t RShift(std::uint32_t value, int bits) {
    if (bits < 0 || bits > 32) FailWithOverflow();
    return bits == 32 ? 0 : value >> bits;
}

// These two take the count modulo 32 and never fail.
constexpr std::uint32_t RotateRight(std::uint32_t value, int bits) {
    return std::rotr(value, bits & 31);
}

constexpr std::uint32_t ShiftRight(std::uint32_t value, int bits) {
    return RShift(value, bits & 31);
}

constexpr std::uint32_t AddUnsigned(std::uint32_t a, std::uint32_t b) { return a + b; }

}  // namespace kestrane::modCommon
