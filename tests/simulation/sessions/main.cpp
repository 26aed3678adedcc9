// ./simulate [--seed N] [--minutes M | --count N]
//
// Plays stories from seed N on (a fresh one, if none is given) until the time is over or a rule is
// broken; then prints the seed and the shortest story that breaks it, and exits 1. With a seed
// alone that one story is played.

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <random>
#include <string>

#include "simulation/sessions/play.h"

namespace {

using kestrane::sessions::Outcome;
using kestrane::sessions::Play;
using kestrane::sessions::Story;
using kestrane::sessions::StoryOf;

char crash_note[64];

// A crash says which story it was.
void OnCrash(int number) {
    [[maybe_unused]] const auto written = write(STDERR_FILENO, crash_note, std::strlen(crash_note));
    std::signal(number, SIG_DFL);
    std::raise(number);
}

struct Options {
    std::optional<std::uint64_t> seed;
    double minutes = 0;
    std::uint64_t count = 0;
};

std::optional<Options> Parse(int argc, char** argv) {
    Options options;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        char* end = nullptr;
        if (name == "--seed") {
            options.seed = std::strtoull(argv[i + 1], &end, 10);
        } else if (name == "--minutes") {
            options.minutes = std::strtod(argv[i + 1], &end);
        } else if (name == "--count") {
            options.count = std::strtoull(argv[i + 1], &end, 10);
        }
        if (!end || *end != '\0' || end == argv[i + 1]) return {};
    }
    if (argc % 2 == 0) return {};
    return options;
}

bool PlayOne(std::uint64_t seed) {
    std::snprintf(crash_note, sizeof crash_note, "crashed in --seed %llu\n",
                  static_cast<unsigned long long>(seed));
    const Story story = StoryOf(seed);
    const Outcome outcome = Play(story);
    if (outcome.fault.empty()) return true;
    std::printf("--seed %llu: %s\n(after %zu of %zu steps)\n",
                static_cast<unsigned long long>(seed), outcome.fault.c_str(), outcome.steps,
                story.steps.size());
    const Story shortest = kestrane::sessions::Shrink(story, outcome);
    std::printf("the shortest story found, %s:\n%s", Play(shortest).fault.c_str(),
                kestrane::sessions::InWords(shortest).c_str());
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    const auto options = Parse(argc, argv);
    if (!options) {
        std::fprintf(stderr, "simulate [--seed N] [--minutes M | --count N]\n");
        return 2;
    }
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE}) std::signal(signal, OnCrash);
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    const auto minutes = [&] {
        return std::chrono::duration<double>(Clock::now() - begin).count() / 60;
    };
    const bool one = options->seed && options->minutes == 0 && options->count == 0;
    const std::uint64_t first = options->seed.value_or(std::random_device{}());
    const std::uint64_t most = one ? 1 : options->count;
    std::printf("from --seed %llu on\n", static_cast<unsigned long long>(first));
    std::uint64_t played = 0;
    do {
        if (!PlayOne(first + played)) return 1;
        ++played;
    } while (most > 0 ? played < most : minutes() < options->minutes);
    std::printf("%llu stories, %.0f a minute, no rule broken\n",
                static_cast<unsigned long long>(played), static_cast<double>(played) / minutes());
    return 0;
}
