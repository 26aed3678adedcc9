#include "macro/listing.h"

#include "macro/instruction_set.h"
#include "macro/standard_program.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kRows = ScriptEditForm::kRows;
// In trace the cursor stands in this row, except at the ends of the address space.
constexpr int kMiddleRow = 7;
constexpr int kLastTop = 0xFF - kRows;

void Show(Label& label, const std::string& text) {
    if (label.Caption() != text) label.SetCaption(text);
}

// READ LOCKS can load these. Lock and latch masks are left out, and that is meant.
bool IsInhibit(std::uint8_t opcode) {
    const Instruction* instruction = FindInstruction(opcode);
    return instruction != nullptr && instruction->group == InstructionGroup::kInhibits;
}

}  // namespace

Listing::Listing(ScriptEditForm& form, const Session& session, EditorState& state)
    : form_(form), session_(session), state_(state) {
    form.scrListScroll.on_change = [this] { RefreshListing(); };
    form.cmdClearMem.on_click = [this] { cmdClearMem_Click(); };
    form.cmdBasicSettings.on_click = [this] { cmdBasicSettings_Click(); };
    for (Label& label : form.lblCommand) {
        label.on_click = [this, row = label.index()] { lblCommand_Click(row); };
    }
}

void Listing::RefreshListing() {
    const int cursor = form_.scrListScroll.ScrollValue();
    if (form_.chkTrace.Checked()) {
        PlaceAround(cursor);
    } else {
        PlaceCursor(cursor);
    }
    for (int row = 0; row < kRows; ++row) ShowRow(row);
}

// The list follows the unit. MemPointer stays, so an insert lands where the cursor was before.
void Listing::PlaceAround(int cursor) {
    int top = cursor - kMiddleRow;
    if (cursor < kFirstMacroAddress + kMiddleRow + 1) top = kFirstMacroAddress;
    if (cursor >= kLastTop + kMiddleRow + 1) top = kLastTop;
    state_.ListTop = static_cast<std::uint8_t>(top);
    state_.ListRow = cursor - top;
}

// The list moves as little as it can.
void Listing::PlaceCursor(int cursor) {
    int top = std::max<int>(state_.ListTop, kFirstMacroAddress);
    if (cursor < top) top = cursor;
    if (cursor > top + kRows - 1) top = cursor - (kRows - 1);
    state_.ListTop = static_cast<std::uint8_t>(top);
    state_.ListRow = cursor - top;
    state_.MemPointer = static_cast<std::uint8_t>(cursor);
}

void Listing::ShowRow(int row) {
    const auto address = static_cast<std::uint8_t>(state_.ListTop + row);
    const std::uint8_t opcode = state_.image.Opcode(address);
    const std::uint8_t second = state_.image.SecondByte(address);
    Show(form_.lblMem(row), HexByte(address));
    Show(form_.lblMem1(row), HexByte(opcode));
    Show(form_.lblMem2(row), HexByte(second));
    CmdDecode(opcode, second, session_.UnitType, decoded_);
    Show(form_.lblCommand(row), decoded_);
    form_.shpOutline(row).SetVisible(row == state_.ListRow);
}

// The row is read after the refresh, which in trace has moved another address into it. Rows beyond
// the scroll bar's end, seen in trace alone, can't be chosen.
void Listing::lblCommand_Click(int row) {
    const int address = state_.ListTop + row;
    if (address > form_.scrListScroll.Max()) return;
    state_.ListRow = row;
    form_.scrListScroll.SetScrollValue(address);
    RefreshListing();
    state_.CurrentOpcode = HexValue(form_.lblMem1(row).Caption());
    state_.CurrentSecondByte = HexValue(form_.lblMem2(row).Caption());
    form_.cmdReadLocks.SetEnabled(IsInhibit(state_.CurrentOpcode));
}

void Listing::cmdClearMem_Click() {
    form_.chkTrace.SetChecked(false);
    for (std::size_t index = 0; index < MacroMemory::kProgramEnd; ++index) {
        state_.image.Set(index, 0);
        form_.scrListScroll.SetScrollValue(kFirstMacroAddress);
        RefreshListing();
    }
}

void Listing::cmdBasicSettings_Click() {
    cmdClearMem_Click();
    WriteStandardProgram(state_.image);
    RefreshListing();
}

}  // namespace kestrane
