#include "settings/network_write.h"

#include "screen/screen_helpers.h"
#include "settings/blocks.h"
#include "settings/quad.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kNetbiosWritten = 15;
constexpr std::size_t kKeyCharacters = 32;
constexpr int kBlocksWithoutKeys = 10;
constexpr int kControlLevel = 2;
constexpr int kAdminLevel = 3;

bool HoldsKey(const TextBox& box) {
    return box.ForeColor() != kRed && box.Text().size() >= kKeyCharacters;
}

std::string QuadBytes(const TextBox& box) {
    std::string quad = box.Text();
    std::string bytes;
    bool valid = false;
    DecodeQuad(quad, bytes, valid);
    return bytes;
}

}  // namespace

NetworkWrite::NetworkWrite(MainForm& form, Session& session, Link& link)
    : form_(form), tab_(form.network), session_(session), link_(link) {
    tab_.cmdWriteNetworkSettings.on_click = [this] { cmdWriteNetworkSettings_Click(); };
}

void NetworkWrite::cmdWriteNetworkSettings_Click() {
    // The red frame is the operator's only hint.
    if (tab_.fraFixedIPSettings.ForeColor() == kRed) return;
    Link::Operation operation(link_, "Write Network Settings");
    DisableSettings();
    if (ConfirmPassword()) {
        if (!WarnOfWebSecurity()) return;
        // Without a connection everything stays disabled.
        if (!link_.Connected()) return;
        form_.SetPointer(Form::kHourglass);
        if (WriteAll(operation)) {
            form_.lblMemoryBlock.SetCaption("Memory write complete.");
            if (session_.AdminLoggedIn) EnableSettings();
        } else {
            operation.Stop("a value does not fit its field");
        }
    } else {
        operation.Stop("a typed password has not been confirmed");
    }
    form_.cmdHelp.SetEnabled(true);
    // A disconnect in the midst has left the rest as it is to be.
    if (operation.Stale()) return;
    form_.SetPointer(Form::kArrow);
    tab_.cmdReadNetworkSettings.SetEnabled(true);
    SetTabsEnabled(form_, true);
}

void NetworkWrite::DisableSettings() {
    for (Frame* frame : SettingsFrames(form_)) frame->SetEnabled(false);
    for (Control* control : std::initializer_list<Control*>{
             &tab_.fraTimeServer, &tab_.cmdUnitID, &tab_.cmdReadNetworkSettings,
             &tab_.cmdWriteNetworkSettings, &tab_.cmdResetEthernet, &form_.cmdHelp}) {
        control->SetEnabled(false);
    }
    SetTabsEnabled(form_, false);
}

bool NetworkWrite::ConfirmPassword() {
    if (session_.PasswordConfirmed != 0) return true;
    const TextBox* box = session_.PasswordLevel == kControlLevel ? &form_.txtControlPassword
                         : session_.PasswordLevel == kAdminLevel ? &form_.txtAdminPassword
                                                                 : nullptr;
    if (box && box->on_lost_focus) box->on_lost_focus();
    return session_.PasswordConfirmed != 0;
}

// Guarded by a flag that nothing sets, so the box does not come. It is meant to stay so: no other
// condition may take its place.
bool NetworkWrite::WarnOfWebSecurity() {
    const bool password_without_security = false;
    if (!password_without_security) return true;
    return link_.platform().boxes.Show(
               "Web Security check",
               "You have set a password in the Web Security Settings, but you have not enabled web "
               "security. Click OK to continue Cancel to abort.",
               {BoxButton::kOk, BoxButton::kCancel}) != BoxButton::kCancel;
}

bool NetworkWrite::WriteAll(Link::Operation& operation) {
    int blocks = kBlocksWithoutKeys;
    for (const TextBox& box : tab_.txtChaskey) blocks += HoldsKey(box) ? 1 : 0;
    operation.PlanWrites(blocks);
    int number = 0;
    const auto text = [](const TextBox& box) { return PadRight(box.Text(), kBlockSize); };
    const std::string blank(kBlockSize, ' ');
    if (!WriteBlock(number, address::kNetbiosName, kNetbiosWritten,
                    PadRight(tab_.txtNetbiosName.Text(), kNetbiosWritten)) ||
        !WriteBlock(number, address::kAddresses, kBlockSize, AddressesBlock()) ||
        !WriteBlock(number, address::kPorts, kBlockSize, PortsBlock()) ||
        !WriteBlock(number, address::kUnitLocation, kBlockSize, text(tab_.txtUnitLocation)) ||
        !WriteBlock(number, address::kUnitName, kBlockSize, text(tab_.txtUnitName)) ||
        !WriteBlock(number, address::kRetired1, kBlockSize, blank) ||
        !WriteBlock(number, address::kRetired2, kBlockSize, blank)) {
        return false;
    }
    const CommunityPieces community = SplitCommunity(tab_.txtCommunity.Text());
    return WriteBlock(number, address::kLimits, kLimitsWritten, LimitsBlock(community.start)) &&
           WriteKeys(number, operation) &&
           WriteBlock(number, address::kCommunityRest, kBlockSize, community.rest) &&
           WriteBlock(number, address::kSysContact, kBlockSize, text(tab_.txtSysContact));
}

// A red box holds no complete key: no command, no caption, no count.
bool NetworkWrite::WriteKeys(int& number, Link::Operation& operation) {
    for (int i = 0; i < 3; ++i) {
        const TextBox& box = tab_.txtChaskey(i);
        if (!HoldsKey(box)) {
            operation.Skip(std::string("key of port ") + "ABC"[i], "it is not a complete key");
            continue;
        }
        const std::string key = HexPairs(Mid(box.Text(), 1, kKeyCharacters));
        if (!WriteBlock(number, address::kChaskey[i], kBlockSize, key)) return false;
    }
    return true;
}

bool NetworkWrite::WriteBlock(int& number, int address, int count,
                              const std::optional<std::string>& data) {
    ++number;
    form_.lblMemoryBlock.SetCaption("Writing block " + std::to_string(number) + " of 14");
    if (!data) return false;
    return link_.Command(WriteCommand(session_.DisplayAddress, address, count, *data));
}

std::string NetworkWrite::AddressesBlock() const {
    return QuadBytes(tab_.txtIPAddress) + QuadBytes(tab_.txtSubnetMask) +
           QuadBytes(tab_.txtDefaultGateway) + QuadBytes(tab_.txtPrimaryDNS);
}

// A time server that is no quad shortens the block, while its count stays 16.
std::optional<std::string> NetworkWrite::PortsBlock() const {
    std::string block = QuadBytes(tab_.txtSecondaryDNS) + QuadBytes(tab_.txtTimeServerIP);
    for (const int i : {2, 1, 0}) {
        const auto port = PortBytes(tab_.txtTcpControlPort(i).Text());
        if (!port) return {};
        block += *port;
    }
    const MaybeByte oled = TimeoutByte(tab_.txtOledTimeout.Text());
    if (!oled) return {};
    return block + Bytes({*oled, Flags()});
}

int NetworkWrite::Flags() const {
    int flags = tab_.chkDHCP.Checked() ? OptionFlags::kDhcp : 0;
    for (int i = 0; i < 3; ++i) {
        if (tab_.chkTcpControlEnable(i).Checked()) flags |= OptionFlags::kPortEnable[i];
    }
    if (tab_.chkArmEnable.Checked()) flags |= OptionFlags::kArmButtons;
    if (tab_.chkIPonOLED.Checked()) flags |= OptionFlags::kHideIp;
    return flags;
}

std::optional<std::string> NetworkWrite::LimitsBlock(const std::string& community_start) const {
    std::string block = community_start;
    const MaybeByte disconnect = TimeoutByte(tab_.txtForceDisconnect.Text());
    if (!disconnect) return {};
    block += Bytes({*disconnect});
    Arp arp;
    arp.repeat = tab_.cmbARPtime.ListIndex();
    arp.reset = tab_.chkARPReset.Checked();
    for (int i = 0; i < 3; ++i) {
        const MaybeByte limit = AttackLimitByte(tab_.txtAttackLimit(i).Text());
        if (!limit) return {};
        block += Bytes({*limit});
        arp.sends[static_cast<std::size_t>(i)] = tab_.chkARP(i).Checked();
    }
    const MaybeByte stored_arp = EncodeArp(arp);
    if (!stored_arp) return {};
    return block + Bytes({*stored_arp});
}

// The button of the unit ID stays off: it waits for an edit of its box.
void NetworkWrite::EnableSettings() {
    for (Frame* frame : SettingsFrames(form_)) frame->SetEnabled(true);
    tab_.fraTimeServer.SetEnabled(true);
    tab_.cmdWriteNetworkSettings.SetEnabled(true);
    tab_.cmdResetEthernet.SetEnabled(true);
}

}  // namespace kestrane
