#pragma once

// Values of settings, apart from files and screens: what a setting may hold, when two values are
// the same, and how one is shown.

#include <map>
#include <optional>
#include <string>
#include <variant>

#include "configuration/settings.h"

namespace kestrane {

// A switch, a number, or a byte text.
using SettingValue = std::variant<bool, long, std::string>;

// Some of the settings; what is absent stays as it is on the unit.
using SettingValues = std::map<const Setting*, SettingValue>;

// Why no unit could hold this value, in a sentence that says what would be right; nothing if one
// could. A value that a unit can hold but nobody can type passes.
std::optional<std::string> CheckValue(const Setting& setting, const SettingValue& value);

// The one form of values that mean the same: digits in capitals, no comment, "" for an address 00.
SettingValue Normal(const Setting& setting, SettingValue value);
bool SameSetting(const Setting& setting, const SettingValue& a, const SettingValue& b);

// The value that a word of a command line means, as a file would write it.
std::optional<SettingValue> ValueOfWord(const Setting& setting, const std::string& utf8,
                                        std::string& error);

// As UTF-8 for a terminal, control characters escaped; "(secret)" for a secret one.
std::string ShownSetting(const Setting& setting, const SettingValue& value,
                         bool with_secrets = false);

}  // namespace kestrane
