#pragma once

// The editors of the settings boxes: key filters, the quad check that paints labels red, repairs
// and reminders on leaving. The colour of fraFixedIPSettings sums the quads up; it is all that
// the write asks of them.

#include "link/link.h"

namespace kestrane {

class FieldEditors {
  public:
    FieldEditors(MainForm& form, Session& session, Link& link);

    void txtIPAddress_Change();
    void txtIPAddress_Validate();
    void txtNetbiosName_Validate();
    void txtOledTimeout_LostFocus();
    void chkDHCP_Click();
    void chkTimeServerEnable_Click();

  private:
    void CheckQuad(const TextBox& box, Label& label, bool in_address_range = true);
    void CheckFrame();

    MainForm& form_;
    NetworkTab& tab_;
    Session& session_;
    Link& link_;
};

// The key filters: each gives the code that is typed in place of `code`, 0 with a beep for a
// refused one.
bool QuadKey(int code);
bool NumberKey(int code);
bool NetbiosKey(int code);
bool CommunityKey(int code);

// Makes `accepts` the key filter of `box`.
void FilterKeys(TextBox& box, bool (*accepts)(int code), Sound& sound);

}  // namespace kestrane
