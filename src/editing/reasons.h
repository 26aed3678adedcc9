#pragma once

// What a mouse that rests on a control is told: what the control means and takes, and why it is
// disabled. The reasons come from the session's state and from the journal.

#include <string>

#include "editing/pending_changes.h"
#include "editing/verification.h"
#include "tool/tool.h"

namespace kestrane {

// Empty where there is nothing to do about it.
std::string WhyDisabled(Tool& tool, const Control& control);

// The setting's sentence, its range, and the unit's value where it differs from the screen or from
// what was written; else empty.
std::string TipOf(const PendingChanges& pending, const Verification& verification,
                  const Control& control);

// Why a click on this write button would send nothing, or leave something out; empty if it would
// not. Names the labels and boxes that are red.
std::string WhyNotWritten(Tool& tool, const Control& button);

}  // namespace kestrane
