#include "cli/macro_blocks.h"

#include "link/frame.h"
#include "text/text.h"

namespace kestrane {

TransferBlocks::TransferBlocks(const Journal& journal, std::uint64_t after, bool writes, int board,
                               int first_address, int count)
    : first_address_(first_address), count_(count) {
    for (const Exchange& exchange : journal.exchanges()) {
        const int offset = exchange.address - first_address;
        if (exchange.number <= after || exchange.board != board || offset < 0) continue;
        if (!(writes ? exchange.IsWrite() : exchange.IsRead())) continue;
        if (offset % kBlockSize == 0 && offset / kBlockSize < count) {
            ends_[offset / kBlockSize] = exchange.end;
        }
    }
}

int TransferBlocks::FirstFailed() const {
    for (int block = 0; block < count_; ++block) {
        const auto end = ends_.find(block);
        if (end == ends_.end() || end->second != Exchange::End::kAccepted) return block;
    }
    return count_;
}

std::string TransferBlocks::Failure(int block) const {
    if (block >= count_) return {};
    const int address = first_address_ + kBlockSize * block;
    const auto end = ends_.find(block);
    const std::string block_text = "block " + HexByte(static_cast<std::uint8_t>(address >> 8)) +
                                   HexByte(static_cast<std::uint8_t>(address)) + ": ";
    if (end == ends_.end()) return block_text + "not sent; connect again";
    const bool refused = end->second == Exchange::End::kRefused;
    return block_text + EndInWords(end->second) +
           (refused ? "; connect on a control port that has the right"
                    : "; check unit and line, and try again");
}

std::string TransferBlocks::StateOf(int block) const {
    const auto end = ends_.find(block);
    if (end == ends_.end()) return " old";
    switch (end->second) {
        case Exchange::End::kAccepted:
            return " new";
        case Exchange::End::kRefused:
        case Exchange::End::kNotSent:
            return " old";
        default:
            return " new or old, no answer says which";
    }
}

std::uint64_t LastExchange(const Journal& journal) {
    return journal.exchanges().empty() ? 0 : journal.exchanges().back().number;
}

}  // namespace kestrane
