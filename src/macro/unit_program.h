#pragma once

// The macro program as the unit is known to hold it: what was read from it or taken by it on this
// connection, whoever sent it.

#include <bitset>

#include "link/link.h"
#include "macro/macro_memory.h"

namespace kestrane {

class UnitProgram : public JournalObserver {
  public:
    UnitProgram(const Session& session, Link& link);
    ~UnitProgram() override;
    UnitProgram(const UnitProgram&) = delete;
    UnitProgram& operator=(const UnitProgram&) = delete;

    // Whether the unit holds another instruction at this address; false where it is not known.
    bool Differs(const MacroMemory& image, std::uint8_t address) const;

    void ExchangeEnded(const Exchange& exchange) override;

  private:
    bool Known(std::size_t index) const {
        return connection_ != 0 && connection_ == link_.connection() && known_[index];
    }

    const Session& session_;
    Link& link_;
    MacroMemory bytes_;
    std::bitset<MacroMemory::kProgramEnd> known_;
    int connection_ = 0;
};

}  // namespace kestrane
