#pragma once

// The one engine for configurations: compares wanted values with a unit, types what differs as an
// operator would, writes, reads back and reports. What it says of each setting it has from the
// journal and from what the unit has given back.

#include <functional>
#include <string>

#include "configuration/report.h"
#include "configuration/unit_session.h"

namespace kestrane {

struct ApplyRequest {
    SettingValues wanted;
    SettingFilter filter;
    // Values of this very unit: they count whatever the filter says.
    SettingValues own;
    bool compare_only = false;  // nothing is typed either
    bool dry_run = false;       // typed, not written
    bool reset = false;         // the Ethernet processor at the end, if settings or names changed
    std::string undo_file;      // empty: none
    // Asked with the plan before the first write; nothing: goes on.
    std::function<bool(const ApplyReport&)> go_on;
};

// Connects, does it, and leaves the connection to the caller.
ApplyReport Apply(UnitSession& session, const ApplyRequest& request);

}  // namespace kestrane
