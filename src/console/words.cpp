#include "console/words.h"

#include <charconv>
#include <nlohmann/json.hpp>

namespace kestrane {
namespace {

constexpr double kLongestSeconds = 86'400;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

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
