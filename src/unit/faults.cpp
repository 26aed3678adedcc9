#include "unit/faults.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace kestrane::unit {
namespace {

struct FaultName {
    std::string_view name;
    FaultKind kind;
};
constexpr std::array kFaultNames{
    FaultName{"delay", FaultKind::kDelay},   FaultName{"split", FaultKind::kSplit},
    FaultName{"silent", FaultKind::kSilent}, FaultName{"corrupt", FaultKind::kCorrupt},
    FaultName{"refuse", FaultKind::kRefuse}, FaultName{"close", FaultKind::kClose},
    FaultName{"reset", FaultKind::kReset},   FaultName{"deny", FaultKind::kDeny},
    FaultName{"echo", FaultKind::kEcho},     FaultName{"short", FaultKind::kShort},
    FaultName{"flood", FaultKind::kFlood},
};

constexpr int kLongestDelay = 600'000;

std::vector<std::string_view> SplitAt(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

// The whole text as a number within 0 and `most`.
template <typename Number>
std::optional<Number> ParseNumber(std::string_view text, Number most) {
    Number value{};
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    const bool good = result.ec == std::errc{} && result.ptr == end && value >= 0 && value <= most;
    return good ? std::optional(value) : std::nullopt;
}

std::optional<Fault> ParseFault(std::string_view text) {
    const std::vector<std::string_view> parts = SplitAt(text, ':');
    for (const FaultName& entry : kFaultNames) {
        if (entry.name != parts[0]) continue;
        Fault fault{entry.kind};
        std::size_t next = 1;
        if (fault.kind == FaultKind::kDelay) {
            if (parts.size() < 2) return std::nullopt;
            const auto delay = ParseNumber<int>(parts[next++], kLongestDelay);
            if (!delay) return std::nullopt;
            fault.delay = Milliseconds{*delay};
        }
        if (next < parts.size()) {
            const auto probability = ParseNumber<double>(parts[next++], 1.0);
            if (!probability) return std::nullopt;
            fault.probability = *probability;
        }
        return next == parts.size() ? std::optional(fault) : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

ParsedFaults ParseFaults(std::string_view text) {
    ParsedFaults parsed;
    for (std::string_view entry : SplitAt(text, ',')) {
        if (const auto fault = ParseFault(entry)) {
            parsed.faults.push_back(*fault);
            continue;
        }
        return {{},
                "\"" + std::string(entry) +
                    "\" is not a fault; known are delay:MS, split, silent, corrupt, echo, short, "
                    "deny, flood, refuse, close and reset, each with an optional :PROBABILITY "
                    "from 0 to 1"};
    }
    return parsed;
}

FaultDice::FaultDice(std::vector<Fault> faults, std::uint32_t seed)
    : faults_(std::move(faults)), generator_(seed) {}

double FaultDice::Draw() { return static_cast<double>(generator_()) / 4294967296.0; }

std::size_t FaultDice::Below(std::size_t limit) {
    return static_cast<std::size_t>(Draw() * static_cast<double>(limit));
}

bool FaultDice::Strikes(FaultKind kind) {
    bool strikes = false;
    for (const Fault& fault : faults_) {
        if (fault.kind == kind && Draw() < fault.probability) strikes = true;
    }
    return strikes;
}

Milliseconds FaultDice::DrawDelay() {
    Milliseconds delay{0};
    for (const Fault& fault : faults_) {
        if (fault.kind == FaultKind::kDelay && Draw() < fault.probability) delay += fault.delay;
    }
    return delay;
}

std::string FaultDice::Spoil(std::string reply, std::size_t echo_size) {
    const std::size_t echo = std::min(echo_size, reply.size());
    if (Strikes(FaultKind::kShort)) reply.resize(echo + (reply.size() - echo) / 2);
    if (Strikes(FaultKind::kEcho)) {
        const std::size_t place = Below(echo);
        reply[place] = static_cast<char>(reply[place] ^ (1 << Below(8)));
    }
    return reply;
}

std::vector<WireStep> FaultDice::Plan(std::string frame) {
    const Milliseconds delay = DrawDelay();
    if (Strikes(FaultKind::kFlood)) return {{delay, {}, WireStep::End::kFlood}};
    if (Strikes(FaultKind::kReset)) return {{delay, {}, WireStep::End::kReset}};
    if (Strikes(FaultKind::kClose)) {
        return {{delay, frame.substr(0, frame.size() / 2), WireStep::End::kClose}};
    }
    if (Strikes(FaultKind::kCorrupt)) {
        const std::size_t place = Below(frame.size());
        frame[place] = static_cast<char>(frame[place] ^ (1 << Below(8)));
    }
    if (!Strikes(FaultKind::kSplit)) return {{delay, std::move(frame)}};
    const std::size_t cut = 1 + Below(frame.size() - 1);
    return {{delay, frame.substr(0, cut)}, {kSplitPause, frame.substr(cut)}};
}

}  // namespace kestrane::unit
