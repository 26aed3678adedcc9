#include "unit/sensor_bus.h"

#include <algorithm>

#include "simulation/drift.h"
#include "text/text.h"

namespace kestrane::unit {
namespace {

using simulation::Drift;

constexpr Milliseconds kReadingEvery{1000};
constexpr std::size_t kReadingBytes = 6;
constexpr int kDriftTenths = 8;

Sensor MakeSensor(std::string_view hex_record, int base) {
    return {HexPairs(hex_record), base, base, base, true};
}

}  // namespace

SensorBus::SensorBus(BoardMemory& relay)
    : relay_(relay),
      sensors_{MakeSensor("3F0000019A4C712619", 232), MakeSensor("C10000063B84D52801", 228),
               MakeSensor("920000063B8A172802", 241), MakeSensor("57000006418E332800", 219),
               MakeSensor("E80000019B07442600", 225)} {
    StoreReadings(Milliseconds{0});
}

std::string SensorBus::Entry(std::size_t number) const {
    if (number < 1 || number > sensors_.size() || !sensors_[number - 1].fitted) {
        return std::string(kSensorRecord, '\xFF');
    }
    return sensors_[number - 1].record;
}

int SensorBus::Found() const {
    return static_cast<int>(
        std::count_if(sensors_.begin(), sensors_.end(), [](const Sensor& s) { return s.fitted; }));
}

bool SensorBus::Fit(std::size_t number, bool fitted) {
    if (number < 1 || number > sensors_.size()) return false;
    sensors_[number - 1].fitted = fitted;
    return true;
}

void SensorBus::Commit() {
    for (std::size_t i = 0; i < kSensors; ++i) {
        relay_.Write(relay::kCommittedSensors + i * kSensorRecord, Entry(i + 1));
    }
}

void SensorBus::ClearCommitted() {
    relay_.Write(relay::kCommittedSensors, std::string(kSensors * kSensorRecord, '\xFF'));
}

int SensorBus::Reading(std::size_t index, Milliseconds now) const {
    const Milliseconds period{60'000 + 7'000 * static_cast<int>(index)};
    return sensors_[index].base + Drift(now, period, kDriftTenths);
}

void SensorBus::ResetMinMax(Milliseconds now) {
    for (std::size_t i = 0; i < sensors_.size(); ++i) {
        sensors_[i].lowest = sensors_[i].highest = Reading(i, now);
    }
    StoreReadings(now);
}

void SensorBus::Advance(Milliseconds now) {
    if (now < next_reading_) return;
    next_reading_ = now + kReadingEvery;
    StoreReadings(now);
}

void SensorBus::StoreReadings(Milliseconds now) {
    for (std::size_t i = 0; i < sensors_.size(); ++i) {
        Sensor& sensor = sensors_[i];
        const int value = Reading(i, now);
        sensor.lowest = std::min(sensor.lowest, value);
        sensor.highest = std::max(sensor.highest, value);
        relay_.Write(relay::kReadings + i * kReadingBytes,
                     Bytes({value >> 8, value, sensor.lowest >> 8, sensor.lowest,
                            sensor.highest >> 8, sensor.highest}));
    }
}

}  // namespace kestrane::unit
