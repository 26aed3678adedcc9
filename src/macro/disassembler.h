#pragma once

// A macro program as source text from which the same image comes back. Jump targets and triggers
// get labels, a run of stops is left to an "at".

#include <cstdint>
#include <string>
#include <string_view>

#include "macro/macro_program.h"

namespace kestrane {

// In UTF-8. Labels of the program keep their names.
std::string Disassemble(const MacroProgram& program, std::string_view unit_type);

// The instructions of these addresses alone, one a line, for copying.
std::string DisassembleLines(const MacroMemory& image, std::uint8_t first, std::uint8_t last,
                             std::string_view unit_type);

}  // namespace kestrane
