// Waits, `start`, modal forms and the end of the console.

#include "console_test_support.h"

namespace kestrane {
namespace {

class ConsoleTimeTest : public ConsoleTest {
  protected:
    void Connect() {
        ASSERT_EQ(Ask("click cmdConnect"), kOk);
        ASSERT_EQ(Ask("wait cmdReadNetworkSettings.usable true"), kOk);
    }
    std::chrono::milliseconds Now() const { return world.Now(); }
};

class ConsoleOnUnit : public ConsoleTimeTest {
  protected:
    UnitPeer peer{world.tcpsend, world.time};
};

TEST_F(ConsoleTimeTest, WaitEndsWhenTheValueComesAndNotBefore) {
    world.time.After(std::chrono::milliseconds(300), [this] { tool.session.UnitType = "CMS"; });
    const auto before = Now();
    EXPECT_EQ(Ask("wait UnitType CMS"), kOk);
    EXPECT_GE(Now() - before, std::chrono::milliseconds(300));
    EXPECT_LE(Now() - before, std::chrono::milliseconds(500));
}

TEST_F(ConsoleTimeTest, WaitGivesUpAfterTenSecondsOrTheTimeGiven) {
    auto before = Now();
    EXPECT_EQ(Ask("wait UnitType CMS"), "{\"ok\":false,\"error\":\"timeout\",\"value\":\"\"}");
    EXPECT_EQ(Now() - before, std::chrono::milliseconds(10'000));
    before = Now();
    EXPECT_EQ(Ask("wait UnitType CMS 0.5"), "{\"ok\":false,\"error\":\"timeout\",\"value\":\"\"}");
    EXPECT_EQ(Now() - before, std::chrono::milliseconds(500));
    before = Now();
    EXPECT_EQ(Ask("sleep 1234"), kOk);
    EXPECT_EQ(Now() - before, std::chrono::milliseconds(1234));
    EXPECT_EQ(Ask("idle"), kOk);
    EXPECT_EQ(Ask("sleep 0"), kOk);
}

TEST_F(ConsoleTimeTest, WaitCountsAValueThatStandsOnlyForAMomentInsideAHandling) {
    world.time.After(std::chrono::milliseconds(300), [this] {
        tool.main_form.lblMemoryBlock.SetCaption("there");
        tool.main_form.lblMemoryBlock.SetCaption("gone");
    });
    EXPECT_EQ(Ask("wait lblMemoryBlock there 1"), kOk);
    EXPECT_EQ(Value("lblMemoryBlock"), "\"gone\"");
}

TEST_F(ConsoleTimeTest, LaterLinesStayQueuedBehindAWait) {
    Feed({"sleep 1000", "get UnitType"});
    Wait(500);
    EXPECT_TRUE(Answers().empty());
    Wait(600);
    EXPECT_EQ(Answers().size(), 2u);
}

TEST_F(ConsoleOnUnit, ClickAnswersWhenItsOperationHasReturnedAndLaterLinesWait) {
    Connect();
    const auto begun = Now();
    Feed({"click cmdReadNetworkSettings", "get lblMemoryBlock"});
    Wait(10'000);
    ASSERT_EQ(lines.size(), 4u);  // two of them those of Connect
    EXPECT_GT(times[2] - begun, std::chrono::milliseconds(1000));
    EXPECT_EQ(lines[3], "{\"ok\":true,\"value\":\"Reading memory complete.\"}");
}

TEST_F(ConsoleOnUnit, StartAnswersAtOnceAndLaterLinesAreReadMeanwhile) {
    Connect();
    Feed({"start click cmdReadNetworkSettings", "wait lblMemoryBlock \"Reading block 3 of 14.\"",
          "get cmdReadNetworkSettings.enabled", "start click cmdConnect", "idle 0.2", "idle",
          "get lblMemoryBlock"});
    Wait(10'000);
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 2, lines.end()),
              (std::vector<std::string>{kOk, kOk, "{\"ok\":true,\"value\":false}",
                                        Error("cmdConnect is disabled"), Error("timeout"), kOk,
                                        "{\"ok\":true,\"value\":\"Reading memory complete.\"}"}));
}

// The read takes as long as it takes alone, and nothing of the console stands on top of it.
TEST_F(ConsoleOnUnit, WaitSleepAndIdleHoldUpNoOperation) {
    Connect();
    std::vector<std::chrono::milliseconds> took;
    MainForm& form = tool.main_form;
    const auto click = form.network.cmdReadNetworkSettings.on_click;
    form.network.cmdReadNetworkSettings.on_click = [&] {
        const auto begun = Now();
        click();
        took.push_back(Now() - begun);
    };
    Ask("click cmdReadNetworkSettings");
    for (const char* line : {"wait UnitType none 9", "sleep 9000", "idle 9"}) {
        Feed({"start click cmdReadNetworkSettings", line});
        Wait(20'000);
    }
    ASSERT_EQ(took.size(), 4u);
    for (const auto time : took) EXPECT_LE(time, took[0] + std::chrono::milliseconds(100));
    EXPECT_LE(world.max_pump_depth(), 3);
}

TEST_F(ConsoleTimeTest, AModalFormIsAnsweredWhenItsOpeningIsDone) {
    HelpForm& help = tool.help_form;
    help.on_activate = [&help] { help.lblHelp1.SetCaption("opened"); };
    tool.main_form.cmdHelp.on_click = [this] { tool.screen.ShowModal(tool.help_form); };
    help.OKButton.on_click = [this] { tool.screen.Hide(tool.help_form); };
    Feed({"click cmdHelp", "get frmHelp.lblHelp1", "click cmdConnect", "click frmHelp.OKButton"});
    // What `start` began is over once the form is up.
    Feed({"start click cmdHelp", "idle", "get frmHelp.visible", "close frmHelp"});
    Wait(1000);
    const char opened[] = "{\"event\":\"form\",\"name\":\"frmHelp\",\"open\":true}";
    const char closed[] = "{\"event\":\"form\",\"name\":\"frmHelp\",\"open\":false}";
    EXPECT_EQ(lines, (std::vector<std::string>{opened, "{\"ok\":true,\"modal\":\"frmHelp\"}",
                                               "{\"ok\":true,\"value\":\"opened\"}",
                                               Error("cmdConnect: frmHelp is open before it"),
                                               closed, kOk, kOk, opened, kOk,
                                               "{\"ok\":true,\"value\":true}", closed, kOk}));
}

TEST_F(ConsoleTimeTest, ABoxOfAHandlingComesBeforeItsAnswer) {
    tool.main_form.cmdHelp.on_click = [this] {
        scripted.Show("T", "t", {BoxButton::kOk});
        scripted.Beep();
    };
    Ask("click cmdHelp");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[1], "{\"event\":\"beep\"}");
    EXPECT_EQ(lines[2], kOk);
}

TEST_F(ConsoleTimeTest, EndOfInputQuitsBehindTheLinesBeforeIt) {
    Feed({"sleep 500", "get UnitType"});
    console.EndOfInput();
    EXPECT_EQ(RunToEnd(2000), 0);
    EXPECT_EQ(Answers().size(), 2u);
    EXPECT_EQ(Now(), std::chrono::milliseconds(500));
}

TEST_F(ConsoleOnUnit, EndOfInputLetsARunningOperationFinish) {
    Connect();
    console.FeedLine("click cmdReadNetworkSettings");
    console.EndOfInput();
    EXPECT_EQ(RunToEnd(20'000), 0);
    EXPECT_EQ(Answers().back(), kOk);
    EXPECT_TRUE(tool.session.AdminLoggedIn);
    EXPECT_EQ(world.tcpsend.State(), SocketState::kClosed);
}

TEST_F(ConsoleOnUnit, QuitEndsWhatStartBegan) {
    Connect();
    Feed({"start click cmdReadNetworkSettings", "sleep 300", "quit"});
    EXPECT_EQ(RunToEnd(20'000), 0);
    EXPECT_EQ(Answers().back(), kOk);
    EXPECT_EQ(world.tcpsend.State(), SocketState::kClosed);
}

// The connection is lost in the middle of an exchange: its wait has no end of its own.
TEST_F(ConsoleTimeTest, QuitEndsAHandlingThatNothingElseCan) {
    ScriptedPeer silent(world.tcpsend);
    Connect();
    world.tcpsend.CloseByPeer(std::chrono::milliseconds(1000));
    Feed({"click cmdReadNetworkSettings", "get UnitType", "quit", "get UnitType"});
    EXPECT_EQ(RunToEnd(10'000), 0);
    const auto answers = Answers();
    ASSERT_EQ(answers.size(), 5u);
    EXPECT_EQ(answers[2], Error("ended while its handling was waiting for the unit"));
    EXPECT_EQ(answers[3], Error("the program has ended"));
    EXPECT_EQ(answers[4], kOk);
}

TEST_F(ConsoleTimeTest, QuitWaitsForAHandlingThatTimesOut) {
    ScriptedPeer silent(world.tcpsend);
    Connect();
    Feed({"click cmdReadNetworkSettings", "quit"});
    EXPECT_EQ(RunToEnd(10'000), 0);
    EXPECT_EQ(Answers()[2], kOk);
    EXPECT_EQ(tool.main_form.Label3.Caption(), "T");
}

TEST_F(ConsoleTimeTest, ClosingTheMainFormAnswersAndEnds) {
    Feed({"close frmMainForm", "get UnitType"});
    EXPECT_EQ(RunToEnd(10), 0);
    EXPECT_EQ(Answers(), std::vector<std::string>{kOk});
}

}  // namespace
}  // namespace kestrane
