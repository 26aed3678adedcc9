// Any bytes as the list of a run over many units: it is read or refused, with a fault for each
// reason, and never gives a unit twice or without a port.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string_view>

#include "cli/fleet_list.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const kestrane::FleetList list = kestrane::ParseFleetList(text, "f");
    if (!list.faults.empty()) return 0;
    std::set<std::string> names;
    if (list.units.empty()) std::abort();
    for (const kestrane::FleetUnit& unit : list.units) {
        if (!unit.address.port || !names.insert(unit.name).second) std::abort();
        if (kestrane::FileNameOf(unit).find('/') != std::string::npos) std::abort();
    }
    return 0;
}
