#pragma once

// Reads an instruction as source text writes it, with the rows that decode it:
//
//     the decoded text               Turn on outlet 1 after 0.5 seconds, skip if already on
//     the caption of its button      MAIN (A) LOCK OFF 1-8 (1 3 5)
//     an outlet in short             ON 2 0.5, OFF 2 10 ALWAYS
//     its two bytes                  BYTES E8 05
//
// Case does not matter, nor how many blanks stand between words. Texts and captions of every unit
// type are understood. Positions count from 0.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "macro/source_words.h"

namespace kestrane {

struct ReadInstruction {
    std::uint8_t opcode = 0;
    std::uint8_t second = 0;
    // The address operand, if it is a label or "." (this instruction's own address); `second` is
    // then for the caller to fill.
    std::string label;
    std::size_t label_at = 0;
    std::vector<TextFault> faults;  // in the order of the text; the bytes are void with any
};

// `text` neither begins nor ends with a blank.
ReadInstruction ReadInstructionText(std::string_view text);

// The text of an instruction with single blanks; as BYTES if the text would not give both bytes
// back. `target`, unless empty, stands for an address operand.
std::string InstructionSource(std::uint8_t opcode, std::uint8_t second, std::string_view unit_type,
                              std::string_view target = {});

}  // namespace kestrane
