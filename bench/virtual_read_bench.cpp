// Whole settings reads under virtual time with the demo unit in the process: how many a second
// the logic itself can do. Bar: 200.

#include <benchmark/benchmark.h>

#include "bars.h"
#include "support/unit_peer.h"
#include "support/virtual_platform.h"
#include "tool/tool.h"

namespace {

using namespace kestrane;

void SettingsRead(benchmark::State& state) {
    VirtualPlatform world;
    Tool tool(world.platform());
    UnitPeer peer(world.tcpsend, world.time);
    world.loop.set_event_limit(1'000'000'000);
    tool.Start();
    tool.main_form.cmdConnect.on_click();
    world.RunFor(std::chrono::milliseconds(250));
    for (auto _ : state) {
        tool.main_form.network.cmdReadNetworkSettings.on_click();
        if (!tool.main_form.network.cmdReadNetworkSettings.Enabled()) {
            state.SkipWithError("the read has failed");
            break;
        }
        world.tcpsend.ClearSent();
    }
    state.counters["reads/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(SettingsRead)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    using kestrane::Bar;
    return kestrane::RunWithBars(argc, argv,
                                 {{"SettingsRead", "reads/s", Bar::Side::kAtLeast, 200}});
}
