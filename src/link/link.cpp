#include "link/link.h"

#include <algorithm>
#include <utility>

#include "text/text.h"

namespace kestrane {
namespace {

constexpr char kWaiting[] = "*";
constexpr char kTimedOut[] = "T";
constexpr int kMostTransmissions = 4;
constexpr char kCorrupted[] = "Responses are being corrupted. Please try again.";

class Depth {
  public:
    explicit Depth(int& depth) : depth_(depth) { ++depth_; }
    ~Depth() { --depth_; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;

  private:
    int& depth_;
};

}  // namespace

Link::Link(MainForm& form, Session& session, const Platform& platform)
    : form_(form), session_(session), platform_(platform) {}

// The frame of the operation outside is put back at the end, so that its echo test and its
// repeats go on with its own command.
Link::Operation::Operation(Link& link, const char* name)
    : link_(link),
      number_(*name ? link.journal_.BeginOperation(name, link.connection_) : 0),
      outer_(link.current_),
      connection_(link.connection_),
      outer_frame_(outer_ ? link.session_.FrameBuffer : std::string()) {
    link_.current_ = this;
}

Link::Operation::~Operation() {
    link_.current_ = outer_;
    if (outer_) link_.session_.FrameBuffer = outer_frame_;
    link_.journal_.EndOperation(number_);
    if (link_.when_idle_ && !link_.Busy()) std::exchange(link_.when_idle_, nullptr)();
}

void Link::Operation::PlanWrites(int blocks) { link_.journal_.PlanWrites(number_, blocks); }

void Link::Operation::Skip(std::string what, std::string why) {
    link_.journal_.Skip(number_, {std::move(what), std::move(why)});
}

void Link::Operation::Stop(std::string why) { link_.journal_.Stop(number_, std::move(why)); }

void Link::Operation::Forgive() { link_.journal_.Forgive(number_); }

bool Link::Busy() const {
    for (const Operation* at = current_; at; at = at->outer_) {
        if (at->number_ != 0 && !at->Stale()) return true;
    }
    return false;
}

void Link::WhenIdle(std::function<void()> action) {
    if (!Busy()) return action();
    when_idle_ = std::move(action);
}

void Link::NewConnection() {
    EndConnection();
    if (waits_ > kMostAbandonedWaits) released_ = connections_;
    connection_ = ++connections_;
    refused_polls_.clear();
    seen_ = Seen::kNothing;
}

void Link::EndConnection() {
    journal_.LoseLine(connection_);
    connection_ = 0;
    // Nothing holds it up any more.
    if (when_idle_) std::exchange(when_idle_, nullptr)();
}

bool Link::MaySend(std::uint64_t exchange) const {
    const Exchange* const begun = journal_.FindExchange(exchange);
    if (writes_held_ && begun && begun->IsWrite()) return false;
    return !(current_ && current_->Stale()) && waits_ < kDeepestWait;
}

bool Link::Command(std::string command) {
    SendCommand(command);
    return session_.CommandDone;
}

std::optional<std::string> Link::Read(int board, int address, int count) {
    if (!Command(ReadCommand(board, address, count))) return {};
    std::string data = DataOfReply(session_.ReplyBuffer, kMemoryData);
    RemoveReplyEscapes();
    const auto wanted = static_cast<std::size_t>(count);
    if (data.size() < wanted) return {};
    data.resize(wanted);
    return data;
}

bool Link::Write(int board, int address, std::string_view data) {
    return Command(WriteCommand(board, address, static_cast<int>(data.size()), data));
}

std::uint64_t Link::BeginExchange(std::string_view command) {
    Exchange exchange;
    exchange.operation = current_ ? current_->number_ : 0;
    exchange.connection = current_ ? current_->connection_ : connection_;
    exchange.began = platform_.clock.TickCount();
    exchange.board = ByteAt(command, 1);
    exchange.command = ByteAt(command, 2);
    exchange.poll = current_ && current_->number_ == 0;
    const bool memory = exchange.command == kReadMemory || exchange.command == kWriteMemory;
    if (memory) {
        exchange.address = ByteAt(command, 3) * 256 + ByteAt(command, 4);
        exchange.count = ByteAt(command, 5);
    }
    exchange.data = Mid(command, memory ? 6 : 3);
    return journal_.BeginExchange(std::move(exchange));
}

// A memory read with fewer data than were asked for is no value: the journal says so, whatever the
// caller makes of the reply.
void Link::EndExchange(std::uint64_t exchange, Exchange::End end) {
    const Exchange* const begun = journal_.FindExchange(exchange);
    std::string data;
    if (end == Exchange::End::kAccepted && begun && begun->IsRead()) {
        const auto count = static_cast<std::size_t>(begun->count);
        data = DataOfReply(session_.ReplyBuffer, kMemoryData);
        if (data.size() < count) end = Exchange::End::kCorrupted;
        data.resize(std::min(data.size(), count));
    }
    journal_.EndExchange(exchange, end, std::move(data));
}

void Link::SendCommand(std::string& strCommand) {
    session_.CommandDone = false;
    const std::uint64_t exchange = BeginExchange(strCommand);
    const bool connected = Connected();
    AddEscapesAndChecksum(strCommand);
    Exchange::End end = Exchange::End::kNotSent;
    if (MaySend(exchange)) {
        end = Transmit(strCommand, exchange);
        form_.timTimeout.SetEnabled(false);
    }
    session_.CommandDone = end == Exchange::End::kAccepted;
    EndExchange(exchange, connected ? end : Exchange::End::kNotSent);
}

Exchange::End Link::Transmit(const std::string& escaped, std::uint64_t exchange) {
    int repeat_count = 0;
    session_.FrameBuffer = FrameOf(escaped);
    while (true) {
        form_.timTimeout.SetEnabled(true);
        SendRaw(session_.FrameBuffer);
        journal_.CountSent(exchange);
        ShowSent(escaped);
        form_.Label4.SetCaption(kWaiting);
        WaitForReply();
        if (current_ && current_->Stale()) return Exchange::End::kLineLost;
        const bool timed_out = seen_ == Seen::kTimeout ||
                               (seen_ == Seen::kNothing && form_.Label3.Caption() == kTimedOut);
        if (timed_out) return Exchange::End::kNoAnswer;  // final: not sent again
        const Verdict verdict = JudgeReply(repeat_count);
        if (current_ && current_->Stale()) return Exchange::End::kLineLost;
        if (verdict == Verdict::kDone) return Exchange::End::kAccepted;
        if (verdict == Verdict::kRefused) return Exchange::End::kRefused;
        if (verdict == Verdict::kCorrupted) return Exchange::End::kCorrupted;
        form_.timTimeout.SetEnabled(false);
    }
}

void Link::SendRaw(const std::string& frame) {
    ++frames_sent_;
    platform_.tcpsend.Send(frame);
}

void Link::SendUnawaited(std::string_view command, const std::string& frame) {
    const std::uint64_t exchange = BeginExchange(command);
    SendRaw(frame);
    journal_.CountSent(exchange);
    EndExchange(exchange, Exchange::End::kNotAwaited);
}

void Link::ShowSent(const std::string& escaped) {
    form_.Label2.SetCaption(FrameAsHex(escaped));
    form_.Label1.SetCaption(kWaiting);
    form_.Label3.SetCaption(kWaiting);
    seen_ = Seen::kNothing;
}

void Link::BytesCame() {
    if (seen_ != Seen::kNothing) return;
    seen_ = Seen::kBytes;
    first_reply_ = session_.ReplyBuffer;
}

void Link::TimedOut() {
    if (seen_ == Seen::kNothing) seen_ = Seen::kTimeout;
}

// Nothing but a change of Label3 ends this wait: bytes, or the timeout. Only where too many waits
// of lost connections stand on the stack does the next connect end them.
void Link::WaitForReply(const std::function<bool()>& pointless) {
    const Depth depth(waits_);
    const Depth reply_depth(reply_waits_);
    while (seen_ == Seen::kNothing && form_.Label3.Caption() == kWaiting) {
        if (Released() || (pointless && pointless())) return;
        platform_.loop.Pump();
    }
    // Later bytes of the same pump have come after the wait was over.
    if (seen_ == Seen::kBytes) session_.ReplyBuffer = first_reply_;
}

bool Link::Released() const {
    return current_ && current_->Stale() && current_->connection_ <= released_;
}

bool Link::ReplyUnseen() const {
    return reply_waits_ > 0 && (seen_ != Seen::kNothing || form_.Label3.Caption() != kWaiting);
}

Link::Verdict Link::Box(Verdict verdict, const char* title, const char* text) {
    platform_.boxes.Show(title, text, {BoxButton::kOk});
    return verdict;
}

// Of a poll that the port may not make, one box is enough until an answer comes.
Link::Verdict Link::RefusedByPrivileges() {
    const bool poll = current_ && current_->number_ == 0;
    const int code = ByteAt(session_.FrameBuffer, 4);
    if (poll && !refused_polls_.insert(code).second) return Verdict::kRefused;
    return Box(Verdict::kRefused, "Privileges", "Denied due to privilege settings");
}

Link::Verdict Link::CountRepeat(int& repeat_count, const char* title) {
    ++repeat_count;
    form_.Label4.SetCaption("Command Repeat " + std::to_string(repeat_count));
    if (repeat_count < kMostTransmissions) return Verdict::kRepeat;
    return Box(Verdict::kCorrupted, title, kCorrupted);
}

Link::Verdict Link::JudgeReply(int& repeat_count) {
    const std::string& frame = session_.FrameBuffer;
    // This tests the transmitted frame, not the reply.
    if (frame.substr(0, 2) != std::string{kDle, kStx}) {
        const Verdict verdict = CountRepeat(repeat_count, "Comms Clash1!");
        if (verdict == Verdict::kCorrupted) {
            form_.timTimeout.SetEnabled(false);
            if (disconnect) disconnect();
        }
        return verdict;
    }
    // The raw reply, before any echo test.
    if (ByteAt(session_.ReplyBuffer, 5) == kRefusedByPrivileges) {
        return RefusedByPrivileges();
    }
    const std::string sent = frame.substr(0, frame.size() - 3);
    const std::string received = session_.ReplyBuffer.substr(0, sent.size());
    if (sent == received) {
        refused_polls_.erase(ByteAt(sent, 4));
        return Verdict::kDone;
    }
    // The count comes before the exceptions.
    if (CountRepeat(repeat_count, "Comms Clash2!") == Verdict::kCorrupted) {
        return Verdict::kCorrupted;
    }
    return JudgeException(sent, received);
}

Link::Verdict Link::JudgeException(const std::string& sent, const std::string& received) {
    const int code = ByteAt(sent, 4);
    const bool to_relay = ByteAt(sent, 3) == (session_.RelayAddress & 0xFF);
    if (to_relay && code == kWriteUnitID) {
        // A unit that has taken a new ID answers from the new address.
        const int new_id = ByteAt(sent, 9);
        if (new_id >= 0 && ByteAt(received, 3) == new_id) return Verdict::kDone;
        return Box(Verdict::kCorrupted, "", "Problem writing ID. Please try again.");
    }
    if (to_relay && code == kReadSerialNumber) {
        // Any unit may answer it from a low address.
        const int address = ByteAt(received, 3);
        if (address >= 0 && address <= 4 && ByteAt(received, 4) == kReadSerialNumber) {
            return Verdict::kDone;
        }
    }
    if (ByteAt(received, 5) == kRefusedByPrivileges) {
        return RefusedByPrivileges();
    }
    if (to_relay && code == kOneWireMemory && ByteAt(received, 3) == ByteAt(sent, 3) &&
        ByteAt(received, 4) == kOneWireMemory && ByteAt(received, 5) == kRefusedByOneWire) {
        return Verdict::kRefused;
    }
    return Verdict::kRepeat;
}

bool Link::SendUnchecked(std::string& text) { return SendAndWait(text, nullptr, {}); }

bool Link::Poll(std::string& text, bool& waiting, const std::function<bool()>& pointless) {
    return SendAndWait(text, &waiting, pointless);
}

bool Link::SendAndWait(std::string& text, bool* poll_waiting,
                       const std::function<bool()>& pointless) {
    const std::uint64_t exchange = BeginExchange(text);
    AddEscapesAndChecksum(text);
    const bool may_send = MaySend(exchange);
    if (may_send) {
        session_.FrameBuffer = FrameOf(text);
        SendRaw(session_.FrameBuffer);
        journal_.CountSent(exchange);
        ShowSent(text);
    }
    if (!may_send || (poll_waiting && *poll_waiting)) {
        EndExchange(exchange, may_send ? Exchange::End::kNotAwaited : Exchange::End::kNotSent);
        return false;
    }
    if (poll_waiting) *poll_waiting = true;
    WaitForReply(pointless);
    if (poll_waiting) *poll_waiting = false;
    const bool stale = current_ && current_->Stale();
    const bool given_up = pointless && pointless();
    const auto end = given_up ? Exchange::End::kNotAwaited : EndOfUnchecked();
    EndExchange(exchange, stale ? Exchange::End::kLineLost : end);
    return !stale && !given_up;
}

// The sender looks at nothing, the journal does: a refusal is a reply without data, and any other
// reply repeats at least the marks, the address and the code.
Exchange::End Link::EndOfUnchecked() const {
    constexpr std::size_t kLongestRefusal = 9;  // with a doubled checksum
    constexpr std::size_t kHead = 4;
    const std::string& reply = session_.ReplyBuffer;
    if (seen_ == Seen::kTimeout) return Exchange::End::kNoAnswer;
    if (ByteAt(reply, 5) == kRefusedByPrivileges && reply.size() <= kLongestRefusal) {
        return Exchange::End::kRefused;
    }
    const bool echo = reply.substr(0, kHead) == session_.FrameBuffer.substr(0, kHead);
    return echo ? Exchange::End::kAccepted : Exchange::End::kCorrupted;
}

void Link::MdWait(std::chrono::milliseconds time) {
    if (waits_ >= kDeepestWait || time.count() <= 0) return;
    const Depth depth(waits_);
    bool over = false;
    const auto timer = platform_.timers.NewTimer([&over] { over = true; });
    timer->Start(time);
    while (!over && !Released()) platform_.loop.Pump();
}

}  // namespace kestrane
