#pragma once

// The options of a run over many units, and the files that they name.

#include <optional>
#include <string>
#include <vector>

#include "cli/fleet.h"
#include "cli/fleet_list.h"

namespace CLI {
class App;
}

namespace kestrane {

class Call;

class FleetOptions {
  public:
    // Adds them to a call that takes many units.
    void AddTo(CLI::App& app);

    // Many units are asked for.
    bool given() const { return !units_file_.empty(); }

    // Reads the files and checks what was given; all that is wrong, a line each. Before the first
    // connection.
    std::vector<std::string> Check(const Call& call);

    // In the order of the file, without those that the report of --resume tells done.
    const std::vector<FleetUnit>& units() const { return units_; }
    FleetPlan Plan(const Call& call) const;
    // Empty: none.
    const std::string& report_file() const { return report_file_; }
    // The report holds what --resume has read, and is added to.
    bool AddsToReport() const;

  private:
    std::string CheckNumbers();
    std::string Resume();

    std::string units_file_;
    std::string parallel_text_;
    std::string first_text_;
    std::string most_failures_text_;
    std::string report_file_;
    std::string resume_file_;
    FleetPlan plan_;
    std::vector<FleetUnit> units_;
};

}  // namespace kestrane
