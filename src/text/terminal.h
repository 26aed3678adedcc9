#pragma once

// Foreign texts as a terminal may show them.

#include <string>
#include <string_view>

namespace kestrane {

// UTF-8, with each control character as \xNN: those from 0x80 on as well would work on a terminal.
std::string ShownText(std::string_view byte_text);

// The same for what files and command lines hold; a byte that is not UTF-8 counts as one.
std::string ShownUtf8(std::string_view utf8);

}  // namespace kestrane
