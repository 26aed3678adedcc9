#include "simulation/changeover.h"

#include "simulation/drift.h"
#include "text/text.h"

namespace kestrane::simulation {
namespace {

constexpr std::uint16_t kAllOutlets = 0x3FFF;
constexpr std::uint16_t kOutletsOfA = 0x007F;
constexpr Milliseconds kChangeBackUnit{10'000};
constexpr std::uint8_t kNeverChangeBack = 255;

// One period of 50 Hz mains, counted at 1 MHz.
constexpr int kMainsPeriod = 20'000;
// The unit samples at 5000 Hz: 100 samples are one turn of the phase.
constexpr int kSamplesPerPeriod = 100;

}  // namespace

void Changeover::SetLive(int selector, std::uint8_t value) {
    if (selector < 2 || selector > 6) return;
    if (selector == 6 && (value < 1 || value > 5)) return;
    live_[static_cast<std::size_t>(selector - 2)] = value;
}

std::optional<Supply> Changeover::Preferred() const {
    switch (live_[4]) {
        case 1:
        case 4:
            return Supply::kMain;
        case 2:
        case 5:
            return Supply::kBackup;
        default:
            return std::nullopt;
    }
}

SupplyEvent Changeover::Choose(bool backup) {
    on_backup_ = backup;
    const bool wants_backup = Preferred() == Supply::kBackup;
    return on_backup_ == wants_backup ? SupplyEvent::kBack : SupplyEvent::kLoss;
}

void Changeover::PlanChangeBack(Milliseconds now) {
    const auto preferred = Preferred();
    const bool elsewhere = preferred && on_backup_ != (*preferred == Supply::kBackup);
    if (!elsewhere || !Present(*preferred) || live_[3] == kNeverChangeBack) {
        change_back_at_.reset();
    } else if (!change_back_at_) {
        change_back_at_ = now + live_[3] * kChangeBackUnit;
    }
}

SupplyEvent Changeover::SetPresent(Supply supply, bool present, Milliseconds now) {
    if (Present(supply) == present) return SupplyEvent::kNone;
    if (type_ == UnitType::kSingle && supply == Supply::kBackup) return SupplyEvent::kNone;
    present_[Index(supply)] = present;
    if (type_ != UnitType::kCms) return present ? SupplyEvent::kBack : SupplyEvent::kLoss;
    return Advance(now);
}

SupplyEvent Changeover::Advance(Milliseconds now) {
    if (type_ != UnitType::kCms) return SupplyEvent::kNone;
    SupplyEvent event = SupplyEvent::kNone;
    const bool other_present = present_[on_backup_ ? 0 : 1];
    if (!ChosenPresent() && other_present) event = Choose(!on_backup_);
    PlanChangeBack(now);
    if (change_back_at_ && *change_back_at_ <= now) {
        event = Choose(!on_backup_);
        change_back_at_.reset();
    }
    return event;
}

std::uint16_t Changeover::SuppliedOutlets() const {
    if (type_ == UnitType::k636) {
        const int a = present_[0] ? kOutletsOfA : 0;
        const int b = present_[1] ? kAllOutlets & ~kOutletsOfA : 0;
        return static_cast<std::uint16_t>(a | b);
    }
    return ChosenPresent() ? kAllOutlets : std::uint16_t{0};
}

std::uint16_t Changeover::InletBits() const {
    const int main = present_[0] ? 0x4000 : 0;
    const int backup = present_[1] && type_ != UnitType::kSingle ? 0x8000 : 0;
    return static_cast<std::uint16_t>(main | backup);
}

int Changeover::TensLeft(Milliseconds now) const {
    if (!change_back_at_ || *change_back_at_ <= now) return 0;
    const auto left = *change_back_at_ - now + kChangeBackUnit - Milliseconds{1};
    return static_cast<int>(left / kChangeBackUnit);
}

std::string Changeover::Record(Milliseconds now) const {
    const bool main = present_[0];
    const bool backup = (InletBits() & 0x8000) != 0;
    const int a_to_b = 30 + Drift(now, Milliseconds{40'000}, 2);
    const int main_period = kMainsPeriod + Drift(now, Milliseconds{27'000}, 9);
    const int backup_period = kMainsPeriod + 3 + Drift(now, Milliseconds{35'000}, 7);
    // Both counts share their high byte, which the drift never leaves.
    const int high = main || backup ? kMainsPeriod >> 8 : 0;
    const auto live = [this](std::size_t i) { return static_cast<int>(live_[i]); };
    return Bytes({0x01, static_cast<int>(type_),                         //
                  live(0), live(1), live(2), live(3), live(4),           //
                  main ? 7 + Drift(now, Milliseconds{11'000}, 2) : 0,    //
                  backup ? 8 + Drift(now, Milliseconds{13'000}, 2) : 0,  //
                  main && backup ? a_to_b : 0,                           //
                  main && backup ? kSamplesPerPeriod - a_to_b : 0,       //
                  TensLeft(now), high,                                   //
                  main ? main_period : 0, backup ? backup_period : 0,    //
                  0, 0, 0, 0});
}

}  // namespace kestrane::simulation
