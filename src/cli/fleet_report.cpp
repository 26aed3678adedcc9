#include "cli/fleet_report.h"

#include <nlohmann/json.hpp>

namespace kestrane {
namespace {

// The results after which a unit need not be asked again.
bool IsDone(const std::string& result) {
    return result == "same" || result == "changed" || result == "done";
}

std::string TextOf(const nlohmann::json& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

}  // namespace

ReportedUnits ParseReport(std::string_view text) {
    ReportedUnits units;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos) break;
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        if (line.find_first_not_of(" \t\r") == std::string_view::npos) continue;
        const auto object = nlohmann::json::parse(line, nullptr, false);
        const std::string unit = object.is_object() ? TextOf(object, "unit") : std::string();
        const std::string result = object.is_object() ? TextOf(object, "result") : std::string();
        if (unit.empty() || result.empty()) {
            return {{},
                    "line " + std::to_string(number) +
                        ": not a line of a report, which is an object with \"unit\" and "
                        "\"result\""};
        }
        if (IsDone(result)) {
            units.done.insert(unit);
        } else {
            units.done.erase(unit);
        }
    }
    return units;
}

}  // namespace kestrane
