#pragma once

// The frame "TCP Control Ports ABC": enables, port numbers, Chaskey master keys, attack limits.
// The colour of a key box is its write flag: black for a complete key of 32 characters, red for
// one that a write leaves alone.

#include "link/link.h"

namespace kestrane {

class ControlPorts {
  public:
    ControlPorts(MainForm& form, Session& session, Link& link);

    void chkTcpControlEnable_Click();
    void txtTcpControlPort_Validate();
    void txtChaskey_KeyPress(int& code);
    void txtChaskey_Change(int index);
    void cmdChaskeyGen_Click(int index);
    void txtAttackLimit_LostFocus(int index);
    void txtForceDisconnect_LostFocus();

  private:
    NetworkTab& tab_;
    Session& session_;
    Platform platform_;
};

}  // namespace kestrane
