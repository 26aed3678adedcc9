#pragma once

// A look through a macro file for whatever would keep it from loading or running as meant. Unlike
// the reader it goes on behind a fault, so that one look finds them all.

#include <string>
#include <string_view>
#include <vector>

#include "macro/macro_lines.h"

namespace kestrane {

struct Finding {
    long line;         // from 1; behind the last line for what is missing
    std::string text;  // one line, without the line number

    bool operator==(const Finding&) const = default;
};

// In the order of the file. The unit type chooses the decoded texts that findings quote.
std::vector<Finding> CheckMacroFile(std::string_view content, std::string_view unit_type);

// "macro triggers and code" and the like, for showing the kind.
std::string_view MacroFileKindText(MacroFileKind kind);

}  // namespace kestrane
