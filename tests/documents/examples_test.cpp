// README and guide show what the programs print. Every line "$ ..." of a block marked `console` is
// run here, in the order of the page and in a folder of its own, and must print what the page says.
// The unit 10.0.0.7 of the pages is a demo unit that this test starts. A line "..." stands for any
// lines. With KESTRANE_UPDATE_DOCUMENTS set, the pages are written anew instead.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

const fs::path kSources = KESTRANE_SOURCE_DIR;
const std::string kPrograms = KESTRANE_PROGRAMS;
const std::string kUnit = "10.0.0.7";

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

Lines LinesOf(std::istream& stream) {
    Lines lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// A shell command with the programs on its path; its output with errors, by lines. A last line
// tells an exit status that is not 0.
Lines OutputOf(const fs::path& folder, const std::string& command) {
    const std::string whole = "cd '" + folder.string() + "' && export PATH='" + kPrograms +
                              "':\"$PATH\" QT_QPA_PLATFORM=offscreen && exec 2>&1 </dev/null; " +
                              command;
    FILE* const pipe = popen(whole.c_str(), "r");
    std::string text;
    char buffer[4096];
    while (const std::size_t count = fread(buffer, 1, sizeof buffer, pipe)) {
        text.append(buffer, count);
    }
    const int status = pclose(pipe);
    std::istringstream stream(text);
    Lines lines = LinesOf(stream);
    if (status != 0) {
        lines.push_back("[exit status " + std::to_string(WEXITSTATUS(status)) + "]");
    }
    return lines;
}

// A demo unit on free ports, in a process of its own.
class DemoUnit {
  public:
    explicit DemoUnit(const fs::path& folder) {
        const Lines started = OutputOf(folder,
                                       "kestrane-unit --port 0 >unit.json 2>&1 & echo $!; for i in "
                                       "$(seq 100); do [ -s unit.json ] && break; sleep 0.1; done; "
                                       "cat unit.json; rm -f unit.json");
        if (started.size() < 2) return;
        process_ = std::stoi(started[0]);
        const std::size_t first = started[1].find('[') + 1;
        address_ = "127.0.0.1:" + std::to_string(std::stoi(started[1].substr(first)));
    }
    ~DemoUnit() {
        if (process_ > 0) kill(process_, SIGTERM);
    }
    const std::string& address() const { return address_; }

  private:
    pid_t process_ = 0;
    std::string address_;
};

// Whether the lines are those of the page, where "..." stands for any number of lines.
bool Fits(const Lines& page, std::size_t i, const Lines& output, std::size_t j) {
    if (i == page.size()) return j == output.size();
    if (page[i] == "...") {
        return Fits(page, i + 1, output, j) || (j < output.size() && Fits(page, i, output, j + 1));
    }
    return j < output.size() && page[i] == output[j] && Fits(page, i + 1, output, j + 1);
}

std::string Joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

// One page; returns it with the output as it is now.
Lines RunPage(const fs::path& path, const fs::path& folder) {
    std::ifstream file(path);
    const Lines page = LinesOf(file);
    const DemoUnit unit(folder);
    EXPECT_FALSE(unit.address().empty()) << "the demo unit has not started";
    Lines made;
    bool inside = false;
    for (std::size_t i = 0; i < page.size();) {
        const std::string& line = page[i++];
        made.push_back(line);
        if (line.starts_with("```")) inside = line == "```console";
        if (!inside || !line.starts_with("$ ")) continue;
        Lines expected;
        while (i < page.size() && !page[i].starts_with("$ ") && page[i] != "```") {
            expected.push_back(page[i++]);
        }
        Lines output = OutputOf(folder, Replaced(line.substr(2), kUnit, unit.address()));
        for (std::string& printed : output) printed = Replaced(printed, unit.address(), kUnit);
        const bool fits = Fits(expected, 0, output, 0);
        if (!std::getenv("KESTRANE_UPDATE_DOCUMENTS")) {
            EXPECT_TRUE(fits) << path << ": " << line << "\nprints\n"
                              << Joined(output) << "and not\n"
                              << Joined(expected);
        }
        const Lines& kept = fits ? expected : output;
        made.insert(made.end(), kept.begin(), kept.end());
    }
    return made;
}

class Examples : public testing::TestWithParam<std::string> {};

TEST_P(Examples, PrintWhatThePageSays) {
    const fs::path path = kSources / GetParam();
    std::string name = (fs::temp_directory_path() / "kestrane-examples-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    // What the pages take as given.
    if (fs::exists(kSources / "examples")) {
        fs::copy(kSources / "examples", name, fs::copy_options::recursive);
    }
    const Lines made = RunPage(path, name);
    if (std::getenv("KESTRANE_UPDATE_DOCUMENTS")) std::ofstream(path) << Joined(made);
    fs::remove_all(name);
}

bool HasExamples(const fs::path& path) {
    std::ifstream file(path);
    const Lines lines = LinesOf(file);
    return std::find(lines.begin(), lines.end(), "```console") != lines.end();
}

std::vector<std::string> Pages() {
    std::vector<std::string> pages;
    if (HasExamples(kSources / "README.md")) pages.push_back("README.md");
    for (const auto& entry : fs::directory_iterator(kSources / "docs/guide")) {
        if (entry.path().extension() != ".md" || !HasExamples(entry.path())) continue;
        pages.push_back("docs/guide/" + entry.path().filename().string());
    }
    std::sort(pages.begin(), pages.end());
    return pages;
}

std::string NameOf(const testing::TestParamInfo<std::string>& page) {
    std::string name = fs::path(page.param).stem().string();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Pages, Examples, testing::ValuesIn(Pages()), NameOf);

}  // namespace
