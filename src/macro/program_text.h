#pragma once

// A macro program read from whatever text holds it: a macro file or source text, which the content
// tells apart.

#include <string>
#include <string_view>
#include <vector>

#include "macro/assembler.h"
#include "macro/macro_file_lines.h"

namespace kestrane {

struct ProgramText {
    std::optional<MacroFileKind> kind;  // nothing: source text
    MacroProgram program;
    // Of source text all; of a macro file the one at which the editor would stop reading.
    std::vector<SourceFault> faults;

    bool Good() const;
    bool HasTriggers() const;
};

ProgramText ReadProgramText(std::string_view content);

// A macro file's program whatever its checksums say, as far as its lines go.
MacroProgram ProgramWithoutChecksums(std::string_view content);

// A file that begins with 'Kestrane is a macro file, one whose first line is two hexadecimal digits
// a file of bytes, all else is source.
bool IsSourceText(std::string_view content);

// "source text", "macro triggers and code" and the like.
std::string_view ProgramKindText(const ProgramText& text);

}  // namespace kestrane
