#pragma once

// The options that kestrane-cli and kestrane-config share, and what they set on the tool.

#include <chrono>
#include <optional>
#include <string>

#include "cli/unit_address.h"
#include "tool/tool.h"

namespace CLI {
class App;
}

namespace kestrane {

// Makes it wrong usage to give an option or an argument of this call an empty value, as a script
// does whose variable is not set.
void RefuseEmptyValues(CLI::App& app);

class CallOptions {
  public:
    // Adds the options to a program's command line.
    void AddTo(CLI::App& app);
    // Checks what was given; one line if something is wrong, else empty.
    std::string Check();

    bool demo() const { return demo_; }
    const ToolOptions& tool_options() const { return tool_options_; }
    bool has_versions_url() const { return !versions_url_.empty(); }
    // In milliseconds; nothing: the tool's own.
    std::optional<int> timeout() const { return timeout_; }

    // One unit of many.
    void UseUnit(const UnitAddress& unit) { unit_ = unit; }
    bool has_unit() const { return !unit_text_.empty(); }
    // The same as a length of time.
    std::optional<std::chrono::milliseconds> timeout_limit() const {
        if (!timeout_) return {};
        return std::chrono::milliseconds(*timeout_);
    }
    // HOST:PORT of the unit that a call is for; the tool fills what was not given.
    std::string Address(const Tool& tool) const;

    // A demo unit that this program has started.
    void UseDemo(int port, int versions_port);

    // Fills the boxes of the connection panel; call it when the main form is up. A time-out holds
    // from the first command on, and as for any value of its box, until a disconnect.
    void Apply(Tool& tool) const;

  private:
    std::string unit_text_;
    std::string timeout_text_;
    std::string versions_url_;
    bool demo_ = false;
    std::optional<UnitAddress> unit_;
    std::optional<int> timeout_;
    ToolOptions tool_options_;
};

}  // namespace kestrane
