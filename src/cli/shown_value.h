#pragma once

// A control's value as a line of a terminal shows it.

#include <string>

#include "screen/control.h"
#include "text/terminal.h"

namespace kestrane {

// Texts as UTF-8 with control codes as \xNN, flags as 0 and 1 or true and false, a list by its
// index and item.
std::string ShownValue(const Control& control);

}  // namespace kestrane
