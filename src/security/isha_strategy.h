#pragma once

// What one hash of the SHA-2 family brings to the driver `SHAAlgorithm`: its start values, its
// schedule, its round and the form of its digest. A strategy keeps nothing between calls, so one
// object serves any number of digests.

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace kestrane {

// The eight words a to h of a hash value, in that order.
using HashWords = std::array<std::uint32_t, 8>;

class ISHAStrategy {
  public:
    virtual ~ISHAStrategy() = default;

    virtual HashWords InitializeHash() const = 0;

    // Schedule word number `lRound`, 16 or more, from the words before it. `Words` holds at
    // least `lRound` words.
    virtual std::uint32_t Expand(std::span<const std::uint32_t> Words, int lRound) const = 0;

    // Round `lRound` (0 to NumRounds() - 1) on the working words, with its schedule word.
    virtual void Round(int lRound, HashWords& Hash, std::uint32_t schedule_word) const = 0;

    virtual std::string Output(const HashWords& Hash) const = 0;

    virtual int NumRounds() const = 0;
};

}  // namespace kestrane
