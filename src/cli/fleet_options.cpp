#include "cli/fleet_options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "cli/call.h"
#include "cli/fleet_report.h"

namespace kestrane {
namespace {

constexpr std::size_t kMostUnits = 1'000'000;
constexpr std::size_t kMostParallel = 1000;

std::optional<std::string> WholeFile(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    if (!file || file.peek() == std::ifstream::traits_type::eof()) {
        // A folder opens too, and can't be read.
        return file.is_open() && file.eof() ? std::optional(std::string()) : std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(file), {});
}

// Nothing was given: the number stays. False if the text is not a number from `least` to `most`.
bool ReadNumber(const std::string& text, std::size_t least, std::size_t most, std::size_t& number) {
    if (text.empty()) return true;
    std::size_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || rest != end || value < least || value > most) return false;
    number = value;
    return true;
}

}  // namespace

void FleetOptions::AddTo(CLI::App& app) {
    app.add_option("--units", units_file_,
                   "CSV file of many units: the column \"unit\" is HOST[:PORT], further columns "
                   "bear keys and give that unit's own values");
    app.add_option("--parallel", parallel_text_, "With --units: so many at a time (16)");
    app.add_option("--first", first_text_,
                   "With --units: do so many first, and go on only if all of them went well");
    app.add_option("--max-failures", most_failures_text_,
                   "With --units: begin no further unit once more than so many have failed (0 for "
                   "what writes, else any number)");
    app.add_option("--report", report_file_,
                   "With --units: the results as JSON lines, written as they come");
    app.add_option("--resume", resume_file_,
                   "With --units: pass over the units that this report tells done");
}

std::vector<std::string> FleetOptions::Check(const Call& call) {
    if (!given()) {
        const bool stray = !parallel_text_.empty() || !first_text_.empty() ||
                           !most_failures_text_.empty() || !report_file_.empty() ||
                           !resume_file_.empty();
        if (!stray) return {};
        return {"--parallel, --first, --max-failures, --report and --resume need --units"};
    }
    if (!call.TakesManyUnits()) return {"--units: this call takes one unit"};
    if (const std::string problem = call.WhyNotManyUnits(); !problem.empty()) return {problem};
    if (const std::string problem = CheckNumbers(); !problem.empty()) return {problem};
    const auto text = WholeFile(units_file_);
    if (!text) return {"--units: " + units_file_ + " can't be read; check its name"};
    FleetList list = ParseFleetList(*text, units_file_);
    units_ = std::move(list.units);
    if (const std::string problem = Resume(); !problem.empty()) list.faults.push_back(problem);
    return list.faults;
}

std::string FleetOptions::CheckNumbers() {
    if (!ReadNumber(parallel_text_, 1, kMostParallel, plan_.parallel)) {
        return "--parallel: \"" + parallel_text_ + "\" is not a number from 1 to 1000";
    }
    if (!ReadNumber(first_text_, 1, kMostUnits, plan_.first)) {
        return "--first: \"" + first_text_ + "\" is not a number of units";
    }
    std::size_t most_failures = 0;
    if (!ReadNumber(most_failures_text_, 0, kMostUnits, most_failures)) {
        return "--max-failures: \"" + most_failures_text_ + "\" is not a number of units";
    }
    if (!most_failures_text_.empty()) plan_.most_failures = most_failures;
    return {};
}

std::string FleetOptions::Resume() {
    if (resume_file_.empty()) return {};
    const auto text = WholeFile(resume_file_);
    if (!text) return "--resume: " + resume_file_ + " can't be read; check its name";
    const ReportedUnits reported = ParseReport(*text);
    if (!reported.error.empty()) return resume_file_ + ": " + reported.error;
    std::erase_if(units_, [&](const FleetUnit& unit) { return reported.done.contains(unit.name); });
    return {};
}

bool FleetOptions::AddsToReport() const {
    std::error_code error;
    return report_file_ == resume_file_ ||
           std::filesystem::equivalent(report_file_, resume_file_, error);
}

FleetPlan FleetOptions::Plan(const Call& call) const {
    FleetPlan plan = plan_;
    if (call.Writes() && !plan.most_failures) plan.most_failures = 0;
    return plan;
}

}  // namespace kestrane
