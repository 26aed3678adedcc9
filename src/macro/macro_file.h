#pragma once

// Writing and reading macro files as texts; opening files and showing boxes is the caller's. The
// reader stops at the first fault and leaves stored what came before it: a half-read program is
// the caller's to warn about.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "macro/macro_file_lines.h"
#include "macro/macro_memory.h"

namespace kestrane {

// What follows the last folder separator, a backslash or a slash.
std::string_view NameWithoutFolders(std::string_view path);

// `name` filled up to the 14 columns that it takes in the file. Saving leaves the boxes so, too.
std::string PaddedTriggerName(std::string_view name);

// The 123 lines of a file, each ended with CR LF. `file_name` comes without folders; a line end
// in it is written as a blank. The boxes are taken as they stand: a name, page or address of
// another length moves what follows it in its line.
std::string WriteMacroFile(std::string_view file_name, const TriggerRows& triggers,
                           const MacroMemory& image, std::string_view unit_type);

// Where the reader puts what it reads, in the order of the file.
class MacroFileSink {
  public:
    virtual ~MacroFileSink() = default;

    // `index` is 0 to 255.
    virtual void StoreByte(std::size_t index, std::uint8_t value) = 0;

    // Compares the fields with the boxes of the row (see `TriggerDiffers`), then writes them.
    virtual void CompareAndStoreTrigger(int row, const TriggerRow& fields) = 0;
};

struct MacroFileResult {
    enum class Outcome {
        kOk,
        kTriggerChecksum,  // at `line`
        kCodeChecksum,     // at `line`
        kEndsEarly,        // after `line`, the last there is
    };

    Outcome outcome;
    long line;

    bool operator==(const MacroFileResult&) const = default;
};

MacroFileResult ReadMacroFile(std::string_view content, MacroFileSink& sink);

// Whether a row that was read changes the boxes; blanks around the name in the box don't count.
bool TriggerDiffers(const TriggerRow& read, const TriggerRow& boxes);

inline constexpr std::string_view kChecksumErrorTitle = "Checksum Error.";

// The text of the box for a checksum fault, with CR LF as its line break; empty for any other
// outcome.
std::string ChecksumErrorText(const MacroFileResult& result);

}  // namespace kestrane
