#include "support/virtual_platform.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/scripted_peer.h"
#include "support/unit_peer.h"
#include "text/text.h"
#include "unit/frame_parser.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

TEST(VirtualPlatform, Events_ComeByTimeThenByOrderOfTheCalls) {
    VirtualPlatform world;
    std::string order;
    world.time.After(milliseconds(5), [&] { order += 'c'; });
    world.loop.Post([&] {
        order += 'a';
        world.loop.Post([&] { order += 'b'; });
    });
    world.time.At(milliseconds(5), [&] { order += 'd'; });
    for (int i = 0; i < 4; ++i) world.Pump();
    EXPECT_EQ(order, "abcd");
    EXPECT_EQ(world.Now(), milliseconds(5));
    EXPECT_THROW(world.Pump(), NothingLeftToHappen);
    EXPECT_THROW(world.time.At(milliseconds(4), [] {}), std::logic_error);
}

TEST(VirtualPlatform, Tick_ComesAgainWhileItsHandlingPumps) {
    VirtualPlatform world;
    int depth = 0;
    auto timer = world.timers.NewTimer([&] {
        if (++depth < 4) {
            while (depth < 4) world.Pump();
        }
    });
    timer->Start(milliseconds(100));
    world.Pump();
    EXPECT_EQ(depth, 4);
    EXPECT_EQ(world.Now(), milliseconds(400));
    EXPECT_EQ(world.max_pump_depth(), 4);
    EXPECT_EQ(world.loop.pump_depth(), 0);
}

TEST(VirtualPlatform, Timer_MayBeStoppedOrDeletedInItsTick) {
    VirtualPlatform world;
    std::string gone(100, 'x');
    std::unique_ptr<RepeatingTimer> timer;
    timer = world.timers.NewTimer([&timer, gone] {
        timer.reset();
        EXPECT_EQ(gone.size(), 100u);
    });
    timer->Start(milliseconds(10));
    world.Pump();
    EXPECT_THROW(world.Pump(), NothingLeftToHappen);
}

TEST(VirtualPlatform, EndlessWaits_FailInsteadOfHanging) {
    VirtualPlatform world;
    auto timer = world.timers.NewTimer([] {});
    timer->Start(milliseconds(10));
    world.loop.set_event_limit(1000);
    EXPECT_THROW(while (true) world.Pump(), LimitReached);

    VirtualPlatform nested;
    auto nesting = nested.timers.NewTimer([&] { nested.Pump(); });
    nesting->Start(milliseconds(10));
    EXPECT_THROW(nested.Pump(), LimitReached);
    EXPECT_EQ(nested.loop.pump_depth(), 0);
}

TEST(FakeSocket, PeerClose_ShowsOnlyWhenAllIsRead) {
    VirtualPlatform world;
    world.tcpsend.Connect("unit", 1243);
    world.Pump();
    world.tcpsend.Deliver("abc");
    world.tcpsend.CloseByPeer();
    EXPECT_EQ(world.tcpsend.State(), SocketState::kConnected);
    EXPECT_EQ(world.tcpsend.Read(2), "ab");
    EXPECT_EQ(world.tcpsend.State(), SocketState::kConnected);
    EXPECT_EQ(world.tcpsend.Read(9), "c");
    EXPECT_EQ(world.tcpsend.State(), SocketState::kPeerClosing);
}

TEST(FakeSocket, EventsOfAnEarlierConnection_NeverTouchTheNext) {
    VirtualPlatform world;
    world.tcpsend.Connect("unit", 1243);
    world.Pump();
    world.tcpsend.Deliver("old", milliseconds(5));
    world.tcpsend.ResetByPeer(milliseconds(6));
    world.tcpsend.Close();
    world.tcpsend.Connect("unit", 1243);
    world.RunFor(milliseconds(50));
    EXPECT_EQ(world.tcpsend.State(), SocketState::kConnected);
    EXPECT_EQ(world.tcpsend.BytesWaiting(), 0u);
}

TEST(ScriptedPeer, Faults_FallOnRepliesInTurnAndKeepTheOrder) {
    VirtualPlatform world;
    ScriptedPeer peer(world.tcpsend, [](std::string_view frame) { return std::string(frame); });
    world.tcpsend.Connect("unit", 1243);
    world.Pump();
    peer.line().SplitNext(1, milliseconds(20));
    peer.line().DropNext();
    peer.line().GarbleNext(0);
    for (const char* frame : {"12", "34", "\x0F", "56"}) world.tcpsend.Send(frame);
    world.RunFor(milliseconds(1));
    EXPECT_EQ(world.tcpsend.Read(99), "1");
    world.RunFor(milliseconds(20));
    EXPECT_EQ(world.tcpsend.Read(99),
              "2\xF0"
              "56");
    EXPECT_EQ(world.tcpsend.sent(), (std::vector<std::string>{"12", "34", "\x0F", "56"}));
}

TEST(FakeHttp, CancelledFetch_HasNoEvents) {
    VirtualPlatform world;
    std::string seen;
    HttpReader::Events events;
    events.complete = [&](const std::string& content) { seen += content; };
    world.http.Start("http://one/", true, events);
    world.http.Complete("one");
    world.http.Start("http://two/", true, events);
    world.http.Complete("two");
    world.RunFor(milliseconds(1));
    EXPECT_EQ(seen, "two");
    EXPECT_EQ(world.http.cancels(), 1);
}

TEST(UnitPeer, AnswersAReadInVirtualTime) {
    VirtualPlatform world;
    UnitPeer peer(world.tcpsend, world.time);
    world.tcpsend.Connect("unit", 1244);
    world.Pump();
    EXPECT_EQ(peer.control_port(), 2);
    const std::string command = Bytes({0xFB, 0x11, 0x00, 0x00, 0x04});
    world.tcpsend.Send(unit::EncodeFrame(command));
    EXPECT_EQ(world.tcpsend.BytesWaiting(), 0u);
    world.Pump();
    EXPECT_EQ(world.Now(), milliseconds(2));
    EXPECT_EQ(world.tcpsend.Read(1000),
              unit::EncodeFrame(command + peer.unit().Display().Read(0x0000, 4)));
}

}  // namespace
}  // namespace kestrane
