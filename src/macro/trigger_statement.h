#pragma once

// A macro trigger in source text:
//
//     trigger 1 "All on" page 0 enabled all_on
//
// Whatever is wrong with it is found in one go. Positions count from 0.

#include <cstddef>
#include <string>
#include <vector>

#include "macro/macro_file_lines.h"
#include "macro/source_line.h"

namespace kestrane {

struct TriggerStatement {
    int row = -1;  // 0 to 7; -1 without a number in range
    std::size_t number_at = 0;
    TriggerRow fields{"", "0", "00", false};
    // The address, if it is a label; that in `fields` is then for the caller to fill.
    std::string label;
    std::size_t label_at = 0;
    std::vector<TextFault> faults;
};

// `line` stands at the word "trigger", in any case.
TriggerStatement ReadTriggerStatement(SourceLine& line);

}  // namespace kestrane
