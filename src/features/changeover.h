#pragma once

// The tab "Changeover Options": how the unit changes over between its two supplies. Startup
// values are read once; live values and measurements are refreshed while the panel is up to
// date, by a timer that stops for every operation and with every change of tab.

#include <functional>
#include <optional>
#include <string>

#include "features/changeover_records.h"
#include "features/changeover_values.h"
#include "link/link.h"
#include "link/long_operation.h"

namespace kestrane {

class Changeover {
  public:
    Changeover(MainForm& form, Session& session, Link& link);

    void cmdReadCMSOptions_Click();
    // 0: the values, 1: the default inlet.
    void cmdSaveCurrent_Click(int index);
    void cmdSaveStartup_Click(int index);
    void timCMSOptions_Timer();

    // After the first live values since a read have been put into their controls.
    std::function<void()> on_live_shown;

  private:
    // One pass of the refresh, tied to the state in which it began.
    class Pass;

    bool ReadStartup();
    void RefreshPass(const Pass& pass);
    std::optional<std::string> ReadStatus(int code);
    // Shows ChangeoverStatus.
    void ShowChangeover(const Supplies& supplies);
    void ShowFirstLiveValues(const LiveRecord& live);
    LongOperation BeginSave(const char* name);
    void SaveCurrent(int index, const LongOperation& operation);
    bool LastCommandDone() const;
    void SaveStartup(int index, const LongOperation& operation);
    std::string LiveArguments(int index) const;
    std::optional<std::string> StartupCommand(int index) const;
    int SleepDelay() const;
    void StopRefresh();
    // The end of a read and of every save: the panel's controls and the refresh on again.
    void Finish(const LongOperation& operation);
    void EnablePanel();

    MainForm& form_;
    ChangeoverTab& tab_;
    Session& session_;
    Link& link_;
    ChangeoverValues values_;
    bool show_live_values_ = false;  // the next good pass is the first one after a read
    int refreshes_ = 0;              // counts the starts of the timer
    int pass_connection_ = 0;        // the connection that a pass is running on, or 0
    bool poll_in_flight_ = false;
    bool done_before_poll_ = false;
};

}  // namespace kestrane
