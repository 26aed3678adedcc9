#pragma once

// What a demo unit is told before it starts. Everything else about it lies in its memory.

#include <chrono>
#include <cstdint>

namespace kestrane::unit {

using Milliseconds = std::chrono::milliseconds;

enum class UnitType : std::uint8_t {
    kCms,     // changeover unit: a main and a backup supply, one of them feeds all outlets
    k636,     // two inlets, A for outlets 1 to 7 and B for 8 to 14
    kSingle,  // one inlet
};

struct UnitOptions {
    UnitType type = UnitType::kCms;
    bool old_firmware = false;  // a relay board before 1.4.3: no 1-Wire memory commands
};

}  // namespace kestrane::unit
