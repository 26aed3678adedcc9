#pragma once

// Runs of lines that many stories show, each under a name in series.story; a story writes
// "    = NAME words" for them.

#include <string>
#include <vector>

namespace kestrane {

using StoryLines = std::vector<std::string>;

// The line itself, or the lines of the series that it names, with its words in the place of {1},
// {2} ... and nothing where it gives none.
StoryLines Expanded(const std::string& line);

// `played`, in which each run that a line of `written` names stands as that line again.
StoryLines Folded(StoryLines played, const StoryLines& written);

}  // namespace kestrane
