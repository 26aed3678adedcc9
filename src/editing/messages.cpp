#include "editing/messages.h"

#include "editing/pending_changes.h"

namespace kestrane {
namespace {

using End = Exchange::End;

// "Channel Names" of "Write Channel Names".
std::string Subject(const std::string& name) {
    const auto blank = name.find(' ');
    return blank == std::string::npos ? name : name.substr(blank + 1);
}

struct Writes {
    int planned = 0;  // 0: not known
    int accepted = 0;
    bool in_a_row = true;   // the accepted ones are the first
    bool doubtful = false;  // sent, and nobody knows whether it was taken
};

Writes WritesOf(const OperationRecord& operation, const Journal& journal) {
    Writes writes;
    writes.planned = operation.planned_writes;
    int tried = 0;
    for (const auto number : operation.exchanges) {
        const Exchange* exchange = journal.FindExchange(number);
        if (!exchange || !exchange->IsWrite()) continue;
        ++tried;
        if (exchange->Accepted()) writes.in_a_row = ++writes.accepted == tried;
        const bool unanswered = exchange->end == End::kNoAnswer ||
                                exchange->end == End::kCorrupted || exchange->end == End::kLineLost;
        if (unanswered && exchange->times_sent > 0) writes.doubtful = true;
    }
    return writes;
}

// "Blocks 1 to 5 of 14 were".
std::string Blocks(const Writes& writes) {
    const std::string count = std::to_string(writes.accepted);
    const std::string of = " of " + std::to_string(writes.planned);
    if (writes.planned == 0) return writes.accepted == 1 ? "1 block was" : count + " blocks were";
    if (!writes.in_a_row) return count + of + " blocks were";
    return writes.accepted == 1 ? "Block 1" + of + " was" : "Blocks 1 to " + count + of + " were";
}

std::string WhatWasWritten(const Writes& writes) {
    std::string text = writes.doubtful ? "No block was confirmed" : "Nothing was written";
    if (writes.accepted > 0) text = Blocks(writes) + " written before";
    if (writes.doubtful) text += "; one more was sent and its answer did not come";
    return text + ".";
}

std::string WhyItStopped(const Exchange* failed, const OperationRecord& operation,
                         const std::string& peer, const std::string& port,
                         const std::string& timeout) {
    if (operation.end == OperationRecord::End::kOvertaken) return "the line was lost";
    if (!failed) return operation.why.empty() ? "it was stopped" : operation.why;
    switch (failed->end) {
        case End::kRefused:
            return port.empty() ? "denied by the privileges of this port"
                                : "denied on port " + port + " by its privileges";
        case End::kNoAnswer:
            return "no answer from " + peer + " in " + timeout + " s";
        case End::kCorrupted:
            return "the answers came back corrupted";
        case End::kLineLost:
            return "the line was lost";
        case End::kNotSent:
            return "there was no connection to send it on";
        default:
            return operation.why.empty() ? "it was stopped" : operation.why;
    }
}

bool AsksForNewConnection(const Exchange* failed) {
    return failed && (failed->end == End::kNoAnswer || failed->end == End::kCorrupted);
}

Message Completed(const OperationRecord& operation) {
    Message message;
    if (!IsWriteOperation(operation.name)) {
        message.text = operation.name + ": done.";
    } else {
        message.text = "Written: " + Subject(operation.name) + ".";
        const std::string_view tab = TabOfOperation(operation.name);
        if (operation.name == "Write Network Settings" || tab == "names") {
            message.text += " Takes effect after Reset Ethernet Processor.";
        }
    }
    for (const Skipped& skipped : operation.skipped) {
        message.kind = MessageKind::kWarning;
        message.text += " Not the " + skipped.what + ": " + skipped.why + ".";
    }
    return message;
}

}  // namespace

const char* KindInWords(MessageKind kind) {
    switch (kind) {
        case MessageKind::kGood:
            return "good";
        case MessageKind::kWarning:
            return "warning";
        case MessageKind::kFault:
            return "fault";
    }
    return "";
}

Message OutcomeOf(const OperationRecord& operation, const Journal& journal, const std::string& peer,
                  const std::string& port, const std::string& timeout) {
    if (operation.Complete()) return Completed(operation);
    const Exchange* failed =
        operation.stopped_at ? journal.FindExchange(operation.stopped_at) : nullptr;
    Message message;
    message.kind =
        failed && failed->end == End::kRefused ? MessageKind::kWarning : MessageKind::kFault;
    if (!failed && operation.end == OperationRecord::End::kStopped) {
        message.kind = MessageKind::kWarning;
    }
    message.text =
        operation.name + ": " + WhyItStopped(failed, operation, peer, port, timeout) + ".";
    const Writes writes = WritesOf(operation, journal);
    const bool writing = IsWriteOperation(operation.name) || writes.accepted > 0;
    if (writing || writes.doubtful) message.text += " " + WhatWasWritten(writes);
    if (AsksForNewConnection(failed)) message.text += " Disconnect and connect again.";
    return message;
}

Messages::Messages(Tool& tool) : tool_(tool) {
    tool.link.journal().AddObserver(*this);
    tool.macro_editor.state().on_file = [this](bool good, const std::string& text) {
        Add(good ? MessageKind::kGood : MessageKind::kFault, text);
    };
}

Messages::~Messages() {
    tool_.macro_editor.state().on_file = nullptr;
    tool_.link.journal().RemoveObserver(*this);
}

void Messages::OnAdded(std::function<void(const Message&)> observer) {
    observers_.push_back(std::move(observer));
}

void Messages::Add(MessageKind kind, std::string text) {
    messages_.push_back({tool_.screen.platform().clock.TickCount(), kind, std::move(text)});
    if (messages_.size() > kMost) messages_.pop_front();
    const Message added = messages_.back();
    for (const auto& observer : observers_) observer(added);
}

void Messages::OperationEnded(const OperationRecord& operation) {
    const int port = tool_.session.ConnectedPortIndex;
    Message message = OutcomeOf(operation, tool_.link.journal(), peer_,
                                port >= 1 && port <= 3 ? std::string(1, "ABC"[port - 1]) : "",
                                tool_.main_form.txtTimeout.Text());
    Add(message.kind, std::move(message.text));
}

void Messages::Connecting() {
    const MainForm& form = tool_.main_form;
    peer_ = form.txtCurrentIPAddress.Text() + ":" + form.txtCurrentPort.Text();
}

void Messages::Look() {
    const SocketState now = tool_.link.platform().tcpsend.State();
    const SocketState before = state_;
    if (now == before) return;
    state_ = now;
    switch (now) {
        case SocketState::kConnected:
            Connecting();
            Add(MessageKind::kGood, "Connected to " + peer_ + ".");
            for (const auto& observer : connected_) {
                observer(tool_.main_form.txtCurrentIPAddress.Text(),
                         tool_.main_form.txtCurrentPort.Text());
            }
            break;
        case SocketState::kError:
            if (before == SocketState::kConnected) {
                Add(MessageKind::kFault, "The line to " + peer_ + " was lost.");
            } else {
                Connecting();
                Add(MessageKind::kFault,
                    "No connection to " + peer_ + ": refused, unreachable or no such host.");
            }
            break;
        case SocketState::kPeerClosing:
            Add(MessageKind::kFault, peer_ + " has closed the connection.");
            break;
        case SocketState::kClosed:
            if (before == SocketState::kConnected) {
                Add(MessageKind::kGood, "Disconnected from " + peer_ + ".");
            }
            break;
        default:
            break;
    }
}

}  // namespace kestrane
