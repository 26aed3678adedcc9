#include "cli/macro_listing.h"

#include "console/values.h"
#include "macro/instruction_set.h"
#include "macro/macro_check.h"
#include "macro/macro_file.h"
#include "text/text.h"

namespace kestrane {
namespace {

class ProgramSink : public MacroFileSink {
  public:
    explicit ProgramSink(MacroMemory& program) : program_(program) {}
    void StoreByte(std::size_t index, std::uint8_t value) override { program_.Set(index, value); }
    void CompareAndStoreTrigger(int /*row*/, const TriggerRow& /*fields*/) override {}

  private:
    MacroMemory& program_;
};

struct Line {
    std::string address;
    std::string opcode;
    std::string second;
    std::string text;  // UTF-8
};

std::vector<Line> Lines(const MacroMemory& program, std::string_view unit_type) {
    std::vector<Line> lines;
    for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; i += 2) {
        const std::uint8_t opcode = program.Get(i);
        const std::uint8_t second = program.Get(i + 1);
        lines.push_back({HexByte(static_cast<std::uint8_t>(i / 2)), HexByte(opcode),
                         HexByte(second), FromByteText(CmdDecode(opcode, second, unit_type))});
    }
    return lines;
}

}  // namespace

std::optional<MacroMemory> ProgramOfFile(std::string_view content, std::string& error) {
    MacroMemory program;
    ProgramSink sink(program);
    const MacroFileResult result = ReadMacroFile(content, sink);
    const std::string line = std::to_string(result.line);
    switch (result.outcome) {
        case MacroFileResult::Outcome::kOk:
            return program;
        case MacroFileResult::Outcome::kTriggerChecksum:
            error = "checksum error in the macro triggers at line " + line;
            break;
        case MacroFileResult::Outcome::kCodeChecksum:
            error = "checksum error in the macro code at line " + line;
            break;
        case MacroFileResult::Outcome::kEndsEarly:
            error = "the file ends early, behind line " + line;
            break;
    }
    return {};
}

std::vector<std::string> ProgramAsLines(const MacroMemory& program, std::string_view unit_type) {
    std::vector<std::string> texts;
    for (const Line& line : Lines(program, unit_type)) {
        texts.push_back(line.address + "  " + line.opcode + " " + line.second + "  " + line.text);
    }
    return texts;
}

std::string ProgramAsJson(const MacroMemory& program, std::string_view unit_type) {
    Json list = Json::array();
    for (const Line& line : Lines(program, unit_type)) {
        list.push_back({{"address", line.address},
                        {"opcode", line.opcode},
                        {"second", line.second},
                        {"text", line.text}});
    }
    return ToLine(list);
}

CheckedFile CheckedMacroFile(std::string_view content, std::string_view unit_type) {
    const std::vector<Finding> findings = CheckMacroFile(content, unit_type);
    CheckedFile checked;
    checked.good = findings.empty();
    checked.lines.push_back("kind: " + std::string(MacroFileKindText(KindOfMacroFile(content))));
    for (const Finding& finding : findings) {
        checked.lines.push_back("line " + std::to_string(finding.line) + ": " +
                                FromByteText(finding.text));
    }
    if (checked.good) checked.lines.push_back("no faults");
    return checked;
}

}  // namespace kestrane
