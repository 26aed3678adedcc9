#pragma once

// The units of a run over many, out of a CSV file: the column `unit` is HOST[:PORT]; further
// columns bear keys of settings and give that unit's own values. An empty cell gives none.
//
//   unit,network.unit_name,network.ip_address
//   10.0.0.7,Rack 7,10.0.0.7
//   10.0.0.8:1244,Rack 8,

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/unit_address.h"
#include "configuration/values.h"

namespace kestrane {

struct FleetUnit {
    std::string name;  // HOST:PORT, in brackets where the host is an IPv6 address
    UnitAddress address;
    std::vector<std::pair<const Setting*, SettingValue>> values;
};

struct FleetList {
    std::vector<FleetUnit> units;
    // A line each, "FILE:LINE: what is wrong": every fault in one go. Without any there is at least
    // one unit.
    std::vector<std::string> faults;
};

// `file` names the text in the faults.
FleetList ParseFleetList(std::string_view text, const std::string& file);

// The file that holds what belongs to this unit: "10.0.0.7_1243.mdu.json".
std::string FileNameOf(const FleetUnit& unit);

}  // namespace kestrane
