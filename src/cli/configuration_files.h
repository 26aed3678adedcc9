#pragma once

// The configuration files of a command line, and the options that say which settings count.

#include <string>
#include <vector>

#include "cli/assignments.h"
#include "configuration/file.h"
#include "configuration/report.h"
#include "platform/file_store.h"

namespace CLI {
class App;
}

namespace kestrane {

// Several files as one: later ones win over earlier ones.
struct ConfigurationFiles {
    SettingValues values;
    std::vector<std::string> faults;       // lines for standard error, as they stand
    std::vector<std::string> notes;        // likewise, of what was passed over
    std::vector<std::string> short_notes;  // likewise, one for a file that has many, as a backup

    void Add(FileStore& disk, const std::string& path);

  private:
    void AddNotes(const std::string& path, const std::vector<FileFault>& found);
};

// --only, --except, --identity, --live.
class FilterOptions {
  public:
    void AddTo(CLI::App& app);
    // What is wrong; empty if nothing is.
    std::string Check() const;
    const SettingFilter& filter() const { return filter_; }

  private:
    SettingFilter filter_;
};

}  // namespace kestrane
