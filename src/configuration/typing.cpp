#include "configuration/typing.h"

#include <algorithm>

#include "configuration/web_levels.h"
#include "text/text.h"

namespace kestrane {
namespace {

bool IsUnitID(const Setting& setting) { return setting.key == "unit.id"; }

}  // namespace

bool ChangesBlocksOf(const ApplyReport& report, const TabRow& tab) {
    return std::any_of(report.changes.begin(), report.changes.end(),
                       [&](const SettingChange& change) {
                           return tab.Holds(*change.setting) && !IsUnitID(*change.setting);
                       });
}

int LevelOf(Tool& tool, const Setting& setting) {
    return tool.main_form.Find(setting.control)->index();
}

// Leaving a tab and coming back may leave its frames disabled, and leaving the changeover tab
// clears it: each tab is read and typed at one go, and that one comes last on the screen.
bool Typing::Run() {
    SelectWanted();
    const TabRow& network = *FindTab("network");
    if (!session_.Read(network)) return false;
    for (const TabRow& tab : TabRows()) {
        if (!Touches(tab)) continue;
        if (session_.Missing(tab)) {
            LeaveTabAlone(tab);
            continue;
        }
        const bool read = &tab == &network ? session_.SelectTab(tab) : session_.Read(tab);
        if (!read) return false;
        Compare(tab);
        if (!request_.compare_only) Type(tab);
    }
    InTableOrder();
    return true;
}

void Typing::SelectWanted() {
    for (const auto& [setting, value] : request_.wanted) {
        if (!request_.filter.Names(*setting)) continue;
        wanted_[setting] = {value, request_.filter.LeftAlone(*setting)};
    }
    for (const auto& [setting, value] : request_.own) {
        if (request_.filter.Names(*setting)) wanted_[setting] = {value, {}};
    }
}

bool Typing::Touches(const TabRow& tab) const {
    return std::any_of(wanted_.begin(), wanted_.end(),
                       [&](const auto& row) { return tab.Holds(*row.first); });
}

void Typing::LeaveTabAlone(const TabRow& tab) {
    for (const auto& [setting, wanted] : wanted_) {
        if (tab.Holds(*setting)) {
            report_.left_alone.push_back({setting, {}, wanted.value, kNotOnThisUnit});
        }
    }
}

// A password is compared by what the unit holds of it.
bool Typing::Holds(const Setting& setting, const ShownValue& shown,
                   const SettingValue& value) const {
    if (setting.write_only) {
        return WebLevelHolds(tool_, LevelOf(tool_, setting), std::get<std::string>(value)) == true;
    }
    return shown.value && SameSetting(setting, *shown.value, value);
}

void Typing::Compare(const TabRow& tab) {
    before_.clear();
    for (const Setting& setting : Settings()) {
        if (!tab.Holds(setting)) continue;
        before_[&setting] = ValueOnScreen(tool_, setting, session_.Program());
    }
    for (const auto& [setting, wanted] : wanted_) {
        if (!tab.Holds(*setting)) continue;
        ShownValue shown = ValueOnScreen(tool_, *setting, session_.Program());
        // Of a password an empty one alone is known.
        const bool open = setting->write_only &&
                          StateOfWebLevel(tool_, LevelOf(tool_, *setting)) == WebLevel::kOpen;
        if (open) shown.value = std::string();
        if (Holds(*setting, shown, wanted.value)) continue;
        std::string why = wanted.left_alone;
        if (shown.why_not == kNotOnThisUnit) why = kNotOnThisUnit;
        const bool unknown_right = setting->key.starts_with("privileges.") && !shown.value;
        if (why.empty() && unknown_right && !request_.compare_only) {
            refusals_.push_back(setting->key + ": " + shown.why_not);
            continue;
        }
        if (why.empty()) {
            report_.changes.push_back({setting, shown.value, wanted.value, {}, {}});
        } else {
            report_.left_alone.push_back({setting, shown.value, wanted.value, why});
        }
    }
}

void Typing::InTableOrder() {
    const auto earlier = [](const auto& a, const auto& b) { return a.setting < b.setting; };
    std::stable_sort(report_.changes.begin(), report_.changes.end(), earlier);
    std::stable_sort(report_.left_alone.begin(), report_.left_alone.end(), earlier);
}

// Values of a tab may depend on each other, as rights that imply others do: what does not stand
// yet is typed again.
void Typing::Type(const TabRow& tab) {
    std::vector<const SettingChange*> changes;
    for (const SettingChange& change : report_.changes) {
        if (tab.Holds(*change.setting)) changes.push_back(&change);
    }
    if (changes.empty()) return;
    if (tab.kind == TabKind::kMacro) return CheckLastMacroLine();  // put in when it is written
    if (std::string_view(tab.name) == "security") TypeOtherLevels();
    std::map<const SettingChange*, Refusal> refused;
    constexpr int kPasses = 3;
    for (int pass = 0; pass < kPasses; ++pass) {
        for (const SettingChange* change : changes) {
            if (pass > 0 && !CheckTyped(tool_, *change->setting, change->after)) continue;
            refused[change] = TypeSetting(tool_, *change->setting, change->after);
        }
    }
    const bool id_refused = !tool_.main_form.network.cmdUnitID.Enabled();
    for (const SettingChange* change : changes) {
        if (IsUnitID(*change->setting) && id_refused) {
            refusals_.push_back("unit.id: an ID is hexadecimal, 00 to 61");
        }
        const Refusal standing = CheckTyped(tool_, *change->setting, change->after);
        if (!standing) continue;
        refusals_.push_back(refused[change] ? *refused[change] : *standing);
    }
    if (refusals_.empty()) FindSideEffects(tab);
    CheckTabTogether(tab);
}

// One salt serves all levels, so that a write sends all three: those that stay are typed as the
// unit holds them.
void Typing::TypeOtherLevels() {
    SecurityTab& tab = tool_.main_form.security;
    for (int level = 0; level < 3; ++level) {
        TextBox& box = tab.txtWebPassword(level);
        CheckBox& closed = tab.chkWebSecurityDisable(level);
        const Setting& password = *SettingOfControl(box.name());
        const bool changes = report_.Changes(*SettingOfControl(closed.name()));
        const auto wanted = wanted_.find(&password);
        const bool known = wanted != wanted_.end() && wanted->second.left_alone.empty();
        if (report_.Changes(password)) continue;
        if (!changes && StateOfWebLevel(tool_, level) == WebLevel::kClosed) {
            tool_.hand.Click(closed);
        } else if (changes || StateOfWebLevel(tool_, level) == WebLevel::kOpen) {
            tool_.hand.Type(box, "");
        } else if (known) {
            tool_.hand.Type(box, std::get<std::string>(wanted->second.value));
        }
    }
    tool_.hand.Leave();
}

// What a change brings about by itself belongs to it, unless the other was wanted: a trigger
// without an address is disabled, who may write the other ports' rights may read them.
void Typing::FindSideEffects(const TabRow& tab) {
    const std::string_view name = tab.name;
    for (const auto& [setting, before] : before_) {
        if (report_.Changes(*setting) || setting->write_only || !before.value) continue;
        const auto standing = name == "security" ? ClosedOnScreen(*setting)
                                                 : ValueOnScreen(tool_, *setting, {}).value;
        if (!standing || SameSetting(*setting, *standing, *before.value)) continue;
        const auto wanted = wanted_.find(setting);
        if (wanted != wanted_.end() && wanted->second.left_alone.empty()) {
            refusals_.push_back(setting->key + ": \"" +
                                ShownSetting(*setting, wanted->second.value) +
                                "\" can't stand beside the other values");
        } else {
            report_.changes.push_back({setting, before.value, *standing, {}, {}});
        }
    }
}

std::optional<SettingValue> Typing::ClosedOnScreen(const Setting& setting) const {
    return SettingValue(static_cast<CheckBox*>(tool_.main_form.Find(setting.control))->Checked());
}

// What the tool would let pass, though the write would do something else than was asked.
void Typing::CheckTabTogether(const TabRow& tab) {
    if (!ChangesBlocksOf(report_, tab)) return;
    const std::string name = tab.name;
    if (name == "network") CheckNetwork();
    if (name == "security") CheckPasswords();
    if (name == "privileges") CheckColumns();
    if (name == "triggers") CheckTriggers();
}

// An upload would clear the second byte, and the report would tell of one that never arrived.
void Typing::CheckLastMacroLine() {
    for (const SettingChange& change : report_.changes) {
        if (change.setting->key != "macro.7F") continue;
        const std::string line = std::get<std::string>(change.after).substr(0, 5);
        if (line.ends_with("00")) continue;
        refusals_.push_back("macro.7F: \"" + line + "\" can't be written, as an upload clears " +
                            "the second byte there; give \"" + line.substr(0, 3) + "00\"");
    }
}

// An address that was read as 00 leaves the switch open, and the write would let it pass.
void Typing::CheckTriggers() {
    TriggersTab& tab = tool_.main_form.triggers;
    for (CheckBox& box : tab.chkMacro) {
        const Setting& setting = *SettingOfControl(box.name());
        const bool enables = report_.Changes(setting) && box.Checked();
        if (!enables || HexValue(tab.txtMTAddress(box.index()).Text()) != 0) continue;
        refusals_.push_back(setting.key + ": a trigger without an address can't be enabled; give " +
                            "its address as well");
    }
}

// A write would do nothing while any of the five addresses is red, and would not say so.
void Typing::CheckNetwork() {
    NetworkTab& net = tool_.main_form.network;
    for (const TextBox* box : {&net.txtIPAddress, &net.txtSubnetMask, &net.txtDefaultGateway,
                               &net.txtPrimaryDNS, &net.txtSecondaryDNS}) {
        const Setting& setting = *SettingOfControl(box->name());
        const auto standing = CheckTyped(tool_, setting, SettingValue(box->Text()));
        if (!standing || report_.Changes(setting)) continue;
        refusals_.push_back(setting.key + ": \"" + box->Text() +
                            "\", which the unit holds, is not a valid address; set it as well");
    }
    bool any = net.chkARPReset.Checked();
    for (CheckBox& box : net.chkARP) any = any || box.Checked();
    if (net.cmbARPtime.ListIndex() == 2 && !any) {
        refusals_.push_back(
            "arp.repeat: \"1 minute\" without an ARP switch leaves a unit that can't be read; "
            "switch one on or take another time");
    }
}

// A level left at its stars would get them as its password.
void Typing::CheckPasswords() {
    constexpr char kStars[] = "******";
    for (TextBox& box : tool_.main_form.security.txtWebPassword) {
        const Setting& setting = *SettingOfControl(box.name());
        if (box.Text() != kStars || report_.Changes(setting)) continue;
        refusals_.push_back(setting.key +
                            ": all three levels need to be set together; give it as well, or "
                            "close the level");
    }
}

// The write sends every column that the port may write, read or not.
void Typing::CheckColumns() {
    PrivilegesTab& tab = tool_.main_form.privileges;
    constexpr int kWriteOthers = 4;
    const int own = tool_.session.ConnectedPortIndex;
    for (const int half : {1100, 1200}) {
        const int rights = IntegerValue(tab.lblPrivByte(half + 10 * own).Caption());
        for (int port = 1; port <= 3; ++port) {
            const bool unread = tab.lblPrivByte(half + 10 * port).Caption() == "-";
            if (!unread || (rights & kWriteOthers) == 0) continue;
            refusals_.push_back(
                std::string("privileges of port ") + static_cast<char>('A' + port - 1) +
                ": they can't be read on this port, and a write would clear them; connect on "
                "another control port");
        }
    }
}

}  // namespace kestrane
