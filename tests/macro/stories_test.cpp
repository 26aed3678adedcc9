#include <gtest/gtest.h>

#include "support/transcript.h"

namespace kestrane {
namespace {

// The stories of this folder, one case a file.
class MacroStories : public testing::TestWithParam<std::string> {};

TEST_P(MacroStories, GoAsTheyStand) { ExpectTranscript("macro", GetParam()); }

INSTANTIATE_TEST_SUITE_P(, MacroStories, testing::ValuesIn(TranscriptsIn("macro")),
                         [](const auto& name) { return name.param; });

}  // namespace
}  // namespace kestrane
