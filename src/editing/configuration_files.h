#pragma once

// A configuration file and the screen: opening types the file's values over those of the tabs that
// were read, as pending changes; saving writes what stands on those tabs; comparing does neither.

#include <optional>
#include <string>
#include <vector>

#include "editing/workbench.h"

namespace kestrane {

struct LeftAloneSetting {
    std::string key;
    std::string why;
};

struct FileDifference {
    const Setting* setting = nullptr;
    std::string on_screen;
    std::string in_file;
};

struct FileOutcome {
    std::optional<std::string> error;         // every fault of the file, a line each
    std::vector<FileDifference> differences;  // those that were typed, or that differ
    std::vector<LeftAloneSetting> left_alone;
    int count = 0;  // of the values that were saved or compared
};

// Each adds a message about what came of it.
FileOutcome OpenConfiguration(Workbench& bench, const std::string& path);
FileOutcome SaveConfiguration(Workbench& bench, const std::string& path);
FileOutcome CompareConfiguration(Workbench& bench, const std::string& path);

}  // namespace kestrane
