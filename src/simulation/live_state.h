#pragma once

// What the unit is doing now: outlets, locks, alarm, inputs. All of it is lost at a restart. An
// outlet follows its switch unless a mask of the supply in use locks it off or latches it on; a
// lock is stronger than a latch.

#include <array>
#include <cstdint>

#include "simulation/changeover.h"
#include "simulation/unit_type.h"

namespace kestrane::simulation {

inline constexpr int kOutlets = 14;
inline constexpr std::uint16_t kAllOutlets = 0x3FFF;
inline constexpr std::size_t kGpis = 4;

// Masks that hold while the main supply (0) or the backup supply (1) feeds the unit.
template <typename Mask>
using BySupply = std::array<Mask, 2>;

struct LiveState {
    explicit LiveState(UnitType type) : changeover(type) {}

    Changeover changeover;
    std::uint16_t outlets_on = 0x0FFF;  // bit 0 is outlet 1
    std::uint16_t good_fuses = kAllOutlets;
    BySupply<std::uint16_t> lock_off{};
    BySupply<std::uint16_t> latch_on{};
    BySupply<std::uint16_t> control_inhibit{};
    BySupply<std::uint8_t> macro_inhibit{};
    bool accept_cycle_requests = true;
    bool accept_lock_changes = true;
    std::uint8_t alarm = 0;  // 0 silent, 1 beep, 2 flash, 3 both
    std::array<bool, kGpis> gpi_high{true, true, true, true};
    bool switch_on = true;

    bool operator==(const LiveState&) const = default;

    std::size_t SupplyIndex() const { return changeover.OnBackup() ? 1 : 0; }
    bool IsOn(int outlet) const { return (outlets_on >> outlet & 1) != 0; }

    void SwitchOutlets(std::uint16_t mask, bool on) {
        outlets_on = static_cast<std::uint16_t>(on ? outlets_on | mask : outlets_on & ~mask);
        ApplyLocks();
    }
    // To be called after any change of the masks or of the supply.
    void ApplyLocks() {
        const int latched = outlets_on | latch_on[SupplyIndex()];
        outlets_on = static_cast<std::uint16_t>(latched & ~lock_off[SupplyIndex()] & kAllOutlets);
    }
};

}  // namespace kestrane::simulation
