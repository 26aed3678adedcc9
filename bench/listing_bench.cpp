// Refreshing the macro editor's listing, and CLEAR MEMORY with its 256 refreshes, in the logic
// alone. The bars are 20 microseconds for a refresh and 50 milliseconds for the clearing.

#include <benchmark/benchmark.h>

#include "bars.h"
#include "macro/instruction_set.h"
#include "macro/listing.h"
#include "screen/screen.h"
#include "support/virtual_platform.h"

namespace {

using namespace kestrane;

struct Bench {
    Bench() {
        // Long texts: masks, delays of outlets, limits.
        const std::uint8_t opcodes[] = {0x5B, 0x31, 0xC3, 0xE6, 0x22};
        for (std::size_t i = 0; i < MacroMemory::kSize; i += 2) {
            state.image.Set(i, opcodes[i / 2 % 5]);
            state.image.Set(i + 1, static_cast<std::uint8_t>(i * 7));
        }
    }

    VirtualPlatform world;
    Screen screen{world.platform()};
    Session session;
    EditorState state;
    ScriptEditForm form{screen, InsertButtons()};
    Listing listing{form, session, state};
};

// Every text of the sixteen rows is another one each time.
void BM_RefreshListing(benchmark::State& state) {
    Bench bench;
    bool end = false;
    for (auto _ : state) {
        // The handling of the scroll bar's change is the refresh.
        bench.form.scrListScroll.SetScrollValue(end ? 127 : 16);
        end = !end;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_RefreshListing)->Unit(benchmark::kMicrosecond);

void BM_ClearMemory(benchmark::State& state) {
    Bench bench;
    for (auto _ : state) {
        state.PauseTiming();
        for (std::size_t i = 0; i < 256; ++i) bench.state.image.Set(i, 0x5B);
        state.ResumeTiming();
        bench.listing.cmdClearMem_Click();
    }
}
BENCHMARK(BM_ClearMemory)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    using kestrane::Bar;
    return kestrane::RunWithBars(argc, argv,
                                 {{"BM_RefreshListing", "", Bar::Side::kAtMost, 20},
                                  {"BM_ClearMemory", "", Bar::Side::kAtMost, 50000}});
}
