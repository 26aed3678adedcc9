#pragma once

// What a unit holds for its web levels. The tab can't show it, so it comes from the bytes that the
// unit gave or took on this connection: a salt, and for each level half a hash, or zeros for a
// closed level, or 0xFF for one without a password.

#include <optional>
#include <string>

#include "tool/tool.h"

namespace kestrane {

enum class WebLevel { kUnknown, kOpen, kClosed, kPassword };

// Level 0 is View, 1 Control, 2 Admin.
WebLevel StateOfWebLevel(const Tool& tool, int level);

// Whether this is the level's password; "" for an open level. Nothing where that can't be told.
std::optional<bool> WebLevelHolds(const Tool& tool, int level, const std::string& password);

}  // namespace kestrane
