#include "console/words.h"

#include <charconv>
#include <nlohmann/json.hpp>

namespace kestrane {
namespace {

constexpr double kLongestSeconds = 86'400;
constexpr char32_t kLastOfByteText = 0xFF;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// The character at `at`, moved on behind it; nothing where the text is not UTF-8.
std::optional<char32_t> NextCharacter(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(at++);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    static constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    if (first < 0xC2 || first > 0xF4 || at + static_cast<std::size_t>(more) > text.size()) {
        return {};
    }
    char32_t character = first & (0x3Fu >> more);
    for (int i = 0; i < more; ++i, ++at) {
        if ((byte(at) & 0xC0) != 0x80) return {};
        character = character << 6 | (byte(at) & 0x3Fu);
    }
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < kLeast[more] || character > 0x10FFFF || surrogate) return {};
    return character;
}

// The end of the quoted word that begins at `start`: behind its closing quote.
std::size_t EndOfQuoted(std::string_view line, std::size_t start) {
    for (std::size_t i = start + 1; i < line.size(); ++i) {
        if (line[i] == '\\') {
            ++i;
        } else if (line[i] == '"') {
            return i + 1;
        }
    }
    return std::string_view::npos;
}

}  // namespace

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (!NextCharacter(text, at)) return false;
    }
    return true;
}

SplitLine SplitWords(std::string_view line) {
    SplitLine result;
    const auto fail = [&](const char* why) {
        result.words.clear();
        result.error = why;
        return result;
    };
    if (!IsUtf8(line)) return fail("the line is not UTF-8");
    std::size_t at = 0;
    while (true) {
        while (at < line.size() && IsBlank(line[at])) ++at;
        if (at == line.size()) return result;
        const std::size_t start = at;
        if (line[at] != '"') {
            while (at < line.size() && !IsBlank(line[at])) ++at;
            result.words.push_back({std::string(line.substr(start, at - start)), false});
            continue;
        }
        at = EndOfQuoted(line, start);
        if (at == std::string_view::npos) return fail("a quoted word has no closing quote");
        if (at < line.size() && !IsBlank(line[at])) return fail("no blank behind a quoted word");
        const auto text = nlohmann::json::parse(line.substr(start, at - start), nullptr, false);
        if (!text.is_string()) return fail("a quoted word is no JSON string");
        result.words.push_back({text.get<std::string>(), true});
    }
}

std::optional<std::string> ToByteText(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const auto character = NextCharacter(utf8, at);
        if (!character || *character > kLastOfByteText) return {};
        bytes += static_cast<char>(*character);
    }
    return bytes;
}

std::string FromByteText(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | byte >> 6);
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return utf8;
}

std::optional<int> WordAsInt(const Word& word, int least, int most) {
    int number = 0;
    const char* const end = word.text.data() + word.text.size();
    const auto parsed = std::from_chars(word.text.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end || number < least || number > most) return {};
    return number;
}

std::optional<double> WordAsSeconds(const Word& word) {
    double number = 0;
    const char* const end = word.text.data() + word.text.size();
    const auto parsed = std::from_chars(word.text.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end) return {};
    if (!(number >= 0 && number <= kLongestSeconds)) return {};
    return number;
}

}  // namespace kestrane
