#include "editing/reasons.h"

namespace kestrane {
namespace {

// A box that a check box beside it opens.
const char* WhyClosed(const Control& control) {
    static constexpr struct {
        const char* name;
        const char* why;
    } kRows[] = {{"txtTimeServerIP", "Tick \"Edit time server\" first"},
                 {"txtTcpControlPort", "Enable this port first"},
                 {"txtForceDisconnect", "Enable a port first"},
                 {"txtWebPassword", "Clear \"Disabled\" of this level first"},
                 {"cmdUnitID", "Change the ID first"},
                 {"chkPriv", "The port of this connection lacks the right to change it"},
                 {"txtSecondByteHex", "The instruction in this line takes no second byte"},
                 {"cmdSecondByteHexOK", "The instruction in this line takes no second byte"},
                 {"txtSecondByteTime", "The second byte of this line is not a time"},
                 {"cmdSecondByteTimeOK", "The second byte of this line is not a time"},
                 {"cmdInsertCommand", "Not for this type of unit, or not while a transfer runs"}};
    for (const auto& row : kRows) {
        if (control.base_name() == row.name) return row.why;
    }
    return "";
}

// The page of the main form that a control stands on; -1 for none.
int PageOf(const Control& control) {
    for (const Container* at = &control.container(); at != nullptr; at = at->parent()) {
        if (const auto* page = dynamic_cast<const TabPage*>(at)) return page->index();
    }
    return -1;
}

// The last thing that was tried on this page and on this connection.
const OperationRecord* LastOn(Tool& tool, int page) {
    const auto& operations = tool.link.journal().operations();
    for (auto at = operations.rbegin(); at != operations.rend(); ++at) {
        if (at->connection != tool.link.connection()) break;
        const std::string_view tab = TabOfOperation(at->name);
        if (!tab.empty() && PageOfTab(tab) == page) return &*at;
    }
    return nullptr;
}

const OperationRecord* LastFailure(Tool& tool, int page) {
    const OperationRecord* const last = LastOn(tool, page);
    return last && last->end == OperationRecord::End::kStopped ? last : nullptr;
}

const OperationRecord* Running(Tool& tool) {
    const auto& operations = tool.link.journal().operations();
    for (auto at = operations.rbegin(); at != operations.rend(); ++at) {
        if (at->end == OperationRecord::End::kRunning) return &*at;
    }
    return nullptr;
}

std::string AfterFailure(Tool& tool, const OperationRecord& failed) {
    const Exchange* exchange = tool.link.journal().FindExchange(failed.stopped_at);
    if (exchange && exchange->end == Exchange::End::kRefused) {
        return "\"" + failed.name +
               "\" was denied by the privileges of this port: connect to a port that has the right";
    }
    if (exchange) {
        return "\"" + failed.name + "\" failed: " + EndInWords(exchange->end) +
               ". Read again, or disconnect and connect again";
    }
    return "\"" + failed.name + "\" stopped" + (failed.why.empty() ? "" : ": " + failed.why);
}

std::string Range(const Setting& setting) {
    if (setting.kind != SettingKind::kNumber || setting.most <= 0) return {};
    return "From " + std::to_string(setting.least) + " to " + std::to_string(setting.most) +
           (setting.step > 1 ? " in steps of " + std::to_string(setting.step) : "") + ".";
}

std::string Plain(std::string caption) {
    while (!caption.empty() && (caption.back() == ':' || caption.back() == ' ')) caption.pop_back();
    return caption;
}

}  // namespace

std::string WhyDisabled(Tool& tool, const Control& control) {
    const MainForm& form = tool.main_form;
    if (&control.form() != &form && &control.form() != &tool.script_edit_form) return {};
    const bool in_connection =
        &control == &form.cmdConnect || control.container().container_name() == "fraIPAddress";
    if (in_connection) return "Disconnect first";
    if (!tool.link.Connected()) return "Connect to a unit first";
    if (const OperationRecord* running = Running(tool)) {
        return "Wait until \"" + running->name + "\" has ended";
    }
    if (&control.form() != &form) return WhyClosed(control);
    if (&control == &form.network.cmdReadNetworkSettings) {
        return "Disconnect and connect again first";
    }
    const int page = PageOf(control);
    if (!tool.session.AdminLoggedIn) {
        const OperationRecord* failed = LastFailure(tool, 0);
        return failed ? AfterFailure(tool, *failed) : "Read the network settings first";
    }
    if (const OperationRecord* failed = LastFailure(tool, page)) {
        return AfterFailure(tool, *failed);
    }
    if (!control.Enabled() && *WhyClosed(control)) return WhyClosed(control);
    if (LastOn(tool, page)) return "Leaving a tab has closed it: read it again to edit";
    return page > 0 ? "Read this tab first" : "Read the network settings first";
}

std::string TipOf(const PendingChanges& pending, const Verification& verification,
                  const Control& control) {
    const Setting* const setting = SettingOfControl(control.name());
    if (!setting) return {};
    std::string tip = setting->doc;
    if (const std::string range = Range(*setting); !range.empty()) tip += "\n" + range;
    const auto not_taken = verification.NotTaken(*setting);
    if (not_taken || pending.Differs(*setting)) {
        tip += "\nunit: ";
        tip += setting->secret ? "(secret)" : *pending.UnitValue(*setting);
    }
    if (not_taken) {
        tip += "\nnot taken: ";
        tip += setting->secret ? "(secret)" : *not_taken;
    }
    return tip;
}

std::string WhyNotWritten(Tool& tool, const Control& button) {
    const int page = PageOf(button);
    std::string names;
    for (const Control* control : tool.main_form.controls()) {
        if (page < 0 || PageOf(*control) != page || control->ForeColor() != kRed) continue;
        if (control->kind() != Kind::kLabel || !control->Showing()) continue;
        names += (names.empty() ? "" : ", ") + Plain(static_cast<const Label*>(control)->Caption());
    }
    return names;
}

}  // namespace kestrane
