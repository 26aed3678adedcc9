#include "macro/instruction_set.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "macro/time_code.h"
#include "screen/script_edit_form.h"
#include "text/text.h"

namespace kestrane {
namespace {

std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }

std::string ButtonLine(const Instruction& row) {
    if (row.button.empty()) return "  no button\n";
    std::ostringstream line;
    line << "  " << row.button;
    const std::string_view other = ButtonCaption(row, "636");
    if (other != ButtonCaption(row, "CMS")) line << " | " << other;
    line << ", tag " << ButtonTag(row) << (ButtonVisible(row, "") ? "" : ", hidden but on CMS");
    if (const int box = MaskBoxOfInsert(row.opcode)) line << ", mask box " << box;
    line << ", colour " << std::hex << row.back_colour << "\n";
    return line.str();
}

// Every row: its buttons, where its mask is shown, and its text for some second bytes.
std::string Listing() {
    std::ostringstream listing;
    for (const Instruction& row : InstructionSet()) {
        listing << HexByte(row.opcode) << "\n" << ButtonLine(row);
        if (const int group = MaskGroup(row.opcode)) listing << "  mask group " << group << "\n";
        std::string last;  // a text that stays as it is stands once
        for (const int second : {0x00, 0x01, 0x02, 0x03, 0x05, 0x06, 0x2A, 0xC5, 0xFF}) {
            const std::string text = CmdDecode(row.opcode, Byte(second), "CMS");
            const std::string other = CmdDecode(row.opcode, Byte(second), "636");
            if (text == last) continue;
            last = text;
            listing << "  " << HexByte(Byte(second)) << " \"" << text << "\""
                    << (other == text ? "" : " | \"" + other + "\"") << "\n";
        }
    }
    return listing.str();
}

// instructions.txt was read line by line against the language; a changed line is a changed
// language.
TEST(InstructionTable, TheListingIsTheLanguage) {
    std::ifstream file(KESTRANE_SOURCE_DIR "/tests/macro/instructions.txt");
    for (std::istringstream listing(Listing()); !listing.eof();) {
        std::string expected;
        std::string line;
        std::getline(file, expected);
        std::getline(listing, line);
        ASSERT_EQ(line, expected);
    }
}

TEST(InstructionTable, EveryOpcodeHasItsRowOrIsIllegal) {
    int legal = 0;
    for (int opcode = 0; opcode < 256; ++opcode) {
        const Instruction* row = FindInstruction(Byte(opcode));
        const bool outlet = opcode >= 0x10 && opcode < 0x50;
        ASSERT_EQ(row != nullptr && !row->outlet.empty(), outlet) << opcode;
        legal += row != nullptr ? 1 : 0;
        const std::string text = CmdDecode(Byte(opcode), 0x0A, "");
        EXPECT_EQ(text == "ILLEGAL OPERATION", row == nullptr) << opcode;
        if (!outlet) continue;
        EXPECT_EQ(row->opcode, opcode & 0xF0);
        EXPECT_EQ(text.find("outlet " + Str((opcode & 0x0F) + 1) + " after "), text.find("outlet"));
        if ((opcode & 0x0F) < kOutletCount) {
            EXPECT_EQ(OutletOpcode(row->effect, (opcode & 0x0F) + 1), opcode);
        }
    }
    EXPECT_EQ(legal, 64 + 65);
    EXPECT_EQ(InsertButtons().size(), 62u);
}

TEST(OperandInRange, Edges) {
    const std::tuple<Operand, int, int> kRanges[] = {
        {Operand::kAddress, 0x10, 0x7E}, {Operand::kAlarm, 0, 3},   {Operand::kSupply, 1, 5},
        {Operand::kMask2, 0, 0x3F},      {Operand::kMask1, 0, 255}, {Operand::kCount, 0, 255}};
    for (const auto& [operand, least, most] : kRanges) {
        for (int value = 0; value < 256; ++value) {
            EXPECT_EQ(OperandInRange(operand, Byte(value)), value >= least && value <= most);
        }
    }
}

}  // namespace
}  // namespace kestrane
