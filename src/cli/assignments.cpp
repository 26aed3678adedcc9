#include "cli/assignments.h"

#include <algorithm>
#include <charconv>

#include "text/terminal.h"

namespace kestrane {
namespace {

constexpr std::string_view kForm = "frmMainForm.";

using Parsed = std::optional<SettingValue>;

std::optional<int> AsIndex(const std::string& text, std::size_t count) {
    std::size_t index = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, fault] = std::from_chars(text.data(), end, index);
    if (fault != std::errc() || stopped != end || index >= count) return {};
    return static_cast<int>(index);
}

// The option of a group that `control` names: "optInE2P(2)" takes true.
Parsed OfOption(const Setting& setting, const std::string& control, const std::string& text,
                std::string& error) {
    const std::size_t open = control.find('(');
    if (open == std::string::npos) return ValueOfWord(setting, text, error);
    if (text != "true" && text != "1") {
        error = "takes true; choose another option to clear it";
        return {};
    }
    const auto number =
        AsIndex(control.substr(open + 1, control.size() - open - 2), setting.choices.size() + 1);
    if (!number || *number == 0) {
        error = "there is no such option";
        return {};
    }
    return setting.choices[static_cast<std::size_t>(*number) - 1];
}

// A list takes the text of an item or its number from 0.
Parsed OfControl(const Setting& setting, const std::string& control, const std::string& text,
                 std::string& error) {
    if (setting.control != control) return OfOption(setting, control, text, error);
    if (setting.kind == SettingKind::kChoice) {
        if (const auto index = AsIndex(text, setting.choices.size())) {
            return setting.choices[static_cast<std::size_t>(*index)];
        }
    }
    return ValueOfWord(setting, text, error);
}

// A bar mirrors its box upside down: "scrStartup(0)=222" is "txtStartup(0)=33".
void BarToBox(std::string& control, std::string& value) {
    if (!control.starts_with("scr")) return;
    constexpr std::size_t kHighest = 255;
    const auto position = AsIndex(value, kHighest + 1);
    if (!position) return;
    control.replace(0, 3, "txt");
    value = std::to_string(static_cast<int>(kHighest) - *position);
}

// By its key, or by its control.
const Setting* SettingNamed(std::string_view name) {
    if (const Setting* setting = FindSetting(name)) return setting;
    if (name.starts_with(kForm)) name.remove_prefix(kForm.size());
    return SettingOfControl(name);
}

std::string Unknown(const std::string& name) {
    return name + ": there is no such setting; the nearest is " + NearestKey(name);
}

}  // namespace

std::optional<Assignment> ParseAssignment(const std::string& text, std::string& error) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0) {
        error = ShownUtf8("\"" + text + "\" is not NAME=VALUE");
        return {};
    }
    Assignment made;
    made.name = text.substr(0, equals);
    std::string given = text.substr(equals + 1);
    std::string control = made.name;
    if (control.starts_with(kForm)) control.erase(0, kForm.size());

    // It is no setting: the box that it opens is opened on the way.
    if (control == "chkTimeServerEnable" && (given == "0" || given == "1")) return made;
    BarToBox(control, given);
    made.setting = FindSetting(made.name);
    const bool by_key = made.setting != nullptr;
    if (!by_key) made.setting = SettingOfControl(control);
    if (!made.setting) {
        error = ShownUtf8(Unknown(made.name));
        return {};
    }
    const auto fail = [&](const std::string& why) {
        error = ShownUtf8(made.name + ": " + why);
        return std::optional<Assignment>();
    };
    if (made.setting->read_only) return fail("can only be read");
    std::string why;
    // A box takes an ID of one digit.
    const bool short_id = made.setting->key == "unit.id" && given.size() == 1;
    const std::string word = short_id ? "0" + given : given;
    auto value = by_key ? ValueOfWord(*made.setting, word, why)
                        : OfControl(*made.setting, control, word, why);
    if (!value) return fail(why);
    if (const auto fault = CheckValue(*made.setting, *value)) {
        return fail((made.setting->secret ? std::string() : "\"" + given + "\" ") + *fault);
    }
    made.value = Normal(*made.setting, *std::move(value));
    return made;
}

void HideSecrets(int count, char** words) {
    constexpr std::string_view kOption = "--set=";
    for (int i = 1; i < count; ++i) {
        const std::string_view word = words[i];
        const std::size_t begin = word.starts_with(kOption) ? kOption.size() : 0;
        const std::size_t equals = word.find('=', begin);
        if (equals == std::string_view::npos) continue;
        const Setting* const setting = SettingNamed(word.substr(begin, equals - begin));
        if (setting && setting->secret)
            std::fill(words[i] + equals + 1, words[i] + word.size(), 'x');
    }
}

SettingValues ValuesOf(const std::vector<Assignment>& assignments) {
    SettingValues values;
    for (const Assignment& each : assignments) {
        if (each.setting) values[each.setting] = each.value;
    }
    return values;
}

}  // namespace kestrane
