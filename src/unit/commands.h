#pragma once

// The command table of the unit: what it does for each command text and what it answers. A reply
// begins with the echo of the command; data stand behind it.
//
//   command  address code arguments...
//   reply    address code arguments... data...
//   refused  address code 16              the port lacks the right
//   refused  address 82   15              no such 1-Wire memory function
//
// No reply at all is what a text gets that is for another address, unknown or malformed.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "simulation/macro_runner.h"
#include "unit/board_memory.h"
#include "unit/options.h"
#include "unit/sensor_bus.h"

namespace kestrane::unit {

using simulation::kGpis;
using simulation::kOutlets;
using simulation::LiveState;
using simulation::MacroRunner;
using simulation::Supply;

// The parts of a unit that commands act on.
struct Machine {
    Machine(const UnitOptions& options_in, const Boards& boards_in)
        : options(options_in),
          boards(boards_in),
          sensors(boards.relay),
          runner(boards.relay.Bytes().first<MacroRunner::kImageBytes>(), options_in.type),
          live(runner.Live()) {}
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    UnitOptions options;
    Boards boards;
    SensorBus sensors;
    MacroRunner runner;
    LiveState& live;
    bool ethernet_reset = false;         // asked for and not yet carried out
    std::uint64_t settings_changes = 0;  // counts what a state file has to keep
};

// The board that an address byte reaches, if it is one of this unit.
std::optional<Board> BoardAt(std::uint8_t address, const BoardMemory& relay);

// Carries out a command text that arrived on control port 1 to 3. The result is the text of the
// reply, or nothing for silence.
std::optional<std::string> Execute(Machine& machine, int port, std::string_view command,
                                   Milliseconds now);

}  // namespace kestrane::unit
