#include "unit/status_record.h"

#include "text/text.h"

namespace kestrane::unit {
namespace {

int InputBits(const simulation::LiveState& live) {
    int bits = live.switch_on ? 0x80 : 0;
    for (std::size_t i = 0; i < simulation::kGpis; ++i) {
        if (live.gpi_high[i]) bits |= 1 << i;
    }
    return bits;
}

}  // namespace

std::string StatusRecord(const simulation::MacroRunner& runner) {
    const simulation::LiveState& live = runner.Live();
    const int on = live.outlets_on | (live.changeover.OnBackup() ? 0x8000 : 0);
    const int good = live.good_fuses & live.changeover.SuppliedOutlets();
    const int power = live.outlets_on & good;
    const int good_and_inlets = good | live.changeover.InletBits();
    return Bytes({on >> 8, on, live.alarm, power >> 8, power, good_and_inlets >> 8, good_and_inlets,
                  InputBits(live), runner.Pointer(), runner.Counter(0), runner.Counter(1),
                  runner.Running() ? 1 : 0, 0});
}

}  // namespace kestrane::unit
