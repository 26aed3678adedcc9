#pragma once

// Byte texts of a unit as a terminal may show them.

#include <string>
#include <string_view>

namespace kestrane {

// UTF-8, with each control character as \xNN: those from 0x80 on as well would work on a terminal.
std::string ShownText(std::string_view byte_text);

}  // namespace kestrane
