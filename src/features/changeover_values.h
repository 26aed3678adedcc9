#pragma once

// The value boxes of the changeover panel and their scroll bars. A box always holds 0 to 255 in
// plain decimal; it is red while it differs from what the unit is known to have. A bar mirrors
// its box upside down, so that up means a larger number.

#include <string>

#include "link/session.h"
#include "screen/main_form.h"

namespace kestrane {

class ChangeoverValues {
  public:
    static constexpr int kFirstLive = 3;
    static constexpr int kLastLive = 6;
    static constexpr int kLastStartup = 4;

    ChangeoverValues(MainForm& form, Session& session);

    void txtCurrent_Change(int index);
    void scrCurrent_Change(int index);
    void txtStartup_Change(int index);
    void scrStartup_Change(int index);

    // Takes over a startup record: the boxes show it and are compared with it from now on.
    void KeepStartupRecord(std::string record);
    // The first values of the record are these now, as a write has left them. Its others stay,
    // and so do the boxes of those.
    void KeepWrittenValues(const std::string& values);
    // Sets the live boxes to the values of ChangeoverStatus.
    void CopyLiveValues();
    // Colours the live boxes afresh; called when ChangeoverStatus has changed.
    void CompareLiveValues();

    // The values as bytes: live boxes 3 to 6, startup boxes 0 to 4.
    int Live(int index) const;
    int Startup(int index) const;

  private:
    void ShowStartup(int first, int last);

    ChangeoverTab& tab_;
    Session& session_;
    std::string startup_record_;
};

}  // namespace kestrane
