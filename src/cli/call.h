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
    kExitUnit = 1,   // the unit could not be reached, did not answer or refused
    kExitUsage = 2,  // wrong usage or a refused value; nothing has been written to the unit
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
    // Does it and returns the exit status; the caller closes the socket. Where the connection is
    // lost in the midst of a wait it ends the program itself.
    virtual int Run(CallContext& context) = 0;

    // What follows is for runs over many units, each by a call of its own.

    // A copy for this unit, with the unit's own values and files. Null for a call that works on one
    // unit alone.
    virtual std::unique_ptr<Call> ForUnit(const FleetUnit& /*unit*/) const { return nullptr; }
    virtual bool TakesManyUnits() const { return false; }
    virtual bool PrintsJson() const { return false; }
    // It writes: a unit that failed is reason enough to begin no other.
    virtual bool Writes() const { return false; }
    // What Check has found wrong in the files that the call names: lines as they stand.
    virtual std::vector<std::string> FileFaults() const { return {}; }
};

std::vector<std::unique_ptr<Call>> AllCalls();

}  // namespace kestrane
