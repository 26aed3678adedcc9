// A simulated day of a loop that comes back after 18 hours only, in at most 2 s; and a program that
// fills all 112 lines with twenty inputs, in at most 50 ms.

#include <benchmark/benchmark.h>

#include "bars.h"
#include "macro/assembler.h"
#include "macro/timeline.h"

namespace {

using namespace kestrane;
using simulation::Milliseconds;

void BM_Day(benchmark::State& state) {
    const Assembly assembly = Assemble(
        "start: COUNT2 LOAD 0\n"
        "outer: COUNT1 LOAD 0\n"
        "inner: ON 1 0.5\nOFF 1 0.5\nCOUNT1 DEC next\nGOTO inner\n"
        "next: COUNT2 INC done\nGOTO outer\n"
        "done: WAIT 100\nGOTO start\n");
    for (auto _ : state) {
        const auto run =
            simulation::Simulate(ImageOf(assembly.program.image), {}, {}, Milliseconds{86'400'000});
        if (!run.repeats || run.events.size() < 200'000) state.SkipWithError("another run");
    }
}
BENCHMARK(BM_Day)->Unit(benchmark::kMillisecond);

void BM_AllLinesWithInputs(benchmark::State& state) {
    std::string source = "ON/OFF ON INT 20\nON/OFF OFF INT 20\n";
    for (int line = 0x12; line < 0x7F; ++line) {
        source += "ON " + std::to_string(line % 14 + 1) + " 0.1 ALWAYS\n";
    }
    const Assembly assembly = Assemble(source + "GOTO 10\n");
    std::vector<simulation::TimedInput> inputs;
    for (int i = 0; i < 20; ++i) {
        inputs.push_back({Milliseconds{1000 * i}, {simulation::Input::Kind::kSwitch, i % 2 != 0}});
    }
    for (auto _ : state) {
        const auto run = simulation::Simulate(ImageOf(assembly.program.image), {}, inputs,
                                              Milliseconds{3'600'000});
        if (!assembly.Good() || run.events.size() < 112) state.SkipWithError("another run");
    }
}
BENCHMARK(BM_AllLinesWithInputs)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return kestrane::RunWithBars(argc, argv,
                                 {{"BM_Day", "", kestrane::Bar::Side::kAtMost, 2000},
                                  {"BM_AllLinesWithInputs", "", kestrane::Bar::Side::kAtMost, 50}});
}
