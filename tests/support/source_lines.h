#pragma once

// Lines of a story that need no tool: "assemble ON 1 1\\nStop" "check ..." and
// "timeline ...", a source text to the end of the line.

#include <optional>
#include <string>
#include <vector>

namespace kestrane {

// Faults and bytes of the text, its findings, or how it runs; nothing where the line is another
// one.
std::optional<std::vector<std::string>> TellOfSource(const std::string& line);

}  // namespace kestrane
