#include "changeover_test_support.h"
#include "features/changeover_records.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

TEST_F(ChangeoverTest, ReadFillsTheStartupColumnAndStartsTheRefresh) {
    ConnectOnPanel();
    Read();
    EXPECT_EQ(world_.tcpsend.frames()[0].bytes,
              Bytes({0x10, 2, 0xFA, 0x11, 0, 0x0A, 6, 0x1B, 0x10, 3}));
    EXPECT_EQ(tab_.txtStartup(0).Text(), "1");
    EXPECT_EQ(tab_.txtStartup(1).Text(), "16");
    EXPECT_EQ(tab_.txtStartup(4).Text(), "5");
    EXPECT_EQ(tab_.scrStartup(1).ScrollValue(), 239);
    EXPECT_EQ(tab_.txtStartup(0).ForeColor(), kBlack);
    EXPECT_TRUE(tab_.optInE2P(4).Chosen());
    EXPECT_EQ(captions_.front(), "Reading Changeover Data");
    EXPECT_EQ(captions_.back(), "Reading Changeover Data Complete");
    EXPECT_TRUE(session_.ChangeoverRead);
    EXPECT_TRUE(form_.timCMSOptions.Enabled());
    EXPECT_TRUE(tab_.cmdSaveCurrent(1).Usable());
    EXPECT_TRUE(tab_.optInLive(1).Usable());
    EXPECT_TRUE(tab_.txtCurrent(6).Usable());
    EXPECT_TRUE(tab_.cmdReadCMSOptions.Enabled());
    EXPECT_TRUE(tab_.lblPhase.Enabled());
}

TEST_F(ChangeoverTest, AFailedReadLeavesThePanelAsItWasAndNothingToSave) {
    ConnectOnPanel();
    ReplyRaw(kStartupRead, "");
    tab_.txtStartup(0).SetText("77");
    Read();
    EXPECT_EQ(tab_.txtStartup(0).Text(), "77");
    EXPECT_EQ(captions_.back(), "Reading Changeover Data Complete");
    EXPECT_FALSE(form_.timCMSOptions.Enabled());
    EXPECT_FALSE(tab_.cmdSaveStartup(0).Usable());
    EXPECT_TRUE(tab_.cmdReadCMSOptions.Enabled());
    EXPECT_FALSE(session_.ChangeoverRead);
    world_.tcpsend.ClearSent();
    for (const int i : {0, 1}) {
        tool_.changeover.cmdSaveStartup_Click(i);
        tool_.changeover.cmdSaveCurrent_Click(i);
    }
    EXPECT_EQ(world_.boxes.shown().size(), 4u);
    EXPECT_EQ(world_.boxes.shown().back().text,
              "The live changeover values have not been read on this connection. Nothing was "
              "written.");
    EXPECT_TRUE(SentTexts().empty());
}

TEST_F(ChangeoverTest, SaveAsLiveSendsTheFourValues) {
    ConnectOnPanel();
    ReadAndRefresh();
    ASSERT_FALSE(tool_.hand.Type(tab_.txtCurrent(4), "16"));
    world_.RunFor(Milliseconds{150});
    const auto clicked = world_.Now();
    world_.tcpsend.ClearSent();
    captions_.clear();
    const std::string command = Bytes({kRelay, 0x3A, 2, 11, 3, 16, 4, 13, 5, 14});
    // A refusal is ignored like any other answer.
    ReplyRaw(command, Framed(Bytes({kRelay, 0x3A, kRefusedByPrivileges})));
    Answer(kLiveCommand, Bytes({0, 0, 11, 16}) + Live().substr(4));
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveCurrent(0)));

    ASSERT_EQ(SentTexts().size(), 1u);
    EXPECT_EQ(SentTexts()[0], HexText(command));
    EXPECT_GE(world_.tcpsend.frames()[0].time - clicked, Milliseconds{600});
    EXPECT_EQ(captions_,
              (std::vector<std::string>{"Writing live data", "Writing live data complete"}));
    EXPECT_TRUE(world_.boxes.shown().empty());
    EXPECT_TRUE(form_.timCMSOptions.Enabled());
    EXPECT_EQ(form_.Pointer(), Form::kArrow);
    EXPECT_TRUE(form_.cmdHelp.Enabled());
    EXPECT_EQ(tab_.txtCurrent(4).ForeColor(), kRed);
    Refresh();
    EXPECT_EQ(tab_.txtCurrent(4).ForeColor(), kBlack);
}

TEST_F(ChangeoverTest, SaveAsStartupKeepsWhatItWroteAndLeavesTheAlarmAlone) {
    ConnectOnPanel();
    ReadAndRefresh();
    const std::string alarm = tab_.txtStartup(4).Text();
    ASSERT_FALSE(tool_.hand.Type(tab_.txtStartup(2), "30"));
    EXPECT_EQ(tab_.txtStartup(2).ForeColor(), kRed);
    world_.RunFor(Milliseconds{150});
    const auto clicked = world_.Now();
    world_.tcpsend.ClearSent();
    captions_.clear();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveStartup(0)));
    ASSERT_EQ(SentTexts().size(), 1u);
    EXPECT_EQ(SentTexts()[0], "FA12000A0401101E04");
    EXPECT_GE(world_.tcpsend.frames()[0].time - clicked, Milliseconds{1000});
    EXPECT_EQ(tab_.txtStartup(2).Text(), "30");
    EXPECT_EQ(tab_.txtStartup(2).ForeColor(), kBlack);
    EXPECT_EQ(tab_.txtStartup(4).Text(), alarm);
    EXPECT_EQ(captions_,
              (std::vector<std::string>{"Writing Startup Data", "Writing Startup Data Complete"}));
    EXPECT_TRUE(form_.timCMSOptions.Enabled());
}

TEST_F(ChangeoverTest, SavingTheInletSendsTheTickedOneIfAny) {
    ConnectOnPanel();
    ReadAndRefresh();
    StopPolls();
    tab_.optInE2P(4).SetChosen(false);
    tab_.optInLive(2).SetChosen(false);
    world_.tcpsend.ClearSent();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveCurrent(1)));
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveStartup(1)));
    EXPECT_EQ(captions_.back(), "Writing Startup Data");
    EXPECT_TRUE(tab_.cmdSaveStartup(1).Enabled());
    ASSERT_FALSE(tool_.hand.Click(tab_.optInLive(5)));
    ASSERT_FALSE(tool_.hand.Click(tab_.optInE2P(1)));
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveCurrent(1)));
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveStartup(1)));
    EXPECT_EQ(SentTexts(), (std::vector<std::string>{"FA3A", "FA3A0605", "FA12000F0101"}));
}

TEST_F(ChangeoverTest, ADisconnectDuringASaveSendsNothing) {
    ConnectOnPanel();
    ReadAndRefresh();
    StopPolls();
    world_.tcpsend.ClearSent();
    world_.time.After(Milliseconds{300}, [&] { tool_.hand.Click(form_.cmdDisconnect); });
    world_.time.After(Milliseconds{310}, [&] { tool_.hand.Click(form_.cmdConnect); });
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveCurrent(0)));
    EXPECT_TRUE(SentTexts().empty());
    EXPECT_FALSE(form_.timCMSOptions.Enabled());
    EXPECT_FALSE(tab_.cmdSaveCurrent(0).Enabled());
    EXPECT_TRUE(tab_.cmdReadCMSOptions.Enabled());
    EXPECT_FALSE(form_.SSTab1.Tabs()[1].enabled) << "the tabs are as the disconnect left them";
    EXPECT_EQ(form_.lblMemoryBlock.Caption(), "");
}

TEST_F(ChangeoverTest, ValueBoxesHoldPlainNumbersOfOneByte) {
    ConnectOnPanel();
    Read();
    struct Case {
        const char* text;
        const char* left;
    };
    for (const Case& c : {Case{"300", "255"}, Case{"", "0"}, Case{"007", "7"}, Case{"-5", "0"},
                          Case{"x", "0"}, Case{"255", "255"}, Case{"254", "254"}}) {
        SCOPED_TRACE(c.text);
        tab_.txtCurrent(3).SetText("9");
        tab_.txtCurrent(3).SetText(c.text);
        EXPECT_EQ(tab_.txtCurrent(3).Text(), c.left);
        EXPECT_EQ(tab_.scrCurrent(3).ScrollValue(), 255 - std::stoi(c.left));
    }
    ASSERT_FALSE(tool_.hand.Type(tab_.txtStartup(3), "300"));
    EXPECT_EQ(tab_.txtStartup(3).Text(), "255");
    ASSERT_FALSE(tool_.hand.Choose(tab_.scrStartup(3), 251));
    EXPECT_EQ(tab_.txtStartup(3).Text(), "4");
    EXPECT_EQ(tab_.txtStartup(3).ForeColor(), kBlack);  // what the record has
    ASSERT_FALSE(tool_.hand.GoTo(tab_.txtStartup(0)));
    EXPECT_EQ(tab_.txtStartup(0).SelLength(), 1);
    // Leaving the tab writes "000", which the boxes turn into plain decimal.
    form_.SSTab1.SetTab(0);
    EXPECT_EQ(tab_.txtStartup(3).Text(), "0");
    EXPECT_EQ(tab_.txtStartup(3).ForeColor(), kRed);
}

TEST(ChangeoverRecords, FrequencyAndAngle) {
    EXPECT_EQ(MainsFrequency(0), "-");
    EXPECT_EQ(MainsFrequency(20000), "50 Hz");
    EXPECT_EQ(MainsFrequency(20007), "49.98 Hz");
    EXPECT_EQ(MainsFrequency(1), "1000000 Hz");
    EXPECT_EQ(PhaseAngle(100), "7.2\xB0");
    EXPECT_EQ(PhaseAngle(0), "0\xB0");
    EXPECT_EQ(PhaseAngle(1), "0.072\xB0");
}

TEST(ChangeoverOnUnit, SavedValuesReachTheUnit) {
    ToolOnUnit line;
    line.ReadSettings();
    ChangeoverTab& tab = line.form.changeover;
    line.form.SSTab1.SetTab(kChangeoverTab);
    line.Click(tab.cmdReadCMSOptions);
    line.Wait(1500);
    line.Type(tab.txtCurrent(3), "123");
    line.Type(tab.txtStartup(0), "45");
    line.Click(tab.cmdSaveStartup(0));
    line.Click(tab.cmdSaveCurrent(0));
    line.Click(tab.cmdReadCMSOptions);
    line.Wait(1500);
    EXPECT_EQ(tab.txtStartup(0).Text(), "45");
    EXPECT_EQ(tab.txtCurrent(3).Text(), "123");
    EXPECT_EQ(tab.lblOffTimeMain.Caption().substr(0, 8), "Measured");
}

}  // namespace
}  // namespace kestrane
