#pragma once

// A UnitSession for a call that works in the macro editor, with the context's time-out and signals.

#include "cli/call.h"
#include "configuration/unit_session.h"

namespace kestrane {

class CallDriver {
  public:
    explicit CallDriver(CallContext& context)
        : tool_(context.tool),
          session_(context.tool, context.options.timeout_limit()),
          handler_(context, [this] { session_.Interrupt(); }) {}

    // Each is true if it went well; else Failure() tells in one line what failed and what to do.
    bool Connect() { return session_.Connect(); }
    bool Read(const TabRow& tab) { return session_.Read(tab); }
    bool Write(const TabRow& tab) { return session_.Write(tab); }
    bool InMacroEditor(const std::function<void()>& work) { return session_.InMacroEditor(work); }
    const std::string& Failure() const { return session_.Failure(); }

    // Whether the last operation was complete.
    bool WentWell() const {
        const auto& operations = tool_.link.journal().operations();
        return !operations.empty() && operations.back().Complete();
    }

  private:
    Tool& tool_;
    UnitSession session_;
    InterruptHandler handler_;
};

}  // namespace kestrane
