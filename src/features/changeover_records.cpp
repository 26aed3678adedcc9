#include "features/changeover_records.h"

#include "link/frame.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kInletPosition = 6;  // of the startup record
constexpr std::size_t kTail = 3;   // checksum and end mark
constexpr std::size_t kStatusLength = 13;
constexpr int kMainPresent = 1 << 14;
constexpr int kBackupPresent = 1 << 15;

// A count of thousandths without trailing zeros.
std::string Decimal(int thousandths) {
    std::string text = std::to_string(thousandths / 1000);
    std::string fraction = std::to_string(1000 + thousandths % 1000).substr(1);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return fraction.empty() ? text : text + "." + fraction;
}

}  // namespace

std::optional<std::string> StartupRecordOf(std::string_view reply) {
    std::string record = Mid(reply, kMemoryData, kStartupLength);
    if (record.size() < kStartupLength) return {};
    return record;
}

int StartupValue(std::string_view record, int index) {
    return ByteAt(record, static_cast<std::size_t>(index) + 1);
}

int StartupInlet(std::string_view record) { return ByteAt(record, kInletPosition); }

std::optional<std::string> StatusRecordOf(std::string_view reply) {
    if (reply.substr(0, 2) != std::string{kDle, kStx}) return {};
    std::string record = Mid(reply, kStatusData);
    if (record.size() < kTail) return {};
    record.resize(record.size() - kTail);
    return record;
}

LiveRecord DecodeLive(std::string_view record) {
    const int period_high = ByteAt(record, 13) * 256;  // both supplies share it
    return {.inlet = ByteAt(record, 7),
            .off_main = ByteAt(record, 8),
            .off_backup = ByteAt(record, 9),
            .phase_ab = ByteAt(record, 10),
            .phase_ba = ByteAt(record, 11),
            .change_back = ByteAt(record, 12),
            .period_main = period_high + ByteAt(record, 14),
            .period_backup = period_high + ByteAt(record, 15),
            .lockout = ByteAt(record, 17)};
}

int LiveValue(std::string_view record, int index) {
    return ByteAt(record, static_cast<std::size_t>(index));
}

std::optional<Supplies> SuppliesOf(std::string_view status) {
    if (status.size() != kStatusLength) return {};
    const int flags = ByteAt(status, 6) * 256 + ByteAt(status, 7);
    return Supplies{(flags & kMainPresent) != 0, (flags & kBackupPresent) != 0};
}

std::string MainsFrequency(int period_count) {
    if (period_count == 0) return "-";
    return Decimal(100'000'000 / period_count * 10) + " Hz";
}

std::string PhaseAngle(int samples) { return Decimal(samples * 360 / 5) + "\xB0"; }

}  // namespace kestrane
