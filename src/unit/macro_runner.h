#pragma once

// Runs the macro program in relay memory. Macro address a holds its opcode at memory address 2a
// and its second byte behind it; programs lie from 0x10 to 0x7F.
//
//   An instruction begins, spends its delay, takes effect, and the next one begins. The macro
//   pointer shows the instruction whose delay is running, or the stop that ended the program.
//
// Each instruction takes at least a millisecond, so that a loop without waits can't hold up the
// unit; Advance does a bounded amount of work however far the time has moved.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "unit/board_memory.h"
#include "unit/live_state.h"
#include "unit/options.h"

namespace kestrane::unit {

// The delay of a time code: bits 0 to 5 count tenths of a second, bit 6 makes it ten times and
// bit 7 a hundred times as much.
Milliseconds DelayOf(std::uint8_t time_code);

class MacroRunner {
  public:
    static constexpr std::uint8_t kFirst = 0x10;
    static constexpr std::uint8_t kLast = 0x7F;

    MacroRunner(const BoardMemory& relay, LiveState& live) : relay_(relay), live_(live) {}

    // Runs from `address`; one outside of the program is ignored.
    void Go(std::uint8_t address, Milliseconds now);
    void Advance(Milliseconds now);

    // What a hand or the world does: an interrupt may move the program elsewhere. Nothing happens
    // if the input stands there already. SetGpi counts from 1; false if the GPI is an output.
    bool SetGpi(std::size_t number, bool high, Milliseconds now);
    void SetSwitch(bool on, Milliseconds now);
    void OnSupply(SupplyEvent event, Milliseconds now);

    std::uint8_t Pointer() const { return pointer_; }
    bool Running() const { return running_; }
    std::uint8_t Counter(std::size_t index) const { return counters_[index]; }

  private:
    struct Instruction {
        std::uint8_t opcode;
        std::uint8_t second;
    };
    struct Gpi {
        bool output = false;
        std::optional<std::uint8_t> low_interrupt;
        std::optional<std::uint8_t> high_interrupt;
        Milliseconds inhibited_until{0};
    };

    Instruction At(std::uint8_t address) const;
    Milliseconds DelayBefore(Instruction instruction) const;
    void Interrupt(std::optional<std::uint8_t> address, Milliseconds now);
    void Stop() { running_ = false; }

    // Each takes effect at due_ and leaves the address of the next instruction in next_; false if
    // the opcode is none of its kind.
    void Execute(Instruction instruction);
    bool ExecuteFlow(Instruction instruction);
    bool ExecuteOutlet(Instruction instruction);
    bool ExecuteMask(Instruction instruction);
    bool ExecuteGpi(Instruction instruction);
    bool ExecuteCounter(Instruction instruction);
    bool ExecuteSupply(Instruction instruction);
    bool ExecuteSwitch(Instruction instruction);

    const BoardMemory& relay_;
    LiveState& live_;
    bool running_ = false;
    std::uint8_t pointer_ = kFirst;
    std::uint8_t next_ = kFirst;
    Milliseconds due_{0};
    std::array<std::uint8_t, 2> counters_{};
    bool gpis_enabled_ = true;
    std::array<Gpi, kGpis> gpis_{};
    std::optional<std::uint8_t> switch_on_interrupt_;
    std::optional<std::uint8_t> switch_off_interrupt_;
    Milliseconds switch_inhibited_until_{0};
    std::optional<std::uint8_t> loss_interrupt_;
    std::optional<std::uint8_t> back_interrupt_;
};

}  // namespace kestrane::unit
