#include <gtest/gtest.h>

#include "support/transcript.h"

namespace kestrane {
namespace {

// The stories of this folder, one case a file.
class FeatureStories : public testing::TestWithParam<std::string> {};

TEST_P(FeatureStories, GoAsTheyStand) { ExpectTranscript("features", GetParam()); }

INSTANTIATE_TEST_SUITE_P(, FeatureStories, testing::ValuesIn(TranscriptsIn("features")),
                         [](const auto& name) { return name.param; });

}  // namespace
}  // namespace kestrane
