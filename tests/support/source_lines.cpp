#include "support/source_lines.h"

#include <sstream>

#include "macro/assembler.h"
#include "macro/macro_check.h"
#include "macro/timeline.h"
#include "support/story_words.h"
#include "text/text.h"

namespace kestrane {
namespace {

std::vector<std::string> Findings(const std::string& source) {
    std::vector<std::string> lines;
    for (const Finding& finding : CheckMacroText(source, "CMS")) {
        lines.push_back(std::string(finding.kind) + ": " + FindingLine(finding));
    }
    return lines;
}

// The faults, then the instructions if there is none.
std::vector<std::string> Assembled(const std::string& source) {
    const Assembly assembly = Assemble(source);
    std::vector<std::string> lines;
    for (const SourceFault& fault : assembly.faults) {
        lines.push_back(std::to_string(fault.place.line) + ":" +
                        std::to_string(fault.place.column) + ": " +
                        (fault.is_warning ? "warning: " : "") + fault.text);
    }
    const MacroProgram& program = assembly.program;
    for (int at = 0; assembly.Good() && at < 0x80; ++at) {
        if (!program.programmed[static_cast<std::size_t>(at)]) continue;
        const auto address = static_cast<std::uint8_t>(at);
        lines.push_back(HexByte(address) + ": " + HexByte(program.image.Opcode(address)) + " " +
                        HexByte(program.image.SecondByte(address)));
    }
    return lines;
}

// The run of ten minutes from 10 on, as text, CSV and drawing.
std::vector<std::string> Timelines(const std::string& source) {
    const MacroMemory image = Assemble(source).program.image;
    const auto run = simulation::Simulate(ImageOf(image), {simulation::UnitType::kCms, 0x10, 0}, {},
                                          std::chrono::minutes{10});
    std::vector<std::string> lines = TimelineAsText(run, image);
    std::istringstream rest(TimelineAsCsv(run, image) +
                            TimelineAsSvg(run, "5 < 6 & \"up\" > down"));
    for (std::string line; std::getline(rest, line);) lines.push_back(line);
    return lines;
}

}  // namespace

std::optional<std::vector<std::string>> TellOfSource(const std::string& line) {
    const std::size_t blank = line.find(' ');
    const std::string verb = line.substr(0, blank);
    if (verb != "assemble" && verb != "check" && verb != "timeline") return {};
    std::string source = blank == std::string::npos ? "" : line.substr(blank + 1);
    for (std::size_t at = 0; (at = source.find("\\n", at)) != std::string::npos;) {
        source.replace(at, 2, "\n");
    }
    source = Unescaped(source);
    return verb == "check"      ? Findings(source)
           : verb == "timeline" ? Timelines(source)
                                : Assembled(source);
}

}  // namespace kestrane
