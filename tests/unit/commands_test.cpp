// What time and other kinds of answer do. The commands stand in commands.story.

#include "unit/commands.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "unit/defaults.h"
#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

TEST(Commands, KeepsLowestAndHighestReadingsUntilReset) {
    Unit unit;
    const auto reading = [&](std::size_t field) {
        const std::size_t at = relay::kReadings + 2 * field;
        return unit.Relay().At(at) << 8 | unit.Relay().At(at + 1);
    };
    for (int second = 0; second < 70; ++second) unit.Advance(Milliseconds{1000 * second});
    EXPECT_LT(reading(1), reading(2));
    Ask(unit, kPortA, {kRelayByte, 0x81, 0x02}, 70'000);
    EXPECT_EQ(reading(1), reading(0));
    EXPECT_EQ(reading(2), reading(0));
}

TEST(Defaults, TheVersionsPageHasThirteenEntries) {
    const std::string page = VersionsPage();
    EXPECT_EQ(std::count(page.begin(), page.end(), ' '), 12);
}

// Values that the tool can't tell from a blank or a refusal have no place in a unit for show.
TEST(Defaults, HoldNoByteThatReadsAmiss) {
    for (const UnitType type : {UnitType::kCms, UnitType::k636, UnitType::kSingle}) {
        Unit unit({type, false});
        EXPECT_NE(unit.Relay().At(0x0000), 0x20);
        EXPECT_NE(unit.Relay().At(0x0000), 0x16);
        EXPECT_NE(unit.Relay().At(0x000F), 0x20);
        for (std::size_t at = 0x02E8; at <= 0x02EF; ++at) {
            EXPECT_NE(unit.Display().At(at), 0x20) << at;
        }
    }
}

}  // namespace
}  // namespace kestrane::unit
