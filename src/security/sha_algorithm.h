#pragma once

// The driver of the hash engine: it pads a message, cuts it into blocks and runs the rounds, and
// knows no algorithm of its own. Everything particular to one hash comes from a strategy.

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "security/isha_strategy.h"
#include "security/sha256_strategy.h"

namespace kestrane {

class SHAAlgorithm {
  public:
    // The digest of `Message` as 64 lower-case hexadecimal digits.
    std::string SHA256(std::span<const std::uint8_t> Message);

    // The same for a byte text, one byte a character.
    std::string SHA256FromString(std::string_view sMessage);

    // The digest as the `Output` of any strategy with blocks of 16 words.
    std::string Run(std::span<const std::uint8_t> Message, const ISHAStrategy& hash_strategy);

    // The padded message: 16 big-endian words for each block, 0x80 behind the message and its
    // length in bits in the last two words.
    std::vector<std::uint32_t> ConvertToWordArray(std::span<const std::uint8_t> Message);

  private:
    // Run for a strategy as it is or for any: with the final class the compiler sees through the
    // calls and keeps the working words in registers.
    template <typename Strategy>
    std::string RunWith(std::span<const std::uint8_t> message, const Strategy& hash_strategy);

    // Made on the first use and kept.
    std::unique_ptr<SHA256Strategy> strategy;
};

}  // namespace kestrane
