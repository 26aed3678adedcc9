#include "support/story_words.h"

#include <algorithm>

#include "text/text.h"

namespace kestrane {
namespace {

std::string IndexText(const std::string& base, int index) {
    return base == "image" ? HexByte(static_cast<std::uint8_t>(index)) : std::to_string(index);
}

}  // namespace

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        const bool plain = c >= ' ' && c <= '~' && c != '"' && c != '\\';
        quoted += plain ? std::string(1, c) : "\\x" + HexByte(static_cast<std::uint8_t>(c));
    }
    return quoted + "\"";
}

std::string Unescaped(std::string text) {
    for (std::size_t x = 0; (x = text.find("\\x", x)) != std::string::npos; ++x) {
        text.replace(x, 4, HexPairs(text.substr(x + 2, 2)));
    }
    return text;
}

StoryWords WordsOf(const std::string& line) {
    StoryWords words;
    for (std::size_t at = 0; (at = line.find_first_not_of(' ', at)) != std::string::npos;) {
        const bool quoted = line[at] == '"';
        const std::size_t end = std::min(line.find(quoted ? '"' : ' ', at + 1), line.size());
        std::string word = quoted ? line.substr(at + 1, end - at - 1) : line.substr(at, end - at);
        word = Unescaped(word);
        at = std::min(end + quoted, line.size());
        if (quoted && line[at] == '*') {
            const std::string once = word;
            for (int n = std::stoi(line.substr(at + 1)); n > 1; --n) word += once;
            at = std::min(line.find(' ', at), line.size());
        }
        words.push_back(std::move(word));
    }
    return words;
}

std::string NameList(const std::vector<IndexedName>& names) {
    std::string list;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto& [base, index] = names[i];
        const bool more = i > 0 && index >= 0 && names[i - 1].first == base;
        if (more) list.pop_back();
        list += more ? " " : (i > 0 ? ", " : "") + base + (index >= 0 ? "(" : "");
        std::size_t last = i;
        while (index >= 0 && last + 1 < names.size() && names[last + 1].first == base &&
               names[last + 1].second == names[last].second + 1) {
            ++last;
        }
        if (index >= 0) list += IndexText(base, index);
        if (last > i) list += "-" + IndexText(base, names[last].second);
        if (index >= 0) list += ")";
        i = last;
    }
    return list;
}

}  // namespace kestrane
