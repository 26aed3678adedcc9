#pragma once

// The main form "frmMainForm" as data: connection and status panels, diagnostics, the nine tabs.

#include "screen/changeover_tab.h"
#include "screen/firmware_tab.h"
#include "screen/form.h"
#include "screen/names_tab.h"
#include "screen/network_tab.h"
#include "screen/one_wire_tab.h"
#include "screen/privileges_tab.h"
#include "screen/security_tab.h"
#include "screen/triggers_tab.h"

namespace kestrane {

struct MainForm : Form {
    // Heights in twips, with and without the diagnostics panel.
    static constexpr int kShortHeight = 8490;
    static constexpr int kTallHeight = 11340;
    static constexpr int kTallFrom = 10000;

    explicit MainForm(Screen& on_screen)
        : Form(on_screen, "frmMainForm", "Kestrane TCP Configuration") {
        SetHeight(kShortHeight);
    }

    Frame fraIPAddress{*this, "fraIPAddress", "Unit IP Address"};
    Label lblCurrentIPAddress{fraIPAddress, "lblCurrentIPAddress", "IP address:"};
    TextBox txtCurrentIPAddress{fraIPAddress, "txtCurrentIPAddress"};
    Label lblCurrentPort{fraIPAddress, "lblCurrentPort", "Port:"};
    TextBox txtCurrentPort{fraIPAddress, "txtCurrentPort"};
    Label lblTimeout{fraIPAddress, "lblTimeout", "Timeout (Secs)"};
    TextBox txtTimeout{fraIPAddress, "txtTimeout", {.text = "3"}};
    // Drawn in the panel above, but the operator can always disconnect: they hang on the form.
    Button cmdConnect{*this, "cmdConnect", "Connect"};
    Button cmdDisconnect{*this, "cmdDisconnect", "Disconnect"};

    Frame fraRelayID{*this, "fraRelayID", "Relay ID"};
    ControlArray<OptionButton> OptButID{
        fraRelayID,
        "OptButID",
        {250, 0, 1, 2, 3, 4},
        [](int id) { return std::to_string(id); },
        [](int id) { return OptionButtonTraits{.chosen = id == 250}; }};

    Frame fraMemoryBlock{*this, "fraMemoryBlock", "Memory Read/Write Status"};
    Label lblMemoryBlock{fraMemoryBlock, "lblMemoryBlock"};

    TabControl SSTab1{*this,
                      "SSTab1",
                      {"Network Settings", "TCP Port Privileges", "Web Browser Security",
                       "Channel Names", "Macro Triggers", "1-Wire Settings", "Changeover Options",
                       "Firmware Versions", "Invisible Storage"}};
    NetworkTab network{SSTab1.page(0)};
    PrivilegesTab privileges{SSTab1.page(1)};
    SecurityTab security{SSTab1.page(2)};
    NamesTab names{SSTab1.page(3)};
    TriggersTab triggers{SSTab1.page(4)};
    OneWireTab one_wire{SSTab1.page(5)};
    ChangeoverTab changeover{SSTab1.page(6)};
    FirmwareTab firmware{SSTab1.page(7)};

    // Parked: on no tab and out of sight, disabled from the start.
    Label lblControlPassword{*this, "lblControlPassword", "Control password:"};
    TextBox txtControlPassword{
        *this, "txtControlPassword", {.max_length = 16, .password = "*", .enabled = false}};
    Label lblAdminName{*this, "lblAdminName", "Admin username:"};
    TextBox txtAdminName{
        *this, "txtAdminName", {.max_length = 16, .password = "*", .enabled = false}};
    Label lblAdminPassword{*this, "lblAdminPassword", "Admin password:"};
    TextBox txtAdminPassword{
        *this, "txtAdminPassword", {.max_length = 16, .password = "*", .enabled = false}};

    Label lblNotLoggedIn{*this, "lblNotLoggedIn"};
    Label lblVersion{*this, "lblVersion"};
    Button cmdHelp{*this, "cmdHelp", "Help"};

    // The diagnostics panel.
    Frame fraCommandSent{*this, "fraCommandSent", "Command Sent"};
    Label Label2{fraCommandSent, "Label2"};
    Label Label4{fraCommandSent, "Label4"};
    TextBox txtSleepDelay{fraCommandSent, "txtSleepDelay"};
    Frame fraResponse{*this, "fraResponse", "Response Received"};
    Label Label1{fraResponse, "Label1"};
    Label Label3{fraResponse, "Label3"};

    Timer timGetResponse{*this, "timGetResponse", {.interval = 100, .enabled = true}};
    Timer timTimeout{*this, "timTimeout", {.interval = 3000}};
    Timer timDisconnect{*this, "timDisconnect", {.interval = 2000}};
    Timer timCMSOptions{*this, "timCMSOptions", {.interval = 250}};
};

}  // namespace kestrane
