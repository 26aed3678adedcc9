#pragma once

// What the editor offers beside its controls: undo and redo of whatever has changed the program or
// the triggers, lines as source text, findings, and the names that stand beside addresses. Changes
// are seen after each event, so the handlers of the controls know nothing of this.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "macro/edit_history.h"
#include "macro/editor_state.h"
#include "macro/listing.h"
#include "macro/macro_check.h"
#include "screen/main_form.h"

namespace kestrane {

class ProgramEdits {
  public:
    ProgramEdits(ScriptEditForm& form, MainForm& main_form, Session& session, EditorState& state,
                 Listing& listing);

    // The form opens; and its opening is done: what that read is where editing begins.
    void Begin();
    void Opened();
    // An event has been handled.
    void Look();

    // False, and nothing done, without a step or while a transfer or another form holds the screen.
    bool Undo();
    bool Redo();
    const EditHistory& history() const { return history_; }

    // The lines of these addresses as source text, in UTF-8.
    std::string Lines(std::uint8_t first, std::uint8_t last) const;
    // Puts the lines of a source text at the cursor, which goes on after them. Returns what is
    // wrong with the text; nothing has changed then.
    std::optional<std::string> Paste(std::string_view source);

    std::vector<Finding> Findings() const;
    // The labels and triggers of an address, in UTF-8; empty for most.
    std::string NamesAt(std::uint8_t address) const;

  private:
    bool Usable() const;
    EditedProgram Snapshot() const;
    void Show(const EditedProgram& program);
    void ShowTriggers(const TriggerRows& rows);

    ScriptEditForm& form_;
    MainForm& main_form_;
    Session& session_;
    EditorState& state_;
    Listing& listing_;
    EditHistory history_;
    std::map<std::uint8_t, std::string> labels_;
};

}  // namespace kestrane
