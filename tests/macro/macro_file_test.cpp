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
        TriggerRow& boxes = triggers.at(static_cast<std::size_t>(row));
        triggers_changed |= TriggerDiffers(fields, boxes);
        boxes = fields;
        ++triggers_stored;
    }

    std::string Save() const { return WriteMacroFile("test.sms", triggers, image, "CMS"); }

    MacroMemory image;
    TriggerRows triggers;
    int bytes_stored = 0;
    int triggers_stored = 0;
    bool triggers_changed = false;
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

TEST(MacroFileWriter, EveryLineAtItsColumns) {
    const std::string file = SampleTool().Save();
    const auto lines = Lines(file);
    ASSERT_EQ(lines.size(), 123u);
    EXPECT_EQ(Join(lines), file) << "every line ends with CR LF";
    EXPECT_EQ(lines[0], "'Kestrane Version 3 macro file - test.sms");
    EXPECT_EQ(lines[1], "'Macro Triggers");
    EXPECT_EQ(lines[10], "'Macro Code");
    EXPECT_EQ(lines[2], PadRight("Trigger 0      0 10 Enabled", 75) + "0760");
    EXPECT_EQ(lines[3], PadRight("Trigger 1      1 11 Disabled", 75) + "07D0");
    EXPECT_EQ(lines[11], PadRight("10 C6 03 'Alarm status Flash and Beep", 75) + "019D");
    for (std::size_t i = 11; i < 123; ++i) {
        const std::string& line = lines[i];
        ASSERT_EQ(line.size(), 79u) << line;
        EXPECT_EQ(line.substr(0, 3), HexByte(static_cast<std::uint8_t>(i + 5)) + " ");
        EXPECT_EQ(line[9], '\'');
        EXPECT_EQ(line.substr(10, 65).find("  "), line.substr(10, 65).find_last_not_of(' ') + 1)
            << "blanks come doubled only as padding: " << line;
    }
}

TEST(MacroFileWriter, ReducesBlanksAndCutsWhatWouldReachTheChecksum) {
    Tool tool = SampleTool();
    tool.image.Set(32, 0x40);
    tool.image.Set(33, 0x05);
    tool.image.Set(34, 0x5B);
    tool.image.Set(35, 0xFF);
    const auto lines = Lines(tool.Save());
    EXPECT_EQ(Trim(lines[11].substr(0, 75)),
              "10 40 05 'Turn on outlet 1 after 0.5 seconds, skip if already on");
    EXPECT_EQ(lines[12].substr(0, 75),
              "11 5B FF 'Backup (B) latch on 9 - 14 ( 9 - 10 - 11 - 12 - 13 - 14 - 15 - 16");
    EXPECT_EQ(lines[12].size(), 79u);
    Tool loaded;
    EXPECT_EQ(ReadMacroFile(tool.Save(), loaded).outcome, Outcome::kOk);
}

TEST(MacroFile, WhatIsSavedLoadsBack) {
    const Tool saved = SampleTool();
    Tool loaded;
    EXPECT_EQ(ReadMacroFile(saved.Save(), loaded), (MacroFileResult{Outcome::kOk, 123}));
    EXPECT_TRUE(loaded.triggers_changed);
    EXPECT_EQ(loaded.triggers, saved.triggers);
    for (std::size_t i = 0; i < MacroMemory::kSize; ++i) {
        const bool program = i >= 32 && i < 256;
        ASSERT_EQ(loaded.image.Get(i), program ? saved.image.Get(i) : 0) << i;
    }
    loaded.triggers_changed = false;
    for (TriggerRow& row : loaded.triggers) row.name = PaddedTriggerName(row.name);
    EXPECT_EQ(ReadMacroFile(saved.Save(), loaded).outcome, Outcome::kOk);
    EXPECT_FALSE(loaded.triggers_changed) << "padding in the boxes is no change";
}

TEST(MacroFileReader, ChecksumFaultsNameTheLineAndKeepWhatCameBefore) {
    const auto good = Lines(SampleTool().Save());

    auto lines = good;
    lines[4][0] = 'X';
    Tool third_trigger;
    MacroFileResult result = ReadMacroFile(Join(lines), third_trigger);
    EXPECT_EQ(result, (MacroFileResult{Outcome::kTriggerChecksum, 5}));
    EXPECT_EQ(third_trigger.triggers_stored, 2);
    EXPECT_EQ(third_trigger.bytes_stored, 0);

    lines = good;
    lines[11][4] = '7';
    Tool first_code;
    result = ReadMacroFile(Join(lines), first_code);
    EXPECT_EQ(result, (MacroFileResult{Outcome::kCodeChecksum, 12}));
    EXPECT_EQ(first_code.triggers_stored, 8);
    EXPECT_EQ(ChecksumErrorText(result),
              "Checksum Error importing Macro Code at line 12.\r\n"
              "Import aborted. Please do not upload to unit.");

    lines = good;
    lines[20][78] = lines[20][78] == '0' ? '1' : '0';
    lines.insert(lines.begin() + 15, {"'one comment", "'", "' and another"});
    Tool tenth_code;
    result = ReadMacroFile(Join(lines), tenth_code);
    EXPECT_EQ(result, (MacroFileResult{Outcome::kCodeChecksum, 24})) << "comments count";
    EXPECT_EQ(tenth_code.bytes_stored, 18);
}

TEST(MacroFileReader, AnUnnamedTriggerAndOneWithALeadingBlankFailTheirChecksum) {
    for (const char* name : {"", " Lamp"}) {
        Tool saved = SampleTool();
        saved.triggers[0].name = name;
        Tool loaded;
        const MacroFileResult result = ReadMacroFile(saved.Save(), loaded);
        EXPECT_EQ(ChecksumErrorText(result),
                  "Checksum Error importing Macro Triggers at line 3.\r\n"
                  "Import aborted. Please do not upload to unit.");
        EXPECT_EQ(loaded.triggers_stored, 0);
    }
}

TEST(MacroFileReader, BoxesOfAnotherLengthMoveTheFieldsButPassTheChecksum) {
    Tool saved = SampleTool();
    saved.triggers[0] = {"Fifteen letters", "3", "1A", true};
    saved.triggers[1] = {"No page", "", "1A", true};
    saved.triggers[2] = {"Short", "3", "7", true};
    saved.triggers[3] = {"Empty", "3", "", true};
    Tool loaded;
    ASSERT_EQ(ReadMacroFile(saved.Save(), loaded).outcome, Outcome::kOk);
    EXPECT_EQ(loaded.triggers[0], (TriggerRow{"Fifteen letter", " ", " 1", false}));
    EXPECT_EQ(loaded.triggers[1], (TriggerRow{"No page", " ", "A ", false}));
    EXPECT_EQ(loaded.triggers[2], (TriggerRow{"Short", "3", "7 ", false}));
    EXPECT_EQ(loaded.triggers[3], (TriggerRow{"Empty", "3", "00", true}));
}

TEST(MacroFileReader, NeitherCommentNorAddressIsReadAndAnEditedByteNeedsItsChecksum) {
    auto lines = Lines(SampleTool().Save());
    lines[11] = PadRight("10 C6 03 'anything at all", 75) + "019D";
    lines[12] = PadRight("FF 01 10", 75) + "01AF";
    lines[13] = PadRight("12 1A 10 '", 75) + "0190";
    Tool loaded;
    EXPECT_EQ(ReadMacroFile(Join(lines), loaded), (MacroFileResult{Outcome::kCodeChecksum, 13}));
    lines[12].replace(75, 4, "01AE");
    lines[13].replace(75, 4, "0196");
    EXPECT_EQ(ReadMacroFile(Join(lines), loaded).outcome, Outcome::kOk);
    EXPECT_EQ(loaded.image.Get(34), 0x01);
    EXPECT_EQ(loaded.image.Get(36), 0x1A);
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
