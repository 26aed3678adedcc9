#include "macro/status_poll.h"

#include "macro/instruction_set.h"
#include "text/text.h"

namespace kestrane {

StatusPoll::StatusPoll(ScriptEditForm& form, Session& session, Link& link, EditorState& state,
                       Listing& listing)
    : form_(form), session_(session), link_(link), state_(state), listing_(listing) {
    form.cmdGetStatus.on_click = [this] { cmdGetStatus_Click(); };
    form.timUpdate.on_timer = [this] { timUpdate_Timer(); };
    form.timTrace.on_timer = [this] { timTrace_Timer(); };
    form.chkTrace.on_click = [this] { chkTrace_Click(); };
}

void StatusPoll::StartTimers() {
    if (!form_.Visible() || state_.transferring) return;
    const bool trace = form_.chkTrace.Checked();
    form_.timTrace.SetEnabled(trace);
    form_.timUpdate.SetEnabled(!trace);
}

void StatusPoll::StopTimers() {
    form_.timTrace.SetEnabled(false);
    form_.timUpdate.SetEnabled(false);
}

// Ticking it brings the cursor to the middle. Clearing it leaves the list, and with it the place of
// the next insert.
void StatusPoll::chkTrace_Click() {
    StartTimers();
    if (form_.chkTrace.Checked()) listing_.RefreshListing();
}

void StatusPoll::Exchange(bool& waiting, Show show) {
    if (!link_.Connected()) return;
    const Link::Operation operation(link_, "");
    const Visit visit(state_);
    std::string command = Bytes({session_.RelayAddress, kReadLiveStatus});
    if (!link_.Poll(command, waiting, [&visit] { return visit.Ended(); })) return;
    (this->*show)(RecordInReply(session_.ReplyBuffer));
}

// A wait of an earlier opening may still stand on the stack, where it can't end before the form
// closes: the polls of this one wait for themselves.
void StatusPoll::StartAfresh() {
    tick_left_ = false;
    last_.reset();
    update_waits_ = trace_waits_ = get_status_waits_ = false;
}

// Reader and polls tick at the same pace, so a tick can come between a reply and the wait of the
// poll below for it. It is made up for as soon as that wait has ended.
void StatusPoll::Poll(Timer& timer, bool& waiting, Show show) {
    tick_left_ = waiting && link_.ReplyUnseen();
    if (tick_left_) return;
    Exchange(waiting, show);
    if (!tick_left_) return;
    tick_left_ = false;
    link_.platform().loop.Post([&timer] {
        if (timer.Enabled()) timer.on_timer();
    });
}

void StatusPoll::timUpdate_Timer() {
    Poll(form_.timUpdate, update_waits_, &StatusPoll::ShowStatus);
}

void StatusPoll::timTrace_Timer() {
    if (!form_.chkTrace.Checked()) return;
    Poll(form_.timTrace, trace_waits_, &StatusPoll::ShowTrace);
}

void StatusPoll::ShowTrace(std::string_view record) {
    const auto status = ReadStatus(record);
    if (!status) return;
    if (form_.chkTrace.Checked()) MoveCursor(status->macro_pointer);
    ShowStatus(record);
}

void StatusPoll::cmdGetStatus_Click() {
    if (!state_.transferring) Exchange(get_status_waits_, &StatusPoll::ShowFromStart);
}

// The list goes back to its start, wherever the macro is.
void StatusPoll::ShowFromStart(std::string_view record) {
    if (!ReadStatus(record)) return;
    MoveCursor(kFirstMacroAddress);
    ShowStatus(record);
}

// The scroll bar refuses an address outside its range.
void StatusPoll::MoveCursor(int address) {
    if (form_.scrListScroll.ScrollValue() == address) return;
    if (form_.scrListScroll.SetScrollValue(address)) listing_.RefreshListing();
}

void StatusPoll::ShowStatus(std::string_view record) {
    const auto status = ReadStatus(record);
    if (!status) return;
    last_ = status;
    for (int i = 0; i < ScriptEditForm::kOutlets; ++i) {
        // Buttons that can be pressed keep the colours of the form.
        if (form_.cmdOn(i).Enabled()) continue;
        const bool on = status->OutletOn(i);
        form_.cmdOn(i).SetBackColor(on ? ScriptEditForm::kOnColour : kButtonFace);
        form_.cmdOff(i).SetBackColor(on ? kButtonFace : ScriptEditForm::kOffColour);
    }
    const Lights lights = LightsOf(*status, session_.UnitType);
    for (std::size_t i = 0; i < lights.size(); ++i) {
        form_.pbLED(static_cast<int>(i)).SetPicture(lights[i]);
    }
}

}  // namespace kestrane
