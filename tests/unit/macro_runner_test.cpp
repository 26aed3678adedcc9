#include "simulation/macro_runner.h"

#include <gtest/gtest.h>

#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

using simulation::DelayOf;

// A unit with a program of one's own from 0x10 on, all outlets off, started by GOTO LINE.
class MacroRunnerTest : public testing::Test {
  protected:
    void Load(std::initializer_list<int> program, int address = 0x10) {
        unit_.Relay().Write(2 * static_cast<std::size_t>(address), Bytes(program));
    }
    void Start(std::initializer_list<int> program, int at_ms = 0) {
        unit_.Relay().Write(0x0020, std::string(0xE0, '\0'));
        Load(program);
        unit_.Advance(Milliseconds{at_ms});
        unit_.Live().outlets_on = 0;
        Ask(unit_, kPortA, {kRelayByte, 0x61, 0x10}, at_ms);
    }
    std::string Status(int at_ms) { return DataOf(unit_, kPortA, {kRelayByte, 0x31}, at_ms); }
    int Outlets(int at_ms) {
        const std::string status = Status(at_ms);
        return (ByteAt(status, 1) << 8 | ByteAt(status, 2)) & 0x3FFF;
    }
    int Pointer(int at_ms) { return ByteAt(Status(at_ms), 9); }

    Unit unit_;
};

TEST(DelayOf, ReadsTheTimeCode) {
    EXPECT_EQ(DelayOf(0x05).count(), 500);
    EXPECT_EQ(DelayOf(0x7F).count(), 63'000);
    EXPECT_EQ(DelayOf(0x81).count(), 10'000);
    EXPECT_EQ(DelayOf(0xFF).count(), 6'300'000);
    EXPECT_EQ(DelayOf(0xC0).count(), 0);
}

TEST_F(MacroRunnerTest, TheStandardProgramSwitchesOneOutletEachHalfSecond) {
    unit_.Live().outlets_on = 0;
    EXPECT_EQ(Pointer(100), 0x15) << "set up and stopped";
    unit_.SetSwitch(false, Milliseconds{1000});
    unit_.Advance(Milliseconds{5000});
    unit_.SetSwitch(true, Milliseconds{10'000});
    EXPECT_EQ(Outlets(10'499), 0x0000);
    EXPECT_EQ(Outlets(10'500), 0x0001);
    EXPECT_EQ(Pointer(10'600), 0x1B);
    EXPECT_EQ(Outlets(16'999), 0x1FFF);
    EXPECT_EQ(Outlets(17'000), 0x3FFF);
    EXPECT_EQ(Pointer(20'000), 0x28);
    unit_.SetSwitch(false, Milliseconds{30'000});
    EXPECT_EQ(Outlets(30'500), 0x1FFF) << "off goes from the last outlet down";
    unit_.SetSwitch(true, Milliseconds{30'600});
    EXPECT_EQ(Outlets(31'102), 0x1FFF) << "13 outlets are skipped, the last one waits";
    EXPECT_EQ(Outlets(31'113), 0x3FFF);
}

TEST_F(MacroRunnerTest, AFixedDelayIsSpentWhereASkippedOneIsNot) {
    Start({0x20, 0x0A, 0x20, 0x0A, 0x40, 0x0A, 0x41, 0x0A, 0x30, 0x0A, 0x30, 0x0A, 0x11, 0x0A});
    EXPECT_EQ(Outlets(999), 0);
    EXPECT_EQ(Outlets(1000), 1);
    EXPECT_EQ(Pointer(1999), 0x11) << "on already, and waits all the same";
    EXPECT_EQ(Pointer(2002), 0x13) << "skipped";
    EXPECT_EQ(Outlets(3002), 3);
    EXPECT_EQ(Outlets(4001), 2);
    EXPECT_EQ(Pointer(4003), 0x16);
    EXPECT_EQ(Outlets(5003), 0);
}

TEST_F(MacroRunnerTest, WaitsAndSwitchesAll) {
    Start({0x02, 0x43, 0x52, 0x01, 0x51, 0x02});
    EXPECT_EQ(Pointer(2999), 0x10);
    EXPECT_EQ(Outlets(3100), 0x3FFF);
    EXPECT_EQ(Outlets(3300), 0);
    EXPECT_EQ(Pointer(3400), 0x13);
    EXPECT_FALSE(unit_.Runner().Running());
}

TEST_F(MacroRunnerTest, CountsDownToZeroAndUpTo255) {
    // Counter 1 from 3: outlet 1 on after three turns. Counter 2 from 253: outlet 2 after two.
    Start({0xA0, 3, 0xA1, 0x13, 0x01, 0x11, 0x20, 0x00,  //
           0xB0, 253, 0xB2, 0x17, 0x01, 0x15, 0x21, 0x00});
    unit_.Advance(Milliseconds{100});
    EXPECT_EQ(Outlets(100), 3);
    EXPECT_EQ(unit_.Runner().Counter(0), 0);
    EXPECT_EQ(unit_.Runner().Counter(1), 255);
}

TEST_F(MacroRunnerTest, StopsAtAnIllegalOperationAndAtTheEndOfMemory) {
    Start({0xFF, 0xFF, 0x52, 0x00});
    EXPECT_EQ(Pointer(500), 0x10);
    EXPECT_EQ(Outlets(500), 0);
    Load({0x03, 0x00}, 0x7F);
    Ask(unit_, kPortA, {kRelayByte, 0x61, 0x7F}, 600);
    EXPECT_EQ(Pointer(700), 0x7F);
    EXPECT_FALSE(unit_.Runner().Running());
    for (const int line : {0x00, 0x0F, 0x80, 0xFF}) {
        Ask(unit_, kPortA, {kRelayByte, 0x61, line}, 800);
        EXPECT_EQ(Pointer(900), 0x7F) << line;
    }
}

TEST_F(MacroRunnerTest, ALoopWithoutWaitsDoesNotHoldUpTheUnit) {
    Start({0x01, 0x10});
    for (int hours = 1; hours <= 1000; ++hours) {
        unit_.Advance(Milliseconds{std::int64_t{3'600'000} * hours});
    }
    EXPECT_TRUE(unit_.Runner().Running());
}

TEST_F(MacroRunnerTest, GpiEdgesInterruptUnlessDisabledOrInhibited) {
    Start({0x62, 0x20, 0x63, 0x28});
    Load({0x20, 0x00}, 0x20);
    Load({0x21, 0x00}, 0x28);
    unit_.SetGpi(1, true, Milliseconds{100});
    EXPECT_EQ(Outlets(110), 0) << "high already: no edge";
    unit_.SetGpi(1, false, Milliseconds{200});
    EXPECT_EQ(Outlets(210), 1);
    unit_.SetGpi(1, true, Milliseconds{300});
    EXPECT_EQ(Outlets(310), 3);

    Start({0x03, 0x00}, 1000);
    unit_.SetGpi(1, false, Milliseconds{1100});
    EXPECT_EQ(Outlets(1200), 0) << "disabled";
    Start({0x04, 0x00, 0x64, 0x0A}, 2000);
    unit_.SetGpi(1, true, Milliseconds{2500});
    EXPECT_EQ(Outlets(2600), 0) << "inhibited";
    unit_.SetGpi(1, false, Milliseconds{3100});
    EXPECT_EQ(Pointer(3110), 0x20) << "the inhibit has run out";
}

TEST_F(MacroRunnerTest, AGpiThatIsAnOutputTakesNoInput) {
    Start({0x60, 0x00});
    EXPECT_FALSE(unit_.SetGpi(1, true, Milliseconds{100}));
    EXPECT_TRUE(unit_.SetGpi(2, false, Milliseconds{100}));
    EXPECT_FALSE(unit_.SetGpi(5, true, Milliseconds{100}));
    EXPECT_EQ(ByteAt(Status(200), 8) & 0x0F, 0x0C);
}

TEST_F(MacroRunnerTest, LocksAndLatchesHoldForTheirSupply) {
    // Main: lock off outlet 1, latch on outlet 9. Backup: lock off outlet 14.
    Start({0x56, 0x01, 0x57, 0x01, 0x59, 0x20, 0x52, 0x00, 0x51, 0x0A});
    EXPECT_EQ(Outlets(100), 0x3FFE);
    unit_.SetSupply(Supply::kMain, false, Milliseconds{200});
    EXPECT_EQ(Outlets(300), 0x1FFE);
    EXPECT_EQ(Outlets(2000), 0x0000);
    unit_.SetSupply(Supply::kMain, true, Milliseconds{3000});
    EXPECT_EQ(Outlets(3100), 0x0000) << "not changed back yet";
    EXPECT_EQ(ByteAt(DataOf(unit_, kPortA, {kRelayByte, 0x39}, 3100), 12), 3);
    EXPECT_EQ(Outlets(33'000), 0x0100) << "latched on as soon as the main supply is back";
}

TEST_F(MacroRunnerTest, SupplyInterruptsAndTheBitsOfTheInlets) {
    Start({0xC0, 0x20, 0xC1, 0x28, 0xC5, 0x00, 0xC6, 0x02});
    Load({0x20, 0x00}, 0x20);
    Load({0x21, 0x00}, 0x28);
    EXPECT_EQ(ByteAt(Status(100), 6) & 0xC0, 0xC0);
    EXPECT_EQ(ByteAt(Status(100), 3), 2) << "alarm";
    unit_.SetSupply(Supply::kMain, false, Milliseconds{200});
    EXPECT_EQ(Outlets(300), 1);
    EXPECT_EQ(ByteAt(Status(300), 1) & 0x80, 0x80);
    EXPECT_EQ(ByteAt(Status(300), 6) & 0xC0, 0x80);
    unit_.SetSupply(Supply::kMain, true, Milliseconds{400});
    EXPECT_EQ(Outlets(500), 3) << "change back delay 0";
    EXPECT_EQ(ByteAt(Status(500), 1) & 0x80, 0x00);
}

TEST_F(MacroRunnerTest, FlagsShowPowerAndFuses) {
    Start({0x20, 0x00, 0x21, 0x00});
    unit_.SetFuse(2, false);
    unit_.SetFuse(3, false);
    const std::string status = Status(100);
    EXPECT_EQ(status.size(), 13u);
    EXPECT_EQ(ByteAt(status, 5), 0x01) << "outlet 1 has power, outlet 2 is on behind a blown fuse";
    EXPECT_EQ(ByteAt(status, 7), 0xF9);
}

TEST_F(MacroRunnerTest, MacrosStartByTheirTriggerUnlessInhibited) {
    Start({0xE7, 0x02});
    unit_.Advance(Milliseconds{50});
    Load({0x20, 0x00}, 0x1A);
    EXPECT_TRUE(unit_.StartMacro(1, Milliseconds{100}));
    EXPECT_EQ(Outlets(200), 1);
    EXPECT_FALSE(unit_.StartMacro(2, Milliseconds{300})) << "inhibited";
    EXPECT_FALSE(unit_.StartMacro(8, Milliseconds{300})) << "disabled";
}

}  // namespace
}  // namespace kestrane::unit
