#include "simulation/sessions/picture.h"

#include "simulation/sessions/broken.h"

namespace kestrane::sessions {
namespace {

std::string Shown(const Control& control) {
    if (const auto* box = dynamic_cast<const TextBox*>(&control)) return box->Text();
    if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
        return check->Checked() ? "[x]" : "[ ]";
    }
    if (const auto* label = dynamic_cast<const Label*>(&control)) return label->Caption();
    return {};
}

bool Counts(const Control& control) {
    for (const char* base : {"txtSalt", "txtSHA", "txtTimeout", "txtSleepDelay", "Label1", "Label2",
                             "Label3", "Label4", "lblMemoryBlock", "lblPasswordWarn"}) {
        if (control.base_name() == base) return false;
    }
    for (const Container* at = &control.container(); at; at = at->parent()) {
        if (at->container_name() == "fraChangeoverOptions") return false;
    }
    return control.kind() != Kind::kTimer;
}

}  // namespace

Picture PictureOf(const Form& form) {
    Picture picture;
    for (const Control* control : form.controls()) {
        if (!Counts(*control)) continue;
        picture[control->name()] =
            Shown(*control) + (control->Enabled() ? " enabled" : " disabled");
    }
    return picture;
}

void Compare(const Picture& seen, const Picture& wanted, const std::string& when) {
    for (const auto& [name, value] : wanted) {
        const std::string& shown = seen.at(name);
        if (shown == value) continue;
        throw Broken{when + ": " + name + " is \"" + shown + "\", not \"" + value + "\""};
    }
}

}  // namespace kestrane::sessions
