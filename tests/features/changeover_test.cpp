// The changeover panel through its refresh: pauses, and what may happen at any moment of a pass.
// What it reads, shows and saves stands in changeover.story.

#include "features/changeover_records.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

constexpr int kTab = 6;
const std::string kStartupRead = ReadCommand(250, 0x000A, 6);
const std::string kStatusCommand = Bytes({250, kReadLiveStatus});
const std::string kLiveCommand = Bytes({250, kReadSecondStatus});
const std::string kBoth = Bytes({0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0});

// Live values 11 to 14, inlet 2, measured 20 and 21, phases 100 and 16, counter 7, lockout 9.
std::string Live(int first = 11) {
    return Bytes({0, 0, first, 12, 13, 14, 2, 20, 21, 100, 16, 7, 1, 2, 3, 0, 9, 0, 0});
}

class Changeover : public testing::Test, public ToolOnMemory {
  protected:
    using Milliseconds = std::chrono::milliseconds;

    Changeover() {
        peer.memory[{250, 0x000A}] = Bytes({1, 16, 3, 4, 5, 4});
        peer.Answer(kStatusCommand, kBoth);
        peer.Answer(kLiveCommand, Live());
        ConnectOn(kTab);
    }
    void Read() { Click(tab.cmdReadCMSOptions); }
    // Long enough for one more pass to end.
    void Refresh() {
        tab.lblLockout.SetCaption("");
        world.loop.RunUntil([&] { return !tab.lblLockout.Caption().empty(); }, Milliseconds{2000});
    }
    // Does it at each of these moments of a pass, from a read on, and waits for the end.
    void AtEachMoment(const std::function<void()>& action, const std::function<void()>& check) {
        for (int moment = 200; moment <= 1200; moment += 50) {
            SCOPED_TRACE(moment);
            form.SSTab1.SetTabVisible(kTab, true);
            form.SSTab1.SetTab(kTab);
            Read();
            After(moment, action);
            Wait(5000);
            check();
        }
    }

    ChangeoverTab& tab = form.changeover;
};

TEST_F(Changeover, RefreshReadsTwoRecordsHalfASecondApart) {
    Read();
    world.tcpsend.ClearSent();
    Refresh();
    const auto& frames = world.tcpsend.frames();
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_GE(frames[1].time - frames[0].time, Milliseconds{500});
    EXPECT_LE(frames[1].time - frames[0].time, Milliseconds{610});  // and one tick of the reader
}

TEST_F(Changeover, WrongRecordsChangeNothing) {
    peer.Answer(kLiveCommand, Live() + "20");
    Read();
    Wait(2000);
    EXPECT_EQ(tab.txtCurrent(3).Text(), "000") << "copied on the first good pass";
    peer.Answer(kLiveCommand, Live());
    Refresh();
    EXPECT_EQ(tab.txtCurrent(3).Text(), "11");
    const std::string good = session.ChangeoverStatus;
    tab.lblLockout.SetCaption("as it was");
    for (const std::string& record :
         {Live().substr(0, 18), Live() + "x", std::string(), std::string(500, '\x10'), Live(99)}) {
        peer.Answer(kLiveCommand, record);
        // The last one is good; its partner is not.
        if (record == Live(99)) peer.Answer(kStatusCommand, kBoth + "x");
        Wait(2000);
        EXPECT_EQ(session.ChangeoverStatus, good);
        EXPECT_EQ(tab.lblLockout.Caption(), "as it was");
    }
    peer.Answer(kLiveCommand, std::string(19, '\x10'));  // undoubled, a good one
    peer.Answer(kStatusCommand, kBoth);
    Refresh();
    EXPECT_EQ(session.ChangeoverStatus, std::string(19, '\x10'));
}

TEST_F(Changeover, SilenceNeverPilesUpPasses) {
    Read();
    peer.ReplyRaw(kStatusCommand, "");
    world.RunFor(std::chrono::minutes{20});
    EXPECT_LT(world.max_pump_depth(), 10);
    EXPECT_LT(SentTexts().size(), 500u);
    peer.ReplyRaw(kStatusCommand, Framed(kStatusCommand + kBoth));
    Wait(6000);
    EXPECT_EQ(tab.lblLockout.Caption(), " 9");
}

TEST_F(Changeover, LeavingTheTabEndsAPassAnywhere) {
    AtEachMoment(
        [&] {
            form.SSTab1.SetTab(0);
            world.tcpsend.ClearSent();
        },
        [&] {
            EXPECT_TRUE(SentTexts().empty());
            EXPECT_EQ(tab.lblOffTimeMain.Caption(), "");
            EXPECT_EQ(form.lblMemoryBlock.Caption(), "");
            EXPECT_FALSE(tab.cmdSaveCurrent(0).Enabled());
        });
}

// The pass of a lost connection neither polls the next one nor keeps it from being polled.
TEST_F(Changeover, LosingTheLinkEndsAPassAnywhere) {
    AtEachMoment(
        [&] {
            Click(form.cmdDisconnect);
            Click(form.cmdConnect);
            world.tcpsend.ClearSent();
            EXPECT_FALSE(form.timCMSOptions.Enabled());
            After(800, [&] {
                session.AdminLoggedIn = true;
                tool.changeover.cmdReadCMSOptions_Click();
            });
        },
        [&] {
            const auto texts = SentTexts();
            ASSERT_GT(texts.size(), 4u);
            EXPECT_EQ(texts[0], HexText(kStartupRead));
            for (std::size_t i = 1; i < texts.size(); ++i) {
                EXPECT_EQ(texts[i], HexText(i % 2 == 1 ? kStatusCommand : kLiveCommand));
            }
            EXPECT_EQ(tab.lblLockout.Caption(), " 9");
        });
}

TEST_F(Changeover, NoOtherCommandComesBetweenTheRecordsOfAPass) {
    Read();
    Refresh();
    tab.lblLockout.SetCaption("as it was");
    world.tcpsend.ClearSent();
    After(600, [&] { tool.link.Command(ReadCommand(250, 0x0000)); });
    Wait(800);
    EXPECT_EQ(SentTexts(), (std::vector<std::string>{HexText(kStatusCommand), "FA11000010"}));
    EXPECT_EQ(tab.lblLockout.Caption(), "as it was");
    Refresh();
    EXPECT_EQ(tab.lblLockout.Caption(), " 9");
}

// The click may come at any moment of a pass, also while a poll awaits its answer.
TEST_F(Changeover, NothingIsPolledDuringThePauseOfASave) {
    Read();
    Refresh();
    for (const bool live : {true, false}) {
        Button& save = live ? tab.cmdSaveCurrent(0) : tab.cmdSaveStartup(0);
        for (int moment = 0; moment < 1000; moment += 70) {
            SCOPED_TRACE(moment);
            After(moment, [&] {
                const auto clicked = world.Now();
                world.tcpsend.ClearSent();
                Click(save);
                ASSERT_EQ(SentTexts().size(), 1u);
                EXPECT_EQ(SentTexts()[0].substr(0, 4), live ? "FA3A" : "FA12");
                EXPECT_GE(world.tcpsend.frames()[0].time - clicked,
                          Milliseconds{live ? 600 : 1000});
            });
            Wait(4000);
            EXPECT_TRUE(form.timCMSOptions.Enabled());
            EXPECT_TRUE(world.boxes.shown().empty());
        }
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

}  // namespace
}  // namespace kestrane
