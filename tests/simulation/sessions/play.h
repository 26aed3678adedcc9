#pragma once

// Plays a story with a whole tool, two demo units and a line between them on virtual time, and
// watches what may never happen. After the story everything is well again: then a clean read has
// to give the same screen as a fresh tool has.

#include <string>

#include "simulation/sessions/story.h"

namespace kestrane::sessions {

struct Outcome {
    // What went wrong, in words; empty if nothing did. Up to the first ':' it names the rule.
    std::string fault;
    // How far the story came until then.
    std::size_t steps = 0;
};

Outcome Play(const Story& story);

// The shortest story found that breaks the same rule, by leaving steps out.
Story Shrink(const Story& story, const Outcome& outcome);

}  // namespace kestrane::sessions
