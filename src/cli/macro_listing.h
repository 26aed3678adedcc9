#pragma once

// A macro file as lines of text: what `macro list` and `macro check` print. No unit is asked.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "macro/macro_memory.h"

namespace kestrane {

// The program of a file, without its triggers. Nothing, with the reason in `error`, if the editor
// would not load the file to its end.
std::optional<MacroMemory> ProgramOfFile(std::string_view content, std::string& error);

// A line for each instruction, "10  C6 03  Alarm status Flash and Beep", in UTF-8.
std::vector<std::string> ProgramAsLines(const MacroMemory& program, std::string_view unit_type);
// The same as one line of JSON: a list of {"address","opcode","second","text"}.
std::string ProgramAsJson(const MacroMemory& program, std::string_view unit_type);

struct CheckedFile {
    std::vector<std::string> lines;  // the kind of file, then what is wrong
    bool good = false;
};
CheckedFile CheckedMacroFile(std::string_view content, std::string_view unit_type);

}  // namespace kestrane
