#include "tool/shell.h"

#include "screen/hand.h"
#include "screen/screen_helpers.h"

namespace kestrane {

Shell::Shell(MainForm& form, Session& session, Link& link)
    : form_(form), session_(session), link_(link) {
    form.on_load = [this] { Form_Load(); };
    form.on_key_down = [this](int code) { Form_KeyDown(code); };
    form.on_close = [this] { Form_Unload(); };
    form.SSTab1.on_click = [this] { SSTab1_Click(); };
}

void Shell::Form_Load() {
    link_.platform().tcpsend.Close();
    form_.txtCurrentIPAddress.SetText("192.168.10.100");
    form_.txtCurrentPort.SetText("1243");
    form_.lblVersion.SetCaption("Version " KESTRANE_VERSION);
    form_.SSTab1.SetTab(8);
    session_.LastTabIndex = form_.SSTab1.TabCount() - 1;
    SetTabsEnabled(form_, false);
    for (const int tab : {6, 7, 8}) form_.SSTab1.SetTabVisible(tab, false);
    form_.network.lblOledTimeoutText.SetToolTip(
        "Timeout delay in seconds, Max 2540.\r\n0 = disabled (Not recommended!)");
    form_.network.lblSnmpPort.SetToolTip(
        "SNMP port is fixed at 161.\r\nA blank community string will disable SNMP port on reset");
    session_.RelayAddress = 250;
    session_.DisplayAddress = 251;
    session_.LinkIsDown = true;
    form_.network.cmbARPtime.SetItems({"No repeat", "30 seconds", "1 minute", "2 minutes",
                                       "5 minutes", "10 minutes", "30 minutes", "60 minutes"});
    DisableLabels(form_);
    form_.txtSleepDelay.SetText("10");
}

void Shell::SSTab1_Click() {
    abortCMSOptions(form_);
    session_.known.changeover_startup = session_.known.changeover_live = false;
    DisableFrames(form_);
    form_.fraIPAddress.SetEnabled(session_.LinkIsDown);
    form_.fraMemoryBlock.SetEnabled(true);
    form_.fraCommandSent.SetEnabled(true);
    form_.fraResponse.SetEnabled(true);
    EnableFramesOfTab(form_.SSTab1.Tab());
    form_.fraRelayID.SetEnabled(true);
}

// From index 2 on the pairing does not follow the captions of the tabs. It is meant so.
void Shell::EnableFramesOfTab(int tab) {
    NetworkTab& net = form_.network;
    struct Row {
        int tab;
        bool condition;
        std::vector<Frame*> frames;
        Control* focus;
    };
    const bool admin = session_.AdminLoggedIn;
    const auto frames = SettingsFrames(form_);
    std::vector<Frame*> settings(frames.begin(), frames.end());
    settings.push_back(&net.fraFixedIPSettings);
    const Row rows[] = {
        {0, admin, settings, &net.txtIPAddress},
        {1, admin, {&form_.privileges.fraTcpControlSettings}, nullptr},
        {2,
         admin && session_.ChannelNamesRead,
         {&form_.names.fraInletNames, &form_.names.fraOutletNames},
         &form_.names.txtMainUpper},
        {3,
         admin && session_.MacroTriggersRead,
         {&form_.triggers.fraMacroTrigger},
         &form_.triggers.txtMTName(0)},
        {4,
         admin && session_.OneWireRead,
         {&form_.one_wire.fra1WireSettings},
         &form_.one_wire.txt1WName(0)},
        {5,
         admin && session_.ChangeoverRead,
         {&form_.changeover.fraChangeoverOptions, &form_.changeover.fraDefaultInlet},
         nullptr},
        {6, true, {&form_.firmware.fraFirmwareUpdate}, nullptr},
    };
    for (const Row& row : rows) {
        if (row.tab != tab || !row.condition) continue;
        for (Frame* frame : row.frames) frame->SetEnabled(true);
        if (row.focus) form_.SetFocus(*row.focus);
    }
}

void Shell::Form_KeyDown(int code) {
    if (code == Hand::kCtrlKey) {
        form_.SetHeight(form_.Height() >= MainForm::kTallFrom ? MainForm::kShortHeight
                                                              : MainForm::kTallHeight);
    }
    if (code == Hand::kShiftKey && session_.AdminLoggedIn) {
        const char* mask = form_.txtAdminPassword.PasswordChar() == "*" ? "" : "*";
        form_.txtAdminPassword.SetPasswordChar(mask);
        form_.txtControlPassword.SetPasswordChar(mask);
    }
}

void Shell::Form_Unload() {
    for (Control* control : form_.controls()) {
        if (control->kind() == Kind::kTimer) control->SetEnabled(false);
    }
    link_.platform().tcpsend.Close();
    link_.platform().loop.Exit(0);
}

}  // namespace kestrane
