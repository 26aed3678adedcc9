#pragma once

// The live status of a unit as the editor's picture shows it, as pure functions. The record of a
// status reply:
//
//   1 2            3   4 5            6 7            8   9             10 - 13
//   OutletOnMask   -   OutletFlagsA   OutletFlagsB   -   MacroPointer  -
//
// Masks have their high byte first; bit i is outlet i + 1. Bits 14 and 15 of OutletFlagsB are the
// inlets, bit 15 of OutletOnMask tells the chosen supply of a changeover unit.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestrane {

struct UnitStatus {
    std::uint16_t outlet_on = 0;
    std::uint16_t flags_a = 0;
    std::uint16_t flags_b = 0;
    std::uint8_t macro_pointer = 0;

    bool OutletOn(int outlet) const { return (outlet_on >> outlet & 1) != 0; }
};

// The status record of a reply as it came from the line, of the newest where several came joined;
// empty if that is no reply. A doubled 0x10 is undone before the length counts.
std::string RecordInReply(std::string_view bytes);

// Nothing unless the record has its 13 bytes.
std::optional<UnitStatus> ReadStatus(std::string_view record);

// The pictures of a light.
enum Lamp { kLampGrey, kLampRed, kLampGreen, kLampOrange };

// A light for each position: 14 outlets, then the inlets.
using Lights = std::array<Lamp, 16>;
Lights LightsOf(const UnitStatus& status, std::string_view unit_type);

}  // namespace kestrane
