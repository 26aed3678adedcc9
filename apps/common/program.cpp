#include "common/program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstring>

#include "common/command_table.h"
#include "configuration/settings.h"
#include "configuration/tabs.h"

namespace kestrane {
namespace {

// What the shells offer for the arguments of a call.
std::vector<std::string> WordsOf(const std::string& argument) {
    std::vector<std::string> words;
    if (argument == "TAB") {
        for (const TabRow& row : TabRows()) words.push_back(row.name);
    }
    const bool assigns = argument == "NAME=VALUE" || argument == "KEY=VALUE";
    if (assigns || argument == "PREFIX") {
        for (const Setting& setting : Settings()) {
            if (!setting.IsMacro()) words.push_back(setting.key + (assigns ? "=" : ""));
        }
    }
    return words;
}

}  // namespace

bool WriteLine(FILE* stream, const std::string& line) {
    const bool whole = std::fwrite(line.data(), 1, line.size(), stream) == line.size() &&
                       std::fputc('\n', stream) != EOF;
    return std::fflush(stream) == 0 && whole;
}

int StandardOutput::StatusAfter(int status,
                                const std::function<void(const std::string&)>& complain) const {
    if (error_ == 0) return status;
    if (error_ != EPIPE) complain(std::string("standard output: ") + std::strerror(error_));
    return kExitUnit;
}

void Complaints::operator()(const std::string& text) const {
    std::string line = program_ + ": " + text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    WriteLine(stderr, line);
}

std::unique_ptr<unit::UnitServer> StartDemo(CallOptions& options, const Complaints& complain) {
    unit::ServerOptions server_options;
    server_options.warn = [complain](const std::string& text) { complain("demo unit: " + text); };
    auto server = std::make_unique<unit::UnitServer>(std::move(server_options));
    const auto started = server->Listen();
    if (started.result != unit::UnitServer::Start::kReady) {
        complain("demo unit: " + started.error);
        return nullptr;
    }
    options.UseDemo(server->Ports()[0], server->VersionsPort());
    return server;
}

namespace {

int PrintAlone(const std::string& text, const Complaints& complain) {
    if (WriteLine(stdout, text)) return kExitDone;
    complain(std::string("standard output: ") + std::strerror(errno));
    return kExitUnit;
}

}  // namespace

std::optional<int> ParseCommandLine(CLI::App& app, int argc, char** argv, CallOptions& options,
                                    const Complaints& complain) {
    std::string form;
    AddDescribeOption(app, form);
    RefuseEmptyValues(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::string help = app.help();
        if (help.ends_with('\n')) help.pop_back();
        return PrintAlone(help, complain);
    } catch (const CLI::CallForVersion& version) {
        return PrintAlone(version.what(), complain);
    } catch (const CLI::ParseError& error) {
        complain(std::string(error.what()) + "; see " + app.get_name() + " --help");
        return kExitUsage;
    }
    if (!form.empty()) {
        std::fputs(Describe(TableOf(app, WordsOf), KESTRANE_VERSION, form).c_str(), stdout);
        return kExitDone;
    }
    const std::string problem = options.Check();
    if (problem.empty()) return {};
    complain(problem);
    return kExitUsage;
}

}  // namespace kestrane
