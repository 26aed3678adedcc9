#pragma once

// The bars of the benchmarks: a program ends with exit status 1 if one of its benchmarks failed,
// was not run or stayed below its bar. Times are CPU time, so that the machine's other work does
// not count.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <ctime>
#include <map>
#include <string>
#include <vector>

namespace kestrane {

struct Bar {
    enum class Side { kAtLeast, kAtMost };

    std::string benchmark;
    std::string counter;  // empty for the CPU time of one iteration, in the benchmark's unit
    Side side = Side::kAtLeast;
    double bar = 0;
};

// Prints the line of a bar; whether it was reached.
inline bool Reached(const Bar& bar, double value) {
    const bool least = bar.side == Bar::Side::kAtLeast;
    const bool good = least ? value >= bar.bar : value <= bar.bar;
    std::printf("%-36s %-16s %12.6g  (%s %g)%s\n", bar.benchmark.c_str(),
                bar.counter.empty() ? "time" : bar.counter.c_str(), value,
                least ? "at least" : "at most", bar.bar, good ? "" : "  MISSED");
    std::fflush(stdout);
    return good;
}

// Shows the results as they come and keeps them.
class KeepingReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (!run.error_occurred) runs_.emplace(run.run_name.function_name, run);
        }
    }

    bool Check(const Bar& bar) const {
        const auto found = runs_.find(bar.benchmark);
        if (found == runs_.end()) {
            std::printf("%-36s did not run\n", bar.benchmark.c_str());
            return false;
        }
        const Run& run = found->second;
        return Reached(bar, bar.counter.empty() ? run.GetAdjustedCPUTime()
                                                : double{run.counters.at(bar.counter)});
    }

  private:
    std::map<std::string, Run> runs_;
};

// The main function of a program of benchmarks; its result is the exit status.
inline int RunWithBars(int argc, char** argv, const std::vector<Bar>& bars) {
    benchmark::Initialize(&argc, argv);
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    bool good = true;
    for (const Bar& bar : bars) good = reporter.Check(bar) && good;
    return good ? 0 : 1;
}

// Seconds of CPU time that this process has taken.
inline double CpuSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace kestrane
