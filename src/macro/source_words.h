#pragma once

// The words of source text, and what is said of a wrong one.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestrane {

struct TextFault {
    std::size_t at = 0;  // where the wrong word begins; the end of the text if one is missing
    std::string text;    // what is wrong and what would be right
};

inline bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// Two hexadecimal digits in any case.
std::optional<std::uint8_t> HexPair(std::string_view word);
// Letters, digits and "_", no digit first, and not two hexadecimal digits.
bool IsLabel(std::string_view word);

std::string Quoted(std::string_view word);

}  // namespace kestrane
