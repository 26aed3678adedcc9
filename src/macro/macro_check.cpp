#include "macro/macro_check.h"

#include "macro/instruction_set.h"
#include "macro/macro_memory.h"
#include "text/text.h"

namespace kestrane {
namespace {

bool IsHexByte(std::string_view text) {
    return text.size() == 2 && text.find_first_not_of("0123456789ABCDEF") == std::string_view::npos;
}

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

class Checker : public MacroLineVisitor {
  public:
    Checker(std::string_view unit_type, std::vector<Finding>& findings)
        : unit_type_(unit_type), findings_(findings) {}

    bool VisitByte(std::size_t index, std::string_view line, long number) override {
        const bool in_program = index >= MacroMemory::kProgramBegin;
        if (!IsHexByte(line)) Add(number, "no byte of two hexadecimal digits");
        if (index % 2 == 0) {
            opcode_ = HexValue(line);
            if (in_program) CheckOpcode(index, number);
        } else if (in_program) {
            CheckOperand(index - 1, HexValue(line), number);
        }
        return true;
    }

    bool VisitTrigger(int row, const TriggerLine& line, long number) override {
        if (line.checksum_matches) return true;
        std::string text = "checksum error in macro trigger" + Str(row + 1);
        if (line.fields.name.empty()) text += ", which has no name";
        Add(number, text);
        return true;
    }

    bool VisitCode(std::size_t index, const CodeLine& line, MacroFileKind kind,
                   long number) override {
        if (kind == MacroFileKind::kTriggersAndCode && !line.checksum_matches) {
            Add(number, "checksum error in macro code");
        }
        if (!IsHexByte(line.opcode) || !IsHexByte(line.second_byte)) {
            Add(number, "no two bytes of two hexadecimal digits in columns 4 to 8");
        }
        opcode_ = HexValue(line.opcode);
        CheckOpcode(index, number);
        CheckOperand(index, HexValue(line.second_byte), number);
        return true;
    }

  private:
    void CheckOpcode(std::size_t index, long number) {
        const Instruction* instruction = FindInstruction(opcode_);
        if (instruction == nullptr) {
            Add(number, At(index) + "illegal opcode " + HexByte(opcode_));
        } else if (!instruction->outlet.empty() && (opcode_ & 0x0F) >= kOutletCount) {
            Add(number, At(index) + "no outlet" + Str((opcode_ & 0x0F) + 1));
        }
    }

    void CheckOperand(std::size_t index, std::uint8_t value, long number) {
        const Instruction* instruction = FindInstruction(opcode_);
        if (instruction == nullptr || OperandInRange(instruction->operand, value)) return;
        Add(number, At(index) + OperandFault(instruction->operand) + ": " + HexByte(opcode_) + " " +
                        HexByte(value) + ", " + Trim(CmdDecode(opcode_, value, unit_type_)));
    }

    static std::string At(std::size_t index) {
        return "address " + HexByte(static_cast<std::uint8_t>(index / 2)) + ": ";
    }

    void Add(long line, std::string text) { findings_.push_back({line, std::move(text)}); }

    std::string_view unit_type_;
    std::vector<Finding>& findings_;
    std::uint8_t opcode_ = 0;
};

}  // namespace

std::vector<Finding> CheckMacroFile(std::string_view content, std::string_view unit_type) {
    std::vector<Finding> findings;
    Checker checker(unit_type, findings);
    const WalkResult walk = WalkMacroFile(content, checker);
    if (walk.end == WalkResult::End::kLinesMissing) {
        findings.push_back({walk.lines_read + 1, "the file ends early"});
    }
    return findings;
}

std::string_view MacroFileKindText(MacroFileKind kind) {
    switch (kind) {
        case MacroFileKind::kBytes:
            return "bytes, one a line";
        case MacroFileKind::kCode:
            return "macro code without triggers or checksums";
        case MacroFileKind::kTriggersAndCode:
            return "macro triggers and code";
    }
    return {};
}

}  // namespace kestrane
