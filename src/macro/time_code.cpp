#include "macro/time_code.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "text/text.h"

namespace kestrane {
namespace {

struct SecondsText {
    std::array<char, 6> characters{};
    std::uint8_t length = 0;
};

constexpr unsigned Tenths(unsigned code) {
    return (code & 0x3F) * (code & 0x40 ? 10 : 1) * (code & 0x80 ? 100 : 1);
}

constexpr SecondsText MakeSecondsText(unsigned code) {
    const unsigned tenths = Tenths(code);
    const unsigned seconds = tenths / 10;
    SecondsText text;
    for (unsigned unit = 1000; unit > 0; unit /= 10) {
        if (seconds >= unit || unit == 1) {
            text.characters[text.length++] = static_cast<char>('0' + seconds / unit % 10);
        }
    }
    text.characters[text.length++] = '.';
    text.characters[text.length++] = static_cast<char>('0' + tenths % 10);
    return text;
}

// Made once: a listing shows these texts all the time.
constexpr std::array<SecondsText, 256> kSecondsTexts = [] {
    std::array<SecondsText, 256> texts;
    for (unsigned code = 0; code < texts.size(); ++code) texts[code] = MakeSecondsText(code);
    return texts;
}();

// Digits with at most one point among or around them.
bool IsDecimal(std::string_view text) {
    const auto digits =
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    const auto points = std::count(text.begin(), text.end(), '.');
    return digits > 0 && points <= 1 && digits + points == static_cast<long>(text.size());
}

std::string NearestTimes(double seconds) {
    int below = 0;
    int above = TimeTenths(0xFF) + 1;
    for (int code = 0; code <= 0xFF; ++code) {
        const int tenths = TimeTenths(static_cast<std::uint8_t>(code));
        if (tenths <= 10 * seconds) below = std::max(below, tenths);
        if (tenths > 10 * seconds) above = std::min(above, tenths);
    }
    const auto text = [](int tenths) {
        return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
    };
    if (above > TimeTenths(0xFF)) return "the longest is " + text(below);
    return "the nearest are " + text(below) + " and " + text(above);
}

}  // namespace

int TimeTenths(std::uint8_t code) { return static_cast<int>(Tenths(code)); }

std::string TimeText(std::uint8_t code) {
    const SecondsText& text = kSecondsTexts[code];
    return {text.characters.data(), text.length};
}

// Each stage goes on with the time that the stage before it has rounded. So a time that is
// rounded up beyond the top of its stage is rounded again in the next, and may end below the
// entry: "635" is rounded to 640 and then to 600. That is meant.
std::optional<std::uint8_t> TimeCode(std::string_view text) {
    double t = Val(text);
    if (t < 0) return std::nullopt;
    t = std::floor(10 * t + 0.5) / 10;
    if (t > 6300) t = 6300;
    double code = 10 * t;
    if (t > 6.3) {
        t = std::floor(t + 0.5);
        code = t + 64;
    }
    if (t > 63) {
        t = std::floor((t + 5) / 10) * 10;
        code = t / 10 + 128;
    }
    if (t > 630) {
        t = std::floor((t + 50) / 100) * 100;
        code = t / 100 + 192;
    }
    return static_cast<std::uint8_t>(RoundHalfEven(code));
}

ExactTime ExactTimeCode(std::string_view text) {
    if (!IsDecimal(text)) return {{}, "it is not a number of seconds, as 0.5 or 10"};
    const double seconds = Val(text);
    const std::uint8_t code = *TimeCode(text);
    // Only tenths can be exact, and for those the product is what the code holds, to the bit.
    const auto point = text.find('.');
    const bool tenths =
        point == std::string_view::npos ||
        text.find_first_not_of('0', std::min(point + 2, text.size())) == std::string_view::npos;
    if (tenths && std::lround(10 * seconds) == TimeTenths(code) && seconds <= 6300) {
        return {code, {}};
    }
    return {{}, "no code holds it exactly, " + NearestTimes(seconds)};
}

}  // namespace kestrane
