#include "cli/macro_offline.h"

#include "console/values.h"
#include "macro/disassembler.h"
#include "macro/instruction_set.h"
#include "macro/macro_check.h"
#include "macro/macro_file.h"
#include "macro/timeline.h"
#include "text/text.h"

namespace kestrane {
namespace {

using simulation::Milliseconds;
using simulation::Timeline;
using simulation::UnitType;

constexpr std::string_view kEnding = ".sms";

UnitType TypeOf(const MacroOptions& options) { return *ParseUnitType(options.type); }

// "SRC:LINE:COLUMN: sentence", as compilers write it and editors read it.
std::string FaultLine(const std::string& file, const SourceFault& fault) {
    std::string line = file + ":" + std::to_string(fault.place.line);
    if (fault.place.column > 0) line += ":" + std::to_string(fault.place.column);
    return line + ": " + (fault.is_warning ? "warning: " : "") + fault.text;
}

void ErrorLine(const CallContext& context, const std::string& line) {
    (context.error_line ? context.error_line : context.complain)(line);
}

// Prints what has line ends of its own, or puts it into the file.
int Deliver(const CallContext& context, const std::string& output, std::string content) {
    if (output.empty() || output == "-") {
        if (content.ends_with('\n')) content.pop_back();
        context.print(content);
        return kExitDone;
    }
    FileStore& disk = context.tool.link.platform().disk;
    if (const auto why = disk.Replace(output, content, FileStore::Readers::kEveryone)) {
        context.complain("cannot write " + output + ": " + *why);
        return kExitUsage;
    }
    return kExitDone;
}

Json FindingsAsJson(const std::vector<Finding>& findings) {
    Json list = Json::array();
    for (const Finding& each : findings) {
        Json finding;
        finding["line"] = each.place.line;
        finding["column"] = each.place.column > 0 ? Json(each.place.column) : Json(nullptr);
        finding["address"] = each.address ? Json(HexByte(*each.address)) : Json(nullptr);
        finding["severity"] = each.IsWarning() ? "warning" : "error";
        finding["kind"] = each.kind;
        finding["text"] = each.text;
        list.push_back(std::move(finding));
    }
    return list;
}

void PrintFindings(const CallContext& context, const std::string& file, std::string_view content,
                   const std::vector<Finding>& findings) {
    context.print("kind: " + std::string(ProgramKindText(ReadProgramText(content))));
    const bool source = IsSourceText(content);
    for (const Finding& finding : findings) {
        if (source && !finding.IsWarning()) {
            ErrorLine(context, FaultLine(file, {finding.place, finding.text, false}));
        } else {
            context.print(FindingLine(finding));
        }
    }
    if (findings.empty()) context.print("no faults");
}

Json TimelineAsJson(const Timeline& timeline, const MacroMemory& program) {
    Json events = Json::array();
    for (const simulation::Event& each : timeline.events) {
        events.push_back({{"ms", each.at.count()},
                          {"address", each.address ? Json(HexByte(*each.address)) : Json(nullptr)},
                          {"text", EventText(each, program, timeline.start.type)},
                          {"on", OutletNumbers(each.on)},
                          {"off", OutletNumbers(each.off)}});
    }
    Json json;
    json["type"] = TypeName(timeline.start.type);
    json["start"] = HexByte(timeline.start.address);
    json["events"] = std::move(events);
    json["end"] = {{"ms", timeline.end.count()}, {"why", WhyText(timeline.why)}};
    json["repeats"] = nullptr;
    if (const auto& repeats = timeline.repeats) {
        json["repeats"] = {{"every_ms", repeats->every.count()},
                           {"from_ms", repeats->from.count()}};
    }
    json["outlets"] = OutletNumbers(timeline.outlets);
    json["most_on"] = {{"count", timeline.most_on.count},
                       {"from_ms", timeline.most_on.from.count()}};
    return json;
}

int ShowTimeline(const CallContext& context, const MacroOptions& options, const Timeline& timeline,
                 const MacroMemory& program) {
    if (options.json) {
        context.print(ToLine(TimelineAsJson(timeline, program)));
    } else if (options.csv) {
        return Deliver(context, {}, TimelineAsCsv(timeline, program));
    } else if (!options.svg.empty()) {
        const std::string title(NameWithoutFolders(options.file));
        return Deliver(context, options.svg, TimelineAsSvg(timeline, title));
    } else {
        for (const std::string& line : TimelineAsText(timeline, program)) context.print(line);
    }
    return kExitDone;
}

}  // namespace

std::optional<ProgramText> UsableProgram(const CallContext& context, const std::string& file,
                                         std::string_view content) {
    ProgramText text = ReadProgramText(content);
    for (const SourceFault& fault : text.faults) ErrorLine(context, FaultLine(file, fault));
    if (!text.Good()) return std::nullopt;
    return text;
}

int ListMacro(const CallContext& context, const MacroOptions& options, std::string_view content) {
    const auto text = UsableProgram(context, options.file, content);
    if (!text) return kExitUsage;
    Json list = Json::array();
    for (int i = kFirstMacroAddress; i < static_cast<int>(MacroProgram::kAddresses); ++i) {
        const auto address = static_cast<std::uint8_t>(i);
        const std::uint8_t opcode = text->program.image.Opcode(address);
        const std::uint8_t second = text->program.image.SecondByte(address);
        const std::string decoded = CmdDecode(opcode, second, UnitTypeOf(TypeOf(options)));
        if (options.json) {
            list.push_back({{"address", HexByte(address)},
                            {"opcode", HexByte(opcode)},
                            {"second", HexByte(second)},
                            {"text", decoded}});
        } else {
            context.print(HexByte(address) + "  " + HexByte(opcode) + " " + HexByte(second) + "  " +
                          decoded);
        }
    }
    if (options.json) context.print(ToLine(list));
    return kExitDone;
}

int CheckMacro(const CallContext& context, const MacroOptions& options, std::string_view content) {
    const auto findings = CheckMacroText(content, UnitTypeOf(TypeOf(options)));
    if (options.json) {
        context.print(ToLine(FindingsAsJson(findings)));
    } else {
        PrintFindings(context, options.file, content, findings);
    }
    for (const Finding& finding : findings) {
        if (options.strict || !finding.IsWarning()) return kExitUsage;
    }
    return kExitDone;
}

int AssembleMacro(const CallContext& context, const MacroOptions& options,
                  std::string_view content) {
    if (!IsSourceText(content)) {
        context.complain(options.file + " is a macro file already; use macro disassemble for it");
        return kExitUsage;
    }
    const auto text = UsableProgram(context, options.file, content);
    if (!text) return kExitUsage;
    std::string name(NameWithoutFolders(options.output));
    if (name.empty() || name == "-") {
        name = NameWithoutFolders(options.file);
        name = name.substr(0, name.rfind('.')) + std::string(kEnding);
    }
    return Deliver(context, options.output,
                   WriteMacroFile(NearestByteText(name), text->program.Rows(), text->program.image,
                                  UnitTypeOf(TypeOf(options))));
}

int DisassembleMacro(const CallContext& context, const MacroOptions& options,
                     std::string_view content) {
    const auto text = UsableProgram(context, options.file, content);
    if (!text) return kExitUsage;
    return Deliver(context, options.output,
                   Disassemble(text->program, UnitTypeOf(TypeOf(options))));
}

std::string SimulationOptionsFault(const MacroOptions& options) {
    if (!simulation::ParseSeconds(options.run_for)) {
        return "--for takes seconds with up to three decimals, not \"" + options.run_for + "\"";
    }
    for (const std::string& event : options.events) {
        if (ParseTimedInput(event)) continue;
        return "--event takes 'TIME: switch on|off', 'TIME: gpi N high|low' or 'TIME: supply "
               "lost|back', not \"" +
               event + "\"";
    }
    if (options.outlets_given && !ParseOutlets(options.outlets)) {
        return "--outlets takes 'on' and numbers from 1 to 14, not \"" + options.outlets + "\"";
    }
    return {};
}

int SimulateMacro(const CallContext& context, const MacroOptions& options,
                  std::string_view content) {
    const auto text = UsableProgram(context, options.file, content);
    if (!text) return kExitUsage;
    std::string error;
    const auto address = StartAddress(options, text->program, error);
    if (!address) {
        context.complain(error);
        return kExitUsage;
    }
    const std::uint16_t outlets = options.outlets_given ? *ParseOutlets(options.outlets) : 0;
    std::vector<simulation::TimedInput> inputs;
    for (const std::string& event : options.events) inputs.push_back(*ParseTimedInput(event));
    const MacroMemory& image = text->program.image;
    const Timeline timeline =
        simulation::Simulate(ImageOf(image), {TypeOf(options), *address, outlets},
                             std::move(inputs), *simulation::ParseSeconds(options.run_for));
    return ShowTimeline(context, options, timeline, image);
}

}  // namespace kestrane
