#include "simulation/simulation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "macro/instruction_set.h"
#include "text/text.h"
#include "unit/defaults.h"
#include "unit/unit.h"

namespace kestrane::simulation {
namespace {

using testing::ElementsAre;

constexpr Milliseconds kHour{3'600'000};

struct Program {
    Program& At(int address, std::initializer_list<int> bytes) {
        auto at = 2 * static_cast<std::size_t>(address);
        for (const int byte : bytes) image[at++] = static_cast<std::uint8_t>(byte);
        return *this;
    }
    Timeline Simulate(std::vector<TimedInput> inputs = {}, Milliseconds limit = kHour,
                      const Start& start = {}) const {
        return simulation::Simulate(image, start, std::move(inputs), limit);
    }
    std::array<std::uint8_t, 256> image{};
};

TimedInput At(int ms, std::string_view words) { return {Milliseconds{ms}, *ParseInput(words)}; }

// "501 11 +1", outlets switched on and off after the address; an input shows its words.
std::vector<std::string> Shown(const Timeline& run) {
    std::vector<std::string> lines;
    for (const Event& event : run.events) {
        std::string line = std::to_string(event.at.count()) + " ";
        line += event.address ? HexByte(*event.address) : event.words;
        for (int outlet = 0; outlet < kOutlets; ++outlet) {
            if (event.on >> outlet & 1) line += " +" + std::to_string(outlet + 1);
            if (event.off >> outlet & 1) line += " -" + std::to_string(outlet + 1);
        }
        lines.push_back(line);
    }
    return lines;
}

TEST(Simulation, AnInstructionTakesEffectAfterItsDelayOrAMillisecond) {
    const Timeline run = Program().At(0x10, {0xC6, 3, 0x40, 5, 0x40, 5, 0x51, 10}).Simulate();
    EXPECT_THAT(Shown(run), ElementsAre("1 10", "501 11 +1", "502 12", "1502 13 -1", "1503 14"));
    EXPECT_EQ(run.why, Timeline::Why::kStop);
    EXPECT_EQ(run.end.count(), 1503);
    EXPECT_EQ(run.outlets, 0);
}

TEST(Simulation, EndsWhenTheStateIsBackAndSaysSinceWhen) {
    // Outlet 1 on once, then a counter that goes round: 256 turns of 101 ms.
    const Timeline run = Program().At(0x10, {0x40, 5, 0xA2, 0x13, 0x02, 1, 0x01, 0x11}).Simulate();
    ASSERT_TRUE(run.repeats);
    EXPECT_EQ(run.why, Timeline::Why::kRepeats);
    EXPECT_EQ(run.repeats->every.count(), 255 * 102 + 2) << "one turn leaves the wait out";
    EXPECT_EQ(run.repeats->from.count(), 500);
    EXPECT_EQ(run.end, run.repeats->from + run.repeats->every);

    const Timeline idle = Program().At(0x10, {0x01, 0x10}).Simulate();
    EXPECT_EQ(idle.repeats->every.count(), 1);
    EXPECT_EQ(idle.repeats->from.count(), 0);

    // An inhibit that is set anew in each turn counts by the time it has left.
    const Timeline inhibit = Program().At(0x10, {0x64, 0x8A, 0x02, 5, 0x01, 0x10}).Simulate();
    EXPECT_EQ(inhibit.repeats->every.count(), 502);
    EXPECT_EQ(inhibit.repeats->from.count(), 1) << "before, nothing was inhibited";
}

TEST(Simulation, AStopWaitsForInputsOnlyIfOneCouldInterruptIt) {
    Program program = Program().At(0x20, {0x21, 10});
    const auto inputs = {At(2000, "switch off"), At(5000, "switch on"), At(9000, "gpi 4 low")};
    EXPECT_THAT(Shown(program.Simulate(inputs)), ElementsAre("1 10"));
    program.At(0x10, {0xD3, 0x20});
    const Timeline run = program.Simulate(inputs);
    EXPECT_THAT(Shown(run), ElementsAre("1 10", "2 11", "2000 switch off", "3000 20 +2", "3001 21",
                                        "5000 switch on", "9000 gpi 4 low"));
    EXPECT_EQ(run.end.count(), 9000);
    EXPECT_EQ(run.why, Timeline::Why::kStop);
}

TEST(Simulation, ALoopRunsOnWhileInputsAreToComeAndEndsAtTheLimit) {
    const Program program = Program().At(0x10, {0x02, 10, 0x01, 0x10});
    const Timeline run = program.Simulate({At(3500, "gpi 1 low")});
    EXPECT_THAT(Shown(run),
                ElementsAre("1000 10", "1001 11", "2001 10", "2002 11", "3002 10", "3003 11",
                            "3500 gpi 1 low", "4003 10", "4004 11", "5004 10"));
    EXPECT_EQ(run.repeats->from.count(), 4003);
    const Timeline cut = program.Simulate({At(3500, "gpi 1 low")}, Milliseconds{3100});
    EXPECT_EQ(cut.why, Timeline::Why::kTime);
    EXPECT_EQ(cut.end.count(), 3100);
    EXPECT_EQ(cut.events.size(), 6u);
}

TEST(Simulation, ALateInputAfterATightLoopIsReachedWithoutListingEachTurn) {
    const Timeline run = Program()
                             .At(0x10, {0xD3, 0x20, 0x01, 0x11})
                             .At(0x20, {0x40, 0})
                             .Simulate({At(86'000'000, "switch off")}, 24 * kHour);
    EXPECT_LT(run.events.size(), 250'000u);
    EXPECT_THAT(run.events[run.events.size() - 4].words, testing::HasSubstr("not listed"));
    EXPECT_EQ(Shown(run).back(), "86000002 21");
    EXPECT_EQ(run.outlets, 1);
}

TEST(Simulation, SuppliesFailAndComeBackByUnitType) {
    const Program program =
        Program().At(0x10, {0xC0, 0x20, 0xC1, 0x30}).At(0x20, {0x40, 0}).At(0x30, {0x41, 0});
    const auto inputs = {At(100, "supply lost"), At(100, "supply lost"), At(200, "supply back")};
    EXPECT_THAT(Shown(program.Simulate(inputs, kHour, {.type = UnitType::kSingle})),
                ElementsAre("1 10", "2 11", "3 12", "100 supply lost", "100 supply lost",
                            "101 20 +1", "102 21", "200 supply back", "201 30 +2", "202 31"));
    EXPECT_THAT(
        Shown(program.Simulate(inputs)),
        ElementsAre("1 10", "2 11", "3 12", "100 supply lost", "100 supply lost", "101 20 +1",
                    "102 21", "200 supply back", "30200 change back", "30201 30 +2", "30202 31"))
        << "a changeover unit goes back to its preferred supply after 30 s";
}

TEST(Simulation, CountsTheMostOutletsSwitchedOnWithinASecond) {
    const auto most = [](std::initializer_list<int> bytes, const Start& start = {}) {
        const MostOn found = Program().At(0x10, bytes).Simulate({}, kHour, start).most_on;
        return std::to_string(found.count) + " from " + std::to_string(found.from.count());
    };
    EXPECT_EQ(most({0x04, 0, 0x40, 5, 0x41, 5, 0x42, 5}), "2 from 501") << "1.0 s is two seconds";
    EXPECT_EQ(most({0x40, 0, 0x02, 10, 0x41, 0, 0x42, 0, 0x43, 5}), "3 from 1002");
    EXPECT_EQ(most({0x52, 5}, {.outlets_on = 0x0003}), "12 from 500");
    EXPECT_EQ(most({0x30, 5}, {.outlets_on = 0x0003}), "0 from 0");
}

TEST(Simulation, WordsOfInputsAndTimes) {
    EXPECT_EQ(ParseInput(" GPI  2 Low")->Words(), "gpi 2 low");
    EXPECT_EQ(ParseInput("supply back")->Words(), "supply back");
    for (const char* words : {"", "switch", "switch up", "gpi 0 low", "gpi 5 low", "supply on"}) {
        EXPECT_FALSE(ParseInput(words)) << words;
    }
    EXPECT_EQ(ParseSeconds("12.05")->count(), 12'050);
    EXPECT_EQ(SecondsText(Milliseconds{12'050}), "12.050");
    EXPECT_EQ(SecondsText(Milliseconds{7}), "0.007");
    for (const char* text : {"", ".", "1.", ".5", "-1", "1.2345", "1e3", "1 ", "9999999999"}) {
        EXPECT_FALSE(ParseSeconds(text)) << text;
    }
}

TEST(Simulation, RunsWhatTheTableHoldsAndStopsAtTheRest) {
    for (int opcode = 0; opcode < 256; ++opcode) {
        const Timeline run = Program().At(0x10, {opcode, 0x11}).Simulate();
        const bool runs = FindInstruction(static_cast<std::uint8_t>(opcode)) && opcode != 0;
        EXPECT_EQ(run.events.size(), runs ? 2u : 1u) << opcode;
    }
}

// The same program and the same hands, once in the simulation and once in a whole unit that is
// asked at odd times. Both must do the same at every moment.
TEST(Simulation, TheUnitDoesTheSameForRandomProgramsAndInputs) {
    std::mt19937 random(20260);
    const auto pick = [&random](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    const auto instructions = InstructionSet();
    const char* const kWords[] = {"switch on", "switch off", "gpi 1 low",   "gpi 1 high",
                                  "gpi 3 low", "gpi 3 high", "supply lost", "supply back"};
    for (int round = 0; round < 300; ++round) {
        Program program;
        for (int address = 0x10; address < 0x80; ++address) {
            const auto& row =
                instructions[static_cast<std::size_t>(pick(static_cast<int>(instructions.size())))];
            const int opcode = row.opcode + (row.outlet.empty() ? 0 : pick(16));
            const int second = row.operand == Operand::kAddress ? 0x10 + pick(0x70)
                               : row.operand == Operand::kTime  ? pick(0x90)
                                                                : pick(256);
            program.At(address, {opcode == 0 && pick(3) != 0 ? 4 : opcode, second});
        }
        const auto type = static_cast<UnitType>(pick(3));
        unit::Boards boards = unit::DefaultBoards({type, false});
        for (std::size_t i = 0x20; i < 0x100; ++i) boards.relay.Set(i, program.image[i]);
        unit::Unit unit({type, false}, boards);
        Simulation simulation(program.image, {.type = type, .outlets_on = unit.Live().outlets_on});
        for (int now = pick(900); now < 40'000; now += 1 + pick(900)) {
            const Milliseconds time{now};
            while (simulation.NextDue() && *simulation.NextDue() <= time) simulation.Step();
            simulation.PassTo(time);
            if (pick(3) == 0) {
                const Input input = *ParseInput(kWords[pick(8)]);
                simulation.Apply(input);
                if (input.kind == Input::Kind::kSwitch) unit.SetSwitch(input.up, time);
                if (input.kind == Input::Kind::kGpi) {
                    unit.SetGpi(static_cast<std::size_t>(input.gpi), input.up, time);
                }
                if (input.kind == Input::Kind::kSupply) {
                    unit.SetSupply(Supply::kMain, input.up, time);
                }
            } else {
                unit.Advance(time);
            }
            const MacroRunner& there = unit.Runner();
            const MacroRunner& here = simulation.Runner();
            ASSERT_EQ(here.Pointer(), there.Pointer()) << round << " at " << now;
            ASSERT_EQ(here.Live().outlets_on, there.Live().outlets_on) << round << " at " << now;
            ASSERT_EQ(here.Running(), there.Running());
            ASSERT_EQ(here.Counter(0), there.Counter(0));
            ASSERT_EQ(here.Live().alarm, there.Live().alarm);
            ASSERT_EQ(here.Live().gpi_high, there.Live().gpi_high);
            ASSERT_EQ(here.Live().changeover.OnBackup(), there.Live().changeover.OnBackup());
        }
    }
}

}  // namespace
}  // namespace kestrane::simulation
