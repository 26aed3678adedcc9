#pragma once

// A form: the root of its controls, the owner of its focus. Forms derive from it and declare
// their controls as members, each once, in the order of the screen.

#include <map>
#include <string>
#include <vector>

#include "screen/kinds.h"

namespace kestrane {

class Form : public Control, public Container {
  public:
    static constexpr int kArrow = 1;
    static constexpr int kHourglass = 11;

    Form(Screen& screen, ControlName name, std::string caption);
    ~Form() override;

    Screen& screen() const { return screen_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    int Pointer() const { return pointer_; }
    void SetPointer(int pointer);
    int Height() const { return height_; }
    void SetHeight(int twips);

    // Every control of the form in the order of the screen, the form itself not among them.
    const std::vector<Control*>& controls() const { return controls_; }
    // By `chkPriv(110)`; null if there is none.
    Control* Find(const std::string& name) const;

    // The control with the focus, or null. A control that can't be used any more has lost it.
    Control* Focused() const;
    // Moves the focus as the program does: lost focus of the old control, got focus of the new
    // one, no validation. Ignored if `control` can't be used, whichever form is active.
    void SetFocus(Control& control);
    void ClearFocus();

    std::string container_name() const override { return name(); }
    bool Reachable() const override;
    bool Showing() const override { return Visible(); }
    bool Usable() const override { return Reachable(); }
    Form& form() const { return Container::form(); }

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

    std::function<void()> on_load;      // before it is shown
    std::function<void()> on_activate;  // when it has come up
    std::function<void(int code)> on_key_down;
    // The title bar's close; without a handler a modal form just hides.
    std::function<void()> on_close;

    // For Control's constructor.
    void Register(Control& control);

  private:
    bool CanHoldFocus(const Control& control) const;
    void MoveFocus(Control* to);

    Screen& screen_;
    std::string caption_;
    int pointer_ = kArrow;
    int height_ = 0;
    std::vector<Control*> controls_;
    std::map<std::string, Control*> by_name_;
    Control* focus_ = nullptr;
    bool entered_ = false;  // got focus has run for focus_
};

}  // namespace kestrane
