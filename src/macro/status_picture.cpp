#include "macro/status_picture.h"

#include "link/frame.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr std::size_t kRecordSize = 13;
constexpr std::size_t kTail = 3;  // checksum and end mark
constexpr int kOutlets = 14;
constexpr int kFirstInlet = 14;
constexpr int kSecondInlet = 15;

bool Bit(std::uint16_t mask, int bit) { return (mask >> bit & 1) != 0; }

std::uint16_t Word(std::string_view record, std::size_t position) {
    return static_cast<std::uint16_t>(ByteAt(record, position) << 8 | ByteAt(record, position + 1));
}

// The last whole frame of what the line brought in one go: where a poll and a press of the button
// cross, or a unit answers after a silence, replies come joined. Without one, all of it.
std::string_view NewestFrame(std::string_view bytes) {
    std::string_view newest = bytes;
    std::size_t start = 0;
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
        if (bytes[i] != kDle) continue;
        ++i;
        if (bytes[i] != kEtx) continue;
        const std::size_t end = i + 1;
        const bool next_begins = bytes.substr(end, 2) == std::string_view("\x10\x02");
        if (end != bytes.size() && !next_begins) continue;
        newest = bytes.substr(start, end - start);
        start = end;
    }
    return newest;
}

Lamp OutletLamp(const UnitStatus& status, int outlet) {
    if (Bit(status.flags_a, outlet)) return kLampGreen;
    const bool dark = !status.OutletOn(outlet) && Bit(status.flags_b, outlet);
    return dark ? kLampGrey : kLampRed;
}

// Of a changeover unit's inlets that are present, the one in use is green, the other red.
void LightChangeover(const UnitStatus& status, Lights& lights) {
    const bool second_chosen = Bit(status.outlet_on, kSecondInlet);
    if (Bit(status.flags_b, kFirstInlet)) {
        lights[kFirstInlet] = second_chosen ? kLampRed : kLampGreen;
    }
    if (Bit(status.flags_b, kSecondInlet)) {
        lights[kSecondInlet] = second_chosen ? kLampGreen : kLampRed;
    }
}

}  // namespace

std::string RecordInReply(std::string_view bytes) {
    std::string reply(NewestFrame(bytes));
    RemoveEscapes(reply);
    constexpr std::size_t kAround = kStatusData - 1 + kTail;
    if (reply.size() < kAround || reply[0] != kDle || reply[1] != kStx) return {};
    return Mid(reply, kStatusData, reply.size() - kAround);
}

std::optional<UnitStatus> ReadStatus(std::string_view record) {
    if (record.size() != kRecordSize) return {};
    return UnitStatus{Word(record, 1), Word(record, 4), Word(record, 6),
                      static_cast<std::uint8_t>(ByteAt(record, 9))};
}

Lights LightsOf(const UnitStatus& status, std::string_view unit_type) {
    Lights lights{};
    for (int i = 0; i < kOutlets; ++i) lights[static_cast<std::size_t>(i)] = OutletLamp(status, i);
    if (unit_type == "CMS") {
        LightChangeover(status, lights);
        return lights;
    }
    const int inlets = unit_type == "636" ? 2 : 1;
    for (int i = kFirstInlet; i < kFirstInlet + inlets; ++i) {
        if (Bit(status.flags_b, i)) lights[static_cast<std::size_t>(i)] = kLampGreen;
    }
    return lights;
}

}  // namespace kestrane
