#pragma once

// The connection: connect, disconnect, Reset Ethernet, and the timers that poll the socket, read
// replies and time them out. The socket has no events; the tick of timGetResponse looks at its
// state and takes whatever bytes have arrived, without looking for frame ends.

#include "link/link.h"

namespace kestrane {

class Supervision {
  public:
    Supervision(MainForm& form, Session& session, Link& link);

    void cmdConnect_Click();
    // The disconnect routine, also run by the timers and by SendCommand.
    void cmdDisconnect_Click();
    void cmdResetEthernet_Click();
    void timGetResponse_Timer();
    void timTimeout_Timer();
    void timDisconnect_Timer() { cmdDisconnect_Click(); }

  private:
    void ShowState(SocketState state);
    void ShowConnected();
    void HandlePeerClosed();
    void HandleError();
    void ReadBytes();
    void DisableWhatNeedsALink();
    void ClearScreen();

    MainForm& form_;
    Session& session_;
    Link& link_;
    TcpClient& socket_;
    int error_handled_of_ = -1;  // the connection
};

}  // namespace kestrane
