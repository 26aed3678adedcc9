#pragma once

// All forms of the program, which of them is active, and who listens. A modal form is shown by a
// call that pumps events until the form is hidden again.

#include <string>
#include <vector>

#include "platform/platform.h"
#include "screen/form.h"

namespace kestrane {

// A view or a script that mirrors the screen. The calls come in the middle of handlings: they
// must not change the screen or pump events.
class ScreenListener {
  public:
    virtual ~ScreenListener() = default;
    virtual void ControlChanged(Control& /*control*/, Property /*property*/) {}
    virtual void FocusChanged(Form& /*form*/) {}
    virtual void FormShown(Form& /*form*/) {}
    // Its load and activation handling has returned.
    virtual void FormOpened(Form& /*form*/) {}
    virtual void FormHidden(Form& /*form*/) {}
};

class Screen {
  public:
    explicit Screen(Platform platform) : platform_(platform) {}

    const Platform& platform() const { return platform_; }

    // In the order of their making; the first is the main form.
    const std::vector<Form*>& forms() const { return forms_; }
    Form* FindForm(const std::string& name) const;

    // The form that takes the operator's input: the modal one shown last, else the main form.
    Form* ActiveForm() const;

    // Shows the main form and returns.
    void Show(Form& form);
    // Runs load and activation, at each showing anew, then pumps until the form is hidden. Showing
    // a form that is up already returns at once.
    void ShowModal(Form& form);
    // Takes the form off the screen; its ShowModal returns when control comes back to it.
    void Hide(Form& form);

    void AddListener(ScreenListener& listener) { listeners_.push_back(&listener); }
    void RemoveListener(ScreenListener& listener) { std::erase(listeners_, &listener); }

    // For Form and Control.
    void Register(Form& form) { forms_.push_back(&form); }
    void Unregister(Form& form) { std::erase(forms_, &form); }
    void Tell(Control& control, Property property);
    void TellFocus(Form& form);

  private:
    Platform platform_;
    std::vector<Form*> forms_;
    std::vector<Form*> modal_;
    std::vector<ScreenListener*> listeners_;
    unsigned shows_ = 0;
    std::vector<std::pair<Form*, unsigned>> running_;
};

}  // namespace kestrane
