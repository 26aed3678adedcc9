#include <gmock/gmock.h>

#include "features_test_support.h"

namespace kestrane {
namespace {

constexpr int kTriggersTab = 4;
constexpr int kDisplay = 251;

class MacroTriggersTest : public FeatureTest {
  protected:
    void ConnectOnTriggers() {
        ConnectOn(kTriggersTab);
        tab_.cmdReadMacroTriggers.SetEnabled(true);
    }
    void ReadAll() {
        ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadMacroTriggers));
        ASSERT_TRUE(session_.MacroTriggersRead);
    }
    static std::string Record(const std::string& name, int page, int address) {
        return PadRight(name, 14) + Bytes({page, address});
    }
    void StoreAll(const std::string& record) {
        for (int i = 0; i < 8; ++i) Store(kDisplay, 0x0200 + 16 * i, record);
    }

    TriggersTab& tab_ = form_.triggers;
};

TEST_F(MacroTriggersTest, ReadsEightRecords) {
    StoreAll(Record("Lights", 0x00, 0x10));
    Store(kDisplay, 0x0210, Record("", 0x80, 0x00));
    Store(kDisplay, 0x0220, Record("fourteen chars", 0x8C, 0x7E));
    Store(kDisplay, 0x0270, Record("  Last", 0x7F, 0xFF));
    ConnectOnTriggers();
    ReadAll();

    EXPECT_EQ(tab_.txtMTName(0).Text(), "Lights");
    EXPECT_EQ(tab_.txtMTPage(0).Text(), "0");
    EXPECT_TRUE(tab_.chkMacro(0).Checked());
    EXPECT_EQ(tab_.txtMTAddress(0).Text(), "10");
    EXPECT_EQ(tab_.txtMTAddress(1).Text(), "00");
    EXPECT_EQ(tab_.txtMTAddress(1).ForeColor(), kBlack);
    EXPECT_FALSE(tab_.chkMacro(1).Checked());
    EXPECT_TRUE(tab_.chkMacro(1).Enabled());
    EXPECT_EQ(tab_.txtMTPage(1).Text(), "0");
    EXPECT_EQ(tab_.txtMTName(2).Text(), "fourteen chars");
    EXPECT_EQ(tab_.txtMTPage(2).Text(), "12");
    EXPECT_EQ(tab_.txtMTName(7).Text(), "Last");
    EXPECT_EQ(tab_.txtMTPage(7).Text(), "127");
    EXPECT_EQ(tab_.txtMTAddress(7).Text(), "FF");

    std::vector<std::string> expected;
    for (int i = 0; i < 8; ++i) expected.push_back(HexText(ReadCommand(kDisplay, 0x0200 + 16 * i)));
    EXPECT_EQ(SentTexts(), expected);
    EXPECT_EQ(captions_.front(), "Reading Macro Data 1 of 8");
    EXPECT_EQ(captions_[7], "Reading Macro Data 8 of 8");
    EXPECT_EQ(captions_.back(), "Reading Macro Data Complete");
    EXPECT_EQ(form_.Focused(), &tab_.txtMTName(0));
    EXPECT_EQ(tab_.txtMTName(0).SelLength(), 6);
    for (Button* button : {&tab_.cmdEditMacro, &tab_.cmdReadMacroTriggers,
                           &tab_.cmdWriteMacroTriggers, &form_.network.cmdResetEthernet}) {
        EXPECT_TRUE(button->Enabled()) << button->name();
    }
    EXPECT_TRUE(tab_.lblMacro(3).Enabled());
}

TEST_F(MacroTriggersTest, AFailedRecordKeepsTheRowsBehindIt) {
    StoreAll(Record("New", 0, 0x20));
    ReplyRaw(ReadCommand(kDisplay, 0x0220), "");
    ConnectOnTriggers();
    tab_.txtMTName(2).SetText("old");
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadMacroTriggers));
    EXPECT_EQ(tab_.txtMTName(1).Text(), "New");
    EXPECT_EQ(tab_.txtMTName(2).Text(), "old");
    EXPECT_FALSE(session_.MacroTriggersRead);
    EXPECT_TRUE(tab_.cmdEditMacro.Enabled());
    EXPECT_FALSE(tab_.cmdWriteMacroTriggers.Enabled());
    EXPECT_TRUE(tab_.cmdReadMacroTriggers.Enabled());
    EXPECT_EQ(captions_.back(), "Reading Macro Data 3 of 8");
    world_.tcpsend.ClearSent();
    tool_.macro_triggers.cmdWriteMacroTriggers_Click();
    EXPECT_TRUE(SentTexts().empty()) << "rows that were not read are not written";
}

TEST_F(MacroTriggersTest, WritesWhatTheRowsHold) {
    StoreAll(Record("x", 0, 0x20));
    Store(kDisplay, 0x0230, Record("Paged", 0x8C, 0x30));
    ConnectOnTriggers();
    ReadAll();
    world_.tcpsend.ClearSent();
    captions_.clear();
    ASSERT_FALSE(tool_.hand.Type(tab_.txtMTName(0), "  Lead "));
    tab_.txtMTAddress(1).SetText("");
    tab_.txtMTName(4).SetText("a name that is too long");
    tab_.txtMTPage(5).SetText("");
    tab_.chkMacro(6).SetChecked(false);

    ASSERT_FALSE(tool_.hand.Click(tab_.cmdWriteMacroTriggers));

    EXPECT_EQ(memory_.at({kDisplay, 0x0200}), Record("Lead", 0, 0x20));
    EXPECT_EQ(memory_.at({kDisplay, 0x0210}), Record("x", 0, 0x00));  // enabled, no address
    EXPECT_EQ(memory_.at({kDisplay, 0x0230}), Record("Paged", 0x8C, 0x30));
    EXPECT_EQ(memory_.at({kDisplay, 0x0240}), Record("a name that is", 0, 0x20));
    EXPECT_EQ(memory_.at({kDisplay, 0x0250}), Record("x", 0, 0x20));
    EXPECT_EQ(memory_.at({kDisplay, 0x0260}), Record("x", 0x80, 0x20));
    EXPECT_EQ(SentTexts().size(), 8u);
    EXPECT_EQ(captions_.front(), "Writing Macro Data 1 of 8");
    EXPECT_EQ(captions_.back(), "Writing Macro Data complete");
    EXPECT_TRUE(tab_.cmdWriteMacroTriggers.Enabled());
    EXPECT_TRUE(tab_.cmdEditMacro.Enabled());
}

TEST_F(MacroTriggersTest, BuildsAllRecordsBeforeTheFirstIsSent) {
    StoreAll(Record("x", 0, 0x20));
    ConnectOnTriggers();
    ReadAll();
    world_.time.After(Milliseconds{50}, [&] { tab_.txtMTName(7).SetText("later"); });
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdWriteMacroTriggers));
    EXPECT_EQ(memory_.at({kDisplay, 0x0270}), Record("x", 0, 0x20));

    world_.tcpsend.ClearSent();
    tab_.txtMTPage(6).SetText("300");
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdWriteMacroTriggers));
    EXPECT_TRUE(SentTexts().empty());
}

// What leaving an address box makes of its text.
TEST_F(MacroTriggersTest, LeavingAnAddressBoxChecksIt) {
    struct Case {
        const char* typed;
        const char* left;
        bool refused;
        bool enabled;
    };
    const Case cases[] = {{"10", "10", false, true}, {"7e", "7E", false, true},
                          {"0F", "", true, true},    {"7F", "", true, true},
                          {"01", "", true, true},    {"ff", "", true, true},
                          {"00", "", false, false},  {"", "", false, false},
                          {"5", "", false, false},   {"G1", "", false, false}};
    StoreAll(Record("x", 0, 0x20));
    ConnectOnTriggers();
    ReadAll();
    ASSERT_FALSE(tool_.hand.GoTo(tab_.txtMTAddress(1)));
    EXPECT_EQ(tab_.txtMTAddress(1).ForeColor(), kRed);
    EXPECT_EQ(tab_.txtMTAddress(1).SelLength(), 2);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        TextBox& box = tab_.txtMTAddress(2);
        tab_.chkMacro(2).SetEnabled(true);
        tab_.chkMacro(2).SetChecked(true);
        const auto boxes = world_.boxes.shown().size();
        const int beeps = world_.sound.beeps();
        ASSERT_FALSE(tool_.hand.Type(box, c.typed));
        EXPECT_EQ(box.ForeColor(), kRed);
        ASSERT_FALSE(tool_.hand.GoTo(tab_.txtMTName(0)));
        EXPECT_EQ(box.Text(), c.left);
        EXPECT_EQ(world_.boxes.shown().size() - boxes, c.refused ? 1u : 0u);
        EXPECT_EQ(world_.sound.beeps() - beeps, c.refused ? 1 : 0);
        EXPECT_EQ(form_.Focused() == &box, c.refused);
        EXPECT_EQ(tab_.chkMacro(2).Enabled(), c.enabled);
        EXPECT_EQ(tab_.chkMacro(2).Checked(), c.enabled);
        EXPECT_EQ(box.ForeColor(), *c.left ? kBlack : kRed);
        if (c.refused) {
            EXPECT_EQ(world_.boxes.shown().back().title, "Invalid Address.");
            EXPECT_EQ(world_.boxes.shown().back().text,
                      "Hex address for macro is not valid. Must be between hex 10 and 7E");
        }
    }
}

TEST_F(MacroTriggersTest, TheEditorReadsBoard251WhateverTheUnitIs) {
    StoreAll(Record("Editor", 0x81, 0x33));
    ConnectOnTriggers();
    form_.OptButID(3).SetChosen(true);
    std::vector<std::string> progress;
    EXPECT_TRUE(tool_.macro_triggers.ReadMacroTriggers(
        [&](const std::string& text) { progress.push_back(text); }));
    EXPECT_EQ(SentTexts().front(), "FB11020010");
    EXPECT_EQ(tab_.txtMTName(7).Text(), "Editor");
    EXPECT_EQ(tab_.txtMTPage(7).Text(), "1");
    EXPECT_FALSE(tab_.chkMacro(7).Checked());
    EXPECT_EQ(tab_.txtMTAddress(7).Text(), "33");
    EXPECT_EQ(progress.front(), "Reading Macro Trigger Name 1 of 8");
    EXPECT_EQ(progress.back(), "Reading macro triggers complete");
    EXPECT_FALSE(session_.MacroTriggersRead);
}

TEST_F(MacroTriggersTest, BadRepliesOfAnyKindEndInATidyTab) {
    const std::string command = ReadCommand(kDisplay, 0x0210);
    ConnectOnTriggers();
    for (const std::string& reply : BadReplies(command)) {
        SCOPED_TRACE(HexText(reply).substr(0, 80));
        ReplyRaw(command, reply);
        ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadMacroTriggers));
        EXPECT_LE(tab_.txtMTName(1).Text().size(), 14u);
        EXPECT_EQ(form_.Pointer(), Form::kArrow);
    }
    // Too short for a record: nothing is made up in place of what is missing.
    std::string echo = command;
    AddEscapesAndChecksum(echo);
    ReplyRaw(command, "\x10\x02" + echo);
    session_.MacroTriggersRead = false;
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadMacroTriggers));
    EXPECT_FALSE(session_.MacroTriggersRead);
}

}  // namespace
}  // namespace kestrane
