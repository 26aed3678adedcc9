#pragma once

// The live status record of command 0x31.
//
//   1 2      3      4 5             6 7          8       9        10 11     12       13
//   outlets  alarm  power at the    fuse good    inputs  macro    counters  macro    -
//   on mask         outlet          and inlets           pointer            running
//
// Bit 15 of the first field tells that the backup supply feeds a changeover unit. An outlet that
// is on with power shows green, one that is off with a good fuse grey, a blown fuse red.

#include <string>

#include "simulation/macro_runner.h"

namespace kestrane::unit {

inline constexpr std::size_t kStatusRecord = 13;

std::string StatusRecord(const simulation::MacroRunner& runner);

}  // namespace kestrane::unit
