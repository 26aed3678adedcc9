#pragma once

// Settings on the screen: what a control shows as a setting's value, and how a hand brings a value
// about in it.

#include <optional>
#include <string>

#include "configuration/unit_session.h"
#include "configuration/values.h"

namespace kestrane {

inline constexpr char kNotOnThisUnit[] = "not on this unit";

struct ShownValue {
    std::optional<SettingValue> value;
    // Why there is none, "the unit does not give it back"; or why no file may hold this one.
    std::string why_not;

    bool FitsAFile() const { return value && why_not.empty(); }
};

// What the unit holds, for a tab that has been read and not been edited since. `program`: the
// macro program as it was read.
ShownValue ValueOnScreen(Tool& tool, const Setting& setting, const MacroMemory& program);

// Does with a hand what brings the value about, opens and closes again what keeps the control
// shut, and leaves the control. Why that was refused, or what became of the value instead.
Refusal TypeSetting(Tool& tool, const Setting& setting, const SettingValue& value);

// Why the value does not stand in its control as wanted: another one, or a red box.
Refusal CheckTyped(Tool& tool, const Setting& setting, const SettingValue& value);

// The button that saves a setting of the changeover tab; each saves a part of it.
const char* SaveButtonOf(const Setting& setting);

}  // namespace kestrane
