#include "macro/program_text.h"

#include <algorithm>

#include "macro/macro_file.h"
#include "macro/source_words.h"
#include "text/text.h"

namespace kestrane {
namespace {

// Stores what the editor would, and where each part stands.
class Loader : public MacroLineVisitor {
  public:
    explicit Loader(ProgramText& text, bool heed_checksums = true)
        : text_(text), heed_checksums_(heed_checksums) {}

    bool VisitByte(std::size_t index, std::string_view line, long number) override {
        if (index % 2 == 0) Place(index, number);
        text_.program.image.Set(index, HexValue(line));
        return true;
    }
    bool VisitTrigger(int row, const TriggerLine& line, long number) override {
        if (heed_checksums_ && !line.checksum_matches) return Stop("macro triggers", number);
        text_.program.triggers[static_cast<std::size_t>(row)] = {line.fields, {number, 0}};
        return true;
    }
    bool VisitCode(std::size_t index, const CodeLine& line, MacroFileKind kind,
                   long number) override {
        const bool checked = heed_checksums_ && kind == MacroFileKind::kTriggersAndCode;
        if (checked && !line.checksum_matches) {
            return Stop("macro code", number);
        }
        Place(index, number);
        text_.program.image.Set(index, HexValue(line.opcode));
        text_.program.image.Set(index + 1, HexValue(line.second_byte));
        return true;
    }

  private:
    void Place(std::size_t index, long number) {
        if (index / 2 < MacroProgram::kAddresses) text_.program.places[index / 2] = {number, 0};
    }
    bool Stop(const std::string& section, long number) {
        text_.faults.push_back({{number, 0}, "checksum error in the " + section, false});
        return false;
    }

    ProgramText& text_;
    bool heed_checksums_;
};

}  // namespace

bool ProgramText::Good() const {
    return std::all_of(faults.begin(), faults.end(),
                       [](const SourceFault& fault) { return fault.is_warning; });
}

bool ProgramText::HasTriggers() const {
    return std::any_of(program.triggers.begin(), program.triggers.end(),
                       [](const auto& trigger) { return trigger.has_value(); });
}

bool IsSourceText(std::string_view content) {
    if (content.starts_with("'Kestrane")) return false;
    LineReader lines(content);
    return !HexPair(lines.Next().value_or(""));
}

ProgramText ReadProgramText(std::string_view content) {
    if (IsSourceText(content)) {
        Assembly assembly = Assemble(content);
        return {{}, std::move(assembly.program), std::move(assembly.faults)};
    }
    ProgramText text{.kind = KindOfMacroFile(content), .program = {}, .faults = {}};
    Loader loader(text);
    const WalkResult walk = WalkMacroFile(content, loader);
    if (walk.end == WalkResult::End::kLinesMissing) {
        text.faults.push_back({{walk.lines_read + 1, 0}, "the file ends early", false});
    }
    text.program.MarkProgrammed();
    return text;
}

MacroProgram ProgramWithoutChecksums(std::string_view content) {
    ProgramText text;
    Loader loader(text, false);
    WalkMacroFile(content, loader);
    return text.program;
}

std::string_view ProgramKindText(const ProgramText& text) {
    if (!text.kind) return "source text";
    switch (*text.kind) {
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
