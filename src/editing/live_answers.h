#pragma once

// When the unit last answered a poll of what it shows live: lights, supplies, changeover values.

#include <chrono>
#include <optional>

#include "tool/tool.h"

namespace kestrane {

class LiveAnswers : public JournalObserver {
  public:
    // What is older than this is no longer known to be so.
    static constexpr std::chrono::milliseconds kFresh{1000};

    explicit LiveAnswers(Tool& tool);
    ~LiveAnswers() override;
    LiveAnswers(const LiveAnswers&) = delete;
    LiveAnswers& operator=(const LiveAnswers&) = delete;

    // The time since the last answer on this connection; nothing if there was none.
    std::optional<std::chrono::milliseconds> Age() const;

    void ExchangeEnded(const Exchange& exchange) override;

  private:
    Tool& tool_;
    int connection_ = 0;
    std::uint32_t answered_ = 0;
};

}  // namespace kestrane
