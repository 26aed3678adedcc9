#include "cli/changes.h"

#include <algorithm>

#include "cli/shown_value.h"
#include "console/values.h"
#include "settings/quad.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr double kHighestPort = 65535;
constexpr std::uint32_t kHighestID = 0x61;
constexpr int kPasswordLevels = 3;
constexpr char kPasswordSet[] = "******";

// The value by the kind of the control; nothing, with what it takes in `error`.
std::optional<Value> ParseValue(const Control& control, const std::string& text,
                                std::string& error) {
    const Word word{text};
    if (control.kind() == Kind::kComboBox) {
        const auto& items = static_cast<const ComboBox&>(control).Items();
        const auto bytes = ToByteText(text);
        const auto item = std::find(items.begin(), items.end(), bytes.value_or(""));
        if (bytes && item != items.end()) return static_cast<long>(item - items.begin());
        const auto index = WordAsInt(word, 0, static_cast<int>(items.size()) - 1);
        if (index) return static_cast<long>(*index);
        error =
            "takes one of its items, or its number from 0 to " + std::to_string(items.size() - 1);
        return {};
    }
    const Converted converted = ConvertWord(word, control.Properties().front().second);
    error = converted.error;
    if (!converted.value) return {};
    if (control.kind() == Kind::kCheckBox && !SameValue(*converted.value, 0L) &&
        !SameValue(*converted.value, 1L)) {
        error = "takes 0 or 1";
        return {};
    }
    if (control.kind() == Kind::kOptionButton && !SameValue(*converted.value, true)) {
        error = "takes true; choose another option to clear it";
        return {};
    }
    return converted.value;
}

bool TakesSet(const Control& control) {
    switch (control.kind()) {
        case Kind::kTextBox:
        case Kind::kCheckBox:
        case Kind::kOptionButton:
        case Kind::kComboBox:
        case Kind::kScrollBar:
            return true;
        default:
            return false;
    }
}

// Texts that the screen would let pass, but that no write could send as they stand.
Refusal CheckText(const Control& control, const std::string& text) {
    const std::string& name = control.base_name();
    if (name == "txtTcpControlPort" && Val(text) > kHighestPort) {
        return "a port is a number from 0 to 65535";
    }
    if (name == "txtTimeServerIP") {
        std::string quad = text;
        std::string bytes;
        bool valid = false;
        DecodeQuad(quad, bytes, valid);
        if (!valid) return "is no address of four numbers from 0 to 255";
    }
    if (name == "txtUnitID") {
        const bool digits =
            !text.empty() && text.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos;
        if (!digits || HexNumber(text) > kHighestID) return "an ID is hexadecimal, 00 to 61";
    }
    return {};
}

// The control whose click opens a box that is disabled otherwise.
std::string Opener(const Control& control) {
    const std::string index = "(" + std::to_string(control.index()) + ")";
    const std::string& name = control.base_name();
    if (name == "txtTimeServerIP") return "chkTimeServerEnable=1";
    if (name == "txtTcpControlPort") return "chkTcpControlEnable" + index + "=1";
    if (name == "txtForceDisconnect") return "chkTcpControlEnable(0)=1";
    if (name == "txtWebPassword") return "chkWebSecurityDisable" + index + "=0";
    return {};
}

Refusal Put(Hand& hand, const Change& change) {
    Control& control = *change.control;
    switch (control.kind()) {
        case Kind::kTextBox:
            return hand.Type(static_cast<TextBox&>(control), std::get<std::string>(change.wanted));
        case Kind::kCheckBox:
        case Kind::kOptionButton:
            return hand.Click(control);
        default:
            return hand.Choose(control, static_cast<int>(std::get<long>(change.wanted)));
    }
}

bool IsRed(const Change& change) {
    // There red tells of a value that differs from the unit's, which a new one does.
    if (change.tab->kind == TabKind::kChangeover) return false;
    if (change.control->ForeColor() == kRed) return true;
    const Label* const label = LabelOf(*change.control);
    return label && label->ForeColor() == kRed;
}

bool Names(const std::vector<Change>& changes, const Control& control) {
    return std::any_of(changes.begin(), changes.end(),
                       [&](const Change& change) { return change.control == &control; });
}

// A write would do nothing while any of the five addresses is red, and would not say so.
Refusal CheckAddresses(const MainForm& form, const std::vector<Change>& changes) {
    const NetworkTab& net = form.network;
    if (net.fraFixedIPSettings.ForeColor() != kRed) return {};
    for (const TextBox* box : {&net.txtIPAddress, &net.txtSubnetMask, &net.txtDefaultGateway,
                               &net.txtPrimaryDNS, &net.txtSecondaryDNS}) {
        const Label* const label = LabelOf(*box);
        if (!label || label->ForeColor() != kRed || Names(changes, *box)) continue;
        return box->name() + ": \"" + ShownText(box->Text()) +
               "\", which the unit holds, is no valid address; set it as well";
    }
    return {};
}

// A level left at its stars would get them as its password.
Refusal CheckPasswords(const MainForm& form, const std::vector<Change>& changes) {
    for (int level = 0; level < kPasswordLevels; ++level) {
        const TextBox& box = form.security.txtWebPassword(level);
        if (box.Text() != kPasswordSet || Names(changes, box)) continue;
        return box.name() + ": all three levels need to be set together; give it as well, or " +
               form.security.chkWebSecurityDisable(level).name() + "=1";
    }
    return {};
}

}  // namespace

std::optional<Change> ParseChange(Tool& tool, const std::string& assignment, std::string& error) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos || equals == 0) {
        error = "\"" + assignment + "\" is no NAME=VALUE";
        return {};
    }
    std::string name = assignment.substr(0, equals);
    constexpr std::string_view kForm = "frmMainForm.";
    if (name.compare(0, kForm.size(), kForm) == 0) name.erase(0, kForm.size());
    Change change;
    change.given = assignment.substr(equals + 1);
    change.control = tool.main_form.Find(name);
    const auto fail = [&](const std::string& why) {
        error = name + ": " + why;
        return std::optional<Change>();
    };
    if (!change.control) return fail("there is no such control");
    change.tab = TabOf(*change.control);
    if (!TakesSet(*change.control)) return fail("holds no value that can be set");
    if (!change.tab || change.tab->kind == TabKind::kFirmware) {
        return fail("is no setting of the unit");
    }
    const auto* box = dynamic_cast<const TextBox*>(change.control);
    if (box && box->Locked()) return fail("is for display only");
    if (name == "txtStartup(4)" || name == "scrStartup(4)") {
        return fail("the default alarm is shown only, the tool does not write it");
    }
    std::string why;
    const auto wanted = ParseValue(*change.control, change.given, why);
    if (!wanted) return fail("\"" + change.given + "\": " + why);
    change.wanted = *wanted;
    if (const auto* text = std::get_if<std::string>(&*wanted)) {
        if (const auto refusal = CheckText(*change.control, *text)) {
            return fail("\"" + change.given + "\": " + *refusal);
        }
    }
    return change;
}

Refusal Apply(Tool& tool, const Change& change) {
    if (SameValue(change.control->Properties().front().second, change.wanted)) return {};
    const Refusal refusal = Put(tool.hand, change);
    tool.hand.Leave();
    if (!refusal) return {};
    const std::string opener = change.control->Enabled() ? "" : Opener(*change.control);
    return *refusal + (opener.empty() ? "" : "; give " + opener + " before it");
}

Refusal Check(const Change& change) {
    const std::string told = change.control->name() + ": \"" + change.given + "\"";
    if (!SameValue(change.control->Properties().front().second, change.wanted)) {
        const auto* box = dynamic_cast<const TextBox*>(change.control);
        const auto* text = std::get_if<std::string>(&change.wanted);
        const bool too_long = box && text && box->MaxLength() > 0 &&
                              text->size() > static_cast<std::size_t>(box->MaxLength());
        if (too_long) {
            return told + " is longer than " + std::to_string(box->MaxLength()) + " characters";
        }
        return told + " is not taken as it stands, it became \"" + ShownValue(*change.control) +
               "\"";
    }
    if (IsRed(change)) return told + " is not valid or not complete, it stays red";
    return {};
}

Refusal CheckTogether(const MainForm& form, const std::vector<Change>& changes) {
    const auto touches = [&](const char* tab) {
        return std::any_of(changes.begin(), changes.end(), [&](const Change& change) {
            return change.tab == FindTab(tab) && change.control->name() != "txtUnitID";
        });
    };
    if (touches("network")) {
        if (auto refusal = CheckAddresses(form, changes)) return refusal;
    }
    return touches("security") ? CheckPasswords(form, changes) : Refusal();
}

}  // namespace kestrane
