#include "macro/outlet_masks.h"

#include "macro/instruction_set.h"
#include "text/text.h"

namespace kestrane {

OutletMasks::OutletMasks(ScriptEditForm& form, EditorState& state) : form_(form), state_(state) {
    for (const int group : {1, 2}) {
        for (CheckBox& box : Boxes(group)) {
            box.on_click = [this, group] { chkOutGroup_Click(group); };
        }
    }
    form.cmdClearLocks.on_click = [this] { cmdClearLocks_Click(); };
    form.cmdReadLocks.on_click = [this] { cmdReadLocks_click(); };
}

const ControlArray<CheckBox>& OutletMasks::Boxes(int group) const {
    return group == 1 ? form_.chkOutGroup1 : form_.chkOutGroup2;
}

void OutletMasks::chkOutGroup_Click(int group) {
    int mask = 0;
    for (const CheckBox& box : Boxes(group)) {
        if (box.Checked()) mask += box.index();
    }
    TextBox& text = group == 1 ? form_.txtGroup1 : form_.txtGroup2;
    text.SetText(HexByte(static_cast<std::uint8_t>(mask)));
}

void OutletMasks::clearcheckboxes(int group) {
    for (CheckBox& box : Boxes(group)) box.SetChecked(false);
}

void OutletMasks::DecodeLockBits(std::uint8_t opcode, std::uint8_t second) {
    const int group = MaskGroup(opcode);
    if (group == 0) return;
    clearcheckboxes(group);
    for (CheckBox& box : Boxes(group)) {
        if ((second & box.index()) != 0) box.SetChecked(true);
    }
}

void OutletMasks::cmdClearLocks_Click() {
    clearcheckboxes(1);
    clearcheckboxes(2);
}

void OutletMasks::cmdReadLocks_click() {
    DecodeLockBits(state_.CurrentOpcode, state_.CurrentSecondByte);
}

}  // namespace kestrane
