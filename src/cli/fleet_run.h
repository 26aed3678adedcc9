#pragma once

// One call on many units: a tool and a lane for each unit under way, its results as they come to
// the report, to standard output and to the progress line. Nothing that happens to one unit ends
// or holds up the others.

#include <cstdio>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "cli/call.h"
#include "cli/fleet.h"
#include "cli/fleet_list.h"
#include "platform/lane.h"

namespace kestrane {

struct FleetJob {
    std::vector<FleetUnit> units;
    FleetPlan plan;
    const Call* call = nullptr;
    CallOptions options;
    NewLane new_lane;
    // Lines without their end, for standard output, standard error and the report.
    std::function<void(const std::string&)> print;
    std::function<void(const std::string&)> complain;
    std::function<void(const std::string&)> report;    // not set: none is asked for
    std::function<void(const std::string&)> progress;  // not set: nobody looks on
};

class FleetRun {
  public:
    explicit FleetRun(FleetJob job);
    ~FleetRun();
    FleetRun(const FleetRun&) = delete;
    FleetRun& operator=(const FleetRun&) = delete;

    // Begins; `on_over` comes when the last unit has ended, and may come in here.
    void Start(std::function<void()> on_over);

    // Begins no further unit; units that write end by themselves, others at once. They count as
    // not begun.
    void Interrupt();

    int ExitStatus() const { return fleet_.ExitStatus(); }

  private:
    // A unit under way.
    struct UnitRun;

    void Begin(std::size_t unit);
    int Work(UnitRun& run);
    void Ended(std::size_t unit, int status);
    void Publish(std::size_t unit, const Json& result, std::vector<std::string> lines);
    void PrintBlocks();
    void ShowProgress();
    void Finish();

    FleetJob job_;
    Fleet fleet_;
    std::function<void()> on_over_;
    std::map<std::size_t, std::unique_ptr<UnitRun>> running_;
    std::map<std::size_t, std::vector<std::string>> blocks_;  // not printed yet
    std::size_t printed_ = 0;                                 // units whose block is out
    bool over_ = false;
};

}  // namespace kestrane
