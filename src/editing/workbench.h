#pragma once

// What is added around the screen for whoever edits a unit's settings: pending changes, undo, the
// messages and the log. Windows and console share one.

#include <memory>
#include <string>

#include "editing/frame_log.h"
#include "editing/live_answers.h"
#include "editing/messages.h"
#include "editing/pending_changes.h"
#include "editing/reasons.h"
#include "editing/undo_history.h"
#include "editing/verification.h"

namespace kestrane {

struct Workbench {
    explicit Workbench(Tool& its_tool);
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    // Takes everything back or forth by one step and says so.
    bool Undo();
    bool Redo();
    // Reads back what was written and compares; the result is a message. False if there is nothing
    // to verify, the reading failed, or the unit holds something else.
    bool Verify();
    // What a click on a button has come to, if it sent nothing and opened nothing: `last` is the
    // journal's last operation from before it.
    void AfterClick(Control& button, std::uint64_t last);

    Tool& tool;
    PendingChanges pending{tool};
    UndoHistory history{tool, pending};
    Verification verification{tool, pending};
    Messages messages{tool};
    FrameLog log{tool};
    LiveAnswers live{tool};

  private:
    // The loop has no way to take an observer off again.
    std::shared_ptr<Workbench*> alive_ = std::make_shared<Workbench*>(this);
};

}  // namespace kestrane
