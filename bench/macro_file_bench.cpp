// Writing a macro file as a text and reading it back. The bar is 2,000 files a second.

#include <benchmark/benchmark.h>

#include "bars.h"
#include "macro/macro_file.h"

namespace {

using namespace kestrane;

class Sink : public MacroFileSink {
  public:
    void StoreByte(std::size_t index, std::uint8_t value) override { image.Set(index, value); }
    void CompareAndStoreTrigger(int row, const TriggerRow& fields) override {
        triggers[static_cast<std::size_t>(row)] = fields;
    }

    MacroMemory image;
    TriggerRows triggers;
};

void BM_SaveAndLoad(benchmark::State& state) {
    Sink sink;
    // Long texts: masks, delays of outlets, limits.
    const std::uint8_t opcodes[] = {0x5B, 0x31, 0xC3, 0xE6, 0x22};
    for (std::size_t i = 32; i < 256; i += 2) {
        sink.image.Set(i, opcodes[i / 2 % 5]);
        sink.image.Set(i + 1, static_cast<std::uint8_t>(i));
    }
    sink.triggers.fill({"Morning start", "1", "1A", true});
    for (auto _ : state) {
        const std::string file = WriteMacroFile("bench.sms", sink.triggers, sink.image, "CMS");
        const MacroFileResult result = ReadMacroFile(file, sink);
        if (result.outcome != MacroFileResult::Outcome::kOk) {
            state.SkipWithError("the file does not load");
        }
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_SaveAndLoad)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    using kestrane::Bar;
    return kestrane::RunWithBars(
        argc, argv, {{"BM_SaveAndLoad", "items_per_second", Bar::Side::kAtLeast, 2000}});
}
