#include "cli/value_controls.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "configuration/settings.h"
#include "console/values.h"
#include "text/terminal.h"

namespace kestrane {
namespace {

// Labels whose captions are values, and what they are where no label beside them says it.
const std::map<std::string_view, std::string_view> kValueLabels = {
    {"lbl1WAddress", ""},
    {"lbl1WType", ""},
    {"lbl1We2p", ""},
    {"lbl1WTotal", ""},
    {"lblPrivByte", ""},
    {"lblType", ""},
    {"lblSerialNo", ""},
    {"lblRelayVersion", ""},
    {"lblRelayLatest", "Relay, latest:"},
    {"lblDisplayVersion", ""},
    {"lblDisplayLatest", "Display, latest:"},
    {"lblOffTimeMain", "live, off time main"},
    {"lblOffTimeBackup", "live, off time backup"},
    {"lblPhase", "live, phase"},
    {"lblChangeBack", "live, change back"},
    {"lblDefaultIn", "live, default inlet"},
    {"lblLockout", "live, lockout"}};

bool HoldsValue(const Control& control) {
    switch (control.kind()) {
        case Kind::kTextBox:
            return control.base_name() != "txtSalt" && control.base_name() != "txtSHA";
        case Kind::kCheckBox:
        case Kind::kOptionButton:
        case Kind::kComboBox:
            return true;
        case Kind::kLabel:
            return kValueLabels.count(control.base_name()) > 0;
        default:
            return false;
    }
}

bool IsArrayMember(const Control& control) { return control.name() != control.base_name(); }

// "names.outlet.3.upper" as "outlet 3, upper".
std::string KeyInWords(const std::string& key) {
    std::string words;
    bool number_follows = false;
    for (std::size_t i = key.find('.') + 1; i < key.size(); ++i) {
        number_follows = i + 1 < key.size() && key[i + 1] >= '0' && key[i + 1] <= '9';
        if (key[i] == '.') {
            words += number_follows ? " " : ", ";
        } else {
            words += key[i] == '_' ? ' ' : key[i];
        }
    }
    return words;
}

// The value labels that come in numbers.
std::string LabelInWords(const Control& control) {
    const std::string& name = control.base_name();
    const std::string number = std::to_string(control.index() + 1);
    if (name == "lbl1WAddress") return "sensor " + number + ", address found";
    if (name == "lbl1WType") return "sensor " + number + ", type found";
    if (name == "lblPrivByte") {
        const bool as_read = control.index() >= 1000;
        const int place = control.index() % 1000;
        return std::string(place < 200 ? "relay, " : "display, ") + "abc"[place / 10 % 10 - 1] +
               (as_read ? ", byte as read" : ", byte of the boxes");
    }
    return {};
}

// The label beside a control that stands alone.
std::string InscriptionOf(const Control& control) {
    const auto& all = control.form().controls();
    const auto at = std::find(all.begin(), all.end(), &control);
    const auto beside = [&](const Control* other) {
        const bool fits = &other->container() == &control.container() &&
                          other->kind() == Kind::kLabel && !HoldsValue(*other) &&
                          !IsArrayMember(*other);
        return fits ? static_cast<const Label*>(other)->Caption() : std::string();
    };
    // Most have theirs before them, a few after.
    if (at != all.begin()) {
        if (std::string text = beside(*(at - 1)); !text.empty()) return text;
    }
    return at + 1 != all.end() ? beside(*(at + 1)) : std::string();
}

}  // namespace

std::vector<Control*> ValueControls(const MainForm& form, const TabRow& tab) {
    std::vector<Control*> controls;
    for (Control* control : form.controls()) {
        if (HoldsValue(*control) && TabOf(*control) == &tab) controls.push_back(control);
    }
    return controls;
}

std::string CaptionOf(const Control& control) {
    if (control.kind() == Kind::kOptionButton) {
        const auto& option = static_cast<const OptionButton&>(control);
        const Setting* const group = SettingOfControl(control.name());
        return (group ? KeyInWords(group->key) + ": " : std::string()) + option.Caption();
    }
    const auto words = kValueLabels.find(control.base_name());
    if (words != kValueLabels.end() && !words->second.empty()) return std::string(words->second);
    if (!IsArrayMember(control)) {
        const std::string text = InscriptionOf(control);
        const Setting* const setting = SettingOfControl(control.name());
        // A line of a pair of boxes, of which one alone has the label.
        const bool line = setting && setting->key.starts_with("names.");
        if (!text.empty() && !line) return text;
    }
    if (const Setting* setting = SettingOfControl(control.name())) return KeyInWords(setting->key);
    return LabelInWords(control);
}

bool IsUnreadable(const Session& session, const Control& control) {
    const bool right = control.base_name() == "chkPriv";
    return right && (!control.Visible() || session.ConnectedPortIndex == 0);
}

bool IsSecret(const Control& control) {
    const Setting* const setting = SettingOfControl(control.name());
    return setting && setting->secret;
}

std::string ShownControl(const Control& control) {
    const Value value = control.Properties().front().second;
    if (const auto* text = std::get_if<std::string>(&value)) return ShownText(*text);
    std::string shown = ToJson(value).dump();
    const auto* combo = dynamic_cast<const ComboBox*>(&control);
    if (!combo || combo->ListIndex() < 0) return shown;
    const auto& item = combo->Items()[static_cast<std::size_t>(combo->ListIndex())];
    return shown + " (" + ShownText(item) + ")";
}

}  // namespace kestrane
