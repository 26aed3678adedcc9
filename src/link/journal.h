#pragma once

// What went over the wire and how it ended. Handlers return no status and captions tell only the
// last thing, so everything that says something about a read or a write says it from here. In
// memory only, bounded; polls are told to the observers and not kept, or a day of them would push
// out what matters.

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace kestrane {

// One command and what became of it, repeats included.
struct Exchange {
    enum class End {
        kUnderWay,
        kAccepted,
        kRefused,     // by the privileges of the port, or by the 1-Wire bus
        kNoAnswer,    // the reply timeout
        kCorrupted,   // no echo in four transmissions, or fewer data than were asked for
        kLineLost,    // the connection ended first
        kNotSent,     // there was no connection to send it on
        kNotAwaited,  // sent, and nobody waits for its own answer
    };

    std::uint64_t number = 0;     // from 1
    std::uint64_t operation = 0;  // the operation's number; 0 outside of one
    int connection = 0;           // 0: none
    std::uint32_t began = 0;      // milliseconds of the platform's clock
    int board = 0;                // address byte
    int command = 0;              // code
    int address = -1;             // of a memory command, else -1
    int count = 0;                // bytes asked for or written, of a memory command
    bool poll = false;            // sent outside of any operation with a name, by a timer
    int times_sent = 0;
    End end = End::kUnderWay;
    // A memory write's data; a memory read's data as they came, undoubled; any other command's
    // arguments.
    std::string data;

    bool Ended() const { return end != End::kUnderWay; }
    bool Accepted() const { return end == End::kAccepted; }
    bool Failed() const;
    // It changes the unit: memory, ID, live values, sensors, the running macro, a reset.
    bool IsWrite() const;
    bool IsRead() const;
};

// What an operation left out on purpose: "key of port A", "it is not a complete key".
struct Skipped {
    std::string what;
    std::string why;
};

// What one handler did on the wire.
struct OperationRecord {
    enum class End {
        kRunning,
        kComplete,
        kStopped,    // at a failed exchange, for the reason in `why`, or before the first exchange
        kOvertaken,  // its connection ended first
    };

    std::uint64_t number = 0;  // from 1
    std::string name;          // as an engineer would call it: "Write Channel Names"
    int connection = 0;
    std::vector<std::uint64_t> exchanges;  // their numbers, polls left out
    std::vector<Skipped> skipped;
    int planned_writes = 0;  // blocks that it means to write, in order; 0: not told
    End end = End::kRunning;
    std::uint64_t stopped_at = 0;  // the number of the first exchange that failed; 0: none
    std::string why;               // of a stop without a failed exchange

    bool Complete() const { return end == End::kComplete; }
};

// Called as things happen, in the midst of waits: must not send, pump or change the screen.
class JournalObserver {
  public:
    virtual ~JournalObserver() = default;
    virtual void ExchangeBegan(const Exchange& /*exchange*/) {}
    virtual void ExchangeEnded(const Exchange& /*exchange*/) {}
    virtual void OperationBegan(const OperationRecord& /*operation*/) {}
    virtual void OperationEnded(const OperationRecord& /*operation*/) {}
};

class Journal {
  public:
    static constexpr std::size_t kMostExchanges = 4096;
    static constexpr std::size_t kMostOperations = 512;

    // Oldest first; those that have fallen out of the bounds are gone.
    const std::deque<Exchange>& exchanges() const { return exchanges_; }
    const std::deque<OperationRecord>& operations() const { return operations_; }
    // Null if it is not kept.
    const Exchange* FindExchange(std::uint64_t number) const;
    const OperationRecord* FindOperation(std::uint64_t number) const;
    std::uint64_t last_operation() const { return last_operation_; }

    void AddObserver(JournalObserver& observer) { observers_.push_back(&observer); }
    void RemoveObserver(JournalObserver& observer) { std::erase(observers_, &observer); }

    // For the link. Each begin returns the new record's number.
    std::uint64_t BeginOperation(std::string name, int connection);
    void PlanWrites(std::uint64_t operation, int blocks);
    void Skip(std::uint64_t operation, Skipped skipped);
    void Stop(std::uint64_t operation, std::string why);
    // A failed exchange so far is part of how the operation goes and does not stop it.
    void Forgive(std::uint64_t operation);
    void EndOperation(std::uint64_t operation);
    std::uint64_t BeginExchange(Exchange exchange);
    void CountSent(std::uint64_t exchange);
    void EndExchange(std::uint64_t exchange, Exchange::End end, std::string data);
    // The connection has ended: what is under way on it has lost its line.
    void LoseLine(int connection);

  private:
    Exchange* MutableExchange(std::uint64_t number);
    OperationRecord* MutableOperation(std::uint64_t number);
    void Finish(Exchange& exchange, Exchange::End end);
    void Finish(OperationRecord& operation, OperationRecord::End end);

    std::deque<Exchange> exchanges_;
    std::deque<Exchange> polls_;  // those under way
    std::deque<OperationRecord> operations_;
    std::vector<JournalObserver*> observers_;
    std::uint64_t last_exchange_ = 0;
    std::uint64_t last_operation_ = 0;
};

// "accepted", "refused by the privileges of the port" and so on.
const char* EndInWords(Exchange::End end);

}  // namespace kestrane
