#pragma once

// SAVE FILE and LOAD FILE: the program and the unit's eight macro triggers to and from a text file.
// Nothing here goes to the unit. Neither asks before it replaces anything. Source text can be
// loaded, too; its labels then stand beside their addresses.

#include <optional>
#include <string>

#include "link/session.h"
#include "macro/editor_state.h"
#include "macro/listing.h"
#include "macro/macro_file.h"
#include "macro/macro_program.h"
#include "macro/status_poll.h"
#include "screen/main_form.h"

namespace kestrane {

class EditorFiles {
  public:
    EditorFiles(ScriptEditForm& form, MainForm& main_form, Session& session,
                const Platform& platform, EditorState& state, Listing& listing, StatusPoll& poll);

    void cmdSaveFile_Click();
    void cmdLoadFile_Click();

    // The same without dialog and boxes. Saving leaves the name boxes padded. Returns what a box
    // is to tell: title and text.
    struct Fault {
        std::string title;
        std::string text;
    };
    std::optional<Fault> Save(const std::string& path);
    std::optional<Fault> Load(const std::string& path);

  private:
    void Run(bool save);
    std::optional<Fault> LoadFile(const std::string& name, std::string_view content);
    void LoadSource(const MacroProgram& program);
    TriggerRow Row(int row) const;

    ScriptEditForm& form_;
    MainForm& main_form_;
    Session& session_;
    Platform platform_;
    EditorState& state_;
    Listing& listing_;
    StatusPoll& poll_;
};

}  // namespace kestrane
