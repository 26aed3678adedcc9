#pragma once

// What came of a comparison or an apply, as lines of a terminal and as one JSON object.

#include <string>
#include <vector>

#include "configuration/report.h"
#include "console/values.h"

namespace kestrane {

struct ReportStyle {
    bool colours = false;
    bool with_secrets = false;
    bool comparison = false;  // nothing was to be written
};

// "network.unit_name: MDU Rack 4 -> Rack 7", with what became of it behind; `name` stands in the
// place of the key where it is given.
std::string ChangeLine(const SettingChange& change, const ReportStyle& style,
                       const std::string& name = {});
// A line for each change and each setting left alone, and one that sums up.
std::vector<std::string> ReportLines(const ApplyReport& report, const ReportStyle& style);
// Secrets are "(secret)".
Json ReportAsJson(const ApplyReport& report);
// The object of a call that came to no report.
Json PlainResult(const std::string& unit, const std::string& result, const std::string& error);

// The exit status that a report stands for.
int ExitStatusOf(const ApplyReport& report);

}  // namespace kestrane
