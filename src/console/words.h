#pragma once

// A console line as words. A word is bare, or a JSON string in double quotes; its text is UTF-8.
// The tool itself knows byte texts only: byte 0xNN is the character U+00NN, both ways.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/utf8.h"

namespace kestrane {

struct Word {
    std::string text;  // UTF-8, without the quotes
    bool quoted = false;
};

struct SplitLine {
    std::vector<Word> words;
    std::string error;  // why the line is no list of words; empty if it is one
};

SplitLine SplitWords(std::string_view line);

// The whole number that the word is, within these bounds; nothing for any other word.
std::optional<int> WordAsInt(const Word& word, int least, int most);
// A number of seconds from 0 up to a day, fractions allowed.
std::optional<double> WordAsSeconds(const Word& word);

}  // namespace kestrane
