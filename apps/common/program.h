#pragma once

// What the two faces of the tool do alike when they start: lines on the standard streams, the demo
// unit of --demo, input lines for the console.

#include <cerrno>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>

#include "cli/call.h"
#include "host/input_lines.h"
#include "unit/unit_server.h"

namespace kestrane {

// Writes the line and its end, and flushes. False if it did not get out whole.
bool WriteLine(FILE* stream, const std::string& line);

// Standard output. What can't be written is no reason to stop in the midst of a unit, but is one
// to fail in the end.
class StandardOutput {
  public:
    void Print(const std::string& line) {
        if (!WriteLine(stdout, line) && error_ == 0) error_ = errno;
    }
    // The exit status of a call that ends with `status`: 1, after a complaint, if a line did not
    // get out. A reader that has seen enough, such as head, ends it without a word.
    int StatusAfter(int status, const std::function<void(const std::string&)>& complain) const;

  private:
    int error_ = 0;
};

// One line on standard error that begins with the program's name.
class Complaints {
  public:
    explicit Complaints(std::string program) : program_(std::move(program)) {}
    void operator()(const std::string& text) const;

  private:
    std::string program_;
};

// Starts a demo unit on free loopback ports and makes the options point to it; null, after a
// complaint, if that fails.
std::unique_ptr<unit::UnitServer> StartDemo(CallOptions& options, const Complaints& complain);

// Parses a command line. Nothing if the program is to go on, else its exit status: after --help
// and --version, and after a complaint about a wrong option.
std::optional<int> ParseCommandLine(CLI::App& app, int argc, char** argv, CallOptions& options,
                                    const Complaints& complain);

}  // namespace kestrane
