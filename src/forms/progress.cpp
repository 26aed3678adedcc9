#include "forms/progress.h"

#include <algorithm>
#include <charconv>

namespace kestrane {
namespace {

constexpr std::string_view kDigits = "0123456789";

// The number that ends right before `end`; nothing if there is none or a huge one.
std::optional<int> NumberBefore(std::string_view text, std::size_t end) {
    while (end > 0 && text[end - 1] == ' ') --end;
    std::size_t begin = end;
    while (begin > 0 && kDigits.find(text[begin - 1]) != std::string_view::npos) --begin;
    int number = 0;
    const auto result = std::from_chars(text.data() + begin, text.data() + end, number);
    if (begin == end || result.ec != std::errc()) return {};
    return number;
}

std::optional<int> NumberAfter(std::string_view text, std::size_t begin) {
    begin = std::min(text.find_first_not_of(' ', begin), text.size());
    int number = 0;
    const auto result = std::from_chars(text.data() + begin, text.data() + text.size(), number);
    if (result.ec != std::errc()) return {};
    return number;
}

std::optional<Progress> Checked(std::optional<int> done, std::optional<int> total) {
    if (!done || !total || *done < 0 || *total <= 0) return {};
    return Progress{std::min(*done, *total), *total};
}

}  // namespace

std::optional<Progress> ParseProgress(std::string_view text) {
    constexpr std::string_view kOf = " of ";
    if (const auto of = text.rfind(kOf); of != std::string_view::npos) {
        return Checked(NumberBefore(text, of), NumberAfter(text, of + kOf.size()));
    }
    if (const auto percent = text.rfind('%'); percent != std::string_view::npos) {
        return Checked(NumberBefore(text, percent), 100);
    }
    return {};
}

}  // namespace kestrane
