#include "macro/instruction_attempt.h"

#include <algorithm>
#include <cmath>

#include "macro/time_code.h"
#include "text/text.h"

namespace kestrane {
namespace {

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool IsDigits(std::string_view word) {
    return !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

// A run of blanks in the pattern stands for any run of blanks in the text.
bool InstructionAttempt::Literal(std::string_view pattern) {
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != ' ') {
            if (at_ == text_.size() || Upper(text_[at_]) != Upper(pattern[i])) {
                return Mismatch(pattern, i);
            }
            ++at_;
        } else if (i == 0 || pattern[i - 1] != ' ') {
            if (at_ == text_.size() || !IsBlank(text_[at_])) return Mismatch(pattern, i);
            SkipBlanks();
        }
    }
    return true;
}

bool InstructionAttempt::Mismatch(std::string_view pattern, std::size_t in_pattern) {
    // A text that only ends too early lacks a word; any other mismatch is in the word around it.
    std::size_t at = at_;
    if (at < text_.size() || pattern[in_pattern] != ' ') {
        while (at > 0 && !IsBlank(text_[at - 1])) --at;
    }
    std::size_t begin = in_pattern;
    if (pattern[begin] == ' ' && at == text_.size()) ++begin;
    while (begin > 0 && pattern[begin - 1] != ' ') --begin;
    const std::string_view right = pattern.substr(begin, pattern.find(' ', begin) - begin);
    if (right.empty()) return Fail(at, "an operand is missing");
    return Fail(at, Quoted(right) + " is expected here");
}

bool InstructionAttempt::End() {
    if (at_ == text_.size()) return true;
    std::size_t at = at_;
    if (IsBlank(text_[at])) {
        SkipBlanks();
        return Fail(at_, Quoted(Word()) + " is too much, the instruction ends before it");
    }
    while (at > 0 && !IsBlank(text_[at - 1])) --at;
    at_ = at;
    return Fail(at, Quoted(Word()) + " is not a word of an instruction");
}

bool InstructionAttempt::Number(int least, int most, std::string_view what, std::uint8_t& value) {
    const std::string_view word = Word();
    const long number = IsDigits(word) ? std::lround(std::min(Val(word), 1e6)) : -1;
    if (number < least || number > most) {
        return FailWord(word,
                        (word.empty() ? "a number is missing" : Quoted(word) + " is wrong here") +
                            std::string(", ") + std::string(what) + " is a number from " +
                            std::to_string(least) + " to " + std::to_string(most));
    }
    value = static_cast<std::uint8_t>(number);
    at_ += word.size();
    return true;
}

bool InstructionAttempt::Time() {
    const std::string_view word = Word();
    const ExactTime time = ExactTimeCode(word);
    if (!time.code) {
        return FailWord(word,
                        (word.empty() ? "a time is missing" : Quoted(word)) + ": " + time.why_not);
    }
    result_.second = *time.code;
    at_ += word.size();
    return true;
}

bool InstructionAttempt::HexByteWord(std::uint8_t& value) {
    const std::string_view word = Word();
    const auto byte = HexPair(word);
    if (!byte) return FailWord(word, "two hexadecimal digits are expected here");
    value = *byte;
    at_ += 2;
    return true;
}

bool InstructionAttempt::Address() {
    const std::string_view word = Word();
    if (const auto byte = HexPair(word)) {
        if (!OperandInRange(kestrane::Operand::kAddress, *byte)) {
            return FailWord(word, "address " + std::string(word) +
                                      " is out of range, addresses to go to are 10 to 7E");
        }
        result_.second = *byte;
    } else if (word == "." || IsLabel(word)) {
        result_.label = word;
        result_.label_at = at_;
    } else {
        return FailWord(word, (word.empty() ? "an address is missing" : Quoted(word)) +
                                  ": an address is a label, two hexadecimal digits, or \".\"");
    }
    at_ += word.size();
    return true;
}

// "1 - 3", "1 3": a hyphen only separates.
bool InstructionAttempt::Mask(int group) {
    const int first = group == 1 ? 1 : 9;
    const int last = group == 1 ? 8 : kOutletCount;
    unsigned mask = 0;
    while (true) {
        while (at_ < text_.size() && (IsBlank(text_[at_]) || text_[at_] == '-')) ++at_;
        if (at_ == text_.size()) return FailOperand("\")\" is missing");
        if (text_[at_] == ')') break;
        const std::string_view rest = text_.substr(at_);
        const std::string_view item = rest.substr(0, rest.find_first_of(" \t-)"));
        const long number = IsDigits(item) ? std::lround(std::min(Val(item), 1e6)) : -1;
        if (number < first || number > last) {
            FailWord(item, Quoted(item) + " is not in this list, which takes " +
                               std::to_string(first) + " to " + std::to_string(last));
            continue;
        }
        mask |= 1u << (number - first);
        at_ += item.size();
    }
    result_.second = static_cast<std::uint8_t>(mask);
    return true;
}

bool InstructionAttempt::Choice(kestrane::Operand operand) {
    const int first = FirstNamed(operand);
    const auto names = OperandNames(operand);
    std::string all;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::size_t start = at_;
        if (Literal(names[i]) && End()) {
            result_.second = static_cast<std::uint8_t>(static_cast<int>(i) + first);
            return true;
        }
        result_.faults.clear();
        at_ = start;
        all += (all.empty() ? "" : ", ") + Quoted(names[i]);
    }
    const std::string_view word = Word();
    const int last = first + static_cast<int>(names.size()) - 1;
    if (IsDigits(word)) return Number(first, last, "the operand", result_.second);
    return FailOperand("one of " + all + " is expected here");
}

bool InstructionAttempt::Operand(const Instruction& row) {
    switch (row.operand) {
        case kestrane::Operand::kNone:
        case kestrane::Operand::kFree:
            return true;
        case kestrane::Operand::kAddress:
            return Address();
        case kestrane::Operand::kTime:
            return Time();
        case kestrane::Operand::kCount:
            return Number(0, 255, "the operand", result_.second);
        case kestrane::Operand::kMask1:
        case kestrane::Operand::kMask2:
            return Mask(MaskGroup(row.opcode));
        case kestrane::Operand::kAlarm:
        case kestrane::Operand::kSupply:
            return Choice(row.operand);
    }
    return true;
}

}  // namespace kestrane
