#include "text/terminal.h"

#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {

std::string ShownText(std::string_view byte_text) {
    std::string shown;
    for (const char c : byte_text) {
        const auto byte = static_cast<std::uint8_t>(c);
        const bool control_code = byte < 0x20 || (byte >= 0x7F && byte < 0xA0);
        shown += control_code ? "\\x" + HexByte(byte) : FromByteText({&c, 1});
    }
    return shown;
}

}  // namespace kestrane
