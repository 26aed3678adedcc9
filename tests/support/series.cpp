#include "support/series.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>

#include "support/story_words.h"

namespace kestrane {
namespace {

std::map<std::string, StoryLines> ReadSeries() {
    std::map<std::string, StoryLines> series;
    std::ifstream file(KESTRANE_SOURCE_DIR "/tests/support/series.story");
    std::string name;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("== ")) name = line.substr(3);
        if (line.starts_with("    ")) series[name].push_back(line);
    }
    return series;
}

bool NamesSeries(const std::string& line) { return line.starts_with("    = "); }

std::string Filled(std::string line, const StoryWords& words) {
    for (std::size_t i = 1; i < 10; ++i) {
        const std::string place = "{" + std::to_string(i) + "}";
        for (std::size_t at = 0; (at = line.find(place, at)) != std::string::npos;) {
            line.replace(at, place.size(), i < words.size() ? words[i] : "");
        }
    }
    return line;
}

}  // namespace

StoryLines Expanded(const std::string& line) {
    static const std::map<std::string, StoryLines> kSeries = ReadSeries();
    if (!NamesSeries(line)) return {line};
    const StoryWords words = WordsOf(line.substr(6));
    const auto named = kSeries.find(words.at(0));
    if (named == kSeries.end()) return {line};
    StoryLines all;
    for (const std::string& part : named->second) {
        for (const std::string& below : Expanded(Filled(part, words))) all.push_back(below);
    }
    return all;
}

StoryLines Folded(StoryLines played, const StoryLines& written) {
    std::multimap<std::size_t, std::string, std::greater<>> longest_first;
    for (const std::string& line : written) {
        if (NamesSeries(line)) longest_first.emplace(Expanded(line).size(), line);
    }
    for (const auto& [size, line] : longest_first) {
        const StoryLines run = Expanded(line);
        auto at = played.begin();
        while ((at = std::search(at, played.end(), run.begin(), run.end())) != played.end()) {
            *at++ = line;
            at = played.erase(at, at + static_cast<std::ptrdiff_t>(size) - 1);
        }
    }
    return played;
}

}  // namespace kestrane
