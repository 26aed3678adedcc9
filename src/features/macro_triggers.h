#pragma once

// The tab "Macro Triggers": eight named entry points into the macro program, kept in a table on
// the display board. An address box is red until leaving it has checked its text.

#include <functional>
#include <string>

#include "link/link.h"

namespace kestrane {

class MacroTriggers {
  public:
    using ShowProgress = std::function<void(const std::string& text)>;

    MacroTriggers(MainForm& form, Session& session, Link& link);

    void cmdReadMacroTriggers_Click();
    void cmdWriteMacroTriggers_Click();
    void txtMTAddress_Change(int row);
    void txtMTAddress_GotFocus(int row);
    // Checks row 0 to 7: a box tells of an address outside 0x10 to 0x7E, the text is emptied and
    // the focus set to it. No address at all empties the row's box without a word.
    void txtMTAddress_LostFocus(int row);

    // The table for the macro editor, always from the display board at 251, into the same boxes;
    // what is going on goes to `progress`. It is a part of the caller's Link::Operation. False if
    // a record could not be had; the rows before it stay filled.
    bool ReadMacroTriggers(const ShowProgress& progress);

  private:
    bool ReadRow(int board, int row);
    void RefusePage();
    void EnableAfterSuccess();

    MainForm& form_;
    TriggersTab& tab_;
    Session& session_;
    Link& link_;
};

}  // namespace kestrane
