// Reading and writing the network settings against the demo unit: frames, captions, fields,
// enabling, and what a failure leaves behind.

#include <gtest/gtest.h>

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

struct Network : ::testing::Test, ToolOnUnit {
    // Records every text that the progress label takes.
    struct Captions : ScreenListener {
        explicit Captions(Label& watched) : label(watched) {}
        void ControlChanged(Control& control, Property property) override {
            if (&control == &label && property == Property::kCaption) {
                texts.push_back(label.Caption());
            }
        }
        Label& label;
        std::vector<std::string> texts;
    };

    Network() { tool.screen.AddListener(captions); }

    // The commands of the frames sent: board, code, address, count and data, unescaped.
    std::vector<std::string> Commands() const {
        std::vector<std::string> commands;
        for (std::string frame : world.tcpsend.sent()) {
            frame = frame.substr(2, frame.size() - 4);
            RemoveEscapes(frame);
            frame.pop_back();
            commands.push_back(HexText(frame));
        }
        return commands;
    }
    unit::BoardMemory& display() { return peer.unit().Display(); }
    void Store(int address, const std::string& bytes) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            display().Set(static_cast<std::uint16_t>(address + static_cast<int>(i)),
                          static_cast<std::uint8_t>(bytes[i]));
        }
    }
    std::string Stored(int address, int count = 16) {
        return display().Read(static_cast<std::uint16_t>(address), static_cast<std::size_t>(count));
    }
    void Write() { Click(network.cmdWriteNetworkSettings); }
    bool EditingOpen() const { return network.fraNetworkSettings.Enabled(); }

    Captions captions{form.lblMemoryBlock};
};

TEST_F(Network, ReadAsksForTheseBlocksInThisOrder) {
    Connect();
    Click(network.cmdReadNetworkSettings);
    const int ids[] = {0x02C0, 0x02D0, 0x0020, 0x0030, 0x0010, 0x0040, 0x0050, 0x0280,
                       0x0290, 0x02A0, 0x02E0, 0x0320, 0x01E0, 0x02F0, 0x0300, 0x0310};
    const std::vector<std::string> commands = Commands();
    ASSERT_EQ(commands.size(), 18u);
    EXPECT_EQ(commands[0], "FA11000010");
    const int board = session.DisplayAddress;
    for (std::size_t i = 0; i < std::size(ids); ++i) {
        EXPECT_EQ(commands[i + 1], HexText(ReadCommand(board, ids[i]))) << i;
    }
    EXPECT_EQ(commands[17], HexText(Bytes({board, 0x41})));
    EXPECT_TRUE(session.AdminLoggedIn);
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "Reading memory complete.");
    EXPECT_EQ(form.Pointer(), Form::kArrow);
    EXPECT_EQ(form.Focused(),
              network.chkDHCP.Checked() ? &network.txtNetbiosName : &network.txtIPAddress);
}

TEST_F(Network, ReadCaptionsKeepTheirOddities) {
    ReadSettings();
    const auto& texts = captions.texts;
    const auto at = [&](const std::string& text) {
        return std::find(texts.begin(), texts.end(), text) - texts.begin();
    };
    EXPECT_EQ(at("Reading block 6 of 11."), at("Reading block 5 of 14.") + 1);
    EXPECT_EQ(at("Reading block 6 of 14."), at("Reading block 6 of 11.") + 1);
    EXPECT_LT(at("Reading block 15 of 14."), static_cast<long>(texts.size()))
        << "a unit with a community of its own has one block more";

    captions.texts.clear();
    Store(0x02E0, std::string(8, '\xFF'));
    world.tcpsend.ClearSent();
    Click(network.cmdReadNetworkSettings);
    EXPECT_EQ(Commands().size(), 17u);
    EXPECT_EQ(network.txtCommunity.Text(), "public");
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Reading block 15 of 14."), 0);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Reading block 14 of 14."), 1);
}

TEST_F(Network, ReadThenWriteChangesOnlyWhatItMust) {
    ReadSettings();
    const std::string before = Stored(0x0000, 0x0400);
    world.tcpsend.ClearSent();
    Write();
    std::string expected = before;
    expected.replace(0x0280, 32, std::string(32, ' '));
    EXPECT_EQ(HexText(Stored(0x0000, 0x0400)), HexText(expected));
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "Memory write complete.");
    EXPECT_TRUE(EditingOpen());
    EXPECT_FALSE(network.cmdUnitID.Enabled()) << "it waits for an edit";
    EXPECT_TRUE(network.cmdWriteNetworkSettings.Usable());
    EXPECT_TRUE(network.fraTimeServer.Enabled());
}

TEST_F(Network, ErasedMemory) {
    Store(0x0010, std::string(0x0320, '\xFF'));
    ReadSettings();
    EXPECT_EQ(network.txtNetbiosName.Text(), std::string(16, '\xFF')) << "no such rule for names";
    EXPECT_EQ(network.txtSysContact.Text(), "");
    EXPECT_EQ(network.txtOledTimeout.Text() + network.txtForceDisconnect.Text(), "00");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(network.txtAttackLimit(i).Text(), "255");
        EXPECT_EQ(network.txtKeyCounter(i).Text(), "255");
        EXPECT_EQ(network.txtTcpControlPort(i).Text(), "65535");
        EXPECT_TRUE(network.chkTcpControlEnable(i).Checked());
        EXPECT_EQ(network.txtChaskey(i).Text(), std::string(32, 'F'));
        EXPECT_EQ(network.txtChaskey(i).ForeColor(), kBlack);
    }
    EXPECT_EQ(network.cmbARPtime.ListIndex(), 0) << "255 / 16 rounds to 16, masked";
    EXPECT_TRUE(network.chkDHCP.Checked());
    EXPECT_EQ(form.Focused(), &network.txtNetbiosName);
    EXPECT_EQ(form.txtAdminName.Text() + form.txtAdminPassword.Text(), "");
}

TEST_F(Network, StoredNumbersThatChangeOnTheWayBack) {
    Store(0x003E, Bytes({0}));              // OLED never programmed
    Store(0x02E8, Bytes({0, 0, 255, 50}));  // force disconnect 0, limits
    Store(0x02EC, Bytes({0x18}));           // a bit that the tool never writes
    ReadSettings();
    EXPECT_EQ(network.txtOledTimeout.Text(), "120");
    EXPECT_EQ(network.txtForceDisconnect.Text(), "0");
    EXPECT_EQ(network.txtAttackLimit(0).Text() + "," + network.txtAttackLimit(1).Text(), "0,255");
    EXPECT_EQ(network.cmbARPtime.ListIndex(), 2);
    const std::string counters = Stored(0x02ED, 3);
    Write();
    EXPECT_EQ(HexText(Stored(0x003E, 1)), "0C");
    EXPECT_EQ(HexText(Stored(0x02E8, 5)), "FFFFFF3220");
    EXPECT_EQ(Stored(0x02ED, 3), counters);
}

TEST_F(Network, ABlankInAOneByteFieldStopsTheReadThere) {
    for (int offset = 8; offset < 16; ++offset) {
        Store(0x02E8, Bytes({1, 10, 10, 10, 0x10, 1, 1, 1}));
        Store(0x02E0 + offset, " ");
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

TEST_F(Network, AFailedReadLeavesItsTracesUntilTheNextConnection) {
    Connect();
    peer.line().PassNext(2);
    peer.line().DropNext(1);
    Click(network.cmdReadNetworkSettings);
    EXPECT_FALSE(session.AdminLoggedIn) << "the gate opens with the second block";
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "Reading block 2 of 14.");
    Wait(1000);
    EXPECT_FALSE(network.cmdReadNetworkSettings.Enabled());
    Click(form.cmdDisconnect);
    ReadSettings();
    EXPECT_TRUE(EditingOpen());
}

TEST_F(Network, CommunitiesOfEveryLengthComeBackWhole) {
    for (const std::size_t length : {0u, 1u, 7u, 8u, 9u, 16u, 23u, 24u}) {
        Click(form.cmdDisconnect);
        ReadSettings();
        const std::string community = std::string("abcdefghijklmnopqrstuvwx").substr(0, length);
        Type(network.txtCommunity, community);
        Write();
        EXPECT_EQ(Stored(0x02E0, 8), PadRight(community.substr(0, 8), 8, '\0'));
        Click(network.cmdReadNetworkSettings);
        EXPECT_EQ(network.txtCommunity.Text(), community) << length;
    }
}

TEST_F(Network, BytesThatABoxCantShowSurvive) {
    std::string name(16, '\0');
    name[3] = '\xFF';
    name[7] = '\x10';
    name[15] = 'x';
    Store(0x0040, name);
    ReadSettings();
    EXPECT_EQ(network.txtUnitLocation.Text(), name);
    Store(0x0040, std::string(16, 'y'));
    Write();
    EXPECT_EQ(HexText(Stored(0x0040)), HexText(name));
}

TEST_F(Network, KeysAreWrittenOnlyWhenComplete) {
    Store(0x02F0, std::string(16, '\x00'));
    Store(0x0300, std::string(16, '\x00'));
    Store(0x0310, std::string(16, '\x00'));
    ReadSettings();
    EXPECT_EQ(network.txtChaskey(0).Text(), "Chaskey is set - type to change key");
    EXPECT_EQ(network.txtChaskey(0).ForeColor(), kRed);
    Type(network.txtChaskey(1), std::string(31, 'A'));
    Click(network.cmdChaskeyGen(2));
    const std::string key = network.txtChaskey(2).Text();
    EXPECT_EQ(key.size(), 32u);
    EXPECT_EQ(network.txtChaskey(2).ForeColor(), kBlack);
    world.tcpsend.ClearSent();
    Write();
    const auto commands = Commands();
    EXPECT_EQ(commands.size(), 11u);
    EXPECT_EQ(commands[8], HexText(WriteCommand(session.DisplayAddress, 0x0310, 16, "")) + key);
    Click(network.cmdChaskeyGen(2));
    EXPECT_NE(network.txtChaskey(2).Text(), key);
}

TEST_F(Network, ARedQuadBlocksTheWriteWithoutAWord) {
    ReadSettings();
    Type(network.txtSubnetMask, "255.255.255");
    world.tcpsend.ClearSent();
    Write();
    EXPECT_TRUE(Sent().empty());
    EXPECT_TRUE(EditingOpen());
    EXPECT_EQ(network.lblSubnetMask.ForeColor(), kRed);
}

TEST_F(Network, ATimeServerThatIsNoQuadShortensItsBlock) {
    ReadSettings();
    network.txtTimeServerIP.SetText("1.2");
    world.tcpsend.ClearSent();
    Write();
    const auto commands = Commands();
    ASSERT_EQ(commands.size(), 3u) << "the unit has no answer to it";
    EXPECT_EQ(commands[2].size(), 2u * (5 + 13)) << "the one octet before the dot goes out";
    EXPECT_EQ(commands[2].substr(0, 10),
              HexText(Bytes({session.DisplayAddress, 0x12, 0, 0x30, 16})));
}

TEST_F(Network, NumbersWithoutAByteStopTheWrite) {
    ReadSettings();
    network.txtTcpControlPort(0).SetText("65536");
    world.tcpsend.ClearSent();
    Write();
    EXPECT_EQ(Sent().size(), 2u);
    EXPECT_FALSE(EditingOpen());
    EXPECT_TRUE(network.cmdReadNetworkSettings.Enabled());
    EXPECT_FALSE(network.cmdWriteNetworkSettings.Enabled());
    Click(network.cmdReadNetworkSettings);
    network.cmbARPtime.SetListIndex(-1);
    world.tcpsend.ClearSent();
    Write();
    EXPECT_EQ(Sent().size(), 7u);
}

TEST_F(Network, AFailedWriteLeavesEarlierBlocksAndClosesTheEditing) {
    ReadSettings();
    Type(network.txtUnitName, "New name");
    peer.line().PassNext(5);
    peer.line().DropNext(1);
    Write();
    EXPECT_EQ(Stored(0x0050), PadRight("New name", 16));
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "Writing block 6 of 14");
    EXPECT_FALSE(EditingOpen());
    EXPECT_TRUE(form.cmdHelp.Enabled());
    EXPECT_TRUE(form.SSTab1.Tabs()[1].enabled);
}

TEST_F(Network, UnconnectedTheReadOnlyEnablesAndTheWriteOnlyDisables) {
    network.cmdReadNetworkSettings.on_click();
    EXPECT_TRUE(form.cmdHelp.Enabled());
    EXPECT_TRUE(form.SSTab1.Tabs()[1].enabled);
    EXPECT_FALSE(EditingOpen());
    session.PasswordConfirmed = 1;
    network.cmdWriteNetworkSettings.on_click();
    EXPECT_FALSE(form.cmdHelp.Enabled());
    EXPECT_FALSE(form.SSTab1.Tabs()[1].enabled);
    EXPECT_EQ(form.Pointer(), Form::kArrow);
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
        EXPECT_EQ(Commands()[1].substr(0, 2),
                  HexByte(static_cast<std::uint8_t>(relay == 250 ? 251 : relay + 128)))
            << id;
    }
}

TEST_F(Network, UnitTypes) {
    const std::pair<unit::UnitType, const char*> types[] = {{unit::UnitType::kCms, "CMS"},
                                                            {unit::UnitType::k636, "636"},
                                                            {unit::UnitType::kSingle, ""}};
    for (const auto& [type, text] : types) {
        unit::UnitOptions options;
        options.type = type;
        ToolOnUnit other(options);
        other.ReadSettings();
        EXPECT_EQ(other.session.UnitType, text);
        EXPECT_EQ(other.form.names.lblBackup.Visible(), *text != 0);
        EXPECT_EQ(other.form.SSTab1.Tabs()[6].visible, std::string(text) == "CMS");
    }
}

}  // namespace
}  // namespace kestrane
