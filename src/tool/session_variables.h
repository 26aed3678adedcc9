#pragma once

// The session's own state by name, for scripts: `RelayAddress`, `CommandDone`, `tcpsend.state`.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tool/tool.h"

namespace kestrane {

struct SessionVariable {
    std::string name;
    std::function<Value()> get;
    // Sets it as the program would; returns why not.
    std::function<std::optional<std::string>(const Value&)> set;
};

// Every variable; they refer to `tool`.
std::vector<SessionVariable> SessionVariables(Tool& tool);

}  // namespace kestrane
