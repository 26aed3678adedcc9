#include "macro/transfer_blocks.h"

#include "link/frame.h"
#include "macro/macro_memory.h"
#include "text/text.h"

namespace kestrane {
namespace {

std::string Hex(int value) { return HexByte(static_cast<std::uint8_t>(value)); }

// An address of the unit's memory holds half an instruction.
std::string MacroAddresses(int first, int last) {
    constexpr int kBegin = MacroMemory::kProgramBegin;
    return Hex((kBegin + kBlockSize * first) / 2) + " to " +
           Hex((kBegin + kBlockSize * (last + 1) - 1) / 2);
}

}  // namespace

const BlockRun kProgramRun = {MacroMemory::kProgramBegin,
                              (MacroMemory::kProgramEnd - MacroMemory::kProgramBegin) / kBlockSize,
                              "blocks", MacroAddresses};

TransferBlocks::TransferBlocks(const Journal& journal, std::uint64_t after, bool writes, int board,
                               const BlockRun& run)
    : run_(run) {
    for (const Exchange& exchange : journal.exchanges()) {
        const int offset = exchange.address - run.first_address;
        if (exchange.number <= after || exchange.board != board || offset < 0) continue;
        if (!(writes ? exchange.IsWrite() : exchange.IsRead())) continue;
        if (offset % kBlockSize == 0 && offset / kBlockSize < run.count) {
            last_[offset / kBlockSize] = {exchange.end, exchange.times_sent};
        }
    }
}

int TransferBlocks::FirstFailed() const {
    for (int block = 0; block < run_.count; ++block) {
        const auto last = last_.find(block);
        if (last == last_.end() || last->second.end != Exchange::End::kAccepted) return block;
    }
    return run_.count;
}

std::string TransferBlocks::Failure(int block) const {
    if (block >= run_.count) return {};
    const int address = run_.first_address + kBlockSize * block;
    const std::string text = "block " + Hex(address >> 8) + Hex(address & 0xFF) + ": ";
    const auto last = last_.find(block);
    if (last == last_.end()) return text + "not sent; connect again";
    const Exchange::End end = last->second.end;
    if (end == Exchange::End::kAccepted) return {};
    return text + EndInWords(end) +
           (end == Exchange::End::kRefused ? "; connect on a control port that has the right"
                                           : "; check unit and line, and try again");
}

TransferBlocks::Holds TransferBlocks::AfterWrite(int block) const {
    const auto last = last_.find(block);
    if (last == last_.end()) return Holds::kOld;
    const auto [end, times_sent] = last->second;
    if (end == Exchange::End::kAccepted) return Holds::kNew;
    return end == Exchange::End::kRefused || times_sent == 0 ? Holds::kOld : Holds::kEither;
}

// "10 to 27 and 30 to 37": the blocks that hold this.
std::string TransferBlocks::Ranges(Holds wanted) const {
    std::string ranges;
    for (int block = 0; block < run_.count; ++block) {
        if (AfterWrite(block) != wanted) continue;
        const int first = block;
        while (block + 1 < run_.count && AfterWrite(block + 1) == wanted) ++block;
        ranges += (ranges.empty() ? "" : " and ") + run_.range(first, block);
    }
    return ranges;
}

std::string TransferBlocks::WhatUnitHolds() const {
    const std::string noun(run_.noun);
    const std::string written = Ranges(Holds::kNew);
    const std::string either = Ranges(Holds::kEither);
    const bool any_old = !Ranges(Holds::kOld).empty();
    if (either.empty() && !any_old) return "all " + noun + " are new";
    if (UnitUntouched()) return "all " + noun + " are old";
    std::string text = written.empty() ? "" : noun + " " + written + " are new";
    if (!either.empty()) {
        text += (text.empty() ? noun + " " : ", ") + either + " may be either";
    }
    return text + (any_old ? ", the rest old" : "");
}

bool TransferBlocks::UnitUntouched() const {
    return Ranges(Holds::kNew).empty() && Ranges(Holds::kEither).empty();
}

std::uint64_t LastExchange(const Journal& journal) {
    return journal.exchanges().empty() ? 0 : journal.exchanges().back().number;
}

}  // namespace kestrane
