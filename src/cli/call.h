#pragma once

// The calls of kestrane-cli: `read`, `set` and the rest, one class and one file each. A call gets
// a whole tool and pumps its events until it is done. AllCalls() is where a new one is added.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cli/call_options.h"
#include "console/scripted_operator.h"
#include "console/values.h"

namespace CLI {
class App;
}

namespace kestrane {

struct FleetUnit;

enum ExitStatus : int {
    kExitDone = 0,
    kExitUnit = 1,         // the unit could not be reached, did not answer or refused
    kExitUsage = 2,        // wrong usage or a refused value; nothing has been written to the unit
    kExitDifferences = 3,  // of a comparison; or an operator who was asked has said no
};

struct CallContext {
    Tool& tool;
    ScriptedOperator& scripted;
    const CallOptions& options;
    // Lines without their end, for standard output and standard error.
    std::function<void(const std::string&)> print;
    std::function<void(const std::string&)> complain;
    // Lines of standard input, for a call that takes them.
    std::function<void(std::function<void(std::string)> on_line, std::function<void()> on_end)>
        read_lines;
    // In a run over many units: takes the result of the call for this unit, the object that --json
    // prints (`print` gets the text only). Not set for one unit alone.
    std::function<void(const Json& result)> report = {};
    // A line of standard error as it stands, for what other programs read; `complain` serves where
    // it is not set.
    std::function<void(const std::string&)> error_line = {};
    bool on_terminal = false;  // somebody is there who can be asked
    bool colours = false;
    // What a signal does while the call runs: at once, and the call returns soon. Without it the
    // program ends there.
    std::function<void()> on_interrupt = {};

    void ErrorLine(const std::string& line) const {
        error_line ? error_line(line) : complain(line);
    }
    // The result of a call; `print_it`: --json was given.
    void Publish(const Json& json, bool print_it) const {
        if (report) {
            report(json);
        } else if (print_it) {
            print(ToLine(json));
        }
    }
};

// While it stands, a signal ends what the call does in order.
class InterruptHandler {
  public:
    InterruptHandler(CallContext& context, std::function<void()> action) : context_(context) {
        context.on_interrupt = std::move(action);
    }
    ~InterruptHandler() { context_.on_interrupt = nullptr; }
    InterruptHandler(const InterruptHandler&) = delete;
    InterruptHandler& operator=(const InterruptHandler&) = delete;

  private:
    CallContext& context_;
};

class Call {
  public:
    virtual ~Call() = default;

    virtual const char* name() const = 0;
    virtual const char* description() const = 0;
    // Its own arguments and options.
    virtual void AddTo(CLI::App& app) = 0;
    // What is wrong with them, before a unit is asked; empty if nothing is.
    virtual std::string Check(Tool& /*tool*/) { return {}; }
    // Does it and returns the exit status; the caller closes the socket.
    virtual int Run(CallContext& context) = 0;

    // What is wrong with its arguments for one unit, though not for many; empty if nothing is.
    virtual std::string WhyNotOneUnit() const { return {}; }

    // What follows is for runs over many units, each by a call of its own.

    // A copy for this unit, with the unit's own values and files. Null for a call that works on one
    // unit alone.
    virtual std::unique_ptr<Call> ForUnit(const FleetUnit& /*unit*/) const { return nullptr; }
    virtual bool TakesManyUnits() const { return false; }
    // What is wrong with its arguments for many units, though not for one; empty if nothing is.
    virtual std::string WhyNotManyUnits() const { return {}; }
    // The folder that takes a file of each unit; empty for none.
    virtual std::string FolderForUnits() const { return {}; }
    virtual bool PrintsJson() const { return false; }
    // It writes: a unit that failed is reason enough to begin no other.
    virtual bool Writes() const { return false; }
    // What Check has found wrong in the files that the call names: lines as they stand.
    virtual std::vector<std::string> FileFaults() const { return {}; }
    // Likewise, what it passes over in them.
    virtual std::vector<std::string> FileNotes() const { return {}; }
};

// What ForUnit gives: a copy that has been told of its unit.
template <class T>
std::unique_ptr<Call> CopyForUnit(const T& call, const FleetUnit& unit) {
    auto copy = std::make_unique<T>(call);
    copy->UseUnit(unit);
    return copy;
}

std::vector<std::unique_ptr<Call>> AllCalls();

}  // namespace kestrane
