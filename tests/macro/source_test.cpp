// Source text to programs and back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "macro/assembler.h"
#include "macro/disassembler.h"
#include "macro/instruction_reader.h"
#include "macro/instruction_set.h"
#include "text/text.h"

namespace kestrane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }

// "10: C6 03", one for each address that holds something or is labelled so.
std::string Bytes(const MacroProgram& program, int address) {
    return HexByte(program.image.Opcode(Byte(address))) + " " +
           HexByte(program.image.SecondByte(Byte(address)));
}

TEST(Assembler, LabelsAtAndTriggersMakeAProgram) {
    const Assembly assembly = Assemble(
        "\xEF\xBB\xBF; the first line\n"
        "trigger 2 \"A \\\"\\\\ \xC3\xBC;\" page 3 ENABLED Main_1 ; remark\n"
        "trigger 8 \"Off\" disabled 00\n"
        "MAIN_1: other: GOTO at_40\n"
        "  at: GOTO 40\n"
        "at 40:\n"
        "at_40 : GOTO OTHER\n"
        "at 20: GOTO at");
    EXPECT_THAT(assembly.faults, IsEmpty());
    const MacroProgram& program = assembly.program;
    EXPECT_EQ(Bytes(program, 0x10), "01 40");
    EXPECT_EQ(Bytes(program, 0x11), "01 40");
    EXPECT_EQ(Bytes(program, 0x40), "01 10");
    EXPECT_EQ(Bytes(program, 0x20), "01 11");
    EXPECT_EQ(program.programmed.count(), 4u);
    EXPECT_EQ(program.places[0x40].line, 7);
    EXPECT_EQ(program.places[0x40].column, 9);
    const TriggerRows rows = program.Rows();
    EXPECT_EQ(rows[1], (TriggerRow{"A \"\\ \xFC;", "3", "10", true}));
    EXPECT_EQ(rows[7], (TriggerRow{"Off", "0", "00", false}));
    EXPECT_EQ(rows[0], (TriggerRow{"Macro 1", "0", "00", false}));
    EXPECT_EQ(program.labels.at("MAIN_1"), 0x10);
}

TEST(Disassembler, EveryInstructionComesBack) {
    for (const char* unit_type : {"CMS", "636"}) {
        for (int pair = *unit_type == 'C' ? 0 : 0xC000; pair < 0x10000; ++pair) {
            const std::string line = InstructionSource(Byte(pair >> 8), Byte(pair), unit_type);
            const ReadInstruction read = ReadInstructionText(line);
            ASSERT_TRUE(read.faults.empty()) << line;
            ASSERT_EQ(read.opcode << 8 | read.second, pair) << line;
        }
    }
}

TEST(Disassembler, WhatATextWouldNotGiveBackIsBytes) {
    const std::pair<int, const char*> kSources[] = {
        {0x0000, "Stop"},
        {0x0005, "BYTES 00 05"},
        {0x0241, "BYTES 02 41"},
        {0x0280, "BYTES 02 80"},
        {0x4E05, "BYTES 4E 05"},
        {0x5540, "BYTES 55 40"},
        {0x5301, "BYTES 53 01"},
        {0xE805, "BYTES E8 05"},
        {0x0600, "BYTES 06 00"},
        {0xC604, "BYTES C6 04"},
        {0xC700, "BYTES C7 00"},
        {0x017F, "BYTES 01 7F"},
        {0x020A, "Wait for 1.0 seconds"},
        {0x4005, "Turn on outlet 1 after 0.5 seconds, skip if already on"},
        {0x5605, "Main (A) lock off 1 - 8 ( 1 - 3 )"},
    };
    for (const auto& [pair, text] : kSources) {
        EXPECT_EQ(InstructionSource(Byte(pair >> 8), Byte(pair), "CMS"), text);
    }
}

TEST(Disassembler, NamesTargetsAndTriggersAndLeavesStopsToAt) {
    MacroProgram program =
        Assemble(
            "trigger 1 \"All on\" enabled 1A\n"
            "trigger 3 \"Odd \\\"\" page 2 disabled 30\n"
            "trigger 4 \"Hold\" disabled 00\n"
            "Stop\n"
            "ON/OFF ON INT 1A\nStop\nat 1A: ON 1 0.5\nCOUNT1 DEC 10\nGOTO 2C\nat 2D: Stop")
            .program;
    EXPECT_EQ(Disassemble(program, "CMS"),
              "trigger 1 \"All on\" enabled All_on\n"
              "trigger 3 \"Odd \\\"\" page 2 disabled Odd\n"
              "trigger 4 \"Hold\" disabled 00\n"
              "\n"
              "start:\n"
              "        Stop\n"
              "        Set on/off switch on interrupt address All_on\n"
              "        Stop\n"
              "at 1A:\n"
              "All_on:\n"
              "        Turn on outlet 1 after 0.5 seconds, skip if already on\n"
              "        Decrement counter 1, if zero goto address start\n"
              "        Goto address to_2C\n"
              "        Stop\n"
              "at 2C:\n"
              "to_2C:\n"
              "at 30:\n"
              "Odd:\n");
    // What the text can't hold is a remark, and the rest comes back.
    program.triggers[3]->row.page = "A";
    const std::string with_remark = Disassemble(program, "CMS");
    EXPECT_THAT(with_remark, HasSubstr("\n; trigger 4 \"Hold\" page A disabled 00 ; a page is a"));
    EXPECT_TRUE(Assemble(with_remark).program.image == program.image);
}

TEST(Disassembler, RandomImagesComeBack) {
    std::mt19937 random(5);
    for (int round = 0; round < 150; ++round) {
        MacroProgram program;
        for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; ++i) {
            program.image.Set(i, random() % 3 == 0 ? Byte(0) : Byte(static_cast<int>(random())));
        }
        const std::string source = Disassemble(program, round % 2 ? "CMS" : "");
        const Assembly again = Assemble(source);
        ASSERT_TRUE(again.Good()) << source;
        ASSERT_EQ(again.program.image, program.image) << source;
    }
}

}  // namespace
}  // namespace kestrane
