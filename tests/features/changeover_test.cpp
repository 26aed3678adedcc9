#include "features/changeover_records.h"
#include "features_test_support.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

constexpr int kChangeoverTab = 6;
constexpr int kRelay = 250;
const std::string kStartupRead = ReadCommand(kRelay, 0x000A, 6);
const std::string kStatusCommand = Bytes({kRelay, kReadLiveStatus});
const std::string kLiveCommand = Bytes({kRelay, kReadSecondStatus});

std::string Status(int flags_high) {
    return Bytes({0, 0, 0, 0, 0, flags_high, 0, 0, 0, 0, 0, 0, 0});
}
constexpr int kBoth = 0xC0;
constexpr int kMainOnly = 0x40;
constexpr int kBackupOnly = 0x80;

// Live values 11 to 14, inlet 2, measured 20 and 21, phases 100 and 16, counter 7, lockout 9.
std::string Live(int first = 11) {
    return Bytes({0, 0, first, 12, 13, 14, 2, 20, 21, 100, 16, 7, 1, 2, 3, 0, 9, 0, 0});
}

class ChangeoverTest : public FeatureTest {
  protected:
    void ConnectOnPanel() {
        Store(kRelay, 0x000A, Bytes({1, 16, 3, 4, 5, 4}));
        Answer(kStatusCommand, Status(kBoth));
        Answer(kLiveCommand, Live());
        ConnectOn(kChangeoverTab);
    }
    void Read() { ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadCMSOptions)); }
    // Long enough for one more pass to end.
    void Refresh() {
        tab_.lblLockout.SetCaption("");
        world_.loop.RunUntil([&] { return !tab_.lblLockout.Caption().empty(); },
                             Milliseconds{2000});
    }
    void ReadAndRefresh() {
        Read();
        Refresh();
    }
    std::size_t Polls() const { return SentTexts().size(); }

    ChangeoverTab& tab_ = form_.changeover;
};

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

TEST_F(ChangeoverTest, AFailedReadStillEndsInItsCleanUp) {
    ConnectOnPanel();
    ReplyRaw(kStartupRead, "");
    tab_.txtStartup(0).SetText("77");
    Read();
    EXPECT_EQ(tab_.txtStartup(0).Text(), "77");
    EXPECT_EQ(captions_.back(), "Reading Changeover Data Complete");
    EXPECT_TRUE(form_.timCMSOptions.Enabled());
    Refresh();
    EXPECT_EQ(tab_.txtCurrent(3).Text(), "000");  // live values come after a good read only
}

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
    for (const std::string& command : {kStatusCommand, kLiveCommand}) {
        for (const std::string& reply : BadReplies(command)) {
            ReplyRaw(command, reply);
            world_.RunFor(Milliseconds{1500});
        }
        ReplyRaw(command, Framed(command));
    }
    EXPECT_TRUE(form_.timCMSOptions.Enabled());
    EXPECT_EQ(form_.Pointer(), Form::kArrow);
}

TEST_F(ChangeoverTest, ARecordFullOfDlesIsUndoubledFirst) {
    ConnectOnPanel();
    Answer(kLiveCommand, std::string(19, '\x10'));
    ReadAndRefresh();
    EXPECT_EQ(tab_.txtCurrent(4).Text(), "16");
    EXPECT_EQ(session_.ChangeoverStatus, std::string(19, '\x10'));
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

TEST_F(ChangeoverTest, SaveAsLiveOfTheInletSendsOneOrNoPair) {
    ConnectOnPanel();
    Read();
    world_.tcpsend.ClearSent();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveCurrent(1)));
    EXPECT_EQ(SentTexts()[0], "FA3A");
    ASSERT_FALSE(tool_.hand.Click(tab_.optInLive(5)));
    world_.tcpsend.ClearSent();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveCurrent(1)));
    EXPECT_EQ(SentTexts()[0], "FA3A0605");
}

TEST_F(ChangeoverTest, SaveAsStartupKeepsWhatItWroteAndLeavesTheAlarmAlone) {
    ConnectOnPanel();
    ReadAndRefresh();
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
    EXPECT_EQ(tab_.txtStartup(4).Text(), "77");  // 0x4D, the checksum of the reply
    EXPECT_EQ(captions_,
              (std::vector<std::string>{"Writing Startup Data", "Writing Startup Data Complete"}));
    EXPECT_TRUE(form_.timCMSOptions.Enabled());
}

TEST_F(ChangeoverTest, SaveAsStartupOfTheInlet) {
    ConnectOnPanel();
    Read();
    ASSERT_FALSE(tool_.hand.Click(tab_.optInE2P(1)));
    world_.tcpsend.ClearSent();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveStartup(1)));
    EXPECT_EQ(SentTexts()[0], "FA12000F0101");
    tab_.optInE2P(1).SetChosen(false);
    world_.tcpsend.ClearSent();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveStartup(1)));
    EXPECT_TRUE(SentTexts().empty());
    EXPECT_EQ(captions_.back(), "Writing Startup Data");
    EXPECT_TRUE(tab_.cmdSaveStartup(1).Enabled());
}

TEST_F(ChangeoverTest, NothingIsPolledDuringThePauseOfASave) {
    ConnectOnPanel();
    ReadAndRefresh();
    for (int moment = 0; moment < 1000; moment += 70) {
        SCOPED_TRACE(moment);
        world_.RunFor(Milliseconds{moment});
        const auto clicked = world_.Now();
        world_.time.After(Milliseconds{0}, [&] {
            world_.tcpsend.ClearSent();
            EXPECT_FALSE(tool_.hand.Click(tab_.cmdSaveStartup(0)));
        });
        world_.RunFor(Milliseconds{1200});
        ASSERT_FALSE(SentTexts().empty());
        EXPECT_EQ(SentTexts()[0].substr(0, 4), "FA12");
        EXPECT_GE(world_.tcpsend.frames()[0].time - clicked, Milliseconds{1000});
        world_.RunFor(Milliseconds{3000});
        EXPECT_TRUE(form_.timCMSOptions.Enabled());
    }
}

TEST_F(ChangeoverTest, ADisconnectDuringASaveSendsNothing) {
    ConnectOnPanel();
    Read();
    world_.tcpsend.ClearSent();
    world_.time.After(Milliseconds{300}, [&] { tool_.hand.Click(form_.cmdDisconnect); });
    world_.time.After(Milliseconds{310}, [&] { tool_.hand.Click(form_.cmdConnect); });
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdSaveCurrent(0)));
    EXPECT_TRUE(SentTexts().empty());
    EXPECT_FALSE(form_.timCMSOptions.Enabled());
    EXPECT_FALSE(tab_.cmdSaveCurrent(0).Enabled());
    EXPECT_TRUE(tab_.cmdReadCMSOptions.Enabled());
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

TEST_F(ChangeoverTest, BadRepliesToTheReadLeaveThePanelInOrder) {
    ConnectOnPanel();
    for (const std::string& reply : BadReplies(kStartupRead)) {
        SCOPED_TRACE(HexText(reply).substr(0, 80));
        ReplyRaw(kStartupRead, reply);
        Read();
        EXPECT_TRUE(tab_.cmdReadCMSOptions.Enabled());
        EXPECT_EQ(form_.Pointer(), Form::kArrow);
    }
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
    EXPECT_EQ(tab.lblOffTimeMain.Caption().substr(0, 8), "Measured");
    EXPECT_EQ(tab.txtCurrent(3).ForeColor(), kBlack);
    line.Type(tab.txtCurrent(3), "123");
    line.Type(tab.txtStartup(0), "45");
    line.Click(tab.cmdSaveStartup(0));
    line.Click(tab.cmdSaveCurrent(0));
    line.Wait(1500);
    EXPECT_EQ(tab.txtCurrent(3).ForeColor(), kBlack);
    line.Click(tab.cmdReadCMSOptions);
    line.Wait(1500);
    EXPECT_EQ(tab.txtStartup(0).Text(), "45");
    EXPECT_EQ(tab.txtCurrent(3).Text(), "123");
}

}  // namespace
}  // namespace kestrane
