#pragma once

// The tab "Web Browser Security": a password or a disabled level for View, Control and Admin. The
// one thing to know: one salt serves all three levels, so each change of a password draws a new
// salt and hashes all three texts afresh. What a write sends lies in the hidden boxes txtSalt and
// txtSHA at all times.

#include <string>

#include "link/link.h"
#include "security/sha_algorithm.h"

namespace kestrane {

class WebSecurity {
  public:
    WebSecurity(MainForm& form, Session& session, Link& link);

    void cmdReadWBISettings_Click();
    void cmdWriteWBISettings_Click();
    // Hashes all three levels; which box has changed does not matter.
    void txtWebPassword_Change(int index);
    void txtWebPassword_KeyPress(int& code);
    void chkWebSecurityDisable_Click(int index);
    void chkWebSecurityDisable_GotFocus();

  private:
    bool ReadLevel(int level);
    void ShowLevel(int level, const std::string& stored);
    bool AllPasswordsEmpty() const;
    bool WriteBlocks();
    std::string DrawSalt();
    void HashPasswords(const std::string& salt);
    bool AnyHashReserved() const;
    void ApplyClearingRule();

    MainForm& form_;
    SecurityTab& tab_;
    Session& session_;
    Link& link_;
    SHAAlgorithm hash_;
};

}  // namespace kestrane
