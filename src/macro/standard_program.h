#pragma once

// The program of STANDARD SETTINGS: the front switch turns the outlets on one by one, and off the
// other way round.

#include "macro/macro_memory.h"

namespace kestrane {

// Writes its instructions; the addresses between them are left as they are.
void WriteStandardProgram(MacroMemory& image);

}  // namespace kestrane
