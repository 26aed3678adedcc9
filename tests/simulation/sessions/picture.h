#pragma once

// What a screen shows and lets a hand do, to be compared with another tool's.

#include <map>
#include <string>

#include "screen/main_form.h"

namespace kestrane::sessions {

// Text and whether it is enabled, by the control's name. What is drawn at random, what goes on by
// itself, and what the operator may have set for good is left out.
using Picture = std::map<std::string, std::string>;

Picture PictureOf(const Form& form);

// Throws Broken at the first control that is not as in `wanted`; `when` names the rule.
void Compare(const Picture& seen, const Picture& wanted, const std::string& when);

}  // namespace kestrane::sessions
