#include "macro/macro_check.h"

#include <algorithm>

#include "macro/instruction_set.h"
#include "macro/macro_flow.h"
#include "macro/program_text.h"
#include "macro/source_words.h"
#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

constexpr auto kError = Finding::Severity::kError;

std::string OperandFault(Operand operand) {
    switch (operand) {
        case Operand::kAddress:
            return "jump outside 10 to 7E";
        case Operand::kMask2:
            return "outlet mask with bits for outlets 15 and 16";
        case Operand::kAlarm:
            return "alarm status above 3";
        case Operand::kSupply:
            return "preferred supply outside 1 to 5";
        default:
            return "operand out of range";
    }
}

std::optional<Finding> CheckInstruction(const MacroProgram& program, std::size_t address,
                                        std::string_view unit_type) {
    const auto at = static_cast<std::uint8_t>(address);
    const std::uint8_t opcode = program.image.Opcode(at);
    const std::uint8_t second = program.image.SecondByte(at);
    const auto found = [&](std::string_view kind, std::string text) {
        return Finding{program.places[address], at, kError, kind, std::move(text)};
    };
    const Instruction* instruction = FindInstruction(opcode);
    if (instruction == nullptr) return found("opcode", "illegal opcode " + HexByte(opcode));
    if (!instruction->outlet.empty() && (opcode & 0x0F) >= kOutletCount) {
        return found("outlet", "no outlet" + Str((opcode & 0x0F) + 1));
    }
    if (OperandInRange(instruction->operand, second)) return std::nullopt;
    return found("operand", OperandFault(instruction->operand) + ": " + HexByte(opcode) + " " +
                                HexByte(second) + ", " +
                                Trim(CmdDecode(opcode, second, unit_type)));
}

void CheckInstructions(const MacroProgram& program, std::string_view unit_type,
                       std::vector<Finding>& findings) {
    for (std::size_t a = kFirstMacroAddress; a < MacroProgram::kAddresses; ++a) {
        if (auto finding = CheckInstruction(program, a, unit_type)) findings.push_back(*finding);
    }
}

std::string TriggerName(int row) { return "trigger" + Str(row + 1); }

// An enabled trigger must go to an address where a macro can begin.
std::optional<Finding> CheckTriggerAddress(int row, const TriggerRow& fields, SourcePlace place) {
    if (!fields.enabled) return std::nullopt;
    const auto address = HexPair(fields.address);
    if (address && OperandInRange(Operand::kAddress, *address)) return std::nullopt;
    return Finding{place,
                   std::nullopt,
                   kError,
                   "trigger",
                   TriggerName(row) + " is enabled and its address \"" +
                       FromByteText(fields.address) + "\" is not one from 10 to 7E",
                   row};
}

// The lines of a macro file, apart from what its bytes mean.
class LineChecker : public MacroLineVisitor {
  public:
    explicit LineChecker(std::vector<Finding>& findings) : findings_(findings) {}

    bool VisitByte(std::size_t /*index*/, std::string_view line, long number) override {
        if (!IsByte(line)) Add(number, "format", "the line is not two hexadecimal digits");
        return true;
    }
    bool VisitTrigger(int row, const TriggerLine& line, long number) override {
        const TriggerRow& fields = line.fields;
        if (!line.checksum_matches) {
            Add(number, "checksum",
                "checksum error in macro " + TriggerName(row) +
                    (fields.name.empty() ? ", which has no name" : ""));
            return true;
        }
        CheckPage(row, line, number);
        if (const auto fault = CheckTriggerAddress(row, fields, {number, 0})) {
            findings_.push_back(*fault);
        }
        if (line.state != "Enabled" && line.state != "Disabled") {
            Add(number, "trigger",
                "the state of " + TriggerName(row) + " is \"" + FromByteText(line.state) +
                    "\", neither Enabled nor Disabled");
        }
        return true;
    }
    bool VisitCode(std::size_t index, const CodeLine& line, MacroFileKind kind,
                   long number) override {
        const std::string expected = HexByte(static_cast<std::uint8_t>(index / 2));
        if (const auto address = HexPair(line.address); address && *address != index / 2) {
            Add(number, "order",
                "the line says address " + std::string(line.address) + ", but is loaded at " +
                    expected);
        }
        if (kind == MacroFileKind::kTriggersAndCode && !line.checksum_matches) {
            Add(number, "checksum", "checksum error in macro code");
        }
        if (!IsByte(line.opcode) || !IsByte(line.second_byte)) {
            Add(number, "format", "columns 4 to 8 are not two bytes of two hexadecimal digits");
        }
        return true;
    }

  private:
    // As the reader takes them: digits in lower case count 0.
    static bool IsByte(std::string_view text) {
        return HexPair(text).has_value() && UpperCase(text) == text;
    }
    void CheckPage(int row, const TriggerLine& line, long number) {
        const std::string& page = line.fields.page;
        if (page == " " || page.empty()) {
            Add(number, "trigger",
                TriggerName(row) + " has no page, so that its address and state are read wrong");
        } else if (line.after_page != " " || page[0] < '0' || page[0] > '9') {
            Add(number, "trigger",
                TriggerName(row) + " has a page that is not a number from 0 to 9");
        }
    }
    void Add(long line, std::string_view kind, std::string text) {
        findings_.push_back({{line, 0}, std::nullopt, kError, kind, std::move(text)});
    }

    std::vector<Finding>& findings_;
};

void SortByLine(std::vector<Finding>& findings) {
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return std::pair(a.place.line, a.place.column) < std::pair(b.place.line, b.place.column);
    });
}

void CheckFile(std::string_view content, const ProgramText& text, std::string_view unit_type,
               std::vector<Finding>& findings) {
    LineChecker checker(findings);
    const WalkResult walk = WalkMacroFile(content, checker);
    // Unlike the loaded program this one has all lines, those of a wrong checksum too.
    MacroProgram program = text.Good() ? text.program : ProgramWithoutChecksums(content);
    for (std::size_t a = kFirstMacroAddress; a < MacroProgram::kAddresses; ++a) {
        if (program.places[a].line == 0) continue;
        if (auto finding = CheckInstruction(program, a, unit_type)) findings.push_back(*finding);
    }
    if (walk.end == WalkResult::End::kLinesMissing) {
        findings.push_back(
            {{walk.lines_read + 1, 0}, std::nullopt, kError, "end", "the file ends early"});
    }
}

}  // namespace

std::vector<Finding> CheckProgram(const MacroProgram& program, std::string_view unit_type) {
    std::vector<Finding> findings;
    CheckInstructions(program, unit_type, findings);
    for (int row = 0; row < kTriggerRows; ++row) {
        const auto& trigger = program.triggers[static_cast<std::size_t>(row)];
        if (!trigger) continue;
        if (auto fault = CheckTriggerAddress(row, trigger->row, trigger->place)) {
            findings.push_back(*fault);
        }
    }
    for (Finding& finding : CheckFlow(program)) findings.push_back(std::move(finding));
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return a.address.value_or(0) < b.address.value_or(0);
    });
    return findings;
}

std::vector<Finding> CheckMacroText(std::string_view content, std::string_view unit_type) {
    const ProgramText text = ReadProgramText(content);
    std::vector<Finding> findings;
    if (text.kind) {
        CheckFile(content, text, unit_type, findings);
        if (text.Good()) {
            for (Finding& finding : CheckFlow(text.program)) findings.push_back(std::move(finding));
        }
    } else if (text.Good()) {
        findings = CheckProgram(text.program, unit_type);
    } else {
        for (const SourceFault& fault : text.faults) {
            if (fault.is_warning) continue;
            findings.push_back({fault.place, std::nullopt, kError, "source", fault.text});
        }
    }
    SortByLine(findings);
    return findings;
}

std::string FindingLine(const Finding& finding) {
    std::string line = "line " + std::to_string(finding.place.line);
    if (finding.place.column > 0) line += ", column " + std::to_string(finding.place.column);
    if (finding.IsWarning()) line += ": warning";
    if (finding.address) line += ": address " + HexByte(*finding.address);
    return line + ": " + finding.text;
}

}  // namespace kestrane
