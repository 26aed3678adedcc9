#include "macro/instruction_reader.h"

#include <iterator>
#include <tuple>
#include <utility>

#include "macro/instruction_attempt.h"
#include "macro/instruction_set.h"
#include "text/text.h"

namespace kestrane {
namespace {

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// A list ends at its bracket, whether a blank stands before that or not.
std::string_view WithoutLeadingBlank(std::string_view text) {
    return text.starts_with(' ') ? text.substr(1) : text;
}

bool TryText(InstructionAttempt& attempt, const Instruction& row, std::string_view before) {
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

bool TryButton(InstructionAttempt& attempt, const Instruction& row, std::string_view caption) {
    attempt.result().opcode = row.opcode;
    if (!attempt.Literal(caption)) return false;
    if (row.operand == Operand::kNone || row.operand == Operand::kFree) return attempt.End();
    const bool list = row.operand == Operand::kMask1 || row.operand == Operand::kMask2;
    return attempt.Literal(list ? " (" : " ") && attempt.Operand(row) &&
           attempt.Literal(list ? ")" : "") && attempt.End();
}

// "ON 2 0.5": the row that skips the delay, or with ALWAYS the one that does not.
bool TryShort(InstructionAttempt& attempt, bool on) {
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

bool TryBytes(InstructionAttempt& attempt) {
    ReadInstruction& result = attempt.result();
    return attempt.Literal("BYTES ") && attempt.HexByteWord(result.opcode) &&
           attempt.Literal(" ") && attempt.HexByteWord(result.second) && attempt.End();
}

// Keeps the attempt whose first fault stands farthest, at the same place one that understood all
// but an operand; of these the one that came farthest with the fewest faults.
class Best {
  public:
    explicit Best(std::string_view text) : text_(text) {}

    template <typename Try>
    bool Succeeds(Try&& try_it) {
        InstructionAttempt attempt(text_);
        const bool whole = try_it(attempt);
        const auto& faults = attempt.result().faults;
        const bool good = faults.empty();
        const Rank rank =
            good ? Rank{}
                 : Rank{faults.front().at, attempt.operand_at_fault(),
                        whole ? text_.size() + 1 : faults.back().at, -std::ssize(faults)};
        if (good || !found_ || rank > rank_) {
            found_ = true;
            rank_ = rank;
            result_ = attempt.result();
        }
        return good;
    }
    const ReadInstruction& result() const { return result_; }

  private:
    // First fault, whether it is an operand's, how far, how few faults.
    using Rank = std::tuple<std::size_t, bool, std::size_t, std::ptrdiff_t>;

    std::string_view text_;
    bool found_ = false;
    Rank rank_;
    ReadInstruction result_;
};

// A text with another first letter need not be tried: it would be at fault there.
bool BeginsLike(std::string_view pattern, std::string_view text) {
    return !pattern.empty() && !text.empty() && Upper(pattern[0]) == Upper(text[0]);
}

bool TryRow(Best& best, const Instruction& row, std::string_view text) {
    for (const std::string_view before : {row.before, row.other_before}) {
        if (!BeginsLike(row.outlet.empty() ? before : row.outlet, text)) continue;
        if (best.Succeeds(
                [&](InstructionAttempt& attempt) { return TryText(attempt, row, before); })) {
            return true;
        }
    }
    for (const std::string_view caption : {row.button, row.other_button}) {
        if (!BeginsLike(caption, text)) continue;
        if (best.Succeeds(
                [&](InstructionAttempt& attempt) { return TryButton(attempt, row, caption); })) {
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

ReadInstruction ReadInstructionText(std::string_view text) {
    Best best(text);
    for (const bool on : {true, false}) {
        if (best.Succeeds([on](InstructionAttempt& attempt) { return TryShort(attempt, on); })) {
            return best.result();
        }
    }
    if (best.Succeeds([](InstructionAttempt& attempt) { return TryBytes(attempt); }))
        return best.result();
    for (const Instruction& row : InstructionSet()) {
        if (TryRow(best, row, text)) return best.result();
    }
    ReadInstruction result = best.result();
    if (result.faults.front().at == 0) {
        const std::string_view word = text.substr(0, text.find_first_of(" \t"));
        result.faults = {{0, Quoted(word) +
                                 " does not begin an instruction; write its text or the caption "
                                 "of its button, or ON, OFF or BYTES"}};
    }
    return result;
}

std::string InstructionSource(std::uint8_t opcode, std::uint8_t second, std::string_view unit_type,
                              std::string_view target) {
    std::string text = SingleBlanks(CmdDecode(opcode, second, unit_type));
    const bool trailing = !text.empty() && text.back() == ' ';
    const ReadInstruction read = trailing ? ReadInstruction{} : ReadInstructionText(text);
    if (trailing || !read.faults.empty() || read.opcode != opcode || read.second != second) {
        return "BYTES " + HexByte(opcode) + " " + HexByte(second);
    }
    if (!target.empty() && FindInstruction(opcode)->operand == Operand::kAddress) {
        text.replace(text.size() - 2, 2, target);
    }
    return text;
}

}  // namespace kestrane
