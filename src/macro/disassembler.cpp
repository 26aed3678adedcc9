#include "macro/disassembler.h"

#include <algorithm>

#include "macro/instruction_reader.h"
#include "macro/instruction_set.h"
#include "macro/trigger_statement.h"
#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

constexpr std::size_t kEnd = MacroProgram::kAddresses;

bool IsStop(const MacroMemory& image, std::size_t address) {
    return image.Get(2 * address) == 0 && image.Get(2 * address + 1) == 0;
}

// "All on" becomes "All_on"; nothing where no label comes of it.
std::string LabelOf(std::string_view name) {
    std::string label;
    for (const char c : name) {
        label += IsLabel(std::string("x") + c) ? c : '_';
    }
    while (label.ends_with('_')) label.pop_back();
    return IsLabel(label) ? label : std::string();
}

class Names {
  public:
    explicit Names(const MacroProgram& program);

    // The label to write for an operand; empty: none.
    std::string At(std::size_t address) const { return address < kEnd ? names_[address] : ""; }

  private:
    void Name(std::size_t address, std::string name);
    bool Taken(std::string_view name) const {
        return std::any_of(names_.begin(), names_.end(), [name](const std::string& each) {
            return UpperCase(each) == UpperCase(name);
        });
    }

    std::array<std::string, kEnd> names_;
};

Names::Names(const MacroProgram& program) {
    for (const auto& [name, address] : program.labels) {
        if (address < kEnd && names_[address].empty()) names_[address] = name;
    }
    for (const auto& trigger : program.triggers) {
        if (!trigger) continue;
        if (const auto address = HexPair(trigger->row.address)) {
            Name(*address, LabelOf(trigger->row.name));
        }
    }
    for (std::size_t address = kFirstMacroAddress; address < kEnd; ++address) {
        const Instruction* row = FindInstruction(program.image.Get(2 * address));
        if (row == nullptr || row->operand != Operand::kAddress) continue;
        Name(program.image.Get(2 * address + 1), {});
    }
}

// Only addresses that a jump may go to need a name.
void Names::Name(std::size_t address, std::string name) {
    if (address < kFirstMacroAddress || address > kLastJumpTarget || !names_[address].empty()) {
        return;
    }
    const std::string plain = address == kFirstMacroAddress
                                  ? "start"
                                  : "to_" + HexByte(static_cast<std::uint8_t>(address));
    if (name.empty() || Taken(name)) name = plain;
    while (Taken(name)) name += "_";
    names_[address] = name;
}

std::string Escaped(std::string_view name) {
    std::string text;
    for (const char c : name) {
        if (c == '"' || c == '\\') text += '\\';
        text += c;
    }
    return text;
}

// A row that source text can't hold becomes a remark, so that the program can still be assembled.
std::string TriggerText(std::size_t number, const TriggerRow& row, const Names& names) {
    const auto address = HexPair(row.address);
    const std::string label = address ? names.At(*address) : std::string();
    std::string line = "trigger " + std::to_string(number) + " \"" + Escaped(row.name) + "\" ";
    if (row.page != "0") line += "page " + row.page + " ";
    line += row.enabled ? "enabled " : "disabled ";
    line += label.empty() ? row.address : label;
    SourceLine source(line);
    const TriggerStatement read = ReadTriggerStatement(source);
    if (!read.faults.empty()) line = "; " + line + " ; " + read.faults.front().text;
    return FromByteText(line) + "\n";
}

std::string LineOf(const MacroMemory& image, std::size_t address, std::string_view unit_type,
                   std::string_view target = {}) {
    return "        " +
           InstructionSource(image.Get(2 * address), image.Get(2 * address + 1), unit_type,
                             target) +
           "\n";
}

// The stop that ends a run of instructions is written, those after it are not.
bool LeftOut(const MacroMemory& image, std::size_t address) {
    return address > kFirstMacroAddress && IsStop(image, address) && IsStop(image, address - 1);
}

}  // namespace

std::string Disassemble(const MacroProgram& program, std::string_view unit_type) {
    const Names names(program);
    std::string text;
    for (std::size_t i = 0; i < program.triggers.size(); ++i) {
        if (program.triggers[i]) text += TriggerText(i + 1, program.triggers[i]->row, names);
    }
    if (!text.empty()) text += "\n";
    std::size_t next = kFirstMacroAddress;
    for (std::size_t address = kFirstMacroAddress; address < kEnd; ++address) {
        const bool left_out = LeftOut(program.image, address);
        const std::string label = names.At(address);
        if (left_out && label.empty()) continue;
        if (address != next) text += "at " + HexByte(static_cast<std::uint8_t>(address)) + ":\n";
        next = address;
        if (!label.empty()) text += label + ":\n";
        if (left_out) continue;
        text +=
            LineOf(program.image, address, unit_type, names.At(program.image.Get(2 * address + 1)));
        ++next;
    }
    return text;
}

std::string DisassembleLines(const MacroMemory& image, std::uint8_t first, std::uint8_t last,
                             std::string_view unit_type) {
    std::string text;
    for (std::size_t address = first; address <= last; ++address) {
        text += LineOf(image, address, unit_type);
    }
    return text;
}

}  // namespace kestrane
