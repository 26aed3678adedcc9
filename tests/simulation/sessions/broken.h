#pragma once

#include <string>

namespace kestrane::sessions {

// Thrown where a rule is broken: in words, up to the first ':' the rule's name.
struct Broken {
    std::string fault;
};

}  // namespace kestrane::sessions
