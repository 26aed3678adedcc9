#include "cli/shown_value.h"

#include "console/values.h"
#include "screen/kinds.h"
#include "text/text.h"

namespace kestrane {

std::string ShownText(const std::string& byte_text) {
    std::string shown;
    for (const char c : byte_text) {
        const auto byte = static_cast<std::uint8_t>(c);
        // Control codes, those from 0x80 on as well, would work on the terminal.
        const bool control_code = byte < 0x20 || (byte >= 0x7F && byte < 0xA0);
        shown += control_code ? "\\x" + HexByte(byte) : FromByteText({&c, 1});
    }
    return shown;
}

std::string ShownValue(const Control& control) {
    const Value value = control.Properties().front().second;
    if (const auto* text = std::get_if<std::string>(&value)) return ShownText(*text);
    std::string shown = ToJson(value).dump();
    const auto* combo = dynamic_cast<const ComboBox*>(&control);
    if (!combo || combo->ListIndex() < 0) return shown;
    const auto& item = combo->Items()[static_cast<std::size_t>(combo->ListIndex())];
    return shown + " (" + ShownText(item) + ")";
}

}  // namespace kestrane
