#pragma once

// The small modal forms as data: login, password confirmation, help.

#include "screen/form.h"

namespace kestrane {

struct LoginForm : Form {
    explicit LoginForm(Screen& on_screen) : Form(on_screen, "frmLogin", "Kestrane Admin Login") {}

    Label Label1{*this, "Label1",
                 "The Kestrane MDU you are connected to has web security enabled. In order to "
                 "change any settings on the unit, you need to log in using the Admin username and "
                 "password."};
    ControlArray<Label> lblLabels{*this, "lblLabels", Indices(0, 1), [](int index) {
                                      return index == 0 ? "&User Name:" : "&Password:";
                                  }};
    TextBox txtName{*this, "txtName"};
    TextBox txtPassword{*this, "txtPassword", {.password = "*"}};
    Button cmdOK{*this, "cmdOK", "OK"};
    Button cmdCancel{*this, "cmdCancel", "Cancel"};
};

struct ConfirmPasswordForm : Form {
    explicit ConfirmPasswordForm(Screen& on_screen)
        : Form(on_screen, "frmConfirmPassword", "Password Changed") {}

    Label lblConfirmPassword{*this, "lblConfirmPassword", "Confirm Password"};
    Label lblLabels{*this, "lblLabels", "Retype Password:"};
    TextBox txtNewPassword{*this, "txtNewPassword", {.password = "*"}};
    Button cmdPasswordOK{*this, "cmdPasswordOK", "OK"};
};

struct HelpForm : Form {
    explicit HelpForm(Screen& on_screen) : Form(on_screen, "frmHelp", "Help") {}

    Label lblHelp1{*this, "lblHelp1"};
    Label lblHelp2{*this, "lblHelp2"};
    Label lblHelp3{*this, "lblHelp3"};
    Button OKButton{*this, "OKButton", "OK"};
};

}  // namespace kestrane
