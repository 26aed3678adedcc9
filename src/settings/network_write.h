#pragma once

// "Write Network Settings": builds every block afresh from the controls and writes it. Not
// atomic: blocks sent before a failure stay written.

#include <optional>
#include <string>

#include "link/link.h"

namespace kestrane {

class NetworkWrite {
  public:
    NetworkWrite(MainForm& form, Session& session, Link& link);

    void cmdWriteNetworkSettings_Click();

  private:
    void DisableSettings();
    bool ConfirmPassword();
    bool WarnOfWebSecurity();
    bool WriteAll(Link::Operation& operation);
    bool WriteKeys(int& number, Link::Operation& operation);
    bool WriteBlock(int& number, int address, int count, const std::optional<std::string>& data);
    void EnableSettings();

    std::string AddressesBlock() const;
    std::optional<std::string> PortsBlock() const;
    std::optional<std::string> LimitsBlock(const std::string& community_start) const;
    int Flags() const;

    MainForm& form_;
    NetworkTab& tab_;
    Session& session_;
    Link& link_;
};

}  // namespace kestrane
