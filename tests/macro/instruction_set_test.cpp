#include "macro/instruction_set.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "macro/time_code.h"
#include "text/text.h"

namespace kestrane {
namespace {

// Each opcode but those of the outlets, with a second byte and the text of both.
struct Example {
    int first;
    int second;
    const char* text;
};

// clang-format off
const Example kExamples[] = {
    {0x00, 0xFF, "Stop"},
    {0x01, 0x2A, "Goto address 2A"},
    {0x02, 0x05, "Wait for 0.5 seconds"},
    {0x03, 0x09, "GPI Disable"},
    {0x04, 0x00, "GPI Enable"},
    {0x05, 0x00, "GPI 1-4 interrupt address and inhibit reset"},
    {0x51, 0xFF, "All outlets off after fixed delay of 6300.0 seconds"},
    {0x52, 0x00, "All outlets on after fixed delay of 0.0 seconds"},
    {0x53, 0x11, "Reject serial/TCP requests for cycle timers"},
    {0x54, 0x11, "Accept serial/TCP requests for cycle timers"},
    {0x55, 0x03, "Main (A) lock off 9 - 14 ( 9 - 10 )"},
    {0x56, 0x00, "Main (A) lock off 1 - 8 ( )"},
    {0x57, 0xC0, "Main (A) latch on 9 - 14 ( 15 - 16 )"},
    {0x58, 0x05, "Main (A) latch on 1 - 8 ( 1 - 3 )"},
    {0x59, 0x20, "Backup (B) lock off 9 - 14 ( 14 )"},
    {0x5A, 0x80, "Backup (B) lock off 1 - 8 ( 8 )"},
    {0x5B, 0x01, "Backup (B) latch on 9 - 14 ( 9 )"},
    {0x5C, 0xFF, "Backup (B) latch on 1 - 8 ( 1 - 2 - 3 - 4 - 5 - 6 - 7 - 8 )"},
    {0x5D, 0x00, "Reject serial/TCP changes to lock/latch"},
    {0x5E, 0x00, "Accept serial/TCP changes to lock/latch"},
    {0x60, 0x00, "Set GPI1 as low output"},
    {0x61, 0x00, "Set GPI1 as high output"},
    {0x62, 0x0F, "Set GPI1 as input, low interrupt address 0F"},
    {0x63, 0x7E, "Set GPI1 as input, high interrupt address 7E"},
    {0x64, 0x41, "Inhibit GPI1 interrupt for 1.0 seconds"},
    {0x70, 0x00, "Set GPI2 as low output"},
    {0x71, 0x00, "Set GPI2 as high output"},
    {0x72, 0x10, "Set GPI2 as input, low interrupt address 10"},
    {0x73, 0x10, "Set GPI2 as input, high interrupt address 10"},
    {0x74, 0x41, "Inhibit GPI2 interrupt for 1.0 seconds"},
    {0x80, 0x00, "Set GPI3 as low output"},
    {0x81, 0x00, "Set GPI3 as high output"},
    {0x82, 0x10, "Set GPI3 as input, low interrupt address 10"},
    {0x83, 0x10, "Set GPI3 as input, high interrupt address 10"},
    {0x84, 0x41, "Inhibit GPI3 interrupt for 1.0 seconds"},
    {0x90, 0x00, "Set GPI4 as low output"},
    {0x91, 0x00, "Set GPI4 as high output"},
    {0x92, 0x10, "Set GPI4 as input, low interrupt address 10"},
    {0x93, 0x10, "Set GPI4 as input, high interrupt address 10"},
    {0x94, 0x41, "Inhibit GPI4 interrupt for 1.0 seconds"},
    {0xA0, 0x05, "Load counter 1 with  5"},
    {0xA1, 0x10, "Decrement counter 1, if zero goto address 10"},
    {0xA2, 0x10, "Increment counter 1, if 255 goto address 10"},
    {0xB0, 0xFF, "Load counter 2 with  255"},
    {0xB1, 0x10, "Decrement counter 2, if zero goto address 10"},
    {0xB2, 0x10, "Increment counter 2, if 255 goto address 10"},
    {0xC0, 0x10, "Set change over interrupt address to 10"},
    {0xC1, 0x10, "Set change back interrupt address to 10"},
    {0xC2, 0x00, "Main supply sense allowable off time  0 samples"},
    {0xC3, 0x0A, "Reserve supply sense allowable off time  10 samples"},
    {0xC4, 0x64, "Change back phase window  100 samples"},
    {0xC5, 0x03, "Change back delay  3 x10 seconds"},
    {0xC6, 0x00, "Alarm status Silent"},
    {0xC6, 0x01, "Alarm status Beep only"},
    {0xC6, 0x02, "Alarm status Flash only"},
    {0xC6, 0x03, "Alarm status Flash and Beep"},
    {0xC6, 0x07, "Alarm status "},
    {0xC7, 0x00, "Preferred Supply: "},
    {0xC7, 0x01, "Preferred Supply: A sync"},
    {0xC7, 0x02, "Preferred Supply: B sync"},
    {0xC7, 0x03, "Preferred Supply: No preference"},
    {0xC7, 0x04, "Preferred Supply: A non sync"},
    {0xC7, 0x05, "Preferred Supply: B non sync"},
    {0xC7, 0x06, "Preferred Supply: "},
    {0xD2, 0x1A, "Set on/off switch on interrupt address 1A"},
    {0xD3, 0x2A, "Set on/off switch off interrupt address 2A"},
    {0xD4, 0x81, "Inhibit on/off switch for 10.0 seconds"},
    {0xE5, 0x3F, "Main (A) control inhibit 9 - 14 ( 9 - 10 - 11 - 12 - 13 - 14 )"},
    {0xE6, 0x81, "Main (A) control inhibit 1 - 8 ( 1 - 8 )"},
    {0xE7, 0x02, "Main (A) macro inhibit ( 2 )"},
    {0xE8, 0xFF, "Main (A) web misc not used"},
    {0xE9, 0x02, "Back (B) control inhibit 9 - 14 ( 10 )"},
    {0xEA, 0x02, "Back (B) control inhibit 1 - 8 ( 2 )"},
    {0xEB, 0x00, "Back (B) macro inhibit ( )"},
    {0xEC, 0xFF, "Back (B) web misc not used"},
};
// clang-format on

std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }

TEST(CmdDecode, TextsOfTheInstructions) {
    for (const auto& [first, second, text] : kExamples) {
        EXPECT_EQ(CmdDecode(Byte(first), Byte(second), "CMS"), text);
    }
    EXPECT_EQ(CmdDecode(0x10, 0x0A, ""), "Turn off outlet  1 after fixed delay of 1.0 seconds");
    EXPECT_EQ(CmdDecode(0x2D, 0x41, ""), "Turn on outlet  14 after fixed delay of 1.0 seconds");
    EXPECT_EQ(CmdDecode(0x39, 0x05, ""),
              "Turn off outlet  10 after 0.5 seconds, skip if already off");
    EXPECT_EQ(CmdDecode(0x4F, 0x01, ""),
              "Turn on outlet  16 after 0.1 seconds, skip if already on");
}

TEST(CmdDecode, WhatTheExamplesDoNotHoldIsIllegalForEveryPair) {
    std::set<int> legal;
    for (int outlet = 0x10; outlet < 0x50; ++outlet) legal.insert(outlet);
    for (const Example& example : kExamples) legal.insert(example.first);
    std::string text = "left over";
    for (int pair = 0; pair < 65536; ++pair) {
        const int first = pair >> 8;
        for (const char* unit_type : {"", "CMS", "636"}) {
            CmdDecode(Byte(first), Byte(pair), unit_type, text);
            ASSERT_EQ(text == "ILLEGAL OPERATION", !legal.contains(first)) << std::hex << pair;
            ASSERT_EQ(text, CmdDecode(Byte(first), Byte(pair), unit_type));
        }
    }
    EXPECT_EQ(legal.size(), 64u + 65u);
}

TEST(CmdDecode, OutletNumberAndDelayOfEveryOutletInstruction) {
    for (int pair = 0x1000; pair < 0x5000; ++pair) {
        const int row = pair >> 12;
        const std::string time = TimeText(Byte(pair));
        const std::string state = row % 2 ? "off" : "on";
        const std::string delay = row <= 2
                                      ? " after fixed delay of " + time + " seconds"
                                      : " after " + time + " seconds, skip if already " + state;
        ASSERT_EQ(CmdDecode(Byte(pair >> 8), Byte(pair), "636"),
                  "Turn " + state + " outlet " + Str((pair >> 8 & 15) + 1) + delay);
    }
}

TEST(CmdDecode, OnlyTwoOpcodesTurnOnTheUnitType) {
    for (int first = 0; first < 256; ++first) {
        const bool differs =
            CmdDecode(Byte(first), 0x20, "CMS") != CmdDecode(Byte(first), 0x20, "");
        EXPECT_EQ(differs, first == 0xC0 || first == 0xC1) << first;
        EXPECT_EQ(CmdDecode(Byte(first), 0x20, "636"), CmdDecode(Byte(first), 0x20, ""));
    }
    EXPECT_EQ(CmdDecode(0xC0, 0x20, "636"), "Set supply loss interrupt address to 20");
    EXPECT_EQ(CmdDecode(0xC1, 0x20, ""), "Set supply resume interrupt address to 20");
}

TEST(OutletList, NumbersAllEightBits) {
    EXPECT_EQ(OutletList(0x05, 1), " 1 - 3");
    EXPECT_EQ(OutletList(0x03, 2), " 9 - 10");
    EXPECT_EQ(OutletList(0xC0, 2), " 15 - 16");
    EXPECT_EQ(OutletList(0x00, 2), "");
}

TEST(InstructionTable, WalkFindsEveryRowInOrder) {
    int last = -1;
    for (const Instruction& row : InstructionSet()) {
        EXPECT_GT(row.opcode, last);
        last = row.opcode;
        EXPECT_EQ(FindInstruction(row.opcode), &row);
        const bool plain = row.operand == Operand::kNone;
        EXPECT_EQ(ButtonTag(row), plain ? "00" : "Second Byte") << row.button;
    }
    EXPECT_EQ(FindInstruction(0x4F), FindInstruction(0x40));
    EXPECT_EQ(FindInstruction(0x50), nullptr);
    EXPECT_EQ(FindInstruction(0xFF), nullptr);
}

TEST(InstructionTable, MaskBoxesOfInsertAndDecode) {
    const std::set<int> box1 = {230, 231, 234, 235, 86, 88, 90, 92};
    const std::set<int> box2 = {229, 233, 85, 87, 89, 91};
    std::set<int> ticks1 = box1;
    ticks1.insert({232, 236});
    for (int opcode = 0; opcode < 256; ++opcode) {
        EXPECT_EQ(MaskBoxOfInsert(Byte(opcode)), box1.contains(opcode)   ? 1
                                                 : box2.contains(opcode) ? 2
                                                                         : 0)
            << opcode;
        EXPECT_EQ(MaskGroup(Byte(opcode)), ticks1.contains(opcode) ? 1
                                           : box2.contains(opcode) ? 2
                                                                   : 0)
            << opcode;
    }
}

TEST(InstructionTable, ButtonsByUnitType) {
    std::set<int> hidden;
    int buttons = 0;
    for (const Instruction& row : InstructionSet()) {
        if (row.button.empty()) continue;
        ++buttons;
        EXPECT_TRUE(ButtonVisible(row, "CMS")) << row.button;
        EXPECT_EQ(ButtonVisible(row, "636"), ButtonVisible(row, ""));
        if (!ButtonVisible(row, "")) hidden.insert(row.opcode);
    }
    EXPECT_EQ(buttons, 62);
    EXPECT_EQ(hidden, (std::set<int>{192, 193, 194, 195, 196, 197, 199}));
    EXPECT_EQ(ButtonCaption(*FindInstruction(0xC0), "CMS"), "CHANGE OVER INT");
    EXPECT_EQ(ButtonCaption(*FindInstruction(0xC1), "636"), "SUPPLY BACK INT");
    EXPECT_EQ(ButtonCaption(*FindInstruction(0x91), ""), "GPI14 HIGH");
    EXPECT_EQ(ButtonCaption(*FindInstruction(0xEB), ""), "BACK (B)  MACROS");
    EXPECT_FALSE(ButtonVisible(*FindInstruction(0xE8), "CMS"));
}

TEST(InstructionTable, BackColours) {
    std::map<std::uint32_t, int> count;
    for (const Instruction& row : InstructionSet()) {
        if (!row.button.empty()) ++count[row.back_colour];
        if (row.group == InstructionGroup::kLocks || row.group == InstructionGroup::kSwitch) {
            EXPECT_EQ(row.back_colour, 0xC0FFC0u) << row.button;
        }
    }
    EXPECT_EQ(FindInstruction(0x00)->back_colour, 0xC0FFFFu);
    for (int opcode : {0x51, 0x5D, 0x5E}) {
        EXPECT_EQ(FindInstruction(Byte(opcode))->back_colour, 0xC0C0FFu);
    }
    for (int opcode : {0x03, 0x04, 0x52, 0x53, 0x54, 0xC6, 0xE5}) {
        EXPECT_EQ(FindInstruction(Byte(opcode))->back_colour, 0xC0FFC0u);
    }
    EXPECT_EQ(count[0xC0FFFF], 1);
    EXPECT_EQ(count[0xC0C0FF], 3);
    EXPECT_EQ(count[0xC0FFC0], 30);
}

TEST(OperandInRange, Edges) {
    EXPECT_FALSE(OperandInRange(Operand::kAddress, 0x0F));
    EXPECT_TRUE(OperandInRange(Operand::kAddress, 0x10));
    EXPECT_TRUE(OperandInRange(Operand::kAddress, 0x7E));
    EXPECT_FALSE(OperandInRange(Operand::kAddress, 0x7F));
    EXPECT_TRUE(OperandInRange(Operand::kAlarm, 3));
    EXPECT_FALSE(OperandInRange(Operand::kAlarm, 4));
    EXPECT_FALSE(OperandInRange(Operand::kSupply, 0));
    EXPECT_TRUE(OperandInRange(Operand::kSupply, 5));
    EXPECT_FALSE(OperandInRange(Operand::kSupply, 6));
    EXPECT_TRUE(OperandInRange(Operand::kMask2, 0x3F));
    EXPECT_FALSE(OperandInRange(Operand::kMask2, 0x40));
    EXPECT_TRUE(OperandInRange(Operand::kMask1, 0xFF));
}

}  // namespace
}  // namespace kestrane
