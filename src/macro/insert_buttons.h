#pragma once

// The insert buttons of the macro editor, made from the one table of instructions.

#include <vector>

#include "screen/script_edit_form.h"

namespace kestrane {

// A button for each instruction that has one, opcodes ascending, as a "CMS" unit has them.
std::vector<InsertButton> InsertButtons();

}  // namespace kestrane
