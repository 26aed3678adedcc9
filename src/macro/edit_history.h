#pragma once

// Undo and redo of what the editor edits: the program, the triggers, and the labels that pasted
// source text has given to addresses. Each state stands on its own, so that any change, whatever
// made it, is one step.

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "macro/macro_file_lines.h"
#include "macro/macro_memory.h"

namespace kestrane {

struct EditedProgram {
    MacroMemory image;
    TriggerRows triggers;
    std::map<std::uint8_t, std::string> labels;

    bool operator==(const EditedProgram&) const = default;
};

class EditHistory {
  public:
    static constexpr std::size_t kMostSteps = 200;

    // Forgets all steps.
    void Begin(EditedProgram now);
    // A step, with a name in the past tense as "Loaded five.sms", unless nothing has changed.
    // Returns whether there was one.
    bool Note(const EditedProgram& now, const std::string& name);

    const EditedProgram& Now() const { return now_; }
    // The name of the step that would be undone or redone; empty if there is none.
    std::string UndoName() const { return undo_.empty() ? std::string() : undo_.back().name; }
    std::string RedoName() const { return redo_.empty() ? std::string() : redo_.back().name; }
    // Only while there is one.
    const EditedProgram& Undo() { return Move(undo_, redo_); }
    const EditedProgram& Redo() { return Move(redo_, undo_); }

  private:
    struct Step {
        EditedProgram other;  // the state on its far side
        std::string name;
    };

    const EditedProgram& Move(std::deque<Step>& from, std::deque<Step>& to);

    EditedProgram now_;
    std::deque<Step> undo_;
    std::deque<Step> redo_;
};

// What has changed between the two, in words: "Changed line 1A", "Cleared the program".
std::string ChangeInWords(const EditedProgram& before, const EditedProgram& after);

// The macro addresses whose instruction differs, ascending.
std::vector<std::uint8_t> ChangedLines(const MacroMemory& before, const MacroMemory& after);

}  // namespace kestrane
