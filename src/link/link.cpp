#include "link/link.h"

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
Link::Operation::Operation(Link& link)
    : link_(link),
      outer_(link.current_),
      connection_(link.connection_),
      outer_frame_(outer_ ? link.session_.FrameBuffer : std::string()) {
    link_.current_ = this;
}

Link::Operation::~Operation() {
    link_.current_ = outer_;
    if (outer_) link_.session_.FrameBuffer = outer_frame_;
}

void Link::NewConnection() {
    if (waits_ > kMostAbandonedWaits) released_ = connections_;
    connection_ = ++connections_;
}

void Link::EndConnection() { connection_ = 0; }

bool Link::MaySend() const { return !(current_ && current_->Stale()) && waits_ < kDeepestWait; }

bool Link::Command(std::string command) {
    SendCommand(command);
    return session_.CommandDone;
}

void Link::SendCommand(std::string& strCommand) {
    session_.CommandDone = false;
    int repeat_count = 0;
    AddEscapesAndChecksum(strCommand);
    if (!MaySend()) return;
    session_.FrameBuffer = FrameOf(strCommand);
    while (!session_.CommandDone) {
        form_.timTimeout.SetEnabled(true);
        SendRaw(session_.FrameBuffer);
        ShowSent(strCommand);
        form_.Label4.SetCaption(kWaiting);
        WaitForReply();
        if (current_ && current_->Stale()) {
            session_.CommandDone = false;
            break;
        }
        if (form_.Label3.Caption() == kTimedOut) break;  // final: not sent again
        const Verdict verdict = JudgeReply(repeat_count);
        if (verdict == Verdict::kLeave || (current_ && current_->Stale())) {
            session_.CommandDone = false;
            break;
        }
        session_.CommandDone = verdict == Verdict::kDone;
        form_.timTimeout.SetEnabled(false);
    }
    form_.timTimeout.SetEnabled(false);
}

void Link::SendRaw(const std::string& frame) {
    ++frames_sent_;
    platform_.tcpsend.Send(frame);
}

void Link::ShowSent(const std::string& escaped) {
    form_.Label2.SetCaption(FrameAsHex(escaped));
    form_.Label1.SetCaption(kWaiting);
    form_.Label3.SetCaption(kWaiting);
}

// Nothing but a change of Label3 ends this wait: bytes, or the timeout. Only where too many waits
// of lost connections stand on the stack does the next connect end them.
void Link::WaitForReply() {
    const Depth depth(waits_);
    const Depth reply_depth(reply_waits_);
    while (form_.Label3.Caption() == kWaiting) {
        if (current_ && current_->Stale() && current_->connection_ <= released_) return;
        platform_.loop.Pump();
    }
}

bool Link::ReplyUnseen() const {
    return reply_waits_ > 0 && form_.Label3.Caption() != kWaiting;
}

Link::Verdict Link::Box(const char* title, const char* text) {
    platform_.boxes.Show(title, text, {BoxButton::kOk});
    return Verdict::kLeave;
}

Link::Verdict Link::CountRepeat(int& repeat_count, const char* title) {
    ++repeat_count;
    form_.Label4.SetCaption("Command Repeat " + std::to_string(repeat_count));
    if (repeat_count < kMostTransmissions) return Verdict::kRepeat;
    return Box(title, kCorrupted);
}

Link::Verdict Link::JudgeReply(int& repeat_count) {
    const std::string& frame = session_.FrameBuffer;
    // This tests the transmitted frame, not the reply.
    if (frame.substr(0, 2) != std::string{kDle, kStx}) {
        const Verdict verdict = CountRepeat(repeat_count, "Comms Clash1!");
        if (verdict == Verdict::kLeave) {
            form_.timTimeout.SetEnabled(false);
            if (disconnect) disconnect();
        }
        return verdict;
    }
    // The raw reply, before any echo test.
    if (ByteAt(session_.ReplyBuffer, 5) == kRefusedByPrivileges) {
        return Box("Privileges", "Denied due to privilege settings");
    }
    const std::string sent = frame.substr(0, frame.size() - 3);
    const std::string received = session_.ReplyBuffer.substr(0, sent.size());
    if (sent == received) return Verdict::kDone;
    // The count comes before the exceptions.
    if (CountRepeat(repeat_count, "Comms Clash2!") == Verdict::kLeave) return Verdict::kLeave;
    return JudgeException(sent, received);
}

Link::Verdict Link::JudgeException(const std::string& sent, const std::string& received) {
    const int code = ByteAt(sent, 4);
    const bool to_relay = ByteAt(sent, 3) == (session_.RelayAddress & 0xFF);
    if (to_relay && code == kWriteUnitID) {
        // A unit that has taken a new ID answers from the new address.
        const int new_id = ByteAt(sent, 9);
        if (new_id >= 0 && ByteAt(received, 3) == new_id) return Verdict::kDone;
        return Box("", "Problem writing ID. Please try again.");
    }
    if (to_relay && code == kReadSerialNumber) {
        // Any unit may answer it from a low address.
        const int address = ByteAt(received, 3);
        if (address >= 0 && address <= 4 && ByteAt(received, 4) == kReadSerialNumber) {
            return Verdict::kDone;
        }
    }
    if (ByteAt(received, 5) == kRefusedByPrivileges) {
        return Box("Privileges", "Denied due to privilege settings");
    }
    if (to_relay && code == kOneWireMemory && ByteAt(received, 3) == ByteAt(sent, 3) &&
        ByteAt(received, 4) == kOneWireMemory && ByteAt(received, 5) == kRefusedByOneWire) {
        return Verdict::kLeave;
    }
    return Verdict::kRepeat;
}

bool Link::SendUnchecked(std::string& text) {
    bool waiting = false;
    return Poll(text, waiting);
}

bool Link::Poll(std::string& text, bool& waiting) {
    AddEscapesAndChecksum(text);
    if (!MaySend()) return false;
    session_.FrameBuffer = FrameOf(text);
    SendRaw(session_.FrameBuffer);
    ShowSent(text);
    if (waiting) return false;
    waiting = true;
    WaitForReply();
    waiting = false;
    return !(current_ && current_->Stale());
}

void Link::MdWait(std::chrono::milliseconds time) {
    if (waits_ >= kDeepestWait || time.count() <= 0) return;
    const Depth depth(waits_);
    bool over = false;
    const auto timer = platform_.timers.NewTimer([&over] { over = true; });
    timer->Start(time);
    while (!over) platform_.loop.Pump();
}

}  // namespace kestrane
