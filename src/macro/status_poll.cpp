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

// The status record of the answer; empty if there is none for this handler any more.
std::string StatusPoll::Exchange(bool& waiting) {
    if (!link_.Connected()) return {};
    const Link::Operation operation(link_);
    const Visit visit(state_);
    std::string command = Bytes({session_.RelayAddress, kReadLiveStatus});
    if (!link_.Poll(command, waiting) || visit.Ended()) return {};
    return RecordInReply(session_.ReplyBuffer);
}

void StatusPoll::timUpdate_Timer() { ShowStatus(Exchange(update_waits_)); }

void StatusPoll::timTrace_Timer() {
    if (!form_.chkTrace.Checked()) return;
    const std::string record = Exchange(trace_waits_);
    const auto status = ReadStatus(record);
    if (!status) return;
    if (form_.chkTrace.Checked()) GoTo(status->macro_pointer);
    ShowStatus(record);
}

// The list goes back to its start, wherever the macro is.
void StatusPoll::cmdGetStatus_Click() {
    if (state_.transferring) return;
    const std::string record = Exchange(get_status_waits_);
    if (!ReadStatus(record)) return;
    GoTo(kFirstMacroAddress);
    ShowStatus(record);
}

// The scroll bar refuses an address outside its range.
void StatusPoll::GoTo(int address) {
    if (form_.scrListScroll.ScrollValue() == address) return;
    if (form_.scrListScroll.SetScrollValue(address)) listing_.RefreshListing();
}

void StatusPoll::ShowStatus(std::string_view record) {
    const auto status = ReadStatus(record);
    if (!status) return;
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
