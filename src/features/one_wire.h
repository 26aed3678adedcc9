#pragma once

// The tab "1-Wire Settings": up to 16 sensors in two tables side by side, the live one, which the
// relay board finds on the bus now, and the committed one in its memory, with a name for each
// slot. The one thing to know: a unit before firmware 1.4.3 has no live read, and any live read
// that fails is taken for such a unit.

#include <cstddef>
#include <string>
#include <string_view>

#include "link/link.h"

namespace kestrane {

class OneWire {
  public:
    OneWire(MainForm& form, Session& session, Link& link);

    void cmdRead1WNames_Click();
    void cmdWrite1WNames_Click();
    void cmdRead1WLive_Click();
    void cmd1WireClear_Click();
    void cmd1WireCommit_Click();
    void cmdResetMinMax_Click();

  private:
    class Busy;

    // Each is false if a command failed.
    bool ReadNames();
    bool WriteNames();
    bool ReadCommittedSensors();
    // Sends a command of the committed table, whose column is emptied for it.
    bool ChangeCommitted(const char* progress, int function);

    // Ends with the texts of an old unit if a command fails.
    void ReadLive(Busy& busy);
    bool ReadLiveSensors();
    // False if the reply holds no sensor record.
    bool ShowLive(int slot);
    void Compare(int slot);
    void EnableForAdmin();

    MainForm& form_;
    OneWireTab& tab_;
    Session& session_;
    Link& link_;
};

// The type of a sensor by its family and sub-type bytes, for example "TS-2"; "??" if its family
// has no such sub-type, empty if the family is unknown.
std::string SensorType(int family, int sub_type);

}  // namespace kestrane
