// What a running macro does stands in macro_runner.story.

#include "simulation/macro_runner.h"

#include <gtest/gtest.h>

#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

using simulation::DelayOf;

TEST(DelayOf, ReadsTheTimeCode) {
    EXPECT_EQ(DelayOf(0x05).count(), 500);
    EXPECT_EQ(DelayOf(0x7F).count(), 63'000);
    EXPECT_EQ(DelayOf(0x81).count(), 10'000);
    EXPECT_EQ(DelayOf(0xFF).count(), 6'300'000);
    EXPECT_EQ(DelayOf(0xC0).count(), 0);
}

TEST(MacroRunner, ALoopWithoutWaitsDoesNotHoldUpTheUnit) {
    Unit unit;
    unit.Relay().Write(0x0020, Bytes({0x01, 0x10}));
    Ask(unit, kPortA, {kRelayByte, 0x61, 0x10}, 0);
    for (int hours = 1; hours <= 1000; ++hours) {
        unit.Advance(Milliseconds{std::int64_t{3'600'000} * hours});
    }
    EXPECT_TRUE(unit.Runner().Running());
}

}  // namespace
}  // namespace kestrane::unit
