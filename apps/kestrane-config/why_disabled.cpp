#include "kestrane-config/why_disabled.h"

#include "cli/tabs.h"

namespace kestrane {
namespace {

// A box that a check box beside it opens.
const char* WhyClosed(const Control& control) {
    const std::string& name = control.base_name();
    if (name == "txtTimeServerIP") return "Tick \"Edit time server\" first";
    if (name == "txtTcpControlPort") return "Enable this port first";
    if (name == "txtForceDisconnect") return "Enable a port first";
    if (name == "txtWebPassword") return "Clear \"Disabled\" of this level first";
    if (name == "cmdUnitID") return "Change the ID first";
    if (name == "chkPriv") return "The port of this connection lacks the right to change it";
    return "";
}

}  // namespace

std::string WhyDisabled(const Tool& tool, const Control& control) {
    const MainForm& form = tool.main_form;
    if (&control.form() != &form) return {};
    if (&control == &form.cmdConnect || control.container().container_name() == "fraIPAddress") {
        return "Disconnect first";
    }
    if (!tool.link.Connected()) return "Connect to a unit first";
    if (form.Pointer() == Form::kHourglass) return "Wait until the transfer has ended";
    if (&control == &form.network.cmdReadNetworkSettings) {
        return "Disconnect and connect again first";
    }
    if (!tool.session.AdminLoggedIn) return "Read the network settings first";
    if (!control.Enabled() && *WhyClosed(control)) return WhyClosed(control);
    const TabRow* const tab = TabOf(control);
    return tab && tab->page > 0 ? "Read this tab first" : "Read the network settings first";
}

}  // namespace kestrane
