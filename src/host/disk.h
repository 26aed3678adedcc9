#pragma once

// The files of this computer.

#include "platform/file_store.h"

namespace kestrane {

class Disk : public FileStore {
  public:
    Content Read(const std::string& path) override;
    std::optional<std::string> Replace(const std::string& path, std::string_view content,
                                       Readers readers) override;
    std::optional<std::string> WhyNotWritable(const std::string& path) override;
    std::optional<std::string> MakeFolder(const std::string& path) override;
};

}  // namespace kestrane
