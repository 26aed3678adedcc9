// The grid of rights against the demo unit, and against replies that no unit would give.

#include "features/features_test_support.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

constexpr int kTab = 1;
using Texts = std::vector<std::string>;

// The other ports hold 0x10, which is doubled on the line.
constexpr int kOthers = 0x10;

struct Privileges : ::testing::Test, ToolOnUnit {
    void TestBody() override {}

    // Connected through this control port, with the tab open for editing.
    void ConnectThrough(int port) {
        form.txtCurrentPort.SetText(std::to_string(1242 + port));
        Connect();
        session.AdminLoggedIn = true;
        session.ConnectedPortIndex = port;
        SetTabsEnabled(form, true);
        form.SSTab1.SetTab(kTab);
        world.tcpsend.ClearSent();
    }
    unit::BoardMemory& Memory(int board) {
        return board == 100 ? peer.unit().Relay() : peer.unit().Display();
    }
    static int AddressOf(int port) { return 0x03E0 + 2 * (port - 1); }
    void SetRights(int board, int port, int rights) {
        Memory(board).Write(static_cast<std::size_t>(AddressOf(port)), Bytes({rights, 0x77}));
    }
    static std::string ReadOf(int board, int port) {
        return HexText(ReadCommand(0, AddressOf(port), 2)).replace(0, 2, Address(board));
    }
    static std::string WriteOf(int board, int port, int rights) {
        return HexText(WriteCommand(0, AddressOf(port), 2, Bytes({rights, 0xFF})))
            .replace(0, 2, Address(board));
    }
    static std::string Address(int board) { return board == 100 ? "FA" : "FB"; }
    Texts Commands() const {
        Texts commands;
        for (const auto& frame : world.tcpsend.sent())
            commands.push_back(HexText(TextOfFrame(frame)));
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

    // What a column shows after a first read.
    void CheckColumn(int board, int port, bool seen, int rights, bool editable) {
        EXPECT_EQ(LastRead(board, port), seen ? std::to_string(rights) : "-");
        EXPECT_EQ(Current(board, port), seen ? Str(rights) : " 0");
        for (int bit = 0; bit < 8; ++bit) {
            const CheckBox& box = Box(board, port, bit);
            EXPECT_EQ(box.Visible(), seen);
            EXPECT_EQ(box.Checked(), seen && (rights >> bit & 1) != 0);
            EXPECT_TRUE(!seen || box.Enabled() == editable);
        }
    }

    PrivilegesTab& tab = form.privileges;
};

// Bits 0 to 2 of `rights` are own, read others, write others; the display board has the opposite.
void ReadAndWriteThrough(int port, int rights) {
    SCOPED_TRACE(testing::Message() << "port " << port << " rights " << rights);
    Privileges at;
    Texts reads;
    Texts writes;
    for (const int board : {100, 200}) {
        const int own = 0xA8 | (board == 100 ? rights : rights ^ 7);
        for (int x = 1; x <= 3; ++x) at.SetRights(board, x, x == port ? own : kOthers);
        const auto turn = [&](int steps) { return (port - 1 + steps) % 3 + 1; };
        for (const int x : {port, turn(1), turn(2)}) {
            if (x == port || (own & 2) != 0) reads.push_back(Privileges::ReadOf(board, x));
        }
        for (const int x : {turn(1), turn(2)}) {
            if ((own & 4) == 0) continue;
            // A column that may not be read is unset, and goes out so.
            writes.push_back(Privileges::WriteOf(board, x, (own & 2) != 0 ? kOthers : 0));
        }
        if ((own & 1) != 0) writes.push_back(Privileges::WriteOf(board, port, own));
    }
    at.ConnectThrough(port);
    at.Read();
    EXPECT_EQ(at.Commands(), reads);
    EXPECT_EQ(at.LastBox(), "");
    EXPECT_EQ(at.form.lblMemoryBlock.Caption(), "Privilege read complete");
    for (const int board : {100, 200}) {
        const int own = 0xA8 | (board == 100 ? rights : rights ^ 7);
        for (int x = 1; x <= 3; ++x) {
            at.CheckColumn(board, x, x == port || (own & 2) != 0, x == port ? own : kOthers,
                           (own & (x == port ? 1 : 4)) != 0);
        }
    }
    at.world.tcpsend.ClearSent();
    at.Write();
    Texts sent = at.Commands();
    ASSERT_GT(sent.size(), writes.size());
    EXPECT_EQ(sent[writes.size()], Privileges::ReadOf(100, port));
    sent.resize(writes.size());
    EXPECT_EQ(sent, writes);
}

TEST(PrivilegesMatrix, EachPortWithEachOfTheRights) {
    for (int port = 1; port <= 3; ++port) {
        for (int rights = 0; rights < 8; ++rights) ReadAndWriteThrough(port, rights);
    }
}

TEST_F(Privileges, ThePortInUseIsKnownFromTheSettings) {
    form.txtCurrentPort.SetText("1244");
    ReadSettings();
    Wait(300);
    ASSERT_EQ(tool.hand.Choose(form.SSTab1, kTab).value_or(""), "");
    world.tcpsend.ClearSent();
    Read();
    // The unit's own ID, 1, has been taken over by the read of the settings.
    EXPECT_EQ(Sent(),
              (Texts{"1002011103E202F91003", "1002011103E402FB1003", "1002011103E002F71003",
                     "1002811103E202791003", "1002811103E4027B1003", "1002811103E002771003"}));
    EXPECT_TRUE(tab.lblPriv(100).Enabled());
}

TEST_F(Privileges, WithoutAPortInUseNothingIsSent) {
    ConnectThrough(1);
    for (const int unknown : {0, 4, -1}) {
        session.ConnectedPortIndex = unknown;
        Read();
        EXPECT_FALSE(tab.cmdWriteTCPPortPriv.Enabled());
        EXPECT_TRUE(form.cmdHelp.Enabled());
        tool.port_privileges.cmdWriteTCPPortPriv_Click();
        EXPECT_TRUE(Sent().empty());
        tab.cmdWriteTCPPortPriv.SetEnabled(false);
    }
}

TEST_F(Privileges, WritingOthersImpliesReadingThemFromTheNextClickOn) {
    SetRights(100, 1, 0x05);
    ConnectThrough(1);
    Read();
    EXPECT_EQ(Current(100, 1), " 5");
    Read();  // no box changes, so none is clicked
    EXPECT_EQ(Current(100, 1), " 5");
    Click(Box(100, 1, 1));
    Click(Box(100, 1, 1));  // can't be cleared while the other stands
    EXPECT_EQ(Current(100, 1), " 7");
    EXPECT_EQ(LastRead(100, 1), "5");
    EXPECT_EQ(LastBox(), "");
    // It also acts while a read changes boxes, and then the unit has the last word.
    SetRights(100, 1, 0x0D);
    Read();
    EXPECT_EQ(Commands().back(), ReadOf(100, 2));
    EXPECT_EQ(LastBox(), "Privileges|Denied due to privilege settings");
    EXPECT_EQ(LastRead(100, 2), "-");
}

TEST_F(Privileges, TheReadAfterAWriteRunsUnderTheReducedRights) {
    ConnectThrough(1);
    Read();
    Click(Box(100, 1, 2));
    Click(Box(100, 1, 1));
    Write();
    EXPECT_EQ(Memory(100).Read(0x03E0, 2), Bytes({0xF9, 0xFF}));
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "Privilege read complete");
    EXPECT_FALSE(Box(100, 2, 0).Visible());
    EXPECT_TRUE(Box(200, 2, 0).Visible());
}

TEST_F(Privileges, ARefusedWriteStopsAndReadsNothingBack) {
    ConnectThrough(1);
    Read();
    SetRights(100, 1, 0x01);  // taken away behind the tool's back
    world.tcpsend.ClearSent();
    Write();
    EXPECT_EQ(Commands(), Texts{"FA1203E2021AFF"});
    EXPECT_EQ(form.lblMemoryBlock.Caption(), "Writing relay privileges");
    EXPECT_TRUE(tab.cmdWriteTCPPortPriv.Enabled());
    EXPECT_TRUE(form.SSTab1.Tabs()[0].enabled);
}

TEST_F(Privileges, BoxesAndTheWriteButtonStayUsableDuringARead) {
    ConnectThrough(1);
    Read();
    world.time.After(std::chrono::milliseconds(150), [&] {
        EXPECT_FALSE(tab.cmdReadTCPPortPriv.Enabled() || form.cmdHelp.Enabled());
        EXPECT_TRUE(tab.cmdWriteTCPPortPriv.Enabled());
        Click(Box(200, 3, 0));
        EXPECT_EQ(Current(200, 3), " 1");
    });
    Read();
    EXPECT_EQ(Current(200, 3), " 0");
}

TEST_F(Privileges, AWriteThatOutlivesItsConnectionLeavesTheNextOneAlone) {
    ConnectThrough(1);
    Read();
    world.time.After(std::chrono::milliseconds(150), [&] {
        Click(form.cmdDisconnect);
        ReadSettings();
    });
    Write();
    EXPECT_FALSE(tab.cmdWriteTCPPortPriv.Enabled());
    EXPECT_TRUE(tab.cmdReadTCPPortPriv.Enabled());
    EXPECT_NE(Commands().back().substr(4, 3), "03E");
}

class PrivilegesScripted : public FeatureTest {};

TEST_F(PrivilegesScripted, BadRepliesNeverCrash) {
    ConnectOn(kTab);
    session_.ConnectedPortIndex = 3;
    for (const int board : {0xFA, 0xFB}) {
        const std::string command = ReadCommand(board, 0x03E4, 2);
        for (const std::string& reply : BadReplies(command)) {
            ReplyRaw(command, reply);
            tool_.port_privileges.cmdReadTCPPortPriv_Click();
            EXPECT_EQ(form_.Pointer(), Form::kArrow);
            EXPECT_NE(form_.privileges.lblPrivByte(board == 0xFA ? 1130 : 1230).Caption(), "-1");
        }
        ReplyRaw(command, Framed(command + "\x01\xFF"));
    }
}

}  // namespace
}  // namespace kestrane
