#pragma once

// The report of a run over many units: JSON lines, an object a unit, each with the unit's name and
// the result of the call there. A later line of the same unit counts over an earlier one.

#include <set>
#include <string>
#include <string_view>

namespace kestrane {

struct ReportedUnits {
    std::set<std::string> done;  // by name: what was asked for stands there
    std::string error;           // "line 3: what is wrong"; empty if nothing is
};

// A last line without its end was cut by the end of the program and is passed over.
ReportedUnits ParseReport(std::string_view text);

}  // namespace kestrane
