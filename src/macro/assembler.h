#pragma once

// Source text of a macro program: a line is what the editor shows.
//
//     ; a remark
//     trigger 1 "All on" page 0 enabled all_on
//     start:
//             Set on/off switch on interrupt address all_on
//             Stop
//     at 40:
//     all_on: ON 1 0.5
//
// It is UTF-8; U+0080 to U+00FF are the bytes. What no line fills is a stop.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "macro/macro_program.h"

namespace kestrane {

struct SourceFault {
    SourcePlace place;
    std::string text;         // one sentence, in UTF-8: what is wrong, and what would be right
    bool is_warning = false;  // the program is good all the same
};

struct Assembly {
    MacroProgram program;
    std::vector<SourceFault> faults;  // in the order of the text

    bool Good() const;  // no fault but warnings
};

// Finds all faults in one go. `first` is the address of the first instruction.
Assembly Assemble(std::string_view source, std::uint8_t first = 0x10);

}  // namespace kestrane
