#include "macro/macro_file_lines.h"

#include <algorithm>

#include "macro/macro_memory.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr std::string_view kHeadOfOurFiles = "'Kestrane";
constexpr std::string_view kTriggersHead = "'Macro Triggers";

std::uint32_t ChecksumColumns(std::string_view line) { return HexNumber(Columns(line, 76, 79)); }

// Trim without a text of its own.
std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<std::string_view> NextDataLine(LineReader& lines) {
    auto line = lines.Next();
    while (line && line->starts_with('\'')) line = lines.Next();
    return line;
}

WalkResult::End WalkBytes(LineReader& lines, MacroLineVisitor& visitor) {
    for (std::size_t index = 0; index < static_cast<std::size_t>(kBytesInBytesFile); ++index) {
        const auto line = lines.Next();
        if (!line) return WalkResult::End::kLinesMissing;
        if (!visitor.VisitByte(index, *line, lines.number())) {
            return WalkResult::End::kStoppedByVisitor;
        }
    }
    return WalkResult::End::kComplete;
}

WalkResult::End WalkTriggers(LineReader& lines, MacroLineVisitor& visitor) {
    for (int row = 0; row < kTriggerRows; ++row) {
        const auto line = NextDataLine(lines);
        if (!line) return WalkResult::End::kLinesMissing;
        if (!visitor.VisitTrigger(row, TriggerLine(*line), lines.number())) {
            return WalkResult::End::kStoppedByVisitor;
        }
    }
    return WalkResult::End::kComplete;
}

WalkResult::End WalkCode(LineReader& lines, MacroFileKind kind, MacroLineVisitor& visitor) {
    for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; i += 2) {
        const auto line = NextDataLine(lines);
        if (!line) return WalkResult::End::kLinesMissing;
        if (!visitor.VisitCode(i, CodeLine(*line), kind, lines.number())) {
            return WalkResult::End::kStoppedByVisitor;
        }
    }
    return WalkResult::End::kComplete;
}

}  // namespace

MacroFileKind KindOfMacroFile(std::string_view content) {
    LineReader lines(content);
    if (!lines.Next().value_or("").starts_with(kHeadOfOurFiles)) return MacroFileKind::kBytes;
    // One column more than the head has: a single blank after it makes another kind.
    const std::string_view second = lines.Next().value_or("");
    return Columns(second, 1, kTriggersHead.size() + 1) == kTriggersHead
               ? MacroFileKind::kTriggersAndCode
               : MacroFileKind::kCode;
}

std::optional<std::string_view> LineReader::Next() {
    if (rest_.empty()) return std::nullopt;
    ++number_;
    const auto end = std::min(rest_.find_first_of("\r\n"), rest_.size());
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (!rest_.empty()) rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
    return line;
}

std::string_view Columns(std::string_view line, std::size_t from, std::size_t to) {
    if (from > line.size()) return {};
    return line.substr(from - 1, to - from + 1);
}

std::uint32_t SumOfCharacters(std::string_view text) {
    std::uint32_t sum = 0;
    for (const char c : text) sum += static_cast<unsigned char>(c);
    return sum;
}

// The sum is over the trimmed text, where the writer sums it as it stands. So a name that begins
// with a blank can't be read back; files have always been so.
TriggerLine::TriggerLine(std::string_view line)
    : fields{std::string(Trimmed(Columns(line, 1, 14))), std::string(Columns(line, 16, 16)),
             std::string(Columns(line, 18, 19)),
             // Seven columns cut "Disabled" short; only an exact "Enabled" ticks.
             Trimmed(Columns(line, 21, 27)) == "Enabled"},
      after_page(Columns(line, 17, 17)),
      state(Trimmed(Columns(line, 21, 75))),
      checksum_matches(SumOfCharacters(Trimmed(Columns(line, 1, 75))) == ChecksumColumns(line)) {}

CodeLine::CodeLine(std::string_view line)
    : address(Columns(line, 1, 2)),
      opcode(Columns(line, 4, 5)),
      second_byte(Columns(line, 7, 8)),
      checksum_matches(SumOfCharacters(Columns(line, 1, 9)) == ChecksumColumns(line)) {}

WalkResult WalkMacroFile(std::string_view content, MacroLineVisitor& visitor) {
    const MacroFileKind kind = KindOfMacroFile(content);
    LineReader lines(content);
    auto end = WalkResult::End::kComplete;
    if (kind == MacroFileKind::kBytes) {
        end = WalkBytes(lines, visitor);
    } else {
        if (kind == MacroFileKind::kTriggersAndCode) end = WalkTriggers(lines, visitor);
        if (end == WalkResult::End::kComplete) end = WalkCode(lines, kind, visitor);
    }
    return {end, lines.number()};
}

}  // namespace kestrane
