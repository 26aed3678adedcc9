#pragma once

// Plays a story on a whole tool: each line at the margin is done, and below it stands what went
// out, each caption, box and changed control. The words stand in README.md here.

#include <string>
#include <vector>

namespace kestrane {

// The lines with what really happens below each. A line that can't be played says why.
std::string PlayOnTool(const std::vector<std::string>& lines);

}  // namespace kestrane
