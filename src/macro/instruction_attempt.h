#pragma once

// One way to read the text of an instruction: words that must stand there, and operands. Each step
// moves on and is true, or leaves a fault and is false where nothing can be read after it: a wrong
// operand is passed over, so that the faults after it are told, too. Positions count from 0.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "macro/instruction_reader.h"
#include "macro/instruction_set.h"

namespace kestrane {

class InstructionAttempt {
  public:
    explicit InstructionAttempt(std::string_view text) : text_(text) {}

    bool Literal(std::string_view pattern);
    bool End();
    bool Number(int least, int most, std::string_view what, std::uint8_t& value);
    bool Operand(const Instruction& row);
    bool Time();
    bool HexByteWord(std::uint8_t& value);

    // Whether a word follows after a blank.
    bool MoreWords() const { return at_ < text_.size(); }

    ReadInstruction& result() { return result_; }
    // Whether the first fault is an operand's: all before it was understood.
    bool operand_at_fault() const { return operand_at_fault_; }

  private:
    void SkipBlanks() {
        while (at_ < text_.size() && IsBlank(text_[at_])) ++at_;
    }
    std::string_view Word() const {
        std::size_t end = at_;
        while (end < text_.size() && !IsBlank(text_[end])) ++end;
        return text_.substr(at_, end - at_);
    }
    // A word has one fault, its first.
    bool Fail(std::size_t at, std::string text) {
        if (result_.faults.empty() || result_.faults.back().at < at) {
            result_.faults.push_back({at, std::move(text)});
        }
        return false;
    }
    bool FailOperand(std::string text) {
        operand_at_fault_ = operand_at_fault_ || result_.faults.empty();
        return Fail(at_, std::move(text));
    }
    // Passes over a wrong operand; false if none stands here.
    bool FailWord(std::string_view word, std::string text) {
        FailOperand(std::move(text));
        at_ += word.size();
        return !word.empty();
    }
    bool Mismatch(std::string_view pattern, std::size_t in_pattern);
    bool Address();
    bool Mask(int group);
    bool Choice(kestrane::Operand operand);

    std::string_view text_;
    std::size_t at_ = 0;
    ReadInstruction result_;
    bool operand_at_fault_ = false;
};

}  // namespace kestrane
