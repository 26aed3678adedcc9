#include "macro/go_to.h"

#include "macro/instruction_set.h"
#include "text/text.h"

namespace kestrane {
namespace {

// Lets a poll that is still running finish.
constexpr std::chrono::milliseconds kPause{200};

}  // namespace

GoTo::GoTo(ScriptEditForm& form, Session& session, Link& link, EditorState& state, Listing& listing,
           StatusPoll& poll)
    : form_(form), session_(session), link_(link), state_(state), listing_(listing), poll_(poll) {
    form.cmdGoTo.on_click = [this] { cmdGoTo_Click(); };
    form.txtGoTo.on_change = [this] { form_.txtGoTo.SetForeColor(kRed); };
    form.txtGoTo.on_lost_focus = [this] { txtGoTo_LostFocus(); };
}

std::uint8_t GoTo::Address() const { return HexValue(form_.txtGoTo.Text()); }

// A form that is being closed asks nothing more.
void GoTo::txtGoTo_LostFocus() {
    if (form_.Reachable()) Check();
}

void GoTo::Check() {
    TextBox& box = form_.txtGoTo;
    std::string text = box.Text();
    box.SetText(CleanHex(text));
    const std::uint8_t address = Address();
    if (address >= kFirstMacroAddress && address <= kLastJumpTarget) {
        box.SetForeColor(kBlack);
        return;
    }
    const Visit visit(state_);
    link_.platform().sound.Beep();
    link_.platform().boxes.Show("Invalid Address.",
                                "Hex address for GoTo is not valid. Must be between hex 10 and 7E",
                                {BoxButton::kOk});
    if (visit.Ended()) return;
    box.SetText("");
    if (address == 0) return;
    form_.SetFocus(box);
    box.Select(0, static_cast<int>(box.Text().size()));
}

// An address that the check has emptied goes out as 0.
std::string GoTo::Command() const { return Bytes({session_.RelayAddress, kMacroGoTo, Address()}); }

// Repeats the command until the unit answers to it; nothing limits that but the end of the
// connection or of the form. False then, and when the answer is left to another wait.
bool GoTo::Exchange(const Visit& visit) {
    while (true) {
        const std::string sent = Command();
        std::string text = sent;
        if (!link_.Poll(text, waiting_, [&visit] { return visit.Ended(); })) return false;
        if (Mid(session_.ReplyBuffer, 3, 2) == Mid(sent, 1, 2)) return true;
    }
}

// A press in the wait of another one sends its address once and leaves the rest to that one.
void GoTo::cmdGoTo_Click() {
    if (!link_.Connected() || state_.transferring) return;
    const Link::Operation operation(link_, "Go To Macro Address");
    const Visit visit(state_);
    Check();
    if (visit.Ended()) return;
    if (UnderWay()) {
        std::string text = Command();
        if (waiting_) link_.Poll(text, waiting_);
        return;
    }
    running_ = true;
    waiting_ = false;  // what still waits is of an earlier opening
    running_visit_ = state_.visit;
    poll_.StopTimers();
    link_.MdWait(kPause);
    const bool moved = !visit.Ended() && Exchange(visit);
    if (visit.Ended()) return;
    running_ = false;
    if (moved && form_.chkTrace.Checked() && Address() != form_.scrListScroll.ScrollValue() &&
        form_.scrListScroll.SetScrollValue(Address())) {
        listing_.RefreshListing();
    }
    poll_.StartTimers();
}

}  // namespace kestrane
