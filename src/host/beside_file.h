#pragma once

// A new file beside the one that it is to replace. It bears a name of its own until it is complete
// and its lock tells that it is in use: what an interrupted save left behind is not locked any
// more, and the next save in that folder takes its name.

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "host/descriptor.h"

namespace kestrane {

// The path's folders with the slash behind them; empty for a name alone.
std::string FolderOf(const std::string& path);

class BesideFile {
  public:
    // `folder` as FolderOf gives it.
    BesideFile(const std::string& folder, mode_t mode);
    ~BesideFile() { Drop(); }
    BesideFile(const BesideFile&) = delete;
    BesideFile& operator=(const BesideFile&) = delete;

    bool open() const { return file_.open(); }
    int error() const { return error_; }
    const Descriptor& file() const { return file_; }

    // Takes the content and then the place of `target`. 0 or an error number; the file is gone
    // then.
    int WriteAndBecome(const std::string& target, std::string_view content);
    void Drop();

  private:
    bool Create(mode_t mode);
    bool RemoveLeftover() const;

    std::string name_;
    Descriptor file_;
    int error_ = 0;
};

}  // namespace kestrane
