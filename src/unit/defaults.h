#pragma once

// The memory of a unit as it leaves the bench: a site in use, with every field that the tool shows
// filled with something to see, and the standard macro program. Port A has all rights, port B may
// control and rename, port C may only look. The web password of the Control level is "operator",
// that of the Admin level "kestrane"; View needs none.

#include <array>
#include <cstdint>

#include "unit/board_memory.h"
#include "unit/options.h"

namespace kestrane::unit {

// Both boards, filled for this type of unit.
Boards DefaultBoards(const UnitOptions& options);

// The port numbers of A, B and C as the settings hold them.
void StoreControlPorts(BoardMemory& display, const std::array<std::uint16_t, 3>& ports);

struct BoardVersion {
    std::array<std::uint8_t, 4> type;     // the first three hexadecimal digits are the type code
    std::array<std::uint8_t, 3> version;  // shown joined by points
};
BoardVersion VersionOf(Board board, const UnitOptions& options);

// The page of the newest versions, as the maker's server gives it.
std::string VersionsPage();

}  // namespace kestrane::unit
