#include "cli/tabs.h"

#include <algorithm>
#include <set>

namespace kestrane {
namespace {

// Labels whose captions are values and no inscriptions.
const std::set<std::string_view> kValueLabels = {
    "lbl1WAddress",     "lbl1WType",      "lbl1We2p",         "lbl1WTotal",     "lblPrivByte",
    "lblType",          "lblSerialNo",    "lblRelayVersion",  "lblRelayLatest", "lblDisplayVersion",
    "lblDisplayLatest", "lblOffTimeMain", "lblOffTimeBackup", "lblPhase",       "lblChangeBack",
    "lblDefaultIn",     "lblLockout"};

bool IsInscription(const Control& control) {
    return control.kind() == Kind::kLabel && !kValueLabels.count(control.base_name());
}

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

const TabPage* PageOf(const Control& control) {
    for (const Container* at = &control.container(); at != nullptr; at = at->parent()) {
        if (const auto* page = dynamic_cast<const TabPage*>(at)) return page;
    }
    return nullptr;
}

bool IsArrayMember(const Control& control) { return control.name() != control.base_name(); }

// The inscription beside an array's member: the one of the same index in an array as long.
Label* LabelOfMember(const Control& control) {
    const auto& all = control.form().controls();
    const auto size_of = [&](const std::string& base) {
        return std::count_if(all.begin(), all.end(),
                             [&](const Control* other) { return other->base_name() == base; });
    };
    for (Control* other : all) {
        if (&other->container() == &control.container() && IsInscription(*other) &&
            IsArrayMember(*other) && other->index() == control.index() &&
            size_of(other->base_name()) == size_of(control.base_name())) {
            return static_cast<Label*>(other);
        }
    }
    return nullptr;
}

}  // namespace

const std::vector<TabRow>& TabRows() {
    // clang-format off
    static const std::vector<TabRow> rows = {
        {"network",    TabKind::kSettings,   0,  "cmdReadNetworkSettings", "Reading memory complete.",
         "cmdWriteNetworkSettings", "Memory write complete."},
        // Its write ends by reading back.
        {"privileges", TabKind::kSettings,   1,  "cmdReadTCPPortPriv",     "Privilege read complete",
         "cmdWriteTCPPortPriv",     "Privilege read complete"},
        {"security",   TabKind::kSettings,   2,  "cmdReadWBISettings",     "Reading Web Browser Passwords Complete",
         "cmdWriteWBISettings",     "Web browser Settings Write Complete."},
        {"names",      TabKind::kSettings,   3,  "cmdReadChannelNames",    "Reading channel names complete",
         "cmdWriteChannelNames",    "Writing names complete"},
        {"triggers",   TabKind::kSettings,   4,  "cmdReadMacroTriggers",   "Reading Macro Data Complete",
         "cmdWriteMacroTriggers",   "Writing Macro Data complete"},
        {"1wire",      TabKind::kSettings,   5,  "cmdRead1WNames",         "Reading 1-Wire Settings Complete",
         "cmdWrite1WNames",         "Writing 1-Wire Names complete"},
        {"changeover", TabKind::kChangeover, 6,  "cmdReadCMSOptions",      "Reading Changeover Data Complete",
         "", ""},
        {"firmware",   TabKind::kFirmware,   7,  "cmdGetUnitFirmware",     "", "", ""},
        {"macro",      TabKind::kMacro,      -1, "cmdEditMacro",           "", "", ""},
    };
    // clang-format on
    return rows;
}

const TabRow* FindTab(std::string_view name) {
    for (const TabRow& row : TabRows()) {
        if (name == row.name) return &row;
    }
    return nullptr;
}

const TabRow* TabOf(const Control& control) {
    const TabPage* const page = PageOf(control);
    if (!page) return nullptr;
    for (const TabRow& row : TabRows()) {
        if (row.page == page->index()) return &row;
    }
    return nullptr;
}

std::vector<Control*> ValueControls(const MainForm& form, const TabRow& tab) {
    std::vector<Control*> controls;
    for (Control* control : form.controls()) {
        if (HoldsValue(*control) && TabOf(*control) == &tab) controls.push_back(control);
    }
    return controls;
}

Label* LabelOf(const Control& control) {
    if (IsArrayMember(control)) return LabelOfMember(control);
    const auto& all = control.form().controls();
    const auto at = std::find(all.begin(), all.end(), &control);
    const auto beside = [&](Control* other) {
        const bool fits = &other->container() == &control.container() && IsInscription(*other) &&
                          !IsArrayMember(*other);
        return fits ? static_cast<Label*>(other) : nullptr;
    };
    // Most boxes have theirs before them, a few behind.
    if (at != all.begin()) {
        if (Label* label = beside(*(at - 1))) return label;
    }
    return at + 1 != all.end() ? beside(*(at + 1)) : nullptr;
}

}  // namespace kestrane
