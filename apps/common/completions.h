#pragma once

// Completions of a program's command line for three shells, from its table of commands. Arguments
// called FILE or DIR complete as paths.

#include <string>

#include "common/command_table.h"

namespace kestrane {

std::string BashCompletion(const CommandTable& table);
std::string ZshCompletion(const CommandTable& table);
std::string FishCompletion(const CommandTable& table);

}  // namespace kestrane
