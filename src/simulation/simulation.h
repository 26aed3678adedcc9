#pragma once

// A unit that runs a macro program on a clock of its own, with nothing real behind it: for the
// window's pane step by step, for the command line as one run to its end.
//
//   Simulation   one unit: Step() to whatever happens next, Apply() for what the world does
//   Simulate     a whole run: steps and inputs in order until a stop, a repeat or a limit

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulation/macro_runner.h"

namespace kestrane::simulation {

using MacroImage = std::span<const std::uint8_t, MacroRunner::kImageBytes>;

// What the world does to a unit.
struct Input {
    enum class Kind : std::uint8_t { kSwitch, kGpi, kSupply };

    Kind kind;
    bool up;                    // switch on, GPI high, the main supply is there
    int gpi = 0;                // 1 to 4
    std::string Words() const;  // "gpi 2 low"

    bool operator==(const Input&) const = default;
};

// "switch on|off", "gpi N high|low", "supply lost|back", in any case; nothing for other words.
std::optional<Input> ParseInput(std::string_view words);

// "12.5": seconds with up to three decimals; nothing for anything else or above 999999999.
std::optional<Milliseconds> ParseSeconds(std::string_view text);
// With three decimals, "12.500".
std::string SecondsText(Milliseconds time);

struct Event {
    Milliseconds at{0};
    std::optional<std::uint8_t> address;  // of the instruction that took effect
    std::string words;                    // of what is not an instruction
    std::uint16_t on = 0;                 // outlets switched on by it; bit 0 is outlet 1
    std::uint16_t off = 0;
};

struct Start {
    UnitType type = UnitType::kCms;
    std::uint8_t address = MacroRunner::kFirst;
    std::uint16_t outlets_on = 0;
};

// At the start the switch is on, the GPIs are high and both supplies there.
class Simulation {
  public:
    Simulation(MacroImage image, const Start& start);

    Milliseconds Now() const { return now_; }
    const MacroRunner& Runner() const { return runner_; }
    // When Step() would happen; nothing: never, unless an input comes.
    std::optional<Milliseconds> NextDue() const;

    // Moves on to the next due time, at which one instruction takes effect. Only while there is
    // one.
    Event Step();
    // Lets time pass, to at most the next due time.
    void PassTo(Milliseconds time);
    Event Apply(const Input& input);

    // Skips turns of a loop: the same state at a later time.
    void Postpone(Milliseconds by) { now_ += by; }
    // Whether both will go on alike from here, whatever the time.
    bool SameState(const Simulation& other) const { return runner_ == other.runner_; }

  private:
    std::shared_ptr<const std::array<std::uint8_t, MacroRunner::kImageBytes>> image_;
    MacroRunner runner_;  // its time 0 is now_
    Milliseconds now_{0};
};

struct TimedInput {
    Milliseconds at;
    Input input;
};

struct Repeats {
    Milliseconds every;
    Milliseconds from;
};

// The most outlets that were switched on within one second, and when that second begins.
struct MostOn {
    int count = 0;
    Milliseconds from{0};
};

struct Timeline {
    enum class Why : std::uint8_t { kStop, kTime, kRepeats };

    Start start;
    std::vector<Event> events;
    Milliseconds end{0};
    Why why = Why::kTime;
    std::optional<Repeats> repeats;
    std::uint16_t outlets = 0;
    MostOn most_on;
};

// Runs until a stop that nothing will interrupt, until a state has come back exactly with no input
// left, or until `limit`. A loop that waits for a late input is listed up to some 200,000 events
// and then skipped by whole turns, which an event of its own says.
Timeline Simulate(MacroImage image, const Start& start, std::vector<TimedInput> inputs,
                  Milliseconds limit);

}  // namespace kestrane::simulation
