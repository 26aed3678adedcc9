#pragma once

// Stories as text: a player does each line at the margin and writes below it, indented, what
// happens; a test compares the whole text. With the environment variable KESTRANE_RECORD set the
// files are written anew instead, for a reader of their changes.

#include <string>
#include <vector>

namespace kestrane {

// Plays one story: its lines in, the same lines with what happens out.
using StoryPlayer = std::string (*)(const std::vector<std::string>& lines);

// Makes a test case of each file *.story in tests/<folder>. Called before main, at namespace scope:
// const bool kStories = RegisterStories("macro", PlayOnTool);
bool RegisterStories(const std::string& folder, StoryPlayer player);

}  // namespace kestrane
