#include "unit/privileges.h"

#include <gtest/gtest.h>

#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

// Each command, the board and the one bit that lets it through.
struct Need {
    std::vector<int> command;
    int bit;
};

TEST(Privileges, EachCommandNeedsItsBitOnItsBoardAndNoOther) {
    Unit unit;
    const auto give = [&](int relay_rights, int display_rights) {
        unit.Relay().Set(0x03E2, relay_rights);
        unit.Display().Set(0x03E2, display_rights);
    };
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
        give(on_relay ? need.bit : 0xFF, on_relay ? 0xFF : need.bit);
        EXPECT_EQ(AskText(unit, kPortB, command).substr(0, command.size()), command)
            << HexText(command);
        give(on_relay ? ~need.bit : 0xFF, on_relay ? 0xFF : ~need.bit);
        EXPECT_EQ(AskText(unit, kPortB, command), command.substr(0, 2) + '\x16')
            << HexText(command);
    }
}

}  // namespace
}  // namespace kestrane::unit
