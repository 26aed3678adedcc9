#include "macro/assembler.h"

#include <algorithm>

#include "macro/instruction_reader.h"
#include "macro/instruction_set.h"
#include "macro/source_line.h"
#include "macro/trigger_statement.h"
#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

constexpr std::size_t kLastAddress = MacroProgram::kAddresses - 1;

std::string QuotedBytes(std::string_view bytes) { return Quoted(FromByteText(bytes)); }

std::string Hex(std::size_t address) { return HexByte(static_cast<std::uint8_t>(address)); }

class Assembler {
  public:
    explicit Assembler(std::uint8_t first) : next_(first) {}

    Assembly Run(std::string_view source);

  private:
    struct Use {  // of a label
        SourcePlace place;
        std::string name;
        std::size_t address = 0;  // of the instruction
        int trigger = -1;         // or of a trigger, its row
    };
    struct Label {
        std::string name;
        std::size_t address;
        long line;
    };

    SourcePlace Place(std::size_t at) const { return {line_, static_cast<int>(at) + 1}; }
    void Fault(std::size_t at, std::string text) { Fault(Place(at), std::move(text)); }
    void Fault(SourcePlace place, std::string text, bool is_warning = false) {
        assembly_.faults.push_back({place, std::move(text), is_warning});
    }

    void ReadLine(std::string_view utf8);
    void ReadStatement(SourceLine& line);
    bool ReadAt(SourceLine& line);
    bool ReadLabel(SourceLine& line);
    void ReadTrigger(SourceLine& line);
    void ReadInstruction(SourceLine& line);
    void Store(std::uint8_t opcode, std::uint8_t second, std::size_t at);
    void Resolve(const Use& use);
    void Finish();

    Assembly assembly_;
    long line_ = 0;
    std::size_t next_;
    bool full_told_ = false;
    bool anything_ = false;
    std::vector<Label> labels_;  // by upper-case name
    std::vector<Use> uses_;
};

Assembly Assembler::Run(std::string_view source) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (source.starts_with(kByteOrderMark)) source.remove_prefix(kByteOrderMark.size());
    LineReader lines(source);
    while (const auto line = lines.Next()) {
        line_ = lines.number();
        ReadLine(*line);
    }
    for (const Use& use : uses_) Resolve(use);
    Finish();
    return std::move(assembly_);
}

void Assembler::ReadLine(std::string_view utf8) {
    std::size_t at = 0;
    std::string why;
    auto text = SourceLine::Statement(utf8, at, why);
    if (!text) {
        anything_ = true;
        return Fault(at, why);
    }
    SourceLine line(std::move(*text));
    anything_ = anything_ || !line.AtEnd();
    while (ReadAt(line) || ReadLabel(line)) {
    }
    ReadStatement(line);
}

void Assembler::ReadStatement(SourceLine& line) {
    if (line.AtEnd()) return;
    if (UpperCase(line.Word()) == "TRIGGER") return ReadTrigger(line);
    ReadInstruction(line);
}

// "at 40:"; true if the line goes on after it.
bool Assembler::ReadAt(SourceLine& line) {
    if (UpperCase(line.Word(":")) != "AT") return false;
    SourceLine ahead = line;
    ahead.Skip(2);
    if (ahead.Next() == ':') return false;  // a label of this name
    line = ahead;
    const std::string_view word = line.Word(":");
    const auto address = HexPair(word);
    if (!address || *address < kFirstMacroAddress || *address > kLastAddress) {
        Fault(line.at(),
              (word.empty() ? "an address is missing" : QuotedBytes(word) + " is wrong here") +
                  ", \"at\" takes two hexadecimal digits from 10 to 7F");
        line.Skip(line.Rest().size());
        return false;
    }
    line.Skip(2);
    if (line.Next() != ':') {
        Fault(line.at(), "\":\" is expected after the address");
        line.Skip(line.Rest().size());
        return false;
    }
    line.Skip(1);
    next_ = *address;
    full_told_ = false;
    return true;
}

bool Assembler::ReadLabel(SourceLine& line) {
    const std::string name(line.Word(":"));
    SourceLine ahead = line;
    ahead.Skip(name.size());
    if (ahead.Next() != ':') return false;
    const std::size_t at = line.at();
    ahead.Skip(1);
    line = ahead;
    if (!IsLabel(name)) {
        Fault(at, QuotedBytes(name) +
                      " is not a label: letters, digits and \"_\", no digit first, and " +
                      "not two hexadecimal digits");
        return true;
    }
    const auto same = std::find_if(labels_.begin(), labels_.end(),
                                   [&](const Label& each) { return each.name == UpperCase(name); });
    if (same != labels_.end()) {
        Fault(at, "label " + name + " stands in line " + std::to_string(same->line) +
                      " already; give this one another name");
        return true;
    }
    labels_.push_back({UpperCase(name), next_, line_});
    assembly_.program.labels[name] = static_cast<std::uint8_t>(next_);
    return true;
}

void Assembler::ReadTrigger(SourceLine& line) {
    const SourcePlace place = Place(line.at());
    const TriggerStatement read = ReadTriggerStatement(line);
    for (const TextFault& fault : read.faults) Fault(fault.at, FromByteText(fault.text));
    if (!read.label.empty()) uses_.push_back({Place(read.label_at), read.label, 0, read.row});
    if (read.row < 0) return;
    auto& trigger = assembly_.program.triggers[static_cast<std::size_t>(read.row)];
    if (trigger) {
        return Fault(read.number_at, "trigger " + std::to_string(read.row + 1) +
                                         " stands in line " + std::to_string(trigger->place.line) +
                                         " already");
    }
    trigger = {read.fields, place};
}

void Assembler::ReadInstruction(SourceLine& line) {
    const kestrane::ReadInstruction read = ReadInstructionText(line.Rest());
    const std::size_t at = line.at();
    for (const TextFault& fault : read.faults) Fault(at + fault.at, FromByteText(fault.text));
    if (read.label == ".") {
        if (next_ > kLastJumpTarget) Fault(at + read.label_at, "a jump does not reach beyond 7E");
    } else if (!read.label.empty()) {
        uses_.push_back({Place(at + read.label_at), read.label, next_, -1});
    }
    Store(read.opcode, read.label == "." ? static_cast<std::uint8_t>(next_) : read.second, at);
}

void Assembler::Store(std::uint8_t opcode, std::uint8_t second, std::size_t at) {
    MacroProgram& program = assembly_.program;
    if (next_ > kLastAddress) {
        if (!full_told_) Fault(at, "the program is full, its last address is 7F");
        full_told_ = true;
        return;
    }
    if (program.programmed.test(next_)) {
        Fault(at, "address " + Hex(next_) + " is filled by line " +
                      std::to_string(program.places[next_].line) +
                      " already; go on at a free address with \"at\"");
    } else {
        program.programmed.set(next_);
        program.places[next_] = Place(at);
        program.image.Set(2 * next_, opcode);
        program.image.Set(2 * next_ + 1, second);
    }
    ++next_;
}

void Assembler::Resolve(const Use& use) {
    const auto label = std::find_if(labels_.begin(), labels_.end(), [&](const Label& each) {
        return each.name == UpperCase(use.name);
    });
    if (label == labels_.end()) {
        return Fault(use.place, "label " + use.name + " is not defined; write \"" + use.name +
                                    ":\" before an instruction");
    }
    if (label->address > kLastJumpTarget) {
        return Fault(use.place,
                     "label " + use.name + " is beyond 7E, which is as far as a jump " + "reaches");
    }
    if (use.trigger >= 0) {
        auto& trigger = assembly_.program.triggers[static_cast<std::size_t>(use.trigger)];
        if (trigger) trigger->row.address = Hex(label->address);
    } else if (use.address <= kLastAddress &&
               assembly_.program.places[use.address].line == use.place.line) {
        assembly_.program.image.Set(2 * use.address + 1, static_cast<std::uint8_t>(label->address));
    }
}

void Assembler::Finish() {
    const MacroProgram& program = assembly_.program;
    if (!anything_) {
        Fault(SourcePlace{1, 1}, "nothing stands here; a program has an instruction at least");
    }
    if (program.programmed.test(kLastAddress) && program.image.Get(2 * kLastAddress + 1) != 0) {
        Fault(program.places[kLastAddress],
              "an upload clears the second byte at 7F, so that this operand does not reach the "
              "unit; put the instruction at a lower address",
              true);
    }
    std::stable_sort(assembly_.faults.begin(), assembly_.faults.end(),
                     [](const SourceFault& a, const SourceFault& b) {
                         return std::pair(a.place.line, a.place.column) <
                                std::pair(b.place.line, b.place.column);
                     });
}

}  // namespace

bool Assembly::Good() const {
    return std::all_of(faults.begin(), faults.end(),
                       [](const SourceFault& fault) { return fault.is_warning; });
}

Assembly Assemble(std::string_view source, std::uint8_t first) {
    return Assembler(first).Run(source);
}

}  // namespace kestrane
