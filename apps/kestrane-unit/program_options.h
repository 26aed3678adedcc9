#pragma once

// The command line of kestrane-unit.

#include <string>

#include "unit/unit_server.h"

namespace kestrane::unit {

struct ProgramOptions {
    ServerOptions server;
    bool log = false;

    // Set when the program has nothing more to do: after --help, --version or a wrong option. The
    // text is then for standard output, or for standard error if the status is not 0.
    bool finished = false;
    int exit_status = 0;
    std::string text;
};

ProgramOptions ParseProgramOptions(int argc, char** argv);

}  // namespace kestrane::unit
