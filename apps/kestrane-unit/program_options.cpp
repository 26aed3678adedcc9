#include "program_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <sstream>

#include "common/command_table.h"

namespace kestrane::unit {
namespace {

constexpr int kLongestLatency = 60'000;
constexpr int kMostUnits = 5000;
constexpr std::uint16_t kDefaultPort = 1243;

constexpr const char* kFooter =
    "One unit prints one line of JSON when it is ready: {\"ports\":[A,B,C],\"versions\":P}. A row\n"
    "(--count) prints the units as CSV, as kestrane-cli --units takes it: the header \"unit\", then\n"
    "a line HOST:PORT with the first control port of each. The units differ in serial number and\n"
    "unit name; --state FILE keeps them in FILE.1, FILE.2 and so on.\n"
    "\n"
    "Faults, joined by commas; each may end in a probability, as in split:0.3,delay:200:0.5\n"
    "  delay:MS  the reply comes later      deny     refused, as for want of a right\n"
    "  split     it comes in two pieces     close    closes in the middle of the reply\n"
    "  corrupt   one bit of it is flipped   reset    resets the connection, no reply\n"
    "  echo      one bit of the echo is     refuse   a new connection is closed at once\n"
    "  short     half of the data is cut    flood    noise without an end, no reply\n"
    "  silent    the frame is not heard\n"
    "In a row \"N@FAULTS\" or \"N-M@FAULTS\" is for these units alone, counted from 1; --fault may\n"
    "be given several times.\n"
    "\n"
    "The ports in use are what the unit's settings hold as ports A, B and C at the start. Other\n"
    "numbers can be written and are kept, but the program listens where it began, also after an\n"
    "Ethernet reset.\n"
    "Lines on standard input work the unit's switch and inputs; \"help\" lists them, the answers\n"
    "go to standard error. In a row a line begins with the unit's number: \"3 switch on\". The end\n"
    "of the input is not the end of the program: SIGINT or SIGTERM end it, and save the state.\n"
    "A missing state file is made; one that is damaged is refused with exit status 2.\n"
    "Exit status: 0 ended by a signal, 1 a port can't be had, 2 wrong options or state file.";

std::optional<int> ParseNumber(std::string_view text, int least, int most) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    const bool good = error == std::errc{} && rest == end && number >= least && number <= most;
    return good ? std::optional(number) : std::nullopt;
}

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
        const auto port = ParseNumber(parts[i], 0, 65535);
        if (!port) return "--port: \"" + parts[i] + "\" is not a port number";
        ports[i] = static_cast<std::uint16_t>(*port);
    }
    return {};
}

// In a row --port gives the first of all ports; without it they are free ones.
std::string PlacePorts(ServerOptions& server, const std::string& text, int count) {
    server.ports = {};
    if (text.empty()) return {};
    const auto first = ParseNumber(text, 0, 65535 - kControlPorts * count + 1);
    if (!first) return "--port: with --count, takes the first port of the row, or 0";
    if (*first == 0) return {};
    for (std::size_t i = 0; i < server.ports.size(); ++i) {
        server.ports[i] = static_cast<std::uint16_t>(*first + static_cast<int>(i));
    }
    return {};
}

std::optional<UnitType> ParseType(const std::string& text) {
    if (text == "cms") return UnitType::kCms;
    if (text == "636") return UnitType::k636;
    if (text == "single") return UnitType::kSingle;
    return std::nullopt;
}

// "[N[-M]@]FAULTS"
std::string ParseFaultRule(const std::string& text, int count, std::vector<FaultRule>& rules) {
    FaultRule rule{1, count, {}};
    std::string_view faults = text;
    if (const std::size_t at = faults.find('@'); at != std::string_view::npos) {
        const std::string_view units = faults.substr(0, at);
        const std::size_t dash = units.find('-');
        const auto first = ParseNumber(units.substr(0, dash), 1, count);
        const auto last = dash == std::string_view::npos
                              ? first
                              : ParseNumber(units.substr(dash + 1), 1, count);
        if (!first || !last || *last < *first) {
            return "--fault: \"" + std::string(units) + "\" is not one of the units 1 to " +
                   std::to_string(count);
        }
        rule = {*first, *last, {}};
        faults.remove_prefix(at + 1);
    }
    ParsedFaults parsed = ParseFaults(faults);
    if (!parsed.error.empty()) return "--fault: " + parsed.error;
    rule.faults = std::move(parsed.faults);
    rules.push_back(std::move(rule));
    return {};
}

ProgramOptions Finished(int status, std::string text) {
    ProgramOptions options;
    options.finished = true;
    options.exit_status = status;
    options.text = std::move(text);
    return options;
}

// What is given as text and judged after the parse.
struct Texts {
    std::string ports;
    std::vector<std::string> faults;
    std::string type = "cms";
    int count = 0;
    int latency = 0;
};

void AddOptions(CLI::App& app, ProgramOptions& options, Texts& texts) {
    ServerOptions& server = options.server;
    app.footer(kFooter);
    app.set_version_flag("--version", std::string("kestrane-unit ") + KESTRANE_VERSION);
    app.add_option("--listen", server.host, "Address to listen on (127.0.0.1)");
    app.add_option("--port", texts.ports,
                   "Control ports A[,B[,C]] (1243,1244,1245); 0 and ports left out are free ones. "
                   "With --count, the first port of the row (free ones)");
    app.add_option("--count", texts.count, "A row of so many units, each with its control ports")
        ->check(CLI::Range(1, kMostUnits));
    app.add_option("--type", texts.type, "Type of unit: cms, 636 or single (cms)");
    app.add_option("--state", server.state_file, "File that keeps the memory between runs");
    app.add_option("--versions-port", server.versions_port,
                   "HTTP port of the versions page at /kestraneversions/ (0: a free one)");
    app.add_option("--latency", texts.latency, "Milliseconds before each reply (0)")
        ->check(CLI::Range(0, kLongestLatency));
    app.add_flag("--old-firmware", server.unit.old_firmware,
                 "A relay board that knows no 1-Wire memory commands");
    app.add_flag("--log", options.log, "One line for each frame received and sent");
    app.add_option("--fault", texts.faults, "[N[-M]@]FAULTS: faults on purpose, see below")
        ->allow_extra_args(false);
    app.add_option("--seed", server.seed, "Seed of the faults' generator (1)");
}

// What is wrong with them, else nothing.
std::string Judge(const CLI::App& app, const Texts& texts, ProgramOptions& options) {
    ServerOptions& server = options.server;
    const auto unit_type = ParseType(texts.type);
    if (!unit_type) return "--type: \"" + texts.type + "\" is none of cms, 636, single";
    server.unit.type = *unit_type;
    server.ports = {kDefaultPort, kDefaultPort + 1, kDefaultPort + 2};
    std::string problem;
    if (app.count("--count") > 0) {
        options.count = texts.count;
        problem = PlacePorts(server, texts.ports, texts.count);
    } else if (app.count("--port") > 0) {
        problem = ParsePorts(texts.ports, server.ports);
    }
    if (!problem.empty()) return problem;
    for (const std::string& text : texts.faults) {
        problem = ParseFaultRule(text, options.count.value_or(1), options.faults);
        if (!problem.empty()) return problem;
    }
    server.latency = Milliseconds{texts.latency};
    return {};
}

}  // namespace

ProgramOptions ParseProgramOptions(int argc, char** argv) {
    ProgramOptions options;
    Texts texts;
    CLI::App app("A demo unit of the Kestrane MDU: its memory, its macro and its control ports.",
                 "kestrane-unit");
    AddOptions(app, options, texts);
    std::string form;
    AddDescribeOption(app, form);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return Finished(0, app.help());
    } catch (const CLI::CallForVersion& version) {
        return Finished(0, std::string(version.what()) + "\n");
    } catch (const CLI::ParseError& error) {
        return Finished(2, error.what());
    }
    if (!form.empty()) return Finished(0, Describe(TableOf(app), KESTRANE_VERSION, form));
    const std::string problem = Judge(app, texts, options);
    if (!problem.empty()) return Finished(2, problem);
    return options;
}

}  // namespace kestrane::unit
