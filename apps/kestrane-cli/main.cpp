// kestrane-cli: the configuration tool without a display.

#include <unistd.h>

#include <QCoreApplication>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <optional>

#include "console/call.h"
#include "host/descriptors.h"
#include "host/host_services.h"
#include "host/input_lines.h"
#include "host/signal_watch.h"
#include "unit/unit_server.h"

namespace {

using namespace kestrane;

void WriteLine(FILE* stream, const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stream);
    std::fputc('\n', stream);
    std::fflush(stream);
}

void Complain(const std::string& text) {
    std::string line = "kestrane-cli: " + text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    WriteLine(stderr, line);
}

// The command line, taken apart.
struct CommandLine {
    CallOptions options;
    std::vector<std::unique_ptr<Call>> calls = AllCalls();
    Call* chosen = nullptr;
    std::optional<int> status;  // there is nothing to run
};

CommandLine Parse(int argc, char** argv) {
    CommandLine line;
    CLI::App app("Reads and sets a Kestrane MDU from the command line.", "kestrane-cli");
    app.set_version_flag("--version", std::string("kestrane-cli ") + KESTRANE_VERSION);
    app.footer(
        "Exit status: 0 done, 1 the unit could not be reached, did not answer or refused,\n"
        "2 wrong usage or a refused value; nothing is written to the unit then.");
    app.fallthrough();
    app.require_subcommand(0, 1);
    line.options.AddTo(app);
    for (const auto& call : line.calls) {
        CLI::App* sub = app.add_subcommand(call->name(), call->description());
        call->AddTo(*sub);
        sub->final_callback([&line, chosen = call.get()] { line.chosen = chosen; });
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::fputs(app.help().c_str(), stdout);
        line.status = kExitDone;
        return line;
    } catch (const CLI::CallForVersion& version) {
        WriteLine(stdout, version.what());
        line.status = kExitDone;
        return line;
    } catch (const CLI::ParseError& error) {
        Complain(std::string(error.what()) + "; see kestrane-cli --help");
        line.status = kExitUsage;
        return line;
    }
    std::string problem = line.options.Check();
    if (problem.empty() && !line.chosen) {
        problem = "name a call: read, set or console; see kestrane-cli --help";
    }
    if (problem.empty()) return line;
    Complain(problem);
    line.status = kExitUsage;
    return line;
}

// Starts the demo unit that --demo asks for.
std::unique_ptr<unit::UnitServer> StartDemo(CallOptions& options) {
    unit::ServerOptions server_options;
    server_options.warn = [](const std::string& text) { Complain("demo unit: " + text); };
    auto server = std::make_unique<unit::UnitServer>(std::move(server_options));
    const auto started = server->Listen();
    if (started.result != unit::UnitServer::Start::kReady) {
        Complain("demo unit: " + started.error);
        return nullptr;
    }
    options.UseDemo(server->Ports()[0], server->VersionsPort());
    return server;
}

int Run(CommandLine& line) {
    HostServices host;
    ScriptedOperator scripted;
    std::unique_ptr<unit::UnitServer> demo;
    if (line.options.demo() && !(demo = StartDemo(line.options))) return kExitUnit;
    Tool tool(host.With(scripted, scripted, scripted), line.options.tool_options());
    const SignalWatch signal_watch([&host](int number) {
        host.tcpsend.Close();
        host.loop.Exit(128 + number);
    });
    tool.Start();
    line.options.Apply(tool);
    const std::string problem = line.chosen->Check(tool);
    if (!problem.empty()) {
        Complain(std::string(line.chosen->name()) + ": " + problem);
        return kExitUsage;
    }
    std::unique_ptr<InputLines> input;
    CallContext context{
        tool,
        scripted,
        line.options,
        [](const std::string& text) { WriteLine(stdout, text); },
        [&line](const std::string& text) { Complain(line.chosen->name() + (": " + text)); },
        [&input](auto on_line, auto on_end) {
            input = std::make_unique<InputLines>(
                STDIN_FILENO, [on_line](const InputLine& text) { on_line(text.text); }, on_end);
        }};
    const int status = line.chosen->Run(context);
    host.tcpsend.Close();
    host.loop.Exit(status);
}

}  // namespace

int main(int argc, char** argv) {
    OpenStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    CommandLine line = Parse(argc, argv);
    if (line.status) return *line.status;
    QCoreApplication application(argc, argv);
    return Run(line);
}
