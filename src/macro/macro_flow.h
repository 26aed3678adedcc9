#pragma once

// What the flow of control shows of a program, from address 10, the enabled triggers and every
// interrupt address that reachable code sets. Each finding is a warning of one of these kinds:
//
//   unreached      code that nothing reaches
//   no-wait        a loop that never waits
//   runs-off       the program runs on past 7F
//   unprogrammed   a jump or trigger to an address that nobody wrote
//   inrush         two outlets switched on in the same instant
//   repeated       a skip form whose outlet the line before has just switched the same way

#include <vector>

#include "macro/macro_check.h"

namespace kestrane {

std::vector<Finding> CheckFlow(const MacroProgram& program);

}  // namespace kestrane
