#pragma once

// Progress as the status texts tell it: "Reading outlet name 3 of 14", "Download 45%".

#include <optional>
#include <string_view>

namespace kestrane {

struct Progress {
    int done = 0;
    int total = 0;
};

// Nothing for a text that names no progress. `done` never exceeds `total`, which is above 0.
std::optional<Progress> ParseProgress(std::string_view text);

}  // namespace kestrane
