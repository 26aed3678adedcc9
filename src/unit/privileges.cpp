#include "unit/privileges.h"

#include <array>

namespace kestrane::unit {
namespace {

struct Area {
    Board board;
    std::size_t begin;
    std::size_t end;
    Right write_right;
};

// Memory that no row holds needs no right: identity, versions, readings.
// clang-format off
constexpr std::array kAreas{
    Area{Board::kRelay,   relay::kChangeover,       relay::kDefaultInlet + 1,    Right::kChangeover},
    Area{Board::kRelay,   relay::kMacro,            relay::kMacroEnd,            Right::kMacroMemory},
    Area{Board::kRelay,   relay::kCommittedSensors, relay::kCommittedSensorsEnd, Right::kCommitSensors},
    Area{Board::kDisplay, 0x0000,                   display::kChannelNames,      Right::kNetwork},
    Area{Board::kDisplay, display::kChannelNames,   display::kSysContact,        Right::kNames},
    Area{Board::kDisplay, display::kSysContact,     display::kTriggers,          Right::kNetwork},
    Area{Board::kDisplay, display::kTriggers,       display::kTriggersEnd,       Right::kNames},
    Area{Board::kDisplay, display::kTriggersEnd,    kPrivileges,                 Right::kNetwork},
};
// clang-format on

bool Overlap(std::size_t begin, std::size_t end, std::size_t other_begin, std::size_t other_end) {
    return begin < other_end && other_begin < end;
}

std::size_t PrivilegeAddress(int port) {
    return kPrivileges + 2 * static_cast<std::size_t>(port - 1);
}

bool TouchesPrivilegesOf(int port, std::size_t begin, std::size_t end) {
    return Overlap(begin, end, PrivilegeAddress(port), PrivilegeAddress(port) + 2);
}

}  // namespace

bool Privileges::Has(int port, Board board, Right right) const {
    const int rights = boards_.Of(board).At(PrivilegeAddress(port));
    return (rights & static_cast<int>(right)) != 0;
}

bool Privileges::MayRead(int port, Board board, std::size_t address, std::size_t count) const {
    for (int other = 1; other <= kControlPorts; ++other) {
        if (other == port || !TouchesPrivilegesOf(other, address, address + count)) continue;
        if (!Has(port, board, Right::kReadOthers)) return false;
    }
    return true;
}

bool Privileges::MayWrite(int port, Board board, std::size_t address, std::size_t count) const {
    const std::size_t end = address + count;
    for (const Area& area : kAreas) {
        if (area.board != board || !Overlap(address, end, area.begin, area.end)) continue;
        if (!Has(port, board, area.write_right)) return false;
    }
    for (int other = 1; other <= kControlPorts; ++other) {
        if (!TouchesPrivilegesOf(other, address, end)) continue;
        if (!Has(port, board, other == port ? Right::kWriteOwn : Right::kWriteOthers)) return false;
    }
    return true;
}

}  // namespace kestrane::unit
