#pragma once

// The words of a story, and names of controls as it shows them.

#include <string>
#include <utility>
#include <vector>

namespace kestrane {

using StoryWords = std::vector<std::string>;

// StoryWords between blanks, or in quotes with \xNN in them; "\xFF"*16 repeats.
StoryWords WordsOf(const std::string& line);

// In quotes, what is not printable ASCII as \xNN.
std::string Quoted(const std::string& text);
// "\xNN" as the byte.
std::string Unescaped(std::string text);

// A control's base name and its index in an array, -1 if it is in none.
using IndexedName = std::pair<std::string, int>;

// "lblOutlet(0-3 7), cmdHelp": the members of an array in one. Those of "image" are addresses.
std::string NameList(const std::vector<IndexedName>& names);

}  // namespace kestrane
