#pragma once

// The kinds of unit, which differ in their supplies, and the time that everything here counts in.

#include <chrono>
#include <cstdint>

namespace kestrane::simulation {

using Milliseconds = std::chrono::milliseconds;

enum class UnitType : std::uint8_t {
    kCms,     // changeover unit: a main and a backup supply, one of them feeds all outlets
    k636,     // two inlets, A for outlets 1 to 7 and B for 8 to 14
    kSingle,  // one inlet
};

}  // namespace kestrane::simulation
