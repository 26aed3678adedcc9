// README, guide and reference show what the programs print, and so do the pages beside this test. Every line "$ ..." of a block marked
// `console` is run here, in the order of the page and in a folder of its own, and must print what
// the page says; so must the command of a pair `<!-- made by: COMMAND -->`, `<!-- end -->`. With
// KESTRANE_UPDATE_DOCUMENTS set, the pages are written anew instead.
//
// The unit 10.0.0.7 of the pages is a demo unit that this test starts. A command that ends in "&"
// runs until the end of the page; 127.0.0.1:1243 is the last unit started so, wherever it listens.
// On a page "..." stands for any text, alone in a line for any lines.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

const fs::path kSources = KESTRANE_SOURCE_DIR;
const std::string kPrograms = KESTRANE_PROGRAMS;
const std::string kUnit = "10.0.0.7";
const std::string kDemoUnit = "127.0.0.1:1243";
const std::string kMadeBy = "<!-- made by: ";
const std::string kMadeEnd = "<!-- end -->";
const std::string kAnything = "...";

bool Updating() { return std::getenv("KESTRANE_UPDATE_DOCUMENTS") != nullptr; }

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

Lines LinesOf(std::istream&& stream) {
    Lines lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::string Joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

// A shell command with the programs on its path; its output with errors, by lines. A last line
// tells an exit status that is not 0.
Lines OutputOf(const fs::path& folder, const std::string& command) {
    const std::string whole = "cd '" + folder.string() + "' && export PATH='" + kPrograms + "':'" +
                              (kSources / "docs").string() +
                              "':\"$PATH\" QT_QPA_PLATFORM=offscreen && exec 2>&1 </dev/null; " +
                              command;
    FILE* const pipe = popen(whole.c_str(), "r");
    std::string text;
    char buffer[4096];
    while (const std::size_t count = fread(buffer, 1, sizeof buffer, pipe)) {
        text.append(buffer, count);
    }
    const int status = pclose(pipe);
    Lines lines = LinesOf(std::istringstream(text));
    if (status != 0) {
        lines.push_back("[exit status " + std::to_string(WEXITSTATUS(status)) + "]");
    }
    return lines;
}

// A program that runs until the end of the page. It has started when it has printed a line, into
// the file of its own redirection or into one of ours.
class Background {
  public:
    Background(const fs::path& folder, const std::string& command) {
        const std::size_t redirection = command.find('>');
        std::string printed = ".printed";
        if (redirection != std::string::npos) {
            std::istringstream(command.substr(redirection + 1)) >> printed;
            is_redirected_ = true;
        }
        const Lines started =
            OutputOf(folder, "rm -f .printed; { exec " + command +
                                 "; } >.printed 2>&1 & echo $!; for i in $(seq 300); do [ -s " +
                                 printed + " ] && break; sleep 0.1; done; head -n 1 " + printed);
        if (!started.empty()) process_ = std::stoi(started[0]);
        if (started.size() > 1) first_line_ = started[1];
    }
    ~Background() {
        if (process_ > 0) kill(process_, SIGTERM);
    }
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    // On the terminal.
    Lines printed() const { return is_redirected_ ? Lines() : Lines{first_line_}; }

    // Of a demo unit; port A.
    std::string address() const {
        const std::size_t port = first_line_.find('[') + 1;
        return "127.0.0.1:" + first_line_.substr(port, first_line_.find(',') - port);
    }

  private:
    pid_t process_ = 0;
    std::string first_line_;
    bool is_redirected_ = false;
};

bool LineFits(const std::string& page, std::size_t i, const std::string& line, std::size_t j) {
    const std::size_t gap = page.find(kAnything, i);
    if (gap == std::string::npos) return page.substr(i) == line.substr(j);
    if (line.compare(j, gap - i, page, i, gap - i) != 0) return false;
    for (std::size_t next = j + gap - i; next <= line.size(); ++next) {
        if (LineFits(page, gap + kAnything.size(), line, next)) return true;
    }
    return false;
}

bool Fits(const Lines& page, std::size_t i, const Lines& output, std::size_t j) {
    if (i == page.size()) return j == output.size();
    if (page[i] == kAnything) {
        return Fits(page, i + 1, output, j) || (j < output.size() && Fits(page, i, output, j + 1));
    }
    return j < output.size() && LineFits(page[i], 0, output[j], 0) &&
           Fits(page, i + 1, output, j + 1);
}

// Runs the commands of one page and keeps the page with the output as it is now.
class PageRun {
  public:
    PageRun(const fs::path& path, const fs::path& folder)
        : path_(path),
          folder_(folder),
          page_(LinesOf(std::ifstream(path))),
          unit_(folder, "kestrane-unit --port 0") {
        bool inside = false;
        while (at_ < page_.size()) {
            const std::string& line = Take();
            if (line.starts_with("```")) inside = line == "```console";
            if (inside && line.starts_with("$ ")) {
                Run(line.substr(2), [](const std::string& next) {
                    return next.starts_with("$ ") || next == "```";
                });
            } else if (line.starts_with(kMadeBy)) {
                Run(line.substr(kMadeBy.size(), line.rfind(" -->") - kMadeBy.size()),
                    [](const std::string& next) { return next == kMadeEnd; });
            }
        }
    }

    const Lines& made() const { return made_; }

  private:
    const std::string& Take() {
        made_.push_back(page_[at_]);
        return page_[at_++];
    }

    Lines OutputNow(std::string command) {
        command = Replaced(command, kUnit, unit_.address());
        if (!background_.empty()) {
            command = Replaced(command, kDemoUnit, background_.back()->address());
        }
        command = Replaced(command, "--port 1243", "--port 0");  // which may be taken here
        Lines output;
        if (command.ends_with(" &")) {
            command.resize(command.size() - 2);
            background_.push_back(std::make_unique<Background>(folder_, command));
            output = background_.back()->printed();
        } else {
            output = OutputOf(folder_, command);
        }
        for (std::string& printed : output) {
            printed = Replaced(printed, unit_.address(), kUnit);
            if (background_.empty()) continue;
            printed = Replaced(printed, background_.back()->address(), kDemoUnit);
        }
        return output;
    }

    void Run(const std::string& command, bool (*ends)(const std::string&)) {
        Lines expected;
        while (at_ < page_.size() && !ends(page_[at_])) expected.push_back(page_[at_++]);
        const Lines output = OutputNow(command);
        const bool fits = Fits(expected, 0, output, 0);
        if (!Updating()) {
            EXPECT_TRUE(fits) << path_ << ": " << command << "\nprints\n"
                              << Joined(output) << "and not\n"
                              << Joined(expected);
        }
        const Lines& kept = fits ? expected : output;
        made_.insert(made_.end(), kept.begin(), kept.end());
    }

    fs::path path_;
    fs::path folder_;
    Lines page_;
    std::size_t at_ = 0;
    Background unit_;
    std::vector<std::unique_ptr<Background>> background_;
    Lines made_;
};

std::vector<std::string> Pages() {
    std::vector<std::string> pages = {"README.md"};
    for (const char* folder : {"docs/guide", "docs/reference", "tests/documents"}) {
        for (const auto& entry : fs::directory_iterator(kSources / folder)) {
            if (entry.path().extension() != ".md") continue;
            pages.push_back(fs::path(folder) / entry.path().filename());
        }
    }
    std::sort(pages.begin(), pages.end());
    return pages;
}

class Documents : public testing::TestWithParam<std::string> {};

TEST_P(Documents, PrintWhatThePageSays) {
    const fs::path path = kSources / GetParam();
    std::string name = (fs::temp_directory_path() / "kestrane-examples-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    // What the pages take as given: they are read in the folder of the sources.
    fs::copy(kSources / "examples", fs::path(name) / "examples", fs::copy_options::recursive);
    const Lines made = PageRun(path, name).made();
    if (Updating()) std::ofstream(path) << Joined(made);
    fs::remove_all(name);
}

// A command line of a block that is not marked would never be run.
TEST_P(Documents, MarkEveryCommandLine) {
    std::string fence;  // of the block that the line stands in
    for (const std::string& line : LinesOf(std::ifstream(kSources / GetParam()))) {
        if (line.starts_with("```")) fence = fence.empty() ? line : std::string();
        const std::size_t begin = line.find_first_not_of(' ');
        if (fence == "```console" || begin == std::string::npos) continue;
        const bool in_block = !fence.empty() || begin >= 4;
        EXPECT_FALSE(in_block && line.substr(begin).starts_with("kestrane-"))
            << GetParam() << ": " << line;
    }
}

std::string NameOf(const testing::TestParamInfo<std::string>& page) {
    const fs::path path = page.param;
    std::string name = path.parent_path().filename().string() + "_" + path.stem().string();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Pages, Documents, testing::ValuesIn(Pages()), NameOf);

}  // namespace
