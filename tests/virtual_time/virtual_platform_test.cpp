#include "support/virtual_platform.h"

#include <gtest/gtest.h>

namespace kestrane {
namespace {

using std::chrono::milliseconds;

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

}  // namespace
}  // namespace kestrane
