#include "support/stories.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kestrane {
namespace {

std::string Play(const std::string& text, StoryPlayer player) {
    std::string played;
    std::vector<std::string> story;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("== ")) {
            played += player(story) + line + "\n";
            story.clear();
        } else {
            story.push_back(line);
        }
    }
    return played + player(story);
}

class StoriesOfAFile : public testing::Test {
  public:
    StoriesOfAFile(std::filesystem::path path, StoryPlayer player)
        : path_(std::move(path)), player_(player) {}

  private:
    void TestBody() override {
        std::stringstream expected;
        expected << std::ifstream(path_).rdbuf();
        const std::string played = Play(expected.str(), player_);
        if (std::getenv("KESTRANE_RECORD")) {
            std::ofstream(path_) << played;
            return;
        }
        std::istringstream actual(played);
        std::string line;
        std::string wanted;
        for (int number = 1; std::getline(actual, line); ++number) {
            std::getline(expected, wanted);
            ASSERT_EQ(line, wanted) << path_ << ":" << number;
        }
        EXPECT_EQ(played.size(), expected.str().size());
    }

    std::filesystem::path path_;
    StoryPlayer player_;
};

}  // namespace

bool RegisterStories(const std::string& folder, StoryPlayer player) {
    namespace fs = std::filesystem;
    // "MacroStories", so that no two programs have a case of the same name.
    std::string suite = folder + "Stories";
    suite[0] = static_cast<char>(std::toupper(suite[0]));
    bool any = false;
    for (const auto& entry :
         fs::directory_iterator(fs::path(KESTRANE_SOURCE_DIR) / "tests" / folder)) {
        const fs::path& path = entry.path();
        if (path.extension() != ".story") continue;
        testing::RegisterTest(suite.c_str(), path.stem().c_str(), nullptr, nullptr, path.c_str(), 1,
                              [=]() -> testing::Test* { return new StoriesOfAFile(path, player); });
        any = true;
    }
    return any;
}

}  // namespace kestrane
