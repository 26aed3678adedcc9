#include "screen/screen_helpers.h"

namespace kestrane {

void DisableLabels(MainForm& form) {
    for (Control* control : form.controls()) {
        if (control->kind() == Kind::kLabel) control->SetEnabled(false);
    }
    for (Button& button : form.network.cmdChaskeyGen) button.SetEnabled(false);
    form.fraMemoryBlock.SetEnabled(true);
}

void EnableLabels(MainForm& form, const std::string& framename) {
    // Runs at each tick of a live connection: compares no names.
    const auto* const frame = dynamic_cast<const Frame*>(form.Find(framename));
    for (Control* control : form.controls()) {
        if (control->kind() == Kind::kLabel && &control->container() == frame) {
            control->SetEnabled(true);
        }
    }
    form.fraMemoryBlock.SetEnabled(true);
}

void DisableFrames(MainForm& form) {
    for (Control* control : form.controls()) {
        if (control->kind() == Kind::kFrame) control->SetEnabled(false);
    }
}

std::array<Frame*, 10> SettingsFrames(MainForm& form) {
    NetworkTab& net = form.network;
    return {&net.fraNetworkSettings, &net.fraTCPports, &net.fraARP,
            &form.privileges.fraTcpControlSettings, &form.security.fraSecuritySettings,
            &net.fraMiscOptions, &net.fraOledTimeout, &net.fraSnmpSettings, &net.fraArmButtons,
            &net.fraUnitID};
}

void SetTabsEnabled(MainForm& form, bool enabled) {
    for (int tab = 0; tab < form.SSTab1.TabCount(); ++tab) form.SSTab1.SetTabEnabled(tab, enabled);
}

void SelectAllText(TextBox& box) { box.Select(0, static_cast<int>(box.Text().size())); }

void ClearTextBoxes(MainForm& form) {
    NetworkTab& net = form.network;
    for (TextBox* box :
         {&form.txtAdminName, &form.txtAdminPassword, &net.txtIPAddress, &net.txtSubnetMask,
          &net.txtDefaultGateway, &net.txtPrimaryDNS, &net.txtSecondaryDNS, &net.txtNetbiosName}) {
        box->SetText("");
    }
    for (TextBox& box : net.txtTcpControlPort) box.SetText("");
    for (TextBox* box :
         {&net.txtTimeServerIP, &net.txtUnitLocation, &net.txtUnitName, &net.txtOledTimeout,
          &net.txtUnitID, &net.txtCommunity, &net.txtSysContact}) {
        box->SetText("");
    }
    for (const auto* boxes : {&net.txtChaskey, &net.txtAttackLimit, &net.txtKeyCounter}) {
        for (TextBox& box : *boxes) box.SetText("");
    }
    net.txtForceDisconnect.SetText("");

    FirmwareTab& firmware = form.firmware;
    for (Label* label :
         {&firmware.lblType, &firmware.lblSerialNo, &firmware.lblRelayVersion,
          &firmware.lblRelayLatest, &firmware.lblDisplayVersion, &firmware.lblDisplayLatest}) {
        label->SetCaption("-");
    }

    net.chkDHCP.SetChecked(false);
    for (CheckBox& box : net.chkTcpControlEnable) box.SetChecked(false);
    for (CheckBox* box : {&net.chkTimeServerEnable, &net.chkArmEnable, &net.chkIPonOLED}) {
        box->SetChecked(false);
    }
    for (CheckBox& box : net.chkARP) box.SetChecked(false);
    net.chkARPReset.SetChecked(false);
    net.cmbARPtime.SetListIndex(-1);
}

void ClearNameBoxes(MainForm& form) {
    NamesTab& names = form.names;
    for (TextBox* box :
         {&names.txtMainUpper, &names.txtMainLower, &names.txtBackupUpper, &names.txtBackupLower}) {
        box->SetText("");
    }
    for (int i = 0; i < 14; ++i) {
        names.txtOutLower(i).SetText("");
        names.txtOutUpper(i).SetText("");
    }
}

void ClearMacroTriggerRows(MainForm& form) {
    for (int i = 0; i < TriggersTab::kRows; ++i) {
        form.triggers.txtMTName(i).SetText("");
        form.triggers.txtMTPage(i).SetText("");
        form.triggers.txtMTAddress(i).SetText("");
        form.triggers.chkMacro(i).SetChecked(false);
    }
}

void Clear1WireFields(MainForm& form) {
    for (int i = 0; i < OneWireTab::kSlots; ++i) {
        form.one_wire.txt1WName(i).SetText("");
        form.one_wire.lbl1WAddress(i).SetCaption("");
        form.one_wire.lbl1WType(i).SetCaption("");
        form.one_wire.lbl1We2p(i).SetCaption("");
    }
}

void ClearPriviledges(MainForm& form) {
    form.privileges.cmdWriteTCPPortPriv.SetEnabled(false);
    for (CheckBox& box : form.privileges.chkPriv) box.SetChecked(false);
}

void ClearWebFields(MainForm& form) {
    for (int i = 0; i < 3; ++i) {
        form.security.txtWebPassword(i).SetText("");
        form.security.chkWebSecurityDisable(i).SetChecked(false);
    }
}

void abortCMSOptions(MainForm& form) {
    ChangeoverTab& panel = form.changeover;
    form.lblMemoryBlock.SetCaption("");
    form.timCMSOptions.SetEnabled(false);
    for (Label* label :
         {&panel.lblOffTimeMain, &panel.lblOffTimeBackup, &panel.lblPhase, &panel.lblChangeBack}) {
        label->SetCaption("");
    }
    for (TextBox& box : panel.txtCurrent) box.SetText("000");
    for (TextBox& box : panel.txtStartup) box.SetText("000");
    for (const auto* buttons : {&panel.cmdSaveCurrent, &panel.cmdSaveStartup}) {
        for (Button& button : *buttons) button.SetEnabled(false);
    }
    panel.fraDefaultInlet.SetEnabled(false);
}

}  // namespace kestrane
