#include "macro/insert_buttons.h"

#include "macro/instruction_set.h"

namespace kestrane {

std::vector<InsertButton> InsertButtons() {
    std::vector<InsertButton> buttons;
    for (const Instruction& row : InstructionSet()) {
        if (row.button.empty()) continue;
        std::optional<Colour> colour;
        if (row.back_colour != Instruction::kNormalColour) colour = row.back_colour;
        buttons.push_back(
            {row.opcode, std::string(row.button), colour, MaskBoxOfInsert(row.opcode) != 0});
    }
    return buttons;
}

}  // namespace kestrane
