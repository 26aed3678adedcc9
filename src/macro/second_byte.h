#pragma once

// The field for the second byte of the next instruction, in hexadecimal and as a time. Red text
// in its two boxes means not accepted yet.

#include "screen/script_edit_form.h"

namespace kestrane {

class SecondByte {
  public:
    explicit SecondByte(ScriptEditForm& form);

    void cmdSecondByteHexOK_Click();
    void cmdSecondByteTimeOK_Click();

    // The byte in the hexadecimal box, as it stands.
    std::uint8_t Value() const;

  private:
    void SetColour(Colour colour);

    ScriptEditForm& form_;
};

}  // namespace kestrane
