#pragma once

// The subcommands of `macro` that need no unit: list, check, assemble, disassemble, simulate. Each
// gets the content of its file and returns the exit status.

#include <optional>
#include <string>
#include <string_view>

#include "cli/call.h"
#include "cli/macro_options.h"

namespace kestrane {

// The program of a text. Nothing, after saying why on standard error, if it can't be used; its
// warnings are said there, too.
std::optional<ProgramText> UsableProgram(const CallContext& context, const std::string& file,
                                         std::string_view content);

int ListMacro(const CallContext& context, const MacroOptions& options, std::string_view content);
int CheckMacro(const CallContext& context, const MacroOptions& options, std::string_view content);
int AssembleMacro(const CallContext& context, const MacroOptions& options,
                  std::string_view content);
int DisassembleMacro(const CallContext& context, const MacroOptions& options,
                     std::string_view content);
int SimulateMacro(const CallContext& context, const MacroOptions& options,
                  std::string_view content);

// What is wrong with the values that a simulation was given; empty if nothing is.
std::string SimulationOptionsFault(const MacroOptions& options);

}  // namespace kestrane
