#include "host/fiber_loop.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <memory>
#include <string>

#include "host/fiber_services.h"
#include "host_test_support.h"
#include "support/qt_wait.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

TEST(FiberLoop, Waits_OfOneHoldUpNoOther) {
    constexpr int kFibers = 20;
    std::array<FiberServices, kFibers> services;
    int ended = 0;
    int began = 0;
    for (int i = 0; i < kFibers; ++i) {
        FiberServices& host = services[static_cast<std::size_t>(i)];
        host.loop.Start(
            [&, i] {
                ++began;
                // In the order opposite to their beginning: nesting would wait for ever.
                while (ended < kFibers - 1 - i) {
                    bool over = false;
                    const auto timer = host.timers.NewTimer([&over] { over = true; });
                    timer->Start(milliseconds(1));
                    while (!over) host.loop.Pump();
                }
                return i;
            },
            [&, i](int status) {
                EXPECT_EQ(status, i);
                ++ended;
            });
    }
    EXPECT_TRUE(WaitUntil([&] { return ended == kFibers; }));
    EXPECT_EQ(began, kFibers);
}

TEST(FiberLoop, OneThatNeverRests_HoldsUpNoOther) {
    FiberServices busy;
    FiberServices other;
    int status = -1;
    bool over = false;
    std::function<void()> again = [&] { busy.loop.Post(again); };
    const auto pump_until_the_other_ended = [&] {
        again();
        while (status < 0) busy.loop.Pump();
        return 0;
    };
    busy.loop.Start(pump_until_the_other_ended, [&](int) { over = true; });
    other.loop.Start(
        [&] {
            int ticks = 0;
            const auto timer = other.timers.NewTimer([&] { ++ticks; });
            timer->Start(milliseconds(1));
            while (ticks < 5) other.loop.Pump();
            return 7;
        },
        [&](int s) { status = s; });
    EXPECT_TRUE(WaitUntil([&] { return over; }));
    EXPECT_EQ(status, 7);
}

TEST(FiberLoop, Timers_KeepTheirContract) {
    FiberServices host;
    int status = -1;
    host.loop.Start(
        [&] {
            CheckTimers(host.loop, host.timers);
            return 1;
        },
        [&](int s) { status = s; });
    EXPECT_TRUE(WaitUntil([&] { return status == 1; }));
}

TEST(FiberLoop, Exit_UnwindsItsOwnFiberFromAnyDepth) {
    FiberServices ending;
    FiberServices other;
    int ending_status = -1;
    int other_status = -1;
    const auto kept = std::make_shared<int>(0);
    ending.loop.Start(
        [&, kept] {
            ending.loop.Post([&, kept] {
                ending.loop.Post([&] { ending.loop.Exit(9); });
                while (true) ending.loop.Pump();
            });
            while (true) ending.loop.Pump();
            return 0;
        },
        [&](int s) { ending_status = s; });
    other.loop.Start(
        [&] {
            other.loop.AfterEvents([&] {
                if (ending_status == 9) other.loop.Exit(3);
            });
            const auto timer = other.timers.NewTimer([] {});
            timer->Start(milliseconds(1));
            while (true) other.loop.Pump();
            return 0;
        },
        [&](int s) { other_status = s; });
    EXPECT_TRUE(WaitUntil([&] { return other_status == 3; }));
    EXPECT_EQ(ending_status, 9);
}

TEST(FiberLoop, AbandonedInAWait_LeavesNothingBehind) {
    const auto kept = std::make_shared<int>(0);
    {
        FiberServices host;
        host.loop.Start(
            [&host, held = kept] {
                const auto on_the_stack = held;
                while (true) host.loop.Pump();
                return *on_the_stack;
            },
            [](int) { FAIL(); });
        EXPECT_TRUE(WaitUntil([&] { return kept.use_count() == 3; }));
    }
    EXPECT_EQ(kept.use_count(), 1);
}

}  // namespace
}  // namespace kestrane
