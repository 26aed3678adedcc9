#include "unit/unit.h"

#include <utility>

#include "unit/defaults.h"

namespace kestrane::unit {

Unit::Unit(const UnitOptions& options) : Unit(options, DefaultBoards(options)) {}

Unit::Unit(const UnitOptions& options, const Boards& boards) : machine_(options, boards) {
    PowerUp();
}

void Unit::PowerUp() {
    const BoardMemory& relay = machine_.boards.relay;
    for (int selector = 2; selector <= 5; ++selector) {
        const auto offset = static_cast<std::size_t>(selector - 2);
        machine_.live.changeover.SetLive(selector, relay.At(relay::kChangeover + offset));
    }
    machine_.live.changeover.SetLive(6, relay.At(relay::kDefaultInlet));
    machine_.runner.Go(MacroRunner::kFirst, Milliseconds{0});
}

std::string Unit::Receive(int port, std::string_view bytes, Milliseconds now) {
    std::string replies;
    if (port < 1 || port > kControlPorts) return replies;
    for (const std::string& command : parsers_[static_cast<std::size_t>(port - 1)].Feed(bytes)) {
        if (const auto reply = Execute(port, command, now)) replies += EncodeFrame(*reply);
    }
    return replies;
}

void Unit::ForgetPartialFrame(int port) {
    if (port >= 1 && port <= kControlPorts) parsers_[static_cast<std::size_t>(port - 1)] = {};
}

std::optional<std::string> Unit::Execute(int port, std::string_view command, Milliseconds now) {
    Advance(now);
    return unit::Execute(machine_, port, command, now);
}

void Unit::Advance(Milliseconds now) {
    machine_.sensors.Advance(now);
    machine_.runner.Advance(now);
}

bool Unit::TakeEthernetReset() { return std::exchange(machine_.ethernet_reset, false); }

void Unit::SetSwitch(bool on, Milliseconds now) {
    Advance(now);
    machine_.runner.SetSwitch(on, now);
}

bool Unit::SetGpi(std::size_t number, bool high, Milliseconds now) {
    Advance(now);
    return machine_.runner.SetGpi(number, high, now);
}

void Unit::SetSupply(Supply supply, bool present, Milliseconds now) {
    Advance(now);
    machine_.runner.SetSupply(supply, present, now);
}

bool Unit::SetFuse(int outlet, bool good) {
    if (outlet < 1 || outlet > kOutlets) return false;
    const int bit = 1 << (outlet - 1);
    std::uint16_t& fuses = machine_.live.good_fuses;
    fuses = static_cast<std::uint16_t>(good ? fuses | bit : fuses & ~bit);
    return true;
}

bool Unit::FitSensor(std::size_t number, bool fitted) {
    return machine_.sensors.Fit(number, fitted);
}

bool Unit::StartMacro(std::size_t number, Milliseconds now) {
    constexpr std::size_t kTriggers = 8;
    constexpr std::uint8_t kDisabled = 0x80;
    if (number < 1 || number > kTriggers) return false;
    Advance(now);
    const std::size_t record = display::kTriggers + 16 * (number - 1);
    const int inhibit = machine_.live.macro_inhibit[machine_.live.SupplyIndex()];
    const bool allowed = (machine_.boards.display.At(record + 14) & kDisabled) == 0 &&
                         (inhibit >> (number - 1) & 1) == 0;
    if (allowed) machine_.runner.Go(machine_.boards.display.At(record + 15), now);
    return allowed;
}

}  // namespace kestrane::unit
