#include <gmock/gmock.h>

#include "features_test_support.h"

namespace kestrane {
namespace {

using testing::ElementsAre;

constexpr int kNamesTab = 3;
constexpr int kDisplay = 251;

class ChannelNamesTest : public FeatureTest {
  protected:
    void ConnectOnNames() {
        ConnectOn(kNamesTab);
        tab_.cmdReadChannelNames.SetEnabled(true);
    }

    NamesTab& tab_ = form_.names;
};

TEST_F(ChannelNamesTest, ReadsSixteenBlocksAndSaysSo) {
    Store(kDisplay, 0x0060, "MainABCDLower  8");
    Store(kDisplay, 0x0070, "  Back   up     ");
    Store(kDisplay, 0x0100, "Eighth  ");
    Store(kDisplay, 0x0150, "        14 low  ");
    ConnectOnNames();
    form_.SSTab1.SetTabVisible(kNamesTab, true);
    tab_.txtOutUpper(3).SetText("stale");

    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadChannelNames));

    EXPECT_EQ(tab_.txtMainUpper.Text(), "MainABCD");
    EXPECT_EQ(tab_.txtMainLower.Text(), "Lower  8");
    EXPECT_EQ(tab_.txtBackupUpper.Text(), "Back");
    EXPECT_EQ(tab_.txtBackupLower.Text(), "up");
    EXPECT_EQ(tab_.txtOutUpper(3).Text(), "");
    EXPECT_EQ(tab_.txtOutUpper(8).Text(), "Eighth");
    EXPECT_EQ(tab_.txtOutLower(13).Text(), "14 low");
    EXPECT_EQ(world_.tcpsend.frames()[11].bytes,
              Bytes({0x10, 0x02, 0xFB, 0x11, 0x01, 0x10, 0x10, 0x10, 0x10, 0x2D, 0x10, 0x03}));
    std::vector<std::string> expected;
    for (int address = 0x0060; address <= 0x0150; address += 0x10) {
        expected.push_back(HexText(ReadCommand(kDisplay, address)));
    }
    EXPECT_EQ(SentTexts(), expected);
    ASSERT_EQ(captions_.size(), 16u);
    EXPECT_EQ(captions_[0], "Reading inlet name(s)");
    EXPECT_EQ(captions_[1], "Reading outlet name 1 of 14");
    EXPECT_EQ(captions_[14], "Reading outlet name 14 of 14");
    EXPECT_EQ(captions_[15], "Reading channel names complete");
    EXPECT_TRUE(session_.ChannelNamesRead);
    EXPECT_TRUE(tab_.cmdWriteChannelNames.Enabled());
    EXPECT_TRUE(form_.network.cmdResetEthernet.Enabled());
    EXPECT_TRUE(tab_.fraOutletNames.Enabled());
    EXPECT_TRUE(tab_.lblMain.Enabled());
    EXPECT_TRUE(tab_.lblOutlet(0).Enabled());
    EXPECT_EQ(form_.Focused(), &tab_.txtMainUpper);
    EXPECT_EQ(tab_.txtMainUpper.SelLength(), 8);
    EXPECT_EQ(hourglasses_, 1);
    EXPECT_EQ(form_.Pointer(), Form::kArrow);
}

TEST_F(ChannelNamesTest, FailedBlockEndsTheReadAtThatChannel) {
    Store(kDisplay, 0x0060, "Main");
    Store(kDisplay, 0x0080, "First");
    Store(kDisplay, 0x00A0, "Third");
    ReplyRaw(ReadCommand(kDisplay, 0x0090), "");
    ConnectOnNames();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadChannelNames));

    EXPECT_EQ(tab_.txtOutUpper(0).Text(), "First");
    EXPECT_EQ(tab_.txtOutUpper(2).Text(), "");
    EXPECT_EQ(captions_.back(), "Reading outlet name 2 of 14");
    EXPECT_FALSE(session_.ChannelNamesRead);
    EXPECT_FALSE(tab_.cmdWriteChannelNames.Enabled());
    EXPECT_FALSE(form_.network.cmdResetEthernet.Enabled());
    EXPECT_TRUE(tab_.cmdReadChannelNames.Enabled());
    EXPECT_TRUE(form_.cmdHelp.Enabled());
    EXPECT_TRUE(form_.SSTab1.Tabs()[8].enabled);
    EXPECT_EQ(form_.Pointer(), Form::kArrow);
}

TEST_F(ChannelNamesTest, OnlyOutletsLoseLeadingDlesAndNeverTakeMoreThanTheBlock) {
    Store(kDisplay, 0x0060, "\x10nletABCDEFGHIJK");
    Store(kDisplay, 0x0080,
          "\x10\x10"
          "ABCDEFGHIJKLMN");
    Store(kDisplay, 0x0090, std::string(16, '\x10'));
    ConnectOnNames();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadChannelNames));
    EXPECT_EQ(tab_.txtMainUpper.Text(), "\x10nletABC");
    EXPECT_EQ(tab_.txtOutUpper(0).Text(), "ABCDEFGH");
    EXPECT_EQ(tab_.txtOutLower(0).Text(), "IJKLMN");
    EXPECT_EQ(tab_.txtOutUpper(1).Text(), "");
    EXPECT_EQ(tab_.txtOutLower(1).Text(), "");
    EXPECT_TRUE(session_.ChannelNamesRead);
}

TEST_F(ChannelNamesTest, WritesEveryBlockWithLeadingBlanksAndTheHiddenBackup) {
    ConnectOnNames();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadChannelNames));
    world_.tcpsend.ClearSent();
    captions_.clear();
    ASSERT_FALSE(tool_.hand.Type(tab_.txtMainUpper, "  Main"));
    tab_.txtMainLower.SetText("longer than it may be");
    tab_.txtBackupLower.SetText("hidden");
    tab_.txtOutUpper(8).SetText("exactly8");
    tab_.txtOutLower(13).SetText("\x10");

    ASSERT_FALSE(tool_.hand.Click(tab_.cmdWriteChannelNames));

    EXPECT_EQ(SentTexts().size(), 16u);
    EXPECT_EQ(memory_.at({kDisplay, 0x0060}), "  Main  longer t");
    EXPECT_EQ(memory_.at({kDisplay, 0x0070}), "        hidden  ");
    EXPECT_EQ(memory_.at({kDisplay, 0x0100}), "exactly8        ");
    EXPECT_EQ(memory_.at({kDisplay, 0x0150}), "        \x10       ");
    EXPECT_EQ(captions_.size(), 16u);
    EXPECT_EQ(captions_[0], "Writing inlet name");
    EXPECT_EQ(captions_[1], "Writing outlet name 1 of 14");
    EXPECT_EQ(captions_[15], "Writing names complete");
    EXPECT_TRUE(tab_.cmdWriteChannelNames.Enabled());
    EXPECT_TRUE(tab_.cmdReadChannelNames.Enabled());
    EXPECT_TRUE(form_.network.cmdResetEthernet.Enabled());
    EXPECT_TRUE(tab_.fraInletNames.Enabled());
}

TEST_F(ChannelNamesTest, AFailedWriteGivesItsButtonBackAndKeepsWhatWasTyped) {
    ConnectOnNames();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadChannelNames));
    const std::string second = WriteCommand(kDisplay, 0x0070, 16, std::string(16, ' '));
    ReplyRaw(second, Framed(Bytes({kDisplay, kWriteMemory, kRefusedByPrivileges})));
    ASSERT_FALSE(tool_.hand.Type(tab_.txtOutUpper(3), "Typed"));
    world_.tcpsend.ClearSent();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdWriteChannelNames));
    EXPECT_EQ(SentTexts().size(), 2u);
    EXPECT_TRUE(tab_.cmdWriteChannelNames.Usable());
    EXPECT_EQ(tab_.txtOutUpper(3).Text(), "Typed");
    EXPECT_TRUE(tab_.cmdReadChannelNames.Enabled());
    EXPECT_EQ(world_.boxes.shown().back().title, "Privileges");
}

// Names that a settings read has cleared, or that the unit before has left behind.
TEST_F(ChannelNamesTest, WhatWasClearedIsNotWrittenUntilItIsReadAgain) {
    ConnectOnNames();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadChannelNames));
    session_.known.names = false;
    world_.tcpsend.ClearSent();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdWriteChannelNames));
    EXPECT_TRUE(SentTexts().empty());
    EXPECT_EQ(world_.boxes.shown().back().text,
              "The channel names have not been read on this connection. Nothing was written.");
    EXPECT_EQ(tool_.link.journal().operations().back().end, OperationRecord::End::kStopped);
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadChannelNames));
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdWriteChannelNames));
    EXPECT_EQ(SentTexts().size(), 32u);
}

TEST_F(ChannelNamesTest, TheEditorReadsBoard251WhateverTheUnitIs) {
    Store(kDisplay, 0x0070, "Up      Low");
    Store(kDisplay, 0x0080, "\x10ut");
    ConnectOnNames();
    form_.OptButID(2).SetChosen(true);
    std::vector<std::string> progress;
    std::map<int, std::string> shown;
    EXPECT_TRUE(tool_.channel_names.ReadChannelNames(
        [&](const std::string& text) { progress.push_back(text); },
        [&](int channel, const std::string& upper, const std::string& lower) {
            shown[channel] = upper + "/" + lower;
        }));
    EXPECT_EQ(SentTexts().front(), "FB11006010");
    EXPECT_EQ(shown.size(), 16u);
    EXPECT_EQ(shown[ChannelNames::kBackup], "Up/Low");
    EXPECT_EQ(shown[0], "\x10ut/");
    EXPECT_EQ(tab_.txtBackupLower.Text(), "Low");
    EXPECT_EQ(progress.front(), "Reading inlet name(s)");
    EXPECT_EQ(progress[14], "Reading outlet name 14 of 14");
    EXPECT_EQ(progress.back(), "Reading channel names complete");
    EXPECT_FALSE(session_.ChannelNamesRead);
    EXPECT_EQ(form_.lblMemoryBlock.Caption(), "");
}

TEST_F(ChannelNamesTest, AReadOfALostConnectionLeavesTheNextOneAlone) {
    Store(kDisplay, 0x0060, "Old");
    ConnectOnNames();
    world_.time.After(Milliseconds{450}, [&] { tool_.hand.Click(form_.cmdDisconnect); });
    world_.time.After(Milliseconds{460}, [&] { tool_.hand.Click(form_.cmdConnect); });
    world_.time.After(Milliseconds{800}, [&] {
        Store(kDisplay, 0x0060, "New");
        tool_.channel_names.cmdReadChannelNames_Click();
    });
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadChannelNames));
    EXPECT_EQ(tab_.txtMainUpper.Text(), "New");
    EXPECT_FALSE(session_.ChannelNamesRead);
    int on_second = 0;
    for (const auto& frame : world_.tcpsend.frames()) on_second += frame.connection == 2;
    EXPECT_EQ(on_second, 16);
}

TEST_F(ChannelNamesTest, BadRepliesOfAnyKindEndInATidyTab) {
    const std::string command = ReadCommand(kDisplay, 0x0090);
    ConnectOnNames();
    for (const std::string& reply : BadReplies(command)) {
        SCOPED_TRACE(HexText(reply).substr(0, 80));
        ReplyRaw(command, reply);
        ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadChannelNames));
        EXPECT_LE(tab_.txtOutUpper(1).Text().size(), 8u);
        EXPECT_EQ(form_.Pointer(), Form::kArrow);
        EXPECT_TRUE(form_.cmdHelp.Enabled());
    }
}

TEST_F(ChannelNamesTest, NothingHappensWithoutAConnection) {
    tool_.channel_names.cmdReadChannelNames_Click();
    tool_.channel_names.cmdWriteChannelNames_Click();
    EXPECT_EQ(world_.tcpsend.dropped_sends(), 0);
    EXPECT_TRUE(captions_.empty());
    EXPECT_TRUE(form_.cmdHelp.Enabled());
}

}  // namespace
}  // namespace kestrane
