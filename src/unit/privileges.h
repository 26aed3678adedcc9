#pragma once

// What a control port may do. Each board holds one byte of rights for each port, and a right
// counts on the board where the command acts.
//
//   bit  relay                    display
//   0    write own privileges     write own privileges
//   1    read other privileges    read other privileges
//   2    write other privileges   write other privileges
//   3    live control             -
//   4    reset min/max            -
//   5    write macro memory       write names
//   6    commit 1-Wire sensors    -
//   7    changeover settings      network configuration

#include <cstddef>
#include <cstdint>

#include "unit/board_memory.h"

namespace kestrane::unit {

inline constexpr int kControlPorts = 3;  // control ports A, B and C are numbered 1 to 3

enum class Right : std::uint8_t {
    kWriteOwn = 0x01,
    kReadOthers = 0x02,
    kWriteOthers = 0x04,
    kLiveControl = 0x08,
    kResetMinMax = 0x10,
    kMacroMemory = 0x20,  // relay
    kNames = 0x20,        // display
    kCommitSensors = 0x40,
    kChangeover = 0x80,  // relay
    kNetwork = 0x80,     // display
};

class Privileges {
  public:
    explicit Privileges(const Boards& boards) : boards_(boards) {}

    bool Has(int port, Board board, Right right) const;

    // A range that touches several areas needs the rights of all of them. The own privilege bytes
    // can always be read.
    bool MayRead(int port, Board board, std::size_t address, std::size_t count) const;
    bool MayWrite(int port, Board board, std::size_t address, std::size_t count) const;

  private:
    const Boards& boards_;
};

}  // namespace kestrane::unit
