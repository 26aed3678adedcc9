#include "configuration/report.h"

#include <algorithm>

namespace kestrane {
namespace {

using Result = ApplyReport::Result;

bool MatchesAny(const Setting& setting, const std::vector<std::string>& prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&](const std::string& prefix) { return KeyMatches(setting.key, prefix); });
}

}  // namespace

bool SettingFilter::Names(const Setting& setting) const {
    return (only.empty() || MatchesAny(setting, only)) && !MatchesAny(setting, except);
}

std::string SettingFilter::LeftAlone(const Setting& setting) const {
    if (setting.identity && !identity) return "identity";
    if (setting.live && !live) return "live";
    return {};
}

const char* StateInWords(SettingState state) {
    switch (state) {
        case SettingState::kPlanned:
            return "planned";
        case SettingState::kWritten:
            return "written";
        case SettingState::kVerified:
            return "verified";
        case SettingState::kUnverified:
            return "unverified";
        case SettingState::kNotTaken:
            return "not taken";
        case SettingState::kNotBegun:
            break;
    }
    return "not begun";
}

const char* ResultInWords(ApplyReport::Result result) {
    switch (result) {
        case Result::kSame:
            return "same";
        case Result::kDifferent:
            return "different";
        case Result::kChanged:
            return "changed";
        case Result::kRefused:
            return "refused";
        case Result::kFailed:
            return "failed";
        case Result::kNotBegun:
            break;
    }
    return "not begun";
}

bool ApplyReport::Changes(const Setting& setting) const {
    return std::any_of(changes.begin(), changes.end(),
                       [&](const SettingChange& change) { return change.setting == &setting; });
}

int ApplyReport::CountOf(SettingState state) const {
    return static_cast<int>(
        std::count_if(changes.begin(), changes.end(),
                      [&](const SettingChange& change) { return change.state == state; }));
}

int ApplyReport::Failed() const {
    return CountOf(SettingState::kNotTaken) + CountOf(SettingState::kNotBegun);
}

ApplyReport CompareValues(const SettingValues& before, const SettingValues& after,
                          const SettingFilter& filter) {
    ApplyReport report;
    for (const auto& [setting, value] : after) {
        const auto old = before.find(setting);
        if (old == before.end() || !filter.Names(*setting)) continue;
        if (SameSetting(*setting, old->second, value)) continue;
        const std::string why = filter.LeftAlone(*setting);
        if (why.empty()) {
            report.changes.push_back({setting, old->second, value, {}, {}});
        } else {
            report.left_alone.push_back({setting, old->second, value, why});
        }
    }
    if (!report.changes.empty()) report.result = Result::kDifferent;
    return report;
}

}  // namespace kestrane
