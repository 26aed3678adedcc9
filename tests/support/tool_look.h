#pragma once

// The whole state of a tool as a story shows it: every property of every control of its two large
// forms, the focus, the session's variables, the program in the editor.

#include <string>
#include <vector>

#include "support/story_words.h"
#include "tool/tool.h"

namespace kestrane {

// One property of one control, or a variable.
struct Seen {
    std::string property;
    std::string base;
    int index;  // in an array, or an address of the program; -1: neither
    std::string value;
};

std::vector<Seen> LookAt(Tool& tool);

// "enabled true: cmdHelp, lblOutlet(0-13)", a line for each property and value that is new.
std::vector<std::string> Differences(const std::vector<Seen>& before,
                                     const std::vector<Seen>& after);

// The same of what is named in "show NAME ... [property]"; a variable has no property.
std::vector<std::string> Shown(Tool& tool, const StoryWords& words);

}  // namespace kestrane
