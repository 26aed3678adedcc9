#include "unit/state.h"

#include <gtest/gtest.h>

#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

TEST(State, ARoundTripKeepsBothBoardsAndStartsLiveValuesFromMemory) {
    Unit unit;
    Ask(unit, kPortA, {kDisplayByte, 0x12, 0x00, 0x50, 3, 'N', 0x10, 0xFF});
    Ask(unit, kPortA, {kRelayByte, 0x12, 0x00, 0x0A, 1, 77});
    Ask(unit, kPortA, {kRelayByte, 0x3A, 3, 99});
    EXPECT_EQ(unit.SettingsChanges(), 2u) << "a live value is not kept";
    const DecodedState state = DecodeState(EncodeState(unit.Memory()));
    ASSERT_TRUE(state.boards) << state.error;
    Unit again({}, *state.boards);
    for (const std::size_t address : {0x0000u, 0x0200u, 0x03F0u}) {
        EXPECT_EQ(again.Relay().Read(address, 16), unit.Relay().Read(address, 16));
        EXPECT_EQ(again.Display().Read(address, 16), unit.Display().Read(address, 16));
    }
    EXPECT_EQ(again.Display().Read(0x0050, 3), "N\x10\xFF");
    EXPECT_EQ(Mid(DataOf(again, kPortA, {kRelayByte, 0x39}), 3, 2), Bytes({77, 14}));
}

TEST(State, RefusesAFileThatIsShortLongDamagedOrAnother) {
    const std::string good = EncodeState(Unit().Memory());
    std::string flipped = good;
    flipped[700] = static_cast<char>(flipped[700] ^ 0x01);
    for (const std::string& bad : {std::string(), good.substr(0, good.size() - 1), good + '\0',
                                   flipped, std::string(good.size(), '\0'), good.substr(0, 16)}) {
        const DecodedState state = DecodeState(bad);
        EXPECT_FALSE(state.boards);
        EXPECT_FALSE(state.error.empty());
    }
}

}  // namespace
}  // namespace kestrane::unit
