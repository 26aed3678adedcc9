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

std::vector<std::string> Faults(std::string_view source) {
    std::vector<std::string> texts;
    for (const SourceFault& fault : Assemble(source).faults) {
        texts.push_back(std::to_string(fault.place.line) + ":" +
                        std::to_string(fault.place.column) + ": " +
                        (fault.is_warning ? "warning: " : "") + fault.text);
    }
    return texts;
}

std::string OneLine(const std::string& line) {
    const Assembly assembly = Assemble(line + "\nhere: Stop");
    return assembly.Good() ? Bytes(assembly.program, 0x10) : assembly.faults[0].text;
}

TEST(Assembler, EachWayToWriteAnInstruction) {
    const std::pair<const char*, const char*> kLines[] = {
        {"Alarm status Flash and Beep", "C6 03"},
        {"  alarm\tSTATUS   beep only ; and a remark", "C6 01"},
        {"ALARM STATUS 2", "C6 02"},
        {"Turn on outlet 1 after 0.5 seconds, skip if already on", "40 05"},
        {"Turn off outlet  14 after fixed delay of 63.0 seconds", "1D 7F"},
        {"ON 2 0.5", "41 05"},
        {"on 3 2 always", "22 14"},
        {"OFF 14 100", "3D 8A"},
        {"off 1 0 ALWAYS", "10 00"},
        {"ALL OFF 0.5", "51 05"},
        {"WAIT 10", "02 4A"},
        {"Wait for 1.0 seconds", "02 0A"},
        {"WAIT 70.", "02 87"},
        {"WAIT .5", "02 05"},
        {"COUNT1 LOAD 3", "A0 03"},
        {"Load counter 2 with 255", "B0 FF"},
        {"CH. BACK DELAY 7", "C5 07"},
        {"Change back delay 7 x10 seconds", "C5 07"},
        {"MAIN (A) LOCK OFF 1-8 (1 3 5)", "56 15"},
        {"Main (A) lock off 1 - 8 ( 1 - 3 )", "56 05"},
        {"Main (A) lock off 1 - 8 ()", "56 00"},
        {"BACK (B) OUTLETS 9-14 (9-14)", "E9 21"},
        {"MAIN (A) MACROS (8)", "E7 80"},
        {"Main (A) web misc not used", "E8 00"},
        {"BYTES e8 05", "E8 05"},
        {"Preferred Supply: B non sync", "C7 05"},
        {"PREF SUPPLY A sync", "C7 01"},
        {"REJECT CYCLE", "53 00"},
        {"GOTO here", "01 11"},
        {"Goto address HERE", "01 11"},
        {"goto 7e", "01 7E"},
        {"GOTO .", "01 10"},
        {"GPI1 LOW", "60 00"},
        {"GPI1 LOW INT here", "62 11"},
        {"GPI12 HIGH", "71 00"},
        {"COUNT1 DEC here", "A1 11"},
        {"Increment counter 1, if 255 goto address 20", "A2 20"},
        {"CHANGE OVER INT here", "C0 11"},
        {"SUPPLY LOSS INT here", "C0 11"},
        {"Set supply resume interrupt address to here", "C1 11"},
        {"Set change back interrupt address to here", "C1 11"},
        {"ON/OFF OFF INT here", "D3 11"},
    };
    for (const auto& [line, bytes] : kLines) EXPECT_EQ(OneLine(line), bytes) << line;
}

// Each source with its faults: column of the wrong word, and what would be right.
TEST(Assembler, FaultsNameTheWordThatIsWrong) {
    const std::pair<const char*, const char*> kFaults[] = {
        {"  Trun on outlet 1", "1:3: \"Trun\" does not begin an instruction"},
        {"Turn on outllet 1", "1:9: \"outlet\" is expected here"},
        {"Turn on outlet 1 after 0.5 seconds", "1:28: \"seconds,\" is expected here"},
        {"Wait for", "1:9: an operand is missing"},
        {"Goto address", "1:6: label address is not defined"},
        {"Stopp", "1:1: \"Stopp\""},
        {"Stop 5", "1:6: \"5\" is too much"},
        {"ON 15 0.5", "1:4: \"15\" is wrong here, an outlet is a number from 1 to 14"},
        {"Turn off outlet 16 after 0.1 seconds, skip if already off", "1:17: \"16\" is wrong"},
        {"ON 1 0.25", "1:6: \"0.25\": no code holds it exactly, the nearest are 0.2 and 0.3"},
        {"WAIT 64", "1:6: \"64\": no code holds it exactly, the nearest are 63.0 and 70.0"},
        {"WAIT 6.4", "the nearest are 6.3 and 7.0"},
        {"WAIT 6301", "the longest is 6300.0"},
        {"WAIT -1", "1:6: \"-1\": it is not a number of seconds"},
        {"WAIT 1e3", "1:6:"},
        {"ON 1 1 SOMETIMES", "1:8: \"ALWAYS\" is expected here"},
        {"COUNT1 LOAD 256", "1:13: \"256\" is wrong here, the operand is a number from 0 to 255"},
        {"MAIN (A) LOCK OFF 1-8 (1 9)", "1:26: \"9\" is not in this list, which takes 1 to 8"},
        {"MAIN (A) LOCK OFF 9-14 (9 15)", "1:27: \"15\" is not in this list, which takes 9 to 14"},
        {"MAIN (A) LOCK OFF 1-8 (1, 2)", "1:24: \"1,\""},
        {"MAIN (A) LOCK OFF 1-8 (1", "1:25: \")\" is missing"},
        {"ALARM STATUS loud", "1:14: one of \"Silent\", \"Beep only\", \"Flash only\""},
        {"PREF SUPPLY 6", "1:13:"},
        {"BYTES 1 22", "1:7: two hexadecimal digits are expected here"},
        {"GOTO 0F", "1:6: address 0F is out of range, addresses to go to are 10 to 7E"},
        {"GOTO 7F", "1:6:"},
        {"GOTO 1st", "1:6: \"1st\": an address is a label"},
        {"GOTO nowhere", "1:6: label nowhere is not defined; write \"nowhere:\""},
        {"a1:\nStop", "1:1: \"a1\" is not a label"},
        {"1st: Stop", "1:1: \"1st\" is not a label"},
        {"one: Stop\n Two:\nOne: Stop", "3:1: label One stands in line 1 already"},
        {"at 80: Stop", "1:4: \"80\" is wrong here, \"at\" takes two hexadecimal digits from 10"},
        {"at 0F:", "1:4:"},
        {"at 40 Stop", "1:7: \":\" is expected"},
        {"Stop\nat 10: Stop", "2:8: address 10 is filled by line 1 already"},
        {"at 7F: Stop\n Stop\n Stop", "2:2: the program is full"},
        {"at 7F: last: Stop\nat 10: GOTO last", "2:13: label last is beyond 7E"},
        {"\xFF Stop", "1:1: this is not UTF-8"},
        {"Stop \xC4\x80", "1:6: the unit has no such character"},
        {"", "1:1: nothing stands here"},
        {"; only a remark", "1:1: nothing stands here"},
        {"trigger 9 \"A\" enabled 10", "1:9: a trigger has a number from 1 to 8"},
        {"trigger 1 \"A\" enabled 10\ntrigger 1 \"B\" enabled 10",
         "2:9: trigger 1 stands in line 1"},
        {"trigger 1 A enabled 10", "1:11: a name in double quotes"},
        {"trigger 1 \"Fifteen letters\" enabled 10", "1:11: a name has at most 14"},
        {"trigger 1 \"\" enabled 10", "1:11: a name that is empty"},
        {"trigger 1 \" A\" enabled 10", "1:11: a name that is empty or begins with a blank"},
        {"trigger 1 \"'A\" enabled 10", "1:11: a name that is empty or begins with a blank or an"},
        {"trigger 1 \"A enabled 10", "1:11: the name has no closing quote"},
        {"trigger 1 \"A\\n\" enabled 10", "1:13: a backslash stands before"},
        {"trigger 1 \"A\" page 10 enabled 10", "1:20: a page is a number from 0 to 9"},
        {"trigger 1 \"A\" on 10", "1:15: \"enabled\" or \"disabled\" is expected here"},
        {"trigger 1 \"A\" enabled 7F", "1:23: address 7F is out of range"},
        {"trigger 1 \"A\" enabled x", "1:23: label x is not defined"},
        {"trigger 1 \"A\" enabled 10 x", "1:26: \"x\" is too much"},
    };
    for (const auto& [source, fault] : kFaults) {
        EXPECT_THAT(Faults(source), ElementsAre(HasSubstr(fault))) << source;
    }
}

TEST(Assembler, TellsAllFaultsInOneGoInTheOrderOfTheText) {
    EXPECT_THAT(Faults("GOTO nowhere\r\nStopp\rOFF 0 1\n\tWAIT 0.55\nStop"),
                ElementsAre(HasSubstr("1:6: label nowhere"), HasSubstr("2:1: \"Stopp\""),
                            HasSubstr("3:5: \"0\""), HasSubstr("4:7: \"0.55\"")));
    EXPECT_THAT(Faults("at 7F: GOTO 10"),
                ElementsAre(HasSubstr("1:8: warning: an upload clears the second byte at 7F")));
    EXPECT_THAT(Faults("at 7F: GOTO ."),
                ElementsAre(HasSubstr("1:8: warning"), HasSubstr("1:13: a jump does not reach")));
    EXPECT_THAT(Faults("at 7F: WAIT 0"), IsEmpty());
    EXPECT_THAT(Faults("trigger 9 \"Fifteen letters\" page 10 on nowhere 1"),
                ElementsAre(HasSubstr("1:9: "), HasSubstr("1:11: "), HasSubstr("1:34: a page"),
                            HasSubstr("1:37: \"enabled\""), HasSubstr("1:40: label nowhere"),
                            HasSubstr("1:48: \"1\" is too much")));
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
            ASSERT_FALSE(read.fault) << line;
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
