// Decoding every pair of bytes. The bar is 5 million instructions a second on one core.

#include <benchmark/benchmark.h>

#include <string>

#include "bars.h"
#include "macro/instruction_set.h"

namespace {

constexpr int kPairs = 65536;

void BM_DecodeAllPairs(benchmark::State& state) {
    std::string text;
    for (auto _ : state) {
        for (int pair = 0; pair < kPairs; ++pair) {
            kestrane::CmdDecode(static_cast<std::uint8_t>(pair >> 8),
                                static_cast<std::uint8_t>(pair), "CMS", text);
            benchmark::DoNotOptimize(text.data());
        }
    }
    state.SetItemsProcessed(state.iterations() * kPairs);
}
BENCHMARK(BM_DecodeAllPairs)->Unit(benchmark::kMillisecond);

void BM_DecodeAllPairsAsNewTexts(benchmark::State& state) {
    for (auto _ : state) {
        for (int pair = 0; pair < kPairs; ++pair) {
            benchmark::DoNotOptimize(kestrane::CmdDecode(static_cast<std::uint8_t>(pair >> 8),
                                                         static_cast<std::uint8_t>(pair), "CMS"));
        }
    }
    state.SetItemsProcessed(state.iterations() * kPairs);
}
BENCHMARK(BM_DecodeAllPairsAsNewTexts)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    using kestrane::Bar;
    return kestrane::RunWithBars(
        argc, argv, {{"BM_DecodeAllPairs", "items_per_second", Bar::Side::kAtLeast, 5e6}});
}
