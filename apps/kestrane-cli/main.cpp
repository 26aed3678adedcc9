// kestrane-cli: the configuration tool without a display.

#include <sys/resource.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <QCoreApplication>
#include <csignal>
#include <cstdlib>
#include <utility>

#include "cli/assignments.h"
#include "cli/report_lines.h"
#include "common/program.h"
#include "host/descriptors.h"
#include "host/fiber_services.h"
#include "host/host_services.h"
#include "host/signal_watch.h"
#include "many_units.h"

namespace {

using namespace kestrane;

const Complaints complain("kestrane-cli");

// The command line, taken apart.
struct CommandLine {
    CallOptions options;
    FleetOptions fleet;
    std::vector<std::unique_ptr<Call>> calls = AllCalls();
    Call* chosen = nullptr;
};

std::optional<int> Parse(int argc, char** argv, CommandLine& line) {
    CLI::App app("Reads and sets a Kestrane MDU from the command line.", "kestrane-cli");
    app.set_version_flag("--version", std::string("kestrane-cli ") + KESTRANE_VERSION);
    app.footer(
        "--unit, --timeout, --versions-url and --demo may also stand after the call.\n"
        "Exit status: 0 done, 1 the unit could not be reached, did not answer, refused or did not\n"
        "take a value, 2 wrong usage, a faulty file or a refused value; nothing is written to the\n"
        "unit then. 3 there are differences (diff, apply --dry-run), or the answer was no.");
    app.fallthrough();
    app.require_subcommand(0, 1);
    line.options.AddTo(app);
    for (const auto& call : line.calls) {
        CLI::App* sub = app.add_subcommand(call->name(), call->description());
        call->AddTo(*sub);
        if (call->TakesManyUnits()) line.fleet.AddTo(*sub);
        RefuseEmptyValues(*sub);
        sub->final_callback([&line, chosen = call.get()] { line.chosen = chosen; });
    }
    if (const auto status = ParseCommandLine(app, argc, argv, line.options, complain)) {
        return status;
    }
    if (line.chosen) return {};
    complain("name a call, such as read, set or console; see kestrane-cli --help");
    return kExitUsage;
}

// Many units: whatever is wrong is found before the first connection, by a tool without one.
std::optional<int> CheckMany(CommandLine& line) {
    const std::string prefix = std::string(line.chosen->name()) + ": ";
    std::vector<std::string> faults = line.fleet.Check(*line.chosen);
    if (line.fleet.given() && (line.options.demo() || line.options.has_unit())) {
        faults.push_back("--units takes the place of --unit and --demo; give one");
    }
    for (const std::string& fault : faults) {
        // A fault in a file begins with its place, for editors.
        if (fault.starts_with("--")) {
            complain(prefix + fault);
        } else {
            WriteLine(stderr, fault);
        }
    }
    if (faults.empty() && line.fleet.given()) {
        FiberServices host;
        ScriptedOperator scripted;
        Tool tool(host.With(scripted, scripted, scripted), line.options.tool_options());
        tool.Start();
        std::string problem = line.chosen->Check(tool);
        faults = line.chosen->FileFaults();
        for (const std::string& fault : faults) WriteLine(stderr, fault);
        for (const std::string& note : line.chosen->FileNotes()) WriteLine(stderr, note);
        const std::string folder = line.chosen->FolderForUnits();
        if (problem.empty() && faults.empty() && !folder.empty()) {
            const auto why = host.disk.MakeFolder(folder);
            if (why) problem = "cannot write files into " + folder + ": " + *why;
        }
        if (!problem.empty()) complain(prefix + problem);
        if (!problem.empty()) return kExitUsage;
    }
    return faults.empty() ? std::nullopt : std::optional<int>(kExitUsage);
}

// The convention of https://no-color.org: set, and not empty.
bool HasNoColour() {
    const char* const value = std::getenv("NO_COLOR");
    return value && *value;
}

// Lines of standard input; none any more where nobody takes them.
void ReadLines(std::unique_ptr<InputLines>& input, std::function<void(std::string)> on_line,
               std::function<void()> on_end) {
    input.reset();
    if (!on_line) return;
    input = std::make_unique<InputLines>(
        STDIN_FILENO, [on_line](const InputLine& text) { on_line(text.text); }, on_end);
}

// A crash leaves no image of the memory, which may hold secrets.
void KeepMemoryOffTheDisk() {
    rlimit limit{};
    if (getrlimit(RLIMIT_CORE, &limit) != 0) return;
    limit.rlim_cur = 0;
    setrlimit(RLIMIT_CORE, &limit);
}

int Run(CommandLine& line) {
    if (const auto status = CheckMany(line)) return *status;
    if (line.fleet.given()) return RunManyUnits(*line.chosen, line.options, line.fleet, complain);
    HostServices host;
    ScriptedOperator scripted;
    std::unique_ptr<unit::UnitServer> demo;
    if (line.options.demo()) {
        demo = StartDemo(line.options, complain);
        if (!demo) return kExitUnit;
    }
    Tool tool(host.With(scripted, scripted, scripted), line.options.tool_options());
    std::unique_ptr<InputLines> input;
    StandardOutput output;
    const std::string prefix = std::string(line.chosen->name()) + ": ";
    CallContext context{tool,
                        scripted,
                        line.options,
                        [&output](const std::string& text) { output.Print(text); },
                        [prefix](const std::string& text) { complain(prefix + text); },
                        [&input](auto on_line, auto on_end) { ReadLines(input, on_line, on_end); }};
    context.error_line = [](const std::string& text) { WriteLine(stderr, text); };
    context.on_terminal = isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0;
    context.colours = isatty(STDOUT_FILENO) != 0 && !HasNoColour();
    int signal_status = 0;
    const SignalWatch watch([&](int number) {
        const bool again = std::exchange(signal_status, 128 + number) != 0;
        if (!again && context.on_interrupt) return context.on_interrupt();
        host.tcpsend.Close();
        host.loop.Exit(signal_status);
    });
    tool.Start();
    line.options.Apply(tool);
    std::string problem = line.chosen->WhyNotOneUnit();
    if (problem.empty()) problem = line.chosen->Check(tool);
    if (!problem.empty()) {
        complain(prefix + problem);
        if (line.chosen->Writes() && line.chosen->PrintsJson()) {
            output.Print(ToLine(PlainResult(line.options.Address(tool), "refused", problem)));
        }
        return kExitUsage;
    }
    int status = line.chosen->Run(context);
    host.tcpsend.Close();
    status = output.StatusAfter(status, context.complain);
    host.loop.Exit(signal_status != 0 ? signal_status : status);
}

}  // namespace

int main(int argc, char** argv) {
    OpenStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    CommandLine line;
    KeepMemoryOffTheDisk();
    if (const auto status = Parse(argc, argv, line)) return *status;
    HideSecrets(argc, argv);
    QCoreApplication application(argc, argv);
    return Run(line);
}
