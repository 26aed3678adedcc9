#include <CLI/CLI.hpp>

#include "cli/calls.h"
#include "console/console.h"

namespace kestrane {
namespace {

class ConsoleCall : public Call {
  public:
    const char* name() const override { return "console"; }
    const char* description() const override {
        return "Read commands from standard input, one a line, and answer each with one line of "
               "JSON";
    }
    void AddTo(CLI::App& /*app*/) override {}

    // Ends with the program: by `quit`, by the end of the input, by closing the main form.
    int Run(CallContext& context) override {
        Console console(context.tool, context.scripted, {context.print, {}});
        context.read_lines([&](std::string line) { console.FeedLine(std::move(line)); },
                           [&] { console.EndOfInput(); });
        while (true) context.tool.link.platform().loop.Pump();
    }
};

}  // namespace

std::unique_ptr<Call> MakeConsoleCall() { return std::make_unique<ConsoleCall>(); }

}  // namespace kestrane
