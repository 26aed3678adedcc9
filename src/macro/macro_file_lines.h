#pragma once

// The lines of a macro file (.sms) and what each of them stands for. Reader and checker both walk
// a file through `WalkMacroFile`, so that they agree on kinds, comments and line numbers.
//
//     trigger line                                            code line
//      1-14  name, blanks on the right                         1, 2  address (read by nothing)
//     16     page                                              4, 5  opcode
//     18, 19 macro address                                     7, 8  second byte
//     21 on  "Enabled" or "Disabled"                          10 on  apostrophe, decoded text
//     76-79  sum of the characters before the padding         76-79  sum of columns 1 to 9
//
// Columns count from 1. A line ends with CR LF, LF or CR; the last line needs no end.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestrane {

inline constexpr int kTriggerRows = 8;

// One row of the trigger table, its boxes as texts.
struct TriggerRow {
    std::string name;
    std::string page;
    std::string address;
    bool enabled = false;

    bool operator==(const TriggerRow&) const = default;
};

using TriggerRows = std::array<TriggerRow, kTriggerRows>;

enum class MacroFileKind {
    kBytes = 1,            // 256 lines of one byte each
    kCode = 2,             // code lines; their checksums are not tested
    kTriggersAndCode = 3,  // as it is written today
};

inline constexpr long kBytesInBytesFile = 256;

// Decided by the first two lines. A line that is missing counts as an empty one.
MacroFileKind KindOfMacroFile(std::string_view content);

class LineReader {
  public:
    explicit LineReader(std::string_view content) : rest_(content) {}

    // The next line without its end; nothing after the last.
    std::optional<std::string_view> Next();

    // How many lines have been read: the number of the last one.
    long number() const { return number_; }

  private:
    std::string_view rest_;
    long number_ = 0;
};

// Columns `from` to `to` of a line; what lies beyond its end is left out.
std::string_view Columns(std::string_view line, std::size_t from, std::size_t to);

std::uint32_t SumOfCharacters(std::string_view text);

struct TriggerLine {
    explicit TriggerLine(std::string_view line);

    TriggerRow fields;
    std::string after_page;  // column 17: a blank, unless the fields before it are too long
    std::string state;       // the whole word, of which `fields` has only whether it enables
    bool checksum_matches;
};

struct CodeLine {
    explicit CodeLine(std::string_view line);

    std::string_view address;      // likewise two columns; nothing is loaded by it
    std::string_view opcode;       // two columns, as they stand
    std::string_view second_byte;  // likewise
    bool checksum_matches;
};

// Gets each data line with its number, heads and comments counted. False ends the walk.
class MacroLineVisitor {
  public:
    virtual ~MacroLineVisitor() = default;

    // A line of a file of bytes, for index 0 to 255.
    virtual bool VisitByte(std::size_t index, std::string_view line, long number) = 0;
    virtual bool VisitTrigger(int row, const TriggerLine& line, long number) = 0;
    // A code line for the two bytes from `index` on. `kind` says whether its checksum counts.
    virtual bool VisitCode(std::size_t index, const CodeLine& line, MacroFileKind kind,
                           long number) = 0;
};

struct WalkResult {
    enum class End { kComplete, kStoppedByVisitor, kLinesMissing } end;
    long lines_read;
};

WalkResult WalkMacroFile(std::string_view content, MacroLineVisitor& visitor);

}  // namespace kestrane
