#include "macro/macro_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "macro/assembler.h"
#include "macro/macro_file.h"
#include "macro/program_text.h"
#include "text/text.h"

namespace kestrane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> Check(std::string_view content) {
    std::vector<std::string> lines;
    for (const Finding& finding : CheckMacroText(content, "CMS")) {
        lines.push_back(FindingLine(finding));
    }
    return lines;
}

std::string FileOf(std::string_view source) {
    const MacroProgram program = Assemble(source).program;
    return WriteMacroFile("p.sms", program.Rows(), program.image, "CMS");
}

TEST(MacroCheck, NamesEveryFaultOfAFileWithItsLine) {
    std::string file = FileOf(
        "trigger 1 \"Name\" enabled 10\n"
        "BYTES 06 00\nBYTES C6 04\nBYTES C7 00\nBYTES 01 7F\nBYTES 62 0F\nBYTES 59 40\n"
        "BYTES 4E 05\n");
    file[file.rfind("7E 00") + 3] = '5';
    EXPECT_THAT(
        Check(file),
        ElementsAre(
            "line 12: address 10: illegal opcode 06",
            "line 13: address 11: alarm status above 3: C6 04, Alarm status",
            "line 14: address 12: preferred supply outside 1 to 5: C7 00, Preferred Supply:",
            "line 15: address 13: jump outside 10 to 7E: 01 7F, Goto address 7F",
            "line 16: address 14: jump outside 10 to 7E: 62 0F, "
            "Set GPI1 as input, low interrupt address 0F",
            "line 17: address 15: outlet mask with bits for outlets 15 and 16: 59 40, "
            "Backup (B) lock off 9 - 14 ( 15 )",
            "line 18: address 16: no outlet 15", "line 122: checksum error in macro code",
            "line 122: address 7E: illegal opcode 50"));
    EXPECT_THAT(Check(FileOf("Stop")), IsEmpty());
}

TEST(MacroCheck, FindsTriggersThatLoadWrong) {
    const std::pair<TriggerRow, const char*> kRows[] = {
        {{"", "0", "10", false}, "checksum error in macro trigger 2, which has no name"},
        {{"A", "", "10", false}, "trigger 2 has no page"},
        {{"A", "10", "10", false}, "trigger 2 has a page that is not a number from 0 to 9"},
        {{"A", "x", "10", false}, "trigger 2 has a page that is not a number from 0 to 9"},
        {{"A", "0", "7F", true}, "trigger 2 is enabled and its address \"7F\" is not one from 10"},
        {{"A", "0", "0F", true}, "trigger 2 is enabled and its address \"0F\""},
        {{"A", "0", "G0", true}, "trigger 2 is enabled and its address \"G0\""},
    };
    for (const auto& [row, text] : kRows) {
        TriggerRows rows;
        rows.fill({"Name", "9", "7F", false});
        rows[1] = row;
        const auto lines = Check(WriteMacroFile("p.sms", rows, {}, "CMS"));
        ASSERT_FALSE(lines.empty()) << text;
        EXPECT_THAT(lines[0], testing::StartsWith(std::string("line 4: ") + text));
    }
    std::string file = FileOf("trigger 1 \"A\" enabled 10\nStop");
    for (const char* state : {"enabled", "Enable1"}) {
        std::string other = file;
        other.replace(other.find("Enabled"), 7, state);
        const auto sum = SumOfCharacters(Trim(other.substr(other.find("\nA") + 1, 75)));
        other.replace(
            other.find("\nA") + 76, 4,
            HexByte(static_cast<std::uint8_t>(sum >> 8)) + HexByte(static_cast<std::uint8_t>(sum)));
        EXPECT_THAT(Check(other), ElementsAre(HasSubstr("line 3: the state of trigger 1 is \"" +
                                                        std::string(state) + "\"")));
    }
}

TEST(MacroCheck, FilesOfBytesOfCodeAloneAndEarlyEnds) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += i == 32 ? "C6\r\n" : i == 33 ? "09\r\n" : "00\r\n";
    EXPECT_THAT(Check(bytes), ElementsAre(HasSubstr("line 33: address 10: alarm status above 3")));
    bytes.replace(4, 2, "0a");
    EXPECT_THAT(Check(bytes.substr(0, 40)),
                ElementsAre("line 2: the line is not two hexadecimal digits",
                            "line 11: the file ends early"));
    std::string code = "'Kestrane\r\n";
    for (int i = 0x10; i < 0x80; ++i) {
        code += i == 0x13 ? "13 g0 00\n" : i == 0x20 ? "21 00 00\n" : "   00 00\n";
    }
    EXPECT_THAT(Check(code),
                ElementsAre("line 5: columns 4 to 8 are not two bytes of two hexadecimal digits",
                            "line 18: the line says address 21, but is loaded at 20"));
}

TEST(MacroCheck, SourceIsToldByItsContent) {
    EXPECT_TRUE(IsSourceText("; 'Kestrane"));
    EXPECT_TRUE(IsSourceText("00 \n"));
    EXPECT_TRUE(IsSourceText(""));
    EXPECT_FALSE(IsSourceText("c6\r\n"));
    EXPECT_FALSE(IsSourceText("'Kestranes"));
    EXPECT_THAT(Check("Stop\n GOTO nowhere"),
                ElementsAre(HasSubstr("line 2, column 7: label nowhere is not defined")));
}

// In a file a stop after a stop was never programmed; the first one was.
TEST(MacroFlow, AnImageShowsWhatWasProgrammed) {
    const auto warnings = [](std::string_view source) {
        std::vector<std::string> kinds;
        for (const Finding& each : CheckMacroText(FileOf(source), "CMS")) {
            kinds.push_back(std::string(each.kind) + " " + std::to_string(each.place.line));
        }
        return kinds;
    };
    EXPECT_THAT(warnings("ON 1 1\nGOTO 12"), IsEmpty());
    EXPECT_THAT(warnings("ON 1 1\nGOTO 13"), ElementsAre("unprogrammed 13"));
    EXPECT_THAT(warnings("trigger 3 \"A\" enabled 11\nON 1 1"), IsEmpty());
    EXPECT_THAT(warnings("trigger 3 \"A\" enabled 12\nON 1 1"), ElementsAre("unprogrammed 5"));
}

}  // namespace
}  // namespace kestrane
