#include "changeover_test_support.h"

namespace kestrane {
namespace {

TEST_F(ChangeoverTest, RefreshReadsTwoRecordsHalfASecondApart) {
    ConnectOnPanel();
    Read();
    world_.tcpsend.ClearSent();
    Refresh();
    const auto& frames = world_.tcpsend.frames();
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(SentTexts()[0], HexText(kStatusCommand));
    EXPECT_EQ(SentTexts()[1], HexText(kLiveCommand));
    const auto apart = frames[1].time - frames[0].time;
    EXPECT_GE(apart, Milliseconds{500});
    EXPECT_LE(apart, Milliseconds{610});  // and one tick of the reader
}

TEST_F(ChangeoverTest, LabelsTellWhatIsMeasured) {
    struct Case {
        int flags;
        const char* main;
        const char* backup;
        const char* phase;
    };
    const Case cases[] = {
        {kBoth, "Measured 20 samples", "Measured 21 samples", "A/B 100, B/A 16 samples"},
        {kMainOnly, "Measured 20 samples", "No supply", "Need two supplies to measure"},
        {kBackupOnly, "No supply", "Measured 21 samples", "Need two supplies to measure"},
        {0x3F, "No supply", "No supply", "Need two supplies to measure"}};
    ConnectOnPanel();
    Read();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.flags);
        Answer(kStatusCommand, Status(c.flags));
        Refresh();
        EXPECT_EQ(tab_.lblOffTimeMain.Caption(), c.main);
        EXPECT_EQ(tab_.lblOffTimeBackup.Caption(), c.backup);
        EXPECT_EQ(tab_.lblPhase.Caption(), c.phase);
    }
    EXPECT_EQ(tab_.lblChangeBack.Caption(), "Current counter 7");
    EXPECT_EQ(tab_.lblLockout.Caption(), " 9");
    EXPECT_EQ(form_.lblMemoryBlock.Caption(), "Reading Live Changeover Data");
}

TEST_F(ChangeoverTest, LiveValuesAreCopiedOnTheFirstGoodPassAfterEachRead) {
    ConnectOnPanel();
    Answer(kLiveCommand, Live() + "20");
    Read();
    world_.RunFor(Milliseconds{2000});
    EXPECT_EQ(tab_.txtCurrent(3).Text(), "000");
    Answer(kLiveCommand, Live());
    Refresh();
    EXPECT_EQ(tab_.txtCurrent(3).Text(), "11");
    EXPECT_EQ(tab_.txtCurrent(6).Text(), "14");
    EXPECT_EQ(tab_.txtCurrent(3).ForeColor(), kBlack);
    EXPECT_EQ(tab_.scrCurrent(3).ScrollValue(), 244);
    EXPECT_TRUE(tab_.optInLive(2).Chosen());
    EXPECT_EQ(tab_.lblDefaultIn.Caption(), "2");

    ASSERT_FALSE(tool_.hand.Type(tab_.txtCurrent(3), "50"));
    Refresh();
    EXPECT_EQ(tab_.txtCurrent(3).Text(), "50");
    EXPECT_EQ(tab_.txtCurrent(3).ForeColor(), kRed);
    ReadAndRefresh();
    EXPECT_EQ(tab_.txtCurrent(3).Text(), "11");
}

TEST_F(ChangeoverTest, WrongRecordsChangeNothing) {
    ConnectOnPanel();
    ReadAndRefresh();
    const std::string good = session_.ChangeoverStatus;
    tab_.lblLockout.SetCaption("as it was");
    for (const std::string& record :
         {Live().substr(0, 18), Live() + "x", std::string(), std::string(500, '\x10'), Live(99)}) {
        Answer(kLiveCommand, record);
        // The last one is good; its partner is not.
        if (record == Live(99)) Answer(kStatusCommand, Status(kBoth) + "x");
        world_.RunFor(Milliseconds{2000});
        EXPECT_EQ(session_.ChangeoverStatus, good);
        EXPECT_EQ(tab_.lblLockout.Caption(), "as it was");
    }
    Answer(kLiveCommand, std::string(19, '\x10'));  // undoubled, a good one
    Answer(kStatusCommand, Status(kBoth));
    Refresh();
    EXPECT_EQ(session_.ChangeoverStatus, std::string(19, '\x10'));
    for (const std::string& command : {kStartupRead, kStatusCommand, kLiveCommand}) {
        for (const std::string& reply : BadReplies(command)) {
            ReplyRaw(command, reply);
            Read();
            world_.RunFor(Milliseconds{1500});
        }
        ReplyRaw(command, Framed(command));
    }
    EXPECT_TRUE(form_.timCMSOptions.Enabled());
    EXPECT_EQ(form_.Pointer(), Form::kArrow);
}

TEST_F(ChangeoverTest, SilenceNeverPilesUpPasses) {
    ConnectOnPanel();
    Read();
    ReplyRaw(kStatusCommand, "");
    world_.RunFor(std::chrono::minutes{20});
    EXPECT_LT(world_.max_pump_depth(), 10);
    EXPECT_LT(Polls(), 500u);
    ReplyRaw(kStatusCommand, Framed(kStatusCommand + Status(kBoth)));
    world_.RunFor(Milliseconds{6000});
    EXPECT_EQ(tab_.lblLockout.Caption(), " 9");
}

// Whatever moment of a pass the tab is left in: no further poll, nothing shown.
TEST_F(ChangeoverTest, LeavingTheTabEndsAPassAnywhere) {
    ConnectOnPanel();
    for (int moment = 200; moment <= 1200; moment += 50) {
        SCOPED_TRACE(moment);
        form_.SSTab1.SetTab(kChangeoverTab);
        Read();
        world_.time.After(Milliseconds{moment}, [&] {
            form_.SSTab1.SetTab(0);
            world_.tcpsend.ClearSent();
        });
        world_.RunFor(Milliseconds{5000});
        EXPECT_TRUE(SentTexts().empty());
        EXPECT_EQ(tab_.lblOffTimeMain.Caption(), "");
        EXPECT_EQ(form_.lblMemoryBlock.Caption(), "");
        EXPECT_FALSE(tab_.cmdSaveCurrent(0).Enabled());
    }
}

// The pass of a lost connection neither polls the next one nor keeps it from being polled.
TEST_F(ChangeoverTest, LosingTheLinkEndsAPassAnywhere) {
    ConnectOnPanel();
    for (int moment = 200; moment <= 1200; moment += 50) {
        SCOPED_TRACE(moment);
        form_.SSTab1.SetTabVisible(kChangeoverTab, true);
        form_.SSTab1.SetTab(kChangeoverTab);
        Read();
        world_.time.After(Milliseconds{moment}, [&] {
            tool_.hand.Click(form_.cmdDisconnect);
            tool_.hand.Click(form_.cmdConnect);
            world_.tcpsend.ClearSent();
            EXPECT_FALSE(form_.timCMSOptions.Enabled());
        });
        world_.time.After(Milliseconds{moment + 800}, [&] {
            session_.AdminLoggedIn = true;
            tool_.changeover.cmdReadCMSOptions_Click();
        });
        world_.RunFor(Milliseconds{5000});
        const auto texts = SentTexts();
        ASSERT_GT(texts.size(), 4u);
        EXPECT_EQ(texts[0], HexText(kStartupRead));
        for (std::size_t i = 1; i < texts.size(); ++i) {
            EXPECT_EQ(texts[i], HexText(i % 2 == 1 ? kStatusCommand : kLiveCommand));
        }
        EXPECT_EQ(tab_.lblLockout.Caption(), " 9");
    }
}

TEST_F(ChangeoverTest, NoOtherCommandComesBetweenTheRecordsOfAPass) {
    ConnectOnPanel();
    ReadAndRefresh();
    tab_.lblLockout.SetCaption("as it was");
    world_.tcpsend.ClearSent();
    world_.time.After(Milliseconds{600}, [&] { tool_.link.Command(ReadCommand(kRelay, 0x0000)); });
    world_.RunFor(Milliseconds{800});
    EXPECT_EQ(SentTexts(), (std::vector<std::string>{HexText(kStatusCommand), "FA11000010"}));
    EXPECT_EQ(tab_.lblLockout.Caption(), "as it was");
    Refresh();
    EXPECT_EQ(tab_.lblLockout.Caption(), " 9");
}

// The click may come at any moment of a pass, also while a poll awaits its answer.
TEST_F(ChangeoverTest, NothingIsPolledDuringThePauseOfASave) {
    ConnectOnPanel();
    ReadAndRefresh();
    for (const bool live : {true, false}) {
        Button& save = live ? tab_.cmdSaveCurrent(0) : tab_.cmdSaveStartup(0);
        for (int moment = 0; moment < 1000; moment += 70) {
            SCOPED_TRACE(moment);
            world_.time.After(Milliseconds{moment}, [&] {
                const auto clicked = world_.Now();
                world_.tcpsend.ClearSent();
                EXPECT_FALSE(tool_.hand.Click(save));
                ASSERT_EQ(SentTexts().size(), 1u);
                EXPECT_EQ(SentTexts()[0].substr(0, 4), live ? "FA3A" : "FA12");
                EXPECT_GE(world_.tcpsend.frames()[0].time - clicked,
                          Milliseconds{live ? 600 : 1000});
                EXPECT_EQ(form_.lblMemoryBlock.Caption(),
                          live ? "Writing live data complete" : "Writing Startup Data Complete");
            });
            world_.RunFor(Milliseconds{4000});
            EXPECT_TRUE(form_.timCMSOptions.Enabled());
            EXPECT_TRUE(world_.boxes.shown().empty());
        }
    }
}

}  // namespace
}  // namespace kestrane
