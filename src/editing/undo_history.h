#pragma once

// Undo and redo over all settings. A step is what a visit to one control has changed, with what
// the program changed in consequence; a repair that runs when the control is left belongs to it.
// What the program reads or clears ends the history: nobody did it, and nobody can take it back.

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "editing/pending_changes.h"

namespace kestrane {

class UndoHistory : public ScreenListener, public JournalObserver {
  public:
    static constexpr std::size_t kMostSteps = 1000;

    UndoHistory(Tool& tool, PendingChanges& pending);
    ~UndoHistory() override;
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    // The keys of the settings that went back or forth; none if there was nothing to do.
    std::vector<std::string> Undo();
    std::vector<std::string> Redo();
    bool CanUndo();
    // What comes now is a step of its own, whatever it changes.
    void Close();
    // What `work` changes is one step, whichever controls it visits.
    void AsOneStep(const std::function<void()>& work);
    bool CanRedo() const { return !undone_.empty(); }

    void FocusChanged(Form& form) override;
    void OperationBegan(const OperationRecord& operation) override;

  private:
    struct Values {
        std::string before;
        std::string after;
    };
    struct Step {
        std::map<const Setting*, Values> values;
        Control* visited = nullptr;
        bool closed = false;  // takes no repair any more
    };

    // Closes the visit: what differs from the last time becomes a step.
    void Settle();
    void Restart();
    std::vector<std::string> Apply(const Step& step, bool back);
    void GoTo(const Step& step);

    Tool& tool_;
    PendingChanges& pending_;
    std::map<const Setting*, std::string> seen_;
    std::vector<Step> done_;
    std::vector<Step> undone_;
    Control* visited_ = nullptr;
    bool applying_ = false;
    bool one_step_ = false;
};

}  // namespace kestrane
