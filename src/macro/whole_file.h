#pragma once

// Files read and written in one piece. What goes wrong comes back as a reason in the system's
// words; nothing is thrown.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kestrane {

// No macro file comes near this size.
inline constexpr std::size_t kLargestFile = std::size_t{16} << 20;

struct FileContent {
    std::string content;
    std::optional<std::string> error;
};

// On an error `content` holds what could be read.
FileContent ReadWholeFile(const std::string& path);

// Puts a file with this content in the place of an old one, which stays whole until the new one is
// complete. Returns why not.
std::optional<std::string> ReplaceFile(const std::string& path, std::string_view content);

}  // namespace kestrane
