#pragma once

// Faults on purpose, so that the tool can be tried on a bad link. A fault text is a list joined by
// commas; each entry may end in a probability from 0 to 1, and without one it strikes every time:
//
//   delay:MS[:P]  the reply comes later          deny[:P]    refused, as for want of a right
//   split[:P]     it comes in two pieces         echo[:P]    one bit of the echo is flipped
//   corrupt[:P]   one bit of the reply is        short[:P]   half of the data behind the echo
//                 flipped                                    is left out
//   silent[:P]    the frame is not heard         flood[:P]   noise without an end, no reply
//   refuse[:P]    a new connection is closed     close[:P]   closes in the middle of the reply
//                 at once                        reset[:P]   resets the connection, no reply
//
// The draws come from a seeded generator: the same seed and traffic give the same faults.

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "unit/options.h"

namespace kestrane::unit {

enum class FaultKind : std::uint8_t {
    kDelay,
    kSplit,
    kSilent,
    kCorrupt,
    kRefuse,
    kClose,
    kReset,
    kDeny,
    kEcho,
    kShort,
    kFlood,
};

struct Fault {
    FaultKind kind;
    double probability = 1;
    Milliseconds delay{0};  // of kDelay alone

    bool operator==(const Fault&) const = default;
};

struct ParsedFaults {
    std::vector<Fault> faults;
    std::string error;  // one line; empty if the text is good
};
ParsedFaults ParseFaults(std::string_view text);

// One thing to do on the connection, `wait` after the thing before it.
struct WireStep {
    enum class End : std::uint8_t { kNone, kClose, kReset, kFlood };

    Milliseconds wait{0};
    std::string bytes;
    End end = End::kNone;  // what becomes of the connection behind the bytes
};

class FaultDice {
  public:
    // Between the pieces of a split reply: longer than a reader that looks ten times a second.
    static constexpr Milliseconds kSplitPause{150};

    FaultDice(std::vector<Fault> faults, std::uint32_t seed);

    bool RefusesConnection() { return Strikes(FaultKind::kRefuse); }
    bool SwallowsFrame() { return Strikes(FaultKind::kSilent); }
    bool Denies() { return Strikes(FaultKind::kDeny); }

    // A reply text as echo and short leave it; it begins with an echo of this length.
    std::string Spoil(std::string reply, std::size_t echo_size);

    // How a reply frame, at least two bytes long, goes out.
    std::vector<WireStep> Plan(std::string frame);

  private:
    bool Strikes(FaultKind kind);
    Milliseconds DrawDelay();
    double Draw();  // 0 to below 1
    std::size_t Below(std::size_t limit);

    std::vector<Fault> faults_;
    std::mt19937 generator_;
};

}  // namespace kestrane::unit
