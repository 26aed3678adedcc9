#pragma once

// Byte texts and numbers as text. A byte text is a std::string with one byte a character
// (Latin-1 where it is shown). Positions count from 1 here, as in the tables of the protocol;
// nothing else in the program counts so.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kestrane {

// The characters from position `start` (from 1) on, at most `length`; what lies beyond the end
// is left out, so the result may be shorter or empty.
std::string Mid(std::string_view text, std::size_t start,
                std::size_t length = std::string_view::npos);

// Without blanks (0x20) at both ends. Other white space and control codes stay.
std::string Trim(std::string_view text);

// `text` with `fill` appended up to `width` characters. A longer text comes back whole.
std::string PadRight(std::string_view text, std::size_t width, char fill = ' ');

// Upper case for "a" to "z"; every other byte stays.
std::string UpperCase(std::string_view text);

// A byte text of these values, each cut to 8 bits.
std::string Bytes(std::initializer_list<int> values);

// The byte at `position` (from 1) as 0 to 255, or -1 beyond the end.
int ByteAt(std::string_view text, std::size_t position);

// The decimal number that the text begins with: blanks, a sign, digits, a fraction. Text without
// one gives 0. Huge numbers stay huge, they do not wrap.
double Val(std::string_view text);

// Val rounded to the nearest integer, a half to the even neighbour, held within the range of a
// 32-bit integer.
std::int32_t IntegerValue(std::string_view text);

// The nearest integer; a half goes to the even neighbour.
long RoundHalfEven(double value);

// Decimal text with room for the sign: a number that is not negative gets a leading blank.
std::string Str(long value);

// Exactly two upper-case hexadecimal digits.
std::string HexByte(std::uint8_t value);

// Two upper-case digits for each byte, joined.
std::string HexText(std::string_view bytes);

// The number of the leading hexadecimal digits, as unsigned 32 bits at most; 0 if there are
// none.
std::uint32_t HexNumber(std::string_view text);

// The bytes of pairs of hexadecimal digits, first pair first. A pair that is not two digits
// gives 0.
std::string HexPairs(std::string_view text);

// Upper-cases `text` in place and returns it if it is exactly two hexadecimal digits, else "00".
std::string CleanHex(std::string& text);

// The byte of the first and the last character, each looked up among the upper-case digits; a
// character outside them counts 0.
std::uint8_t HexValue(std::string_view text);

}  // namespace kestrane
