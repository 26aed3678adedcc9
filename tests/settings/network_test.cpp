// Rules of the network settings that hold for many values. The course of reads and writes stands
// in network.story.

#include <gtest/gtest.h>

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

struct Network : ::testing::Test, ToolOnUnit {
    unit::BoardMemory& display() { return peer.unit().Display(); }
    std::string Stored(int address, int count = 16) {
        return display().Read(static_cast<std::uint16_t>(address), static_cast<std::size_t>(count));
    }
    void WriteSettings() { Click(network.cmdWriteNetworkSettings); }
    bool EditingOpen() const { return network.fraNetworkSettings.Enabled(); }
};

TEST_F(Network, ReadThenWriteChangesOnlyWhatItMust) {
    ReadSettings();
    std::string expected = Stored(0x0000, 0x0400);
    WriteSettings();
    expected.replace(0x0280, 32, std::string(32, ' '));
    EXPECT_EQ(HexText(Stored(0x0000, 0x0400)), HexText(expected));
}

TEST_F(Network, ABlankInAOneByteFieldStopsTheReadThere) {
    for (int offset = 8; offset < 16; ++offset) {
        display().Write(0x02E8, Bytes({1, 10, 10, 10, 0x10, 1, 1, 1}));
        display().Write(0x02E0 + offset, " ");
        Click(form.cmdDisconnect);
        ReadSettings();
        EXPECT_TRUE(session.AdminLoggedIn) << "the gate opens before";
        EXPECT_FALSE(EditingOpen());
        EXPECT_FALSE(network.cmdReadNetworkSettings.Enabled());
        EXPECT_FALSE(form.cmdHelp.Enabled());
        EXPECT_FALSE(form.SSTab1.Tabs()[0].enabled);
        EXPECT_EQ(form.lblMemoryBlock.Caption(), "Reading block 10 of 14.");
        EXPECT_EQ(network.txtForceDisconnect.Text(), offset == 8 ? "" : "10");
        EXPECT_EQ(network.txtSysContact.Text(), "");
        EXPECT_EQ(form.Pointer(), Form::kArrow);
    }
}

TEST_F(Network, CommunitiesOfEveryLengthComeBackWhole) {
    for (const std::size_t length : {0u, 1u, 7u, 8u, 9u, 16u, 23u, 24u}) {
        Click(form.cmdDisconnect);
        ReadSettings();
        const std::string community = std::string("abcdefghijklmnopqrstuvwx").substr(0, length);
        Type(network.txtCommunity, community);
        WriteSettings();
        EXPECT_EQ(Stored(0x02E0, 8), PadRight(community.substr(0, 8), 8, '\0'));
        Click(network.cmdReadNetworkSettings);
        EXPECT_EQ(network.txtCommunity.Text(), community) << length;
    }
}

TEST_F(Network, TheIdChoosesTheAddressesOfTheLaterBlocks) {
    const std::pair<int, int> relays[] = {{0, 0}, {4, 4}, {0x61, 1}, {5, 250}, {0xFF, 250}};
    for (const auto& [id, relay] : relays) {
        peer.unit().Relay().Set(4, static_cast<std::uint8_t>(id));
        Click(form.cmdDisconnect);
        Connect();
        // A unit with another ID than it says answers nobody; the addresses are what counts.
        world.tcpsend.ClearSent();
        Click(network.cmdReadNetworkSettings);
        EXPECT_EQ(SentTexts()[1].substr(0, 2),
                  HexByte(static_cast<std::uint8_t>(relay == 250 ? 251 : relay + 128)))
            << id;
    }
}

}  // namespace
}  // namespace kestrane
