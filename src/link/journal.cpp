#include "link/journal.h"

#include <algorithm>
#include <utility>

#include "link/frame.h"
#include "text/text.h"

namespace kestrane {
namespace {

template <class Records>
auto* Find(Records& records, std::uint64_t number) {
    const auto found = std::lower_bound(
        records.begin(), records.end(), number,
        [](const auto& record, std::uint64_t wanted) { return record.number < wanted; });
    return found != records.end() && found->number == number ? &*found : nullptr;
}

}  // namespace

bool Exchange::IsWrite() const {
    switch (command) {
        case kWriteMemory:
        case kEnterBootloader:
        case kResetEthernet:
        case kWriteUnitID:
        case kWriteLiveData:
        case kMacroGoTo:
        case kOneWireReset:
            return true;
        case kOneWireMemory:
            return ByteAt(data, 1) != kOneWireReadLive;
        default:
            return false;
    }
}

bool Exchange::Failed() const {
    return Ended() && end != End::kAccepted && end != End::kNotAwaited;
}

bool Exchange::IsRead() const { return command == kReadMemory; }

const Exchange* Journal::FindExchange(std::uint64_t number) const {
    return Find(exchanges_, number);
}

const OperationRecord* Journal::FindOperation(std::uint64_t number) const {
    return Find(operations_, number);
}

Exchange* Journal::MutableExchange(std::uint64_t number) {
    Exchange* const kept = Find(exchanges_, number);
    return kept ? kept : Find(polls_, number);
}

OperationRecord* Journal::MutableOperation(std::uint64_t number) {
    return Find(operations_, number);
}

std::uint64_t Journal::BeginOperation(std::string name, int connection) {
    OperationRecord record;
    record.number = ++last_operation_;
    record.name = std::move(name);
    record.connection = connection;
    operations_.push_back(std::move(record));
    if (operations_.size() > kMostOperations) operations_.pop_front();
    for (JournalObserver* observer : observers_) observer->OperationBegan(operations_.back());
    return last_operation_;
}

void Journal::PlanWrites(std::uint64_t operation, int blocks) {
    if (OperationRecord* record = MutableOperation(operation)) record->planned_writes = blocks;
}

void Journal::Skip(std::uint64_t operation, Skipped skipped) {
    if (OperationRecord* record = MutableOperation(operation)) {
        record->skipped.push_back(std::move(skipped));
    }
}

void Journal::Stop(std::uint64_t operation, std::string why) {
    OperationRecord* const record = MutableOperation(operation);
    if (record && record->why.empty()) record->why = std::move(why);
}

void Journal::Forgive(std::uint64_t operation) {
    if (OperationRecord* record = MutableOperation(operation)) record->stopped_at = 0;
}

void Journal::EndOperation(std::uint64_t operation) {
    OperationRecord* const record = MutableOperation(operation);
    if (!record) return;
    if (record->exchanges.empty() && record->skipped.empty()) Stop(operation, "nothing was sent");
    const bool stopped = record->stopped_at != 0 || !record->why.empty();
    Finish(*record, stopped ? OperationRecord::End::kStopped : OperationRecord::End::kComplete);
}

void Journal::Finish(OperationRecord& operation, OperationRecord::End end) {
    if (operation.end != OperationRecord::End::kRunning) return;
    operation.end = end;
    for (JournalObserver* observer : observers_) observer->OperationEnded(operation);
}

std::uint64_t Journal::BeginExchange(Exchange exchange) {
    exchange.number = ++last_exchange_;
    OperationRecord* const operation = MutableOperation(exchange.operation);
    std::deque<Exchange>& records = exchange.poll ? polls_ : exchanges_;
    if (operation) operation->exchanges.push_back(exchange.number);
    records.push_back(std::move(exchange));
    if (records.size() > kMostExchanges) records.pop_front();
    for (JournalObserver* observer : observers_) observer->ExchangeBegan(records.back());
    return last_exchange_;
}

void Journal::CountSent(std::uint64_t exchange) {
    if (Exchange* record = MutableExchange(exchange)) ++record->times_sent;
}

void Journal::EndExchange(std::uint64_t exchange, Exchange::End end, std::string data) {
    Exchange* const record = MutableExchange(exchange);
    if (!record || record->Ended()) return;
    if (record->IsRead()) record->data = std::move(data);
    Finish(*record, end);
    if (record->poll) {
        std::erase_if(polls_, [exchange](const Exchange& poll) { return poll.number == exchange; });
    }
}

void Journal::Finish(Exchange& exchange, Exchange::End end) {
    if (exchange.Ended()) return;
    exchange.end = end;
    OperationRecord* const operation = MutableOperation(exchange.operation);
    if (operation && exchange.Failed() && !operation->stopped_at) {
        operation->stopped_at = exchange.number;
    }
    for (JournalObserver* observer : observers_) observer->ExchangeEnded(exchange);
}

// From the newest back: what is under way stands near the end.
void Journal::LoseLine(int connection) {
    if (connection == 0) return;
    for (auto at = exchanges_.rbegin(); at != exchanges_.rend(); ++at) {
        if (at->connection == connection) Finish(*at, Exchange::End::kLineLost);
    }
    for (Exchange& poll : polls_) {
        if (poll.connection == connection) Finish(poll, Exchange::End::kLineLost);
    }
    std::erase_if(polls_, [](const Exchange& poll) { return poll.Ended(); });
    for (auto at = operations_.rbegin(); at != operations_.rend(); ++at) {
        if (at->connection == connection) Finish(*at, OperationRecord::End::kOvertaken);
    }
}

const char* EndInWords(Exchange::End end) {
    switch (end) {
        case Exchange::End::kUnderWay:
            return "under way";
        case Exchange::End::kAccepted:
            return "accepted";
        case Exchange::End::kRefused:
            return "refused by the privileges of the port";
        case Exchange::End::kNoAnswer:
            return "not answered";
        case Exchange::End::kCorrupted:
            return "answered with corrupted or missing bytes";
        case Exchange::End::kLineLost:
            return "cut off, as the connection ended";
        case Exchange::End::kNotSent:
            return "not sent, as there is no connection";
        case Exchange::End::kNotAwaited:
            return "sent, and no answer is awaited";
    }
    return "";
}

}  // namespace kestrane
