#include <gtest/gtest.h>

#include "support/transcript.h"

namespace kestrane {
namespace {

// The stories of this folder, one case a file.
class SettingsStories : public testing::TestWithParam<std::string> {};

TEST_P(SettingsStories, GoAsTheyStand) { ExpectTranscript("settings", GetParam()); }

INSTANTIATE_TEST_SUITE_P(, SettingsStories, testing::ValuesIn(TranscriptsIn("settings")),
                         [](const auto& name) { return name.param; });

}  // namespace
}  // namespace kestrane
