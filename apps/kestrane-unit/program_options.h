#pragma once

// The command line of kestrane-unit.

#include <optional>
#include <string>
#include <vector>

#include "unit/unit_server.h"

namespace kestrane::unit {

// Faults of the units `first` to `last`, counted from 1.
struct FaultRule {
    int first;
    int last;
    std::vector<Fault> faults;
};

struct ProgramOptions {
    ServerOptions server;  // of each unit
    std::optional<int> count;
    std::vector<FaultRule> faults;
    bool log = false;

    // Set when the program has nothing more to do: after --help, --version or a wrong option. The
    // text is then for standard output, or for standard error if the status is not 0.
    bool finished = false;
    int exit_status = 0;
    std::string text;
};

ProgramOptions ParseProgramOptions(int argc, char** argv);

}  // namespace kestrane::unit
