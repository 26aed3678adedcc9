#pragma once

// The macro editor as a whole: its parts, and the opening and closing of its form. The form can be
// closed at any time, also in the middle of its own opening; what is still waiting then ends
// without touching anything.

#include "macro/editor_files.h"
#include "macro/go_to.h"
#include "macro/inserts.h"
#include "macro/outlet_masks.h"
#include "macro/program_edits.h"
#include "macro/transfer.h"
#include "macro/unit_program.h"

namespace kestrane {

struct MacroEditorHooks {
    TransferHooks transfer;
    // Checks the address box of one row of the macro triggers, with its own boxes.
    std::function<void(int row)> CheckTriggerAddress;
};

class MacroEditor {
  public:
    MacroEditor(ScriptEditForm& form, MainForm& main_form, Session& session, Link& link,
                MacroEditorHooks hooks);

    void cmdEditMacro_Click();
    void Form_Load();
    void cmdExit_Click();
    void Form_Unload();

    EditorState& state() { return state_; }
    EditorFiles& files() { return files_; }
    ProgramEdits& edits() { return edits_; }
    const std::string& unit_type() const { return session_.UnitType; }
    const std::optional<UnitStatus>& status() const { return poll_.last(); }
    const UnitProgram& unit_program() const { return unit_program_; }

  private:
    void StartAfresh();
    void LayOut();
    void TellOfChangedTriggers();

    ScriptEditForm& form_;
    MainForm& main_form_;
    Session& session_;
    const Platform& platform_;
    MacroEditorHooks hooks_;
    EditorState state_;
    Listing listing_;
    ProgramEdits edits_;
    UnitProgram unit_program_;
    SecondByte second_byte_;
    OutletMasks outlet_masks_;
    Inserts inserts_;
    StatusPoll poll_;
    GoTo go_to_;
    Transfer transfer_;
    EditorFiles files_;
};

}  // namespace kestrane
