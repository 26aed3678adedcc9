#pragma once

// A whole demo unit: bytes in, bytes out. It has no clock and no socket; each call says what time
// it is, in milliseconds since the unit was switched on, and time never goes back. At time 0 its
// macro starts at address 0x10, as after power-up.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "unit/board_memory.h"
#include "unit/commands.h"
#include "unit/frame_parser.h"
#include "unit/options.h"
#include "unit/privileges.h"

namespace kestrane::unit {

class Unit {
  public:
    explicit Unit(const UnitOptions& options = {});
    // With memory kept from an earlier run.
    Unit(const UnitOptions& options, const Boards& boards);

    // The bytes that a connection on control port 1 to 3 sends, and the frames that it gets back,
    // joined. This is one connection a port; a server with more of them feeds parsers of its own
    // and hands their texts to Execute.
    std::string Receive(int port, std::string_view bytes, Milliseconds now);

    // A connection on this port begins afresh: half a frame left by the last one is forgotten.
    void ForgetPartialFrame(int port);

    // One command text in, the text of its reply out, or nothing where the unit is silent.
    std::optional<std::string> Execute(int port, std::string_view command, Milliseconds now);

    void Advance(Milliseconds now);

    // True once after a command has asked for an Ethernet reset: all connections then close.
    bool TakeEthernetReset();

    // Counts the commands that changed what a restart keeps.
    std::uint64_t SettingsChanges() const { return machine_.settings_changes; }

    // What a hand at the unit does. Numbers count from 1; false where there is no such thing.
    void SetSwitch(bool on, Milliseconds now);
    bool SetGpi(std::size_t number, bool high, Milliseconds now);
    void SetSupply(Supply supply, bool present, Milliseconds now);
    bool SetFuse(int outlet, bool good);
    bool FitSensor(std::size_t number, bool fitted);
    // Starts macro 1 to 8 by its trigger, unless the trigger is disabled or inhibited.
    bool StartMacro(std::size_t number, Milliseconds now);

    BoardMemory& Relay() { return machine_.boards.relay; }
    const BoardMemory& Relay() const { return machine_.boards.relay; }
    BoardMemory& Display() { return machine_.boards.display; }
    const BoardMemory& Display() const { return machine_.boards.display; }
    const Boards& Memory() const { return machine_.boards; }
    const LiveState& Live() const { return machine_.live; }
    LiveState& Live() { return machine_.live; }
    const MacroRunner& Runner() const { return machine_.runner; }

  private:
    void PowerUp();

    Machine machine_;
    std::array<FrameParser, kControlPorts> parsers_;
};

}  // namespace kestrane::unit
