#include "settings/network_read.h"

#include "screen/screen_helpers.h"
#include "settings/blocks.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kChangeoverTab = 6;
constexpr char kErased = '\xFF';
constexpr char kKeyIsSet[] = "Chaskey is set - type to change key";

bool IsErased(const std::string& text) { return !text.empty() && text[0] == kErased; }

}  // namespace

struct NetworkRead::Row {
    int address;
    bool (NetworkRead::*take)();
    // In place of "Reading block N of 14."; such a row does not count.
    const char* fixed_caption = nullptr;
    bool only_own_community = false;
};

const NetworkRead::Row NetworkRead::kRows[] = {
    {address::kControlLevel, &NetworkRead::TakeAdminName},
    {address::kAdminLevel, &NetworkRead::TakeAdminPassword},
    {address::kAddresses, &NetworkRead::TakeAddresses},
    {address::kPorts, &NetworkRead::TakePorts},
    {address::kNetbiosName, &NetworkRead::TakeNetbiosName},
    {address::kUnitLocation, &NetworkRead::TakeUnitLocation, "Reading block 6 of 11."},
    {address::kUnitName, &NetworkRead::TakeUnitName},
    {address::kRetired1, &NetworkRead::Drop},
    {address::kRetired2, &NetworkRead::Drop},
    {address::kSalt, &NetworkRead::Drop},
    {address::kLimits, &NetworkRead::TakeLimits},
    {address::kCommunityRest, &NetworkRead::TakeCommunityRest, nullptr, true},
    {address::kSysContact, &NetworkRead::TakeSysContact},
    {address::kChaskey[0], &NetworkRead::TakeKey0},
    {address::kChaskey[1], &NetworkRead::TakeKey1},
    {address::kChaskey[2], &NetworkRead::TakeKey2},
};

NetworkRead::NetworkRead(MainForm& form, Session& session, Link& link, Identity& identity)
    : form_(form), tab_(form.network), session_(session), link_(link), identity_(identity) {
    tab_.cmdReadNetworkSettings.on_click = [this] { cmdReadNetworkSettings_Click(); };
}

void NetworkRead::cmdReadNetworkSettings_Click() {
    Link::Operation operation(link_, "Read Network Settings");
    tab_.cmdWriteNetworkSettings.SetEnabled(false);
    tab_.cmdResetEthernet.SetEnabled(false);
    form_.cmdHelp.SetEnabled(false);
    SetTabsEnabled(form_, false);
    tab_.cmdReadNetworkSettings.SetEnabled(false);
    bool complete = true;
    if (link_.Connected()) {
        Prepare();
        complete = ReadAll();
        if (!complete) operation.Stop(WhyStopped());
    }
    if (complete) {
        if (session_.AdminLoggedIn) EnableSettings();
        EnableRest();
    }
    form_.SetPointer(Form::kArrow);
}

void NetworkRead::Prepare() {
    form_.SetPointer(Form::kHourglass);
    ClearTextBoxes(form_);
    ClearNameBoxes(form_);
    ClearMacroTriggerRows(form_);
    session_.known.names = session_.known.triggers = false;
}

// Counts unless the exchange with the block has failed, which the journal tells by itself.
std::string NetworkRead::WhyStopped() const {
    const auto hex = [](int byte) { return HexByte(static_cast<std::uint8_t>(byte)); };
    const std::string block =
        address_ < 0 ? "block 0x0000 of the relay board"
                     : "block 0x" + hex(address_ >> 8) + hex(address_) + " of the display board";
    return block + " holds a value that can't be shown; give the unit another by other means";
}

bool NetworkRead::ReadAll() {
    address_ = -1;
    if (!identity_.ReadUnitID()) return false;
    int number = 0;
    for (const Row& row : kRows) {
        if (row.only_own_community && IsDefaultCommunity(community_start_)) continue;
        address_ = row.address;
        if (!row.fixed_caption) ++number;
        if (!ReadBlock(row, number) || !(this->*row.take)()) return false;
    }
    return identity_.ReadUnitType();
}

bool NetworkRead::ReadBlock(const Row& row, int number) {
    form_.lblMemoryBlock.SetCaption(row.fixed_caption
                                        ? row.fixed_caption
                                        : "Reading block " + std::to_string(number) + " of 14.");
    const auto block = link_.Read(session_.DisplayAddress, row.address);
    block_ = block.value_or("");
    return block.has_value();
}

bool NetworkRead::TakeAdminName() {
    const std::string name = Trim(block_);
    form_.txtAdminName.SetText(IsErased(name) ? "" : name);
    return true;
}

bool NetworkRead::TakeAdminPassword() {
    const bool none = IsErased(block_) || block_ == std::string(kBlockSize, ' ');
    form_.txtAdminPassword.SetText(none ? "" : block_);
    session_.CheckPassword();
    return true;
}

// Here and in the next block the data are found by the length of the frame sent.
bool NetworkRead::TakeAddresses() {
    block_ = Mid(session_.ReplyBuffer, session_.FrameBuffer.size() - 3, kBlockSize);
    if (block_.size() < kBlockSize) return false;
    TextBox* const boxes[] = {&tab_.txtIPAddress, &tab_.txtSubnetMask, &tab_.txtDefaultGateway,
                              &tab_.txtPrimaryDNS};
    for (std::size_t i = 0; i < std::size(boxes); ++i) {
        const auto quad = QuadAt(block_, kAddressOffsets[i]);
        if (!quad) return false;
        boxes[i]->SetText(*quad);
    }
    return true;
}

bool NetworkRead::TakePorts() {
    block_ = Mid(session_.ReplyBuffer, session_.FrameBuffer.size() - 3, kBlockSize);
    if (block_.size() < kBlockSize) return false;
    const auto dns = QuadAt(block_, kSecondaryDnsOffset);
    if (!dns) return false;
    tab_.txtSecondaryDNS.SetText(*dns);
    const auto time_server = QuadAt(block_, kTimeServerOffset);
    if (!time_server) return false;
    tab_.txtTimeServerIP.SetText(*time_server);
    const int flags = ByteAt(block_, kFlagsOffset + 1);
    if (flags < 0) return false;
    ShowFlags(flags);
    for (int i = 0; i < 3; ++i) {
        const auto port = PortAt(block_, i);
        if (!port) return false;
        tab_.txtTcpControlPort(i).SetText(std::to_string(*port));
    }
    tab_.txtOledTimeout.SetText(OledTimeoutText(ByteAt(block_, kOledOffset + 1)));
    return true;
}

// DHCP and the port enables are set but never cleared: the boxes were cleared at the start.
void NetworkRead::ShowFlags(int flags) {
    if (flags & OptionFlags::kDhcp) tab_.chkDHCP.SetChecked(true);
    // A unit falls back on the fixed settings when DHCP fails, so they stay editable.
    tab_.fraFixedIPSettings.SetEnabled(true);
    for (Label* label : {&tab_.lblIPAddress, &tab_.lblSubnetMask, &tab_.lblDefaultGateway,
                         &tab_.lblPrimaryDNS, &tab_.lblSecondaryDNS}) {
        label->SetEnabled(true);
    }
    for (int i = 0; i < 3; ++i) {
        const bool enabled = (flags & OptionFlags::kPortEnable[i]) != 0;
        if (enabled) tab_.chkTcpControlEnable(i).SetChecked(true);
        tab_.txtTcpControlPort(i).SetEnabled(enabled);
    }
    tab_.chkArmEnable.SetChecked((flags & OptionFlags::kArmButtons) != 0);
    tab_.chkIPonOLED.SetChecked((flags & OptionFlags::kHideIp) != 0);
}

bool NetworkRead::TakeNetbiosName() {
    tab_.txtNetbiosName.SetText(Trim(block_));
    return true;
}

bool NetworkRead::TakeUnitLocation() {
    tab_.txtUnitLocation.SetText(Trim(block_));
    return true;
}

bool NetworkRead::TakeUnitName() {
    tab_.txtUnitName.SetText(Trim(block_));
    return true;
}

// A stored 0x20 trims to nothing; the read ends at that field.
bool NetworkRead::TakeLimits() {
    const MaybeByte disconnect = TrimmedByteAt(block_, kForceDisconnectOffset);
    if (!disconnect) return false;
    tab_.txtForceDisconnect.SetText(ForceDisconnectText(*disconnect));
    for (int i = 0; i < 3; ++i) {
        const MaybeByte limit = TrimmedByteAt(block_, kAttackLimitOffsets[i]);
        if (!limit) return false;
        tab_.txtAttackLimit(i).SetText(std::to_string(*limit));
    }
    const MaybeByte stored_arp = TrimmedByteAt(block_, kArpOffset);
    if (!stored_arp) return false;
    const Arp arp = DecodeArp(*stored_arp);
    tab_.cmbARPtime.SetListIndex(arp.repeat);
    for (int i = 0; i < 3; ++i) tab_.chkARP(i).SetChecked(arp.sends[static_cast<std::size_t>(i)]);
    tab_.chkARPReset.SetChecked(arp.reset);
    for (int i = 0; i < 3; ++i) {
        const MaybeByte count = TrimmedByteAt(block_, kKeyCounterOffsets[i]);
        if (!count) return false;
        tab_.txtKeyCounter(i).SetText(std::to_string(*count));
    }
    community_start_ = Trim(Mid(block_, 1, kCommunityStart));
    if (IsDefaultCommunity(community_start_)) ShowCommunity("public");
    return true;
}

bool NetworkRead::TakeCommunityRest() {
    ShowCommunity(JoinCommunity(community_start_, block_));
    return true;
}

void NetworkRead::ShowCommunity(const std::string& text) { tab_.txtCommunity.SetText(text); }

bool NetworkRead::TakeSysContact() {
    tab_.txtSysContact.SetText(SysContactText(block_));
    return true;
}

bool NetworkRead::TakeKey(int index) {
    const std::string key = HexText(block_);
    TextBox& box = tab_.txtChaskey(index);
    if (KeyIsHidden(key)) {
        box.SetText(kKeyIsSet);
        box.SetForeColor(kRed);
    } else {
        box.SetText(key);
    }
    return true;
}

void NetworkRead::EnableSettings() {
    for (Frame* frame : SettingsFrames(form_)) frame->SetEnabled(true);
    tab_.cmdWriteNetworkSettings.SetEnabled(true);
    tab_.cmdResetEthernet.SetEnabled(true);
    session_.PasswordConfirmed = 1;
    // What the read itself put into the boxes reminds nobody.
    session_.IPChanged = 0;
    session_.PortChanged = 0;
    tab_.fraFixedIPSettings.SetEnabled(true);
    for (Label* label :
         {&tab_.lblObtainIPAddress, &tab_.lblNetBiosName, &tab_.lblUnitLocation, &tab_.lblUnitName,
          &tab_.lblArmButtonsEnable, &tab_.lblUnitID, &tab_.lblIPonOLED, &tab_.lblOledTimeoutText,
          &form_.security.lblWebSecurityEnable}) {
        label->SetEnabled(true);
    }
    EnableLabels(form_, "fraTCPports");
    for (Button& button : tab_.cmdChaskeyGen) button.SetEnabled(true);
    for (const char* frame :
         {"fraARP", "fraSnmpSettings", "fraArmButtons", "fraOledTimeout", "fraUnitID"}) {
        EnableLabels(form_, frame);
    }
}

void NetworkRead::EnableRest() {
    tab_.cmdReadNetworkSettings.SetEnabled(true);
    form_.names.cmdReadChannelNames.SetEnabled(true);
    form_.triggers.cmdReadMacroTriggers.SetEnabled(true);
    form_.cmdHelp.SetEnabled(true);
    SetTabsEnabled(form_, true);
    ShowByUnitType();
    if (!session_.AdminLoggedIn) return;
    if (tab_.chkDHCP.Checked()) {
        form_.SetFocus(tab_.txtNetbiosName);
    } else {
        tab_.fraFixedIPSettings.SetEnabled(true);
        form_.SetFocus(tab_.txtIPAddress);
    }
}

void NetworkRead::ShowByUnitType() {
    const bool changeover = session_.UnitType == "CMS";
    const bool two_inlets = changeover || session_.UnitType == "636";
    form_.names.lblBackup.SetVisible(two_inlets);
    form_.names.txtBackupUpper.SetVisible(two_inlets);
    form_.names.txtBackupLower.SetVisible(two_inlets);
    // A "636" leaves the changeover tab as it is.
    if (session_.UnitType != "636") form_.SSTab1.SetTabVisible(kChangeoverTab, changeover);
}

}  // namespace kestrane
