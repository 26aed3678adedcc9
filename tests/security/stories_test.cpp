#include <gtest/gtest.h>

#include "support/transcript.h"

namespace kestrane {
namespace {

// The stories of this folder, one case a file.
class SecurityStories : public testing::TestWithParam<std::string> {};

TEST_P(SecurityStories, GoAsTheyStand) { ExpectTranscript("security", GetParam()); }

INSTANTIATE_TEST_SUITE_P(, SecurityStories, testing::ValuesIn(TranscriptsIn("security")),
                         [](const auto& name) { return name.param; });

}  // namespace
}  // namespace kestrane
