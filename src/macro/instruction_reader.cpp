#include "macro/instruction_reader.h"

#include <algorithm>
#include <cmath>

#include "macro/instruction_set.h"
#include "macro/time_code.h"
#include "text/text.h"

namespace kestrane {
namespace {

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool IsDigits(std::string_view word) {
    return !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string Quoted(std::string_view word) { return "\"" + std::string(word) + "\""; }

// One way to read the text. Each step moves on and is true, or leaves a fault and is false.
class Attempt {
  public:
    explicit Attempt(std::string_view text) : text_(text) {}

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

// A run of blanks in the pattern stands for any run of blanks in the text.
bool Attempt::Literal(std::string_view pattern) {
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

bool Attempt::Mismatch(std::string_view pattern, std::size_t in_pattern) {
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

bool Attempt::End() {
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

bool Attempt::Number(int least, int most, std::string_view what, std::uint8_t& value) {
    const std::string_view word = Word();
    const long number = IsDigits(word) ? std::lround(std::min(Val(word), 1e6)) : -1;
    if (number < least || number > most) {
        return FailOperand(
            (word.empty() ? "a number is missing" : Quoted(word) + " is wrong here") +
            std::string(", ") + std::string(what) + " is a number from " + std::to_string(least) +
            " to " + std::to_string(most));
    }
    value = static_cast<std::uint8_t>(number);
    at_ += word.size();
    return true;
}

bool Attempt::Time() {
    const std::string_view word = Word();
    const ExactTime time = ExactTimeCode(word);
    if (!time.code) {
        return FailOperand((word.empty() ? "a time is missing" : Quoted(word)) + ": " +
                           time.why_not);
    }
    result_.second = *time.code;
    at_ += word.size();
    return true;
}

bool Attempt::HexByteWord(std::uint8_t& value) {
    const auto byte = HexPair(Word());
    if (!byte) return FailOperand("two hexadecimal digits are expected here");
    value = *byte;
    at_ += 2;
    return true;
}

bool Attempt::Address() {
    const std::string_view word = Word();
    if (const auto byte = HexPair(word)) {
        if (!OperandInRange(kestrane::Operand::kAddress, *byte)) {
            return FailOperand("address " + std::string(word) +
                               " is out of range, addresses to go to are 10 to 7E");
        }
        result_.second = *byte;
    } else if (word == "." || IsLabel(word)) {
        result_.label = word;
        result_.label_at = at_;
    } else {
        return FailOperand((word.empty() ? "an address is missing" : Quoted(word)) +
                           ": an address is a label, two hexadecimal digits, or \".\"");
    }
    at_ += word.size();
    return true;
}

// "1 - 3", "1 3": a hyphen only separates.
bool Attempt::Mask(int group) {
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
            return FailOperand(Quoted(item) + " is not in this list, which takes " +
                               std::to_string(first) + " to " + std::to_string(last));
        }
        mask |= 1u << (number - first);
        at_ += item.size();
    }
    result_.second = static_cast<std::uint8_t>(mask);
    return true;
}

bool Attempt::Choice(kestrane::Operand operand) {
    const int first = FirstNamed(operand);
    const auto names = OperandNames(operand);
    std::string all;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::size_t start = at_;
        if (Literal(names[i]) && End()) {
            result_.second = static_cast<std::uint8_t>(static_cast<int>(i) + first);
            return true;
        }
        result_.fault.reset();
        at_ = start;
        all += (all.empty() ? "" : ", ") + Quoted(names[i]);
    }
    const std::string_view word = Word();
    const int last = first + static_cast<int>(names.size()) - 1;
    if (IsDigits(word)) return Number(first, last, "the operand", result_.second);
    return FailOperand("one of " + all + " is expected here");
}

bool Attempt::Operand(const Instruction& row) {
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

// A list ends at its bracket, whether a blank stands before that or not.
std::string_view WithoutLeadingBlank(std::string_view text) {
    return text.starts_with(' ') ? text.substr(1) : text;
}

bool TryText(Attempt& attempt, const Instruction& row, std::string_view before) {
    ReadInstruction& result = attempt.result();
    result.opcode = row.opcode;
    if (!row.outlet.empty()) {
        std::uint8_t outlet = 0;
        if (!attempt.Literal(row.outlet) || !attempt.Number(1, kOutletCount, "an outlet", outlet)) {
            return false;
        }
        result.opcode = OutletOpcode(row.effect, outlet);
    }
    const bool list = row.operand == Operand::kMask1 || row.operand == Operand::kMask2;
    return attempt.Literal(before) && (row.hides_operand || attempt.Operand(row)) &&
           attempt.Literal(list ? WithoutLeadingBlank(row.after) : row.after) && attempt.End();
}

bool TryButton(Attempt& attempt, const Instruction& row, std::string_view caption) {
    attempt.result().opcode = row.opcode;
    if (!attempt.Literal(caption)) return false;
    if (row.operand == Operand::kNone || row.operand == Operand::kFree) return attempt.End();
    const bool list = row.operand == Operand::kMask1 || row.operand == Operand::kMask2;
    return attempt.Literal(list ? " (" : " ") && attempt.Operand(row) &&
           attempt.Literal(list ? ")" : "") && attempt.End();
}

// "ON 2 0.5": the row that skips the delay, or with ALWAYS the one that does not.
bool TryShort(Attempt& attempt, bool on) {
    std::uint8_t outlet = 0;
    if (!attempt.Literal(on ? "ON " : "OFF ") ||
        !attempt.Number(1, kOutletCount, "an outlet", outlet) || !attempt.Literal(" ") ||
        !attempt.Time()) {
        return false;
    }
    const bool always = attempt.MoreWords();
    if (always && !attempt.Literal(" ALWAYS")) return false;
    const Effect fixed = on ? Effect::kTurnsOn : Effect::kTurnsOff;
    const Effect skips = on ? Effect::kTurnsOnOrSkips : Effect::kTurnsOffOrSkips;
    attempt.result().opcode = OutletOpcode(always ? fixed : skips, outlet);
    return attempt.End();
}

bool TryBytes(Attempt& attempt) {
    ReadInstruction& result = attempt.result();
    return attempt.Literal("BYTES ") && attempt.HexByteWord(result.opcode) &&
           attempt.Literal(" ") && attempt.HexByteWord(result.second) && attempt.End();
}

// Keeps the attempt that came farthest; at the same place one that understood all but an operand.
class Best {
  public:
    explicit Best(std::string_view text) : text_(text) {}

    template <typename Try>
    bool Succeeds(Try&& try_it) {
        Attempt attempt(text_);
        const bool good = try_it(attempt);
        const std::size_t at = good ? 0 : attempt.result().fault->at;
        const auto rank = std::pair(at, attempt.operand_at_fault());
        if (good || !found_ || rank > rank_) {
            found_ = true;
            rank_ = rank;
            result_ = attempt.result();
        }
        return good;
    }
    const ReadInstruction& result() const { return result_; }

  private:
    std::string_view text_;
    bool found_ = false;
    std::pair<std::size_t, bool> rank_;
    ReadInstruction result_;
};

// A text with another first letter need not be tried: it would be at fault there.
bool BeginsLike(std::string_view pattern, std::string_view text) {
    return !pattern.empty() && !text.empty() && Upper(pattern[0]) == Upper(text[0]);
}

bool TryRow(Best& best, const Instruction& row, std::string_view text) {
    for (const std::string_view before : {row.before, row.other_before}) {
        if (!BeginsLike(row.outlet.empty() ? before : row.outlet, text)) continue;
        if (best.Succeeds([&](Attempt& attempt) { return TryText(attempt, row, before); })) {
            return true;
        }
    }
    for (const std::string_view caption : {row.button, row.other_button}) {
        if (!BeginsLike(caption, text)) continue;
        if (best.Succeeds([&](Attempt& attempt) { return TryButton(attempt, row, caption); })) {
            return true;
        }
    }
    return false;
}

std::string SingleBlanks(std::string_view text) {
    std::string single;
    for (const char c : text) {
        if (c != ' ' || !single.ends_with(' ')) single += c;
    }
    return single;
}

}  // namespace

std::optional<std::uint8_t> HexPair(std::string_view word) {
    if (word.size() != 2 ||
        word.find_first_not_of("0123456789ABCDEFabcdef") != std::string_view::npos) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(HexNumber(word));
}

bool IsLabel(std::string_view word) {
    const auto wrong = [](char c) {
        return !(Upper(c) >= 'A' && Upper(c) <= 'Z') && !(c >= '0' && c <= '9') && c != '_';
    };
    return !word.empty() && std::none_of(word.begin(), word.end(), wrong) &&
           !(word[0] >= '0' && word[0] <= '9') && !HexPair(word);
}

ReadInstruction ReadInstructionText(std::string_view text) {
    Best best(text);
    for (const bool on : {true, false}) {
        if (best.Succeeds([on](Attempt& attempt) { return TryShort(attempt, on); })) {
            return best.result();
        }
    }
    if (best.Succeeds([](Attempt& attempt) { return TryBytes(attempt); })) return best.result();
    for (const Instruction& row : InstructionSet()) {
        if (TryRow(best, row, text)) return best.result();
    }
    ReadInstruction result = best.result();
    if (result.fault->at == 0) {
        const std::string_view word = text.substr(0, text.find_first_of(" \t"));
        result.fault->text = Quoted(word) +
                             " does not begin an instruction; write its text or the caption of "
                             "its button, or ON, OFF or BYTES";
    }
    return result;
}

std::string InstructionSource(std::uint8_t opcode, std::uint8_t second, std::string_view unit_type,
                              std::string_view target) {
    std::string text = SingleBlanks(CmdDecode(opcode, second, unit_type));
    const bool trailing = !text.empty() && text.back() == ' ';
    const ReadInstruction read = trailing ? ReadInstruction{} : ReadInstructionText(text);
    if (trailing || read.fault || read.opcode != opcode || read.second != second) {
        return "BYTES " + HexByte(opcode) + " " + HexByte(second);
    }
    if (!target.empty() && FindInstruction(opcode)->operand == Operand::kAddress) {
        text.replace(text.size() - 2, 2, target);
    }
    return text;
}

}  // namespace kestrane
