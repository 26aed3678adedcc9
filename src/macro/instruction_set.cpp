#include "macro/instruction_set.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "macro/time_code.h"
#include "screen/script_edit_form.h"
#include "text/text.h"

namespace kestrane {
namespace {

using enum Operand;
using enum Effect;
using enum InstructionGroup;

constexpr std::uint32_t kNormal = Instruction::kNormalColour;
constexpr std::uint32_t kYellow = 0xC0FFFF;
constexpr std::uint32_t kPink = 0xC0C0FF;
constexpr std::uint32_t kGreen = 0xC0FFC0;
constexpr Shown kAll = Shown::kOnAllUnits;
constexpr Shown kCms = Shown::kOnCmsUnits;

// The captions keep their slips ("GPI12 HIGH", two blanks before "MACROS"): operators know the
// buttons by them.
// clang-format off
constexpr auto kInstructions = std::to_array<Instruction>({
    // opcode, button, operand, effect, text before, text after, group, colour, shown, outlet text,
    // button and text on other units, hides operand
    {0x00, "STOP",                   kNone,    kStops,           "Stop", "", kProgram, kYellow},
    {0x01, "GOTO",                   kAddress, kJumps,           "Goto address ", "", kProgram, kNormal},
    {0x02, "WAIT",                   kTime,    kWaits,           "Wait for ", " seconds", kProgram, kNormal},
    {0x03, "GPI DISABLE",            kNone,    kGoesOn,          "GPI Disable", "", kGpi, kGreen},
    {0x04, "GPI ENABLE",             kNone,    kGoesOn,          "GPI Enable", "", kGpi, kGreen},
    {0x05, "",                       kNone,    kGoesOn,          "GPI 1-4 interrupt address and inhibit reset", "", kGpi, kNormal},
    {0x10, "",                       kTime,    kTurnsOff,        " after fixed delay of ", " seconds", kOutlets, kNormal, kAll, "Turn off outlet "},
    {0x20, "",                       kTime,    kTurnsOn,         " after fixed delay of ", " seconds", kOutlets, kNormal, kAll, "Turn on outlet "},
    {0x30, "",                       kTime,    kTurnsOffOrSkips, " after ", " seconds, skip if already off", kOutlets, kNormal, kAll, "Turn off outlet "},
    {0x40, "",                       kTime,    kTurnsOnOrSkips,  " after ", " seconds, skip if already on", kOutlets, kNormal, kAll, "Turn on outlet "},
    {0x51, "ALL OFF",                kTime,    kTurnsOff,        "All outlets off after fixed delay of ", " seconds", kOutlets, kPink},
    {0x52, "ALL ON",                 kTime,    kTurnsOn,         "All outlets on after fixed delay of ", " seconds", kOutlets, kGreen},
    {0x53, "REJECT CYCLE",           kFree,    kGoesOn,          "Reject serial/TCP requests for cycle timers", "", kRequests, kGreen},
    {0x54, "ACCEPT CYCLE",           kFree,    kGoesOn,          "Accept serial/TCP requests for cycle timers", "", kRequests, kGreen},
    {0x55, "MAIN (A) LOCK OFF 9-14", kMask2,   kGoesOn,          "Main (A) lock off 9 - 14 (", " )", kLocks, kGreen},
    {0x56, "MAIN (A) LOCK OFF 1-8",  kMask1,   kGoesOn,          "Main (A) lock off 1 - 8 (", " )", kLocks, kGreen},
    {0x57, "MAIN (A) LATCH ON 9-14", kMask2,   kGoesOn,          "Main (A) latch on 9 - 14 (", " )", kLocks, kGreen},
    {0x58, "MAIN (A) LATCH ON 1-8",  kMask1,   kGoesOn,          "Main (A) latch on 1 - 8 (", " )", kLocks, kGreen},
    {0x59, "BACK (B) LOCK OFF 9-14", kMask2,   kGoesOn,          "Backup (B) lock off 9 - 14 (", " )", kLocks, kGreen},
    {0x5A, "BACK (B) LOCK OFF 1-8",  kMask1,   kGoesOn,          "Backup (B) lock off 1 - 8 (", " )", kLocks, kGreen},
    {0x5B, "BACK (B) LATCH ON 9-14", kMask2,   kGoesOn,          "Backup (B) latch on 9 - 14 (", " )", kLocks, kGreen},
    {0x5C, "BACK (B) LATCH ON 1-8",  kMask1,   kGoesOn,          "Backup (B) latch on 1 - 8 (", " )", kLocks, kGreen},
    {0x5D, "REJECT LOCK CMD",        kFree,    kGoesOn,          "Reject serial/TCP changes to lock/latch", "", kRequests, kPink},
    {0x5E, "ACCEPT LOCK CMD",        kFree,    kGoesOn,          "Accept serial/TCP changes to lock/latch", "", kRequests, kPink},
    {0x60, "GPI1 LOW",               kNone,    kGoesOn,          "Set GPI1 as low output", "", kGpi, kNormal},
    {0x61, "GPI1 HIGH",              kNone,    kGoesOn,          "Set GPI1 as high output", "", kGpi, kNormal},
    {0x62, "GPI1 LOW INT",           kAddress, kSetsInterrupt,   "Set GPI1 as input, low interrupt address ", "", kGpi, kNormal},
    {0x63, "GPI1 HIGH INT",          kAddress, kSetsInterrupt,   "Set GPI1 as input, high interrupt address ", "", kGpi, kNormal},
    {0x64, "GPI1 INHIBIT",           kTime,    kGoesOn,          "Inhibit GPI1 interrupt for ", " seconds", kGpi, kNormal},
    {0x70, "GPI2 LOW",               kNone,    kGoesOn,          "Set GPI2 as low output", "", kGpi, kNormal},
    {0x71, "GPI12 HIGH",             kNone,    kGoesOn,          "Set GPI2 as high output", "", kGpi, kNormal},
    {0x72, "GPI2 LOW INT",           kAddress, kSetsInterrupt,   "Set GPI2 as input, low interrupt address ", "", kGpi, kNormal},
    {0x73, "GPI2 HIGH INT",          kAddress, kSetsInterrupt,   "Set GPI2 as input, high interrupt address ", "", kGpi, kNormal},
    {0x74, "GPI2 INHIBIT",           kTime,    kGoesOn,          "Inhibit GPI2 interrupt for ", " seconds", kGpi, kNormal},
    {0x80, "GPI3 LOW",               kNone,    kGoesOn,          "Set GPI3 as low output", "", kGpi, kNormal},
    {0x81, "GPI13 HIGH",             kNone,    kGoesOn,          "Set GPI3 as high output", "", kGpi, kNormal},
    {0x82, "GPI3 LOW INT",           kAddress, kSetsInterrupt,   "Set GPI3 as input, low interrupt address ", "", kGpi, kNormal},
    {0x83, "GPI3 HIGH INT",          kAddress, kSetsInterrupt,   "Set GPI3 as input, high interrupt address ", "", kGpi, kNormal},
    {0x84, "GPI3 INHIBIT",           kTime,    kGoesOn,          "Inhibit GPI3 interrupt for ", " seconds", kGpi, kNormal},
    {0x90, "GPI4 LOW",               kNone,    kGoesOn,          "Set GPI4 as low output", "", kGpi, kNormal},
    {0x91, "GPI14 HIGH",             kNone,    kGoesOn,          "Set GPI4 as high output", "", kGpi, kNormal},
    {0x92, "GPI4 LOW INT",           kAddress, kSetsInterrupt,   "Set GPI4 as input, low interrupt address ", "", kGpi, kNormal},
    {0x93, "GPI4 HIGH INT",          kAddress, kSetsInterrupt,   "Set GPI4 as input, high interrupt address ", "", kGpi, kNormal},
    {0x94, "GPI4 INHIBIT",           kTime,    kGoesOn,          "Inhibit GPI4 interrupt for ", " seconds", kGpi, kNormal},
    {0xA0, "COUNT1 LOAD",            kCount,   kGoesOn,          "Load counter 1 with ", "", kCounters, kNormal},
    {0xA1, "COUNT1 DEC",             kAddress, kBranches,        "Decrement counter 1, if zero goto address ", "", kCounters, kNormal},
    {0xA2, "COUNT1 INC",             kAddress, kBranches,        "Increment counter 1, if 255 goto address ", "", kCounters, kNormal},
    {0xB0, "COUNT2 LOAD",            kCount,   kGoesOn,          "Load counter 2 with ", "", kCounters, kNormal},
    {0xB1, "COUNT2 DEC",             kAddress, kBranches,        "Decrement counter 2, if zero goto address ", "", kCounters, kNormal},
    {0xB2, "COUNT2 INC",             kAddress, kBranches,        "Increment counter 2, if 255 goto address ", "", kCounters, kNormal},
    {0xC0, "CHANGE OVER INT",        kAddress, kSetsInterrupt,   "Set change over interrupt address to ", "", kChangeover, kGreen, kCms,
     {}, "SUPPLY LOSS INT", "Set supply loss interrupt address to "},
    {0xC1, "CHANGE BACK INT",        kAddress, kSetsInterrupt,   "Set change back interrupt address to ", "", kChangeover, kGreen, kCms,
     {}, "SUPPLY BACK INT", "Set supply resume interrupt address to "},
    {0xC2, "OFF LIMIT MAIN",         kCount,   kGoesOn,          "Main supply sense allowable off time ", " samples", kChangeover, kGreen, kCms},
    {0xC3, "OFF LIMIT RESERVE",      kCount,   kGoesOn,          "Reserve supply sense allowable off time ", " samples", kChangeover, kGreen, kCms},
    {0xC4, "PHASE LIMIT",            kCount,   kGoesOn,          "Change back phase window ", " samples", kChangeover, kGreen, kCms},
    {0xC5, "CH. BACK DELAY",         kCount,   kGoesOn,          "Change back delay ", " x10 seconds", kChangeover, kGreen, kCms},
    {0xC6, "ALARM STATUS",           kAlarm,   kGoesOn,          "Alarm status ", "", kChangeover, kGreen},
    {0xC7, "PREF SUPPLY",            kSupply,  kGoesOn,          "Preferred Supply: ", "", kChangeover, kGreen, kCms},
    {0xD2, "ON/OFF ON INT",          kAddress, kSetsInterrupt,   "Set on/off switch on interrupt address ", "", kSwitch, kGreen},
    {0xD3, "ON/OFF OFF INT",         kAddress, kSetsInterrupt,   "Set on/off switch off interrupt address ", "", kSwitch, kGreen},
    {0xD4, "ON/OFF INHIBIT",         kTime,    kGoesOn,          "Inhibit on/off switch for ", " seconds", kSwitch, kGreen},
    {0xE5, "MAIN (A) OUTLETS 9-14",  kMask2,   kGoesOn,          "Main (A) control inhibit 9 - 14 (", " )", kInhibits, kGreen},
    {0xE6, "MAIN (A) OUTLETS 1-8",   kMask1,   kGoesOn,          "Main (A) control inhibit 1 - 8 (", " )", kInhibits, kGreen},
    {0xE7, "MAIN (A)  MACROS",       kMask1,   kGoesOn,          "Main (A) macro inhibit (", " )", kInhibits, kGreen},
    {0xE8, "",                       kMask1,   kGoesOn,          "Main (A) web misc not used", "", kInhibits, kNormal, kAll, {}, {}, {}, true},
    {0xE9, "BACK (B) OUTLETS 9-14",  kMask2,   kGoesOn,          "Back (B) control inhibit 9 - 14 (", " )", kInhibits, kGreen},
    {0xEA, "BACK (B) OUTLETS 1-8",   kMask1,   kGoesOn,          "Back (B) control inhibit 1 - 8 (", " )", kInhibits, kGreen},
    {0xEB, "BACK (B)  MACROS",       kMask1,   kGoesOn,          "Back (B) macro inhibit (", " )", kInhibits, kGreen},
    {0xEC, "",                       kMask1,   kGoesOn,          "Back (B) web misc not used", "", kInhibits, kNormal, kAll, {}, {}, {}, true},});
// clang-format on

constexpr std::uint8_t kNoRow = 0xFF;
static_assert(kInstructions.size() < kNoRow);

constexpr std::array<std::uint8_t, 256> kRowOfOpcode = [] {
    std::array<std::uint8_t, 256> row_of;
    row_of.fill(kNoRow);
    for (std::size_t row = 0; row < kInstructions.size(); ++row) {
        const std::size_t opcode = kInstructions[row].opcode;
        const std::size_t opcodes = kInstructions[row].outlet.empty() ? 1 : 16;
        for (std::size_t i = 0; i < opcodes; ++i) {
            row_of[opcode + i] = static_cast<std::uint8_t>(row);
        }
    }
    return row_of;
}();

constexpr std::array<std::string_view, 4> kAlarms = {"Silent", "Beep only", "Flash only",
                                                     "Flash and Beep"};
constexpr std::array<std::string_view, 5> kSupplies = {"A sync", "B sync", "No preference",
                                                       "A non sync", "B non sync"};

// Str, for the small numbers of this language, without a text of its own.
void AppendNumber(unsigned number, std::string& text) {
    char digits[4] = {' '};
    std::size_t length = 1;
    if (number >= 100) digits[length++] = static_cast<char>('0' + number / 100 % 10);
    if (number >= 10) digits[length++] = static_cast<char>('0' + number / 10 % 10);
    digits[length++] = static_cast<char>('0' + number % 10);
    text.append(digits, length);
}

void AppendOutletList(std::uint8_t mask, int group, std::string& text) {
    const unsigned first = group == 1 ? 1 : 9;
    bool started = false;
    for (unsigned bit = 0; bit < 8; ++bit) {
        if ((mask >> bit & 1) == 0) continue;
        if (started) text += " -";
        AppendNumber(first + bit, text);
        started = true;
    }
}

// A value that an alarm or supply operand can't hold adds nothing: the bare text before it stays,
// and is not replaced by the illegal text.
void AppendOperand(Operand operand, std::uint8_t value, std::string& text) {
    switch (operand) {
        case kNone:
        case kFree:
            break;
        case kAddress:
            text += HexByte(value);
            break;
        case kTime:
            text += TimeText(value);
            break;
        case kCount:
            AppendNumber(value, text);
            break;
        case kMask1:
            AppendOutletList(value, 1, text);
            break;
        case kMask2:
            AppendOutletList(value, 2, text);
            break;
        case kAlarm:
        case kSupply:
            if (OperandInRange(operand, value)) {
                text +=
                    OperandNames(operand)[static_cast<std::size_t>(value - FirstNamed(operand))];
            }
            break;
    }
}

bool IsCms(std::string_view unit_type) { return unit_type == "CMS"; }

}  // namespace

std::span<const Instruction> InstructionSet() { return kInstructions; }

const Instruction* FindInstruction(std::uint8_t opcode) {
    const std::uint8_t row = kRowOfOpcode[opcode];
    return row == kNoRow ? nullptr : &kInstructions[row];
}

std::string_view ButtonTag(const Instruction& instruction) {
    return instruction.operand == kNone ? "00" : "Second Byte";
}

std::string_view ButtonCaption(const Instruction& instruction, std::string_view unit_type) {
    const bool other = !instruction.other_button.empty() && !IsCms(unit_type);
    return other ? instruction.other_button : instruction.button;
}

bool ButtonVisible(const Instruction& instruction, std::string_view unit_type) {
    if (instruction.button.empty()) return false;
    return instruction.shown == kAll || IsCms(unit_type);
}

std::vector<InsertButton> InsertButtons() {
    std::vector<InsertButton> buttons;
    for (const Instruction& row : kInstructions) {
        if (row.button.empty()) continue;
        std::optional<Colour> colour;
        if (row.back_colour != Instruction::kNormalColour) colour = row.back_colour;
        buttons.push_back(
            {row.opcode, std::string(row.button), colour, MaskBoxOfInsert(row.opcode) != 0});
    }
    return buttons;
}

std::uint8_t OutletOpcode(Effect effect, int outlet) {
    const auto row =
        std::find_if(kInstructions.begin(), kInstructions.end(), [effect](const Instruction& each) {
            return !each.outlet.empty() && each.effect == effect;
        });
    return static_cast<std::uint8_t>(row->opcode + outlet - 1);
}

int MaskBoxOfInsert(std::uint8_t opcode) {
    const Instruction* instruction = FindInstruction(opcode);
    return instruction == nullptr || instruction->button.empty() ? 0 : MaskGroup(opcode);
}

int MaskGroup(std::uint8_t opcode) {
    const Instruction* instruction = FindInstruction(opcode);
    if (instruction == nullptr) return 0;
    return instruction->operand == kMask1 ? 1 : instruction->operand == kMask2 ? 2 : 0;
}

std::span<const std::string_view> OperandNames(Operand operand) {
    if (operand == kAlarm) return kAlarms;
    if (operand == kSupply) return kSupplies;
    return {};
}

int FirstNamed(Operand operand) { return operand == kSupply ? 1 : 0; }

bool OperandInRange(Operand operand, std::uint8_t value) {
    switch (operand) {
        case kAddress:
            return value >= kFirstMacroAddress && value <= kLastJumpTarget;
        case kMask2:
            return value < 0x40;
        case kAlarm:
        case kSupply: {
            const auto names = static_cast<int>(OperandNames(operand).size());
            return value >= FirstNamed(operand) && value < FirstNamed(operand) + names;
        }
        default:
            return true;
    }
}

std::string CmdDecode(std::uint8_t first, std::uint8_t second, std::string_view unit_type) {
    std::string text;
    CmdDecode(first, second, unit_type, text);
    return text;
}

void CmdDecode(std::uint8_t first, std::uint8_t second, std::string_view unit_type,
               std::string& text) {
    const Instruction* instruction = FindInstruction(first);
    if (instruction == nullptr) {
        text = kIllegalOperation;
        return;
    }
    text = instruction->outlet;
    if (!instruction->outlet.empty()) AppendNumber((first & 0x0Fu) + 1, text);
    const bool other = !instruction->other_before.empty() && !IsCms(unit_type);
    text += other ? instruction->other_before : instruction->before;
    if (!instruction->hides_operand) AppendOperand(instruction->operand, second, text);
    text += instruction->after;
}

std::string OutletList(std::uint8_t second, int group) {
    std::string text;
    AppendOutletList(second, group, text);
    return text;
}

}  // namespace kestrane
