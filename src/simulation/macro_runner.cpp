#include "simulation/macro_runner.h"

#include <algorithm>

namespace kestrane::simulation {
namespace {

constexpr Milliseconds kInstruction{1};
// The most instructions of one call: ten seconds of a loop that never waits.
constexpr int kMostInstructions = 10'000;

enum class OutletForm : std::uint8_t { kOffFixed = 1, kOnFixed, kOffSkip, kOnSkip };

std::uint8_t HighNibble(std::uint8_t byte) { return byte >> 4; }
int LowNibble(std::uint8_t byte) { return byte & 0x0F; }

bool IsOutletInstruction(std::uint8_t opcode) { return opcode >= 0x10 && opcode <= 0x4F; }

// Opcodes for outlets 9 to 14 are odd from 0x55 on and from 0xE5 on, their neighbours are for 1
// to 8.
void SetGroup(std::uint16_t& mask, bool upper, std::uint8_t second) {
    const int bits = upper ? (mask & 0x00FF) | (second & 0x3F) << 8 : (mask & 0xFF00) | second;
    mask = static_cast<std::uint16_t>(bits);
}

}  // namespace

Milliseconds DelayOf(std::uint8_t time_code) {
    int tenths = time_code & 0x3F;
    if ((time_code & 0x40) != 0) tenths *= 10;
    if ((time_code & 0x80) != 0) tenths *= 100;
    return Milliseconds{tenths * 100};
}

MacroRunner::Instruction MacroRunner::At(std::uint8_t address) const {
    const std::size_t place = 2 * static_cast<std::size_t>(address);
    return {image_[place], image_[place + 1]};
}

Milliseconds MacroRunner::DelayBefore(Instruction instruction) const {
    const auto [opcode, second] = instruction;
    Milliseconds delay{0};
    if (opcode == 0x02 || opcode == 0x51 || opcode == 0x52) delay = DelayOf(second);
    if (IsOutletInstruction(opcode)) {
        const auto form = static_cast<OutletForm>(HighNibble(opcode));
        const bool is_on = live_.IsOn(LowNibble(opcode));
        const bool skip =
            (form == OutletForm::kOnSkip && is_on) || (form == OutletForm::kOffSkip && !is_on);
        if (!skip) delay = DelayOf(second);
    }
    return std::max(delay, kInstruction);
}

void MacroRunner::Go(std::uint8_t address, Milliseconds now) {
    if (address < kFirst || address > kLast) return;
    pointer_ = address;
    running_ = true;
    due_ = now + DelayBefore(At(address));
}

std::optional<Milliseconds> MacroRunner::NextDue() const {
    const auto change_back = live_.changeover.ChangeBackAt();
    if (!running_) return change_back;
    return change_back ? std::min(*change_back, due_) : due_;
}

void MacroRunner::Advance(Milliseconds now) {
    int left = kMostInstructions;
    for (auto due = NextDue(); due && *due <= now; due = NextDue()) {
        if (!running_ || due_ != *due) {
            SettleSupply(*due);
        } else if (left == 0) {
            due_ = now + kInstruction;
        } else {
            --left;
            RunInstruction();
        }
    }
}

void MacroRunner::RunInstruction() {
    const Milliseconds now = due_;
    next_ = static_cast<std::uint8_t>(pointer_ + 1);
    Execute(At(pointer_));
    if (next_ < kFirst || next_ > kLast) Stop();
    if (running_) Go(next_, now);
    next_ = pointer_;
    SettleSupply(now);
}

void MacroRunner::Rebase(Milliseconds now) {
    const auto left = [now](Milliseconds& until) {
        until = std::max(until - now, Milliseconds{0});
    };
    due_ = running_ ? due_ - now : Milliseconds{0};
    for (Gpi& gpi : gpis_) left(gpi.inhibited_until);
    left(switch_inhibited_until_);
    live_.changeover.Rebase(now);
}

bool MacroRunner::InterruptSet() const {
    const auto set = [](const Gpi& gpi) { return gpi.low_interrupt || gpi.high_interrupt; };
    return switch_on_interrupt_ || switch_off_interrupt_ || loss_interrupt_ || back_interrupt_ ||
           std::any_of(gpis_.begin(), gpis_.end(), set);
}

void MacroRunner::Execute(Instruction instruction) {
    const bool legal = ExecuteFlow(instruction) || ExecuteOutlet(instruction) ||
                       ExecuteMask(instruction) || ExecuteGpi(instruction) ||
                       ExecuteCounter(instruction) || ExecuteSupply(instruction) ||
                       ExecuteSwitch(instruction);
    if (!legal) Stop();
}

bool MacroRunner::ExecuteFlow(Instruction instruction) {
    switch (instruction.opcode) {
        case 0x00:
            Stop();
            return true;
        case 0x01:
            next_ = instruction.second;
            return true;
        case 0x02:
            return true;
        case 0x03:
        case 0x04:
            gpis_enabled_ = instruction.opcode == 0x04;
            return true;
        case 0x05:
            for (Gpi& gpi : gpis_) {
                gpi.low_interrupt.reset();
                gpi.high_interrupt.reset();
                gpi.inhibited_until = Milliseconds{0};
            }
            return true;
        default:
            return false;
    }
}

bool MacroRunner::ExecuteOutlet(Instruction instruction) {
    const std::uint8_t opcode = instruction.opcode;
    if (opcode == 0x51 || opcode == 0x52) {
        live_.SwitchOutlets(kAllOutlets, opcode == 0x52);
        return true;
    }
    if (!IsOutletInstruction(opcode)) return false;
    const auto form = static_cast<OutletForm>(HighNibble(opcode));
    // Outlets 15 and 16 can be written but do not exist: they spend their delay and do nothing.
    const auto mask = static_cast<std::uint16_t>((1 << LowNibble(opcode)) & kAllOutlets);
    live_.SwitchOutlets(mask, form == OutletForm::kOnFixed || form == OutletForm::kOnSkip);
    return true;
}

bool MacroRunner::ExecuteMask(Instruction instruction) {
    const auto [opcode, second] = instruction;
    const bool upper = opcode % 2 != 0;
    switch (opcode) {
        case 0x53:
        case 0x54:
            live_.accept_cycle_requests = opcode == 0x54;
            return true;
        case 0x55:
        case 0x56:
        case 0x59:
        case 0x5A:
            SetGroup(live_.lock_off[opcode < 0x59 ? 0 : 1], upper, second);
            live_.ApplyLocks();
            return true;
        case 0x57:
        case 0x58:
        case 0x5B:
        case 0x5C:
            SetGroup(live_.latch_on[opcode < 0x59 ? 0 : 1], upper, second);
            live_.ApplyLocks();
            return true;
        case 0x5D:
        case 0x5E:
            live_.accept_lock_changes = opcode == 0x5E;
            return true;
        case 0xE5:
        case 0xE6:
        case 0xE9:
        case 0xEA:
            SetGroup(live_.control_inhibit[opcode < 0xE9 ? 0 : 1], upper, second);
            return true;
        case 0xE7:
        case 0xEB:
            live_.macro_inhibit[opcode == 0xE7 ? 0 : 1] = second;
            return true;
        case 0xE8:
        case 0xEC:
            return true;
        default:
            return false;
    }
}

bool MacroRunner::ExecuteGpi(Instruction instruction) {
    const auto [opcode, second] = instruction;
    const int nibble = HighNibble(opcode);
    if (nibble < 0x6 || nibble > 0x9 || LowNibble(opcode) > 4) return false;
    const auto index = static_cast<std::size_t>(nibble - 0x6);
    Gpi& gpi = gpis_[index];
    switch (LowNibble(opcode)) {
        case 0:
        case 1:
            gpi.output = true;
            live_.gpi_high[index] = LowNibble(opcode) == 1;
            return true;
        case 2:
            gpi.output = false;
            gpi.low_interrupt = second;
            return true;
        case 3:
            gpi.output = false;
            gpi.high_interrupt = second;
            return true;
        default:
            gpi.inhibited_until = due_ + DelayOf(second);
            return true;
    }
}

bool MacroRunner::ExecuteCounter(Instruction instruction) {
    const auto [opcode, second] = instruction;
    const int nibble = HighNibble(opcode);
    if ((nibble != 0xA && nibble != 0xB) || LowNibble(opcode) > 2) return false;
    std::uint8_t& counter = counters_[nibble == 0xA ? 0 : 1];
    switch (LowNibble(opcode)) {
        case 0:
            counter = second;
            return true;
        case 1:
            --counter;
            if (counter == 0) next_ = second;
            return true;
        default:
            ++counter;
            if (counter == 255) next_ = second;
            return true;
    }
}

bool MacroRunner::ExecuteSupply(Instruction instruction) {
    const auto [opcode, second] = instruction;
    switch (opcode) {
        case 0xC0:
            loss_interrupt_ = second;
            return true;
        case 0xC1:
            back_interrupt_ = second;
            return true;
        case 0xC2:
        case 0xC3:
        case 0xC4:
        case 0xC5:
            live_.changeover.SetLive(opcode - 0xC0, second);
            return true;
        case 0xC6:
            if (second <= 3) live_.alarm = second;
            return true;
        case 0xC7:
            live_.changeover.SetLive(6, second);
            return true;
        default:
            return false;
    }
}

bool MacroRunner::ExecuteSwitch(Instruction instruction) {
    switch (instruction.opcode) {
        case 0xD2:
            switch_on_interrupt_ = instruction.second;
            return true;
        case 0xD3:
            switch_off_interrupt_ = instruction.second;
            return true;
        case 0xD4:
            switch_inhibited_until_ = due_ + DelayOf(instruction.second);
            return true;
        default:
            return false;
    }
}

void MacroRunner::Interrupt(std::optional<std::uint8_t> address, Milliseconds now) {
    if (address) Go(*address, now);
}

bool MacroRunner::SetGpi(std::size_t number, bool high, Milliseconds now) {
    Advance(now);
    if (number < 1 || number > kGpis || gpis_[number - 1].output) return false;
    if (live_.gpi_high[number - 1] == high) return true;
    live_.gpi_high[number - 1] = high;
    const Gpi& gpi = gpis_[number - 1];
    if (gpis_enabled_ && now >= gpi.inhibited_until) {
        Interrupt(high ? gpi.high_interrupt : gpi.low_interrupt, now);
    }
    return true;
}

void MacroRunner::SetSwitch(bool on, Milliseconds now) {
    Advance(now);
    if (live_.switch_on == on) return;
    live_.switch_on = on;
    if (now < switch_inhibited_until_) return;
    Interrupt(on ? switch_on_interrupt_ : switch_off_interrupt_, now);
}

void MacroRunner::SetSupply(Supply supply, bool present, Milliseconds now) {
    Advance(now);
    OnSupply(live_.changeover.SetPresent(supply, present, now), now);
}

void MacroRunner::SetChangeover(int selector, std::uint8_t value, Milliseconds now) {
    live_.changeover.SetLive(selector, value);
    SettleSupply(now);
}

void MacroRunner::SettleSupply(Milliseconds now) {
    const SupplyEvent event = live_.changeover.Advance(now);
    if (event != SupplyEvent::kNone) OnSupply(event, now);
}

void MacroRunner::OnSupply(SupplyEvent event, Milliseconds now) {
    live_.ApplyLocks();
    if (event == SupplyEvent::kLoss) Interrupt(loss_interrupt_, now);
    if (event == SupplyEvent::kBack) Interrupt(back_interrupt_, now);
}

}  // namespace kestrane::simulation
