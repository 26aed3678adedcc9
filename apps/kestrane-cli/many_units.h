#pragma once

// A call on many units, with all that the process does for it: lanes on Qt's loop, signals, the
// report file, the progress line.

#include "cli/fleet_options.h"
#include "common/program.h"

namespace kestrane {

// Returns the exit status; a QCoreApplication must exist.
int RunManyUnits(const Call& call, const CallOptions& options, const FleetOptions& fleet,
                 const Complaints& complain);

}  // namespace kestrane
