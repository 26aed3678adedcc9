#pragma once

// What a demo unit is told before it starts. Everything else about it lies in its memory.

#include "simulation/unit_type.h"

namespace kestrane::unit {

using simulation::Milliseconds;
using simulation::UnitType;

struct UnitOptions {
    UnitType type = UnitType::kCms;
    bool old_firmware = false;  // a relay board before 1.4.3: no 1-Wire memory commands
    int number = 1;  // in a row of units, which differ in serial number and name
};

}  // namespace kestrane::unit
