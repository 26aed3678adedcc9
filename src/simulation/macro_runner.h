#pragma once

// Runs a macro program, for the demo unit and for the simulation alike. Macro address a holds its
// opcode at byte 2a and its second byte after it; programs lie from 0x10 to 0x7F.
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
#include <span>

#include "simulation/live_state.h"
#include "simulation/unit_type.h"

namespace kestrane::simulation {

// The delay of a time code: bits 0 to 5 count tenths of a second, bit 6 makes it ten times and
// bit 7 a hundred times as much.
Milliseconds DelayOf(std::uint8_t time_code);

class MacroRunner {
  public:
    static constexpr std::uint8_t kFirst = 0x10;
    static constexpr std::uint8_t kLast = 0x7F;

    static constexpr std::size_t kImageBytes = 256;

    // `image` must outlive the runner; it may change between calls, as by an upload.
    MacroRunner(std::span<const std::uint8_t, kImageBytes> image, UnitType type)
        : image_(image.data()), live_(type) {}

    // Runs from `address`; one outside of the program is ignored.
    void Go(std::uint8_t address, Milliseconds now);
    void Advance(Milliseconds now);

    // What a hand or the world does: an interrupt may move the program elsewhere. Nothing happens
    // if the input stands there already. SetGpi counts from 1; false if the GPI is an output.
    bool SetGpi(std::size_t number, bool high, Milliseconds now);
    void SetSwitch(bool on, Milliseconds now);
    void SetSupply(Supply supply, bool present, Milliseconds now);
    // See Changeover::SetLive.
    void SetChangeover(int selector, std::uint8_t value, Milliseconds now);

    // When something happens next of its own accord: an instruction takes effect, or the outlets
    // change back to the preferred supply.
    std::optional<Milliseconds> NextDue() const;
    std::optional<Milliseconds> InstructionDue() const {
        return running_ ? std::optional(due_) : std::nullopt;
    }
    // Whether any input or supply would interrupt the program.
    bool InterruptSet() const;

    // Makes `now` the time 0. What has run out is forgotten, so that two runners that will go on
    // alike are equal.
    void Rebase(Milliseconds now);
    bool operator==(const MacroRunner&) const = default;

    LiveState& Live() { return live_; }
    const LiveState& Live() const { return live_; }

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

        bool operator==(const Gpi&) const = default;
    };

    Instruction At(std::uint8_t address) const;
    Milliseconds DelayBefore(Instruction instruction) const;
    void RunInstruction();
    // Lets the supplies take effect as they stand at `now`.
    void SettleSupply(Milliseconds now);
    void OnSupply(SupplyEvent event, Milliseconds now);
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

    const std::uint8_t* image_;
    LiveState live_;
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

}  // namespace kestrane::simulation
