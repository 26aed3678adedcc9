#pragma once

// Measured values that move a little: a wave up and down, a plain function of the time, so that
// two looks at the same moment agree and nothing has to be remembered between them.

#include "simulation/unit_type.h"

namespace kestrane::simulation {

// -amplitude to +amplitude, starting at 0 and rising; one wave lasts `period`.
inline int Drift(Milliseconds now, Milliseconds period, int amplitude) {
    const auto quarter = period.count() / 4;
    const auto phase = now.count() % period.count();
    const auto along = phase < quarter       ? phase
                       : phase < 3 * quarter ? 2 * quarter - phase
                                             : phase - 4 * quarter;
    return static_cast<int>(along * amplitude / quarter);
}

}  // namespace kestrane::simulation
