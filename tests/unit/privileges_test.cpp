#include "unit/privileges.h"

#include <gtest/gtest.h>

#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

class PrivilegesTest : public testing::Test {
  protected:
    void Give(int port, int relay_rights, int display_rights) {
        const std::size_t at = 0x03E0 + 2 * static_cast<std::size_t>(port - 1);
        unit_.Relay().Set(at, relay_rights);
        unit_.Display().Set(at, display_rights);
    }
    bool Refused(int port, std::initializer_list<int> command) {
        const std::string reply = Ask(unit_, port, command);
        EXPECT_NE(reply, "silence");
        const std::string refusal = Bytes(command).substr(0, 2) + '\x16';
        return reply == refusal;
    }

    Unit unit_;
};

// Each command, the board and the one bit that lets it through.
struct Need {
    std::vector<int> command;
    int bit;
};

TEST_F(PrivilegesTest, EachCommandNeedsItsBitOnItsBoardAndNoOther) {
    const std::vector<Need> needs{
        {{kRelayByte, 0x12, 0x03, 0xE2, 1, 0}, 0x01},
        {{kRelayByte, 0x11, 0x03, 0xE0, 2}, 0x02},
        {{kRelayByte, 0x11, 0x03, 0xE5, 1}, 0x02},
        {{kRelayByte, 0x12, 0x03, 0xE4, 2, 0, 0xFF}, 0x04},
        {{kRelayByte, 0x3A, 2, 1}, 0x08},
        {{kRelayByte, 0x61, 0x15}, 0x08},
        {{kRelayByte, 0x81, 0x02}, 0x10},
        {{kRelayByte, 0x12, 0x00, 0x20, 1, 0}, 0x20},
        {{kRelayByte, 0x12, 0x00, 0xFF, 1, 0}, 0x20},
        {{kRelayByte, 0x82, 0x02}, 0x40},
        {{kRelayByte, 0x82, 0x03}, 0x40},
        {{kRelayByte, 0x12, 0x00, 0x0A, 1, 0}, 0x80},
        {{kRelayByte, 0x12, 0x00, 0x0F, 1, 1}, 0x80},
        {{kDisplayByte, 0x12, 0x03, 0xE2, 1, 0}, 0x01},
        {{kDisplayByte, 0x11, 0x03, 0xE0, 2}, 0x02},
        {{kDisplayByte, 0x12, 0x03, 0xE0, 2, 0, 0}, 0x04},
        {{kDisplayByte, 0x12, 0x00, 0x60, 1, 0}, 0x20},
        {{kDisplayByte, 0x12, 0x01, 0xDF, 1, 0}, 0x20},
        {{kDisplayByte, 0x12, 0x02, 0x00, 1, 0}, 0x20},
        {{kDisplayByte, 0x12, 0x00, 0x10, 1, 0}, 0x80},
        {{kDisplayByte, 0x12, 0x00, 0x5F, 1, 0}, 0x80},
        {{kDisplayByte, 0x12, 0x01, 0xE0, 1, 0}, 0x80},
        {{kDisplayByte, 0x12, 0x02, 0x80, 1, 0}, 0x80},
        {{kDisplayByte, 0x12, 0x03, 0x20, 1, 0}, 0x80},
    };
    for (const Need& need : needs) {
        const std::string command(need.command.begin(), need.command.end());
        const bool on_relay = need.command[0] == kRelayByte;
        Give(kPortB, on_relay ? need.bit : 0xFF, on_relay ? 0xFF : need.bit);
        EXPECT_EQ(AskText(unit_, kPortB, command).substr(0, command.size()), command)
            << HexText(command);
        Give(kPortB, on_relay ? ~need.bit : 0xFF, on_relay ? 0xFF : ~need.bit);
        EXPECT_EQ(AskText(unit_, kPortB, command), command.substr(0, 2) + '\x16')
            << HexText(command);
    }
}

TEST_F(PrivilegesTest, TheOwnByteCanAlwaysBeRead) {
    for (int port = kPortA; port <= kPortC; ++port) {
        Give(port, 0, 0);
        EXPECT_FALSE(Refused(port, {kRelayByte, 0x11, 0x03, 0xE0 + 2 * (port - 1), 2}));
        EXPECT_FALSE(Refused(port, {kDisplayByte, 0x11, 0x03, 0xE0 + 2 * (port - 1), 2}));
    }
    EXPECT_TRUE(Refused(kPortA, {kRelayByte, 0x11, 0x03, 0xE0, 6}));
    EXPECT_TRUE(Refused(kPortA, {kRelayByte, 0x11, 0x03, 0xDF, 0xFF}));
}

TEST_F(PrivilegesTest, ARefusedWriteChangesNothing) {
    Give(kPortB, 0, 0x20);
    const std::string before = unit_.Display().Read(0x0050, 32);
    EXPECT_TRUE(Refused(kPortB, {kDisplayByte, 0x12, 0x00, 0x5F, 2, 'x', 'x'}))
        << "a range over two areas needs both rights";
    EXPECT_EQ(unit_.Display().Read(0x0050, 32), before);
    EXPECT_TRUE(Refused(kPortB, {kRelayByte, 0x61, 0x1A}));
    EXPECT_FALSE(unit_.Runner().Running());
}

TEST_F(PrivilegesTest, AnOwnWriteTakesEffectAtOnce) {
    EXPECT_FALSE(Refused(kPortA, {kRelayByte, 0x12, 0x03, 0xE0, 2, 0x01, 0xFF}));
    EXPECT_TRUE(Refused(kPortA, {kRelayByte, 0x11, 0x03, 0xE2, 2}));
    EXPECT_FALSE(Refused(kPortA, {kRelayByte, 0x12, 0x03, 0xE0, 2, 0xFF, 0xFF}));
}

TEST_F(PrivilegesTest, AFreshUnitLetsPortADoEverythingAndPortCOnlyLook) {
    EXPECT_FALSE(Refused(kPortA, {kDisplayByte, 0x12, 0x00, 0x40, 1, 'x'}));
    EXPECT_FALSE(Refused(kPortA, {kRelayByte, 0x11, 0x03, 0xE4, 2}));
    EXPECT_TRUE(Refused(kPortC, {kDisplayByte, 0x12, 0x00, 0x40, 1, 'x'}));
    EXPECT_TRUE(Refused(kPortC, {kRelayByte, 0x11, 0x03, 0xE0, 2}));
    EXPECT_FALSE(Refused(kPortC, {kRelayByte, 0x31}));
    EXPECT_FALSE(Refused(kPortC, {kRelayByte, 0x82, 0x01, 1}));
}

}  // namespace
}  // namespace kestrane::unit
