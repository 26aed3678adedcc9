// Any bytes as the report of a run over many units: it is read or refused, and a report that is
// added to its own copy says the same.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "cli/fleet_report.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    const kestrane::ReportedUnits units = kestrane::ParseReport(text);
    if (!units.error.empty()) return 0;
    text.resize(text.rfind('\n') + 1);
    if (kestrane::ParseReport(text + text).done != units.done) std::abort();
    return 0;
}
