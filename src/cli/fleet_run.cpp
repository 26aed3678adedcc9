#include "cli/fleet_run.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "cli/report_lines.h"

namespace kestrane {
namespace {

// Of a unit that was cut off before it was written to.
constexpr int kCutOff = 130;

const char* ResultOf(int status) {
    switch (status) {
        case kExitDone:
            return "done";
        case kExitUsage:
            return "refused";
        case kCutOff:
            return "not begun";
        default:
            return "failed";
    }
}

bool HasWritten(Tool& tool) {
    const auto& exchanges = tool.link.journal().exchanges();
    return std::any_of(exchanges.begin(), exchanges.end(), [](const Exchange& exchange) {
        return exchange.IsWrite() && exchange.times_sent > 0;
    });
}

// Shows the tool of a unit to others for as long as it stands.
class InUse {
  public:
    InUse(Tool*& shown, Tool& tool) : shown_(shown) { shown_ = &tool; }
    ~InUse() { shown_ = nullptr; }
    InUse(const InUse&) = delete;
    InUse& operator=(const InUse&) = delete;

  private:
    Tool*& shown_;
};

std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) joined += (joined.empty() ? "" : "; ") + text;
    return joined;
}

}  // namespace

struct FleetRun::UnitRun {
    const FleetUnit& unit;
    std::unique_ptr<Call> call;
    CallOptions options;
    ScriptedOperator scripted;
    std::vector<std::string> lines;
    std::vector<std::string> complaints;
    Json result;                 // null until the call gives one
    Tool* tool = nullptr;        // while the call works
    bool interrupted = false;    // in the midst of writing
    std::unique_ptr<Lane> lane;  // goes first: what stands on its stack uses the rest
};

FleetRun::FleetRun(FleetJob job)
    : job_(std::move(job)),
      fleet_(job_.units.size(), job_.plan, [this](std::size_t unit) { Begin(unit); }) {}

FleetRun::~FleetRun() = default;

void FleetRun::Start(std::function<void()> on_over) {
    on_over_ = std::move(on_over);
    fleet_.Start();
    ShowProgress();
    if (fleet_.Over()) Finish();
}

void FleetRun::Begin(std::size_t unit) {
    const FleetUnit& of = job_.units[unit];
    auto& run = running_[unit];
    run.reset(new UnitRun{
        of, job_.call->ForUnit(of), job_.options, {}, {}, {}, {}, nullptr, false, job_.new_lane()});
    run->options.UseUnit(of.address);
    run->lane->Start([this, at = run.get()] { return Work(*at); },
                     [this, unit](int status) { Ended(unit, status); });
}

// Whatever goes wrong in here is this unit's affair alone.
int FleetRun::Work(UnitRun& run) try {
    const auto tool = std::make_unique<Tool>(
        run.lane->With(run.scripted, run.scripted, run.scripted), run.options.tool_options());
    const InUse in_use(run.tool, *tool);
    tool->Start();
    run.options.Apply(*tool);
    CallContext context{*tool,
                        run.scripted,
                        run.options,
                        [&run](const std::string& line) { run.lines.push_back(line); },
                        [&run](const std::string& line) { run.complaints.push_back(line); },
                        {},
                        [&run](const Json& result) { run.result = result; }};
    // What is wrong with a file was said once, before the first connection.
    context.error_line = [](const std::string&) {};
    const std::string problem = run.call->Check(*tool);
    if (!problem.empty()) {
        context.complain(problem);
        return kExitUsage;
    }
    const int status = run.call->Run(context);
    tool->link.platform().tcpsend.Close();
    return status;
} catch (const std::exception& error) {
    run.complaints.push_back(std::string("failed within: ") + error.what());
    return kExitUnit;
}

void FleetRun::Ended(std::size_t unit, int status) {
    const std::unique_ptr<UnitRun> run = std::move(running_.at(unit));
    running_.erase(unit);
    const std::string& name = run->unit.name;
    if (status == kCutOff) run->result = nullptr;
    Json result = run->result;
    if (!result.is_object()) result = PlainResult(name, ResultOf(status), Joined(run->complaints));
    result["unit"] = name;
    if (run->interrupted && result["error"].is_string()) {
        result["error"] = "interrupted: " + result["error"].get<std::string>();
    }
    for (const std::string& text : run->complaints) job_.complain(name + ": " + text);
    Publish(unit, result, std::move(run->lines));
    status == kCutOff ? fleet_.CutOff() : fleet_.Ended(status);
    ShowProgress();
    if (fleet_.Over()) Finish();
}

void FleetRun::Publish(std::size_t unit, const Json& result, std::vector<std::string> lines) {
    const std::string line = ToLine(result);
    if (job_.report) job_.report(line);
    if (job_.call->PrintsJson()) {
        job_.print(line);
        return;
    }
    const std::string word = result.value("result", "");
    if (word == "not begun") lines.clear();
    if (lines.empty() || word == "failed" || word == "refused") lines.push_back(word);
    blocks_[unit] = std::move(lines);
    PrintBlocks();
}

// In the order of the list, as far as they have come.
void FleetRun::PrintBlocks() {
    for (auto block = blocks_.find(printed_); block != blocks_.end();
         block = blocks_.find(++printed_)) {
        job_.print(job_.units[printed_].name);
        for (const std::string& line : block->second) job_.print("  " + line);
        blocks_.erase(block);
    }
}

void FleetRun::Interrupt() {
    fleet_.Stop();
    for (const auto& [unit, run] : running_) {
        run->interrupted = run->tool && HasWritten(*run->tool);
        if (run->interrupted) {
            run->tool->link.HoldWrites();
        } else {
            run->lane->Cut(kCutOff);
        }
    }
    if (fleet_.Over()) Finish();
}

void FleetRun::ShowProgress() {
    if (!job_.progress) return;
    job_.progress(std::to_string(fleet_.Done()) + " done, " + std::to_string(fleet_.Failed()) +
                  " failed, " + std::to_string(fleet_.Running()) + " running, " +
                  std::to_string(fleet_.NotBegun()) + " left");
}

void FleetRun::Finish() {
    if (std::exchange(over_, true)) return;
    for (std::size_t unit = fleet_.Begun(); unit < job_.units.size(); ++unit) {
        Publish(unit, PlainResult(job_.units[unit].name, "not begun", ""), {});
    }
    if (!job_.call->PrintsJson()) {
        job_.print(std::to_string(fleet_.Done()) + " done, " + std::to_string(fleet_.Failed()) +
                   " failed, " + std::to_string(fleet_.NotBegun()) + " not begun");
    }
    on_over_();
}

}  // namespace kestrane
