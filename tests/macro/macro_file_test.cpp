// Kinds, line ends and early ends of macro files. What the editor saves and loads stands in
// files.story.

#include "macro/macro_file.h"

#include <gtest/gtest.h>

#include <vector>

#include "text/text.h"

namespace kestrane {
namespace {

using Outcome = MacroFileResult::Outcome;

// The boxes and the image of a tool into which files are loaded.
class Tool : public MacroFileSink {
  public:
    void StoreByte(std::size_t index, std::uint8_t value) override {
        EXPECT_TRUE(image.Set(index, value));
        ++bytes_stored;
    }
    void CompareAndStoreTrigger(int row, const TriggerRow& fields) override {
        triggers.at(static_cast<std::size_t>(row)) = fields;
        ++triggers_stored;
    }

    std::string Save() const { return WriteMacroFile("test.sms", triggers, image, "CMS"); }

    MacroMemory image;
    TriggerRows triggers;
    int bytes_stored = 0;
    int triggers_stored = 0;
};

Tool SampleTool() {
    Tool tool;
    for (std::size_t i = 0; i < MacroMemory::kSize; ++i) {
        tool.image.Set(i, static_cast<std::uint8_t>(i * 37 + 11));
    }
    tool.image.Set(32, 0xC6);
    tool.image.Set(33, 0x03);
    for (int row = 0; row < kTriggerRows; ++row) {
        tool.triggers[static_cast<std::size_t>(row)] = {
            "Trigger" + Str(row), std::to_string(row), HexByte(static_cast<std::uint8_t>(16 + row)),
            row % 2 == 0};
    }
    return tool;
}

std::vector<std::string> Lines(const std::string& file) {
    std::vector<std::string> lines;
    LineReader reader(file);
    while (const auto line = reader.Next()) lines.emplace_back(*line);
    return lines;
}

std::string Join(const std::vector<std::string>& lines, const char* end = "\r\n") {
    std::string file;
    for (const std::string& line : lines) file += line + end;
    return file;
}

TEST(MacroFileReader, KindsTurnOnTheFirstTwoLines) {
    const auto kind = [](const char* content) { return KindOfMacroFile(content); };
    EXPECT_EQ(kind("'Kestrane\r\n'Macro Triggers\r\n"), MacroFileKind::kTriggersAndCode);
    EXPECT_EQ(kind("'Kestrane x\r\n'Macro Triggers"), MacroFileKind::kTriggersAndCode);
    EXPECT_EQ(kind("'Kestrane\r\n'Macro Triggers \r\n"), MacroFileKind::kCode);
    EXPECT_EQ(kind("'Kestrane\r\n'macro triggers\r\n"), MacroFileKind::kCode);
    EXPECT_EQ(kind("'Kestrane\r\n"), MacroFileKind::kCode);
    EXPECT_EQ(kind("'kestrane\r\n'Macro Triggers\r\n"), MacroFileKind::kBytes);
    EXPECT_EQ(kind("'Kestran\r\n'Macro Triggers\r\n"), MacroFileKind::kBytes);
    EXPECT_EQ(kind(""), MacroFileKind::kBytes);
}

TEST(MacroFileReader, CodeAloneIsReadWithoutItsChecksums) {
    const Tool saved = SampleTool();
    auto lines = Lines(saved.Save());
    lines.erase(lines.begin() + 1, lines.begin() + 10);  // keeps the code's head
    for (std::size_t i = 2; i < lines.size(); ++i) lines[i].resize(i % 2 ? 9 : 8);
    lines.insert(lines.begin() + 40, "' a comment");
    Tool loaded;
    EXPECT_EQ(ReadMacroFile(Join(lines), loaded).outcome, Outcome::kOk);
    EXPECT_EQ(loaded.triggers_stored, 0);
    for (std::size_t i = 32; i < 256; ++i) ASSERT_EQ(loaded.image.Get(i), saved.image.Get(i));
}

TEST(MacroFileReader, BytesOneALineReachTheFirstIndicesAndKnowNoComments) {
    std::vector<std::string> lines;
    for (int i = 0; i < 256; ++i) lines.push_back(HexByte(static_cast<std::uint8_t>(255 - i)));
    lines[5] = "'12";  // the first and the last character count
    lines[6] = "";
    lines[7] = "9";
    lines[8] = "ab";
    Tool loaded;
    EXPECT_EQ(ReadMacroFile(Join(lines), loaded), (MacroFileResult{Outcome::kOk, 256}));
    EXPECT_EQ(loaded.image.Get(0), 255);
    EXPECT_EQ(loaded.image.Get(5), 0x02);
    EXPECT_EQ(loaded.image.Get(6), 0x00);
    EXPECT_EQ(loaded.image.Get(7), 0x99);
    EXPECT_EQ(loaded.image.Get(8), 0x00) << "lower case digits count 0";
    EXPECT_EQ(loaded.image.Get(255), 0);
    EXPECT_EQ(loaded.image.Get(200), 55);
}

TEST(MacroFileReader, AnEarlyEndKeepsWhatWasStored) {
    const std::string file = SampleTool().Save();
    auto lines = Lines(file);
    lines.resize(20);
    Tool loaded;
    EXPECT_EQ(ReadMacroFile(Join(lines), loaded), (MacroFileResult{Outcome::kEndsEarly, 20}));
    EXPECT_EQ(loaded.bytes_stored, 18);
    EXPECT_EQ(ChecksumErrorText({Outcome::kEndsEarly, 20}), "");
    Tool empty;
    EXPECT_EQ(ReadMacroFile("", empty), (MacroFileResult{Outcome::kEndsEarly, 0}));
    // Cut at any byte: never anything but a fault, never more than was there.
    for (std::size_t size = 0; size + 3 < file.size(); ++size) {
        Tool cut;
        ASSERT_NE(ReadMacroFile(file.substr(0, size), cut).outcome, Outcome::kOk) << size;
    }
}

TEST(MacroFileReader, TakesAnyLineEnd) {
    const Tool saved = SampleTool();
    const auto lines = Lines(saved.Save());
    for (const char* end : {"\n", "\r", "\r\n"}) {
        std::string file = Join(lines, end);
        for (int cut = 0; cut < 2; ++cut) {
            Tool loaded;
            EXPECT_EQ(ReadMacroFile(file, loaded), (MacroFileResult{Outcome::kOk, 123}));
            EXPECT_EQ(loaded.triggers, saved.triggers);
            file.resize(file.rfind(lines.back()) + 79);
        }
    }
    LineReader reader("a\r\n\r\nb\n\rc");
    for (const char* line : {"a", "", "b", "", "c"}) EXPECT_EQ(reader.Next(), line);
    EXPECT_EQ(reader.Next(), std::nullopt);
    EXPECT_EQ(reader.number(), 5);
}

TEST(MacroFileWriter, NamesOfFiles) {
    EXPECT_EQ(NameWithoutFolders("C:\\Macros\\night.sms"), "night.sms");
    EXPECT_EQ(NameWithoutFolders("/home/macros/night.sms"), "night.sms");
    EXPECT_EQ(NameWithoutFolders("night.sms"), "night.sms");
    const std::string file = WriteMacroFile("a\r\nb", SampleTool().triggers, {}, "");
    EXPECT_TRUE(file.starts_with("'Kestrane Version 3 macro file - a  b\r\n'Macro Triggers\r\n"));
}

}  // namespace
}  // namespace kestrane
