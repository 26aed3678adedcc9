#pragma once

// Works one tool as an operator would, for whoever has none: connects, selects tabs, presses their
// buttons, and reads in the journal how it went. It never ends the program: an operation whose
// unit has gone is left, and says so.

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "configuration/tabs.h"
#include "macro/macro_memory.h"
#include "tool/tool.h"

namespace kestrane {

class UnitSession : private JournalObserver {
  public:
    using Milliseconds = std::chrono::milliseconds;

    // `timeout`: of the connect and of each reply; nothing: the tool's own.
    explicit UnitSession(Tool& tool, std::optional<Milliseconds> timeout = {});
    ~UnitSession() override;
    UnitSession(const UnitSession&) = delete;
    UnitSession& operator=(const UnitSession&) = delete;

    Tool& tool() { return tool_; }

    // Each is true if it went well; else Failure() says in one line what failed, on which block or
    // field, why, and what to do.
    bool Connect();
    bool SelectTab(const TabRow& tab);
    bool Read(const TabRow& tab);
    bool Write(const TabRow& tab);
    // Presses a button whose handling the journal calls `operation`.
    bool Press(Control& button, const std::string& operation);
    // Unit type, serial number and firmware, without a look at the versions server.
    bool ReadFacts();
    // Puts the program into the unit, through the editor.
    bool WriteProgram(const MacroMemory& program);
    // Opens the macro editor, which downloads the program, runs `work` in it if that went well, and
    // closes it again.
    bool InMacroEditor(const std::function<void()>& work);
    bool WaitUntil(const std::function<bool()>& condition, Milliseconds limit);
    void Disconnect();

    const std::string& Failure() const { return failure_; }
    // The tab is not part of this unit. For after the first read of the settings.
    bool Missing(const TabRow& tab) const;
    // The program that Read has taken from the unit.
    const MacroMemory& Program() const { return program_; }

    // The operator wants to stop: what is under way is left at once, and everything fails from now
    // on. May be called from within an event.
    void Interrupt();
    bool Interrupted() const { return interrupted_; }

    // HOST:PORT of the unit.
    std::string Address() const;

  private:
    bool Fail(std::string why);
    // Runs something that sends, with an eye on the unit, and judges it by the journal.
    bool Operate(const std::string& operation, const std::function<void()>& work);
    bool ReadChangeover(const TabRow& tab);
    bool ReadFirmware(const TabRow& tab);
    bool ReadProgram();
    std::string WhyFailed(const OperationRecord& record) const;
    void ExchangeBegan(const Exchange& exchange) override;
    void ExchangeEnded(const Exchange& exchange) override;
    void StartSilence();
    bool Connected() const;
    void Watch();

    Tool& tool_;
    MainForm& form_;
    std::optional<Milliseconds> timeout_;
    // For an observer that can't be taken back.
    std::shared_ptr<UnitSession*> alive_ = std::make_shared<UnitSession*>(this);
    std::unique_ptr<RepeatingTimer> silence_;
    bool operating_ = false;
    bool waiting_ = false;  // on a connection
    bool silent_ = false;
    bool interrupted_ = false;
    std::string failure_;
    MacroMemory program_;
};

// A failed exchange as a person would say it: "block 0x0080 of the display board was refused by
// the privileges of the port".
std::string InWords(const Exchange& exchange);

}  // namespace kestrane
