#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <array>
#include <csignal>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/input_lines.h"
#include "host/output_lines.h"
#include "host/signal_watch.h"
#include "host_test_support.h"

namespace kestrane {
namespace {

class Pipe {
  public:
    Pipe() { EXPECT_EQ(pipe2(ends_.data(), O_CLOEXEC), 0); }
    ~Pipe() {
        close(ends_[0]);
        CloseWriteEnd();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int read_end() const { return ends_[0]; }
    void Write(std::string_view bytes) {
        EXPECT_EQ(write(ends_[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    void CloseWriteEnd() {
        if (ends_[1] != -1) close(ends_[1]);
        ends_[1] = -1;
    }

  private:
    std::array<int, 2> ends_{};
};

TEST(LineSplitter, CutsAtAnyBoundaryAndMarksWhatIsTooLong) {
    const std::string stream = "one\r\n\nabcde\r\nabcdef\na\rb\nabcdefghijk\r\nlast";
    for (std::size_t piece = 1; piece <= stream.size(); ++piece) {
        LineSplitter splitter(5);
        std::deque<InputLine> lines;
        for (std::size_t i = 0; i < stream.size(); i += piece) {
            splitter.Feed(std::string_view(stream).substr(i, piece), lines);
        }
        splitter.Finish(lines);
        std::vector<std::string> seen;
        for (const auto& line : lines) seen.push_back(line.text + (line.too_long ? "+" : ""));
        const std::vector<std::string> expected{"one",  "",       "abcde", "abcde+",
                                                "a\rb", "abcde+", "last"};
        EXPECT_EQ(seen, expected) << "in pieces of " << piece;
    }
}

// A reader that takes nothing costs neither time nor memory, and learns what it has missed.
TEST(OutputLines, NeverBlockAndCountWhatIsLeftOut) {
    HostServices host;
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    OutputLines output(ends[1]);
    const std::string line(999, 'x');
    for (int i = 0; i < 3000; ++i) output.Write(line);
    std::string received;
    std::array<char, 65536> bytes;
    const auto read_some = [&] {
        const auto count = read(ends[0], bytes.data(), bytes.size());
        received.append(bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    };
    while (received.size() < OutputLines::kMostWaiting) {
        read_some();
        QCoreApplication::processEvents();
    }
    output.Write("last");
    EXPECT_TRUE(PumpUntil(host.loop, [&] {
        read_some();
        return received.ends_with("last\n");
    }));
    const std::size_t note = received.find("# ");
    EXPECT_EQ(note % 1000, 0u);
    EXPECT_EQ(received.substr(note),
              "# " + std::to_string(3000 - note / 1000) + " lines left out\nlast\n");
    close(ends[0]);
    std::signal(SIGPIPE, SIG_IGN);
    for (int i = 0; i < 3000; ++i) output.Write(line);
    close(ends[1]);
}

TEST(InputLines, ALineComesWhileTheHandlingOfTheOneBeforePumps) {
    HostServices host;
    Pipe input;
    std::vector<std::string> seen;
    bool ended = false;
    InputLines lines(
        input.read_end(),
        [&](const InputLine& line) {
            seen.push_back("begin " + line.text);
            if (line.text == "1") {
                EXPECT_TRUE(PumpUntil(host.loop, [&] { return seen.size() >= 4; }));
                input.Write("4\nlast");
                input.CloseWriteEnd();
                EXPECT_TRUE(PumpUntil(host.loop, [&] { return ended; }));
            }
            seen.push_back("end " + line.text);
        },
        [&] { ended = true; });
    input.Write("1\n2\n3");
    input.Write("\n");
    EXPECT_TRUE(PumpUntil(host.loop, [&] { return seen.size() == 10; }));
    EXPECT_EQ(seen,
              (std::vector<std::string>{"begin 1", "begin 2", "end 2", "begin 3", "end 3",
                                        "begin 4", "end 4", "begin last", "end last", "end 1"}));
}

TEST(InputLines, ARegularFileIsReadToItsEndOnce) {
    HostServices host;
    std::FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    std::string content;
    for (int i = 0; i < 20'000; ++i) content += std::to_string(i) + '\n';
    std::fwrite(content.data(), 1, content.size(), file);
    std::rewind(file);
    std::string seen;
    int ends = 0;
    InputLines lines(
        fileno(file), [&](const InputLine& line) { seen += line.text + '\n'; }, [&] { ++ends; });
    EXPECT_TRUE(PumpUntil(host.loop, [&] { return ends > 0; }));
    EXPECT_TRUE(seen == content);
    bool later = false;
    host.loop.Post([&] { later = true; });
    EXPECT_TRUE(PumpUntil(host.loop, [&] { return later; }));
    EXPECT_EQ(ends, 1);
    std::fclose(file);
}

TEST(InputLines, MayBeDestroyedByItsCallback) {
    HostServices host;
    Pipe input;
    int seen = 0;
    std::unique_ptr<InputLines> lines;
    lines = std::make_unique<InputLines>(
        input.read_end(),
        [&](const InputLine&) {
            ++seen;
            lines.reset();
        },
        [] { ADD_FAILURE() << "the end came after the destruction"; });
    input.Write("1\n2\n");
    input.CloseWriteEnd();
    EXPECT_TRUE(PumpUntil(host.loop, [&] { return lines == nullptr; }));
    EXPECT_EQ(seen, 1);
}

TEST(SignalWatch, SignalsComeAsEvents) {
    HostServices host;
    std::vector<int> seen;
    SignalWatch watch([&](int number) { seen.push_back(number); });
    raise(SIGTERM);
    raise(SIGINT);
    EXPECT_TRUE(seen.empty());
    EXPECT_TRUE(PumpUntil(host.loop, [&] { return seen.size() == 2; }));
    EXPECT_EQ(seen, (std::vector<int>{SIGTERM, SIGINT}));
}

}  // namespace
}  // namespace kestrane
