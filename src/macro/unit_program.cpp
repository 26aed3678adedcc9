#include "macro/unit_program.h"

namespace kestrane {

UnitProgram::UnitProgram(const Session& session, Link& link) : session_(session), link_(link) {
    link_.journal().AddObserver(*this);
}

UnitProgram::~UnitProgram() { link_.journal().RemoveObserver(*this); }

bool UnitProgram::Differs(const MacroMemory& image, std::uint8_t address) const {
    const std::size_t index = std::size_t{2} * address;
    if (index + 1 >= MacroMemory::kProgramEnd || !Known(index)) return false;
    return bytes_.Get(index) != image.Get(index) || bytes_.Get(index + 1) != image.Get(index + 1);
}

// A write without an answer may have been taken or not.
void UnitProgram::ExchangeEnded(const Exchange& exchange) {
    const bool write = exchange.command == kWriteMemory;
    if (!write && !exchange.IsRead()) return;
    if (exchange.board != (session_.RelayAddress & 0xFF) || exchange.address < 0) return;
    if (exchange.connection != connection_) {
        connection_ = exchange.connection;
        known_.reset();
    }
    const bool sure = exchange.Accepted();
    const bool unchanged =
        !write || exchange.times_sent == 0 || exchange.end == Exchange::End::kRefused;
    if (!sure && unchanged) return;
    for (std::size_t i = 0; i < exchange.data.size(); ++i) {
        const std::size_t index = static_cast<std::size_t>(exchange.address) + i;
        if (index < MacroMemory::kProgramBegin || index >= MacroMemory::kProgramEnd) continue;
        known_[index] = sure;
        bytes_.Set(index, static_cast<std::uint8_t>(exchange.data[i]));
    }
}

}  // namespace kestrane
