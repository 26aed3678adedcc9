#pragma once

// What happened, in sentences: the last outcome for the strip below the tabs and the history of
// the run. What is said of reads and writes is taken from the journal, and of connections from
// the state of the socket, never from captions.

#include <deque>
#include <functional>
#include <string>

#include "tool/tool.h"

namespace kestrane {

enum class MessageKind { kGood, kWarning, kFault };
// "good", "warning", "fault".
const char* KindInWords(MessageKind kind);

struct Message {
    std::uint32_t when = 0;  // milliseconds of the platform's clock
    MessageKind kind = MessageKind::kGood;
    std::string text;  // ASCII, or UTF-8 where it names a file
};

class Messages : public JournalObserver {
  public:
    static constexpr std::size_t kMost = 1000;

    explicit Messages(Tool& tool);
    ~Messages() override;
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    void Add(MessageKind kind, std::string text);
    // Oldest first.
    const std::deque<Message>& All() const { return messages_; }
    void OnAdded(std::function<void(const Message&)> observer);

    // After a connection stands: with what the operator has typed as host and port.
    void OnConnected(std::function<void(const std::string&, const std::string&)> observer) {
        connected_.push_back(std::move(observer));
    }

    // Looks at the socket: after each event, by whoever runs the events.
    void Look();

    void OperationEnded(const OperationRecord& operation) override;

  private:
    void Connecting();

    Tool& tool_;
    std::deque<Message> messages_;
    std::vector<std::function<void(const Message&)>> observers_;
    std::vector<std::function<void(const std::string&, const std::string&)>> connected_;
    SocketState state_ = SocketState::kClosed;
    std::string peer_;  // "10.0.0.7:1243"
};

// The outcome of an operation in a sentence. `peer` is the unit's address and port, `port` the
// letter of the control port or empty, `timeout` what the operator has set.
Message OutcomeOf(const OperationRecord& operation, const Journal& journal, const std::string& peer,
                  const std::string& port, const std::string& timeout);

}  // namespace kestrane
