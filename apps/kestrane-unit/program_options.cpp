#include "program_options.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <sstream>
#include <vector>

namespace kestrane::unit {
namespace {

constexpr int kLongestLatency = 60'000;
constexpr std::uint16_t kDefaultPort = 1243;

constexpr const char* kFooter =
    "Prints one line of JSON when it is ready: {\"ports\":[A,B,C],\"versions\":P}. The ports in\n"
    "use are what the unit's settings hold as ports A, B and C at the start. Other numbers can\n"
    "be written and are kept, but the program listens where it began, also after an Ethernet\n"
    "reset.\n"
    "Lines on standard input work the unit's switch and inputs; \"help\" lists them, the answers\n"
    "go to standard error. The end of the input is not the end of the program: SIGINT or SIGTERM\n"
    "end it, and save the state.\n"
    "A missing state file is made; one that is damaged is refused with exit status 2.\n"
    "Exit status: 0 ended by a signal, 1 a port can't be had, 2 wrong options or state file.";

// "A[,B[,C]]"; the ports left out are free ones.
std::string ParsePorts(const std::string& text, std::array<std::uint16_t, kControlPorts>& ports) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, ',');) parts.push_back(part);
    if (text.empty() || text.back() == ',' || parts.size() > ports.size()) {
        return "--port: takes one to three port numbers, A[,B[,C]]";
    }
    ports = {};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool digits = !parts[i].empty() && parts[i].size() <= 5 &&
                            parts[i].find_first_not_of("0123456789") == std::string::npos;
        const int port = digits ? std::stoi(parts[i]) : -1;
        if (port < 0 || port > 65535) return "--port: \"" + parts[i] + "\" is no port number";
        ports[i] = static_cast<std::uint16_t>(port);
    }
    return {};
}

std::optional<UnitType> ParseType(const std::string& text) {
    if (text == "cms") return UnitType::kCms;
    if (text == "636") return UnitType::k636;
    if (text == "single") return UnitType::kSingle;
    return std::nullopt;
}

ProgramOptions Finished(int status, std::string text) {
    ProgramOptions options;
    options.finished = true;
    options.exit_status = status;
    options.text = std::move(text);
    return options;
}

}  // namespace

ProgramOptions ParseProgramOptions(int argc, char** argv) {
    ProgramOptions options;
    ServerOptions& server = options.server;
    server.ports = {kDefaultPort, kDefaultPort + 1, kDefaultPort + 2};
    std::string ports;
    std::string faults;
    int latency = 0;
    std::string type = "cms";

    CLI::App app("A demo unit of the Kestrane MDU: its memory, its macro and its control ports.",
                 "kestrane-unit");
    app.footer(kFooter);
    app.set_version_flag("--version", std::string("kestrane-unit ") + KESTRANE_VERSION);
    app.add_option("--listen", server.host, "Address to listen on (127.0.0.1)");
    app.add_option("--port", ports,
                   "Control ports A[,B[,C]] (1243,1244,1245); 0 and ports left out are free ones");
    app.add_option("--type", type, "Type of unit: cms, 636 or single (cms)");
    app.add_option("--state", server.state_file, "File that keeps the memory between runs");
    app.add_option("--versions-port", server.versions_port,
                   "HTTP port of the versions page at /kestraneversions/ (0: a free one)");
    app.add_option("--latency", latency, "Milliseconds before each reply (0)")
        ->check(CLI::Range(0, kLongestLatency));
    app.add_flag("--old-firmware", server.unit.old_firmware,
                 "A relay board that knows no 1-Wire memory commands");
    app.add_flag("--log", options.log, "One line for each frame received and sent");
    app.add_option("--fault", faults,
                   "Faults joined by commas: delay:MS, split, silent (the frame is not heard), "
                   "corrupt, refuse (connections), close (in mid-reply), reset; each with an "
                   "optional probability, as in split:0.3,delay:200:0.5");
    app.add_option("--seed", server.seed, "Seed of the faults' generator (1)");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return Finished(0, app.help());
    } catch (const CLI::CallForVersion& version) {
        return Finished(0, std::string(version.what()) + "\n");
    } catch (const CLI::ParseError& error) {
        return Finished(2, error.what());
    }
    const auto unit_type = ParseType(type);
    if (!unit_type) return Finished(2, "--type: \"" + type + "\" is none of cms, 636, single");
    server.unit.type = *unit_type;
    if (app.count("--port") > 0) {
        const std::string problem = ParsePorts(ports, server.ports);
        if (!problem.empty()) return Finished(2, problem);
    }
    if (app.count("--fault") > 0) {
        ParsedFaults parsed = ParseFaults(faults);
        if (!parsed.error.empty()) return Finished(2, "--fault: " + parsed.error);
        server.faults = std::move(parsed.faults);
    }
    server.latency = Milliseconds{latency};
    return options;
}

}  // namespace kestrane::unit
