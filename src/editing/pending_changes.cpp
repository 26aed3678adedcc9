#include "editing/pending_changes.h"

#include <algorithm>

namespace kestrane {
namespace {

constexpr struct {
    std::string_view words;
    std::string_view tab;
} kTabs[] = {{"Network Settings", "network"},      {"Unit ID", "network"},
             {"Port Privileges", "privileges"},    {"Web Security", "security"},
             {"Channel Names", "names"},           {"Macro Triggers", "triggers"},
             {"1-Wire Settings", "1wire"},         {"1-Wire Names", "1wire"},
             {"Changeover Options", "changeover"}, {"Default Inlet", "changeover"}};

// Whether an exchange carries the bytes of a place.
bool Covers(const Exchange& exchange, const SettingPlace& place, const Session& session) {
    const bool display = place.board == SettingPlace::Board::kDisplay;
    const bool to_display = exchange.board == session.DisplayAddress;
    if (display != to_display || exchange.address < 0 || place.count == 0) return false;
    return exchange.address <= place.address &&
           place.address + place.count <= exchange.address + exchange.count;
}

}  // namespace

std::string_view TabOfOperation(std::string_view operation) {
    for (const auto& row : kTabs) {
        if (operation.find(row.words) != std::string_view::npos) return row.tab;
    }
    return {};
}

bool IsReadOperation(std::string_view operation) { return operation.starts_with("Read "); }

bool IsWriteOperation(std::string_view operation) {
    return operation.starts_with("Write ") || operation.starts_with("Save ") ||
           operation.starts_with("Upload ");
}

PendingChanges::PendingChanges(Tool& tool) : tool_(tool) {
    for (const Setting* setting : EditableSettings()) {
        for (const Control* control : tool.main_form.controls()) {
            if (control->name() == setting->control || (control->kind() == Kind::kOptionButton &&
                                                        control->base_name() == setting->control)) {
                settings_[control] = setting;
            }
        }
    }
    tool.screen.AddListener(*this);
    tool.link.journal().AddObserver(*this);
    tool.changeover.on_live_shown = [this] { LearnLive(); };
}

PendingChanges::~PendingChanges() {
    tool_.changeover.on_live_shown = nullptr;
    tool_.link.journal().RemoveObserver(*this);
    tool_.screen.RemoveListener(*this);
}

std::vector<PendingChange> PendingChanges::List() const {
    std::vector<PendingChange> list;
    for (const Setting* setting : EditableSettings()) {
        if (!changed_.contains(setting)) continue;
        list.push_back({setting, ControlOf(tool_.main_form, *setting), unit_.at(setting),
                        ShownIn(tool_.main_form, *setting)});
    }
    return list;
}

std::optional<std::string> PendingChanges::UnitValue(const Setting& setting) const {
    const auto found = unit_.find(&setting);
    if (found == unit_.end()) return {};
    return found->second;
}

void PendingChanges::Revert(const Setting& setting) {
    if (const auto value = UnitValue(setting)) ShowIn(tool_.main_form, setting, *value);
}

// Twice, as bringing one value back may change another.
void PendingChanges::RevertAll() {
    for (int pass = 0; pass < 2; ++pass) {
        for (const PendingChange& change : List()) Revert(*change.setting);
    }
}

void PendingChanges::Tell() {
    for (const auto& observer : observers_) observer();
}

void PendingChanges::Compare(const Setting& setting) {
    const auto known = unit_.find(&setting);
    const bool differs = known != unit_.end() && known->second != ShownIn(tool_.main_form, setting);
    if (differs == changed_.contains(&setting)) return;
    differs ? void(changed_.insert(&setting)) : void(changed_.erase(&setting));
    Tell();
}

void PendingChanges::Learn(const Setting& setting, std::string value) {
    unit_[&setting] = std::move(value);
    Compare(setting);
}

void PendingChanges::LearnWritten(const Setting& setting, const std::string& value) {
    if (!setting.live) written_[&setting] = value;
    Learn(setting, value);
}

void PendingChanges::Drop(const Setting& setting) {
    if (unit_.erase(&setting) == 0) return;
    if (changed_.erase(&setting) > 0) Tell();
}

void PendingChanges::DropTab(std::string_view tab) {
    for (const Setting* setting : EditableSettings()) {
        if (setting->tab == tab) Drop(*setting);
    }
}

void PendingChanges::DropAll() {
    written_.clear();
    if (unit_.empty()) return;
    unit_.clear();
    changed_.clear();
    Tell();
    for (const auto& observer : forgotten_) observer();
}

bool PendingChanges::Reading() const { return IsReadOperation(running_); }

// The program clears the screen when a connection ends and changeover values when their tab is
// left. A box that was empty already does not change with that, so any control tells of it.
void PendingChanges::ControlChanged(Control& control, Property property) {
    if (tool_.session.LinkIsDown) return DropAll();
    if (&control == &tool_.main_form.SSTab1 && property == Property::kIndex) {
        DropTab("changeover");
        return;
    }
    const auto found = settings_.find(&control);
    if (found == settings_.end()) return;
    if (property != Property::kText && property != Property::kValue &&
        property != Property::kIndex) {
        return;
    }
    if (Reading()) {
        Drop(*found->second);
    } else {
        Compare(*found->second);
    }
}

void PendingChanges::OperationBegan(const OperationRecord& operation) {
    const std::string_view tab = TabOfOperation(operation.name);
    if (tab.empty()) return;
    if (tab == "network" && IsReadOperation(operation.name)) {
        for (const char* cleared : {"names", "triggers"}) DropTab(cleared);
    }
    running_ = operation.name;
    accepted_.clear();
}

void PendingChanges::ExchangeBegan(const Exchange& exchange) {
    sending_.clear();
    if (!exchange.IsWrite()) return;
    for (const Setting* setting : EditableSettings()) {
        for (const SettingPlace& place : setting->places) {
            if (!Covers(exchange, place, tool_.session)) continue;
            sending_[setting] = ShownIn(tool_.main_form, *setting);
        }
    }
}

// A write counts block by block, so that a write which stops half way leaves the truth. Of what was
// sent and not answered nobody knows what the unit holds.
void PendingChanges::ExchangeEnded(const Exchange& exchange) {
    if (running_.empty()) return;
    const bool untouched = !exchange.IsWrite() || exchange.end == Exchange::End::kRefused ||
                           exchange.end == Exchange::End::kNotSent;
    if (!exchange.Accepted() && !untouched) {
        for (const auto& row : sending_) written_.erase(row.first);
    }
    if (!exchange.Accepted()) return;
    for (const Setting* setting : EditableSettings()) {
        for (const SettingPlace& place : setting->places) {
            if (Covers(exchange, place, tool_.session)) accepted_[setting].insert(place.address);
        }
    }
    if (!exchange.IsWrite()) return;
    for (const auto& [setting, value] : sending_) {
        if (accepted_[setting].size() >= setting->places.size()) LearnWritten(*setting, value);
    }
}

// Live values are in no read: the refresh brings them later.
void PendingChanges::LearnLive() {
    for (const Setting* setting : EditableSettings()) {
        if (setting->live) Learn(*setting, ShownIn(tool_.main_form, *setting));
    }
}

void PendingChanges::LearnRead(const OperationRecord& operation) {
    const std::string_view tab = TabOfOperation(operation.name);
    for (const Setting* setting : EditableSettings()) {
        if (setting->tab != tab) continue;
        const auto accepted = accepted_.find(setting);
        const bool whole =
            accepted != accepted_.end() &&
            accepted->second.size() >= std::max<std::size_t>(1, setting->places.size());
        if ((operation.Complete() || whole) && !setting->live) {
            Learn(*setting, ShownIn(tool_.main_form, *setting));
        } else {
            Drop(*setting);
        }
    }
    for (const auto& observer : forgotten_) observer();
}

// What has no place in memory goes with the operation as a whole.
void PendingChanges::LearnWritten(const OperationRecord& operation) {
    if (!operation.Complete()) return;
    const bool live = operation.name.ends_with("as Live");
    const bool options = operation.name.find("Options") != std::string::npos;
    for (const Setting* setting : EditableSettings()) {
        const bool inlet = setting->key.ends_with("default_inlet");
        const bool sent = operation.name == "Write Unit ID"
                              ? setting->key == "unit.id"
                              : live && setting->live && inlet != options;
        if (sent) LearnWritten(*setting, ShownIn(tool_.main_form, *setting));
    }
}

void PendingChanges::OperationEnded(const OperationRecord& operation) {
    if (running_ != operation.name) return;
    if (IsReadOperation(running_)) {
        LearnRead(operation);
    } else {
        LearnWritten(operation);
    }
    running_.clear();
}

}  // namespace kestrane
