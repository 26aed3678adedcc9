#pragma once

// Files read and written in one piece. What goes wrong comes back as a reason in the system's
// words; nothing is thrown. Paths are in the encoding of the file system.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kestrane {

class FileStore {
  public:
    // No file of this system comes near this size.
    static constexpr std::size_t kLargestFile = std::size_t{16} << 20;

    enum class Readers {
        kEveryone,  // as far as the process's mask allows it
        kOwner,     // for secrets: nobody else may read a byte of it at any time
    };

    struct Content {
        std::string bytes;  // on an error what could be read
        std::optional<std::string> error;
    };

    virtual ~FileStore() = default;

    virtual Content Read(const std::string& path) = 0;

    // Puts a file with this content in the place of an old one, which stays whole until the new
    // one is complete wherever the folder lets a second file stand beside it. A link stays a link,
    // a file of several names keeps them all. Returns why not.
    virtual std::optional<std::string> Replace(const std::string& path, std::string_view content,
                                               Readers readers) = 0;

    // Why Replace would fail, as far as that can be seen without writing.
    virtual std::optional<std::string> WhyNotWritable(const std::string& path) = 0;

    // Makes a folder, and those above it, unless it is there. Returns why not.
    virtual std::optional<std::string> MakeFolder(const std::string& path) = 0;
};

}  // namespace kestrane
