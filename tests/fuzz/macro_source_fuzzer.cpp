// Any bytes as source text: faults must point into the text, and a program that was assembled must
// come back from its own disassembly, whatever checks and simulation do with it in between.

#include <cstdint>
#include <string_view>

#include "macro/assembler.h"
#include "macro/disassembler.h"
#include "macro/macro_check.h"
#include "macro/macro_file.h"
#include "macro/program_text.h"
#include "macro/timeline.h"
#include "require.h"

using namespace kestrane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view source(reinterpret_cast<const char*>(data), size);
    const Assembly assembly = Assemble(source);
    long last = 0;
    for (const SourceFault& fault : assembly.faults) {
        Require(fault.place.line >= std::max(last, 1L));
        Require(fault.place.line <= static_cast<long>(size) + 1);
        Require(fault.place.column >= 1 && fault.place.column <= static_cast<int>(size) + 1);
        Require(fault.text.find('\n') == std::string::npos);
        last = fault.place.line;
    }
    for (const Finding& finding : CheckProgram(assembly.program, "CMS")) {
        Require(finding.text.find('\n') == std::string::npos);
    }
    if (!assembly.Good()) return 0;

    const Assembly again = Assemble(Disassemble(assembly.program, "636"));
    Require(again.Good());
    Require(again.program.image == assembly.program.image);
    const TriggerRows rows = assembly.program.Rows();
    const ProgramText file =
        ReadProgramText(WriteMacroFile("f.sms", rows, assembly.program.image, "CMS"));
    Require(file.Good() && file.program.image == assembly.program.image);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Require(!TriggerDiffers(file.program.triggers[i]->row, rows[i]));
        if (assembly.program.triggers[i]) {
            Require(again.program.triggers[i]->row == assembly.program.triggers[i]->row);
        }
    }
    const auto run = simulation::Simulate(ImageOf(assembly.program.image), {}, {},
                                          simulation::Milliseconds{20'000});
    Require(run.end.count() <= 20'000);
    Require(!TimelineAsSvg(run, source.substr(0, 20)).empty());
    return 0;
}
