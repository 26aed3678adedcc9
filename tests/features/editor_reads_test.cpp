// What the macro editor reads of names and triggers for itself: from board 251, whatever the unit
// is, with its own captions.

#include <map>

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

class EditorReads : public testing::Test, public ToolOnMemory {
  protected:
    EditorReads() {
        for (int i = 0; i < 8; ++i) {
            peer.memory[{251, 0x0200 + 16 * i}] = PadRight("Editor", 14) + "\x81\x33";
        }
        peer.memory[{251, 0x0070}] = "Up      Low";
        peer.memory[{251, 0x0080}] = "\x10ut";
        ConnectOn(3);
        form.OptButID(3).SetChosen(true);
    }
    std::vector<std::string> progress;
    const std::function<void(const std::string&)> note = [this](const std::string& text) {
        progress.push_back(text);
    };
};

TEST_F(EditorReads, NamesWithLeadingTens) {
    std::map<int, std::string> shown;
    EXPECT_TRUE(tool.channel_names.ReadChannelNames(
        note, [&](int channel, const std::string& upper, const std::string& lower) {
            shown[channel] = upper + "/" + lower;
        }));
    EXPECT_EQ(SentTexts().front(), "FB11006010");
    EXPECT_EQ(shown.size(), 16u);
    EXPECT_EQ(shown[ChannelNames::kBackup], "Up/Low");
    EXPECT_EQ(shown[0], "\x10ut/");
    EXPECT_EQ(form.names.txtBackupLower.Text(), "Low");
    EXPECT_EQ(progress.front(), "Reading inlet name(s)");
    EXPECT_EQ(progress[14], "Reading outlet name 14 of 14");
    EXPECT_EQ(progress.back(), "Reading channel names complete");
    EXPECT_FALSE(session.ChannelNamesRead);
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "");
}

TEST_F(EditorReads, Triggers) {
    EXPECT_TRUE(tool.macro_triggers.ReadMacroTriggers(note));
    EXPECT_EQ(SentTexts().front(), "FB11020010");
    EXPECT_EQ(form.triggers.txtMTName(7).Text(), "Editor");
    EXPECT_EQ(form.triggers.txtMTPage(7).Text(), "1");
    EXPECT_FALSE(form.triggers.chkMacro(7).Checked());
    EXPECT_EQ(form.triggers.txtMTAddress(7).Text(), "33");
    EXPECT_EQ(progress.front(), "Reading Macro Trigger Name 1 of 8");
    EXPECT_EQ(progress.back(), "Reading macro triggers complete");
    EXPECT_FALSE(session.MacroTriggersRead);
}

TEST_F(EditorReads, NothingIsReadWithoutAConnection) {
    Click(form.cmdDisconnect);
    EXPECT_FALSE(tool.channel_names.ReadChannelNames(note, {}));
    EXPECT_FALSE(tool.macro_triggers.ReadMacroTriggers(note));
    EXPECT_TRUE(progress.empty());
}

TEST_F(EditorReads, TriggersThatBreakOffAreNotRead) {
    std::string echo = ReadCommand(251, 0x0210);
    AddEscapesAndChecksum(echo);
    peer.ReplyRaw(ReadCommand(251, 0x0210), "\x10\x02" + echo);  // too short for a record
    EXPECT_FALSE(tool.macro_triggers.ReadMacroTriggers(note));
}

}  // namespace
}  // namespace kestrane
