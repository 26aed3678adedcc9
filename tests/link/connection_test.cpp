// Connect, disconnect, the state table, and waits that outlive their connection.

#include <gtest/gtest.h>

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

struct Connection : ::testing::Test, ToolOnScript {
    // A settings read that finds nobody answering, and the loss of its connection inside the wait.
    // Runs `rounds` times, each inside the wait that the one before has left behind.
    void LoseConnectionsInsideReads(int rounds, std::function<void()> then) {
        Click(form.cmdConnect);
        After(300, [this] { Click(network.cmdReadNetworkSettings); });
        After(600, [this] { world.tcpsend.CloseByPeer(); });
        After(900, [this, rounds, then] {
            rounds > 1 ? LoseConnectionsInsideReads(rounds - 1, then) : then();
        });
    }
};

TEST_F(Connection, AResetShowsTheSameTextWhateverTheAddress) {
    Connect();
    form.OptButID(1).SetChosen(true);
    network.cmdResetEthernet.SetEnabled(true);
    Click(network.cmdResetEthernet);
    EXPECT_EQ(form.Label2.Caption(), "10 02 FB 1F 03 00 1D 10 03");
    EXPECT_EQ(form.Label3.Caption(), "?");
}

TEST_F(Connection, AWaitOutlivesItsConnectionAndSendsNothingOnTheNext) {
    const std::string command = ReadCommand(250, 0);
    bool accepted = false;
    int depth_without_exchange = 0;
    std::size_t frames_before = 0;
    LoseConnectionsInsideReads(1, [&] {
        EXPECT_EQ(form.cmdDisconnect.Caption(), "Timeout Disconnected");
        After(60'000, [&] { Click(form.cmdConnect); });
        After(70'000, [&] {
            // Nothing but an exchange of the new connection ends it.
            depth_without_exchange = world.loop.pump_depth();
            frames_before = world.tcpsend.frames().size();
            peer.Reply(Framed(command + std::string(16, 'x')));
            const Link::Operation operation(tool.link, "Test");
            accepted = tool.link.Command(command);
        });
    });
    Wait(71'000);
    EXPECT_EQ(depth_without_exchange, 2);
    EXPECT_TRUE(accepted);
    EXPECT_EQ(world.tcpsend.frames().size(), frames_before + 1)
        << "the abandoned read has sent on the new connection";
    EXPECT_FALSE(session.CommandDone) << "the abandoned command counts as failed";
    EXPECT_EQ(world.loop.pump_depth(), 0);
}

TEST_F(Connection, ManyConnectionsLostInsideAWaitDoNotPileUp) {
    bool done = false;
    peer.set_answer([](std::string_view) { return ""; });
    LoseConnectionsInsideReads(500, [&] { Click(form.cmdConnect); });
    After(500 * 900 + 5000, [&] {
        peer.set_answer([](std::string_view frame) { return std::string(frame); });
        const Link::Operation operation(tool.link, "Test");
        done = tool.link.Command(ReadCommand(250, 0));
    });
    Wait(500 * 900 + 10'000);
    EXPECT_TRUE(done);
    EXPECT_LT(world.max_pump_depth(), 40);
    EXPECT_EQ(world.loop.pump_depth(), 0);
}

TEST_F(Connection, AnHourOfSilenceIsSurvived) {
    constexpr int kHour = 3'600'000;
    form.txtTimeout.SetText("0");
    Click(form.cmdConnect);
    After(300, [this] { Click(network.cmdReadNetworkSettings); });
    int depth = -1;
    bool read_again = true;
    // The default of 3 s ends the first wait; what is begun after it has no timeout any more.
    After(kHour / 2, [&] {
        read_again = network.cmdReadNetworkSettings.Usable();
        const Link::Operation operation(tool.link, "Test");
        tool.link.Command(ReadCommand(250, 0));
    });
    After(kHour, [&] {
        depth = world.loop.pump_depth();
        Click(form.cmdDisconnect);
    });
    After(kHour + 100, [this] { Click(form.cmdConnect); });
    After(kHour + 1000, [this] {
        peer.set_answer([](std::string_view frame) { return std::string(frame); });
        const Link::Operation operation(tool.link, "Test");
        EXPECT_TRUE(tool.link.Command(ReadCommand(250, 0)));
    });
    Wait(kHour + 5000);
    EXPECT_FALSE(read_again) << "after a failed read the button stays off for this connection";
    EXPECT_EQ(depth, 2);
    EXPECT_LT(world.max_pump_depth(), 10);
}

TEST_F(Connection, AMegabyteOfGarbageIsTakenAndTheNextConnectWorks) {
    Connect();
    world.tcpsend.Deliver(std::string(1 << 20, '\x10'));
    Wait(200);
    EXPECT_EQ(session.ReplyBuffer.size(), 1u << 20);
    Click(form.cmdDisconnect);
    Connect();
}

TEST(Models, ByTheTwoTypeCodes) {
    EXPECT_EQ(ModelOf("3D1", "3A9"), "KMD 305TX");
    EXPECT_EQ(ModelOf("3D3", "3A5"), "KMD 358TX");
    EXPECT_EQ(ModelOf("3DB", "3A3"), "KMD 380TX");
    EXPECT_EQ(ModelOf("3D1", "3A5"), "-");
    EXPECT_EQ(ModelOf("3D0", "3A9"), "-");
}

}  // namespace
}  // namespace kestrane
