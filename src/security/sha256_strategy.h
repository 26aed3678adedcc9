#pragma once

// SHA-256 (FIPS 180-4, 4.1.2, 4.2.2, 5.3.3 and 6.2.2) as a strategy of `SHAAlgorithm`. Expand and
// Round stand in the header: the driver calls them 48 and 64 times a block and has to see through
// them to be fast.

#include "security/isha_strategy.h"
#include "security/mod_common.h"

namespace kestrane {

class SHA256Strategy final : public ISHAStrategy {
  public:
    SHA256Strategy();

    HashWords InitializeHash() const override;

    std::uint32_t Expand(std::span<const std::uint32_t> Words, int lRound) const override {
        const auto t = static_cast<std::size_t>(lRound);
        return SmallSigma1(Words[t - 2]) + Words[t - 7] + SmallSigma0(Words[t - 15]) +
               Words[t - 16];
    }

    void Round(int lRound, HashWords& Hash, std::uint32_t schedule_word) const override {
        const auto [a, b, c, d, e, f, g, h] = Hash;
        const std::uint32_t t1 = h + BigSigma1(e) + Ch(e, f, g) +
                                 constants_[static_cast<std::size_t>(lRound)] + schedule_word;
        const std::uint32_t t2 = BigSigma0(a) + Maj(a, b, c);
        Hash = {t1 + t2, a, b, c, d + t1, e, f, g};
    }

    // 64 lower-case hexadecimal digits.
    std::string Output(const HashWords& Hash) const override;

    int NumRounds() const override { return 64; }

  private:
    static std::uint32_t Ch(std::uint32_t x, std::uint32_t y, std::uint32_t z) {
        return (~x & z) ^ (x & y);
    }
    static std::uint32_t Maj(std::uint32_t x, std::uint32_t y, std::uint32_t z) {
        return ((y ^ z) & x) ^ (y & z);
    }
    static std::uint32_t BigSigma0(std::uint32_t x) {
        using modCommon::RotateRight;
        return RotateRight(x, 2) ^ RotateRight(x, 13) ^ RotateRight(x, 22);
    }
    static std::uint32_t BigSigma1(std::uint32_t x) {
        using modCommon::RotateRight;
        return RotateRight(x, 6) ^ RotateRight(x, 11) ^ RotateRight(x, 25);
    }
    static std::uint32_t SmallSigma0(std::uint32_t x) {
        using modCommon::RotateRight;
        return RotateRight(x, 7) ^ RotateRight(x, 18) ^ modCommon::ShiftRight(x, 3);
    }
    static std::uint32_t SmallSigma1(std::uint32_t x) {
        using modCommon::RotateRight;
        return RotateRight(x, 17) ^ RotateRight(x, 19) ^ modCommon::ShiftRight(x, 10);
    }

    std::array<std::uint32_t, 64> constants_;
};

}  // namespace kestrane
