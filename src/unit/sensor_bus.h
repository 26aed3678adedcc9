#pragma once

// The 1-Wire bus: what is plugged in now. The committed table, which the operator fixes, lies in
// relay memory and may differ. The readings stand in relay memory as well, where anyone may look
// at them.
//
//   record  (9)  address x 8, family code last | sub-type
//   reading (6)  now | lowest | highest, each 16 bits, high byte first, tenths of a degree

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "unit/board_memory.h"
#include "unit/options.h"

namespace kestrane::unit {

inline constexpr std::size_t kSensors = 16;
inline constexpr std::size_t kSensorRecord = 9;

struct Sensor {
    std::string record;  // 9 bytes
    int base = 0;        // tenths of a degree, around which the reading drifts
    int lowest = 0;
    int highest = 0;
    bool fitted = true;
};

class SensorBus {
  public:
    explicit SensorBus(BoardMemory& relay);

    // The record of entry 1 to 16; 9 bytes 0xFF where nothing is fitted.
    std::string Entry(std::size_t number) const;
    int Found() const;

    // A sensor plugged in again, or pulled out. False if the unit came with none of this number.
    bool Fit(std::size_t number, bool fitted);

    void Commit();
    void ClearCommitted();
    void ResetMinMax(Milliseconds now);
    void Advance(Milliseconds now);

  private:
    int Reading(std::size_t index, Milliseconds now) const;
    void StoreReadings(Milliseconds now);

    BoardMemory& relay_;
    std::vector<Sensor> sensors_;
    Milliseconds next_reading_{0};
};

}  // namespace kestrane::unit
