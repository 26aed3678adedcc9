#pragma once

// The tab "TCP Port Privileges": what each control port may do, a byte of rights on each board.
// The one thing to know: the unit alone enforces the rights. The tool works out from the bytes of
// the port that it is connected through what it may read and write, and draws the grid by that.

#include <array>
#include <optional>

#include "link/link.h"

namespace kestrane {

class PortPrivileges {
  public:
    PortPrivileges(MainForm& form, Session& session, Link& link);

    void cmdReadTCPPortPriv_Click();
    void cmdWriteTCPPortPriv_Click();
    // The recount: the implied rights, and each column's sum under it.
    void chkPriv_Click();

  private:
    // One of the two halves of the grid. `base` begins the indices of its controls.
    struct Half {
        int board;
        int base;
        const char* reading;
        const char* writing;
    };
    std::array<Half, 2> Halves() const;
    // The port of this connection, 1 to 3; nothing while no settings read has told it.
    std::optional<int> ConnectedPort() const;

    CheckBox& Box(const Half& half, int port, int bit);
    // The sum of the boxes, which a write sends.
    Label& CurrentByte(const Half& half, int port);
    // The byte as last read, which the rules go by; "-" while it is not known.
    Label& ByteRead(const Half& half, int port);
    bool HasRight(const Half& half, int port, int right);

    bool ReadAll();
    bool ReadHalf(const Half& half, int connected);
    bool ReadPort(const Half& half, int connected, int port);
    void HideColumn(const Half& half, int port);
    void ShowColumn(const Half& half, int connected, int port, int rights);
    bool WriteAll();
    bool WriteHalf(const Half& half, int connected);
    void Recount(const Half& half, int port);

    MainForm& form_;
    PrivilegesTab& tab_;
    Session& session_;
    Link& link_;
};

}  // namespace kestrane
