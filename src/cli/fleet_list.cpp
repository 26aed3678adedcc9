#include "cli/fleet_list.h"

#include <algorithm>
#include <cctype>
#include <map>

#include "cli/csv_rows.h"
#include "text/terminal.h"

namespace kestrane {
namespace {

constexpr int kDefaultPort = 1243;

class FleetListReader {
  public:
    explicit FleetListReader(const std::string& file) : file_(file) {}

    FleetList Read(std::string_view text) {
        const CsvRows csv = ReadCsv(text);
        if (!csv.rows.empty()) {
            ReadHeader(csv.rows.front());
            const bool has_units = unit_column_ != kNone;
            for (std::size_t i = 1; has_units && i < csv.rows.size(); ++i) ReadRow(csv.rows[i]);
        }
        if (csv.bad_line > 0)
            Fault(csv.bad_line, "a quotation mark has no partner; check the line");
        if (list_.units.empty() && list_.faults.empty()) {
            Fault(1, "there is no unit; give a header with the column \"unit\" and a line a unit");
        }
        return std::move(list_);
    }

  private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    void Fault(int line, const std::string& what) {
        list_.faults.push_back(ShownUtf8(file_ + ":" + std::to_string(line) + ": " + what));
    }

    void ReadHeader(const CsvRow& header) {
        for (std::size_t i = 0; i < header.cells.size(); ++i) {
            const std::string& name = header.cells[i];
            const Setting* const setting = name == "unit" ? nullptr : ReadColumn(header.line, name);
            const bool unit_again = name == "unit" && unit_column_ != kNone;
            const bool again = setting && std::count(columns_.begin(), columns_.end(), setting) > 0;
            if (unit_again || again) Fault(header.line, name + ": two columns give it");
            columns_.push_back(setting);
            if (name == "unit") unit_column_ = i;
        }
        if (unit_column_ == kNone) Fault(header.line, "unit: the header has no such column");
    }

    // Null, after a fault, for a column that can give no values.
    const Setting* ReadColumn(int line, const std::string& name) {
        const Setting* setting = FindSetting(name);
        if (!setting) setting = SettingOfControl(name);
        if (!setting) {
            Fault(line, name + ": not a known key; the nearest is " + NearestKey(name));
        } else if (setting->read_only) {
            Fault(line, name + ": this setting can only be read; leave the column out");
            return nullptr;
        }
        return setting;
    }

    void ReadRow(const CsvRow& row) {
        if (row.cells.size() > columns_.size()) {
            Fault(row.line, "has " + std::to_string(row.cells.size()) + " cells, the header " +
                                std::to_string(columns_.size()));
            return;
        }
        FleetUnit unit;
        std::string error;
        const std::string cell =
            unit_column_ < row.cells.size() ? row.cells[unit_column_] : std::string();
        const auto address = ParseUnitAddress(cell, error);
        if (!address) {
            Fault(row.line, "unit: " + error);
            return;
        }
        unit.address = *address;
        unit.address.port = address->port.value_or(kDefaultPort);
        const bool v6 = address->host.find(':') != std::string::npos;
        unit.name = (v6 ? '[' + address->host + ']' : address->host) + ':' +
                    std::to_string(*unit.address.port);
        std::string lower = unit.name;
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        const auto [first, is_new] = lines_.emplace(lower, row.line);
        if (!is_new) {
            Fault(row.line, "unit: " + unit.name + " stands on line " +
                                std::to_string(first->second) + " already");
        }
        ReadValues(row, unit);
        list_.units.push_back(std::move(unit));
    }

    void ReadValues(const CsvRow& row, FleetUnit& unit) {
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            const Setting* const setting = columns_[i];
            if (!setting || row.cells[i].empty()) continue;
            std::string error;
            auto value = ValueOfWord(*setting, row.cells[i], error);
            if (value) error = CheckValue(*setting, *value).value_or("");
            if (!error.empty()) {
                Fault(row.line, setting->key + ": " + error);
            } else {
                unit.values.emplace_back(setting, Normal(*setting, std::move(*value)));
            }
        }
    }

    const std::string& file_;
    FleetList list_;
    std::vector<const Setting*> columns_;
    std::size_t unit_column_ = kNone;
    std::map<std::string, int> lines_;  // of the units so far, in lower case
};

}  // namespace

FleetList ParseFleetList(std::string_view text, const std::string& file) {
    return FleetListReader(file).Read(text);
}

std::string FileNameOf(const FleetUnit& unit) {
    std::string name = unit.address.host + "_" + std::to_string(unit.address.port.value_or(0));
    std::replace(name.begin(), name.end(), '/', '_');
    return name + ".mdu.json";
}

}  // namespace kestrane
