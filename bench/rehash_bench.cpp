// A key press in a password box of the web security tab, from the hand to the hidden boxes: a new
// salt and three hashes. The bar is 100 microseconds a key.

#include <benchmark/benchmark.h>

#include "bars.h"
#include "support/virtual_platform.h"
#include "tool/tool.h"

namespace {

void BM_KeyPressInAPasswordBox(benchmark::State& state) {
    kestrane::VirtualPlatform world;
    kestrane::Tool tool(world.platform());
    tool.Start();
    kestrane::MainForm& form = tool.main_form;
    form.SSTab1.SetTab(2);
    form.security.fraSecuritySettings.SetEnabled(true);
    for (int level = 0; level < 3; ++level) {
        form.security.txtWebPassword(level).SetText("fifteen letters");
    }
    bool refused = false;
    int keys = 0;
    for (auto _ : state) {
        // The sixteenth letter goes in and out again.
        const int code = ++keys % 2 != 0 ? 'x' : kestrane::Hand::kBackspace;
        refused |= tool.hand.Press(form.security.txtWebPassword(1), code).has_value();
    }
    if (refused) state.SkipWithError("a key was refused");
    if (world.random.seedings() < keys) state.SkipWithError("a key has drawn no salt");
}
BENCHMARK(BM_KeyPressInAPasswordBox)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    using kestrane::Bar;
    return kestrane::RunWithBars(argc, argv,
                                 {{"BM_KeyPressInAPasswordBox", "", Bar::Side::kAtMost, 100}});
}
