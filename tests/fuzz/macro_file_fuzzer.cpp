// Any bytes as a macro file: the reader must stay within its image and its rows, the checker
// within its lines, and a program that was read must come back from its own file.

#include <cstdint>
#include <string_view>

#include "macro/macro_check.h"
#include "macro/macro_file.h"
#include "macro/program_text.h"
#include "require.h"

namespace {

using namespace kestrane;

class ImageSink : public MacroFileSink {
  public:
    void StoreByte(std::size_t index, std::uint8_t value) override {
        Require(index < MacroMemory::kProgramEnd);
        Require(image.Set(index, value));
    }
    void CompareAndStoreTrigger(int row, const TriggerRow& fields) override {
        Require(row == stored_rows++ && row < kTriggerRows);
        Require(fields.name.size() <= 14 && fields.page.size() <= 1 && fields.address.size() <= 2);
        TriggerRow& boxes = triggers[static_cast<std::size_t>(row)];
        boxes = fields;
        Require(!TriggerDiffers(fields, boxes));
    }

    MacroMemory image;
    TriggerRows triggers;
    int stored_rows = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view content(reinterpret_cast<const char*>(data), size);
    ImageSink first;
    const MacroFileResult result = ReadMacroFile(content, first);
    Require(result.line >= 0 && result.line <= static_cast<long>(size));

    const auto findings = CheckMacroText(content, "CMS");
    if (result.outcome != MacroFileResult::Outcome::kOk && !IsSourceText(content)) {
        Require(!findings.empty());
    }
    for (const Finding& finding : findings) {
        Require(finding.place.line >= 1 && finding.place.line <= static_cast<long>(size) + 1);
        Require(finding.text.find('\n') == std::string::npos);
    }

    // With plain triggers, as those that were read may have names that can't be read back.
    TriggerRows plain;
    plain.fill({"Name", "0", "10", true});
    ImageSink second;
    const std::string file = WriteMacroFile(content.substr(0, 40), plain, first.image, "636");
    Require(ReadMacroFile(file, second).outcome == MacroFileResult::Outcome::kOk);
    for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; ++i) {
        Require(first.image.Get(i) == second.image.Get(i));
    }
    return 0;
}
