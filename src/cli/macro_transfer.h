#pragma once

// The subcommands of `macro` that move a program between a file and the unit. What they say about
// the unit comes from the journal: a block is new when its write was accepted, and may be either
// when no answer says so.

#include "cli/call.h"
#include "cli/macro_options.h"

namespace kestrane {

// Leaves no file unless program and triggers were read whole and the file reads back as they are.
int DownloadMacro(CallContext& context, const MacroOptions& options);

// Writes the program, reads it back and compares; with --triggers the macro triggers after it.
int UploadMacro(CallContext& context, const MacroOptions& options, const ProgramText& text);

}  // namespace kestrane
