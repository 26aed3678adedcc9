#include "macro/timeline.h"

#include "macro/instruction_set.h"
#include "text/text.h"

namespace kestrane {
namespace {

using simulation::Event;
using simulation::SecondsText;
using simulation::Timeline;
using simulation::UnitType;

std::string Joined(std::uint16_t mask) {
    std::string text;
    for (const int outlet : OutletNumbers(mask)) {
        text += (text.empty() ? "" : " ") + std::to_string(outlet);
    }
    return text;
}

std::string PadLeft(std::string text, std::size_t width) {
    if (text.size() < width) text.insert(0, width - text.size(), ' ');
    return text;
}

std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"") == std::string::npos) return text;
    std::string field = "\"";
    for (const char c : text) field += c == '"' ? "\"\"" : std::string(1, c);
    return field + "\"";
}

std::string TextLine(const Event& event, const MacroMemory& program, UnitType type) {
    std::string line = PadLeft(SecondsText(event.at), 10) + "  ";
    line += (event.address ? HexByte(*event.address) : "  ") + "  ";
    line += EventText(event, program, type);
    if (event.on != 0) line += "  on " + Joined(event.on);
    if (event.off != 0) line += "  off " + Joined(event.off);
    return line;
}

}  // namespace

simulation::MacroImage ImageOf(const MacroMemory& program) {
    return program.Bytes().first<simulation::MacroRunner::kImageBytes>();
}

std::string_view TypeName(UnitType type) {
    return type == UnitType::kSingle ? "single" : UnitTypeOf(type);
}

std::string_view UnitTypeOf(UnitType type) {
    return type == UnitType::kCms ? "CMS" : type == UnitType::k636 ? "636" : "";
}

std::string EventText(const Event& event, const MacroMemory& program, UnitType type) {
    if (!event.address) return event.words;
    std::string text;
    for (const char c : CmdDecode(program.Opcode(*event.address),
                                  program.SecondByte(*event.address), UnitTypeOf(type))) {
        if (c != ' ' || !text.ends_with(' ')) text += c;
    }
    return Trim(text);
}

std::vector<int> OutletNumbers(std::uint16_t mask) {
    std::vector<int> numbers;
    for (int outlet = 1; outlet <= kOutletCount; ++outlet) {
        if ((mask >> (outlet - 1) & 1) != 0) numbers.push_back(outlet);
    }
    return numbers;
}

std::string_view WhyText(Timeline::Why why) {
    switch (why) {
        case Timeline::Why::kStop:
            return "stop";
        case Timeline::Why::kTime:
            return "time";
        case Timeline::Why::kRepeats:
            return "repeats";
    }
    return {};
}

std::vector<std::string> TimelineAsText(const Timeline& timeline, const MacroMemory& program) {
    const UnitType type = timeline.start.type;
    std::vector<std::string> lines = {
        "This is what the demo unit does; a real unit may differ in its timing.",
        "From address " + HexByte(timeline.start.address) + ", unit type " +
            std::string(TypeName(type)) + ", times in seconds."};
    for (const Event& event : timeline.events) lines.push_back(TextLine(event, program, type));
    lines.push_back("end: " + SecondsText(timeline.end) + " " + std::string(WhyText(timeline.why)));
    if (const auto& repeats = timeline.repeats) {
        lines.push_back("repeats every " + SecondsText(repeats->every) + " from " +
                        SecondsText(repeats->from));
    }
    lines.push_back("outlets on at the end: " +
                    (timeline.outlets == 0 ? "none" : Joined(timeline.outlets)));
    const auto& most = timeline.most_on;
    lines.push_back("most outlets switched on within one second: " + std::to_string(most.count) +
                    (most.count == 0 ? "" : ", from " + SecondsText(most.from)));
    return lines;
}

std::string TimelineAsCsv(const Timeline& timeline, const MacroMemory& program) {
    std::string csv = "ms,address,text,on,off\n";
    for (const Event& event : timeline.events) {
        csv += std::to_string(event.at.count()) + ",";
        csv += (event.address ? HexByte(*event.address) : "") + ",";
        csv += CsvField(EventText(event, program, timeline.start.type)) + ",";
        csv += Joined(event.on) + "," + Joined(event.off) + "\n";
    }
    return csv;
}

}  // namespace kestrane
