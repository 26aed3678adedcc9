// Quads, key filters, repairs and reminders of the settings boxes.

#include <gtest/gtest.h>

#include "settings/blocks.h"
#include "settings/field_editors.h"
#include "settings/quad.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

TEST(Quad, TextsAndTheirBytes) {
    struct Case {
        const char* text;
        bool valid;
        const char* bytes;
    };
    for (const Case& c : {Case{"192.168.10.100", true, "C0A80A64"},
                          {"1.2.3", false, "0102"},
                          {"256.1.1.1", false, ""},
                          {"1.1.1.256", false, ""},
                          {"1.1.1.", false, ""},
                          {"1..1.1", false, ""},
                          {"", false, ""},
                          {".1.1.1", false, ""},
                          {"1.2.3.4.5", true, "01020304"},
                          {"1.2.3.5.5", true, "01020306"},
                          {"1.2.3.x", false, ""},
                          {"1.2.3..", false, ""},
                          {"1.2.3.4.5.6", false, ""},
                          {"1.2.3.4(", false, ""},
                          {"4294967297.1.1.1", false, ""},
                          {"1.1.1.4294967297", false, ""},
                          {"1%.2.3.4", false, ""}}) {
        std::string quad = c.text;
        std::string bytes;
        bool valid = !c.valid;
        DecodeQuad(quad, bytes, valid);
        EXPECT_EQ(valid, c.valid) << c.text;
        EXPECT_EQ(HexText(bytes), c.bytes) << c.text;
    }
}

TEST(Blocks, ArpByteBothWays) {
    for (int repeat = 0; repeat < 8; ++repeat) {
        for (const int low : {0, 1, 2, 4, 7}) {
            for (const int reset : {0, 0x80}) {
                const int stored = repeat * 16 + low + reset;
                EXPECT_EQ(EncodeArp(DecodeArp(stored)), stored);
            }
        }
    }
    const std::pair<int, int> odd[] = {{0x18, 2}, {0x0F, 1}, {0xF8, 0}, {0x08, 0}};
    for (const auto& [stored, index] : odd) EXPECT_EQ(DecodeArp(stored).repeat, index);
    EXPECT_FALSE(EncodeArp({.repeat = -1, .sends = {true, true, true}}));
}

TEST(Blocks, Timeouts) {
    for (int stored = 1; stored < 255; ++stored) {
        EXPECT_EQ(TimeoutByte(OledTimeoutText(stored)), stored);
        EXPECT_EQ(TimeoutByte(ForceDisconnectText(stored)), stored);
    }
    EXPECT_EQ(TimeoutByte(""), 0xFF);
    EXPECT_EQ(TimeoutByte("25"), 2);
    EXPECT_EQ(TimeoutByte("35"), 4);
    EXPECT_FALSE(TimeoutByte("9999"));
}

struct Editors : ::testing::Test, ToolOnUnit {
    Editors() { ReadSettings(); }
    // What stands in the box after typing `text` and leaving it.
    std::string Left(TextBox& box, const std::string& text) {
        Type(box, text);
        tool.hand.Leave();
        return box.Text();
    }
};

TEST(KeyFilters, TakeTheirSetsAndTheOddCodes) {
    const auto accepted = [](bool (*filter)(int)) {
        std::string codes;
        for (int code = 1; code < 256; ++code) {
            if (filter(code)) codes.push_back(static_cast<char>(code));
        }
        return codes;
    };
    EXPECT_EQ(accepted(QuadKey), "\x08\x09\x0C%&'(.0123456789");
    EXPECT_EQ(accepted(NumberKey), "\x08\x09\x0C%&'(0123456789");
    EXPECT_EQ(accepted(NetbiosKey),
              "\x08\x09\x0C%'-.0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(accepted(CommunityKey).size(), 96u);
}

TEST_F(Editors, RepairsOnLeaving) {
    TextBox& oled = network.txtOledTimeout;
    EXPECT_EQ(Left(oled, "1"), "10");
    EXPECT_EQ(Left(oled, "2541"), "2540");
    EXPECT_EQ(Left(oled, "9999"), "2540");
    EXPECT_EQ(Left(oled, "0"), "0");
    EXPECT_EQ(Left(oled, ""), "0");
    EXPECT_EQ(Left(network.txtForceDisconnect, "5"), "10");
    EXPECT_EQ(Left(network.txtForceDisconnect, "2541"), "260") << "three digits go in";
    EXPECT_EQ(Left(network.txtForceDisconnect, "0"), "0");
    EXPECT_EQ(Left(network.txtAttackLimit(1), "5"), "10");
    EXPECT_EQ(Left(network.txtAttackLimit(1), "150"), "100");
    EXPECT_EQ(Left(network.txtAttackLimit(1), ""), "10");
    EXPECT_EQ(Left(network.txtNetbiosName, "rack-7.a"), "RACK-7.A");
    EXPECT_EQ(Left(network.txtUnitName, std::string(20, 'x')), std::string(16, 'x'));
}

}  // namespace
}  // namespace kestrane
