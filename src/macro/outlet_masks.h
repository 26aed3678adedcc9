#pragma once

// The check boxes of outlets 1 to 8 and 9 to 14, from which the mask of an instruction is built
// and in which a mask of the listing can be shown.

#include "macro/editor_state.h"
#include "screen/script_edit_form.h"

namespace kestrane {

class OutletMasks {
  public:
    OutletMasks(ScriptEditForm& form, EditorState& state);

    // Clears group 1; any other number clears group 2.
    void clearcheckboxes(int group);
    // Ticks the boxes of a mask instruction; does nothing for any other.
    void DecodeLockBits(std::uint8_t opcode, std::uint8_t second);

    void cmdClearLocks_Click();
    void cmdReadLocks_click();

  private:
    const ControlArray<CheckBox>& Boxes(int group) const;
    void chkOutGroup_Click(int group);

    ScriptEditForm& form_;
    EditorState& state_;
};

}  // namespace kestrane
