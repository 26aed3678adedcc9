#include "settings/control_ports.h"

#include <algorithm>

#include "screen/screen_helpers.h"
#include "settings/field_editors.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr std::size_t kKeyCharacters = 32;
constexpr int kKeyBytes = 16;
constexpr int kRefusedKey = 1;
constexpr double kLeastAttackLimit = 10;
constexpr double kMostAttackLimit = 100;
constexpr long kLongestForceDisconnect = 2540;

}  // namespace

ControlPorts::ControlPorts(MainForm& form, Session& session, Link& link)
    : tab_(form.network), session_(session), platform_(link.platform()) {
    for (int i = 0; i < 3; ++i) {
        tab_.chkTcpControlEnable(i).on_click = [this] { chkTcpControlEnable_Click(); };
        TextBox& port = tab_.txtTcpControlPort(i);
        port.on_change = [this] { session_.PortChanged = 1; };
        port.on_validate = [this] { txtTcpControlPort_Validate(); };
        port.on_got_focus = [&port] { SelectAllText(port); };
        FilterKeys(port, NumberKey, platform_.sound);
        TextBox& key = tab_.txtChaskey(i);
        key.on_got_focus = [&key] { SelectAllText(key); };
        key.on_key_press = [this](int& code) { txtChaskey_KeyPress(code); };
        key.on_change = [this, i] { txtChaskey_Change(i); };
        key.SetForeColor(kRed);  // an empty box holds no key
        tab_.cmdChaskeyGen(i).on_click = [this, i] { cmdChaskeyGen_Click(i); };
        FilterKeys(tab_.txtAttackLimit(i), NumberKey, platform_.sound);
        tab_.txtAttackLimit(i).on_lost_focus = [this, i] { txtAttackLimit_LostFocus(i); };
    }
    FilterKeys(tab_.txtForceDisconnect, NumberKey, platform_.sound);
    tab_.txtForceDisconnect.on_lost_focus = [this] { txtForceDisconnect_LostFocus(); };
}

void ControlPorts::chkTcpControlEnable_Click() {
    bool any = false;
    for (int i = 0; i < 3; ++i) {
        const bool enabled = tab_.chkTcpControlEnable(i).Checked();
        any = any || enabled;
        tab_.txtTcpControlPort(i).SetEnabled(enabled);
    }
    tab_.txtForceDisconnect.SetEnabled(any);
    tab_.lblTcpTimeout.SetEnabled(any);
}

// One flag serves the three boxes.
void ControlPorts::txtTcpControlPort_Validate() {
    if (session_.PortChanged == 1) {
        platform_.boxes.Show(
            "Control Port Changed",
            "Don't forget to update the Port in the Unit IP Address frame above, after you have "
            "written the settings and reset the Ethernet board in the unit.",
            {BoxButton::kOk});
    }
    session_.PortChanged = 0;
}

// Digits and A to F pass, a to f become capitals. The rule has holes that stay: 33 to 47 and 58
// to 64 pass, and "G" to code 96 go in 32 lower.
void ControlPorts::txtChaskey_KeyPress(int& code) {
    bool refused = code == ' ';
    if (code > '9') {
        if (code > 'F') code -= 32;
        refused = code > 'F';
    }
    if (!refused) return;
    platform_.sound.Beep();
    code = kRefusedKey;
}

void ControlPorts::txtChaskey_Change(int index) {
    session_.MacroChanged = true;
    TextBox& key = tab_.txtChaskey(index);
    key.SetForeColor(key.Text().size() == kKeyCharacters ? kBlack : kRed);
}

void ControlPorts::cmdChaskeyGen_Click(int index) {
    TextBox& key = tab_.txtChaskey(index);
    key.SetText("");
    platform_.random.Seed();
    for (int i = 0; i < kKeyBytes; ++i) {
        // 0 to 254: a generated key can't be the pattern that disables Chaskey.
        const auto byte = static_cast<std::uint8_t>(platform_.random.Draw() * 255);
        key.SetText(key.Text() + HexByte(byte));
    }
}

void ControlPorts::txtAttackLimit_LostFocus(int index) {
    TextBox& box = tab_.txtAttackLimit(index);
    const double limit = std::clamp(Val(box.Text()), kLeastAttackLimit, kMostAttackLimit);
    box.SetText(std::to_string(RoundHalfEven(limit)));
}

void ControlPorts::txtForceDisconnect_LostFocus() {
    long seconds = IntegerValue(tab_.txtForceDisconnect.Text());
    if (seconds > 0) {
        seconds = std::min((seconds + 9L) / 10 * 10, kLongestForceDisconnect);
    }
    tab_.txtForceDisconnect.SetText(std::to_string(seconds));
}

}  // namespace kestrane
