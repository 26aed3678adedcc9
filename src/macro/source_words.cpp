#include "macro/source_words.h"

#include "text/text.h"

namespace kestrane {

std::optional<std::uint8_t> HexPair(std::string_view word) {
    if (word.size() != 2 ||
        word.find_first_not_of("0123456789ABCDEFabcdef") != std::string_view::npos) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(HexNumber(word));
}

bool IsLabel(std::string_view word) {
    constexpr std::string_view kDigits = "0123456789";
    constexpr std::string_view kCharacters =
        "0123456789_ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    return !word.empty() && word.find_first_not_of(kCharacters) == std::string_view::npos &&
           kDigits.find(word[0]) == std::string_view::npos && !HexPair(word);
}

std::string Quoted(std::string_view word) { return "\"" + std::string(word) + "\""; }

}  // namespace kestrane
