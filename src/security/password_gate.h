#pragma once

// The confirmation of typed passwords, and the login form. The gate itself is
// Session::AdminLoggedIn: a settings read opens it without comparing anything.

#include "link/link.h"
#include "screen/small_forms.h"

namespace kestrane {

class PasswordGate {
  public:
    PasswordGate(MainForm& form, LoginForm& login, ConfirmPasswordForm& confirm, Session& session,
                 Link& link);

  private:
    // A password box of the main form, its level and the text that it held when it got the focus.
    struct Box {
        TextBox& text;
        int level;
        std::string old_text;
    };

    void Watch(Box& box);
    void Box_GotFocus(Box& box);
    void Box_LostFocus(Box& box);
    void frmConfirmPassword_Activate();
    void cmdPasswordOK_Click();
    void frmLogin_cmdOK_Click();
    void frmLogin_cmdCancel_Click();

    MainForm& form_;
    LoginForm& login_;
    ConfirmPasswordForm& confirm_;
    Session& session_;
    Link& link_;
    Box control_;
    Box admin_;
};

}  // namespace kestrane
