#pragma once

// The memory of a unit as a file, so that it outlives the program. Live values are not in it: a
// unit that starts again begins with its startup values.
//
//   0000  "KestraneUnit 01" 0A     16 bytes, what the file is
//   0010  relay memory             1024 bytes
//   0410  display memory           1024 bytes
//   0810  checksum                 4 bytes, high byte first, over all that stands before it

#include <optional>
#include <string>
#include <string_view>

#include "unit/board_memory.h"

namespace kestrane::unit {

std::string EncodeState(const Boards& boards);

struct DecodedState {
    std::optional<Boards> boards;
    std::string error;  // what is wrong with the file, when there are no boards
};
DecodedState DecodeState(std::string_view file);

}  // namespace kestrane::unit
