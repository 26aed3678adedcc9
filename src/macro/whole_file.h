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

enum class FileAccess {
    kAsBefore,   // that of the old file, or the process's own for a new one
    kOwnerOnly,  // from the first byte on
};

// Puts a file with this content in the place of an old one, which stays whole until the new one is
// complete; only a file with several names, and one in a folder that takes no new files, is written
// in place. Returns why not.
std::optional<std::string> ReplaceFile(const std::string& path, std::string_view content,
                                       FileAccess access = FileAccess::kAsBefore);

// Why ReplaceFile could not write there, as far as that shows beforehand.
std::optional<std::string> WhyNotWritable(const std::string& path);

}  // namespace kestrane
