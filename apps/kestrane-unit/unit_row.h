#pragma once

// The units of one program: one alone, or a row of them with ports of their own and one versions
// page for all.

#include <memory>
#include <string>
#include <vector>

#include "program_options.h"
#include "unit/unit_server.h"

namespace kestrane::unit {

class UnitRow {
  public:
    // `log` and `warn` get a line; in a row it begins with the unit's number.
    using OnLine = std::function<void(const std::string& line)>;
    UnitRow(const ProgramOptions& options, OnLine log, OnLine warn);

    // Listens with all of them; the first that can't says why.
    UnitServer::Started Listen();

    // What the program prints when it is ready: a line of JSON for one unit, CSV for a row.
    std::vector<std::string> ReadyLines() const;

    // A hand at a unit; in a row the line begins with the unit's number.
    std::string Hand(const std::string& line);

    void Stop();

  private:
    std::string host_;
    bool is_row_;
    std::vector<std::unique_ptr<UnitServer>> units_;
};

}  // namespace kestrane::unit
