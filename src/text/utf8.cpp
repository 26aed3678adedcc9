#include "text/utf8.h"

namespace kestrane {

std::optional<char32_t> NextCharacter(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(at++);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    static constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    if (first < 0xC2 || first > 0xF4 || at + static_cast<std::size_t>(more) > text.size()) {
        return {};
    }
    char32_t character = first & (0x3Fu >> more);
    for (int i = 0; i < more; ++i, ++at) {
        if ((byte(at) & 0xC0) != 0x80) return {};
        character = character << 6 | (byte(at) & 0x3Fu);
    }
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < kLeast[more] || character > 0x10FFFF || surrogate) return {};
    return character;
}

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (!NextCharacter(text, at)) return false;
    }
    return true;
}

std::optional<std::string> ToByteText(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const auto character = NextCharacter(utf8, at);
        if (!character || *character > kLastOfByteText) return {};
        bytes += static_cast<char>(*character);
    }
    return bytes;
}

std::string FromByteText(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | byte >> 6);
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return utf8;
}

std::string NearestByteText(std::string_view utf8) {
    std::string shown;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        const auto next = i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[i + 1]) : 0u;
        if ((byte == 0xC2 || byte == 0xC3) && (next & 0xC0) == 0x80) {
            shown.push_back(static_cast<char>((byte & 0x03) << 6 | (next & 0x3F)));
            ++i;
        } else if (byte < 0x80) {
            shown.push_back(utf8[i]);
        } else if ((byte & 0xC0) != 0x80) {
            shown.push_back('?');
        }
    }
    return shown;
}

}  // namespace kestrane
