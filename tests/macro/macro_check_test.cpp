#include "macro/macro_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "macro/macro_file.h"
#include "text/text.h"

namespace kestrane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Program {
    Program() { triggers.fill({"Name", "0", "10", true}); }

    Program& With(std::uint8_t address, std::uint8_t opcode, std::uint8_t second) {
        image.Set(std::size_t{2} * address, opcode);
        image.Set(std::size_t{2} * address + 1, second);
        return *this;
    }
    std::string File() const { return WriteMacroFile("p.sms", triggers, image, "CMS"); }

    MacroMemory image;
    TriggerRows triggers;
};

TEST(MacroCheck, ASoundFileHasNoFindings) {
    const Program program = Program()
                                .With(0x10, 0x01, 0x10)
                                .With(0x11, 0xC6, 0x03)
                                .With(0x12, 0xC7, 0x05)
                                .With(0x13, 0x4D, 0xFF)
                                .With(0x14, 0x55, 0x3F)
                                .With(0x7F, 0xA1, 0x7E);
    EXPECT_THAT(CheckMacroFile(program.File(), "CMS"), IsEmpty());
    EXPECT_EQ(KindOfMacroFile(program.File()), MacroFileKind::kTriggersAndCode);
}

TEST(MacroCheck, NamesEveryFaultWithItsLine) {
    Program program;
    program.triggers[1].name = "";
    program.With(0x10, 0x06, 0x00)
        .With(0x11, 0xC6, 0x04)
        .With(0x12, 0xC7, 0x00)
        .With(0x13, 0x01, 0x7F)
        .With(0x14, 0x62, 0x0F)
        .With(0x15, 0x59, 0x40)
        .With(0x16, 0x4E, 0x05);
    std::string file = program.File();
    file[file.rfind("7E 00") + 3] = '5';
    EXPECT_THAT(
        CheckMacroFile(file, "CMS"),
        ElementsAre(
            Finding{4, "checksum error in macro trigger 2, which has no name"},
            Finding{12, "address 10: illegal opcode 06"},
            Finding{13, "address 11: alarm status above 3: C6 04, Alarm status"},
            Finding{14, "address 12: preferred supply outside 1 to 5: C7 00, Preferred Supply:"},
            Finding{15, "address 13: jump outside 10 to 7E: 01 7F, Goto address 7F"},
            Finding{16,
                    "address 14: jump outside 10 to 7E: 62 0F, "
                    "Set GPI1 as input, low interrupt address 0F"},
            Finding{17,
                    "address 15: outlet mask with bits for outlets 15 and 16: 59 40, "
                    "Backup (B) lock off 9 - 14 ( 15 )"},
            Finding{18, "address 16: no outlet 15"}, Finding{122, "checksum error in macro code"},
            Finding{122, "address 7E: illegal opcode 50"}));
}

TEST(MacroCheck, FilesOfBytesAndEarlyEnds) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += i == 32 ? "C6\r\n" : i == 33 ? "09\r\n" : "00\r\n";
    EXPECT_EQ(KindOfMacroFile(bytes), MacroFileKind::kBytes);
    EXPECT_THAT(CheckMacroFile(bytes, ""),
                ElementsAre(Finding{34, "address 10: alarm status above 3: C6 09, Alarm status"}));
    bytes.replace(0, 2, "xy");
    EXPECT_THAT(CheckMacroFile(bytes.substr(0, 40), ""),
                ElementsAre(Finding{1, "no byte of two hexadecimal digits"},
                            Finding{11, "the file ends early"}));
    EXPECT_THAT(CheckMacroFile("", ""), ElementsAre(Finding{1, "the file ends early"}));
}

TEST(MacroCheck, CodeWithoutChecksums) {
    std::string file = "'Kestrane\r\n";
    for (int i = 0; i < 112; ++i) file += i == 3 ? "13 g0 00\n" : "10 00 00\n";
    const auto findings = CheckMacroFile(file, "");
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].line, 5);
    EXPECT_THAT(findings[0].text, HasSubstr("columns 4 to 8"));
}

}  // namespace
}  // namespace kestrane
