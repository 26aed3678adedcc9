#pragma once

// The controls that show what a unit holds, as `read` prints them: which they are, what each is
// called, and its value as a terminal shows it.

#include <string>
#include <vector>

#include "configuration/tabs.h"
#include "link/session.h"
#include "screen/main_form.h"

namespace kestrane {

// The controls of a tab that hold values, in the order of the screen: boxes, options, lists, and
// the labels that show what was read. Scroll bars are left out, as each mirrors a box; so are the
// hidden boxes of the password hashing, as what stands there is drawn afresh each time.
std::vector<Control*> ValueControls(const MainForm& form, const TabRow& tab);

// "Unit name:"; for one of many what tells it from the others, "outlet 3, upper".
std::string CaptionOf(const Control& control);

// A privilege that the port may not read.
bool IsUnreadable(const Session& session, const Control& control);
bool IsSecret(const Control& control);

// Texts with control codes as \xNN, flags as 0 and 1 or true and false, a list by its index and
// item.
std::string ShownControl(const Control& control);

}  // namespace kestrane
