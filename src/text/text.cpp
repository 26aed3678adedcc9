#include "text/text.h"

#include <cmath>
#include <limits>

namespace kestrane {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The value of an upper-case hexadecimal digit, or -1.
int UpperHexDigit(char c) {
    const auto found = kHexDigits.find(c);
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

int AnyHexDigit(char c) {
    return UpperHexDigit(c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c);
}

}  // namespace

std::string Mid(std::string_view text, std::size_t start, std::size_t length) {
    if (start == 0 || start > text.size()) return {};
    return std::string(text.substr(start - 1, length));
}

std::string Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(' ');
    return std::string(text.substr(first, last - first + 1));
}

std::string PadRight(std::string_view text, std::size_t width, char fill) {
    std::string padded(text);
    if (padded.size() < width) padded.resize(width, fill);
    return padded;
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return upper;
}

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    bytes.reserve(values.size());
    for (const int value : values) bytes.push_back(static_cast<char>(value & 0xFF));
    return bytes;
}

int ByteAt(std::string_view text, std::size_t position) {
    if (position == 0 || position > text.size()) return -1;
    return static_cast<unsigned char>(text[position - 1]);
}

double Val(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && text[i] == ' ') ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    double value = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i) value = value * 10 + (text[i] - '0');
    if (i < text.size() && text[i] == '.') {
        double scale = 1;
        double digits = 0;
        // Beyond 15 digits a double holds no more of them.
        int taken = 0;
        for (++i; i < text.size() && IsDigit(text[i]); ++i) {
            if (++taken > 15) continue;
            digits = digits * 10 + (text[i] - '0');
            scale *= 10;
        }
        value += digits / scale;
    }
    return negative ? -value : value;
}

std::int32_t IntegerValue(std::string_view text) {
    const double value = std::nearbyint(Val(text));
    if (value >= std::numeric_limits<std::int32_t>::max()) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (value <= std::numeric_limits<std::int32_t>::min()) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(value);
}

long RoundHalfEven(double value) { return std::lrint(value); }

std::string Str(long value) { return (value < 0 ? "" : " ") + std::to_string(value); }

std::string HexByte(std::uint8_t value) { return {kHexDigits[value >> 4], kHexDigits[value & 15]}; }

std::string HexText(std::string_view bytes) {
    std::string text;
    text.reserve(2 * bytes.size());
    for (const char c : bytes) {
        const auto value = static_cast<unsigned char>(c);
        text.push_back(kHexDigits[value >> 4]);
        text.push_back(kHexDigits[value & 15]);
    }
    return text;
}

std::uint32_t HexNumber(std::string_view text) {
    std::uint32_t value = 0;
    for (const char c : text) {
        const int digit = AnyHexDigit(c);
        if (digit < 0) break;
        if (value > (std::numeric_limits<std::uint32_t>::max() >> 4)) {
            return std::numeric_limits<std::uint32_t>::max();
        }
        value = value * 16 + static_cast<std::uint32_t>(digit);
    }
    return value;
}

std::string HexPairs(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        const int high = AnyHexDigit(text[i]);
        const int low = AnyHexDigit(text[i + 1]);
        bytes.push_back(high < 0 || low < 0 ? '\0' : static_cast<char>(high * 16 + low));
    }
    return bytes;
}

std::string CleanHex(std::string& text) {
    text = UpperCase(text);
    if (text.size() != 2 || UpperHexDigit(text[0]) < 0 || UpperHexDigit(text[1]) < 0) return "00";
    return text;
}

std::uint8_t HexValue(std::string_view text) {
    if (text.empty()) return 0;
    const int high = UpperHexDigit(text.front());
    const int low = UpperHexDigit(text.back());
    return static_cast<std::uint8_t>((high < 0 ? 0 : high * 16) + (low < 0 ? 0 : low));
}

}  // namespace kestrane
