// Any bytes as a configuration file: faults must point into the text and be one line each, and what
// was read comes back the same from what is written of it.

#include <cstdint>
#include <string_view>

#include "configuration/file.h"
#include "require.h"

using namespace kestrane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view content(reinterpret_cast<const char*>(data), size);
    const ConfigurationText text = ReadConfiguration(content);
    for (const auto* lines : {&text.faults, &text.notes}) {
        for (const FileFault& fault : *lines) {
            Require(fault.at.line >= 1 && fault.at.line <= static_cast<int>(size) + 1);
            Require(fault.at.column >= 1 && fault.at.column <= static_cast<int>(size) + 1);
            for (const char c : fault.Line("f")) Require(static_cast<unsigned char>(c) >= 0x20);
        }
    }
    for (const auto& [setting, value] : text.values) Require(!CheckValue(*setting, value));
    const ConfigurationText again = ReadConfiguration(WriteConfiguration({}, text.values, {}));
    // What the values lack together is one fault; each by itself is right.
    Require(again.values == text.values && again.faults.size() <= 1);
    return 0;
}
