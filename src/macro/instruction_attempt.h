#pragma once

// One way to read the text of an instruction: words that must stand there, and operands. Each step
// moves on and is true, or leaves a fault and is false. Positions count from 0.

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
    bool Fail(std::size_t at, std::string text) {
        result_.fault = TextFault{at, std::move(text)};
        return false;
    }
    bool FailOperand(std::string text) {
        operand_at_fault_ = true;
        return Fail(at_, std::move(text));
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
