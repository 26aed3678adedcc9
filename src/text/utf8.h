#pragma once

// UTF-8 as it comes from files, scripts and command lines. The tool itself knows byte texts only:
// byte 0xNN is the character U+00NN, both ways.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kestrane {

inline constexpr char32_t kLastOfByteText = 0xFF;

// The character at `at`, which moves on past it; nothing where the text is not UTF-8.
std::optional<char32_t> NextCharacter(std::string_view text, std::size_t& at);

bool IsUtf8(std::string_view text);

// Nothing if the text is not UTF-8 or holds a character above U+00FF.
std::optional<std::string> ToByteText(std::string_view utf8);
std::string FromByteText(std::string_view bytes);
// As for a path that may be anything: what has no byte becomes "?".
std::string NearestByteText(std::string_view utf8);

}  // namespace kestrane
