#pragma once

// Works the tool for a call as an operator would: connects, selects tabs, presses their buttons,
// and judges by the screen how it went. A handling whose reply never comes would wait for ever;
// where that can be seen, the driver says so and ends the program from within the wait.

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cli/call.h"
#include "cli/tabs.h"

namespace kestrane {

class CallDriver : public ScreenListener {
  public:
    explicit CallDriver(CallContext& context);
    ~CallDriver() override;
    CallDriver(const CallDriver&) = delete;
    CallDriver& operator=(const CallDriver&) = delete;

    // Each is true if it went well; else Failure() tells in one line what failed and what to do.
    bool Connect();
    bool Read(const TabRow& tab);
    bool Write(const TabRow& tab);
    // Presses a button for an operation called `what`. An empty `done`: its last caption tells
    // nothing.
    bool Press(const std::string& what, Control& button, const std::string& done);
    bool SelectTab(const TabRow& tab);
    // Opens the macro editor, which downloads the program, runs `work` in it unless that failed,
    // and closes it again.
    bool InMacroEditor(const std::function<void()>& work);
    // Neither a box nor a time-out so far in the operation under way.
    bool WentWell() const { return !timed_out_ && boxes_.size() == boxes_before_; }

    const std::string& Failure() const { return failure_; }
    // The tab is not part of this unit.
    bool Missing(const TabRow& tab) const;

    // The program that Read has taken from the macro editor.
    const MacroMemory& Program() const { return program_; }

    // Boxes since the last call of this, as "Title: text".
    std::vector<std::string> TakeBoxes() { return std::exchange(boxes_, {}); }

    void ControlChanged(Control& control, Property property) override;

  private:
    using Milliseconds = std::chrono::milliseconds;

    bool Fail(std::string why);
    bool WaitUntil(const std::function<bool()>& condition, Milliseconds limit);
    // Runs something that sends, with an eye on the unit.
    bool Operate(const std::string& what, const std::function<void()>& work,
                 const std::string& done);
    bool ReadChangeover(const TabRow& tab);
    bool ReadFirmware(const TabRow& tab);
    std::string WhyFailed(const std::string& what) const;

    void StartSilence();
    void Watch();
    void SilenceIsLong();
    void EndInTheMidst(const std::string& why);

    CallContext& context_;
    Tool& tool_;
    MainForm& form_;
    std::string failure_;
    std::vector<std::string> boxes_;
    std::size_t boxes_before_ = 0;  // the operation
    MacroMemory program_;
    bool timed_out_ = false;
    bool link_matters_ = false;  // an operation runs that needs the connection
    std::string operation_;      // what it is called
    std::unique_ptr<RepeatingTimer> silence_;
    std::shared_ptr<CallDriver*> alive_ = std::make_shared<CallDriver*>(this);
};

}  // namespace kestrane
