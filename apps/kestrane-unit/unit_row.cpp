#include "unit_row.h"

#include <charconv>
#include <utility>

namespace kestrane::unit {
namespace {

UnitRow::OnLine Numbered(const UnitRow::OnLine& on_line, int number) {
    if (!on_line) return {};
    return [on_line, prefix = std::to_string(number) + ' '](const std::string& line) {
        on_line(prefix + line);
    };
}

ServerOptions OptionsOf(const ProgramOptions& options, int number) {
    ServerOptions server = options.server;
    for (const FaultRule& rule : options.faults) {
        if (number < rule.first || number > rule.last) continue;
        server.faults.insert(server.faults.end(), rule.faults.begin(), rule.faults.end());
    }
    if (!options.count) return server;
    const auto offset = static_cast<std::uint16_t>(kControlPorts * (number - 1));
    for (std::uint16_t& port : server.ports) {
        if (port != 0) port = static_cast<std::uint16_t>(port + offset);
    }
    server.unit.number = number;
    server.seed += static_cast<std::uint32_t>(number - 1);
    server.serves_versions = number == 1;
    if (!server.state_file.empty()) server.state_file += '.' + std::to_string(number);
    return server;
}

}  // namespace

UnitRow::UnitRow(const ProgramOptions& options, OnLine log, OnLine warn)
    : host_(options.server.host), is_row_(options.count.has_value()) {
    for (int number = 1; number <= options.count.value_or(1); ++number) {
        ServerOptions server = OptionsOf(options, number);
        if (options.log) server.log = is_row_ ? Numbered(log, number) : log;
        server.warn = is_row_ ? Numbered(warn, number) : warn;
        units_.push_back(std::make_unique<UnitServer>(std::move(server)));
    }
}

UnitServer::Started UnitRow::Listen() {
    for (const auto& unit : units_) {
        const UnitServer::Started started = unit->Listen();
        if (started.result != UnitServer::Start::kReady) return started;
    }
    return {UnitServer::Start::kReady, {}};
}

std::vector<std::string> UnitRow::ReadyLines() const {
    const std::string versions = std::to_string(units_[0]->VersionsPort());
    if (!is_row_) {
        const auto& ports = units_[0]->Ports();
        return {"{\"ports\":[" + std::to_string(ports[0]) + "," + std::to_string(ports[1]) + "," +
                std::to_string(ports[2]) + "],\"versions\":" + versions + "}"};
    }
    const std::string host = host_.find(':') == std::string::npos ? host_ : '[' + host_ + ']';
    std::vector<std::string> lines{"unit"};
    for (const auto& unit : units_) lines.push_back(host + ':' + std::to_string(unit->Ports()[0]));
    lines.push_back("# --versions-url http://" + host + ':' + versions);
    return lines;
}

std::string UnitRow::Hand(const std::string& line) {
    if (!is_row_) return units_[0]->Hand(line);
    if (line.empty() || line[0] == '#') return {};
    std::size_t number = 0;
    const char* const end = line.data() + line.size();
    const auto [rest, error] = std::from_chars(line.data(), end, number);
    if (error != std::errc{} || number < 1 || number > units_.size()) {
        return "a line begins with the unit's number, 1 to " + std::to_string(units_.size());
    }
    return units_[number - 1]->Hand({rest, end});
}

void UnitRow::Stop() {
    for (const auto& unit : units_) unit->Stop();
}

}  // namespace kestrane::unit
