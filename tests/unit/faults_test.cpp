#include "unit/faults.h"

#include <gtest/gtest.h>

namespace kestrane::unit {
namespace {

TEST(ParseFaults, TakesEachFaultWithAndWithoutProbability) {
    const ParsedFaults parsed = ParseFaults(
        "delay:200,delay:50:0.5,split:0.3,silent,corrupt,refuse,close,reset:0,deny,"
        "echo,short,flood:1");
    EXPECT_EQ(parsed.error, "");
    const std::vector<Fault> expected{{FaultKind::kDelay, 1, Milliseconds{200}},
                                      {FaultKind::kDelay, 0.5, Milliseconds{50}},
                                      {FaultKind::kSplit, 0.3},
                                      {FaultKind::kSilent},
                                      {FaultKind::kCorrupt},
                                      {FaultKind::kRefuse},
                                      {FaultKind::kClose},
                                      {FaultKind::kReset, 0},
                                      {FaultKind::kDeny},
                                      {FaultKind::kEcho},
                                      {FaultKind::kShort},
                                      {FaultKind::kFlood}};
    EXPECT_EQ(parsed.faults, expected);
}

TEST(ParseFaults, NamesTheEntryThatIsNone) {
    for (const char* text : {"", "delay", "delay:", "delay:-1", "delay:1s", "delay:1:2",
                             "delay:1:0.5:", "split:", "split:1.5", "split:-0.1", "split:nan",
                             "split:0.5:1", "Split", "noise"}) {
        const ParsedFaults parsed = ParseFaults("silent," + std::string(text));
        EXPECT_NE(parsed.error.find("\"" + std::string(text) + "\""), std::string::npos) << text;
        EXPECT_TRUE(parsed.faults.empty()) << text;
    }
}

std::vector<WireStep> PlanWith(const char* faults, const std::string& frame,
                               std::uint32_t seed = 1) {
    return FaultDice(ParseFaults(faults).faults, seed).Plan(frame);
}

TEST(FaultDice, PlansWhatEachFaultSays) {
    const std::string frame = "0123456789";
    for (std::uint32_t seed = 1; seed <= 50; ++seed) {
        const auto split = PlanWith("delay:70,delay:30,split", frame, seed);
        ASSERT_EQ(split.size(), 2u);
        EXPECT_EQ(split[0].wait, Milliseconds{100});
        EXPECT_EQ(split[1].wait, FaultDice::kSplitPause);
        EXPECT_FALSE(split[0].bytes.empty() || split[1].bytes.empty());
        EXPECT_EQ(split[0].bytes + split[1].bytes, frame);

        const auto corrupt = PlanWith("corrupt", frame, seed);
        ASSERT_EQ(corrupt.size(), 1u);
        int differing = 0;
        for (std::size_t i = 0; i < frame.size(); ++i) differing += corrupt[0].bytes[i] != frame[i];
        EXPECT_EQ(differing, 1);

        const std::string spoilt =
            FaultDice(ParseFaults("echo,short").faults, seed).Spoil("echo12345678", 4);
        EXPECT_EQ(spoilt.substr(4), "1234");
        EXPECT_NE(spoilt.substr(0, 4), "echo");
    }
    const auto close = PlanWith("close", frame);
    EXPECT_EQ(close[0].bytes, "01234");
    EXPECT_EQ(close[0].end, WireStep::End::kClose);
    const auto reset = PlanWith("reset,close", frame);
    EXPECT_EQ(reset[0].bytes, "");
    EXPECT_EQ(reset[0].end, WireStep::End::kReset);
    EXPECT_EQ(PlanWith("silent,refuse", frame)[0].bytes, frame) << "not the reply's affair";
}

TEST(FaultDice, StrikesAsOftenAsSaidAndAlikeForOneSeed) {
    FaultDice dice(ParseFaults("silent:0.25,refuse:0").faults, 7);
    FaultDice twin(ParseFaults("silent:0.25,refuse:0").faults, 7);
    int struck = 0;
    for (int i = 0; i < 4000; ++i) {
        const bool strikes = dice.SwallowsFrame();
        EXPECT_EQ(strikes, twin.SwallowsFrame());
        struck += strikes;
        EXPECT_FALSE(dice.RefusesConnection() || twin.RefusesConnection());
    }
    EXPECT_NEAR(struck, 1000, 120);
}

}  // namespace
}  // namespace kestrane::unit
