#include "unit/commands.h"

#include <gtest/gtest.h>

#include "unit/defaults.h"
#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

TEST(Commands, ReadsAndWritesAnyRange) {
    Unit unit;
    EXPECT_EQ(DataOf(unit, kPortA, {kDisplayByte, 0x11, 0x00, 0x20, 4}),
              Bytes({192, 168, 10, 100}));
    const std::string data = Bytes({0x10, 0x10, 0x03, 0x10, 0x02});
    const std::string write = Bytes({kDisplayByte, 0x12, 0x00, 0x4E, 5}) + data;
    EXPECT_EQ(AskText(unit, kPortA, write), write);
    EXPECT_EQ(unit.Display().Read(0x004E, 5), data);
    EXPECT_EQ(DataOf(unit, kPortA, {kDisplayByte, 0x11, 0x00, 0x4E, 5}), data);
    EXPECT_EQ(unit.Relay().Read(0x004E, 2), Bytes({0x4D, 0x05})) << "the other board is untouched";
    EXPECT_EQ(DataOf(unit, kPortA, {kRelayByte, 0x11, 0x03, 0xFE, 255}).size(), 255u);
    EXPECT_EQ(DataOf(unit, kPortA, {kRelayByte, 0x11, 0xFF, 0xFF, 2}), "\xFF\xFF");
}

TEST(Commands, StaysSilentWhereACommandIsNone) {
    Unit unit;
    EXPECT_EQ(Ask(unit, kPortA, {kDisplayByte, 0x12, 0x00, 0x40, 3, 'a', 'b'}), "silence");
    EXPECT_EQ(Ask(unit, kPortA, {kDisplayByte, 0x11, 0x00, 0x40}), "silence");
    EXPECT_EQ(Ask(unit, kPortA, {kDisplayByte, 0x21}), "silence") << "a relay command";
    EXPECT_EQ(Ask(unit, kPortA, {kRelayByte, 0x41}), "silence") << "a display command";
    EXPECT_EQ(Ask(unit, kPortA, {kRelayByte, 0x99}), "silence");
    EXPECT_EQ(Ask(unit, kPortA, {0x02, 0x21}), "silence") << "another unit's address";
    EXPECT_EQ(Ask(unit, 4, {kRelayByte, 0x21}), "silence") << "no such port";
}

TEST(Commands, AnswersAtItsOwnIdAndAtTheCommonAddress) {
    Unit unit;
    struct Case {
        int id, relay, display;
    };
    for (const Case c : {Case{0, 0, 128}, Case{4, 4, 132}, Case{0x61, 1, 129}}) {
        unit.Relay().Set(relay::kId, c.id);
        EXPECT_EQ(DataOf(unit, kPortA, {c.relay, 0x21}).size(), 4u) << c.id;
        EXPECT_EQ(DataOf(unit, kPortA, {kRelayByte, 0x21}).size(), 4u) << c.id;
        EXPECT_EQ(DataOf(unit, kPortA, {c.display, 0x28}).size(), 7u) << c.id;
    }
    EXPECT_EQ(Ask(unit, kPortA, {0x61, 0x21}), "silence");
}

TEST(Commands, TakesANewIdAndAnswersFromIt) {
    Unit unit;
    const std::string serial = unit.Relay().Read(relay::kSerial, 4);
    const std::string command = Bytes({kRelayByte, 0x23}) + serial + Bytes({3});
    EXPECT_EQ(AskText(unit, kPortA, command), Bytes({3, 0x23}) + serial + Bytes({3}));
    EXPECT_EQ(DataOf(unit, kPortA, {3, 0x11, 0x00, 0x04, 1}), Bytes({3}));
    EXPECT_EQ(Ask(unit, kPortA, {kRelayByte, 0x23, 0, 0, 0, 0, 2}), "silence") << "not its serial";
    EXPECT_EQ(unit.Relay().At(relay::kId), 3);
}

TEST(Commands, NeverGivesAKeyAway) {
    Unit unit;
    const std::string erased(16, '\xFF');
    EXPECT_EQ(DataOf(unit, kPortA, {kDisplayByte, 0x11, 0x03, 0x00, 16}), erased);
    const std::string key = HexPairs("00112233445566778899AABBCCDDEEFF");
    AskText(unit, kPortA, Bytes({kDisplayByte, 0x12, 0x03, 0x00, 16}) + key);
    EXPECT_EQ(unit.Display().Read(0x0300, 16), key);
    EXPECT_EQ(DataOf(unit, kPortA, {kDisplayByte, 0x11, 0x03, 0x00, 16}), std::string(16, '\0'));
    // A read across three keys hides the set one alone.
    EXPECT_EQ(DataOf(unit, kPortA, {kDisplayByte, 0x11, 0x02, 0xF8, 0x20}),
              std::string(8, '\xFF') + std::string(16, '\0') + std::string(8, '\xFF'));
    EXPECT_EQ(DataOf(unit, kPortA, {kRelayByte, 0x11, 0x03, 0x00, 2}), unit.Relay().Read(0x300, 2));
    AskText(unit, kPortA, Bytes({kDisplayByte, 0x12, 0x03, 0x00, 16}) + erased);
    EXPECT_EQ(DataOf(unit, kPortA, {kDisplayByte, 0x11, 0x03, 0x00, 16}), erased);
}

TEST(Commands, TellsTheTypeByPlaceAndLength) {
    const auto type_reply = [](UnitType type) {
        Unit unit({type, false});
        const std::string frame =
            unit.Receive(kPortA, EncodeFrame(Bytes({kDisplayByte, 0x41})), Milliseconds{5});
        FrameParser parser;
        // The undoubled reply with its marks and checksum.
        return Bytes({0x10, 0x02}) + parser.Feed(frame).at(0) + Bytes({0, 0x10, 0x03});
    };
    EXPECT_NE(Mid(type_reply(UnitType::kCms), 7, 2), "\xFF\xFF");
    EXPECT_NE(type_reply(UnitType::kCms).size(), 65u);
    EXPECT_EQ(Mid(type_reply(UnitType::kSingle), 7, 2), "\xFF\xFF");
    EXPECT_NE(type_reply(UnitType::kSingle).size(), 65u);
    EXPECT_EQ(type_reply(UnitType::k636).size(), 65u);
}

TEST(Commands, ReadsCommitsAndClearsSensors) {
    Unit unit;
    const auto committed = [&] { return unit.Relay().Read(relay::kCommittedSensors, 16 * 9); };
    const std::string first = DataOf(unit, kPortA, {kRelayByte, 0x82, 0x01, 1});
    ASSERT_EQ(first.size(), 10u);
    EXPECT_EQ(first[7], '\x26') << "the family code is the last address byte";
    EXPECT_EQ(first[9], '\x05');
    EXPECT_EQ(DataOf(unit, kPortA, {kRelayByte, 0x82, 0x01, 16}), std::string(9, '\xFF') + "\x05");
    EXPECT_EQ(Ask(unit, kPortA, {kRelayByte, 0x82, 0x01, 17}), Refusal(kRelayByte, 0x82, 0x15));

    Ask(unit, kPortA, {kRelayByte, 0x82, 0x03});
    std::string live;
    for (int n = 1; n <= 16; ++n) {
        live += DataOf(unit, kPortA, {kRelayByte, 0x82, 0x01, n}).substr(0, 9);
    }
    EXPECT_EQ(committed(), live);
    Ask(unit, kPortA, {kRelayByte, 0x82, 0x02});
    EXPECT_EQ(committed(), std::string(16 * 9, '\xFF'));

    Unit old({UnitType::kCms, true});
    EXPECT_EQ(Ask(old, kPortA, {kRelayByte, 0x82, 0x01, 1}), Refusal(kRelayByte, 0x82, 0x15));
}

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

TEST(Commands, WritesLiveChangeoverValuesByPairs) {
    Unit unit;
    EXPECT_EQ(DataOf(unit, kPortA, {kRelayByte, 0x39}).size(), 19u);
    Ask(unit, kPortA, {kRelayByte, 0x3A, 2, 21, 3, 22, 4, 23, 5, 24});
    Ask(unit, kPortA, {kRelayByte, 0x3A, 6, 2, 9, 9});
    Ask(unit, kPortA, {kRelayByte, 0x3A, 6, 6});
    EXPECT_EQ(DataOf(unit, kPortA, {kRelayByte, 0x3A}), "") << "no pairs are answered all the same";
    EXPECT_EQ(Mid(DataOf(unit, kPortA, {kRelayByte, 0x39}), 3, 5), Bytes({21, 22, 23, 24, 2}));
    EXPECT_NE(unit.Relay().At(relay::kChangeover), 21) << "the startup value stays";
}

TEST(Commands, ResetsTheEthernetWithoutAnAnswer) {
    Unit unit;
    EXPECT_EQ(unit.Receive(kPortA, HexPairs("1002FB1F03001D1003"), Milliseconds{5}), "");
    EXPECT_TRUE(unit.TakeEthernetReset());
    EXPECT_FALSE(unit.TakeEthernetReset());
}

TEST(Commands, EchoesTheBootloaderAndTellsVersions) {
    Unit unit;
    EXPECT_EQ(DataOf(unit, kPortA, {kRelayByte, 0x15, 0, 0, 0, 0, 1}), "");
    EXPECT_EQ(HexText(DataOf(unit, kPortA, {kRelayByte, 0x28})).substr(0, 3), "3AB");
    EXPECT_EQ(HexText(DataOf(unit, kPortA, {kDisplayByte, 0x28})).substr(0, 3), "3D3");
    std::size_t entries = 1;
    for (char c : VersionsPage()) entries += c == ' ' ? 1u : 0u;
    EXPECT_EQ(entries, 13u);
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
