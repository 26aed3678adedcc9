#pragma once

// Why a control of the main form is disabled, for the mouse that rests on it.

#include <string>

#include "tool/tool.h"

namespace kestrane {

// Empty where there is nothing to do about it.
std::string WhyDisabled(const Tool& tool, const Control& control);

}  // namespace kestrane
