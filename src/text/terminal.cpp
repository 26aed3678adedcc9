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

std::string ShownUtf8(std::string_view utf8) {
    std::string shown;
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t begin = at;
        const auto character = NextCharacter(utf8, at);
        if (!character) at = begin + 1;
        const bool plain =
            character && *character >= 0x20 && (*character < 0x7F || *character >= 0xA0);
        if (plain) {
            shown += utf8.substr(begin, at - begin);
            continue;
        }
        for (const char c : utf8.substr(begin, at - begin)) {
            shown += "\\x" + HexByte(static_cast<std::uint8_t>(c));
        }
    }
    return shown;
}

}  // namespace kestrane
