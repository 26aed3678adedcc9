#pragma once

// A program's manual page in man's own markup, from its table of commands.

#include <string>

#include "common/command_table.h"

namespace kestrane {

std::string ManualPage(const CommandTable& table, const std::string& version);

}  // namespace kestrane
