#pragma once

// What a name on the console means: `txtIPAddress`, `txtIPAddress.enabled`, `chkPriv(110)`,
// `frmScriptEdit.txtGoTo`, `frmHelp`, `tcpsend.state`. Names are taken as they stand, case and
// all; `frmMainForm.` may be left out.

#include <optional>
#include <string>
#include <vector>

#include "tool/session_variables.h"

namespace kestrane {

// A property of a control or form, or a variable of the session.
struct Target {
    Control* control = nullptr;
    const SessionVariable* variable = nullptr;
    std::string property;  // empty: the main one
};

struct FoundTarget {
    std::optional<Target> target;
    std::string error;  // why there is none
};

class Names {
  public:
    explicit Names(Tool& tool) : tool_(tool), variables_(SessionVariables(tool)) {}

    // Everything that can be read; the property exists.
    FoundTarget Find(const std::string& name) const;
    // A control or form by itself; null, with the reason in `error`, for anything else.
    Control* FindControl(const std::string& name, std::string& error) const;
    Form* FindForm(const std::string& name, std::string& error) const;

  private:
    FoundTarget InForm(Form& form, const std::string& rest) const;

    Tool& tool_;
    std::vector<SessionVariable> variables_;
};

Value ReadTarget(const Target& target);
// Sets it as the program would; returns why not.
std::optional<std::string> WriteTarget(const Target& target, const Value& value);

}  // namespace kestrane
