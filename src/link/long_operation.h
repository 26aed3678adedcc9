#pragma once

// The frame of every long operation: buttons, help and tabs off, hourglass, the work, and the
// same undone on success and failure alike. What an operation does differently it says at the
// call.

#include <initializer_list>
#include <vector>

#include "link/link.h"
#include "screen/screen_helpers.h"

namespace kestrane {

// Whether a table that has been read on this connection is to be written. If not, says so in a box
// and in the journal.
inline bool KnownForWriting(Link& link, bool known, const char* operation_name,
                            const std::string& table) {
    if (known) return true;
    const std::string why = table + " have not been read on this connection";
    Link::Operation operation(link, operation_name);
    operation.Stop(why);
    link.platform().boxes.Show("Not read", "The " + why + ". Nothing was written.",
                               {BoxButton::kOk});
    return false;
}

class LongOperation {
  public:
    // Disables `off`, the help button and every tab. At its end it sets the arrow pointer and
    // enables `on_again`, the help button and every tab.
    LongOperation(MainForm& form, Link& link, const char* name, std::initializer_list<Control*> off,
                  std::initializer_list<Control*> on_again)
        : form_(form), operation_(link, name), on_again_(on_again) {
        for (Control* control : off) control->SetEnabled(false);
        form.cmdHelp.SetEnabled(false);
        SetTabsEnabled(form, false);
        form.SetPointer(Form::kHourglass);
    }

    // A disconnect in the midst has left the screen as it is to be; only what it does not look
    // after comes back.
    ~LongOperation() {
        if (!Stale()) form_.SetPointer(Form::kArrow);
        for (Control* control : on_again_) {
            if (!Stale() || !NeedsSettingsRead(*control)) control->SetEnabled(true);
        }
        form_.cmdHelp.SetEnabled(true);
        if (!Stale()) SetTabsEnabled(form_, true);
    }

    LongOperation(const LongOperation&) = delete;
    LongOperation& operator=(const LongOperation&) = delete;

    bool Stale() const { return operation_.Stale(); }
    Link::Operation& operation() { return operation_; }

  private:
    bool NeedsSettingsRead(const Control& control) const {
        return &control == &form_.names.cmdReadChannelNames ||
               &control == &form_.triggers.cmdReadMacroTriggers;
    }

    MainForm& form_;
    Link::Operation operation_;
    std::vector<Control*> on_again_;
};

}  // namespace kestrane
