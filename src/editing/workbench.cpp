#include "editing/workbench.h"

namespace kestrane {
namespace {

std::string Join(const std::vector<std::string>& keys) {
    std::string text;
    for (const std::string& key : keys) text += (text.empty() ? "" : ", ") + key;
    return text;
}

struct ReadButton {
    std::string_view tab;
    const char* button;
};
constexpr ReadButton kReadButtons[] = {
    {"network", "cmdReadNetworkSettings"}, {"privileges", "cmdReadTCPPortPriv"},
    {"names", "cmdReadChannelNames"},      {"triggers", "cmdReadMacroTriggers"},
    {"1wire", "cmdRead1WNames"},           {"changeover", "cmdReadCMSOptions"}};

// The tab of the last write on this connection; empty if there was none.
std::string_view LastWritten(Tool& tool) {
    const auto& operations = tool.link.journal().operations();
    for (auto at = operations.rbegin(); at != operations.rend(); ++at) {
        if (at->connection != tool.link.connection()) break;
        if (IsWriteOperation(at->name)) return TabOfOperation(at->name);
    }
    return {};
}

}  // namespace

Workbench::Workbench(Tool& its_tool) : tool(its_tool) {
    tool.screen.platform().loop.AfterEvents([alive = std::weak_ptr(alive_)] {
        if (const auto bench = alive.lock()) (*bench)->messages.Look();
    });
}

bool Workbench::Undo() {
    const auto keys = history.Undo();
    if (!keys.empty()) messages.Add(MessageKind::kGood, "Undone: " + Join(keys) + ".");
    return !keys.empty();
}

bool Workbench::Redo() {
    const auto keys = history.Redo();
    if (!keys.empty()) messages.Add(MessageKind::kGood, "Done again: " + Join(keys) + ".");
    return !keys.empty();
}

// What is not yet written is kept aside, and typed again over what was read.
bool Workbench::Verify() {
    const std::string_view tab = LastWritten(tool);
    if (tab.empty()) {
        messages.Add(MessageKind::kWarning, "Nothing was written on this connection to verify.");
        return false;
    }
    Control* button = nullptr;
    for (const ReadButton& row : kReadButtons) {
        if (row.tab == tab) button = tool.main_form.Find(row.button);
    }
    if (!button) {
        messages.Add(MessageKind::kWarning, "The unit does not give passwords back to compare.");
        return false;
    }
    std::map<const Setting*, std::string> written;
    for (const Setting* setting : EditableSettings()) {
        const auto value = pending.UnitValue(*setting);
        // Live values are in no read.
        const bool comes_back = !setting->write_only && !setting->secret && !setting->live;
        if (setting->tab == tab && value && comes_back) {
            written[setting] = *value;
        }
    }
    const std::vector<PendingChange> aside = pending.List();
    const int page = PageOfTab(tab);
    if (tool.main_form.SSTab1.Tab() != page) tool.hand.Choose(tool.main_form.SSTab1, page);
    const auto last = tool.link.journal().last_operation();
    if (const Refusal refusal = tool.hand.Click(*button)) {
        messages.Add(MessageKind::kWarning, "Not verified: " + *refusal + ".");
        return false;
    }
    const OperationRecord* read = tool.link.journal().FindOperation(last + 1);
    if (!read || !read->Complete()) return false;
    std::vector<std::string> not_taken;
    for (const auto& [setting, value] : written) {
        if (pending.UnitValue(*setting) != value) not_taken.push_back(setting->key);
    }
    for (const PendingChange& change : aside) {
        if (pending.UnitValue(*change.setting)) {
            ShowIn(tool.main_form, *change.setting, change.now);
        }
    }
    if (not_taken.empty()) {
        messages.Add(MessageKind::kGood, "Verified: " + std::to_string(written.size()) +
                                             " values read back as written.");
    } else {
        messages.Add(MessageKind::kFault, "Not taken by the unit: " + Join(not_taken) + ".");
    }
    return not_taken.empty();
}

void Workbench::AfterClick(Control& button, std::uint64_t last) {
    if (button.base_name().find("Write") == std::string::npos) return;
    if (tool.link.journal().last_operation() != last) return;
    const std::string red = WhyNotWritten(tool, button);
    messages.Add(MessageKind::kWarning, red.empty() ? "Nothing was written."
                                                    : "Not written: " + red + " can't be stored.");
}

}  // namespace kestrane
