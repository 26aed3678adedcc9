#pragma once

// The frame of every long operation: buttons, help and tabs off, hourglass, the work, and the
// same undone on success and failure alike. What an operation does differently it says at the
// call.

#include <initializer_list>
#include <vector>

#include "link/link.h"
#include "screen/screen_helpers.h"

namespace kestrane {

class LongOperation {
  public:
    // Disables `off`, the help button and every tab. At its end it sets the arrow pointer and
    // enables `on_again`, the help button and every tab.
    LongOperation(MainForm& form, Link& link, const char* name,
                  std::initializer_list<Control*> off,
                  std::initializer_list<Control*> on_again)
        : form_(form), operation_(link, name), on_again_(on_again) {
        for (Control* control : off) control->SetEnabled(false);
        form.cmdHelp.SetEnabled(false);
        SetTabsEnabled(form, false);
        form.SetPointer(Form::kHourglass);
    }

    ~LongOperation() {
        form_.SetPointer(Form::kArrow);
        for (Control* control : on_again_) control->SetEnabled(true);
        form_.cmdHelp.SetEnabled(true);
        SetTabsEnabled(form_, true);
    }

    LongOperation(const LongOperation&) = delete;
    LongOperation& operator=(const LongOperation&) = delete;

    bool Stale() const { return operation_.Stale(); }
    Link::Operation& operation() { return operation_; }

  private:
    MainForm& form_;
    Link::Operation operation_;
    std::vector<Control*> on_again_;
};

}  // namespace kestrane
