// The journal: how exchanges and operations end, as the unit and the line made them end.

#include "link/journal.h"

#include <gtest/gtest.h>

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

using End = Exchange::End;
using Done = OperationRecord::End;

struct JournalTest : ::testing::Test, ToolOnScript {
    const std::string read = ReadCommand(0xFA, 0x0020);
    const std::string data = std::string(15, 'A') + "\x10";

    // One read inside an operation, answered by `reply`.
    std::optional<std::string> Read(const std::string& reply) {
        peer.Reply(reply);
        Link::Operation operation(tool.link, "Read");
        return tool.link.Read(0xFA, 0x0020);
    }
    const Exchange& LastExchange() { return tool.link.journal().exchanges().back(); }
    const OperationRecord& LastOperation() { return tool.link.journal().operations().back(); }
};

TEST_F(JournalTest, SaysHowEachExchangeEndedAndWhatCame) {
    Connect();
    const struct {
        const char* name;
        std::string reply;
        End end;
        int sent;
    } rows[] = {
        {"accepted", Framed(read + data), End::kAccepted, 1},
        {"refused", Framed(Bytes({0xFA, 0x11, 0x16})), End::kRefused, 1},
        {"silent", "", End::kNoAnswer, 1},
        {"short", Framed(read + data.substr(0, 9)), End::kCorrupted, 1},
        {"one byte short", Framed(read + data.substr(0, 15)), End::kCorrupted, 1},
        {"cut", Framed(read + data).substr(0, 20), End::kCorrupted, 1},
    };
    for (const auto& row : rows) {
        const auto got = Read(row.reply);
        EXPECT_EQ(got.has_value(), row.end == End::kAccepted) << row.name;
        EXPECT_EQ(LastExchange().end, row.end) << row.name;
        EXPECT_EQ(LastExchange().times_sent, row.sent) << row.name;
        EXPECT_EQ(LastExchange().address, 0x0020);
        EXPECT_EQ(LastOperation().end, row.end == End::kAccepted ? Done::kComplete : Done::kStopped)
            << row.name;
        if (row.end == End::kAccepted) {
            EXPECT_EQ(*got, data);
            EXPECT_EQ(LastExchange().data, data);
        } else {
            EXPECT_EQ(LastOperation().stopped_at, LastExchange().number) << row.name;
        }
    }
    for (int i = 0; i < 4; ++i) peer.Reply("garbage");
    EXPECT_FALSE(tool.link.Write(0xFA, 0x0020, "ab"));
    EXPECT_EQ(LastExchange().end, End::kCorrupted);
    EXPECT_EQ(LastExchange().times_sent, 4);
    EXPECT_EQ(LastExchange().data, "ab");
}

TEST_F(JournalTest, ALostLineOvertakesWhatIsUnderWayAtOnce) {
    Connect();
    After(100, [this] {
        world.tcpsend.CloseByPeer();
        Wait(300);
        EXPECT_EQ(LastExchange().end, End::kLineLost);
        EXPECT_EQ(LastOperation().end, Done::kOvertaken);
        throw ProgramEnded{0};
    });
    EXPECT_THROW(Read(""), ProgramEnded);
}

TEST_F(JournalTest, KeepsSkipsAndReasonsAndLeavesPollsOut) {
    Connect();
    {
        Link::Operation operation(tool.link, "Write");
        operation.Skip("key of port A", "it is not complete");
        operation.Stop("the box is red");
    }
    EXPECT_EQ(LastOperation().end, Done::kStopped);
    EXPECT_EQ(LastOperation().skipped.at(0).what, "key of port A");
    EXPECT_EQ(LastOperation().why, "the box is red");
    const std::size_t kept = tool.link.journal().exchanges().size();
    for (int i = 0; i < 3; ++i) {
        const Link::Operation operation(tool.link, "");
        std::string poll = Bytes({0xFA, kReadLiveStatus});
        bool waiting = false;
        peer.Reply(Framed(poll + std::string(13, '1')));
        EXPECT_TRUE(tool.link.Poll(poll, waiting));
    }
    {  // a command of a poll counts among the polls as well
        const Link::Operation operation(tool.link, "");
        tool.link.Command(Bytes({0xFA, kReadSecondStatus}));
    }
    EXPECT_EQ(tool.link.journal().exchanges().size(), kept);
    EXPECT_EQ(LastOperation().name, "Write");
}

TEST_F(JournalTest, AResetIsSentAndAwaitsNothingAndAnOperationWithoutAFrameIsNotComplete) {
    Connect();
    network.cmdResetEthernet.SetEnabled(true);
    Click(network.cmdResetEthernet);
    EXPECT_EQ(LastExchange().end, End::kNotAwaited);
    EXPECT_EQ(LastExchange().command, kResetEthernet);
    EXPECT_TRUE(LastExchange().IsWrite());
    EXPECT_TRUE(LastOperation().Complete());
    { const Link::Operation operation(tool.link, "Nothing to do"); }
    EXPECT_EQ(LastOperation().end, Done::kStopped);
    EXPECT_EQ(LastOperation().why, "nothing was sent");
}

TEST_F(JournalTest, WhatComesFirstDecidesAWaitWhateverElseTheSamePumpBrings) {
    Connect();
    for (const bool reply_first : {true, false}) {
        After(50, [&] {
            world.tcpsend.Deliver(Framed(read + data));
            world.time.After(std::chrono::milliseconds{0}, [&] {
                if (!reply_first) form.timTimeout.on_timer();
                form.timGetResponse.on_timer();
                if (reply_first) form.timTimeout.on_timer();
            });
        });
        EXPECT_EQ(Read("").has_value(), reply_first);
        EXPECT_EQ(LastExchange().end, reply_first ? End::kAccepted : End::kNoAnswer);
    }
}

TEST_F(JournalTest, AnOperationKeepsTheAddressThatItBeganWith) {
    Connect();
    {
        const Link::Operation operation(tool.link, "Read");
        form.OptButID(2).SetChosen(true);
        EXPECT_EQ(session.RelayAddress, 250);
    }
    EXPECT_EQ(session.RelayAddress, 2);
    EXPECT_EQ(session.DisplayAddress, 130);
    // A disconnect ends the waiting: the next connection has the address that is chosen.
    After(100, [this] { form.OptButID(250).SetChosen(true); });
    After(200, [this] { Click(form.cmdDisconnect); });
    After(300, [this] {
        Click(form.cmdConnect);
        EXPECT_EQ(session.RelayAddress, 250);
        throw ProgramEnded{0};
    });
    EXPECT_THROW(Read(""), ProgramEnded);
}

}  // namespace
}  // namespace kestrane
