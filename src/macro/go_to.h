#pragma once

// The address to go to, and the command that moves the unit's macro there. The box shows red text
// until leaving it, or the button, has checked it.

#include "link/link.h"
#include "macro/listing.h"
#include "macro/status_poll.h"

namespace kestrane {

class GoTo {
  public:
    GoTo(ScriptEditForm& form, Session& session, Link& link, EditorState& state, Listing& listing,
         StatusPoll& poll);

    void txtGoTo_LostFocus();
    void cmdGoTo_Click();

  private:
    bool UnderWay() const { return running_ && running_visit_ == state_.visit; }
    std::uint8_t Address() const;
    void Check();
    std::string Command() const;
    bool Exchange(const Visit& visit);

    ScriptEditForm& form_;
    Session& session_;
    Link& link_;
    EditorState& state_;
    Listing& listing_;
    StatusPoll& poll_;
    bool running_ = false;
    unsigned running_visit_ = 0;
    bool waiting_ = false;
};

}  // namespace kestrane
