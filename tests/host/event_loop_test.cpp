#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>

#include "host/descriptors.h"
#include "host/qt_event_loop.h"
#include "host_test_support.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

TEST(QtTimerService, Tick_ComesAgainWhileItsHandlingPumps) {
    HostServices host;
    int depth = 0;
    auto timer = host.timers.NewTimer([&] {
        ++depth;
        EXPECT_TRUE(PumpUntil(host.loop, [&] { return depth >= 5; }));
    });
    timer->Start(milliseconds(1));
    EXPECT_TRUE(PumpUntil(host.loop, [&] { return depth >= 5; }));
}

TEST(QtTimerService, Timer_MayBeStoppedRestartedOrDeletedInItsTick) {
    HostServices host;
    int stops = 0;
    std::unique_ptr<RepeatingTimer> stopped;
    stopped = host.timers.NewTimer([&] {
        ++stops;
        stopped->Stop();
    });
    int restarts = 0;
    std::unique_ptr<RepeatingTimer> restarted;
    restarted = host.timers.NewTimer([&] {
        ++restarts;
        restarted->Start(milliseconds(2));
    });
    bool deleted = false;
    std::unique_ptr<RepeatingTimer> deleting;
    deleting = host.timers.NewTimer([&, kept = std::string(100, 'x')] {
        deleting.reset();
        deleted = kept.size() == 100;
    });
    stopped->Start(milliseconds(1));
    restarted->Start(milliseconds(1));
    deleting->Start(milliseconds(1));
    EXPECT_TRUE(PumpUntil(host.loop, [&] { return restarts >= 10 && deleted && stops > 0; }));
    EXPECT_EQ(stops, 1);
}

TEST(QtEventLoop, Posts_KeepTheirOrderInNestedPumpsToo) {
    HostServices host;
    std::string order;
    std::size_t pumps = 0;
    host.loop.AfterEvents([&] { ++pumps; });
    host.loop.Post([&] {
        order += 'a';
        EXPECT_TRUE(PumpUntil(host.loop, [&] { return order.size() == 3; }));
        EXPECT_GT(pumps, 0u);
        order += 'd';
    });
    host.loop.Post([&] { order += 'b'; });
    host.loop.Post([&] { order += 'c'; });
    EXPECT_TRUE(PumpUntil(host.loop, [&] { return order.size() == 4; }));
    EXPECT_EQ(order, "abcd");
}

TEST(QtEventLoopDeathTest, Exit_EndsAtOnceFromWithinWaits) {
    EXPECT_EXIT(
        {
            HostServices host;
            host.loop.Post([&] {
                host.loop.Post([&] { host.loop.Exit(7); });
                while (true) host.loop.Pump();
            });
            while (true) host.loop.Pump();
        },
        testing::ExitedWithCode(7), "");
}

TEST(OpenStandardDescriptorsDeathTest, OpensTheClosedOnesAndNoOthers) {
    EXPECT_EXIT(
        {
            close(STDIN_FILENO);
            close(STDOUT_FILENO);
            OpenStandardDescriptors();
            const int next = dup(STDERR_FILENO);
            char byte = 0;
            const bool empty = read(STDIN_FILENO, &byte, 1) == 0;
            const bool refused = write(STDOUT_FILENO, "x", 1) == -1;
            _exit(empty && refused && next > STDERR_FILENO ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST(QtRandom, Seedings_InOneTickDiffer) {
    QtRandom random;
    const double first = random.Draw();
    random.Seed();
    EXPECT_NE(random.Draw(), first);
    for (int i = 0; i < 1000; ++i) {
        const double draw = random.Draw();
        EXPECT_TRUE(draw >= 0 && draw < 1) << draw;
    }
}

}  // namespace
}  // namespace kestrane
