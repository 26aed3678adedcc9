#include "security/password_gate.h"

#include "screen/screen.h"
#include "screen/screen_helpers.h"

namespace kestrane {
namespace {

constexpr int kControlLevel = 2;
constexpr int kAdminLevel = 3;
constexpr const char* kLevelNames[] = {nullptr, "View", "Control", "Admin"};

}  // namespace

PasswordGate::PasswordGate(MainForm& form, LoginForm& login, ConfirmPasswordForm& confirm,
                           Session& session, Link& link)
    : form_(form),
      login_(login),
      confirm_(confirm),
      session_(session),
      link_(link),
      control_{form.txtControlPassword, kControlLevel, {}},
      admin_{form.txtAdminPassword, kAdminLevel, {}} {
    Watch(control_);
    Watch(admin_);
    form.txtAdminName.on_got_focus = [this] { SelectAllText(form_.txtAdminName); };
    confirm.on_activate = [this] { frmConfirmPassword_Activate(); };
    confirm.cmdPasswordOK.on_click = [this] { cmdPasswordOK_Click(); };
    login.on_activate = [this] { login_.SetFocus(login_.txtName); };
    login.cmdOK.on_click = [this] { frmLogin_cmdOK_Click(); };
    login.cmdCancel.on_click = [this] { frmLogin_cmdCancel_Click(); };
}

void PasswordGate::Watch(Box& box) {
    box.text.on_got_focus = [this, &box] { Box_GotFocus(box); };
    box.text.on_change = [this] { session_.PasswordConfirmed = 0; };
    box.text.on_lost_focus = [this, &box] { Box_LostFocus(box); };
}

void PasswordGate::Box_GotFocus(Box& box) {
    box.old_text = box.text.Text();
    SelectAllText(box.text);
}

void PasswordGate::Box_LostFocus(Box& box) {
    session_.PasswordEntered = box.text.Text();
    if (session_.PasswordConfirmed == 0 && box.old_text != session_.PasswordEntered) {
        session_.PasswordLevel = box.level;
        form_.screen().ShowModal(confirm_);
    }
    if (session_.PasswordConfirmed != 0) return;
    box.text.SetText("");
    form_.SetFocus(box.text);
    // The rejected text is the old one now: leaving the emptied box asks again.
    box.old_text = session_.PasswordEntered;
}

void PasswordGate::frmConfirmPassword_Activate() {
    link_.platform().sound.Beep();
    confirm_.txtNewPassword.SetText("");
    confirm_.SetFocus(confirm_.txtNewPassword);
    const int level = session_.PasswordLevel;
    if (level < 1 || level > kAdminLevel) return;
    confirm_.lblConfirmPassword.SetCaption(
        std::string("You have changed the ") + kLevelNames[level] +
        " Password. Please type it again and click OK to continue");
}

void PasswordGate::cmdPasswordOK_Click() {
    if (confirm_.txtNewPassword.Text() == session_.PasswordEntered) {
        session_.PasswordConfirmed = 1;
    } else {
        link_.platform().boxes.Show("Password Error", "Passwords do not match!", {BoxButton::kOk});
        session_.PasswordConfirmed = 0;
    }
    form_.screen().Hide(confirm_);
}

// Name and password are compared with nothing.
void PasswordGate::frmLogin_cmdOK_Click() {
    session_.AdminLoggedIn = true;
    form_.network.fraNetworkSettings.SetEnabled(true);
    form_.security.fraSecuritySettings.SetEnabled(true);
    form_.txtAdminName.SetPasswordChar("");
    login_.txtName.SetText("");
    login_.txtPassword.SetText("");
    form_.screen().Hide(login_);
}

void PasswordGate::frmLogin_cmdCancel_Click() {
    form_.lblNotLoggedIn.SetCaption("NOT LOGGED IN");
    session_.AdminLoggedIn = false;
    form_.screen().Hide(login_);
}

}  // namespace kestrane
