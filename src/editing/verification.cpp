#include "editing/verification.h"

#include <algorithm>

#include "configuration/web_levels.h"

namespace kestrane {
namespace {

constexpr std::string_view kSecurity = "security";

// The level that a setting of the security tab belongs to, 0 to 2.
int LevelOf(Tool& tool, const Setting& setting) {
    return tool.main_form.Find(setting.control)->index();
}

}  // namespace

Verification::Verification(Tool& tool, PendingChanges& pending) : tool_(tool), pending_(pending) {
    tool.link.journal().AddObserver(*this);
}

Verification::~Verification() { tool_.link.journal().RemoveObserver(*this); }

void Verification::Tell() {
    for (const auto& observer : observers_) observer();
}

std::optional<std::string> Verification::NotTaken(const Setting& setting) const {
    const auto found = not_taken_.find(&setting);
    if (found == not_taken_.end() || !pending_.UnitValue(setting)) return {};
    return found->second;
}

void Verification::OperationBegan(const OperationRecord& operation) {
    const std::string_view tab = TabOfOperation(operation.name);
    const auto past =
        std::erase_if(not_taken_, [&](const auto& row) { return tab == row.first->tab; });
    if (past > 0) Tell();
}

// A read of the settings clears the other tabs, so that it comes first and the others that were
// read come after it. The tab that is shown comes last: one that can't be kept, as it is cleared
// when it is left, then stays.
std::vector<const TabRow*> Verification::TabsToRead(const Values& written) const {
    const auto holds = [](const TabRow& tab, const Setting* setting) {
        return tab.Holds(*setting);
    };
    const auto was_written = [&](const TabRow& tab) {
        return std::any_of(written.begin(), written.end(),
                           [&](const auto& row) { return holds(tab, row.first); });
    };
    const auto was_read = [&](const TabRow& tab) {
        return std::any_of(EditableSettings().begin(), EditableSettings().end(),
                           [&](const Setting* setting) {
                               return holds(tab, setting) && pending_.UnitValue(*setting);
                           });
    };
    const bool settings_again = was_written(*FindTab("network"));
    const int shown = tool_.main_form.SSTab1.Tab();
    std::vector<const TabRow*> tabs;
    const TabRow* last = nullptr;
    for (const TabRow& tab : TabRows()) {
        if (!was_written(tab) && !(settings_again && was_read(tab))) continue;
        const bool first = std::string_view(tab.name) == "network";
        tab.page == shown && !first ? void(last = &tab) : tabs.push_back(&tab);
    }
    if (last) tabs.push_back(last);
    return tabs;
}

std::optional<std::string> Verification::Read(const TabRow& tab) {
    MainForm& form = tool_.main_form;
    if (form.SSTab1.Tab() != tab.page) {
        if (const Refusal refusal = tool_.hand.Choose(form.SSTab1, tab.page)) return refusal;
    }
    const auto last = tool_.link.journal().last_operation();
    if (const Refusal refusal = tool_.hand.Click(*form.Find(tab.read_button))) return refusal;
    const auto& operations = tool_.link.journal().operations();
    const auto read = std::find_if(operations.begin(), operations.end(), [&](const auto& record) {
        return record.number > last && record.name == tab.read_operation;
    });
    if (read == operations.end()) return "the click sent nothing";
    if (read->Complete()) return {};
    return "\"" + read->name + "\" failed";
}

// The security tab never shows what the unit holds, but the bytes that came with the read tell.
std::optional<bool> Verification::Holds(const Setting& setting, const std::string& value,
                                        const Values& written) const {
    if (setting.tab != kSecurity) return pending_.UnitValue(setting) == value;
    const int level = LevelOf(tool_, setting);
    const bool closed = StateOfWebLevel(tool_, level) == WebLevel::kClosed;
    if (StateOfWebLevel(tool_, level) == WebLevel::kUnknown) return {};
    if (!setting.write_only) return closed == (value == "true");
    const Setting& disabled =
        *SettingOfControl(tool_.main_form.security.chkWebSecurityDisable(level).name());
    const auto close = written.find(&disabled);
    if (close != written.end() && close->second == "true") return closed;
    return WebLevelHolds(tool_, level, value);
}

void Verification::Compare(const TabRow& tab, const Values& written, Outcome& outcome) {
    for (const auto& [setting, value] : written) {
        if (!tab.Holds(*setting)) continue;
        const auto holds = Holds(*setting, value, written);
        if (!holds) {
            ++outcome.unknown;
            continue;
        }
        ++outcome.compared;
        if (*holds) continue;
        outcome.not_taken.push_back(setting);
        not_taken_[setting] = value;
    }
}

void Verification::TypeAgain(const std::vector<PendingChange>& aside) {
    for (const PendingChange& change : aside) {
        if (pending_.UnitValue(*change.setting)) {
            ShowIn(tool_.main_form, *change.setting, change.now);
        }
    }
}

Verification::Outcome Verification::Run() {
    Outcome outcome;
    const Values written = pending_.Written();
    if (written.empty()) {
        outcome.failure = "Nothing was written on this connection to verify.";
        return outcome;
    }
    const std::vector<PendingChange> aside = pending_.List();
    const int shown = tool_.main_form.SSTab1.Tab();
    for (const TabRow* tab : TabsToRead(written)) {
        if (const auto why = Read(*tab)) {
            outcome.failure = "Not verified: " + *why + ".";
            break;
        }
        Compare(*tab, written, outcome);
    }
    if (!outcome.failure && tool_.main_form.SSTab1.Tab() != shown) {
        tool_.hand.Choose(tool_.main_form.SSTab1, shown);
    }
    TypeAgain(aside);
    Tell();
    return outcome;
}

}  // namespace kestrane
