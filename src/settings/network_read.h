#pragma once

// "Read Network and ID Settings": fetches the whole configuration block by block into the
// settings tabs, and opens the gate of the tool. A read that fails stops where it is and leaves
// everything that it has disabled; only a new connection brings it back.

#include <string>

#include "link/identity.h"

namespace kestrane {

class NetworkRead {
  public:
    NetworkRead(MainForm& form, Session& session, Link& link, Identity& identity);

    void cmdReadNetworkSettings_Click();

  private:
    struct Row;
    static const Row kRows[];

    void Prepare();
    std::string WhyStopped() const;
    bool ReadAll();
    bool ReadBlock(const Row& row, int number);
    void EnableSettings();
    void EnableRest();
    void ShowByUnitType();

    // Each takes the block out of block_; false stops the read there.
    bool TakeAdminName();
    bool TakeAdminPassword();
    bool TakeAddresses();
    bool TakePorts();
    bool TakeNetbiosName();
    bool TakeUnitLocation();
    bool TakeUnitName();
    bool Drop() { return true; }
    bool TakeLimits();
    bool TakeCommunityRest();
    bool TakeSysContact();
    bool TakeKey(int index);
    bool TakeKey0() { return TakeKey(0); }
    bool TakeKey1() { return TakeKey(1); }
    bool TakeKey2() { return TakeKey(2); }

    void ShowFlags(int flags);
    void ShowCommunity(const std::string& text);

    MainForm& form_;
    NetworkTab& tab_;
    Session& session_;
    Link& link_;
    Identity& identity_;
    int address_ = -1;             // of the last block; -1 for the identity block
    std::string block_;            // the 16 data bytes of the last block
    std::string community_start_;  // between its two blocks
};

}  // namespace kestrane
