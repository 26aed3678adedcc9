#pragma once

// What `kestrane-cli macro ...` was given, and the texts that its subcommands take as values.

#include <optional>
#include <string>
#include <vector>

#include "macro/program_text.h"
#include "simulation/simulation.h"

namespace kestrane {

struct MacroOptions {
    std::string file;
    std::string output;  // "" and "-": standard output
    std::string type = "CMS";
    bool json = false;
    bool csv = false;
    bool strict = false;
    bool triggers = false;
    std::string svg;
    std::string from;
    std::string trigger;
    std::string run_for = "3600";
    std::vector<std::string> events;
    std::string outlets;
    bool outlets_given = false;
};

// "CMS", "636" or "single" in any case.
std::optional<simulation::UnitType> ParseUnitType(const std::string& text);

// "TIME: words of an input".
std::optional<simulation::TimedInput> ParseTimedInput(const std::string& text);

// "on 1 3 5": the mask of the outlets that are on.
std::optional<std::uint16_t> ParseOutlets(const std::string& text);

// Where a run begins: two hexadecimal digits or a label of the program, or a trigger's number. On
// failure nothing, and the reason in `error`.
std::optional<std::uint8_t> StartAddress(const MacroOptions& options, const MacroProgram& program,
                                         std::string& error);

}  // namespace kestrane
