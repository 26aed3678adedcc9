#pragma once

// What became of the blocks of one transfer, told from the journal.

#include <cstdint>
#include <map>
#include <string>

#include "link/journal.h"

namespace kestrane {

// A run of equal blocks of unit memory, numbered from 0, and how the last exchange of each ended.
class TransferBlocks {
  public:
    // Takes the exchanges after the one numbered `after` that read or write 16 bytes at
    // `first_address` and the blocks that follow it.
    TransferBlocks(const Journal& journal, std::uint64_t after, bool writes, int board,
                   int first_address, int count);

    bool AllAccepted() const { return FirstFailed() == count_; }
    // The number of the first that was not accepted or never sent; the count if there is none.
    int FirstFailed() const;
    // "block 0020: not answered"; for a block that was accepted, empty.
    std::string Failure(int block) const;
    // "10 to 27 are new, 28 to 2F may be new or old, 30 to 7F are old", after a write. `name` gives
    // what a block's first and last element are called.
    template <typename Name>
    std::string State(Name&& name) const {
        std::string text;
        for (int block = 0; block < count_;) {
            int last = block;
            while (last + 1 < count_ && StateOf(last + 1) == StateOf(block)) ++last;
            text += (text.empty() ? "" : ", ") + name(block, last) + StateOf(block);
            block = last + 1;
        }
        return text;
    }

  private:
    std::string StateOf(int block) const;

    int first_address_;
    int count_;
    std::map<int, Exchange::End> ends_;
};

// The number of the newest exchange, to take those after it.
std::uint64_t LastExchange(const Journal& journal);

}  // namespace kestrane
