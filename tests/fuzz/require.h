#pragma once

// What a fuzzer claims of its input; a claim that fails ends it, which the fuzzing engine reports.

#include <cstdlib>

namespace kestrane {

inline void Require(bool condition) {
    if (!condition) std::abort();
}

}  // namespace kestrane
