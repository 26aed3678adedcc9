#pragma once

// The hand of the story's operator, watched: what it sets off is looked at when it happens, which
// may be long after it began, as leaving a box can open another one that stays open.

#include <vector>

#include "support/tool_on_line.h"

namespace kestrane::sessions {

class WatchedHand {
  public:
    // Looks at each click of a button before it is handled.
    explicit WatchedHand(ToolOnLine& tool);

    Refusal Click(Control& control);
    Refusal Type(TextBox& box, std::string_view text);
    Refusal Choose(Control& control, int value);
    Refusal Close(Form& form) { return tool_.tool.hand.Close(form); }
    void Leave() { tool_.tool.hand.Leave(); }

    // For the stage: a tab has been chosen, a reader's timer stopped.
    void TabChosen() const;
    void ReaderStopped() const;

  private:
    // From before the hand moves until it is done.
    struct Move {
        const Control* target;
        int connection;
    };
    class Moving;

    void CheckClick(const Control& control) const;
    void Wish(std::function<void()>& handling);

    ToolOnLine& tool_;
    std::vector<Move> moves_;
    // Something that may end a connection at any time is being handled.
    int wished_ = 0;
};

}  // namespace kestrane::sessions
