#pragma once

// The one way to the unit: a request, an echo, one command in flight. The outcome of a command is
// Session::CommandDone and, on success, Session::ReplyBuffer. What was sent and how it ended is
// kept in the journal.
//
// An Operation ties what a handler sends to the connection that it began on. When that connection
// is gone its commands fail at once, so that no byte of it reaches another unit.

#include <chrono>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "link/frame.h"
#include "link/journal.h"
#include "link/session.h"
#include "platform/platform.h"
#include "screen/main_form.h"

namespace kestrane {

class Link {
  public:
    Link(MainForm& form, Session& session, const Platform& platform);

    // One handler's work on the wire, from its construction to its end. Operations nest as
    // handlers do that run inside each other's waits. The journal calls it by `name`; an empty
    // name keeps it out of the journal, as a poll is.
    class Operation {
      public:
        Operation(Link& link, const char* name);
        ~Operation();
        Operation(const Operation&) = delete;
        Operation& operator=(const Operation&) = delete;

        // The connection that it began on is gone: nothing may be sent, and nothing that it holds
        // may be written over what a newer connection has read.
        bool Stale() const { return connection_ != link_.connection_; }

        // For the journal: how many blocks it means to write; what is left out on purpose; that it
        // stops here though every exchange went well; that a failed exchange is part of how it
        // goes.
        void PlanWrites(int blocks);
        void Skip(std::string what, std::string why);
        void Stop(std::string why);
        void Forgive();

      private:
        friend class Link;
        Link& link_;
        std::uint64_t number_;
        Operation* outer_;
        int connection_;
        std::string outer_frame_;
    };

    // Sends a command (address, code, arguments; without marks, doubling and checksum) and waits
    // for its echo, repeating it 3 times at most. `strCommand` comes back changed in place: its
    // 0x10 doubled, its checksum appended. Every caller tests CommandDone. Boxes tell the operator
    // of refusals and corrupted replies; silence is final and has no box.
    void SendCommand(std::string& strCommand);
    // The same for a command built on the spot: true if its reply was accepted.
    bool Command(std::string command);
    // Reads memory: the `count` data bytes, undoubled. Nothing if the command failed or its reply
    // holds fewer; ReplyBuffer holds the undoubled reply then and otherwise.
    std::optional<std::string> Read(int board, int address, int count = kBlockSize);
    // Writes memory, `data` as it is: true if the unit took it.
    bool Write(int board, int address, std::string_view data);

    // Sends a command and waits for any bytes, without a limit, a test or a repeat. False if its
    // connection went first, and then nothing has come.
    bool SendUnchecked(std::string& text);

    // A poll of a kind named by `waiting`: as SendUnchecked, but if a poll of the same kind is
    // waiting already, the frame is sent and false returned at once; the reply is the other's.
    // The wait ends, and false is returned, as soon as `pointless` says so.
    bool Poll(std::string& text, bool& waiting, const std::function<bool()>& pointless = {});

    // A reply has come that the wait for it has not seen yet. A frame sent now would hide it: what
    // sends by a timer leaves it then, or a timer in step with the reader could do so for ever.
    bool ReplyUnseen() const;

    // Undoes the doubling in ReplyBuffer, in place.
    void RemoveReplyEscapes() { RemoveEscapes(session_.ReplyBuffer); }

    // The reader has put bytes into ReplyBuffer, or the reply timeout has run out. What comes
    // first decides the wait, whatever else the same pump brings.
    void BytesCame();
    void TimedOut();

    // Handles events for at least this time. Above kDeepestWait nested waits it returns at once.
    void MdWait(std::chrono::milliseconds time);

    bool Connected() const { return platform_.tcpsend.State() == SocketState::kConnected; }

    // Counts the frames sent so far, so that a caller can tell whether another came in between.
    unsigned FramesSent() const { return frames_sent_; }
    // Sends a command in a frame that is built already, awaiting nothing.
    void SendUnawaited(std::string_view command, const std::string& frame);

    // Ends every wait that a lost connection has left behind, and those of operations that go on
    // in vain. For callers that have nobody to connect anew.
    void ReleaseWaits() { released_ = connections_; }

    // From now on nothing is sent that writes: the operation under way stops after the block that
    // it is at, as if the line had gone there, and reads go on.
    void HoldWrites() { writes_held_ = true; }
    bool WritesHeld() const { return writes_held_; }

    // A new connection begins, or the present one ends; operations of the old one become stale.
    void NewConnection();
    void EndConnection();
    // The connection's number, to recognise it later; 0 when there is none.
    int connection() const { return connection_; }

    // Whether an operation of the present connection is under way.
    bool Busy() const;
    // Runs `action` now, or when the operation under way has ended. A later call takes its place.
    void WhenIdle(std::function<void()> action);

    const Journal& journal() const { return journal_; }
    Journal& journal() { return journal_; }

    // Runs the disconnect routine; set by the supervision.
    std::function<void()> disconnect;

    const Platform& platform() const { return platform_; }

  private:
    // Waits may nest inside each other only so deep.
    static constexpr int kDeepestWait = 64;
    // A connect made above this many waits ends those that an earlier connection left behind.
    static constexpr int kMostAbandonedWaits = 24;

    enum class Verdict { kDone, kRepeat, kRefused, kCorrupted };
    enum class Seen { kNothing, kBytes, kTimeout };

    bool MaySend(std::uint64_t exchange) const;
    std::uint64_t BeginExchange(std::string_view command);
    void EndExchange(std::uint64_t exchange, Exchange::End end);
    Exchange::End Transmit(const std::string& escaped, std::uint64_t exchange);
    bool SendAndWait(std::string& text, bool* poll_waiting, const std::function<bool()>& pointless);
    Exchange::End EndOfUnchecked() const;
    void SendRaw(const std::string& frame);
    bool Released() const;
    void WaitForReply(const std::function<bool()>& pointless = {});
    void ShowSent(const std::string& escaped);
    Verdict JudgeReply(int& repeat_count);
    Verdict JudgeException(const std::string& sent, const std::string& received);
    Verdict CountRepeat(int& repeat_count, const char* title);
    Verdict RefusedByPrivileges();
    Verdict Box(Verdict verdict, const char* title, const char* text);

    MainForm& form_;
    Session& session_;
    Platform platform_;
    Journal journal_;
    Operation* current_ = nullptr;
    std::function<void()> when_idle_;
    Seen seen_ = Seen::kNothing;  // since the last frame went out
    std::string first_reply_;
    std::set<int> refused_polls_;  // command codes
    bool writes_held_ = false;
    int connection_ = 0;
    int connections_ = 0;
    int released_ = 0;  // waits of connections up to this one end at once
    int waits_ = 0;
    int reply_waits_ = 0;  // those of them that wait for a reply
    unsigned frames_sent_ = 0;
};

}  // namespace kestrane
