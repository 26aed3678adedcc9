#include "cli/report_lines.h"

#include "cli/call.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

constexpr char kRedInk[] = "\x1b[31m";
constexpr char kFaint[] = "\x1b[2m";
constexpr char kPlain[] = "\x1b[0m";

std::string TextOf(const Setting& setting, const std::optional<SettingValue>& value,
                   const ReportStyle& style) {
    if (value) return ShownSetting(setting, *value, style.with_secrets);
    return setting.secret ? "(secret)" : "-";
}

std::string Coloured(const std::string& line, const char* colour, const ReportStyle& style) {
    return style.colours ? colour + line + kPlain : line;
}

std::string StateBehind(const SettingChange& change, const ReportStyle& style) {
    switch (change.state) {
        case SettingState::kNotTaken:
            if (!change.reads) return " (not taken)";
            return " (not taken: reads " + TextOf(*change.setting, change.reads, style) + ")";
        case SettingState::kUnverified:
        case SettingState::kNotBegun:
        case SettingState::kWritten:
            return std::string(" (") + StateInWords(change.state) + ")";
        default:
            return {};
    }
}

std::string LeftAloneLine(const SettingLeftAlone& left, const ReportStyle& style) {
    const bool by_flag = left.why == "identity" || left.why == "live";
    return left.setting->key + ": " + TextOf(*left.setting, left.before, style) + " -> " +
           TextOf(*left.setting, left.after, style) + " (" + left.why +
           (by_flag ? ", left alone)" : ")");
}

std::string Summary(const ApplyReport& report, const ReportStyle& style) {
    const std::string changes = std::to_string(report.changes.size());
    const std::string left = std::to_string(report.left_alone.size()) + " left alone";
    if (style.comparison || report.result == ApplyReport::Result::kDifferent) {
        return changes + (report.changes.size() == 1 ? " difference, " : " differences, ") + left;
    }
    const int planned = report.CountOf(SettingState::kPlanned);
    const int failed = report.Failed();
    return std::to_string(static_cast<int>(report.changes.size()) - planned - failed) +
           " changed, " + left + ", " + std::to_string(failed) + " failed";
}

Json ValueAsJson(const Setting& setting, const std::optional<SettingValue>& value) {
    if (setting.secret) return "(secret)";
    if (!value) return nullptr;
    if (const bool* flag = std::get_if<bool>(&*value)) return *flag;
    if (const long* number = std::get_if<long>(&*value)) return *number;
    return FromByteText(std::get<std::string>(*value));
}

}  // namespace

std::string ChangeLine(const SettingChange& change, const ReportStyle& style,
                       const std::string& name) {
    const std::string line = (name.empty() ? change.setting->key : name) + ": " +
                             TextOf(*change.setting, change.before, style) + " -> " +
                             TextOf(*change.setting, change.after, style) +
                             StateBehind(change, style);
    const bool failed =
        change.state == SettingState::kNotTaken || change.state == SettingState::kNotBegun;
    return failed ? Coloured(line, kRedInk, style) : line;
}

std::vector<std::string> ReportLines(const ApplyReport& report, const ReportStyle& style) {
    std::vector<std::string> lines;
    // Of a refused apply nothing came about, whatever was planned.
    const bool refused = report.result == ApplyReport::Result::kRefused && !style.comparison;
    for (const SettingChange& change : report.changes) {
        if (!refused) lines.push_back(ChangeLine(change, style));
    }
    for (const SettingLeftAlone& left : report.left_alone) {
        lines.push_back(Coloured(LeftAloneLine(left, style), kFaint, style));
    }
    lines.push_back(Summary(report, style));
    return lines;
}

Json ReportAsJson(const ApplyReport& report) {
    Json changes = Json::array();
    for (const SettingChange& change : report.changes) {
        changes.push_back({{"key", change.setting->key},
                           {"before", ValueAsJson(*change.setting, change.before)},
                           {"after", ValueAsJson(*change.setting, change.after)},
                           {"state", StateInWords(change.state)}});
    }
    Json left_alone = Json::array();
    for (const SettingLeftAlone& left : report.left_alone) {
        left_alone.push_back({{"key", left.setting->key}, {"why", left.why}});
    }
    return {{"unit", report.unit},
            {"result", ResultInWords(report.result)},
            {"changes", std::move(changes)},
            {"left_alone", std::move(left_alone)},
            {"error", report.error.empty() ? Json() : Json(report.error)}};
}

int ExitStatusOf(const ApplyReport& report) {
    switch (report.result) {
        case ApplyReport::Result::kDifferent:
            return kExitDifferences;
        case ApplyReport::Result::kRefused:
            return kExitUsage;
        case ApplyReport::Result::kFailed:
        case ApplyReport::Result::kNotBegun:
            return kExitUnit;
        default:
            return kExitDone;
    }
}

Json PlainResult(const std::string& unit, const std::string& result, const std::string& error) {
    Json object = Json::object();
    object["unit"] = unit;
    object["result"] = result;
    object["changes"] = Json::array();
    object["left_alone"] = Json::array();
    object["error"] = error.empty() ? Json() : Json(error);
    return object;
}

}  // namespace kestrane
