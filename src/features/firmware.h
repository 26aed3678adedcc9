#pragma once

// The tab "Firmware Versions": what the two boards run, the unit's model and serial number, the
// latest versions that the server knows, and the relay board's bootloader. The versions page is
// fetched in the background; its events may come long after the read has ended.

#include <optional>
#include <string>
#include <string_view>

#include "features/net_grab.h"
#include "link/link.h"

namespace kestrane {

class Firmware {
  public:
    // `versions_url` is the root of the versions server, with or without a slash at its end.
    Firmware(MainForm& form, Session& session, Link& link, std::string_view versions_url);

    void cmdGetUnitFirmware_Click();
    // The boards' part of it: versions, model and serial number. False if one could not be had.
    bool ReadBoards();
    void cmdRelayBootload_Click();
    void NetGrab1_Complete(std::size_t nBytes);
    void NetGrab1_Failed(int ErrNum, const std::string& ErrDesc);

    NetGrab NetGrab1;

  private:
    bool ReadAll();
    // The board's type code; shows its version. Nothing if that could not be had.
    std::optional<std::string> ReadBoard(int board, Label& version);
    bool ReadSerialNumber();
    void FetchVersions();
    // The connection that the fetch was started on is still up.
    bool FetchIsWanted() const;

    MainForm& form_;
    FirmwareTab& tab_;
    Session& session_;
    Link& link_;
    std::string page_url_;
    int fetch_connection_ = 0;
    std::string relay_code_;
    std::string display_code_;
};

}  // namespace kestrane
