#include "macro/time_code.h"

#include <array>
#include <cmath>

#include "text/text.h"

namespace kestrane {
namespace {

struct SecondsText {
    std::array<char, 6> characters{};
    std::uint8_t length = 0;
};

constexpr SecondsText MakeSecondsText(unsigned code) {
    const unsigned tenths = (code & 0x3F) * (code & 0x40 ? 10 : 1) * (code & 0x80 ? 100 : 1);
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

}  // namespace

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

}  // namespace kestrane
