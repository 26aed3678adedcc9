#include "macro/inserts.h"

#include "text/text.h"

namespace kestrane {

Inserts::Inserts(ScriptEditForm& form, Session& session, EditorState& state, Listing& listing,
                 SecondByte& second_byte)
    : form_(form), session_(session), state_(state), listing_(listing), second_byte_(second_byte) {
    for (Button& button : form.cmdInsertCommand) {
        button.on_click = [this, opcode = button.index()] { cmdInsertCommand_Click(opcode); };
    }
    for (Button& button : form.cmdOn) {
        button.on_click = [this, index = button.index()] { cmdOn_Click(index); };
    }
    for (Button& button : form.cmdOff) {
        button.on_click = [this, index = button.index()] { cmdOff_Click(index); };
    }
}

void Inserts::cmdInsertCommand_Click(int index) {
    const auto opcode = static_cast<std::uint8_t>(index);
    form_.chkTrace.SetChecked(false);
    if (state_.MemPointer > kLastJumpTarget) return;
    form_.lblTopStatus.SetCaption("");
    TakeMask(opcode);
    second_byte_.cmdSecondByteHexOK_Click();
    const bool has_operand = FindInstruction(opcode)->operand != Operand::kNone;
    Store(opcode, has_operand ? second_byte_.Value() : std::uint8_t{0});
    MoveOn();
    session_.MacroChanged = true;
}

// The masks go through the second byte's box, so they show there as a time, too.
void Inserts::TakeMask(std::uint8_t opcode) {
    const int group = MaskBoxOfInsert(opcode);
    if (group == 0) return;
    const TextBox& mask = group == 1 ? form_.txtGroup1 : form_.txtGroup2;
    form_.txtSecondByteHex.SetText(mask.Text());
}

void Inserts::Store(std::uint8_t opcode, std::uint8_t second) {
    const std::size_t index = std::size_t{2} * state_.MemPointer;
    state_.image.Set(index, opcode);
    state_.image.Set(index + 1, second);
}

void Inserts::MoveOn() {
    form_.SetFocus(form_.scrListScroll);
    const int cursor = form_.scrListScroll.ScrollValue();
    if (form_.chkAutoIncrement.Checked() && cursor < kLastJumpTarget) {
        form_.scrListScroll.SetScrollValue(cursor + 1);
    }
    listing_.RefreshListing();
}

void Inserts::cmdOn_Click(int index) {
    InsertOutlet(form_.chkWait.Checked() ? Effect::kTurnsOn : Effect::kTurnsOnOrSkips, index);
}

void Inserts::cmdOff_Click(int index) {
    InsertOutlet(form_.chkWait.Checked() ? Effect::kTurnsOff : Effect::kTurnsOffOrSkips, index);
}

void Inserts::InsertOutlet(Effect effect, int index) {
    form_.lblTopStatus.SetCaption("");
    second_byte_.cmdSecondByteHexOK_Click();
    Store(OutletOpcode(effect, index + 1), second_byte_.Value());
    MoveOn();
}

}  // namespace kestrane
