#pragma once

// The status of the unit, asked for while the editor is open: the picture, and in trace the cursor
// that follows the running macro. An answer that is no status is passed over; the next tick asks
// again. However long a unit is silent, at most one poll of each kind waits: further ones send
// their frame and leave the answer to that one.

#include <string>

#include "link/link.h"
#include "macro/listing.h"
#include "macro/status_picture.h"

namespace kestrane {

class StatusPoll {
  public:
    StatusPoll(ScriptEditForm& form, Session& session, Link& link, EditorState& state,
               Listing& listing);

    void cmdGetStatus_Click();
    void timUpdate_Timer();
    void timTrace_Timer();
    void chkTrace_Click();

    // Turns a status record into the picture; a record of another length changes nothing.
    void ShowStatus(std::string_view record);

    // The newest that came in this opening.
    const std::optional<UnitStatus>& last() const { return last_; }

    // The form opens.
    void StartAfresh();
    // The poll that the Trace box asks for, and the other one off. Does nothing while the form is
    // closed or a transfer holds the link.
    void StartTimers();
    void StopTimers();

  private:
    using Show = void (StatusPoll::*)(std::string_view record);

    void Poll(Timer& timer, bool& waiting, Show show);
    void Exchange(bool& waiting, Show show);
    void ShowTrace(std::string_view record);
    void ShowFromStart(std::string_view record);
    void MoveCursor(int address);

    ScriptEditForm& form_;
    Session& session_;
    Link& link_;
    EditorState& state_;
    Listing& listing_;
    bool update_waits_ = false;
    bool trace_waits_ = false;
    bool get_status_waits_ = false;
    std::optional<UnitStatus> last_;
    bool tick_left_ = false;  // by a poll that found an answer unseen
};

}  // namespace kestrane
