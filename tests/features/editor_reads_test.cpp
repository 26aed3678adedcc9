// What the macro editor reads of names and triggers for itself: from board 251, whatever the unit
// is. The frames and captions of an opening stand in editor.story.

#include <map>

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

class EditorReads : public testing::Test, public ToolOnMemory {
  protected:
    EditorReads() {
        ConnectOn(3);
        form.OptButID(3).SetChosen(true);
    }
};

TEST_F(EditorReads, NamesWithLeadingTens) {
    peer.memory[{251, 0x0070}] = "Up      Low";
    peer.memory[{251, 0x0080}] = "\x10ut";
    std::map<int, std::string> shown;
    EXPECT_TRUE(tool.channel_names.ReadChannelNames(
        [](const std::string&) {},
        [&](int channel, const std::string& upper, const std::string& lower) {
            shown[channel] = upper + "/" + lower;
        }));
    EXPECT_EQ(SentTexts().front(), "FB11006010");
    EXPECT_EQ(shown.size(), 16u);
    EXPECT_EQ(shown[ChannelNames::kBackup], "Up/Low");
    EXPECT_EQ(shown[0], "\x10ut/");
    EXPECT_FALSE(session.ChannelNamesRead);
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "");
}

TEST_F(EditorReads, TriggersAreNotReadWhereTheyBreakOffNorAnythingWithoutAConnection) {
    std::string echo = ReadCommand(251, 0x0210);
    AddEscapesAndChecksum(echo);
    peer.ReplyRaw(ReadCommand(251, 0x0210), "\x10\x02" + echo);  // too short for a record
    const auto note = [](const std::string&) {};
    EXPECT_FALSE(tool.macro_triggers.ReadMacroTriggers(note));
    Click(form.cmdDisconnect);
    const std::size_t sent = world.tcpsend.sent().size();
    EXPECT_FALSE(tool.channel_names.ReadChannelNames(note, {}));
    EXPECT_FALSE(tool.macro_triggers.ReadMacroTriggers(note));
    EXPECT_EQ(world.tcpsend.sent().size(), sent);
}

}  // namespace
}  // namespace kestrane
