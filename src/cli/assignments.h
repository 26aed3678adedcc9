#pragma once

// NAME=VALUE on a command line. NAME is the key of a setting, and the value is then written as in a
// file; or it is the name of a control, and the value is then what the control takes.

#include <optional>
#include <string>
#include <vector>

#include "configuration/file.h"

namespace kestrane {

struct Assignment {
    std::string name;                  // as it was given
    const Setting* setting = nullptr;  // null for a control of the screen alone
    SettingValue value;
};

// Nothing, with the reason in `error`, for what no unit could take.
std::optional<Assignment> ParseAssignment(const std::string& text, std::string& error);

// Overwrites the values of secret settings where words of a command line assign them, so that a
// list of processes does not show them.
void HideSecrets(int count, char** words);

// The values of several; of two for one setting the later counts.
SettingValues ValuesOf(const std::vector<Assignment>& assignments);

}  // namespace kestrane
