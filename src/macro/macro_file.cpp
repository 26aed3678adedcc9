#include "macro/macro_file.h"

#include <algorithm>

#include "macro/instruction_set.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr std::size_t kChecksumColumn = 76;
constexpr std::string_view kLineEnd = "\r\n";

// Pads the line that began at `start` up to the checksum's column and ends it.
void EndLine(std::uint32_t sum, std::size_t start, std::string& file) {
    const std::size_t checksum_at = start + kChecksumColumn - 1;
    if (file.size() < checksum_at) file.resize(checksum_at, ' ');
    file += HexByte(static_cast<std::uint8_t>(sum >> 8));
    file += HexByte(static_cast<std::uint8_t>(sum));
    file += kLineEnd;
}

// A line that is too long keeps its whole text, with the checksum after it.
void AppendTriggerLine(const TriggerRow& row, std::string& file) {
    const std::size_t start = file.size();
    file += PaddedTriggerName(row.name);
    file += ' ';
    file += row.page;
    file += ' ';
    file += row.address.empty() ? "00" : row.address;
    file += row.enabled ? " Enabled" : " Disabled";
    EndLine(SumOfCharacters(std::string_view(file).substr(start)), start, file);
}

// The text loses its doubled blanks, and what would run into the checksum.
void AppendComment(std::string_view text, std::size_t end, std::string& file) {
    file += '\'';
    for (const char c : text) {
        if (file.size() == end) return;
        if (c != ' ' || file.back() != ' ') file += c;
    }
}

void AppendCodeLine(std::uint8_t address, std::uint8_t opcode, std::uint8_t second,
                    std::string_view text, std::string& file) {
    const std::size_t start = file.size();
    for (const std::uint8_t value : {address, opcode, second}) {
        file += HexByte(value);
        file += ' ';
    }
    const std::uint32_t sum = SumOfCharacters(std::string_view(file).substr(start));
    AppendComment(text, start + kChecksumColumn - 1, file);
    EndLine(sum, start, file);
}

class Reader : public MacroLineVisitor {
  public:
    explicit Reader(MacroFileSink& sink) : sink_(sink) {}

    bool VisitByte(std::size_t index, std::string_view line, long) override {
        sink_.StoreByte(index, HexValue(line));
        return true;
    }

    bool VisitTrigger(int row, const TriggerLine& line, long) override {
        if (!line.checksum_matches) {
            outcome_ = MacroFileResult::Outcome::kTriggerChecksum;
            return false;
        }
        sink_.CompareAndStoreTrigger(row, line.fields);
        return true;
    }

    bool VisitCode(std::size_t index, const CodeLine& line, MacroFileKind kind, long) override {
        if (kind == MacroFileKind::kTriggersAndCode && !line.checksum_matches) {
            outcome_ = MacroFileResult::Outcome::kCodeChecksum;
            return false;
        }
        sink_.StoreByte(index, HexValue(line.opcode));
        sink_.StoreByte(index + 1, HexValue(line.second_byte));
        return true;
    }

    MacroFileResult::Outcome outcome() const { return outcome_; }

  private:
    MacroFileSink& sink_;
    MacroFileResult::Outcome outcome_ = MacroFileResult::Outcome::kOk;
};

}  // namespace

std::string_view NameWithoutFolders(std::string_view path) {
    const auto separator = path.find_last_of("\\/");
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string PaddedTriggerName(std::string_view name) { return PadRight(name, 14); }

std::string WriteMacroFile(std::string_view file_name, const TriggerRows& triggers,
                           const MacroMemory& image, std::string_view unit_type) {
    std::string file = "'Kestrane Version 3 macro file - ";
    file.reserve(123 * (kChecksumColumn + 5));
    file += file_name;
    std::replace_if(
        file.begin(), file.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    file += kLineEnd;

    file += "'Macro Triggers\r\n";
    for (const TriggerRow& row : triggers) AppendTriggerLine(row, file);

    file += "'Macro Code\r\n";
    std::string text;
    for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; i += 2) {
        const std::uint8_t opcode = image.Get(i);
        const std::uint8_t second = image.Get(i + 1);
        CmdDecode(opcode, second, unit_type, text);
        AppendCodeLine(static_cast<std::uint8_t>(i / 2), opcode, second, text, file);
    }
    return file;
}

MacroFileResult ReadMacroFile(std::string_view content, MacroFileSink& sink) {
    Reader reader(sink);
    const WalkResult walk = WalkMacroFile(content, reader);
    const auto outcome = walk.end == WalkResult::End::kLinesMissing
                             ? MacroFileResult::Outcome::kEndsEarly
                             : reader.outcome();
    return {outcome, walk.lines_read};
}

bool TriggerDiffers(const TriggerRow& read, const TriggerRow& boxes) {
    return read.name != Trim(boxes.name) || read.page != boxes.page ||
           read.address != boxes.address || read.enabled != boxes.enabled;
}

std::string ChecksumErrorText(const MacroFileResult& result) {
    std::string section;
    if (result.outcome == MacroFileResult::Outcome::kTriggerChecksum) section = "Triggers";
    if (result.outcome == MacroFileResult::Outcome::kCodeChecksum) section = "Code";
    if (section.empty()) return {};
    return "Checksum Error importing Macro " + section + " at line" + Str(result.line) +
           ".\r\nImport aborted. Please do not upload to unit.";
}

}  // namespace kestrane
