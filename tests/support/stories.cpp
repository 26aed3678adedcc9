#include "support/stories.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/series.h"

namespace kestrane {
namespace {

StoryLines LinesOf(std::istream& text) {
    StoryLines lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
}

StoryLines Play(const StoryLines& text, StoryPlayer player) {
    std::stringstream played;
    StoryLines story;
    for (const std::string& line : text) {
        if (line.starts_with("== ")) {
            played << player(story) << line << "\n";
            story.clear();
        } else {
            story.push_back(line);
        }
    }
    played << player(story);
    return LinesOf(played);
}

class StoriesOfAFile : public testing::Test {
  public:
    StoriesOfAFile(std::filesystem::path path, StoryPlayer player)
        : path_(std::move(path)), player_(player) {}

  private:
    void TestBody() override {
        std::ifstream file(path_);
        const StoryLines written = LinesOf(file);
        const StoryLines played = Play(written, player_);
        if (std::getenv("KESTRANE_RECORD")) {
            std::ofstream anew(path_);
            for (const std::string& line : Folded(played, written)) anew << line << "\n";
            return;
        }
        std::size_t next = 0;
        for (std::size_t at = 0; at < written.size(); ++at) {
            for (const std::string& wanted : Expanded(written[at])) {
                ASSERT_LT(next, played.size()) << path_ << ":" << at + 1 << " " << wanted;
                ASSERT_EQ(played[next++], wanted) << path_ << ":" << at + 1;
            }
        }
        EXPECT_EQ(played.size(), next);
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
