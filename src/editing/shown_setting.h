#pragma once

// A setting's value as its control shows it, as one text whatever the kind: what pending changes
// and undo compare and bring back.

#include <string>
#include <vector>

#include "configuration/settings.h"
#include "screen/main_form.h"

namespace kestrane {

// "true" and "false" for a check box, the item of a list, the caption of the chosen option.
std::string ShownIn(MainForm& form, const Setting& setting);

// Sets the control as the program does: a change runs its handling.
void ShowIn(MainForm& form, const Setting& setting, const std::string& value);

// The control, or of an option group the one that is chosen, else its first.
Control* ControlOf(MainForm& form, const Setting& setting);

// The settings that a control of the main form shows and a hand can change.
const std::vector<const Setting*>& EditableSettings();

// The page of the main form that a tab of the settings stands on; -1 for none.
int PageOfTab(std::string_view tab);

}  // namespace kestrane
