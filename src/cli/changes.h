#pragma once

// The values that a `set` is to bring about: taken from the command line, put in by the hand, and
// looked at afterwards.

#include <optional>
#include <string>
#include <vector>

#include "cli/tabs.h"

namespace kestrane {

struct Change {
    Control* control = nullptr;
    const TabRow* tab = nullptr;
    Value wanted;           // of the control's main property
    std::string given;      // as on the command line
    std::string old_shown;  // before
};

// Takes NAME=VALUE. Nothing, with the reason in `error`, for what can't be set at all, whatever
// the unit holds.
std::optional<Change> ParseChange(Tool& tool, const std::string& assignment, std::string& error);

// Does with a hand what brings the value about, and leaves the control. Why that was refused.
Refusal Apply(Tool& tool, const Change& change);

// Why the value does not stand as it was given: another text, or a red box.
Refusal Check(const Change& change);

// What the values of a tab lack together, as far as the tool itself would let it pass.
Refusal CheckTogether(const MainForm& form, const std::vector<Change>& changes);

}  // namespace kestrane
