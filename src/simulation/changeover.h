#pragma once

// The supplies of the unit: which are present, which one feeds the outlets, and the record of
// command 0x39. On a changeover unit the outlets move to the other supply when theirs is lost,
// and back to the preferred one when it has been there for the change back delay. On other units
// a supply is only lost and resumed.
//
//   1  2  3        4          5      6      7      8         9           10   11   12
//   -  -  off time off time   phase  delay  inlet  measured  measured    A/B  B/A  change back
//         main     backup     window               off main  off backup            counter
//
//   13           14          15          16 17      18 19
//   period high  main low    backup low  -  lockout -  -

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "simulation/unit_type.h"

namespace kestrane::simulation {

enum class Supply : std::uint8_t { kMain, kBackup };
enum class SupplyEvent : std::uint8_t { kNone, kLoss, kBack };

// Selectors 2 to 6 as the unit comes: change back after 30 s, the main supply preferred.
inline constexpr std::array<std::uint8_t, 5> kFactoryChangeover = {12, 14, 5, 3, 1};

class Changeover {
  public:
    explicit Changeover(UnitType type) : type_(type) {}

    // Selectors 2 to 5 are off time main and backup, phase window and change back delay, 6 is the
    // inlet (1 to 5). Others, and inlets out of range, change nothing.
    void SetLive(int selector, std::uint8_t value);

    SupplyEvent SetPresent(Supply supply, bool present, Milliseconds now);
    SupplyEvent Advance(Milliseconds now);

    // When the outlets go back to the preferred supply, if nothing happens until then.
    std::optional<Milliseconds> ChangeBackAt() const { return change_back_at_; }
    // Makes `now` the time 0.
    void Rebase(Milliseconds now) {
        if (change_back_at_) *change_back_at_ -= now;
    }
    bool operator==(const Changeover&) const = default;

    bool Present(Supply supply) const { return present_[Index(supply)]; }
    bool OnBackup() const { return on_backup_; }
    // The outlets that a supply reaches now; bit 0 is outlet 1.
    std::uint16_t SuppliedOutlets() const;
    // The inlets as the status record tells them: bit 14 main or A, bit 15 backup or B.
    std::uint16_t InletBits() const;

    // The 19 characters of command 0x39. The measured values are functions of the time.
    std::string Record(Milliseconds now) const;

  private:
    static std::size_t Index(Supply supply) { return static_cast<std::size_t>(supply); }
    bool ChosenPresent() const { return present_[on_backup_ ? 1 : 0]; }
    std::optional<Supply> Preferred() const;
    SupplyEvent Choose(bool backup);
    void PlanChangeBack(Milliseconds now);
    int TensLeft(Milliseconds now) const;

    UnitType type_;
    std::array<std::uint8_t, 5> live_{};  // selectors 2 to 6
    std::array<bool, 2> present_{true, true};
    bool on_backup_ = false;
    std::optional<Milliseconds> change_back_at_;
};

}  // namespace kestrane::simulation
