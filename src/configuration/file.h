#pragma once

// A configuration as a file: JSON with comments, nested by the dots of the keys. Reading finds
// every fault in one go, with line and column; writing follows the order of the table, so that two
// backups compare well as texts.

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "configuration/values.h"

namespace kestrane {

inline constexpr char kConfigurationFormat[] = "kestrane-configuration";
inline constexpr long kConfigurationVersion = 1;

// Where in a text something stands, both from 1.
struct FilePosition {
    int line = 1;
    int column = 1;
};

struct FileFault {
    FilePosition at;
    std::string key;  // dotted; empty where the text itself is at fault
    std::string sentence;

    // "FILE:LINE:COLUMN: KEY: sentence", control characters escaped.
    std::string Line(const std::string& file) const;
};

struct ConfigurationText {
    SettingValues values;                           // without read-only ones
    std::map<const Setting*, FilePosition> places;  // where each value stands
    std::vector<FileFault> faults;
    std::vector<FileFault> notes;  // what was passed over
};

// Reads a whole file. With faults the values are those that are right.
ConfigurationText ReadConfiguration(std::string_view content);

// Why these values together would leave a unit that can't be read; nothing if they would not.
std::optional<std::string> CheckTogether(const SettingValues& values);

// What a file says of the unit that it was made from.
struct UnitFacts {
    std::string type;
    std::string serial;
    std::string relay_firmware;
    std::string display_firmware;
};

// Why settings are not in a file: "secret", "the unit does not give it back".
using LeftOut = std::map<const Setting*, std::string>;

// UTF-8, ends with a line feed.
std::string WriteConfiguration(const UnitFacts& unit, const SettingValues& values,
                               const LeftOut& left_out);

}  // namespace kestrane
