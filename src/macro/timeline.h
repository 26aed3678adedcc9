#pragma once

// A simulated run for people and programs: as lines of text, as CSV, as a drawing.

#include <string>
#include <string_view>
#include <vector>

#include "macro/macro_memory.h"
#include "simulation/simulation.h"

namespace kestrane {

simulation::MacroImage ImageOf(const MacroMemory& program);

// The unit type as the command line and reports write it: "CMS", "636", "single".
std::string_view TypeName(simulation::UnitType type);
// The same for texts: "CMS", "636", "".
std::string_view UnitTypeOf(simulation::UnitType type);

// What happened: the instruction's text with single blanks, or the words of an input.
std::string EventText(const simulation::Event& event, const MacroMemory& program,
                      simulation::UnitType type);

// The numbers of a mask, ascending: 1 to 14.
std::vector<int> OutletNumbers(std::uint16_t mask);

// "stop", "time", "repeats".
std::string_view WhyText(simulation::Timeline::Why why);

// A line for each event, then how it ended. Times are seconds.
std::vector<std::string> TimelineAsText(const simulation::Timeline& timeline,
                                        const MacroMemory& program);
// With the header ms,address,text,on,off; outlets are joined by blanks.
std::string TimelineAsCsv(const simulation::Timeline& timeline, const MacroMemory& program);
// The outlets over time, readable on paper, on light and on dark ground. Row n has the id outlet-n.
std::string TimelineAsSvg(const simulation::Timeline& timeline, std::string_view title);

}  // namespace kestrane
