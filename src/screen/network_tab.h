#pragma once

// The tab "Network Settings" as data.

#include "screen/kinds.h"

namespace kestrane {

struct NetworkTab {
    TabPage& page;

    Frame fraNetworkSettings{page, "fraNetworkSettings", "Network Settings"};
    Label lblNetBiosName{fraNetworkSettings, "lblNetBiosName", "NetBIOS name:"};
    TextBox txtNetbiosName{fraNetworkSettings, "txtNetbiosName", {.max_length = 15}};
    Label lblUnitLocation{fraNetworkSettings, "lblUnitLocation", "Unit location:"};
    TextBox txtUnitLocation{fraNetworkSettings, "txtUnitLocation", {.max_length = 16}};
    Label lblUnitName{fraNetworkSettings, "lblUnitName", "Unit name:"};
    TextBox txtUnitName{fraNetworkSettings, "txtUnitName", {.max_length = 16}};
    Label lblObtainIPAddress{fraNetworkSettings, "lblObtainIPAddress",
                             "Obtain IP address by DHCP:"};
    CheckBox chkDHCP{fraNetworkSettings, "chkDHCP"};
    // On the screen only: it opens the box beside it and is never stored.
    CheckBox chkTimeServerEnable{fraNetworkSettings, "chkTimeServerEnable", "Edit time server"};
    Label lblTimeServerIP{
        fraNetworkSettings, "lblTimeServerIP", "Time server IP address:", {.enabled = false}};
    TextBox txtTimeServerIP{fraNetworkSettings, "txtTimeServerIP", {.enabled = false}};

    // Two frames that nothing stands in any more; they are still switched with the others.
    Frame fraTimeServer{page, "fraTimeServer", "Time Server", {.visible = false}};
    Frame fraMiscOptions{page, "fraMiscOptions", "Options", {.visible = false}};

    Frame fraFixedIPSettings{
        page, "fraFixedIPSettings",
        "If DHCP is not enabled, or unavailable, then the unit will use the following IP address:"};
    Label lblIPAddress{fraFixedIPSettings, "lblIPAddress", "IP address:"};
    TextBox txtIPAddress{fraFixedIPSettings, "txtIPAddress"};
    Label lblSubnetMask{fraFixedIPSettings, "lblSubnetMask", "Subnet mask:"};
    TextBox txtSubnetMask{fraFixedIPSettings, "txtSubnetMask"};
    Label lblDefaultGateway{fraFixedIPSettings, "lblDefaultGateway", "Default gateway:"};
    TextBox txtDefaultGateway{fraFixedIPSettings, "txtDefaultGateway"};
    Label lblPrimaryDNS{fraFixedIPSettings, "lblPrimaryDNS", "Primary DNS:"};
    TextBox txtPrimaryDNS{fraFixedIPSettings, "txtPrimaryDNS"};
    Label lblSecondaryDNS{fraFixedIPSettings, "lblSecondaryDNS", "Secondary DNS:"};
    TextBox txtSecondaryDNS{fraFixedIPSettings, "txtSecondaryDNS"};

    Frame fraTCPports{page, "fraTCPports", "TCP Control Ports ABC"};
    Label lblTcpControlEnable{fraTCPports, "lblTcpControlEnable", "Enable"};
    Label qlblTcpControlPort{fraTCPports, "qlblTcpControlPort", "Port"};
    Label lblPasswordWarn{fraTCPports, "lblPasswordWarn",
                          "Master Key:    (Set 16x FF to disable Chaskey"};
    Label qlblAttackLimit{fraTCPports, "qlblAttackLimit", "Attack Limit"};
    Label qlblKeyCounter{fraTCPports, "qlblKeyCounter", "Key Count"};
    ControlArray<Label> Label5{fraTCPports, "Label5", Indices(0, 2), [](int index) {
                                   return std::string(1, static_cast<char>('A' + index));
                               }};
    ControlArray<CheckBox> chkTcpControlEnable{fraTCPports, "chkTcpControlEnable", Indices(0, 2)};
    ControlArray<TextBox> txtTcpControlPort{fraTCPports, "txtTcpControlPort", Indices(0, 2)};
    ControlArray<TextBox> txtChaskey{fraTCPports, "txtChaskey", Indices(0, 2),
                                     TextBoxTraits{.max_length = 32}};
    ControlArray<Button> cmdChaskeyGen{fraTCPports, "cmdChaskeyGen", Indices(0, 2), "Key Gen"};
    ControlArray<TextBox> txtAttackLimit{fraTCPports, "txtAttackLimit", Indices(0, 2),
                                         TextBoxTraits{.max_length = 3}};
    ControlArray<TextBox> txtKeyCounter{fraTCPports, "txtKeyCounter", Indices(0, 2),
                                        TextBoxTraits{.locked = true}};
    Label lblTcpTimeout{fraTCPports, "lblTcpTimeout", "TCP Timeout:"};
    TextBox txtForceDisconnect{
        fraTCPports, "txtForceDisconnect", {.max_length = 3, .enabled = false}};
    Label qLabel60{fraTCPports, "qLabel60", "0 = Disabled,. Max 2540 secs"};
    Label Label61{fraTCPports, "Label61", "Attack limit suggested min 10"};
    Label qLabel63{fraTCPports, "qLabel63", "Key count will reset on key change"};

    Frame fraARP{page, "fraARP", "Gratuitous ARP"};
    ControlArray<Label> lblARP{
        fraARP, "lblARP", Indices(0, 2), [](int index) {
            static constexpr const char* kCaptions[] = {"REQ FF", "RESP FF", "REQ 00"};
            return kCaptions[index];
        }};
    ControlArray<CheckBox> chkARP{fraARP, "chkARP", Indices(0, 2)};
    Label lblARPtime{fraARP, "lblARPtime", "Repeat interval:"};
    ComboBox cmbARPtime{fraARP, "cmbARPtime"};
    Label lblARPReset{fraARP, "lblARPReset", "Reset GARP timer if other comms"};
    CheckBox chkARPReset{fraARP, "chkARPReset"};

    Frame fraSnmpSettings{page, "fraSnmpSettings", "SNMP Settings"};
    Label lblSnmpPort{fraSnmpSettings, "lblSnmpPort", "Read Community String:"};
    TextBox txtCommunity{fraSnmpSettings, "txtCommunity", {.max_length = 24}};
    Label lblSysContact{fraSnmpSettings, "lblSysContact", "sysContact:"};
    TextBox txtSysContact{fraSnmpSettings, "txtSysContact", {.max_length = 16}};

    Frame fraUnitID{page, "fraUnitID", "Unit ID"};
    TextBox txtUnitID{fraUnitID, "txtUnitID", {.max_length = 2}};
    Label lblUnitID{fraUnitID, "lblUnitID", "Set to 1 single or 61 multi master"};
    Button cmdUnitID{fraUnitID, "cmdUnitID", "Write", {.enabled = false}};

    Frame fraOledTimeout{page, "fraOledTimeout", "OLED"};
    Label lblOledTimeoutText{fraOledTimeout, "lblOledTimeoutText", "OLED timeout (secs):"};
    TextBox txtOledTimeout{fraOledTimeout, "txtOledTimeout", {.max_length = 4}};
    CheckBox chkIPonOLED{fraOledTimeout, "chkIPonOLED"};
    Label lblIPonOLED{fraOledTimeout, "lblIPonOLED", "Hide IP settings on OLED"};

    Frame fraArmButtons{page, "fraArmButtons", "Web Browser"};
    CheckBox chkArmEnable{fraArmButtons, "chkArmEnable"};
    Label lblArmButtonsEnable{fraArmButtons, "lblArmButtonsEnable",
                              "Enable Arm buttons on web browser"};

    Button cmdReadNetworkSettings{
        page, "cmdReadNetworkSettings", "Read Network and ID Settings", {.enabled = false}};
    Button cmdWriteNetworkSettings{
        page, "cmdWriteNetworkSettings", "Write Network Settings", {.enabled = false}};
    Button cmdResetEthernet{
        page, "cmdResetEthernet", "Reset Ethernet Processor", {.enabled = false}};
};

}  // namespace kestrane
