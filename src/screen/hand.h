#pragma once

// What a hand can do on the screen, for the windows, the console and the tests alike. It refuses
// what is disabled, hidden, on another tab or behind a modal form, runs key filters and the
// maximum length, and keeps the order of validation, lost focus and got focus.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "screen/screen.h"

namespace kestrane {

// Why a hand was refused; nothing if it was not.
using Refusal = std::optional<std::string>;

class Hand {
  public:
    // `connection` numbers the connection to a unit, 0 for none: what a hand begins on one does
    // not go on upon the next.
    explicit Hand(
        Screen& screen, std::function<int()> connection = [] { return 0; })
        : screen_(screen), connection_(std::move(connection)) {}

    static constexpr int kBackspace = 8;
    static constexpr int kShiftKey = 16;
    static constexpr int kCtrlKey = 17;
    static constexpr std::size_t kLongestPaste = 4096;

    // A click: button, check box (turns it), option button (chooses it), and a label that has a
    // click handling.
    Refusal Click(Control& control);
    // Why Click would refuse, without doing anything.
    Refusal CheckClick(const Control& control) const;
    // Goes to the box, selects its whole text and types over it, key by key; "" deletes it.
    Refusal Type(TextBox& box, std::string_view text);
    // One character code typed at the selection, without selecting first.
    Refusal Press(TextBox& box, int code);
    // Characters that come in one go, filtered like typed ones; at most kLongestPaste are taken.
    Refusal Paste(TextBox& box, std::string_view text);
    // Removes the selection (delete key, cut).
    Refusal Erase(TextBox& box);
    // The focus goes to a control, as by Tab or the mouse.
    Refusal GoTo(Control& control);
    // The focus leaves the control that has it, for none.
    void Leave();
    // A key on the active form, by its key code.
    void Key(int code);
    // Picks an item of a combo box, moves a scroll bar, selects a tab.
    Refusal Choose(Control& control, int value);
    // Closes a form by its title bar.
    Refusal Close(Form& form);

    // Why `control` takes no hand now: "... is disabled", "... is on another tab" and so on.
    Refusal CheckUsable(const Control& control) const;

  private:
    Refusal MoveTo(Control& control);
    Refusal CheckTab(const TabControl& tabs, int index) const;
    Refusal CheckTyping(const TextBox& box) const;
    void TypeKey(TextBox& box, int code);

    Screen& screen_;
    std::function<int()> connection_;
};

}  // namespace kestrane
