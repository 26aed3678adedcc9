#include "macro/upload_report.h"

#include <array>

#include "link/frame.h"
#include "macro/macro_memory.h"
#include "text/text.h"

namespace kestrane {
namespace {

enum class Holds { kOld, kNew, kEither };

constexpr std::size_t kBlock = kBlockSize;
constexpr std::size_t kBlocks = (MacroMemory::kProgramEnd - MacroMemory::kProgramBegin) / kBlock;
using Blocks = std::array<Holds, kBlocks>;

Holds AfterWrite(const Exchange& exchange) {
    if (exchange.Accepted()) return Holds::kNew;
    const bool refused = exchange.end == Exchange::End::kRefused;
    return refused || exchange.times_sent == 0 ? Holds::kOld : Holds::kEither;
}

Blocks BlocksAfter(const Journal& journal, std::uint64_t operation) {
    Blocks blocks{};
    for (const Exchange& exchange : journal.exchanges()) {
        if (exchange.operation != operation || exchange.command != kWriteMemory) continue;
        const auto at = static_cast<std::size_t>(exchange.address);
        if (at < MacroMemory::kProgramBegin || at >= MacroMemory::kProgramEnd) continue;
        blocks[(at - MacroMemory::kProgramBegin) / kBlock] = AfterWrite(exchange);
    }
    return blocks;
}

// "10 to 27 and 30 to 37": the macro addresses of the blocks that hold this.
std::string Ranges(const Blocks& blocks, Holds wanted) {
    const auto address = [](std::size_t block) {
        const std::size_t byte = MacroMemory::kProgramBegin + block * kBlock;
        return HexByte(static_cast<std::uint8_t>(byte / 2));
    };
    const auto last = [](std::size_t block) {
        const std::size_t byte = MacroMemory::kProgramBegin + (block + 1) * kBlock - 1;
        return HexByte(static_cast<std::uint8_t>(byte / 2));
    };
    std::string ranges;
    for (std::size_t i = 0; i < kBlocks; ++i) {
        if (blocks[i] != wanted) continue;
        const std::size_t first = i;
        while (i + 1 < kBlocks && blocks[i + 1] == wanted) ++i;
        if (!ranges.empty()) ranges += " and ";
        ranges += address(first) + " to " + last(i);
    }
    return ranges;
}

}  // namespace

std::string WhatUnitHolds(const Journal& journal, std::uint64_t operation) {
    const Blocks blocks = BlocksAfter(journal, operation);
    const std::string written = Ranges(blocks, Holds::kNew);
    const std::string either = Ranges(blocks, Holds::kEither);
    const std::string old = Ranges(blocks, Holds::kOld);
    std::string text = written.empty() ? "no block is new" : "blocks " + written + " are new";
    if (!either.empty()) text += ", " + either + " may be either";
    if (!old.empty()) text += ", the rest old";
    if (either.empty() && old.empty()) text = "all blocks are new";
    return text;
}

}  // namespace kestrane
