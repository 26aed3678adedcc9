#pragma once

// A look through a macro program for whatever would keep it from loading or running as meant.
// Unlike the reader it goes on after a fault, so that one look finds them all. Errors come from
// the text and the single instructions, warnings from the flow of control (`macro_flow.h`).

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "macro/macro_program.h"

namespace kestrane {

struct Finding {
    enum class Severity { kError, kWarning };

    SourcePlace place;                    // line from 1, after the last for what is missing
    std::optional<std::uint8_t> address;  // of the instruction, if it is about one
    Severity severity = Severity::kError;
    std::string_view kind;            // one word, as "operand"
    std::string text;                 // one sentence, in UTF-8
    std::optional<int> trigger = {};  // its row, if it is about one

    bool IsWarning() const { return severity == Severity::kWarning; }
};

// Of a program that was read well or stands in the editor: instructions, triggers and flow, in the
// order of the addresses. The unit type chooses the decoded texts that findings quote.
std::vector<Finding> CheckProgram(const MacroProgram& program, std::string_view unit_type);

// Of a macro file or of source text, told by the content, in the order of the lines. The flow is
// looked at only if the whole text could be read.
std::vector<Finding> CheckMacroText(std::string_view content, std::string_view unit_type);

// "line 12: address 10: illegal opcode 06", for people.
std::string FindingLine(const Finding& finding);

}  // namespace kestrane
