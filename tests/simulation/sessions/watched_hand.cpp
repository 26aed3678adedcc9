#include "simulation/sessions/watched_hand.h"

#include "simulation/sessions/broken.h"

namespace kestrane::sessions {
namespace {

class Counted {
  public:
    explicit Counted(int& count) : count_(count) { ++count_; }
    ~Counted() { --count_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

  private:
    int& count_;
};

}  // namespace

class WatchedHand::Moving {
  public:
    Moving(WatchedHand& hand, const Control& target) : moves_(hand.moves_) {
        moves_.push_back({&target, hand.tool_.tool.link.connection()});
    }
    ~Moving() { moves_.pop_back(); }
    Moving(const Moving&) = delete;
    Moving& operator=(const Moving&) = delete;

  private:
    std::vector<Move>& moves_;
};

Refusal WatchedHand::Click(Control& control) {
    const Moving moving(*this, control);
    return tool_.tool.hand.Click(control);
}

Refusal WatchedHand::Type(TextBox& box, std::string_view text) {
    const Moving moving(*this, box);
    return tool_.tool.hand.Type(box, text);
}

Refusal WatchedHand::Choose(Control& control, int value) {
    const Moving moving(*this, control);
    return tool_.tool.hand.Choose(control, value);
}

WatchedHand::WatchedHand(ToolOnLine& tool) : tool_(tool) {
    for (Form* form : tool.tool.screen.forms()) {
        for (Control* control : form->controls()) {
            if (control->kind() != Kind::kButton || !control->on_click) continue;
            control->on_click = [this, control, handling = std::move(control->on_click)] {
                CheckClick(*control);
                handling();
            };
        }
    }
    Wish(tool.form.cmdConnect.on_click);
    Wish(tool.form.cmdDisconnect.on_click);
    Wish(tool.form.timDisconnect.on_timer);
    Wish(tool.tool.link.disconnect);
}

void WatchedHand::Wish(std::function<void()>& handling) {
    handling = [this, inner = std::move(handling)] {
        const Counted wished(wished_);
        inner();
    };
}

// Leaving the box before may have opened another box, and that stayed open while other things
// happened.
void WatchedHand::CheckClick(const Control& control) const {
    if (moves_.empty() || moves_.back().target != &control) return;
    const std::string& name = control.name();
    const int connection = tool_.tool.link.connection();
    if (!control.Usable()) throw Broken{"a click on what can't be used: " + name};
    if (connection != 0 && connection != moves_.back().connection) {
        throw Broken{"a click goes on upon the next connection: " + name};
    }
    const Control* const focused = control.form().Focused();
    if (control.TakesFocus() && focused && focused != &control) {
        throw Broken{"a click goes on though the focus was kept: " + name};
    }
}

void WatchedHand::TabChosen() const {
    const TabControl& tabs = tool_.form.SSTab1;
    if (moves_.empty() || moves_.back().target != &tabs) return;
    const TabState& tab = tabs.Tabs()[static_cast<std::size_t>(tabs.Tab())];
    if (!tab.enabled || !tab.visible) {
        throw Broken{"a choice of what can't be used: tab " + tab.caption};
    }
}

// The disconnect routine begins so.
void WatchedHand::ReaderStopped() const {
    if (wished_ > 0 || tool_.form.timGetResponse.Enabled()) return;
    if (tool_.world.tcpsend.State() == SocketState::kConnected) {
        throw Broken{"a good connection is ended by nobody"};
    }
}

}  // namespace kestrane::sessions
