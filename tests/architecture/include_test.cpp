// The folders under src/ stand in layers: each may include what this table holds and nothing
// else. It is the table of CONTRIBUTING.md.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>

namespace {

using Folders = std::set<std::string>;

const Folders kLink = {"text", "platform", "screen", "link"};
const Folders kTopics = {"settings", "security", "features", "macro", "help", "simulation"};

Folders Join(Folders a, const Folders& b) {
    a.insert(b.begin(), b.end());
    return a;
}

const Folders kTool = Join(Join(kLink, kTopics), {"tool"});

const std::map<std::string, Folders> kMayInclude = {
    {"text", {}},
    {"simulation", {"text"}},
    {"platform", {"text"}},
    {"screen", {"text", "platform"}},
    {"link", {"text", "platform", "screen"}},
    {"settings", kLink},
    {"security", kLink},
    {"features", kLink},
    {"macro", Join(kLink, {"simulation"})},
    {"help", kLink},
    {"tool", Join(kLink, kTopics)},
    {"configuration", kTool},
    {"editing", Join(kTool, {"configuration"})},
    {"console", Join(kTool, {"configuration", "editing"})},
    {"cli", Join(kTool, {"configuration", "editing", "console"})},
    {"forms", Join(kTool, {"configuration", "editing", "simulation"})},
    {"host", {"text", "platform"}},
    {"unit", {"text", "simulation"}},
};
const Folders kWithQt = {"forms", "host", "unit"};

// "link" for a line that includes "link/frame.h"; nothing for other lines.
std::string IncludedFolder(const std::string& line) {
    const std::string own = "#include \"";
    const auto slash = line.find('/');
    if (!line.starts_with(own) || slash == std::string::npos) return {};
    return line.substr(own.size(), slash - own.size());
}

TEST(Architecture, IncludesFollowTheLayers) {
    const std::filesystem::path root = KESTRANE_SOURCE_DIR;
    int lines = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / "src")) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp") continue;
        const auto relative = std::filesystem::relative(entry.path(), root / "src");
        const std::string folder = relative.begin()->string();
        ASSERT_TRUE(kMayInclude.contains(folder)) << folder << " is a folder without a layer";
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            if (const std::string to = IncludedFolder(line); !to.empty()) {
                ++lines;
                EXPECT_TRUE(to == folder || kMayInclude.at(folder).contains(to))
                    << relative << " must not include " << to << "/";
            }
            if (line.starts_with("#include <Q")) {
                EXPECT_TRUE(kWithQt.contains(folder)) << relative << " must not know Qt";
            }
        }
    }
    EXPECT_GT(lines, 100) << "the sources were not found";
}

}  // namespace
