// The grid of rights: what each port with each of the rights reads, shows and writes. Their course
// stands in port_privileges.story.

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
    EXPECT_EQ(at.SentTexts(), reads);
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
    Texts sent = at.SentTexts();
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

}  // namespace
}  // namespace kestrane
