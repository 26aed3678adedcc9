#include "configuration/unit_session.h"

#include <algorithm>

#include "link/frame.h"
#include "text/text.h"

namespace kestrane {
namespace {

using Milliseconds = UnitSession::Milliseconds;

// Where no time-out was given.
constexpr Milliseconds kConnectLimit{10'000};
constexpr Milliseconds kReplyTimeout{3000};
// Beyond the time-out: the longest pause of an operation in which it sends nothing.
constexpr Milliseconds kLongestPause{3000};
constexpr Milliseconds kRefreshLimit{10'000};
// The download gives up by itself before.
constexpr Milliseconds kDownloadLimit{35'000};

constexpr int kMacroBlocks = 14;
constexpr int kMacroBegin = 0x0020;

std::string Hex4(int address) {
    return "0x" + HexByte(static_cast<std::uint8_t>(address >> 8)) +
           HexByte(static_cast<std::uint8_t>(address));
}

bool IsRelay(int board) { return board <= 4 || board == 250; }

std::string WhatToDo(Exchange::End end) {
    switch (end) {
        case Exchange::End::kRefused:
            return "connect on a control port that has the right";
        case Exchange::End::kNoAnswer:
            return "check the unit, or give a longer --timeout";
        case Exchange::End::kLineLost:
        case Exchange::End::kNotSent:
            return "connect again, and check the line";
        default:
            return "try again, and check the line";
    }
}

// "block 0x0080 of the display board", "the unit ID".
std::string WhatIn(const Exchange& exchange) {
    if (exchange.command == kWriteLiveData) return "the live data";
    if (exchange.command == kWriteUnitID) return "the unit ID";
    const std::string board = IsRelay(exchange.board) ? "relay board" : "display board";
    if (exchange.address >= 0) return "block " + Hex4(exchange.address) + " of the " + board;
    return "command 0x" + HexByte(static_cast<std::uint8_t>(exchange.command)) + " to the " + board;
}

}  // namespace

std::string InWords(const Exchange& exchange) {
    return WhatIn(exchange) + " was " + EndInWords(exchange.end);
}

UnitSession::UnitSession(Tool& tool, std::optional<Milliseconds> timeout)
    : tool_(tool),
      form_(tool.main_form),
      timeout_(timeout),
      silence_(tool_.link.platform().timers.NewTimer([this] {
          silent_ = true;
          if (operating_) Disconnect();
      })) {
    tool_.link.journal().AddObserver(*this);
    tool_.link.platform().loop.AfterEvents([weak = std::weak_ptr(alive_)] {
        if (const auto self = weak.lock()) (*self)->Watch();
    });
}

UnitSession::~UnitSession() { tool_.link.journal().RemoveObserver(*this); }

bool UnitSession::Fail(std::string why) {
    failure_ = interrupted_ ? "interrupted" : std::move(why);
    return false;
}

std::string UnitSession::Address() const {
    const std::string& host = form_.txtCurrentIPAddress.Text();
    const bool v6 = host.find(':') != std::string::npos && host.front() != '[';
    return (v6 ? "[" + host + "]" : host) + ":" + form_.txtCurrentPort.Text();
}

bool UnitSession::WaitUntil(const std::function<bool()>& condition, Milliseconds limit) {
    bool over = false;
    const auto timer = tool_.link.platform().timers.NewTimer([&over] { over = true; });
    timer->Start(limit);
    // A refresh that waits inside of this wait would hold it up for ever once the unit has gone.
    waiting_ = Connected();
    while (!over && !interrupted_ && !condition()) tool_.link.platform().loop.Pump();
    waiting_ = false;
    return !interrupted_ && condition();
}

// The first disconnect makes the reader poll faster.
bool UnitSession::Connect() {
    if (interrupted_) return Fail({});
    tool_.supervision.cmdDisconnect_Click();
    if (timeout_) form_.timTimeout.SetInterval(static_cast<int>(timeout_->count()));
    if (auto refusal = tool_.hand.Click(form_.cmdConnect)) return Fail(*refusal);
    const TcpClient& socket = tool_.link.platform().tcpsend;
    const auto failed = [&] {
        const SocketState state = socket.State();
        return state == SocketState::kError || state == SocketState::kPeerClosing ||
               state == SocketState::kClosed;
    };
    const Milliseconds limit = timeout_.value_or(kConnectLimit);
    const Control& read = form_.network.cmdReadNetworkSettings;
    const bool connected = WaitUntil([&] { return failed() || read.Usable(); }, limit);
    if (connected && !failed()) return true;
    if (!connected) {
        return Fail("no connection to " + Address() + " within " + std::to_string(limit.count()) +
                    " ms; check the address, or give a longer --timeout");
    }
    return Fail("no connection to " + Address() +
                ": refused, lost or no such host; check address, port and cable");
}

void UnitSession::Disconnect() {
    tool_.supervision.cmdDisconnect_Click();
    tool_.link.ReleaseWaits();
}

void UnitSession::Interrupt() {
    interrupted_ = true;
    Disconnect();
}

bool UnitSession::SelectTab(const TabRow& tab) {
    if (tab.page < 0 || form_.SSTab1.Tab() == tab.page) return true;
    if (auto refusal = tool_.hand.Choose(form_.SSTab1, tab.page)) {
        return Fail(std::string(tab.name) + ": " + *refusal);
    }
    return true;
}

bool UnitSession::Missing(const TabRow& tab) const {
    return tab.kind == TabKind::kChangeover &&
           !form_.SSTab1.Tabs()[static_cast<std::size_t>(tab.page)].visible;
}

bool UnitSession::Read(const TabRow& tab) {
    if (Missing(tab)) {
        return Fail(std::string(tab.name) +
                    ": this unit is not a changeover unit and has no such tab");
    }
    switch (tab.kind) {
        case TabKind::kChangeover:
            return ReadChangeover(tab);
        case TabKind::kFirmware:
            return ReadFirmware(tab);
        case TabKind::kMacro:
            return ReadProgram();
        case TabKind::kSettings:
            break;
    }
    // Over a port that is none of the unit's three its rights can't be told, and nothing is sent.
    const bool rights = std::string_view(tab.name) == "privileges";
    if (rights && tool_.session.ConnectedPortIndex == 0) return SelectTab(tab);
    return SelectTab(tab) && Press(*form_.Find(tab.read_button), tab.read_operation);
}

bool UnitSession::Write(const TabRow& tab) {
    return SelectTab(tab) && Press(*form_.Find(tab.write_button), tab.write_operation);
}

bool UnitSession::Press(Control& button, const std::string& operation) {
    Refusal refusal;
    const bool good = Operate(operation, [&] { refusal = tool_.hand.Click(button); });
    return refusal && !interrupted_ ? Fail(operation + ": " + *refusal) : good;
}

bool UnitSession::Operate(const std::string& operation, const std::function<void()>& work) {
    if (interrupted_) return Fail({});
    const std::uint64_t before = tool_.link.journal().last_operation();
    operating_ = true;
    silent_ = false;
    StartSilence();
    work();
    silence_->Stop();
    operating_ = false;
    const auto& records = tool_.link.journal().operations();
    const auto record = std::find_if(records.begin(), records.end(), [&](const auto& each) {
        return each.number > before && each.name == operation;
    });
    if (record == records.end()) return Fail(operation + ": there is no connection");
    return (record->Complete() && !interrupted_) || Fail(WhyFailed(*record));
}

std::string UnitSession::WhyFailed(const OperationRecord& record) const {
    const Exchange* const failed = tool_.link.journal().FindExchange(record.stopped_at);
    if (silent_) return record.name + ": the unit does not answer; check it";
    // Whoever holds the writes back says why.
    if (failed && tool_.link.WritesHeld() && failed->end == Exchange::End::kNotSent) {
        return record.name + ": stopped before " + WhatIn(*failed) +
               "; the same call again does the rest";
    }
    if (failed) return record.name + ": " + InWords(*failed) + "; " + WhatToDo(failed->end);
    if (record.end == OperationRecord::End::kOvertaken) {
        return record.name + ": the connection was lost; connect again, and check the line";
    }
    return record.name + ": " + record.why;
}

bool UnitSession::ReadFacts() {
    return Operate("Read Firmware Versions", [this] {
        const Link::Operation operation(tool_.link, "Read Firmware Versions");
        tool_.firmware.ReadBoards();
    });
}

// The live values come by a refresh, some time after the startup values.
bool UnitSession::ReadChangeover(const TabRow& tab) {
    if (!SelectTab(tab)) return false;
    if (!Press(*form_.Find(tab.read_button), tab.read_operation)) return false;
    const auto& known = tool_.session.known;
    const bool live =
        WaitUntil([&] { return known.changeover_live || !tool_.link.Connected(); }, kRefreshLimit);
    if (live && known.changeover_live) return true;
    if (!Connected()) {
        return Fail(std::string(tab.name) +
                    ": the connection was lost; connect again, and check the line");
    }
    return Fail(std::string(tab.name) + ": no live values came; check the unit");
}

// Its button can't be reached, as nothing shows the tab. The refresh of the changeover tab would
// send between its commands.
bool UnitSession::ReadFirmware(const TabRow& tab) {
    if (!SelectTab(*FindTab("network"))) return false;
    Control& button = *form_.Find(tab.read_button);
    if (!Operate(tab.read_operation, [&] { button.on_click(); })) return false;
    const NetGrab& download = tool_.firmware.NetGrab1;
    WaitUntil([&] { return !download.Busy(); }, kDownloadLimit);
    return !interrupted_ || Fail({});
}

bool UnitSession::ReadProgram() {
    return Operate("Download Macro", [this] {
        Link::Operation operation(tool_.link, "Download Macro");
        for (int block = 0; block < kMacroBlocks; ++block) {
            const int address = kMacroBegin + kBlockSize * block;
            const auto data = tool_.link.Read(tool_.session.RelayAddress, address);
            if (!data) return;
            for (std::size_t i = 0; i < data->size(); ++i) {
                program_.Set(static_cast<std::size_t>(address) + i,
                             static_cast<std::uint8_t>((*data)[i]));
            }
        }
    });
}

bool UnitSession::WriteProgram(const MacroMemory& program) {
    bool written = false;
    const bool opened = InMacroEditor([&] {
        tool_.macro_editor.state().image = program;
        written = Press(tool_.script_edit_form.cmdUpload, "Upload Macro");
    });
    return opened && written;
}

bool UnitSession::InMacroEditor(const std::function<void()>& work) {
    bool downloaded = false;
    struct WhenOpen : ScreenListener {
        explicit WhenOpen(std::function<void()> opened) : on_open(std::move(opened)) {}
        void FormOpened(Form& /*form*/) override { on_open(); }
        std::function<void()> on_open;
    } opening([&] {
        tool_.link.platform().loop.Post([&] {
            const auto& records = tool_.link.journal().operations();
            downloaded = !records.empty() && records.back().name == "Download Macro" &&
                         records.back().Complete();
            if (downloaded) work();
            tool_.hand.Close(tool_.script_edit_form);
        });
    });
    if (!SelectTab(*FindTab("triggers"))) return false;
    tool_.screen.AddListener(opening);
    const bool good =
        Operate("Download Macro", [&] { tool_.hand.Click(form_.triggers.cmdEditMacro); });
    tool_.screen.RemoveListener(opening);
    return good && downloaded;
}

void UnitSession::ExchangeBegan(const Exchange&) { StartSilence(); }

void UnitSession::ExchangeEnded(const Exchange&) { StartSilence(); }

void UnitSession::StartSilence() {
    if (operating_) silence_->Start(timeout_.value_or(kReplyTimeout) + kLongestPause);
}

bool UnitSession::Connected() const {
    return tool_.link.platform().tcpsend.State() == SocketState::kConnected &&
           tool_.link.connection() != 0;
}

void UnitSession::Watch() {
    if ((!operating_ && !waiting_) || Connected()) return;
    waiting_ = false;
    Disconnect();
}

}  // namespace kestrane
