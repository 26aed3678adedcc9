#include "features/changeover.h"

#include <algorithm>

#include "text/text.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kBetweenRecords{500};
// Before a save, long enough for a poll in flight to be answered.
constexpr milliseconds kPauseBeforeLive{600};
constexpr milliseconds kPauseBeforeStartup{1000};
constexpr int kLeastStartupDelay = 10;

// The frames of the panel in the order of the screen, without the live inlets.
constexpr const char* kLabelledFrames[] = {
    "fraChangeoverOptions", "grpOffTimeMain", "grpOffTimeBackup", "grpPhase",
    "grpChangeBackDelay",   "grpAlarm",       "fraDefaultInlet"};

// The ticked one of the inlets 1 to 5, or 0.
int ChosenInlet(const ControlArray<OptionButton>& options) {
    for (int i = 1; i <= kInlets; ++i) {
        if (options(i).Chosen()) return i;
    }
    return 0;
}

void ChooseInlet(const ControlArray<OptionButton>& options, int inlet) {
    if (inlet >= 1 && inlet <= kInlets) options(inlet).SetChosen(true);
}

}  // namespace

class Changeover::Pass {
  public:
    explicit Pass(Changeover& owner)
        : owner_(owner), operation_(owner.link_, ""), refresh_(owner.refreshes_) {
        owner.pass_connection_ = owner.link_.connection();
    }
    ~Pass() {
        if (!operation_.Stale()) owner_.pass_connection_ = 0;
    }
    Pass(const Pass&) = delete;
    Pass& operator=(const Pass&) = delete;

    // Neither the tab nor the connection has been left and no operation has begun since.
    bool GoesOn() const {
        return !operation_.Stale() && owner_.form_.timCMSOptions.Enabled() &&
               owner_.refreshes_ == refresh_;
    }

  private:
    Changeover& owner_;
    Link::Operation operation_;
    int refresh_;
};

Changeover::Changeover(MainForm& form, Session& session, Link& link)
    : form_(form), tab_(form.changeover), session_(session), link_(link), values_(form, session) {
    tab_.cmdReadCMSOptions.on_click = [this] { cmdReadCMSOptions_Click(); };
    for (const int i : {0, 1}) {
        tab_.cmdSaveCurrent(i).on_click = [this, i] { cmdSaveCurrent_Click(i); };
        tab_.cmdSaveStartup(i).on_click = [this, i] { cmdSaveStartup_Click(i); };
    }
    form.timCMSOptions.on_timer = [this] { timCMSOptions_Timer(); };
}

// A read that fails leaves the panel as it was, in what it shows and in what can be used.
void Changeover::cmdReadCMSOptions_Click() {
    if (!link_.Connected()) return;
    const bool refreshed = form_.timCMSOptions.Enabled();
    StopRefresh();
    const std::initializer_list<Control*> busy = {
        &tab_.fraChangeoverOptions,      &tab_.fraDefaultInlet,   &tab_.cmdReadCMSOptions,
        &form_.network.cmdResetEthernet, &tab_.cmdSaveCurrent(0), &tab_.cmdSaveCurrent(1),
        &tab_.cmdSaveStartup(0),         &tab_.cmdSaveStartup(1)};
    std::vector<Control*> usable;
    for (Control* control : busy) {
        if (control->Enabled()) usable.push_back(control);
    }
    const LongOperation operation(form_, link_, "Read Changeover Options", busy, {});
    form_.lblMemoryBlock.SetCaption("Reading Changeover Data");
    const bool read = ReadStartup();
    if (!operation.Stale()) {
        // Said after a failure, too.
        form_.lblMemoryBlock.SetCaption("Reading Changeover Data Complete");
        if (read && session_.AdminLoggedIn) session_.ChangeoverRead = true;
        for (const char* frame : kLabelledFrames) EnableLabels(form_, frame);
    }
    if (read || operation.Stale()) return Finish(operation);
    for (Control* control : usable) control->SetEnabled(true);
    form_.timCMSOptions.SetEnabled(refreshed);
}

bool Changeover::ReadStartup() {
    auto record = link_.Read(session_.RelayAddress, kStartupAddress, kStartupLength);
    if (!record) return false;
    const int inlet = StartupInlet(*record);
    values_.KeepStartupRecord(*std::move(record));
    ChooseInlet(tab_.optInE2P, inlet);
    session_.known.changeover_startup = true;
    session_.known.changeover_live = false;
    show_live_values_ = true;
    return true;
}

// A tick that finds a pass of its connection under way leaves everything to it.
void Changeover::timCMSOptions_Timer() {
    if (!link_.Connected() || pass_connection_ == link_.connection()) return;
    const Pass pass(*this);
    RefreshPass(pass);
}

void Changeover::RefreshPass(const Pass& pass) {
    const auto status = ReadStatus(kReadLiveStatus);
    if (!status || !pass.GoesOn()) return;
    const unsigned frames_sent = link_.FramesSent();
    link_.MdWait(kBetweenRecords);
    // The second record belongs to the first only if no other command came in between.
    if (!pass.GoesOn() || link_.FramesSent() != frames_sent) return;
    const auto record = ReadStatus(kReadSecondStatus);
    if (!record || !pass.GoesOn() || record->size() != kLiveLength) return;
    const auto supplies = SuppliesOf(*status);
    if (!supplies) return;
    session_.ChangeoverStatus = *record;
    ShowChangeover(*supplies);
}

std::optional<std::string> Changeover::ReadStatus(int code) {
    done_before_poll_ = session_.CommandDone;
    poll_in_flight_ = true;
    const bool done = link_.Command(Bytes({session_.RelayAddress, code}));
    poll_in_flight_ = false;
    if (!done) return {};
    link_.RemoveReplyEscapes();
    return StatusRecordOf(session_.ReplyBuffer);
}

void Changeover::ShowChangeover(const Supplies& supplies) {
    const LiveRecord live = DecodeLive(session_.ChangeoverStatus);
    form_.lblMemoryBlock.SetCaption("Reading Live Changeover Data");
    if (show_live_values_) ShowFirstLiveValues(live);
    values_.CompareLiveValues();
    const auto measured = [](bool present, int samples) {
        return present ? "Measured" + Str(samples) + " samples" : std::string("No supply");
    };
    tab_.lblOffTimeMain.SetCaption(measured(supplies.main, live.off_main));
    tab_.lblOffTimeBackup.SetCaption(measured(supplies.backup, live.off_backup));
    if (supplies.main && supplies.backup) {
        tab_.lblPhase.SetCaption(PhaseAngle(live.phase_ab));
        tab_.lblPhase.SetCaption("A/B" + Str(live.phase_ab) + ", B/A" + Str(live.phase_ba) +
                                 " samples");
    } else {
        tab_.lblPhase.SetCaption("-");
        tab_.lblPhase.SetCaption("Need two supplies to measure");
    }
    tab_.lblChangeBack.SetCaption("Current counter" + Str(live.change_back));
    tab_.lblLockout.SetCaption(Str(live.lockout));
}

// From here on the boxes stay as the operator edits them.
void Changeover::ShowFirstLiveValues(const LiveRecord& live) {
    show_live_values_ = false;
    values_.CopyLiveValues();
    ChooseInlet(tab_.optInLive, live.inlet);
    tab_.lblDefaultIn.SetCaption(std::to_string(live.inlet));
    session_.known.changeover_live = true;
    if (on_live_shown) on_live_shown();
}

LongOperation Changeover::BeginSave(const char* name) {
    StopRefresh();
    return LongOperation(
        form_, link_, name,
        {&tab_.cmdReadCMSOptions, &form_.network.cmdResetEthernet, &tab_.cmdSaveCurrent(0),
         &tab_.cmdSaveCurrent(1), &tab_.cmdSaveStartup(0), &tab_.cmdSaveStartup(1)},
        {});
}

void Changeover::cmdSaveCurrent_Click(int index) {
    if (!link_.Connected()) return;
    const char* const name =
        index == 0 ? "Save Changeover Options as Live" : "Save Default Inlet as Live";
    if (!KnownForWriting(link_, session_.known.changeover_live, name, "live changeover values")) {
        return;
    }
    const LongOperation operation = BeginSave(name);
    SaveCurrent(index, operation);
    Finish(operation);
}

void Changeover::SaveCurrent(int index, const LongOperation& operation) {
    form_.SetPointer(Form::kArrow);  // busy only behind the pause
    link_.MdWait(kPauseBeforeLive);
    if (operation.Stale()) return;
    form_.SetPointer(Form::kHourglass);
    form_.lblMemoryBlock.SetCaption("Writing live data");
    std::string command = Bytes({session_.RelayAddress, kWriteLiveData}) + LiveArguments(index);
    // The reply is not looked at, be it a refusal.
    if (!link_.SendUnchecked(command) || !LastCommandDone()) return;
    link_.MdWait(milliseconds{SleepDelay()});
    if (!operation.Stale()) form_.lblMemoryBlock.SetCaption("Writing live data complete");
}

// The outcome of the last SendCommand. A poll that this operation began in the middle of has none
// yet: it is judged only when the operation has returned.
bool Changeover::LastCommandDone() const {
    const bool undecided = poll_in_flight_ && pass_connection_ == link_.connection();
    return undecided ? done_before_poll_ : session_.CommandDone;
}

// Pairs of selector and value; nothing at all for an inlet when none is ticked.
std::string Changeover::LiveArguments(int index) const {
    if (index == 0) {
        return Bytes(
            {2, values_.Live(3), 3, values_.Live(4), 4, values_.Live(5), 5, values_.Live(6)});
    }
    const int inlet = ChosenInlet(tab_.optInLive);
    return inlet == 0 ? std::string() : Bytes({6, inlet});
}

void Changeover::cmdSaveStartup_Click(int index) {
    if (!link_.Connected()) return;
    const char* const name =
        index == 0 ? "Save Changeover Options as Startup" : "Save Default Inlet as Startup";
    if (!KnownForWriting(link_, session_.known.changeover_startup, name,
                         "startup changeover values")) {
        return;
    }
    const LongOperation operation = BeginSave(name);
    SaveStartup(index, operation);
    Finish(operation);
}

void Changeover::SaveStartup(int index, const LongOperation& operation) {
    form_.SetPointer(Form::kArrow);
    link_.MdWait(kPauseBeforeStartup);
    if (operation.Stale()) return;
    const milliseconds delay{std::max(SleepDelay(), kLeastStartupDelay)};
    form_.SetPointer(Form::kHourglass);
    form_.lblMemoryBlock.SetCaption("Writing Startup Data");
    const auto command = StartupCommand(index);
    if (!command || !link_.Command(*command)) return;
    link_.RemoveReplyEscapes();
    if (index == 0) {
        const std::string values = Mid(session_.ReplyBuffer, kMemoryData, kStartupWritten);
        if (values.size() == kStartupWritten) values_.KeepWrittenValues(values);
    }
    link_.MdWait(delay);
    if (!operation.Stale()) form_.lblMemoryBlock.SetCaption("Writing Startup Data Complete");
}

// Nothing for an inlet when none is ticked: there is no byte to write.
std::optional<std::string> Changeover::StartupCommand(int index) const {
    if (index == 0) {
        return WriteCommand(session_.RelayAddress, kStartupAddress, kStartupWritten,
                            Bytes({values_.Startup(0), values_.Startup(1), values_.Startup(2),
                                   values_.Startup(3)}));
    }
    const int inlet = ChosenInlet(tab_.optInE2P);
    if (inlet == 0) return {};
    return WriteCommand(session_.RelayAddress, kStartupInletAddress, 1, Bytes({inlet}));
}

int Changeover::SleepDelay() const { return IntegerValue(form_.txtSleepDelay.Text()); }

void Changeover::StopRefresh() { form_.timCMSOptions.SetEnabled(false); }

void Changeover::Finish(const LongOperation& operation) {
    if (operation.Stale()) {
        // No login and no panel any more, but nothing else would bring this button back.
        tab_.cmdReadCMSOptions.SetEnabled(true);
        return;
    }
    if (session_.AdminLoggedIn) EnablePanel();
    ++refreshes_;
    form_.timCMSOptions.SetEnabled(true);
}

void Changeover::EnablePanel() {
    for (Control* control : std::initializer_list<Control*>{
             &tab_.fraChangeoverOptions, &tab_.fraDefaultInlet, &tab_.fraDefaultInletLive,
             &tab_.fraDefaultInletStart, &tab_.grpOffTimeMain, &tab_.grpOffTimeBackup,
             &tab_.grpPhase, &tab_.grpChangeBackDelay, &tab_.grpAlarm, &tab_.cmdReadCMSOptions,
             &form_.network.cmdResetEthernet, &tab_.cmdSaveCurrent(0), &tab_.cmdSaveCurrent(1),
             &tab_.cmdSaveStartup(0), &tab_.cmdSaveStartup(1)}) {
        control->SetEnabled(true);
    }
}

}  // namespace kestrane
