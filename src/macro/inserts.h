#pragma once

// The buttons that put an instruction at the cursor. The outlets' buttons follow other rules than
// the rest, and that is meant: they neither end the trace nor stop at the last address, and the
// exit does not ask for what they did.

#include "link/session.h"
#include "macro/instruction_set.h"
#include "macro/listing.h"
#include "macro/second_byte.h"

namespace kestrane {

class Inserts {
  public:
    Inserts(ScriptEditForm& form, Session& session, EditorState& state, Listing& listing,
            SecondByte& second_byte);

    void cmdInsertCommand_Click(int opcode);
    void cmdOn_Click(int index);
    void cmdOff_Click(int index);

  private:
    void TakeMask(std::uint8_t opcode);
    void Store(std::uint8_t opcode, std::uint8_t second);
    void MoveOn();
    void InsertOutlet(Effect effect, int index);

    ScriptEditForm& form_;
    Session& session_;
    EditorState& state_;
    Listing& listing_;
    SecondByte& second_byte_;
};

}  // namespace kestrane
