// The grid of rights against the demo unit and against replies that no unit would give.

#include <gtest/gtest.h>

#include "features/features_test_support.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

constexpr int kPrivilegesTab = 1;

struct Privileges : ::testing::Test, ToolOnUnit {
    // Connected through this control port, with the tab open for editing.
    void ConnectThrough(int port) {
        form.txtCurrentPort.SetText(std::to_string(1242 + port));
        Connect();
        session.AdminLoggedIn = true;
        session.ConnectedPortIndex = port;
        SetTabsEnabled(form, true);
        form.SSTab1.SetTab(kPrivilegesTab);
        world.tcpsend.ClearSent();
    }
    unit::BoardMemory& Memory(int board) {
        return board == 100 ? peer.unit().Relay() : peer.unit().Display();
    }
    static std::size_t AddressOf(int port) {
        return 0x03E0 + 2 * static_cast<std::size_t>(port - 1);
    }
    void SetRights(int board, int port, int rights) {
        Memory(board).Write(AddressOf(port), Bytes({rights, 0x77}));
    }
    std::string Stored(int board, int port) {
        return HexText(Memory(board).Read(AddressOf(port), 2));
    }
    std::vector<std::string> Commands() const {
        std::vector<std::string> commands;
        for (const std::string& frame : world.tcpsend.sent()) {
            commands.push_back(HexText(TextOfFrame(frame)));
        }
        return commands;
    }
    CheckBox& Box(int board, int port, int bit) { return tab.chkPriv(board + 10 * port + bit); }
    std::string Current(int board, int port) {
        return tab.lblPrivByte(board + 10 * port).Caption();
    }
    std::string LastRead(int board, int port) {
        return tab.lblPrivByte(1000 + board + 10 * port).Caption();
    }
    void Read() { Click(tab.cmdReadTCPPortPriv); }
    void Write() { Click(tab.cmdWriteTCPPortPriv); }

    PrivilegesTab& tab = form.privileges;
};

std::string ReadOf(int board, int port) {
    return HexText(ReadCommand(board == 100 ? 0xFA : 0xFB, 0x03E0 + 2 * (port - 1), 2));
}

struct Rights {
    bool write_own;
    bool read_others;
    bool write_others;
    int Byte() const { return 0xA8 + write_own + 2 * read_others + 4 * write_others; }
};

// What the first read through `port` sends and shows on one board; the other ports hold 0x10.
void CheckBoard(Privileges& test, int board, int port, Rights rights,
                std::vector<std::string>& expected) {
    for (int turn = 0; turn < 3; ++turn) {
        const int x = (port - 1 + turn) % 3 + 1;
        const bool seen = x == port || rights.read_others;
        if (seen) expected.push_back(ReadOf(board, x));
        const int byte = x == port ? rights.Byte() : 0x10;
        EXPECT_EQ(test.LastRead(board, x), seen ? std::to_string(byte) : "-");
        EXPECT_EQ(test.Current(board, x), seen ? Str(byte) : " 0");
        for (int bit = 0; bit < 8; ++bit) {
            CheckBox& box = test.Box(board, x, bit);
            EXPECT_EQ(box.Visible(), seen);
            EXPECT_EQ(box.Checked(), seen && (byte >> bit & 1) != 0);
            if (!seen) continue;
            EXPECT_EQ(box.Enabled(), x == port ? rights.write_own : rights.write_others);
        }
    }
}

void ReadAndWriteThrough(int port, Rights relay, Rights display) {
    SCOPED_TRACE(testing::Message()
                 << "port " << port << " relay " << relay.Byte() << " display " << display.Byte());
    struct Case : Privileges {
        void TestBody() override {}
    } test;
    for (const int board : {100, 200}) {
        for (int x = 1; x <= 3; ++x) test.SetRights(board, x, 0x10);
        test.SetRights(board, port, (board == 100 ? relay : display).Byte());
    }
    test.ConnectThrough(port);
    test.Read();
    std::vector<std::string> expected;
    CheckBoard(test, 100, port, relay, expected);
    CheckBoard(test, 200, port, display, expected);
    EXPECT_EQ(test.Commands(), expected);
    EXPECT_EQ(test.form.lblMemoryBlock.Caption(), "Privilege read complete");
    EXPECT_EQ(test.LastBox(), "");

    test.world.tcpsend.ClearSent();
    test.Write();
    expected.clear();
    for (const int board : {100, 200}) {
        const Rights& rights = board == 100 ? relay : display;
        for (int turn = 1; turn <= 3; ++turn) {
            const int x = (port - 1 + turn) % 3 + 1;
            const bool may = x == port ? rights.write_own : rights.write_others;
            const int byte = x == port ? rights.Byte() : rights.read_others ? 0x10 : 0;
            if (may) {
                expected.push_back(HexText(WriteCommand(
                    board == 100 ? 0xFA : 0xFB, 0x03E0 + 2 * (x - 1), 2, Bytes({byte, 0xFF}))));
                EXPECT_EQ(test.Stored(board, x), HexText(Bytes({byte, 0xFF})));
            } else {
                EXPECT_EQ(test.Stored(board, x).substr(2), "77");
            }
        }
    }
    std::vector<std::string> sent = test.Commands();
    ASSERT_GT(sent.size(), expected.size());
    EXPECT_EQ(sent[expected.size()], ReadOf(100, port));
    sent.resize(expected.size());
    EXPECT_EQ(sent, expected);
}

TEST(PrivilegesMatrix, EachPortWithEachOfTheRights) {
    for (int port = 1; port <= 3; ++port) {
        for (int bits = 0; bits < 8; ++bits) {
            const Rights rights{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
            const Rights turned{!rights.write_own, !rights.read_others, !rights.write_others};
            ReadAndWriteThrough(port, rights, turned);
        }
    }
}

TEST_F(Privileges, ThePortInUseIsKnownFromTheSettings) {
    form.txtCurrentPort.SetText("1244");
    ReadSettings();
    Wait(300);
    ASSERT_EQ(tool.hand.Choose(form.SSTab1, kPrivilegesTab).value_or(""), "");
    world.tcpsend.ClearSent();
    Read();
    // The unit's own ID, 1, has been taken over by the read of the settings.
    EXPECT_EQ(Sent(), (std::vector<std::string>{"1002011103E202F91003", "1002011103E402FB1003",
                                                "1002011103E002F71003", "1002811103E202791003",
                                                "1002811103E4027B1003", "1002811103E002771003"}));
    EXPECT_TRUE(tab.lblPriv(100).Enabled());
    EXPECT_EQ(form.Pointer(), Form::kArrow);
}

TEST_F(Privileges, WithoutAPortInUseNothingIsSent) {
    ConnectThrough(1);
    for (const int unknown : {0, 4, -1, 200}) {
        session.ConnectedPortIndex = unknown;
        Read();
        EXPECT_TRUE(Sent().empty());
        EXPECT_FALSE(tab.cmdWriteTCPPortPriv.Enabled());
        EXPECT_TRUE(tab.cmdReadTCPPortPriv.Enabled());
        EXPECT_TRUE(form.cmdHelp.Enabled());
        tool.port_privileges.cmdWriteTCPPortPriv_Click();
        EXPECT_TRUE(Sent().empty());
        tab.cmdWriteTCPPortPriv.SetEnabled(false);
    }
}

TEST_F(Privileges, WritingOthersImpliesReadingThemFromTheNextClickOn) {
    SetRights(100, 1, 0x05);  // no right to read others: two columns stay unread
    ConnectThrough(1);
    Read();
    EXPECT_FALSE(Box(100, 1, 1).Checked());
    EXPECT_EQ(Current(100, 1), " 5");
    Click(Box(100, 1, 3));
    EXPECT_TRUE(Box(100, 1, 1).Checked());
    EXPECT_EQ(Current(100, 1), " 15");
    EXPECT_EQ(LastRead(100, 1), "5");
    // The box can't be cleared while the other stands.
    Click(Box(100, 1, 1));
    EXPECT_TRUE(Box(100, 1, 1).Checked());
}

TEST_F(Privileges, TheImpliedRightActsWhileALaterReadRefreshesTheBoxes) {
    SetRights(200, 1, 0x05);
    ConnectThrough(1);
    Read();
    EXPECT_EQ(LastBox(), "");
    Read();  // no box changes, so none is clicked
    EXPECT_FALSE(Box(200, 1, 1).Checked());
    SetRights(200, 1, 0x0D);
    Read();
    EXPECT_TRUE(Box(200, 1, 1).Checked());
    EXPECT_EQ(Commands().back(), ReadOf(200, 2));
    EXPECT_EQ(LastBox(), "Privileges|Denied due to privilege settings");
    EXPECT_EQ(LastRead(200, 2), "-");
}

TEST_F(Privileges, TheReadAfterAWriteRunsUnderTheReducedRights) {
    ConnectThrough(1);
    Read();
    Click(Box(100, 1, 2));
    Click(Box(100, 1, 1));
    Write();
    EXPECT_EQ(Stored(100, 1), "F9FF");
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "Privilege read complete");
    EXPECT_FALSE(Box(100, 2, 0).Visible());
    EXPECT_TRUE(Box(100, 1, 0).Enabled());
    EXPECT_TRUE(Box(200, 2, 0).Visible());
}

TEST_F(Privileges, ARefusedWriteStopsAndReadsNothingBack) {
    ConnectThrough(1);
    Read();
    SetRights(100, 1, 0x01);  // taken away behind the tool's back
    world.tcpsend.ClearSent();
    Write();
    EXPECT_EQ(Commands(), std::vector<std::string>{"FA1203E2021AFF"});
    EXPECT_EQ(LastBox(), "Privileges|Denied due to privilege settings");
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "Writing relay privileges");
    EXPECT_TRUE(tab.cmdWriteTCPPortPriv.Enabled());
    EXPECT_TRUE(form.SSTab1.Tabs()[0].enabled);
}

TEST_F(Privileges, BoxesAndTheWriteButtonStayUsableDuringARead) {
    ConnectThrough(1);
    Read();
    bool seen = false;
    world.time.After(std::chrono::milliseconds(150), [&] {
        EXPECT_EQ(form.Pointer(), Form::kHourglass);
        EXPECT_FALSE(tab.cmdReadTCPPortPriv.Enabled());
        EXPECT_FALSE(form.cmdHelp.Enabled());
        EXPECT_FALSE(form.SSTab1.Tabs()[0].enabled);
        EXPECT_TRUE(tab.cmdWriteTCPPortPriv.Enabled());
        EXPECT_EQ(LastRead(200, 3), "-");
        Click(Box(200, 3, 0));
        EXPECT_EQ(Current(200, 3), " 1");
        seen = true;
    });
    Read();
    EXPECT_TRUE(seen);
    EXPECT_FALSE(Box(200, 3, 0).Checked());
}

TEST_F(Privileges, AReadThatOutlivesItsConnectionLeavesTheNextOneAlone) {
    ConnectThrough(1);
    world.time.After(std::chrono::milliseconds(150), [&] {
        Click(form.cmdDisconnect);
        Connect();
        session.ConnectedPortIndex = 1;
        Click(network.cmdReadNetworkSettings);
    });
    Read();
    EXPECT_FALSE(tab.cmdWriteTCPPortPriv.Enabled());
    EXPECT_NE(Commands().back().substr(4, 3), "03E");
    EXPECT_TRUE(tab.cmdReadTCPPortPriv.Enabled());
}

class PrivilegesScripted : public FeatureTest {};

TEST_F(PrivilegesScripted, BadRepliesNeverCrash) {
    ConnectOn(kPrivilegesTab);
    for (int port = 1; port <= 3; ++port) {
        session_.ConnectedPortIndex = port;
        for (const int board : {0xFA, 0xFB}) {
            const std::string command = ReadCommand(board, 0x03E0 + 2 * (port - 1), 2);
            for (const std::string& reply : BadReplies(command)) {
                ReplyRaw(command, reply);
                tool_.port_privileges.cmdReadTCPPortPriv_Click();
                EXPECT_EQ(form_.Pointer(), Form::kArrow);
                EXPECT_TRUE(form_.privileges.cmdReadTCPPortPriv.Enabled());
            }
            ReplyRaw(command, Framed(command + "\x01\xFF"));
        }
    }
}

}  // namespace
}  // namespace kestrane
