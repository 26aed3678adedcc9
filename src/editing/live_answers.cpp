#include "editing/live_answers.h"

namespace kestrane {

LiveAnswers::LiveAnswers(Tool& tool) : tool_(tool) { tool.link.journal().AddObserver(*this); }

LiveAnswers::~LiveAnswers() { tool_.link.journal().RemoveObserver(*this); }

std::optional<std::chrono::milliseconds> LiveAnswers::Age() const {
    if (connection_ == 0 || connection_ != tool_.link.connection()) return {};
    return std::chrono::milliseconds{tool_.link.platform().clock.TickCount() - answered_};
}

void LiveAnswers::ExchangeEnded(const Exchange& exchange) {
    const bool live = exchange.command == kReadLiveStatus || exchange.command == kReadSecondStatus;
    if (!live || !exchange.Accepted()) return;
    connection_ = exchange.connection;
    answered_ = tool_.link.platform().clock.TickCount();
}

}  // namespace kestrane
