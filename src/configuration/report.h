#pragma once

// What came of comparing wanted values with a unit or with each other, and of writing them.

#include <optional>
#include <string>
#include <vector>

#include "configuration/values.h"

namespace kestrane {

// Which settings of a file count for this unit.
struct SettingFilter {
    std::vector<std::string> only;    // prefixes; none: all
    std::vector<std::string> except;  // prefixes
    bool identity = false;            // those that tell units apart as well
    bool live = false;                // those that a restart loses as well

    bool Names(const Setting& setting) const;
    // "identity" or "live" for one that is named and left alone all the same; else empty.
    std::string LeftAlone(const Setting& setting) const;
};

enum class SettingState { kPlanned, kWritten, kVerified, kUnverified, kNotTaken, kNotBegun };
// "planned", "written" and so on.
const char* StateInWords(SettingState state);

struct SettingChange {
    const Setting* setting = nullptr;
    std::optional<SettingValue> before;  // nothing: the unit does not give it back
    SettingValue after;
    SettingState state = SettingState::kPlanned;
    std::optional<SettingValue> reads;  // afterwards, where it was read again
};

struct SettingLeftAlone {
    const Setting* setting = nullptr;
    std::optional<SettingValue> before;
    SettingValue after;
    std::string why;
};

struct ApplyReport {
    enum class Result { kSame, kDifferent, kChanged, kRefused, kFailed, kNotBegun };

    std::string unit;
    Result result = Result::kSame;
    std::vector<SettingChange> changes;  // in the order of the table
    std::vector<SettingLeftAlone> left_alone;
    std::string error;               // one line, if refused or failed
    std::vector<std::string> notes;  // what the tool said on the way
    bool declined = false;           // by the one who was asked

    bool Changes(const Setting& setting) const;
    int CountOf(SettingState state) const;
    // Changes that did not come about.
    int Failed() const;
};
// "same", "different", "changed", "refused", "failed", "not begun".
const char* ResultInWords(ApplyReport::Result result);

// Two sets of values: what both hold and do not hold alike. The first stands before.
ApplyReport CompareValues(const SettingValues& before, const SettingValues& after,
                          const SettingFilter& filter);

}  // namespace kestrane
