#include "cli/call_driver.h"

#include <algorithm>

namespace kestrane {
namespace {

// Where no --timeout was given.
constexpr std::chrono::milliseconds kConnectLimit{10'000};
constexpr std::chrono::milliseconds kReplyTimeout{3000};
// Beyond the time-out: the longest pause of an operation in which it sends nothing.
constexpr std::chrono::milliseconds kLongestPause{3000};
constexpr std::chrono::milliseconds kRefreshLimit{10'000};
// The download gives up by itself before.
constexpr std::chrono::milliseconds kDownloadLimit{35'000};

}  // namespace

CallDriver::CallDriver(CallContext& context)
    : context_(context),
      tool_(context.tool),
      form_(context.tool.main_form),
      silence_(tool_.link.platform().timers.NewTimer([this] { SilenceIsLong(); })) {
    tool_.screen.AddListener(*this);
    context.scripted.set_tell([this](const Json& event) {
        if (event["event"] != "box") return;
        const auto title = event["title"].get<std::string>();
        const auto text = event["text"].get<std::string>();
        boxes_.push_back(title.empty() ? text : title + ": " + text);
    });
    // An observer can't be taken back.
    tool_.link.platform().loop.AfterEvents([weak = std::weak_ptr(alive_)] {
        if (const auto self = weak.lock()) (*self)->Watch();
    });
}

CallDriver::~CallDriver() {
    tool_.screen.RemoveListener(*this);
    context_.scripted.set_tell([](const Json&) {});
}

bool CallDriver::Fail(std::string why) {
    failure_ = std::move(why);
    return false;
}

bool CallDriver::WaitUntil(const std::function<bool()>& condition, Milliseconds limit) {
    bool over = false;
    const auto timer = tool_.link.platform().timers.NewTimer([&over] { over = true; });
    timer->Start(limit);
    while (!over && !condition()) tool_.link.platform().loop.Pump();
    return condition();
}

bool CallDriver::Connect() {
    const std::string where =
        form_.txtCurrentIPAddress.Text() + " port " + form_.txtCurrentPort.Text();
    if (auto refusal = tool_.hand.Click(form_.cmdConnect)) return Fail(*refusal);
    const TcpClient& socket = tool_.link.platform().tcpsend;
    const auto failed = [&] {
        return socket.State() == SocketState::kError ||
               socket.State() == SocketState::kPeerClosing ||
               socket.State() == SocketState::kClosed;
    };
    const Milliseconds limit =
        context_.options.timeout() ? Milliseconds(*context_.options.timeout()) : kConnectLimit;
    Control& read = form_.network.cmdReadNetworkSettings;
    const bool connected = WaitUntil([&] { return failed() || read.Usable(); }, limit);
    if (connected && !failed()) return true;
    if (!connected) {
        return Fail("no connection to " + where + " within " + std::to_string(limit.count()) +
                    " ms; check the address, or give a longer --timeout");
    }
    return Fail("no connection to " + where +
                ": refused, lost or no such host; check address, port and cable");
}

bool CallDriver::SelectTab(const TabRow& tab) {
    if (tab.page < 0 || form_.SSTab1.Tab() == tab.page) return true;
    if (auto refusal = tool_.hand.Choose(form_.SSTab1, tab.page)) {
        return Fail(std::string(tab.name) + ": " + *refusal);
    }
    return true;
}

bool CallDriver::Missing(const TabRow& tab) const {
    return tab.kind == TabKind::kChangeover &&
           !form_.SSTab1.Tabs()[static_cast<std::size_t>(tab.page)].visible;
}

bool CallDriver::Read(const TabRow& tab) {
    if (Missing(tab)) {
        return Fail(std::string(tab.name) +
                    ": this unit is no changeover unit and has no such tab");
    }
    switch (tab.kind) {
        case TabKind::kChangeover:
            return ReadChangeover(tab);
        case TabKind::kFirmware:
            return ReadFirmware(tab);
        case TabKind::kMacro:
            // Closing the editor clears its image, so that the program is taken before.
            return InMacroEditor([this] { program_ = tool_.macro_editor.state().image; });
        case TabKind::kSettings:
            break;
    }
    return SelectTab(tab) && Press(tab.name, *form_.Find(tab.read_button), tab.read_done);
}

bool CallDriver::Write(const TabRow& tab) {
    return SelectTab(tab) && Press(tab.name, *form_.Find(tab.write_button), tab.write_done);
}

bool CallDriver::Press(const std::string& what, Control& button, const std::string& done) {
    Refusal refusal;
    const bool good = Operate(
        what, [&] { refusal = tool_.hand.Click(button); }, done);
    if (refusal) return Fail(what + ": " + *refusal);
    return good;
}

bool CallDriver::Operate(const std::string& what, const std::function<void()>& work,
                         const std::string& done) {
    boxes_before_ = boxes_.size();
    timed_out_ = false;
    link_matters_ = true;
    operation_ = what;
    StartSilence();
    work();
    silence_->Stop();
    link_matters_ = false;
    // A unit that is too old for the live 1-Wire table may be silent there; that is no failure.
    const bool excused = what == "1wire" && tool_.session.OneWireUnsupported;
    const bool good = (!timed_out_ || excused) && boxes_.size() == boxes_before_ &&
                      (done.empty() || form_.lblMemoryBlock.Caption() == done);
    return good || Fail(WhyFailed(what));
}

std::string CallDriver::WhyFailed(const std::string& what) const {
    const std::string where = what + ": \"" + form_.lblMemoryBlock.Caption() + "\"";
    if (boxes_.size() > boxes_before_) {
        const bool denied = boxes_.back().rfind("Privileges", 0) == 0;
        return where + " failed with the message \"" + boxes_.back() + "\"; " +
               (denied ? "connect on a control port that has the right"
                       : "try again, and check the line");
    }
    if (timed_out_) {
        return where + " failed, the unit did not answer; check it, or give a longer --timeout";
    }
    return where + " failed; try again";
}

// The live values come by a refresh, some time after the startup values.
bool CallDriver::ReadChangeover(const TabRow& tab) {
    if (!SelectTab(tab)) return false;
    tool_.session.ChangeoverStatus.clear();
    if (!Press(tab.name, *form_.Find(tab.read_button), tab.read_done)) return false;
    if (WaitUntil([this] { return !tool_.session.ChangeoverStatus.empty(); }, kRefreshLimit)) {
        return true;
    }
    return Fail(std::string(tab.name) + ": no live values came; check the unit");
}

// Its button can't be reached, as nothing shows the tab.
bool CallDriver::ReadFirmware(const TabRow& tab) {
    Control& button = *form_.Find(tab.read_button);
    const auto& status = form_.lblMemoryBlock;
    if (!Operate(tab.name, [&] { button.on_click(); }, {})) return false;
    const NetGrab& download = tool_.firmware.NetGrab1;
    if (form_.firmware.lblSerialNo.Caption() == "-") return Fail(WhyFailed(tab.name));
    if (!WaitUntil([&] { return !download.Busy(); }, kDownloadLimit) ||
        status.Caption() == "Remote Download failed ") {
        context_.complain(
            "the latest versions could not be fetched; check the address given by --versions-url");
    }
    return true;
}

bool CallDriver::InMacroEditor(const std::function<void()>& work) {
    struct WhenOpen : ScreenListener {
        explicit WhenOpen(std::function<void()> opened) : on_open(std::move(opened)) {}
        void FormOpened(Form& /*form*/) override { on_open(); }
        std::function<void()> on_open;
    } opening([this, &work] {
        tool_.link.platform().loop.Post([this, &work] {
            if (WentWell()) work();
            tool_.hand.Close(tool_.script_edit_form);
        });
    });
    const TabRow& tab = *FindTab("macro");
    if (!SelectTab(*FindTab("triggers"))) return false;
    tool_.screen.AddListener(opening);
    const bool good = Press(tab.name, *form_.Find(tab.read_button), {});
    tool_.screen.RemoveListener(opening);
    return good;
}

void CallDriver::ControlChanged(Control& control, Property property) {
    if (property != Property::kCaption) return;
    if (&control == &form_.Label3 && form_.Label3.Caption() == "T") timed_out_ = true;
    const bool traffic = &control == &form_.Label3 || &control == &form_.Label2;
    if (traffic && link_matters_) StartSilence();
}

void CallDriver::StartSilence() {
    const auto& given = context_.options.timeout();
    silence_->Start((given ? Milliseconds(*given) : kReplyTimeout) + kLongestPause);
}

void CallDriver::Watch() {
    if (!link_matters_) return;
    const SocketState state = tool_.link.platform().tcpsend.State();
    if (state == SocketState::kConnected && tool_.link.connection() != 0) return;
    EndInTheMidst("the connection was lost; connect again, and check the line");
}

void CallDriver::SilenceIsLong() {
    if (link_matters_) EndInTheMidst("the unit does not answer; check it");
}

void CallDriver::EndInTheMidst(const std::string& why) {
    context_.complain(operation_ + ": \"" + form_.lblMemoryBlock.Caption() + "\" failed, " + why);
    tool_.link.platform().tcpsend.Close();
    tool_.link.platform().loop.Exit(kExitUnit);
}

}  // namespace kestrane
