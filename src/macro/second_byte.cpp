#include "macro/second_byte.h"

#include "macro/instruction_set.h"
#include "macro/time_code.h"
#include "text/text.h"

namespace kestrane {

SecondByte::SecondByte(ScriptEditForm& form) : form_(form) {
    form.cmdSecondByteHexOK.on_click = [this] { cmdSecondByteHexOK_Click(); };
    form.cmdSecondByteTimeOK.on_click = [this] { cmdSecondByteTimeOK_Click(); };
    form.txtSecondByteHex.on_change = [this] { SetColour(kRed); };
    form.txtSecondByteTime.on_change = [this] { SetColour(kRed); };
    // Leaving the time box accepts nothing: only its button does.
    form.txtSecondByteHex.on_validate = [this] { cmdSecondByteHexOK_Click(); };
}

std::uint8_t SecondByte::Value() const { return HexValue(form_.txtSecondByteHex.Text()); }

void SecondByte::SetColour(Colour colour) {
    form_.txtSecondByteHex.SetForeColor(colour);
    form_.txtSecondByteTime.SetForeColor(colour);
}

void SecondByte::cmdSecondByteHexOK_Click() {
    std::string text = form_.txtSecondByteHex.Text();
    form_.txtSecondByteHex.SetText(CleanHex(text));
    form_.txtSecondByteTime.SetText(TimeText(Value()));
    SetColour(kBlack);
    // A value that they can't hold can't be inserted.
    for (const InsertButton& button : form_.insert_buttons) {
        const Operand operand = FindInstruction(static_cast<std::uint8_t>(button.opcode))->operand;
        if (operand != Operand::kAlarm && operand != Operand::kSupply) continue;
        form_.cmdInsertCommand(button.opcode).SetEnabled(OperandInRange(operand, Value()));
    }
}

// Leaves the buttons of alarm and supply as they are.
void SecondByte::cmdSecondByteTimeOK_Click() {
    const auto code = TimeCode(form_.txtSecondByteTime.Text());
    if (!code) {
        SetColour(kRed);
        return;
    }
    form_.txtSecondByteHex.SetText(HexByte(*code));
    form_.txtSecondByteTime.SetText(TimeText(*code));
    SetColour(kBlack);
}

}  // namespace kestrane
