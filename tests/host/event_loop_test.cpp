#include <gtest/gtest.h>

#include <string>

#include "host/descriptors.h"
#include "host/qt_event_loop.h"
#include "host_test_support.h"

namespace kestrane {
namespace {

TEST(QtTimerService, KeepsTheContractOfTimers) {
    HostServices host;
    CheckTimers(host.loop, host.timers);
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
