#pragma once

// The small modal windows: login, password confirmation, help.

#include "forms/form_window.h"
#include "screen/small_forms.h"

namespace kestrane {

class LoginWindow : public FormWindow {
  public:
    LoginWindow(LoginForm& form, Hand& hand, WhyDisabledFunction why_disabled, QWidget* owner);
};

class ConfirmPasswordWindow : public FormWindow {
  public:
    ConfirmPasswordWindow(ConfirmPasswordForm& form, Hand& hand, WhyDisabledFunction why_disabled,
                          QWidget* owner);
};

class HelpWindow : public FormWindow {
  public:
    HelpWindow(HelpForm& form, Hand& hand, WhyDisabledFunction why_disabled, QWidget* owner);
};

}  // namespace kestrane
