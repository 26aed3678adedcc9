#pragma once

// The macro language as one table. A new opcode is a new row; whatever else turns on an opcode
// (its button, its operand, the mask boxes, the layout by unit type, what a file checker calls
// wrong) is a column here and never a second list elsewhere.
//
// An instruction is two bytes at one address:
//
//     +--------+-------------+
//     | opcode | second byte |      the second byte belongs to the instruction even
//     +--------+-------------+      if it has no operand

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrane {

struct InsertButton;

// What the second byte holds.
enum class Operand : std::uint8_t {
    kNone,     // nothing; inserted as 0x00
    kFree,     // nothing that is shown; inserted as the second byte field stands
    kAddress,  // a macro address
    kTime,     // a time code
    kCount,    // a number 0 to 255
    kMask1,    // bit 0 is outlet (or macro) 1, bit 7 is 8
    kMask2,    // bit 0 is outlet 9, bit 5 is 14
    kAlarm,    // 0 to 3
    kSupply,   // 1 to 5
};

// What an instruction does to the flow of the program and to the outlets. The delay of those that
// wait or switch is their time operand; only an outlet already in the wanted state is skipped.
enum class Effect : std::uint8_t {
    kGoesOn,
    kStops,
    kJumps,          // to its address
    kBranches,       // to its address or on
    kSetsInterrupt,  // names the address where an input's change continues
    kWaits,
    kTurnsOff,
    kTurnsOn,
    kTurnsOffOrSkips,
    kTurnsOnOrSkips,
};

// What an instruction is about, for laying out the buttons. Within a group the table's order is
// the buttons' order.
enum class InstructionGroup : std::uint8_t {
    kProgram,
    kOutlets,
    kRequests,
    kLocks,  // lock off and latch on
    kGpi,
    kCounters,
    kChangeover,
    kSwitch,
    kInhibits,
};

enum class Shown : std::uint8_t { kOnAllUnits, kOnCmsUnits };

struct Instruction {
    std::uint8_t opcode;
    std::string_view button;  // caption of the insert button; empty: there is none
    Operand operand;
    Effect effect;
    // The decoded text is `before`, operand, `after`. If `outlet` holds a text, that comes first,
    // with the outlet number, and the row stands for 16 opcodes, one for each outlet.
    std::string_view before;
    std::string_view after;
    InstructionGroup group;
    std::uint32_t back_colour;  // red in the low byte; kNormalColour: as the platform has it
    Shown shown = Shown::kOnAllUnits;
    std::string_view outlet = {};
    // What stands instead on units other than "CMS"; empty: the same.
    std::string_view other_button = {};
    std::string_view other_before = {};
    bool hides_operand = false;  // a mask that the text leaves out

    static constexpr std::uint32_t kNormalColour = 0;
};

// All rows, opcodes ascending.
std::span<const Instruction> InstructionSet();

// The row of an opcode, also of each outlet opcode 0x10 to 0x4F; null for an illegal one.
const Instruction* FindInstruction(std::uint8_t opcode);

// "00" without an operand, else "Second Byte".
std::string_view ButtonTag(const Instruction& instruction);
std::string_view ButtonCaption(const Instruction& instruction, std::string_view unit_type);
bool ButtonVisible(const Instruction& instruction, std::string_view unit_type);

// A button for each instruction that has one, opcodes ascending, as a "CMS" unit has them.
std::vector<InsertButton> InsertButtons();

// The opcode that turns one outlet (from 1) off or on, `effect` being one of the four that do.
std::uint8_t OutletOpcode(Effect effect, int outlet);

// The mask box (1 or 2) from which an insert takes its second byte; 0: from none.
int MaskBoxOfInsert(std::uint8_t opcode);

// The group of outlet boxes (1 or 2) that the mask of an instruction is shown in; 0: none. Unlike
// an insert this holds for the masks without a button, too.
int MaskGroup(std::uint8_t opcode);

// Whether an instruction with this operand can do something sensible with the value.
bool OperandInRange(Operand operand, std::uint8_t value);

// The words of an alarm or supply operand; empty for others. The first stands for FirstNamed.
std::span<const std::string_view> OperandNames(Operand operand);
int FirstNamed(Operand operand);

inline constexpr std::uint8_t kFirstMacroAddress = 0x10;
inline constexpr std::uint8_t kLastJumpTarget = 0x7E;
inline constexpr int kOutletCount = 14;

inline constexpr std::string_view kIllegalOperation = "ILLEGAL OPERATION";

// The text of an instruction. Numbers keep the blank for their sign, so some texts hold two
// blanks in a row.
std::string CmdDecode(std::uint8_t first, std::uint8_t second, std::string_view unit_type);

// The same, replacing `text` and reusing its room.
void CmdDecode(std::uint8_t first, std::uint8_t second, std::string_view unit_type,
               std::string& text);

// The outlets of a mask, " 1 - 3"; empty for none. Group 1 counts from 1, group 2 from 9. All
// eight bits count, so group 2 can show 15 and 16.
std::string OutletList(std::uint8_t second, int group);

}  // namespace kestrane
