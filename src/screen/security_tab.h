#pragma once

// The tab "Web Browser Security" as data. Index 0 is View, 1 Control, 2 Admin.

#include "screen/kinds.h"

namespace kestrane {

struct SecurityTab {
    static const char* HelpText(int index) {
        static constexpr const char* kTexts[] = {
            ("Passwords are not stored in the clear. They are hashed with a random salt and they "
             "cannot be read back."),
            "When adding or amending passwords, all three levels need to be set before saving.",
            "If a password field is empty, that level does not require a password.",
            "If a View password is set then add a password / disable Control and Admin.",
            "If a Control password is set then add a password / disable Admin.",
            "If all three levels are disabled then the web server is turned off."};
        return kTexts[index];
    }

    TabPage& page;

    Frame fraSecuritySettings{
        page, "fraSecuritySettings", "Web Browser Interface Settings", {.enabled = false}};
    Label Label16{fraSecuritySettings, "Label16", "Access"};
    Label Label66{fraSecuritySettings, "Label66", "Disabled"};
    Label lblViewPass{fraSecuritySettings, "lblViewPass", "View password"};
    Label lblControlPass{fraSecuritySettings, "lblControlPass", "Control password"};
    Label lblAdminPass{fraSecuritySettings, "lblAdminPass", "Admin password"};
    ControlArray<TextBox> txtWebPassword{fraSecuritySettings, "txtWebPassword", Indices(0, 2),
                                         TextBoxTraits{.max_length = 16}};
    ControlArray<CheckBox> chkWebSecurityDisable{fraSecuritySettings, "chkWebSecurityDisable",
                                                 Indices(0, 2)};
    Label lblWebSecurityEnable{fraSecuritySettings, "lblWebSecurityEnable",
                               "Empty for no password needed"};
    TextBox txtSalt{fraSecuritySettings, "txtSalt", {.text = "Text1", .visible = false}};
    ControlArray<TextBox> txtSHA{fraSecuritySettings, "txtSHA", Indices(0, 2),
                                 TextBoxTraits{.text = "Text1", .visible = false}};
    ControlArray<Label> txtPswHelp{page, "txtPswHelp", Indices(0, 5), HelpText};
    Button cmdReadWBISettings{page, "cmdReadWBISettings", "Read Web Security Settings"};
    Button cmdWriteWBISettings{
        page, "cmdWriteWBISettings", "Write Security Settings", {.enabled = false}};
};

}  // namespace kestrane
