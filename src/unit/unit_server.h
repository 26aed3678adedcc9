#pragma once

// A demo unit on the network: three control ports on TCP and the versions page over HTTP. It is a
// thin shell that gives the unit its clock and its sockets, adds latency and faults, writes the
// log and keeps the state file. It runs on the event loop of the thread that made it, so it can
// also live inside the tool; a QCoreApplication must exist.

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "unit/faults.h"
#include "unit/options.h"
#include "unit/unit.h"

namespace kestrane::unit {

struct ServerOptions {
    UnitOptions unit;
    std::string host = "127.0.0.1";
    std::array<std::uint16_t, kControlPorts> ports{};  // A, B, C; 0 is any free port
    std::uint16_t versions_port = 0;                   // 0 is any free port
    bool serves_versions = true;
    std::size_t most_connections = 64;  // at once, on the control ports together
    Milliseconds latency{0};                           // before each reply
    std::vector<Fault> faults;
    std::uint32_t seed = 1;
    std::string state_file;  // empty: the memory is forgotten
    // One line for each frame: "received A FA 11 ...", "sent A ...". Not called when empty.
    std::function<void(const std::string&)> log;
    // One line for what goes wrong after the start.
    std::function<void(const std::string&)> warn;
};

class UnitServer {
  public:
    explicit UnitServer(ServerOptions options);
    ~UnitServer();  // stops
    UnitServer(const UnitServer&) = delete;
    UnitServer& operator=(const UnitServer&) = delete;

    // A host that is no address and a state file that can't be used are bad options.
    enum class Start : std::uint8_t { kReady, kBadOptions, kNoPort };
    struct Started {
        Start result;
        std::string error;  // one line, if not ready
    };
    // Loads the state file, if there is one, and listens. The ports in use become the ports that
    // the unit's settings hold, whatever the state file had.
    Started Listen();

    const std::array<std::uint16_t, kControlPorts>& Ports() const;
    std::uint16_t VersionsPort() const;  // 0 where it serves none

    // A hand at the unit; the line and its answer are those of ApplyHandCommand.
    std::string Hand(std::string_view line);

    // Writes the state file if anything in it changed. False if that failed; warn has told why.
    bool SaveState();

    // Closes the connections and saves. The destructor does the same.
    void Stop();

    Unit& TheUnit();

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace kestrane::unit
