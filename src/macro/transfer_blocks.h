#pragma once

// What became of the blocks of one transfer, told from the journal: for the editor that is closed
// in the midst of an upload, and for the command line.

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "link/journal.h"

namespace kestrane {

// A run of equal blocks of unit memory, numbered from 0, and what an operator calls them.
struct BlockRun {
    int first_address;
    int count;
    std::string_view noun;                      // "blocks"
    std::string (*range)(int first, int last);  // "10 to 27"
};

// The macro program on the relay board; its ranges are macro addresses.
extern const BlockRun kProgramRun;

class TransferBlocks {
  public:
    // Takes the exchanges after the one numbered `after` that read or write blocks of `run`.
    TransferBlocks(const Journal& journal, std::uint64_t after, bool writes, int board,
                   const BlockRun& run);

    bool AllAccepted() const { return FirstFailed() == run_.count; }
    // The number of the first that was not accepted or never sent; the count if there is none.
    int FirstFailed() const;
    // "block 0020: not answered", and what to do; for a block that was accepted, empty.
    std::string Failure(int block) const;
    // After a write: "blocks 10 to 27 are new, 28 to 2F may be either, the rest old". A block may
    // be either when it was sent and no answer says whether the unit took it.
    std::string WhatUnitHolds() const;
    // No block can have been taken.
    bool UnitUntouched() const;

  private:
    enum class Holds { kOld, kNew, kEither };

    Holds AfterWrite(int block) const;
    std::string Ranges(Holds wanted) const;

    const BlockRun& run_;
    struct Last {
        Exchange::End end;
        int times_sent;
    };
    std::map<int, Last> last_;  // the newest exchange of each block
};

// The number of the newest exchange, to take those after it.
std::uint64_t LastExchange(const Journal& journal);

}  // namespace kestrane
