#pragma once

// Delays of the macro language. A time code is one byte that counts tenths of a second in a
// floating-point form, so few delays can be held exactly: what an entry turns into is what
// `TimeText` of its code shows.
//
//     bit   7     6    5 ... 0
//         x100   x10   mantissa 0 to 63     both bits: x1000

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestrane {

// The seconds of a code with one decimal: 0x05 is "0.5", 0xFF is "6300.0".
std::string TimeText(std::uint8_t code);

// The code for the number of seconds that `text` begins with; a text with no number counts 0,
// anything above 6300 counts 6300. A negative number has no code.
std::optional<std::uint8_t> TimeCode(std::string_view text);

// The tenths of a second of a code.
int TimeTenths(std::uint8_t code);

// The code that TimeCode gives a decimal number of seconds ("10", "0.5"), if that holds the number
// exactly; else why there is none, naming the nearest times below and above.
struct ExactTime {
    std::optional<std::uint8_t> code;
    std::string why_not;
};
ExactTime ExactTimeCode(std::string_view text);

}  // namespace kestrane
