// Random sessions: a fixed set of stories, and one fresh one whose seed is printed.

#include <gtest/gtest.h>

#include <random>

#include "simulation/sessions/play.h"

namespace kestrane::sessions {
namespace {

void ExpectNoFault(std::uint64_t seed) {
    const Story story = StoryOf(seed);
    const Outcome outcome = Play(story);
    if (outcome.fault.empty()) return;
    ADD_FAILURE() << "./simulate --seed " << seed << "\n"
                  << outcome.fault << "\n"
                  << InWords(Shrink(story, outcome));
}

TEST(Sessions, AFixedSetOfStoriesBreaksNoRule) {
    for (std::uint64_t seed = 1; seed <= 150; ++seed) ExpectNoFault(seed);
}

TEST(Sessions, AFreshStoryBreaksNoRule) {
    const std::uint64_t seed = std::random_device{}();
    std::cout << "fresh: ./simulate --seed " << seed << "\n";
    ExpectNoFault(seed);
}

}  // namespace
}  // namespace kestrane::sessions
