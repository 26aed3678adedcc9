#pragma once

// Lines that stand for a hand at the unit: its switch, its inputs, a plug pulled. They come from
// the standard input of kestrane-unit.

#include <string>
#include <string_view>

#include "unit/unit.h"

namespace kestrane::unit {

// Does what the line says. The answer is one line, or several for "help"; empty for an empty line
// or a comment, which begins with "#".
std::string ApplyHandCommand(Unit& unit, std::string_view line, Milliseconds now);

}  // namespace kestrane::unit
