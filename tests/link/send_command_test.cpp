// SendCommand against a scripted unit: echo rules, repeats, refusals, silence.

#include <gtest/gtest.h>

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

struct SendCommand : ::testing::Test, ToolOnScript {
    SendCommand() { Connect(); }

    // Sends from within an operation, as every handler does.
    bool Send(const std::string& command) {
        world.tcpsend.ClearSent();
        const Link::Operation operation(tool.link, "Test");
        return tool.link.Command(command);
    }
    // The reply of a unit: the echo, then data.
    static std::string Echo(const std::string& command, const std::string& data = {}) {
        return Framed(command + data);
    }

    const std::string read = ReadCommand(0xFA, 0x0020);
};

TEST_F(SendCommand, AcceptsTheEchoAndShowsBothSides) {
    peer.Reply(Echo(read, std::string(16, 'A')));
    EXPECT_TRUE(Send(read));
    EXPECT_EQ(form.Label2.Caption(), "10 02 FA 11 00 20 10 10 3B 10 03");
    EXPECT_EQ(form.Label4.Caption(), "*");
    EXPECT_EQ(form.Label1.Caption().substr(0, 44), " 27 bytes received (Decimal) =>  16 2 250 17");
    EXPECT_EQ(form.Label3.Caption().substr(0, 40), " 27 bytes received (Hex) =>  10  02  FA ");
    tool.link.RemoveReplyEscapes();
    EXPECT_EQ(Mid(session.ReplyBuffer, 8, 16), std::string(16, 'A'));
}

TEST_F(SendCommand, SendsTheSameFrameFourTimesAtMost) {
    for (int i = 0; i < 5; ++i) peer.Reply("garbage");
    EXPECT_FALSE(Send(read));
    EXPECT_EQ(Sent(), std::vector<std::string>(4, HexText(Framed(read))));
    EXPECT_EQ(form.Label4.Caption(), "Command Repeat 4");
    EXPECT_EQ(LastBox(), "Comms Clash2!|Responses are being corrupted. Please try again.");
    EXPECT_EQ(world.tcpsend.State(), SocketState::kConnected);
    EXPECT_FALSE(form.timTimeout.Enabled());
}

TEST_F(SendCommand, SilenceIsFinalAndTheNewTimeoutHoldsFromTheNextCommandOn) {
    form.txtTimeout.SetText("0.5");
    const auto elapsed = [this] {
        const auto begin = world.Now();
        EXPECT_FALSE(Send(read));
        EXPECT_EQ(Sent().size(), 1u);
        EXPECT_EQ(form.Label3.Caption(), "T");
        return (world.Now() - begin).count();
    };
    EXPECT_EQ(elapsed(), 3000);
    EXPECT_EQ(elapsed(), 500);
    EXPECT_TRUE(world.boxes.shown().empty());
    // A disconnect brings the old interval back, and the reader polls faster from then on.
    Click(form.cmdDisconnect);
    EXPECT_EQ(form.timTimeout.Interval(), 3000);
    EXPECT_EQ(form.timGetResponse.Interval(), 10);
}

TEST_F(SendCommand, LateBytesStillLandInTheReplyBuffer) {
    EXPECT_FALSE(Send(read));
    world.tcpsend.Deliver("late");
    Wait(100);
    EXPECT_EQ(session.ReplyBuffer, "late");
    EXPECT_EQ(form.Label3.Caption(), " 4 bytes received (Hex) =>  6C  61  74  65  ");
    EXPECT_FALSE(session.CommandDone);
}

TEST_F(SendCommand, AFirstPieceAsLongAsTheFrameSentIsAcceptedAndTheSecondReplacesIt) {
    const std::string reply = Echo(read, std::string(16, 'B'));
    peer.line().SplitNext(8, std::chrono::milliseconds(150));
    peer.Reply(reply);
    EXPECT_TRUE(Send(read));
    EXPECT_EQ(session.ReplyBuffer, reply.substr(0, 8));
    Wait(200);
    EXPECT_EQ(session.ReplyBuffer, reply.substr(8));
}

TEST_F(SendCommand, AShorterFirstPieceCostsARepeat) {
    peer.line().SplitNext(5, std::chrono::milliseconds(150));
    peer.Reply(Echo(read, std::string(16, 'C')));
    peer.Reply(Echo(read, std::string(16, 'D')));
    EXPECT_FALSE(Send(read)) << "every later piece comes one repeat too late";
    EXPECT_GT(Sent().size(), 1u);
}

TEST_F(SendCommand, RefusalIsSeenInTheRawReplyBeforeTheEcho) {
    peer.Reply(Framed(Bytes({0xFA, 0x11, 0x16})));
    EXPECT_FALSE(Send(read));
    EXPECT_EQ(Sent().size(), 1u);
    EXPECT_EQ(LastBox(), "Privileges|Denied due to privilege settings");
    // Even where 0x16 is the high byte of the address read.
    const std::string high = ReadCommand(0xFA, 0x1600);
    peer.Reply(Echo(high, std::string(16, 'A')));
    EXPECT_FALSE(Send(high));
}

TEST_F(SendCommand, ChecksumOf0x10MakesTheNextByteOfTheReplyPartOfTheEcho) {
    // FA + 16 ... : choose a text whose sum is 0x10.
    const std::string command = Bytes({0xFA, 0x11, 0x00, 0xF5, 0x10});
    peer.Reply(Echo(command, "\x10" + std::string(15, 'A')));
    EXPECT_TRUE(Send(command));
    for (int i = 0; i < 4; ++i) peer.Reply(Echo(command, std::string(16, 'A')));
    EXPECT_FALSE(Send(command));
}

TEST_F(SendCommand, ANewUnitIdAnswersFromItsNewAddress) {
    session.RelayAddress = 250;
    const std::string write = Bytes({250, kWriteUnitID, 1, 2, 3, 4, 9});
    peer.Reply(Framed(Bytes({9, kWriteUnitID, 1, 2, 3, 4, 9})));
    EXPECT_TRUE(Send(write));
    EXPECT_EQ(form.Label4.Caption(), "Command Repeat 1");
    peer.Reply(Framed(Bytes({8, kWriteUnitID, 1, 2, 3, 4, 9})));
    EXPECT_FALSE(Send(write));
    EXPECT_EQ(LastBox(), "|Problem writing ID. Please try again.");
}

TEST_F(SendCommand, AnyLowAddressMayAnswerForTheSerialNumber) {
    const std::string ask = Bytes({250, kReadSerialNumber});
    peer.Reply(Framed(Bytes({4, kReadSerialNumber, 1, 2, 3, 4})));
    EXPECT_TRUE(Send(ask));
    for (int i = 0; i < 4; ++i) peer.Reply(Framed(Bytes({5, kReadSerialNumber, 1, 2, 3, 4})));
    EXPECT_FALSE(Send(ask));
}

TEST_F(SendCommand, OneWireRefusalLeavesWithoutABox) {
    peer.Reply(Framed(Bytes({250, kOneWireMemory, 0x15})));
    EXPECT_FALSE(Send(Bytes({250, kOneWireMemory, 0x01, 0x01})));
    EXPECT_EQ(Sent().size(), 1u);
    EXPECT_TRUE(world.boxes.shown().empty());
    // Nothing else does: neither other bytes nor the display board's refusal.
    for (int i = 0; i < 4; ++i) peer.Reply("garbage");
    EXPECT_FALSE(Send(Bytes({250, kOneWireMemory, 0x01, 0x01})));
    EXPECT_EQ(Sent().size(), 4u);
    for (int i = 0; i < 4; ++i) peer.Reply(Framed(Bytes({251, kOneWireMemory, 0x15})));
    EXPECT_FALSE(Send(Bytes({251, kOneWireMemory, 0x01, 0x01})));
    EXPECT_EQ(Sent().size(), 4u);
}

TEST_F(SendCommand, ADamagedTransmittedFrameEndsInComsClash1AndADisconnect) {
    peer.set_answer([](std::string_view) { return "x"; });
    world.loop.Post([this] { session.FrameBuffer = "zz"; });
    EXPECT_FALSE(Send(read));
    EXPECT_EQ(LastBox(), "Comms Clash1!|Responses are being corrupted. Please try again.");
    EXPECT_EQ(world.tcpsend.State(), SocketState::kClosed);
}

TEST_F(SendCommand, UncheckedSendTakesAnyBytesAndStartsNoTimeout) {
    session.CommandDone = true;
    peer.Reply("anything");
    const Link::Operation operation(tool.link, "Test");
    std::string text = Bytes({250, kWriteLiveData, 6, 1});
    EXPECT_TRUE(tool.link.SendUnchecked(text));
    EXPECT_TRUE(session.CommandDone);
    EXPECT_FALSE(form.timTimeout.Enabled());
    EXPECT_EQ(session.ReplyBuffer, "anything");
}

}  // namespace
}  // namespace kestrane
