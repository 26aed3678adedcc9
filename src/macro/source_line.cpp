#include "macro/source_line.h"

#include "text/utf8.h"

namespace kestrane {

std::optional<std::string> SourceLine::Statement(std::string_view utf8, std::size_t& at,
                                                 std::string& why) {
    std::string text;
    bool quoted = false;
    bool escaped = false;
    std::size_t remark = std::string::npos;
    std::size_t foreign = std::string::npos;
    std::size_t count = 0;
    for (std::size_t i = 0; i < utf8.size(); ++count) {
        const auto character = NextCharacter(utf8, i);
        if (!character) {
            at = count;
            why = "this is not UTF-8; save the file as UTF-8";
            return std::nullopt;
        }
        if (remark != std::string::npos) continue;
        if (*character == ';' && !quoted) {
            remark = count;
            continue;
        }
        if (*character == '"' && !escaped) quoted = !quoted;
        escaped = quoted && *character == '\\' && !escaped;
        if (*character > kLastOfByteText && foreign == std::string::npos) foreign = count;
        text += *character > kLastOfByteText ? '?' : static_cast<char>(*character);
    }
    if (foreign != std::string::npos) {
        at = foreign;
        why = "the unit has no such character; U+0020 to U+00FF are possible";
        return std::nullopt;
    }
    while (!text.empty() && IsBlank(text.back())) text.pop_back();
    return text;
}

}  // namespace kestrane
